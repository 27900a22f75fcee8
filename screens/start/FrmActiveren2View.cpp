#include "FrmActiveren2View.h"

#include "FrmActiveren2.h"

#include <QPainter>

namespace tk {

namespace {
constexpr int breedte = 380;
}

FrmActiveren2View::FrmActiveren2View(FrmActiveren2& model, QWidget* ouder)
    : DialogFrame(ouder), m(model) {
    setModal(false);
    setAttribute(Qt::WA_ShowWithoutActivating);
    zetLijf(breedte, 96);
    m.onChanged = [this] { bijwerken(); };
    bijwerken();
}

FrmActiveren2View::~FrmActiveren2View() {
    m.onChanged = nullptr;
}

void FrmActiveren2View::bijwerken() {
    setWindowTitle(m.Caption);
    setAccessibleName(m.Caption);
    setAccessibleDescription(m.lblInfo);
    if (isWindow()) {
        if (m.Zichtbaar && !isVisible())
            show();
        else if (!m.Zichtbaar && isVisible())
            hide();
    }
    update();
}

void FrmActiveren2View::tekenInhoud(QPainter& p) {
    p.setPen(tekstKleur());
    p.drawText(QRect(18, 12, breedte - 36, 44), Qt::AlignLeft | Qt::TextWordWrap, m.lblInfo);
    QFont vet = p.font();
    vet.setBold(true);
    p.setFont(vet);
    p.setPen(kopKleur());
    p.drawText(QRect(18, 62, breedte - 36, 20), Qt::AlignLeft | Qt::AlignVCenter, m.lblWacht);
}

} // namespace tk
