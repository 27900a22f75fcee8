#include "SkinnedButtonAccessible.h"

#include "controls/SkinnedButton.h"
#include "controls/SkinnedButtonView.h"

namespace tk {

SkinnedButtonAccessible::SkinnedButtonAccessible(SkinnedButtonView* view)
    : QAccessibleWidget(view, QAccessible::Button) {}

SkinnedButtonView* SkinnedButtonAccessible::view() const {
    return static_cast<SkinnedButtonView*>(widget());
}

QString SkinnedButtonAccessible::text(QAccessible::Text t) const {
    const SkinnedButton& k = view()->knop();
    if (t == QAccessible::Name)
        return k.toegankelijkeNaam();
    if (t == QAccessible::Description)
        return k.ToolTipText == k.toegankelijkeNaam() ? QString() : k.ToolTipText;
    return QAccessibleWidget::text(t);
}

QAccessible::State SkinnedButtonAccessible::state() const {
    QAccessible::State s = QAccessibleWidget::state();
    const SkinnedButton& k = view()->knop();
    s.focusable = true;
    s.focused = k.focus;
    s.pressed = k.ingedrukt || k.toestand == 1;
    s.disabled = !k.Enabled;
    s.checkable = k.aanvinkbaar();
    s.checked = k.aangevinkt();
    s.hotTracked = k.toestand == 2;
    return s;
}

QStringList SkinnedButtonAccessible::actionNames() const {
    return view()->knop().Enabled ? QStringList{pressAction()} : QStringList();
}

void SkinnedButtonAccessible::doAction(const QString& actie) {
    if (actie == pressAction())
        view()->knop().UserControl_Click();
}

} // namespace tk
