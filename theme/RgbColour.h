#pragma once

#include <QtGlobal>

namespace tk {

// A theme colour: red, green and blue from 0 to 255. packed() is the single number the program
// stores and compares (red in the low byte, as RGB(r, g, b) builds it).
struct RgbColour {
    int r = 0;
    int g = 0;
    int b = 0;

    quint32 packed() const { return quint32(r) | quint32(g) << 8 | quint32(b) << 16; }
    static RgbColour fromPacked(quint32 v) {
        return {int(v & 0xff), int(v >> 8 & 0xff), int(v >> 16 & 0xff)};
    }
    friend bool operator==(const RgbColour&, const RgbColour&) = default;
};

} // namespace tk
