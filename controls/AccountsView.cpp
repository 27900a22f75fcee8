#include "AccountsView.h"

#include "Accounts.h"

#include <QCursor>
#include <QMouseEvent>
#include <QPainter>

namespace tk {

AccountsView::AccountsView(Accounts& knop, QWidget* ouder) : QWidget(ouder), m_knop(knop) {
    tmrHover.setInterval(50);
    connect(&tmrHover, &QTimer::timeout, this, [this] {
        if (m_knop.tmrHover_Timer(QCursor::pos(), QRect(mapToGlobal(QPoint(0, 0)), size())))
            update();
    });
    tmrHover.start();
    bijwerken();
}

void AccountsView::bijwerken() {
    setGeometry(QRect(QPoint(m_knop.X, m_knop.Y), m_knop.Grootte()));
    setVisible(m_knop.Visible);
    update();
}

void AccountsView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.drawImage(0, 0, m_knop.Teken());
}

void AccountsView::mousePressEvent(QMouseEvent* e) {
    m_knop.UserControl_MouseDown(1, 0, e->position().toPoint());
}

void AccountsView::mouseReleaseEvent(QMouseEvent* e) {
    const bool binnen = rect().contains(e->position().toPoint());
    m_knop.UserControl_MouseUp(1, 0, e->position().toPoint());
    if (binnen && e->button() == Qt::LeftButton)
        m_knop.UserControl_Click();
}

} // namespace tk
