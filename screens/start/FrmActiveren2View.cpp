#include "FrmActiveren2View.h"

#include "FrmActiveren2.h"

#include <QPainter>

namespace tk {

namespace {
constexpr int breedte = 380;
}

FrmActiveren2View::FrmActiveren2View(FrmActiveren2& model, QWidget* ouder)
    : VoortgangVenster(ouder), m(model) {
    zetLijf(breedte, 96);
    m.onChanged = [this] { bijwerken(); };
    bijwerken();
}

FrmActiveren2View::~FrmActiveren2View() {
    m.onChanged = nullptr;
}

void FrmActiveren2View::bijwerken() {
    setAccessibleName(m.Caption);
    setAccessibleDescription(m.lblInfo);
    volg(m.Caption, m.Zichtbaar);
}

void FrmActiveren2View::tekenInhoud(QPainter& p) {
    p.setPen(tekstKleur());
    p.drawText(QRect(18, 12, breedte - 36, 44), Qt::AlignLeft | Qt::TextWordWrap, m.lblInfo);
    tekenKop(p, QRect(18, 62, breedte - 36, 20), m.lblWacht);
}

} // namespace tk
