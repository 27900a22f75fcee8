#pragma once

#include <QImage>
#include <QtGlobal>

namespace tk {

// The icons a window offers in its _NET_WM_ICON property: a row of images, each a width, a
// height and width times height pixels as 32-bit ARGB (not premultiplied). The property comes
// from another program, so any of it may be cut short or nonsense.
class NetWmIcon {
public:
    // The image whose size is nearest to size (the larger one on a tie), scaled to size by size
    // with its proportions kept; null when the data holds no whole image. Reading stops at the
    // first image that does not fit the data.
    static QImage choose(const quint32* data, qsizetype count, int size);
};

} // namespace tk
