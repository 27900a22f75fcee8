#pragma once

#include <QtCore/qtestsupport_core.h>

namespace tk::test {

// Runs Qt's events until the condition holds: real processes, sockets, the X server and its
// window manager answer in their own time. The deadline only ends a wait that would otherwise
// hang; it is generous because a loaded machine is slow, and it never decides a test by itself.
template <class F> bool waitUntil(F condition, int ms = 30000) {
    return QTest::qWaitFor(condition, ms);
}

// Runs Qt's events for a while in real time, for what must not happen: a message that is not
// sent, a reply that is not taken.
inline void pompVoor(int ms) {
    QTest::qWait(ms);
}

} // namespace tk::test
