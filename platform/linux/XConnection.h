#pragma once

#include <QByteArray>

#include <xcb/xcb.h>
#include <xcb/xcb_ewmh.h>

namespace tk {

// One xcb connection of our own to the X server, opened on first use (next to the one Qt keeps
// for the program's own windows). When the server goes away the connection is dropped and
// opened again at the next use, so that a dead display never reaches a caller as a crash: every
// user asks for `connection()` and treats nullptr as "no window system".
class XConnection {
public:
    // displayName empty: the display of $DISPLAY.
    explicit XConnection(QByteArray displayName = {});
    ~XConnection();
    XConnection(const XConnection&) = delete;
    XConnection& operator=(const XConnection&) = delete;

    // The live connection with its atoms, or nullptr when no X server answers. Errors and events
    // that arrived unasked since the last call are thrown away here.
    xcb_connection_t* connection();
    // Valid after connection() returned a connection.
    xcb_ewmh_connection_t* ewmh() { return &m_ewmh; }
    int screenNumber() const { return m_screenNumber; }
    xcb_screen_t* screen() const { return m_screen; }
    xcb_window_t root() const { return m_screen ? m_screen->root : XCB_NONE; }
    // Whether the server tells which process a client is (X-Resource 1.2).
    bool hasClientPids() const { return m_hasClientPids; }
    // Whether RandR 1.2 (outputs, CRTCs, modes) is there.
    bool hasRandr12() const { return m_hasRandr12; }
    // Bits per pixel of the root window's depth (32 for the usual depth 24).
    int rootBitsPerPixel() const { return m_rootBitsPerPixel; }

    // Sends what was queued; false when the connection broke on the way.
    bool flush();
    // Sends what was queued and waits until the server has done it, so that what another
    // connection does next (Qt showing the window, say) comes after it.
    bool sync();

private:
    bool open();
    void close();

    QByteArray m_displayName;
    xcb_connection_t* m_connection = nullptr;
    xcb_ewmh_connection_t m_ewmh{};
    bool m_ewmhReady = false;
    int m_screenNumber = 0;
    xcb_screen_t* m_screen = nullptr;
    bool m_hasClientPids = false;
    bool m_hasRandr12 = false;
    int m_rootBitsPerPixel = 0;
};

} // namespace tk
