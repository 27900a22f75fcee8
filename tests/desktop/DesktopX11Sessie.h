#pragma once

#include "tests/platform/X11TestSessie.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QPoint>
#include <QRgb>
#include <QThread>

#include <cstdlib>

namespace tk::test {

// Runs Qt's events until the condition holds; the server and the manager take their time. The
// deadline only ends a wait that would otherwise hang.
template <class F> bool totDat(F voorwaarde, int ms = 10000) {
    QDeadlineTimer deadline(ms);
    while (!voorwaarde()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
    return true;
}

// Runs Qt's events for a moment, for what has no state to wait on.
inline void even(int ms = 200) {
    totDat([] { return false; }, ms);
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
