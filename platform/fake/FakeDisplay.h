#pragma once

#include "platform/Display.h"

namespace tk {

// A screen of 1024 by 768 at 32 bits that takes every size in `modes` (all when empty), or
// none while `fails` is set. Every call of setMode is kept in `asked`.
class FakeDisplay : public Display {
public:
    DisplayMode current() override { return mode; }
    bool setMode(int width, int height, int depth) override {
        asked.append(DisplayMode{width, height, depth});
        if (fails)
            return false;
        if (!modes.isEmpty()) {
            bool bekend = false;
            for (const DisplayMode& m : modes)
                bekend = bekend || (m.width == width && m.height == height);
            if (!bekend)
                return false;
        }
        mode = DisplayMode{width, height, mode.depth};
        return true;
    }

    bool setWallpaper(const QString& file) override {
        wallpaper = file;
        return true;
    }

    DisplayMode mode{1024, 768, 32};
    QString wallpaper;
    QList<DisplayMode> modes;
    QList<DisplayMode> asked;
    bool fails = false;
};

} // namespace tk
