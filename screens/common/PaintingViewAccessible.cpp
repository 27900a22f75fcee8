#include "PaintingViewAccessible.h"

#include "PaintedControlAccessible.h"
#include "PaintedControls.h"

#include <QFocusFrame>
#include <QMenu>

namespace tk {

PaintingViewAccessible::PaintingViewAccessible(QWidget* view, PaintedControls* bron,
                                               QAccessible::Role rol)
    : QAccessibleWidget(view, rol), m_bron(bron) {}

PaintingViewAccessible::~PaintingViewAccessible() {
    for (QAccessible::Id id : m_kinderen)
        if (id)
            QAccessible::deleteAccessibleInterface(id);
}

const QList<QWidget*>& PaintingViewAccessible::widgets() const {
    // Equal lists that share their data compare in one step; a child added or removed made the
    // view's list its own.
    const QObjectList& nu = widget()->children();
    if (m_widgetsGelezen && m_stand == nu)
        return m_widgets;
    m_stand = nu;
    m_widgetsGelezen = true;
    m_widgets.clear();
    // The same children Qt's own widget accessibility counts: no windows, no focus frames or
    // menus, none of its helper widgets.
    for (QObject* o : nu) {
        auto* w = qobject_cast<QWidget*>(o);
        if (!w || w->isWindow() || qobject_cast<QFocusFrame*>(w) || qobject_cast<QMenu*>(w))
            continue;
        const QString naam = w->objectName();
        if (naam == u"qt_rubberband" || naam == u"qt_qmainwindow_extended_splitter" ||
            naam == u"qt_spinbox_lineedit")
            continue;
        m_widgets.append(w);
    }
    return m_widgets;
}

int PaintingViewAccessible::childCount() const {
    return int(widgets().size() + m_bron->geschilderd().size());
}

QAccessibleInterface* PaintingViewAccessible::child(int index) const {
    if (index < 0)
        return nullptr;
    const QList<QWidget*>& eigen = widgets();
    if (index < eigen.size())
        return QAccessible::queryAccessibleInterface(eigen[index]);
    const int j = index - int(eigen.size());
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
        return int(widgets().size()) + geschilderd->index();
    }
    if (!kind)
        return -1;
    return int(widgets().indexOf(qobject_cast<QWidget*>(kind->object())));
}

QAccessibleInterface* PaintingViewAccessible::childAt(int x, int y) const {
    // The painted controls lie on the view; a widget child stands above them.
    if (QAccessibleInterface* w = QAccessibleWidget::childAt(x, y))
        return w;
    const QPoint punt = widget()->mapFromGlobal(QPoint(x, y));
    const QList<PaintedControl> lijst = m_bron->geschilderd();
    for (int j = int(lijst.size()) - 1; j >= 0; --j)
        if (lijst[j].plek.contains(punt))
            return child(int(widgets().size()) + j);
    return nullptr;
}

QString PaintingViewAccessible::text(QAccessible::Text t) const {
    const QString eigen = QAccessibleWidget::text(t);
    if (t == QAccessible::Name && eigen.isEmpty())
        return widget()->windowTitle();
    return eigen;
}

void PaintingViewAccessible::meldFocus(QWidget* view, PaintedControls& bron, int& gemeld) {
    // Without a screen reader listening the list is not even made: a change only paints.
    if (!QAccessible::isActive()) {
        gemeld = -1;
        return;
    }
    int nu = -1;
    const QList<PaintedControl> lijst = bron.geschilderd();
    for (int j = 0; j < lijst.size(); ++j)
        if (lijst[j].focus)
            nu = j;
    if (nu == gemeld)
        return;
    gemeld = nu;
    if (nu < 0 || !view->isVisible())
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
