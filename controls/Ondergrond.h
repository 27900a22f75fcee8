#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <QSize>

namespace tk {

// What lies under the captions of a bar: a picture, drawn stretched to `maat` from the top left,
// on a ground of one colour (all that shows when there is no picture). A caption is measured
// against the pixels of the picture under it, found back in the picture's own size, so that a
// paint needs no stretched copy.
struct Ondergrond {
    QImage beeld;
    QSize maat;
    QColor kleur;

    // The lowest contrast of text in `tekst` over `vak` (in the bar's pixels).
    double slechtste(const QColor& tekst, const QRect& vak) const;
    // Whether such a caption needs an outline to be read.
    bool randNodig(const QColor& tekst, const QRect& vak) const;
};

} // namespace tk
