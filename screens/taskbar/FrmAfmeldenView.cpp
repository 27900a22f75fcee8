#include "FrmAfmeldenView.h"

#include "FrmAfmelden.h"
#include "screens/common/LoadingBarPainter.h"
#include "screens/common/WindowPlacement.h"

#include <QPainter>

namespace tk {

FrmAfmeldenView::FrmAfmeldenView(FrmAfmelden& model, QWidget* ouder)
    : QWidget(ouder, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint), m(model) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFixedSize(FrmAfmelden::Breedte, FrmAfmelden::Hoogte);
    m.onChanged = [this] { bijwerken(); };
    bijwerken();
}

FrmAfmeldenView::~FrmAfmeldenView() {
    m.onChanged = nullptr;
}

void FrmAfmeldenView::bijwerken() {
    if (isWindow()) {
        if (m.Zichtbaar && !isVisible())
            WindowPlacement::centreer(*this);
        setVisible(m.Zichtbaar);
    }
    update();
}

void FrmAfmeldenView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), Qt::white);
    p.setPen(QPen(m.KleurRand, 2));
    p.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
    p.setFont(m.tekstFont);
    p.setPen(m.KleurRand);
    QString tekst = m.lblAfmelden;
    tekst.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    p.drawText(QRect(10, 14, width() - 20, m.picLaden.plek.top() - 20), Qt::AlignCenter, tekst);
    LoadingBarPainter::van(m, m.KleurRand, m.tekstFont).teken(p, m.picLaden);
}

} // namespace tk
