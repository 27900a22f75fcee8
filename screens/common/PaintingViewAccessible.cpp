#include "PaintingViewAccessible.h"

#include "PaintedControlAccessible.h"
#include "PaintedControls.h"

namespace tk {

PaintingViewAccessible::PaintingViewAccessible(QWidget* view, PaintedControls* bron,
                                               QAccessible::Role rol)
    : QAccessibleWidget(view, rol), m_bron(bron) {}

PaintingViewAccessible::~PaintingViewAccessible() {
    for (QAccessible::Id id : m_kinderen)
        if (id)
            QAccessible::deleteAccessibleInterface(id);
}

int PaintingViewAccessible::childCount() const {
    return QAccessibleWidget::childCount() + int(m_bron->geschilderd().size());
}

QAccessibleInterface* PaintingViewAccessible::child(int index) const {
    const int widgets = QAccessibleWidget::childCount();
    if (index < widgets)
        return index < 0 ? nullptr : QAccessibleWidget::child(index);
    const int j = index - widgets;
    if (j >= m_bron->geschilderd().size())
        return nullptr;
    if (m_kinderen.size() <= j)
        m_kinderen.resize(j + 1, 0);
    if (!m_kinderen[j])
        m_kinderen[j] = QAccessible::registerAccessibleInterface(
            new PaintedControlAccessible(widget(), m_bron, j));
    return QAccessible::accessibleInterface(m_kinderen[j]);
}

int PaintingViewAccessible::indexOfChild(const QAccessibleInterface* kind) const {
    if (const auto* geschilderd = dynamic_cast<const PaintedControlAccessible*>(kind)) {
        if (geschilderd->view() != widget())
            return -1;
        return QAccessibleWidget::childCount() + geschilderd->index();
    }
    return QAccessibleWidget::indexOfChild(kind);
}

QAccessibleInterface* PaintingViewAccessible::childAt(int x, int y) const {
    // The painted controls lie on the view; a widget child stands above them.
    if (QAccessibleInterface* w = QAccessibleWidget::childAt(x, y))
        return w;
    const QPoint punt = widget()->mapFromGlobal(QPoint(x, y));
    const QList<PaintedControl> lijst = m_bron->geschilderd();
    for (int j = int(lijst.size()) - 1; j >= 0; --j)
        if (lijst[j].plek.contains(punt))
            return child(QAccessibleWidget::childCount() + j);
    return nullptr;
}

QString PaintingViewAccessible::text(QAccessible::Text t) const {
    const QString eigen = QAccessibleWidget::text(t);
    if (t == QAccessible::Name && eigen.isEmpty())
        return widget()->windowTitle();
    return eigen;
}

void PaintingViewAccessible::meldFocus(QWidget* view, PaintedControls& bron, int& gemeld) {
    int nu = -1;
    const QList<PaintedControl> lijst = bron.geschilderd();
    for (int j = 0; j < lijst.size(); ++j)
        if (lijst[j].focus)
            nu = j;
    if (nu == gemeld)
        return;
    gemeld = nu;
    if (nu < 0 || !QAccessible::isActive() || !view->isVisible())
        return;
    QAccessibleInterface* ouder = QAccessible::queryAccessibleInterface(view);
    if (!ouder)
        return;
    if (QAccessibleInterface* kind = ouder->child(ouder->childCount() - int(lijst.size()) + nu)) {
        QAccessibleEvent e(kind, QAccessible::Focus);
        QAccessible::updateAccessibility(&e);
    }
}

} // namespace tk
