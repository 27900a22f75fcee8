#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>

class QPainter;

namespace tk {

// Contrast of text against what lies under it, as the accessibility guidelines for the web and
// for software measure it: relative luminance of the sRGB colours, ratio from 1 to 21. Captions
// need 4.5.
class Contrast {
public:
    static constexpr double Minimum = 4.5;
    static double luminantie(const QColor& kleur);
    static double verhouding(const QColor& a, const QColor& b);
    // Black or white, whichever stands out more against `achter`.
    static QColor tegenkleur(const QColor& achter);
    // The lowest ratio between `tekst` and the pixels of `achter` inside `vak` (the darkest and
    // the lightest pixel are the worst cases); 21 for an empty area.
    static double slechtste(const QColor& tekst, const QImage& achter, const QRect& vak);
    // Whether a caption in `tekst` over `vak` of `achter` needs an outline to be read.
    static bool randNodig(const QColor& tekst, const QImage& achter, const QRect& vak);
    // Writes a caption at its baseline; with `rand`, first a one-pixel outline in the colour that
    // stands out from the text (tegenkleur), so the caption reads on any picture.
    static void schrijf(QPainter& p, const QPoint& basis, const QString& tekst, const QColor& kleur,
                        bool rand);
};

} // namespace tk
