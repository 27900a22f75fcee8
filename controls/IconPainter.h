#pragma once

#include <QImage>
#include <QList>
#include <QString>

namespace tk {

// Draws the icons of the standard library: friendly pictures for the programs a school runs;
// the folder and the document also stand for files that carry no icon of their own.
class IconPainter {
public:
    // The names of the icons, in library order.
    static QStringList names();
    // Icon `name` at `side` by `side` pixels, on a clear background.
    static QImage paint(const QString& name, int side);
};

} // namespace tk
