#pragma once

#include "platform/Windows.h"

#include <QHash>
#include <QStringList>

namespace tk {

// The window system of a test: the windows are what the test puts in `windows`; every change
// the program asks for is recorded in `log` ("activate 7", "close 7", "maximize 7", "workarea 0,0
// 1024x720 on 3", "ontop 3 1", "kind 3 dock", "move 3 10,20").
class FakeWindows : public Windows {
public:
    bool available() override { return isAvailable; }
    QList<WindowInfo> topLevelWindows() override { return windows; }
    quint64 activeWindow() override { return active; }
    bool activate(quint64 window) override {
        log.append(QStringLiteral("activate %1").arg(window));
        for (const WindowInfo& w : windows)
            if (w.handle == window) {
                active = window;
                return true;
            }
        return false;
    }
    void close(quint64 window) override {
        log.append(QStringLiteral("close %1").arg(window));
        windows.removeIf([window](const WindowInfo& w) { return w.handle == window; });
    }
    bool maximize(quint64 window) override {
        log.append(QStringLiteral("maximize %1").arg(window));
        for (const WindowInfo& w : windows)
            if (w.handle == window)
                return true;
        return false;
    }
    QImage icon(quint64 window, int) override { return icons.value(window); }
    void reserveWorkArea(quint64 shellWindow, const QRect& a) override {
        log.append(QStringLiteral("workarea %1,%2 %3x%4 on %5")
                       .arg(a.left())
                       .arg(a.top())
                       .arg(a.width())
                       .arg(a.height())
                       .arg(shellWindow));
    }
    void setOnTop(quint64 shellWindow, bool onTop) override {
        log.append(QStringLiteral("ontop %1 %2").arg(shellWindow).arg(onTop ? 1 : 0));
    }
    void setKind(quint64 shellWindow, ShellWindowKind kind) override {
        static const char* const namen[] = {"dock", "desktop", "normal"};
        log.append(QStringLiteral("kind %1 %2")
                       .arg(shellWindow)
                       .arg(QLatin1String(namen[static_cast<int>(kind)])));
    }
    void startMove(quint64 shellWindow, QPoint p) override {
        log.append(QStringLiteral("move %1 %2,%3").arg(shellWindow).arg(p.x()).arg(p.y()));
    }

    bool isAvailable = true;
    QList<WindowInfo> windows;
    quint64 active = 0;
    QHash<quint64, QImage> icons;
    QStringList log;
};

} // namespace tk
