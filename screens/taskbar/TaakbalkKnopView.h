#pragma once

class QFont;
class QPainter;

namespace tk {

struct TaakbalkKnop;

// Paints a fixed button of a taskbar: its picture at the left of its place, centred in height,
// and its caption beside it in the normal or the hover colour.
class TaakbalkKnopView {
public:
    static void teken(QPainter& painter, const TaakbalkKnop& knop, const QFont& font,
                      int beeldMaat);
};

} // namespace tk
