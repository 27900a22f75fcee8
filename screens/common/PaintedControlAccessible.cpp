#include "PaintedControlAccessible.h"

#include "PaintedControls.h"

namespace tk {

PaintedControlAccessible::PaintedControlAccessible(QWidget* view, PaintedControls* bron, int index)
    : m_view(view), m_bron(bron), m_index(index) {}

bool PaintedControlAccessible::control(PaintedControl& uit) const {
    if (!m_view)
        return false;
    const QList<PaintedControl> lijst = m_bron->geschilderd();
    if (m_index < 0 || m_index >= lijst.size())
        return false;
    uit = lijst[m_index];
    return true;
}

bool PaintedControlAccessible::isValid() const {
    PaintedControl c;
    return control(c);
}

QWindow* PaintedControlAccessible::window() const {
    return m_view && m_view->window() ? m_view->window()->windowHandle() : nullptr;
}

QAccessibleInterface* PaintedControlAccessible::parent() const {
    return m_view ? QAccessible::queryAccessibleInterface(m_view.data()) : nullptr;
}

QString PaintedControlAccessible::text(QAccessible::Text t) const {
    PaintedControl c;
    if (!control(c))
        return {};
    if (t == QAccessible::Name)
        return c.naam;
    if (t == QAccessible::Description)
        return c.beschrijving;
    return {};
}

QRect PaintedControlAccessible::rect() const {
    PaintedControl c;
    if (!control(c))
        return {};
    return QRect(m_view->mapToGlobal(c.plek.topLeft()), c.plek.size());
}

QAccessible::Role PaintedControlAccessible::role() const {
    PaintedControl c;
    return control(c) ? c.rol : QAccessible::NoRole;
}

QAccessible::State PaintedControlAccessible::state() const {
    QAccessible::State s;
    PaintedControl c;
    if (!control(c)) {
        s.invalid = true;
        return s;
    }
    s.invisible = !m_view->isVisible();
    s.focusable = c.drukbaar;
    s.focused = c.focus;
    s.pressed = c.ingedrukt;
    s.disabled = c.uitgeschakeld;
    s.checkable = c.aanvinkbaar;
    s.checked = c.aangevinkt;
    s.readOnly = !c.drukbaar;
    return s;
}

void* PaintedControlAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

QStringList PaintedControlAccessible::actionNames() const {
    PaintedControl c;
    if (!control(c) || !c.drukbaar || c.uitgeschakeld)
        return {};
    return {pressAction()};
}

void PaintedControlAccessible::doAction(const QString& actie) {
    PaintedControl c;
    if (actie == pressAction() && control(c) && c.drukbaar && !c.uitgeschakeld)
        m_bron->druk(c);
}

} // namespace tk
