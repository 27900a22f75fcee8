#pragma once

#include "tests/platform/XvfbSession.h"

#include <QByteArray>

#include <xcb/xcb.h>

#include <vector>

namespace tk::test {

// Gives a window a title in both the modern and the old property, as programs do.
inline void zetTitel(XvfbSession& x, xcb_window_t w, const QByteArray& titel) {
    xcb_connection_t* c = x.connection();
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, x.atom("_NET_WM_NAME"), x.atom("UTF8_STRING"),
                        8, uint32_t(titel.size()), titel.constData());
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                        uint32_t(titel.size()), titel.constData());
}

// `aantal` windows as programs make them: a title in both properties, a type, and every fifth
// a dialog owned by the first (no task). Every `pidElke`-th window names its process, the
// others leave it out as some programs do.
inline std::vector<xcb_window_t> maakProgrammaVensters(XvfbSession& x, int aantal,
                                                       int pidElke = 1) {
    xcb_connection_t* c = x.connection();
    const xcb_screen_t* s = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
    std::vector<xcb_window_t> gemaakt;
    for (int i = 0; i < aantal; ++i) {
        const xcb_window_t w = xcb_generate_id(c);
        xcb_create_window(c, XCB_COPY_FROM_PARENT, w, s->root, int16_t(10 * i), int16_t(10 * i),
                          300, 200, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, s->root_visual, 0, nullptr);
        zetTitel(x, w, "Document " + QByteArray::number(i) + " - Tekstverwerker");
        const uint32_t soort =
            x.atom(i % 5 == 4 ? "_NET_WM_WINDOW_TYPE_DIALOG" : "_NET_WM_WINDOW_TYPE_NORMAL");
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, x.atom("_NET_WM_WINDOW_TYPE"),
                            XCB_ATOM_ATOM, 32, 1, &soort);
        if (i % 5 == 4)
            xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, XCB_ATOM_WM_TRANSIENT_FOR,
                                XCB_ATOM_WINDOW, 32, 1, &gemaakt.front());
        if (i % pidElke == 0) {
            const uint32_t pid = 1000 + uint32_t(i);
            xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, x.atom("_NET_WM_PID"),
                                XCB_ATOM_CARDINAL, 32, 1, &pid);
        }
        xcb_map_window(c, w);
        gemaakt.push_back(w);
    }
    xcb_flush(c);
    return gemaakt;
}

} // namespace tk::test
