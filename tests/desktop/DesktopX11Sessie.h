#pragma once

#include "tests/platform/XvfbSession.h"

namespace tk::test {

// The X server the window tests of the desktop share, started by their main(); null when Xvfb
// or openbox is missing or did not come up.
struct DesktopX11Sessie {
    static XvfbSession* sessie;
};

} // namespace tk::test
