#pragma once

#include <QList>
#include <QString>

namespace tk {

struct DisplayMode {
    int width = 0;
    int height = 0;
    int depth = 0; // bits per pixel (X's usual depth 24 is kept in 32)
    bool operator==(const DisplayMode&) const = default;
};

// The screen's display mode (ChangeDisplaySettings; XRandR on Linux, where the colour depth of
// a running X server is fixed and a demanded depth is taken as met by the present one).
class Display {
public:
    virtual ~Display() = default;
    virtual DisplayMode current() = 0;
    // Sets width by height; false when the screen cannot show that size.
    virtual bool setMode(int width, int height, int depth) = 0;
    // The picture of a file stretched over the whole screen behind every window, for the session
    // that runs now; an empty name clears it. False when the file is no picture or there is no
    // screen.
    virtual bool setWallpaper(const QString& file) = 0;
};

} // namespace tk
