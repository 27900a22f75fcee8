#pragma once

#include "tests/platform/XvfbSession.h"

namespace tk::test {

// The X server the tests of one binary share, started by X11TestMain.cpp before the
// QApplication; null when Xvfb or openbox is missing or did not come up.
struct X11TestSessie {
    static XvfbSession* sessie;
};

} // namespace tk::test
