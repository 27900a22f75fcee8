#pragma once

#include "platform/Display.h"

#include <QByteArray>

#include <memory>

namespace tk {

class XConnection;

// Display modes over XRandR 1.2: the mode of the output that shows the screen (the primary
// one, else the first that is lit) is changed to another mode the output offers, and the screen
// is made the size of what the lit outputs show. The colour depth of a running X server cannot
// change: the depth is reported as the root window's bits per pixel and a demanded depth is
// taken as met.
class LinuxDisplay : public Display {
public:
    // displayName empty: the display of $DISPLAY, asked at the first use.
    explicit LinuxDisplay(QByteArray displayName = {});
    ~LinuxDisplay() override;

    // Without a display: the 1024 by 768 at 32 bits the screens are laid out for.
    DisplayMode current() override;
    bool setMode(int width, int height, int depth) override;
    // The root window's background pixmap (24-bit screens, the usual kind).
    bool setWallpaper(const QString& file) override;

private:
    std::unique_ptr<XConnection> m_x;
};

} // namespace tk
