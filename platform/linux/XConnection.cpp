#include "XConnection.h"

#include <xcb/randr.h>
#include <xcb/res.h>

#include <cstdlib>
#include <memory>

namespace tk {

namespace {

struct FreeDeleter {
    void operator()(void* p) const { std::free(p); }
};
template <class T> using Reply = std::unique_ptr<T, FreeDeleter>;

} // namespace

XConnection::XConnection(QByteArray displayName) : m_displayName(std::move(displayName)) {}

XConnection::~XConnection() {
    close();
}

xcb_connection_t* XConnection::connection() {
    if (m_connection && xcb_connection_has_error(m_connection))
        close();
    if (!m_connection && !open())
        return nullptr;
    while (xcb_generic_event_t* e = xcb_poll_for_event(m_connection))
        std::free(e);
    if (xcb_connection_has_error(m_connection)) {
        close();
        return nullptr;
    }
    return m_connection;
}

bool XConnection::flush() {
    if (!m_connection)
        return false;
    return xcb_flush(m_connection) > 0 && !xcb_connection_has_error(m_connection);
}

bool XConnection::sync() {
    if (!m_connection)
        return false;
    Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    return reply != nullptr && !xcb_connection_has_error(m_connection);
}

bool XConnection::open() {
    // Without a display name and without $DISPLAY, xcb_connect fails at once.
    int screenNumber = 0;
    xcb_connection_t* c =
        xcb_connect(m_displayName.isEmpty() ? nullptr : m_displayName.constData(), &screenNumber);
    if (xcb_connection_has_error(c)) {
        xcb_disconnect(c);
        return false;
    }
    const xcb_setup_t* setup = xcb_get_setup(c);
    xcb_screen_iterator_t it = xcb_setup_roots_iterator(setup);
    for (int i = 0; i < screenNumber && it.rem; ++i)
        xcb_screen_next(&it);
    if (!it.rem) {
        xcb_disconnect(c);
        return false;
    }
    m_connection = c;
    m_screenNumber = screenNumber;
    m_screen = it.data;

    m_rootBitsPerPixel = m_screen->root_depth;
    for (xcb_format_iterator_t f = xcb_setup_pixmap_formats_iterator(setup); f.rem;
         xcb_format_next(&f))
        if (f.data->depth == m_screen->root_depth)
            m_rootBitsPerPixel = f.data->bits_per_pixel;

    // The atoms, and the versions of the two extensions, in one round trip.
    xcb_intern_atom_cookie_t* atoms = xcb_ewmh_init_atoms(c, &m_ewmh);
    const bool res = xcb_get_extension_data(c, &xcb_res_id)->present;
    const bool randr = xcb_get_extension_data(c, &xcb_randr_id)->present;
    xcb_res_query_version_cookie_t resVersion{};
    xcb_randr_query_version_cookie_t randrVersion{};
    if (res)
        resVersion = xcb_res_query_version(c, 1, 2);
    if (randr)
        randrVersion = xcb_randr_query_version(c, 1, 2);
    m_ewmhReady = xcb_ewmh_init_atoms_replies(&m_ewmh, atoms, nullptr);
    if (res) {
        Reply<xcb_res_query_version_reply_t> v(xcb_res_query_version_reply(c, resVersion, nullptr));
        m_hasClientPids =
            v && (v->server_major > 1 || (v->server_major == 1 && v->server_minor >= 2));
    }
    if (randr) {
        Reply<xcb_randr_query_version_reply_t> v(
            xcb_randr_query_version_reply(c, randrVersion, nullptr));
        m_hasRandr12 =
            v && (v->major_version > 1 || (v->major_version == 1 && v->minor_version >= 2));
    }
    if (!m_ewmhReady || xcb_connection_has_error(c)) {
        close();
        return false;
    }
    return true;
}

void XConnection::close() {
    if (m_ewmhReady)
        xcb_ewmh_connection_wipe(&m_ewmh);
    m_ewmh = {};
    m_ewmhReady = false;
    if (m_connection)
        xcb_disconnect(m_connection);
    m_connection = nullptr;
    m_screen = nullptr;
    m_hasClientPids = false;
    m_hasRandr12 = false;
}

} // namespace tk
