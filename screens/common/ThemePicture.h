#pragma once

#include "theme/RgbColour.h"

#include <QColor>
#include <QImage>
#include <QString>

namespace tk {

// A theme colour as the screens paint it.
inline QColor kleur(const RgbColour& c) {
    return QColor(c.r, c.g, c.b);
}

// A theme picture from the disk; a missing or unreadable one is a fault that names the file,
// so that a broken theme stops the screen's set-up instead of drawing holes.
QImage laadBeeld(const QString& pad);

} // namespace tk
