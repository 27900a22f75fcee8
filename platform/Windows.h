#pragma once

#include <QImage>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QtGlobal>

namespace tk {

// A top-level window of the window manager's list, with the facts the task list tests.
struct WindowInfo {
    quint64 handle = 0;
    bool visible = true;     // mapped or minimised: both are tasks
    quint64 parent = 0;      // a top-level window of the manager's list has none
    quint64 owner = 0;       // the window it is transient for, 0 when none
    bool toolWindow = false; // a utility, toolbar, menu, splash, dock or desktop window, or one
                             // that asks to be left off task bars
    bool appWindow = false;  // an owned window that declares itself a normal window
    QString title;           // the window's name, never longer than the platform gives
    qint64 pid = 0;          // the process that owns the window, 0 when unknown
};

// How the shell's own windows present themselves to the window manager.
enum class ShellWindowKind { Dock, Desktop, Normal };

// The windows of other programs and the shell's standing among them (EWMH on Linux): the task
// list, bringing a window forward, its icon, the strip the taskbar keeps free, staying on top.
// A handle is the window's id as the platform knows it (an X window id on Linux).
class Windows {
public:
    virtual ~Windows() = default;
    // False when there is no window system to ask (no display, or no window manager): then the
    // lists are empty and the changes do nothing.
    virtual bool available() = 0;
    // The managed top-level windows in the manager's order (oldest first).
    virtual QList<WindowInfo> topLevelWindows() = 0;
    // The window that has the input focus as the manager sees it, 0 when none.
    virtual quint64 activeWindow() = 0;
    // Brings the window forward, restoring it when minimised; false when it is gone. A window
    // that never takes the keyboard (a clock, say) comes forward but does not become active.
    virtual bool activate(quint64 window) = 0;
    // Asks the window to close, as its close button would.
    virtual void close(quint64 window) = 0;
    // Asks the manager to show another program's window maximised (both directions); false when
    // the window is not among the managed ones.
    virtual bool maximize(quint64 window) = 0;
    // The window's icon nearest to size by size pixels, scaled to exactly that (ARGB32), null when
    // it has none.
    virtual QImage icon(quint64 window, int size) = 0;
    // Keeps the area outside workArea free of maximised windows, reserved on the given window of
    // the shell (SetSysWorkArea).
    virtual void reserveWorkArea(quint64 shellWindow, const QRect& workArea) = 0;
    // Keeps one of the shell's windows above all others, or lets it fall back (FormOnTop). Works
    // on a shown window and on one not yet shown.
    virtual void setOnTop(quint64 shellWindow, bool onTop) = 0;
    // Marks one of the shell's windows before it is shown.
    virtual void setKind(quint64 shellWindow, ShellWindowKind kind) = 0;
    // Lets the manager move the window with the mouse held down at globalPos (a drag by a
    // picture of a borderless window).
    virtual void startMove(quint64 shellWindow, QPoint globalPos) = 0;
};

} // namespace tk
