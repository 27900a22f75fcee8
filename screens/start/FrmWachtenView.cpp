#include "FrmWachtenView.h"

#include "FrmWachten.h"
#include "screens/common/LoadingBarPainter.h"
#include "screens/common/WindowPlacement.h"

#include <QPainter>

namespace tk {

FrmWachtenView::FrmWachtenView(FrmWachten& model, QWidget* ouder)
    : QWidget(ouder, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint), m(model) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    m.onChanged = [this] { bijwerken(); };
    bijwerken();
}

FrmWachtenView::~FrmWachtenView() {
    m.onChanged = nullptr;
}

void FrmWachtenView::bijwerken() {
    if (size() != QSize(m.Breedte, m.Hoogte)) {
        setFixedSize(m.Breedte, m.Hoogte);
        WindowPlacement::centreer(*this);
    }
    if (m.Zichtbaar && !isVisible())
        WindowPlacement::centreer(*this);
    if (isWindow())
        setVisible(m.Zichtbaar);
    update();
}

void FrmWachtenView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), Qt::white);
    p.setPen(QPen(m.KleurRand, 2));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
    p.setFont(m.tekstFont);
    p.setPen(m.KleurTekst);
    int y = m.regelsBoven;
    for (const QString& regel : m.regels) {
        p.drawText(QRect(0, y, width(), m.regelHoogte), Qt::AlignHCenter | Qt::AlignTop, regel);
        y += m.regelHoogte;
    }
    LoadingBarPainter::van(m, m.KleurTekst, m.tekstFont).teken(p, m.picLaden);
}

} // namespace tk
