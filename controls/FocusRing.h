#pragma once

#include <QColor>
#include <QRect>

class QPainter;

namespace tk {

// The keyboard focus on a painted control: a ring of two pixels in the theme's colour with a
// line of one pixel inside it in black or white, whichever stands out against the theme's colour.
// One of the two always stands out against what lies under it, so the focus stays visible on
// every theme.
class FocusRing {
public:
    static void teken(QPainter& p, const QRect& vak, const QColor& kleur);
};

} // namespace tk
