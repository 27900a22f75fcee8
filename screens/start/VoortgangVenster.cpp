#include "VoortgangVenster.h"

#include <QPainter>

namespace tk {

VoortgangVenster::VoortgangVenster(QWidget* ouder) : DialogFrame(ouder) {
    setModal(false);
    setAttribute(Qt::WA_ShowWithoutActivating);
}

void VoortgangVenster::tekenKop(QPainter& p, const QRect& vak, const QString& tekst) {
    const QFont eerder = p.font();
    QFont vet = eerder;
    vet.setBold(true);
    p.setFont(vet);
    p.setPen(kopKleur());
    p.drawText(vak, Qt::AlignLeft | Qt::AlignVCenter, tekst);
    p.setFont(eerder);
}

void VoortgangVenster::volg(const QString& titel, bool zichtbaar) {
    setWindowTitle(titel);
    if (isWindow()) {
        if (zichtbaar && !isVisible())
            show();
        else if (!zichtbaar && isVisible())
            hide();
    }
    update();
}

} // namespace tk
