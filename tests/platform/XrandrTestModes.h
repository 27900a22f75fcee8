#pragma once

#include "XvfbSession.h"

#include <QByteArray>
#include <QSize>

#include <xcb/randr.h>

#include <cstdlib>

namespace tk::test {

// Adds a mode of the given size to the first output of the test's X server, through the
// session's own connection, which stays open for the test: Xvfb offers one mode of its own and
// forgets the modes whose adding client has left.
inline bool addMode(XvfbSession& x, uint16_t width, uint16_t height) {
    xcb_connection_t* c = x.connection();
    xcb_randr_get_screen_resources_reply_t* resources = xcb_randr_get_screen_resources_reply(
        c, xcb_randr_get_screen_resources(c, x.root()), nullptr);
    if (!resources || xcb_randr_get_screen_resources_outputs_length(resources) < 1) {
        std::free(resources);
        return false;
    }
    const xcb_randr_output_t output = xcb_randr_get_screen_resources_outputs(resources)[0];
    // A mode of that size the output already has is not made twice.
    bool bekend = false;
    const xcb_randr_mode_info_t* modes = xcb_randr_get_screen_resources_modes(resources);
    for (int i = 0; i < xcb_randr_get_screen_resources_modes_length(resources); ++i)
        bekend = bekend || (modes[i].width == width && modes[i].height == height);
    std::free(resources);
    if (bekend)
        return true;

    const QByteArray name = QByteArray::number(width) + 'x' + QByteArray::number(height) + "_test";
    xcb_randr_mode_info_t info{};
    info.width = width;
    info.height = height;
    info.dot_clock = uint32_t(width + 100) * (height + 30) * 60;
    info.hsync_start = width + 20;
    info.hsync_end = width + 60;
    info.htotal = width + 100;
    info.vsync_start = height + 5;
    info.vsync_end = height + 10;
    info.vtotal = height + 30;
    info.name_len = uint16_t(name.size());
    xcb_randr_create_mode_reply_t* mode = xcb_randr_create_mode_reply(
        c, xcb_randr_create_mode(c, x.root(), info, uint32_t(name.size()), name.constData()),
        nullptr);
    if (!mode)
        return false;
    xcb_generic_error_t* error =
        xcb_request_check(c, xcb_randr_add_output_mode_checked(c, output, mode->mode));
    std::free(mode);
    std::free(error);
    return error == nullptr;
}

// The size of the test server's screen as the server has it now.
inline QSize rootSize(XvfbSession& x) {
    xcb_get_geometry_reply_t* g =
        xcb_get_geometry_reply(x.connection(), xcb_get_geometry(x.connection(), x.root()), nullptr);
    const QSize size = g ? QSize(g->width, g->height) : QSize();
    std::free(g);
    return size;
}

} // namespace tk::test
