#include "LinuxWindows.h"

#include "NetWmIcon.h"
#include "XConnection.h"

#include <QGuiApplication>
#include <QWindow>

#include <xcb/res.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace tk {

namespace {

struct FreeDeleter {
    void operator()(void* p) const { std::free(p); }
};
template <class T> using Reply = std::unique_ptr<T, FreeDeleter>;
using PropertyReply = Reply<xcb_get_property_reply_t>;

// How much of a property is read, in 32-bit units: a title of any sensible length, and icons up
// to several 256 by 256 images.
constexpr uint32_t kTitleLongs = 64 * 1024 / 4;
constexpr uint32_t kIconLongs = 4 * 1024 * 1024 / 4;
constexpr uint32_t kAtomListLongs = 64;

xcb_get_property_cookie_t askProperty(xcb_connection_t* c, xcb_window_t w, xcb_atom_t property,
                                      xcb_atom_t type, uint32_t longs) {
    return xcb_get_property(c, 0, w, property, type, 0, longs);
}

PropertyReply readProperty(xcb_connection_t* c, xcb_get_property_cookie_t cookie) {
    xcb_generic_error_t* error = nullptr;
    PropertyReply reply(xcb_get_property_reply(c, cookie, &error));
    std::free(error);
    return reply;
}

// The 32-bit values of a property reply (atoms, windows, cardinals); empty for another format.
std::vector<uint32_t> values32(const PropertyReply& reply) {
    if (!reply || reply->format != 32)
        return {};
    const auto* v = static_cast<const uint32_t*>(xcb_get_property_value(reply.get()));
    const int n = xcb_get_property_value_length(reply.get()) / 4;
    return std::vector<uint32_t>(v, v + std::max(n, 0));
}

uint32_t firstValue(const PropertyReply& reply) {
    const std::vector<uint32_t> v = values32(reply);
    return v.empty() ? 0 : v.front();
}

// The text of a name property up to its first NUL: UTF-8 when the property says so, else
// Latin-1 (STRING, and the Latin-1 part of COMPOUND_TEXT).
QString nameText(const PropertyReply& reply, xcb_atom_t utf8) {
    if (!reply || reply->format != 8)
        return {};
    const char* v = static_cast<const char*>(xcb_get_property_value(reply.get()));
    const int length = xcb_get_property_value_length(reply.get());
    const char* nul = static_cast<const char*>(std::memchr(v, 0, size_t(std::max(length, 0))));
    const qsizetype n = nul ? nul - v : length;
    return reply->type == utf8 ? QString::fromUtf8(v, n) : QString::fromLatin1(v, n);
}

bool contains(const std::vector<uint32_t>& list, xcb_atom_t atom) {
    return std::find(list.begin(), list.end(), atom) != list.end();
}

// The facts of one window from its replies. The first window type the list names that we know
// decides; a window that names none is normal, or a dialog when it is transient (EWMH).
struct WindowReplies {
    xcb_get_window_attributes_cookie_t attributes;
    xcb_get_property_cookie_t transientFor, type, state, netName, name, pid;
    xcb_res_query_client_ids_cookie_t client;
    bool askedClient = false;
};

struct TypeKnowledge {
    std::vector<xcb_atom_t> tool;
    xcb_atom_t normal;
    xcb_atom_t dialog;
};

TypeKnowledge typeKnowledge(const xcb_ewmh_connection_t& e) {
    return TypeKnowledge{{e._NET_WM_WINDOW_TYPE_UTILITY, e._NET_WM_WINDOW_TYPE_TOOLBAR,
                          e._NET_WM_WINDOW_TYPE_MENU, e._NET_WM_WINDOW_TYPE_SPLASH,
                          e._NET_WM_WINDOW_TYPE_DOCK, e._NET_WM_WINDOW_TYPE_DESKTOP,
                          e._NET_WM_WINDOW_TYPE_DROPDOWN_MENU, e._NET_WM_WINDOW_TYPE_POPUP_MENU,
                          e._NET_WM_WINDOW_TYPE_TOOLTIP, e._NET_WM_WINDOW_TYPE_NOTIFICATION,
                          e._NET_WM_WINDOW_TYPE_COMBO, e._NET_WM_WINDOW_TYPE_DND},
                         e._NET_WM_WINDOW_TYPE_NORMAL,
                         e._NET_WM_WINDOW_TYPE_DIALOG};
}

qint64 clientPid(xcb_connection_t* c, xcb_res_query_client_ids_cookie_t cookie) {
    xcb_generic_error_t* error = nullptr;
    Reply<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(c, cookie, &error));
    std::free(error);
    if (!reply)
        return 0;
    for (xcb_res_client_id_value_iterator_t it = xcb_res_query_client_ids_ids_iterator(reply.get());
         it.rem; xcb_res_client_id_value_next(&it)) {
        if ((it.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) &&
            xcb_res_client_id_value_value_length(it.data) >= 1)
            return *xcb_res_client_id_value_value(it.data);
    }
    return 0;
}

} // namespace

LinuxWindows::LinuxWindows(QByteArray displayName)
    : m_x(std::make_unique<XConnection>(std::move(displayName))) {}

LinuxWindows::~LinuxWindows() = default;

namespace {

// The connection when an EWMH window manager runs on it: the root's _NET_SUPPORTING_WM_CHECK
// names a window that names itself.
xcb_connection_t* managedConnection(XConnection& x) {
    xcb_connection_t* c = x.connection();
    if (!c)
        return nullptr;
    xcb_ewmh_connection_t* e = x.ewmh();
    const xcb_window_t check = firstValue(
        readProperty(c, askProperty(c, x.root(), e->_NET_SUPPORTING_WM_CHECK, XCB_ATOM_WINDOW, 1)));
    if (check == XCB_NONE)
        return nullptr;
    const xcb_window_t self = firstValue(
        readProperty(c, askProperty(c, check, e->_NET_SUPPORTING_WM_CHECK, XCB_ATOM_WINDOW, 1)));
    return self == check ? c : nullptr;
}

std::vector<uint32_t> clientList(XConnection& x, xcb_connection_t* c) {
    return values32(readProperty(
        c, askProperty(c, x.root(), x.ewmh()->_NET_CLIENT_LIST, XCB_ATOM_WINDOW, 64 * 1024)));
}

} // namespace

bool LinuxWindows::available() {
    return managedConnection(*m_x) != nullptr;
}

QList<WindowInfo> LinuxWindows::topLevelWindows() {
    xcb_connection_t* c = m_x->connection();
    if (!c)
        return {};
    const xcb_ewmh_connection_t& e = *m_x->ewmh();
    const std::vector<uint32_t> windows = clientList(*m_x, c);

    std::vector<WindowReplies> asked(windows.size());
    for (size_t i = 0; i < windows.size(); ++i) {
        const xcb_window_t w = windows[i];
        WindowReplies& r = asked[i];
        r.attributes = xcb_get_window_attributes(c, w);
        r.transientFor = askProperty(c, w, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 1);
        r.type = askProperty(c, w, e._NET_WM_WINDOW_TYPE, XCB_ATOM_ATOM, kAtomListLongs);
        r.state = askProperty(c, w, e._NET_WM_STATE, XCB_ATOM_ATOM, kAtomListLongs);
        r.netName = askProperty(c, w, e._NET_WM_NAME, e.UTF8_STRING, kTitleLongs);
        r.name = askProperty(c, w, XCB_ATOM_WM_NAME, XCB_GET_PROPERTY_TYPE_ANY, kTitleLongs);
        r.pid = askProperty(c, w, e._NET_WM_PID, XCB_ATOM_CARDINAL, 1);
        if (m_x->hasClientPids()) {
            // The process behind the client that made the window, for programs that do not
            // tell their own (old X programs set no _NET_WM_PID).
            xcb_res_client_id_spec_t spec{w, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
            r.client = xcb_res_query_client_ids(c, 1, &spec);
            r.askedClient = true;
        }
    }

    const TypeKnowledge types = typeKnowledge(e);
    QList<WindowInfo> result;
    result.reserve(qsizetype(windows.size()));
    for (size_t i = 0; i < windows.size(); ++i) {
        WindowReplies& r = asked[i];
        WindowInfo info;
        info.handle = windows[i];

        xcb_generic_error_t* error = nullptr;
        Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(c, r.attributes, &error));
        const bool gone = error != nullptr;
        std::free(error);
        const PropertyReply transientFor = readProperty(c, r.transientFor);
        const std::vector<uint32_t> type = values32(readProperty(c, r.type));
        const std::vector<uint32_t> state = values32(readProperty(c, r.state));
        const QString netName = nameText(readProperty(c, r.netName), e.UTF8_STRING);
        const PropertyReply name = readProperty(c, r.name);
        const uint32_t pid = firstValue(readProperty(c, r.pid));
        const qint64 processOfClient = r.askedClient ? clientPid(c, r.client) : 0;
        if (gone || !attributes)
            continue; // destroyed since the manager listed it

        const bool hidden = contains(state, e._NET_WM_STATE_HIDDEN);
        info.visible = attributes->map_state != XCB_MAP_STATE_UNMAPPED || hidden;
        // Transient for the root (a group's dialog) or for itself is no owner.
        const xcb_window_t owner = firstValue(transientFor);
        info.owner = owner == m_x->root() || owner == windows[i] ? 0 : owner;
        xcb_atom_t kind = XCB_NONE;
        for (uint32_t t : type)
            if (t == types.normal || t == types.dialog || contains(types.tool, t)) {
                kind = t;
                break;
            }
        info.toolWindow =
            contains(types.tool, kind) || contains(state, e._NET_WM_STATE_SKIP_TASKBAR);
        info.appWindow = kind == types.normal;
        info.title = netName.isEmpty() ? nameText(name, e.UTF8_STRING) : netName;
        info.pid = pid != 0 ? qint64(pid) : processOfClient;
        result.append(info);
    }
    return result;
}

quint64 LinuxWindows::activeWindow() {
    xcb_connection_t* c = m_x->connection();
    if (!c)
        return 0;
    return firstValue(readProperty(
        c, askProperty(c, m_x->root(), m_x->ewmh()->_NET_ACTIVE_WINDOW, XCB_ATOM_WINDOW, 1)));
}

bool LinuxWindows::activate(quint64 window) {
    xcb_connection_t* c = m_x->connection();
    if (!c || window == 0 || window > 0xffffffffu || !contains(clientList(*m_x, c), window))
        return false;
    // As a pager asks (source 2): the manager then raises the window, restores it when it is
    // minimised and gives it the focus, whichever program is in front now.
    xcb_ewmh_request_change_active_window(m_x->ewmh(), m_x->screenNumber(), xcb_window_t(window),
                                          XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER, XCB_CURRENT_TIME,
                                          XCB_NONE);
    return m_x->flush();
}

void LinuxWindows::close(quint64 window) {
    xcb_connection_t* c = m_x->connection();
    if (!c || window == 0 || window > 0xffffffffu)
        return;
    xcb_ewmh_request_close_window(m_x->ewmh(), m_x->screenNumber(), xcb_window_t(window),
                                  XCB_CURRENT_TIME, XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER);
    m_x->flush();
}

bool LinuxWindows::maximize(quint64 window) {
    xcb_connection_t* c = m_x->connection();
    if (!c || window == 0 || window > 0xffffffffu || !contains(clientList(*m_x, c), window))
        return false;
    const xcb_ewmh_connection_t& e = *m_x->ewmh();
    xcb_ewmh_request_change_wm_state(m_x->ewmh(), m_x->screenNumber(), xcb_window_t(window),
                                     XCB_EWMH_WM_STATE_ADD, e._NET_WM_STATE_MAXIMIZED_VERT,
                                     e._NET_WM_STATE_MAXIMIZED_HORZ,
                                     XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER);
    return m_x->flush();
}

QImage LinuxWindows::icon(quint64 window, int size) {
    xcb_connection_t* c = m_x->connection();
    if (!c || window == 0 || window > 0xffffffffu || size <= 0)
        return {};
    const PropertyReply reply =
        readProperty(c, askProperty(c, xcb_window_t(window), m_x->ewmh()->_NET_WM_ICON,
                                    XCB_ATOM_CARDINAL, kIconLongs));
    if (!reply || reply->format != 32)
        return {};
    return NetWmIcon::choose(static_cast<const quint32*>(xcb_get_property_value(reply.get())),
                             xcb_get_property_value_length(reply.get()) / 4, size);
}

void LinuxWindows::reserveWorkArea(quint64 shellWindow, const QRect& workArea) {
    xcb_connection_t* c = managedConnection(*m_x);
    if (!c || shellWindow == 0 || shellWindow > 0xffffffffu)
        return;
    xcb_generic_error_t* error = nullptr;
    Reply<xcb_get_geometry_reply_t> root(
        xcb_get_geometry_reply(c, xcb_get_geometry(c, m_x->root()), &error));
    std::free(error);
    if (!root)
        return;
    const int width = root->width;
    const int height = root->height;
    // What lies outside the work area on each side, never less than nothing.
    const uint32_t left = uint32_t(std::clamp(workArea.left(), 0, width));
    const uint32_t top = uint32_t(std::clamp(workArea.top(), 0, height));
    const uint32_t right = uint32_t(std::clamp(width - 1 - workArea.right(), 0, width));
    const uint32_t bottom = uint32_t(std::clamp(height - 1 - workArea.bottom(), 0, height));
    const uint32_t lastX = uint32_t(width - 1);
    const uint32_t lastY = uint32_t(height - 1);
    // left, right, top, bottom, then the extent of each along its edge: the whole edge.
    const uint32_t partial[12] = {left, right, top, bottom, 0, lastY, 0, lastY, 0, lastX, 0, lastX};
    const xcb_ewmh_connection_t& e = *m_x->ewmh();
    const xcb_window_t w = xcb_window_t(shellWindow);
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, e._NET_WM_STRUT_PARTIAL, XCB_ATOM_CARDINAL, 32,
                        12, partial);
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, e._NET_WM_STRUT, XCB_ATOM_CARDINAL, 32, 4,
                        partial);
    m_x->sync();
}

void LinuxWindows::setOnTop(quint64 shellWindow, bool onTop) {
    xcb_connection_t* c = managedConnection(*m_x);
    if (!c || shellWindow == 0 || shellWindow > 0xffffffffu)
        return;
    const xcb_ewmh_connection_t& e = *m_x->ewmh();
    const xcb_window_t w = xcb_window_t(shellWindow);
    xcb_generic_error_t* error = nullptr;
    Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(c, xcb_get_window_attributes(c, w), &error));
    std::free(error);
    if (!attributes)
        return;
    if (attributes->map_state != XCB_MAP_STATE_UNMAPPED) {
        // A shown window belongs to the manager: ask it.
        xcb_ewmh_request_change_wm_state(m_x->ewmh(), m_x->screenNumber(), w,
                                         onTop ? XCB_EWMH_WM_STATE_ADD : XCB_EWMH_WM_STATE_REMOVE,
                                         e._NET_WM_STATE_ABOVE, XCB_NONE,
                                         XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER);
    } else {
        // A window not yet shown carries its wishes in the property the manager reads at mapping.
        std::vector<uint32_t> state = values32(
            readProperty(c, askProperty(c, w, e._NET_WM_STATE, XCB_ATOM_ATOM, kAtomListLongs)));
        std::erase(state, e._NET_WM_STATE_ABOVE);
        if (onTop)
            state.push_back(e._NET_WM_STATE_ABOVE);
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, e._NET_WM_STATE, XCB_ATOM_ATOM, 32,
                            uint32_t(state.size()), state.data());
    }
    m_x->sync();
}

void LinuxWindows::setKind(quint64 shellWindow, ShellWindowKind kind) {
    xcb_connection_t* c = managedConnection(*m_x);
    if (!c || shellWindow == 0 || shellWindow > 0xffffffffu)
        return;
    const xcb_ewmh_connection_t& e = *m_x->ewmh();
    xcb_atom_t type = e._NET_WM_WINDOW_TYPE_NORMAL;
    if (kind == ShellWindowKind::Dock)
        type = e._NET_WM_WINDOW_TYPE_DOCK;
    else if (kind == ShellWindowKind::Desktop)
        type = e._NET_WM_WINDOW_TYPE_DESKTOP;
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, xcb_window_t(shellWindow), e._NET_WM_WINDOW_TYPE,
                        XCB_ATOM_ATOM, 32, 1, &type);
    m_x->sync();
}

void LinuxWindows::startMove(quint64 shellWindow, QPoint globalPos) {
    if (shellWindow == 0 || shellWindow > 0xffffffffu)
        return;
    // The mouse button that starts a drag is held in a grab of the connection that got the
    // press: for a window of this program that is Qt's, and only Qt can let it go before the
    // manager takes the pointer over.
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) &&
        QGuiApplication::platformName() == QLatin1String("xcb")) {
        const QWindowList windows = QGuiApplication::allWindows();
        for (QWindow* window : windows)
            if (window->handle() && window->winId() == shellWindow && window->startSystemMove())
                return;
    }
    xcb_connection_t* c = managedConnection(*m_x);
    if (!c)
        return;
    xcb_ungrab_pointer(c, XCB_CURRENT_TIME);
    xcb_ewmh_request_wm_moveresize(
        m_x->ewmh(), m_x->screenNumber(), xcb_window_t(shellWindow),
        uint32_t(std::max(globalPos.x(), 0)), uint32_t(std::max(globalPos.y(), 0)),
        XCB_EWMH_WM_MOVERESIZE_MOVE, XCB_BUTTON_INDEX_1, XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER);
    m_x->flush();
}

} // namespace tk
