#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <QString>

namespace tk {

class Programma;
class ThemeKeys;

// A fixed button of a taskbar, named by its action word: a picture from the theme's [Taakbalk]
// section with an optional caption beside it, in the colour pair of the bar's section. Both
// taskbars make, place and draw their fixed buttons the same way.
struct TaakbalkKnop {
    QString naam; // the action word
    bool links = true;
    QRect plek;    // on the bar
    QString tekst; // the caption beside the picture; empty: the picture alone
    QString hint;  // what the button does, shown under the mouse (for a picture alone)
    QImage beeld;
    QColor tekstKleur{Qt::white};
    QColor hoverKleur{255, 221, 87};
    bool hover = false;
    bool focus = false; // the keyboard's focus, drawn as a ring in the hover colour

    // Space between the picture and the caption.
    static constexpr int Tussenruimte = 6;

    // The picture of [Taakbalk] `beeldSleutel` when the theme has it, and the colours of
    // `<kleurWoord> tekst` and `<kleurWoord> hover` of `sectie` (LaadKleuren). A colour pair that
    // the theme lacks leaves the colours as they were; the fault goes to the log book only.
    void LaadThema(Programma& p, const ThemeKeys& k, const QString& beeldSleutel,
                   const QString& sectie, const QString& kleurWoord, const char* procedure);
    // Picture, space and caption measured with the font's advance of the caption.
    int breedte(int beeldMaat, int tekstBreedte) const;
    // What a screen reader says: the caption, else the hint, else the action word.
    QString toegankelijkeNaam() const;
};

} // namespace tk
