#pragma once

#include "tests/platform/X11TestSessie.h"
#include "tests/support/WaitUntil.h"

#include <QCoreApplication>
#include <QPoint>
#include <QRgb>

#include <cstdlib>

namespace tk::test {

// Runs Qt's events, so that what the program asked of the X server went out, and waits until
// the window manager has handled it too.
inline bool bijgewerkt() {
    QCoreApplication::processEvents();
    return X11TestSessie::sessie->windowManagerCaughtUp();
}

// The colour the screen shows at a point.
inline QRgb schermpixel(XvfbSession& x, QPoint plek) {
    xcb_connection_t* c = x.connection();
    xcb_get_image_reply_t* r =
        xcb_get_image_reply(c,
                            xcb_get_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, x.root(), int16_t(plek.x()),
                                          int16_t(plek.y()), 1, 1, ~0u),
                            nullptr);
    QRgb kleur = 0;
    if (r && xcb_get_image_data_length(r) >= 3) {
        const uint8_t* d = xcb_get_image_data(r);
        kleur = qRgb(d[2], d[1], d[0]);
    }
    std::free(r);
    return kleur;
}

} // namespace tk::test
