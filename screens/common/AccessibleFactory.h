#pragma once

class QAccessibleInterface;
class QObject;
class QString;

namespace tk {

// Tells Qt's accessibility how to see the views that paint their own controls: a skinned
// button becomes a button (SkinnedButtonAccessible), a view that offers PaintedControls gets a
// child per painted control (PaintingViewAccessible). Installed once by the client at start.
class AccessibleFactory {
public:
    static void installeren();
    static QAccessibleInterface* maak(const QString& klasse, QObject* object);
};

} // namespace tk
