#include "AccessibleFactory.h"

#include "PaintedControls.h"
#include "PaintingViewAccessible.h"
#include "SkinnedButtonAccessible.h"
#include "controls/SkinnedButtonView.h"

#include <QAccessible>

namespace tk {

QAccessibleInterface* AccessibleFactory::maak(const QString&, QObject* object) {
    if (auto* knop = qobject_cast<SkinnedButtonView*>(object))
        return new SkinnedButtonAccessible(knop);
    if (auto* widget = qobject_cast<QWidget*>(object))
        if (auto* bron = dynamic_cast<PaintedControls*>(widget))
            return new PaintingViewAccessible(widget, bron);
    return nullptr;
}

void AccessibleFactory::installeren() {
    // Installing twice would ask the factory twice; removing first keeps one.
    QAccessible::removeFactory(&AccessibleFactory::maak);
    QAccessible::installFactory(&AccessibleFactory::maak);
}

} // namespace tk
