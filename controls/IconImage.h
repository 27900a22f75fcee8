#pragma once

#include <QByteArrayView>
#include <QImage>
#include <QString>

namespace tk {

// One icon image as an icon file or an icon resource stores it: a PNG stream, or a device-
// independent bitmap (header, palette, colour rows bottom-up, then the 1-bit AND mask) whose
// height counts both halves. decode() is a pure function of the bytes, so that a fuzzer can
// call it: a malformed image gives a null QImage and the reason, never a read past the end.
class IconImage {
public:
    static constexpr int MaxSide = 1024;

    static QImage decode(QByteArrayView bytes, QString* error = nullptr);
    // The bytes of a 32-bit bitmap icon image with its mask, as an icon resource holds it.
    static QByteArray encodeBitmap(const QImage& image);
};

} // namespace tk
