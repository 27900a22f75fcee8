#pragma once

#include "tests/platform/XvfbSession.h"

namespace tk::test {

// The X server the tests of this binary share, started by its main(); null when Xvfb or
// openbox is missing or did not come up.
struct TaakbalkX11Sessie {
    static XvfbSession* sessie;
};

} // namespace tk::test
