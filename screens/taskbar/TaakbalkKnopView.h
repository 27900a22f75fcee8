#pragma once

#include <QRect>

class QFont;
class QPainter;

namespace tk {

struct Ondergrond;
struct TaakbalkKnop;

// Paints a fixed button of a taskbar: its picture at the left of its place, centred in height,
// and its caption beside it in the normal or the hover colour, with an outline where that colour
// would not stand out from the bar under it.
class TaakbalkKnopView {
public:
    static void teken(QPainter& painter, const TaakbalkKnop& knop, const QFont& font, int beeldMaat,
                      const Ondergrond& onder);
    // Where the caption stands on the bar.
    static QRect tekstVak(const TaakbalkKnop& knop, const QFont& font, int beeldMaat);
};

} // namespace tk
