#include "Knop2View.h"

#include "Knop2.h"

#include <QCursor>
#include <QMouseEvent>
#include <QPainter>

namespace tk {

namespace {
int shiftVan(Qt::KeyboardModifiers m) {
    return (m & Qt::ShiftModifier ? 1 : 0) | (m & Qt::ControlModifier ? 2 : 0) |
           (m & Qt::AltModifier ? 4 : 0);
}
int knopVan(Qt::MouseButton b) {
    return b == Qt::LeftButton ? 1 : b == Qt::RightButton ? 2 : b == Qt::MiddleButton ? 4 : 0;
}
} // namespace

Knop2View::Knop2View(Knop2& knop, QWidget* ouder) : QWidget(ouder), m_knop(knop) {
    setMouseTracking(true);
    tmrHover.setInterval(50);
    connect(&tmrHover, &QTimer::timeout, this, [this] {
        if (m_knop.tmrHover_Timer(QCursor::pos(), QRect(mapToGlobal(QPoint(0, 0)), size())))
            update();
    });
    tmrHover.start();
    bijwerken();
}

void Knop2View::bijwerken() {
    setGeometry(QRect(QPoint(m_knop.X, m_knop.Y), m_knop.Grootte()));
    setToolTip(m_knop.ToolTipText);
    setVisible(m_knop.Visible);
    update();
}

void Knop2View::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.drawImage(0, 0, m_knop.Teken());
}

void Knop2View::mousePressEvent(QMouseEvent* e) {
    m_knop.UserControl_MouseDown(knopVan(e->button()), shiftVan(e->modifiers()),
                                 e->position().toPoint());
}

void Knop2View::mouseReleaseEvent(QMouseEvent* e) {
    const bool binnen = rect().contains(e->position().toPoint());
    m_knop.UserControl_MouseUp(knopVan(e->button()), shiftVan(e->modifiers()),
                               e->position().toPoint());
    if (binnen && e->button() == Qt::LeftButton)
        m_knop.UserControl_Click();
}

void Knop2View::mouseMoveEvent(QMouseEvent* e) {
    m_knop.UserControl_MouseMove(knopVan(e->button()), shiftVan(e->modifiers()),
                                 e->position().toPoint());
}

void Knop2View::mouseDoubleClickEvent(QMouseEvent*) {
    if (m_knop.DblClick)
        m_knop.DblClick();
}

} // namespace tk
