#pragma once

#include "platform/Windows.h"

#include <QByteArray>

#include <memory>

namespace tk {

class XConnection;

// The windows of other programs over EWMH, on an xcb connection of our own. Without a display,
// or with a display that has no EWMH window manager, it answers as a machine without a window
// system; a display that goes away later is the same.
class LinuxWindows : public Windows {
public:
    // displayName empty: the display of $DISPLAY, asked at the first use.
    explicit LinuxWindows(QByteArray displayName = {});
    ~LinuxWindows() override;

    bool available() override;
    // All properties of all windows are asked for at once and then read, so that a call costs
    // two round trips to the server however many windows there are.
    QList<WindowInfo> topLevelWindows() override;
    quint64 activeWindow() override;
    bool activate(quint64 window) override;
    void close(quint64 window) override;
    bool maximize(quint64 window) override;
    QImage icon(quint64 window, int size) override;
    void reserveWorkArea(quint64 shellWindow, const QRect& workArea) override;
    void setOnTop(quint64 shellWindow, bool onTop) override;
    void setKind(quint64 shellWindow, ShellWindowKind kind) override;
    void startMove(quint64 shellWindow, QPoint globalPos) override;

private:
    std::unique_ptr<XConnection> m_x;
};

} // namespace tk
