#include "Ondergrond.h"

#include "Contrast.h"

#include <cmath>

namespace tk {

double Ondergrond::slechtste(const QColor& tekst, const QRect& vak) const {
    const double opKleur = Contrast::verhouding(tekst, kleur);
    if (beeld.isNull() || maat.isEmpty())
        return opKleur;
    const QRect getekend(QPoint(0, 0), maat);
    // Where the caption reaches past the picture the ground colour shows.
    double laagste = getekend.contains(vak) ? 21.0 : opKleur;
    const QRect binnen = vak.intersected(getekend);
    if (binnen.isEmpty())
        return laagste;
    const double sx = double(beeld.width()) / maat.width();
    const double sy = double(beeld.height()) / maat.height();
    const QRect bron(
        QPoint(int(std::floor(binnen.left() * sx)), int(std::floor(binnen.top() * sy))),
        QPoint(int(std::ceil((binnen.right() + 1) * sx)) - 1,
               int(std::ceil((binnen.bottom() + 1) * sy)) - 1));
    return qMin(laagste, Contrast::slechtste(tekst, beeld, bron));
}

bool Ondergrond::randNodig(const QColor& tekst, const QRect& vak) const {
    return slechtste(tekst, vak) < Contrast::Minimum;
}

} // namespace tk
