#include "SkinnedButtonView.h"

#include "FocusRing.h"
#include "SkinnedButton.h"

#include <QAccessible>
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

SkinnedButtonView::SkinnedButtonView(SkinnedButton& knop, QWidget* ouder)
    : QWidget(ouder), m_knop(knop) {
    setMouseTracking(true);
    // The screen keeps the keyboard and moves the focus between its buttons in its model.
    setFocusPolicy(Qt::NoFocus);
    tmrHover.setInterval(50);
    connect(&tmrHover, &QTimer::timeout, this, [this] {
        if (m_knop.tmrHover_Timer(QCursor::pos(), QRect(mapToGlobal(QPoint(0, 0)), size())))
            update();
    });
    tmrHover.start();
    bijwerken();
}

void SkinnedButtonView::bijwerken() {
    setGeometry(QRect(QPoint(m_knop.X, m_knop.Y), m_knop.Grootte()));
    setToolTip(m_knop.ToolTipText);
    setVisible(m_knop.Visible);
    if (m_knop.focus != m_focusGetekend) {
        m_focusGetekend = m_knop.focus;
        if (m_knop.focus && isVisible() && QAccessible::isActive()) {
            QAccessibleEvent e(this, QAccessible::Focus);
            QAccessible::updateAccessibility(&e);
        }
    }
    update();
}

void SkinnedButtonView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QImage beeld = m_knop.Teken();
    p.drawImage(0, 0, beeld);
    if (m_knop.focus)
        FocusRing::teken(p, rect(), m_knop.focusKleur);
}

void SkinnedButtonView::mousePressEvent(QMouseEvent* e) {
    m_knop.UserControl_MouseDown(knopVan(e->button()), shiftVan(e->modifiers()),
                                 e->position().toPoint());
}

void SkinnedButtonView::mouseReleaseEvent(QMouseEvent* e) {
    const bool binnen = rect().contains(e->position().toPoint());
    m_knop.UserControl_MouseUp(knopVan(e->button()), shiftVan(e->modifiers()),
                               e->position().toPoint());
    if (binnen && e->button() == Qt::LeftButton)
        m_knop.UserControl_Click();
}

void SkinnedButtonView::mouseMoveEvent(QMouseEvent* e) {
    m_knop.UserControl_MouseMove(knopVan(e->button()), shiftVan(e->modifiers()),
                                 e->position().toPoint());
}

void SkinnedButtonView::mouseDoubleClickEvent(QMouseEvent*) {
    m_knop.UserControl_DblClick();
}

} // namespace tk
