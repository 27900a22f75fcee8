#include "FrmMainView.h"

#include "FrmMain.h"

#include <QKeyEvent>
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

// Let go (or its release missed while another window had the keyboard), Shift no longer ends the
// waits of later connects.
void FrmMainView::keyReleaseEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_Shift)
        m.link.ShiftIngedrukt = false;
    KeyboardView::keyReleaseEvent(e);
}

void FrmMainView::focusOutEvent(QFocusEvent* e) {
    m.link.ShiftIngedrukt = false;
    KeyboardView::focusOutEvent(e);
}

} // namespace tk
