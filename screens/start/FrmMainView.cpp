#include "FrmMainView.h"

#include "FrmMain.h"

#include <QPainter>

namespace tk {

FrmMainView::FrmMainView(FrmMain& model, QWidget* ouder) : KeyboardView(ouder), m(model) {
    setWindowTitle(QStringLiteral("Tafelkrater"));
    setFocusPolicy(Qt::StrongFocus);
    m_canvas = new FrmMainCanvas(model, this);
    resize(1024, 768);
    m.onChanged = [this] { m_canvas->bijwerken(); };
    m_canvas->bijwerken();
}

FrmMainView::~FrmMainView() {
    m.onChanged = nullptr;
}

void FrmMainView::resizeEvent(QResizeEvent*) {
    // Unscaled and centred on a screen of another size.
    m_canvas->move((width() - m_canvas->width()) / 2, (height() - m_canvas->height()) / 2);
}

void FrmMainView::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), Qt::black);
}

bool FrmMainView::toets(int toets, bool shift) {
    if (toets == Qt::Key_Shift)
        m.link.ShiftIngedrukt = true;
    return m.Toets(toets, shift);
}

} // namespace tk
