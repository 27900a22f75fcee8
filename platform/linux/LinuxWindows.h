#pragma once

#include "platform/Windows.h"

namespace tk {

// The windows of other programs over EWMH. (Being written: until the X11 side lands it answers
// as a machine without a window system.)
class LinuxWindows : public Windows {
public:
    bool available() override { return false; }
    QList<WindowInfo> topLevelWindows() override { return {}; }
    quint64 activeWindow() override { return 0; }
    bool activate(quint64) override { return false; }
    void close(quint64) override {}
    QImage icon(quint64, int) override { return {}; }
    void reserveWorkArea(quint64, const QRect&) override {}
    void setOnTop(quint64, bool) override {}
    void setKind(quint64, ShellWindowKind) override {}
    void startMove(quint64, QPoint) override {}
};

} // namespace tk
