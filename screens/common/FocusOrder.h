#pragma once

#include "screens/common/PaintedControl.h"

#include <QList>
#include <QRect>
#include <optional>

namespace tk {

// How the keyboard moves the focus between the controls of a screen: Tab and Shift+Tab go
// through them in reading order (rows from the top, left to right in a row), the arrow keys to
// the nearest control in their direction. Works on the controls' places alone, so that every
// screen's model uses the same order and a test checks it as a table.
class FocusOrder {
public:
    enum class Stap { Volgende, Vorige, Links, Rechts, Omhoog, Omlaag };

    // The step a key asks for (Qt key code, Shift held), none for any other key.
    static std::optional<Stap> stapVoor(int toets, bool shift);
    // Whether a key presses the control in focus (Enter, Return, Space).
    static bool isDrukken(int toets);
    // The index in `plekken` the focus goes to from `huidig` (-1: none yet). Tab past the last
    // and Shift+Tab before the first give -1 (the focus leaves this group); an arrow with nothing
    // in its direction keeps `huidig`. Empty places (a control not shown) are skipped.
    static int volgende(const QList<QRect>& plekken, int huidig, Stap stap);
    // The indices of the shown places in reading order.
    static QList<int> leesvolgorde(const QList<QRect>& plekken);
    // The same step among the painted controls a screen offers (PaintedControl::stop): only the
    // ones that can be pressed and are not disabled take the focus. `huidig` is a stop, -1 (or a
    // stop no longer in the list) for none; the answer is a stop or -1 as in volgende().
    static int volgendeStop(const QList<PaintedControl>& lijst, int huidig, Stap stap);
};

} // namespace tk
