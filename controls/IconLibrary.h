#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>
#include <QList>
#include <QSize>
#include <QString>

namespace tk {

// The icons of an icon file (.ico) or of an icon library: the icon resources of a PE file
// (32- or 64-bit: .dll, .exe, .icl) or of an NE file (16-bit: .icl, .exe, .dll). The kind is
// told by the bytes, not by the name.
//
// An icon is one group: the same picture in several sizes and depths. Icons are numbered from 0
// in the order of the file (for a library, the order of its group icon resources).
//
// parse() is a pure function of the bytes, so that a fuzzer can call it: every offset and count
// is checked against the bytes, resource trees are walked to a fixed depth, and a malformed
// file gives an error and no icons, never a crash. A group whose images are missing is kept
// (so that the numbering stays) with no images.
class IconLibrary {
public:
    struct Image {
        QSize size;       // as the directory gives it (0 meaning 256)
        int bitCount = 0; // as the directory gives it, 0 when unknown
        QByteArray data;  // the image's bytes (bitmap or PNG)
    };
    struct Icon {
        QList<Image> images;
    };
    enum class Kind { None, IconFile, PeLibrary, NeLibrary };
    struct Result {
        Kind kind = Kind::None;
        QList<Icon> icons;
        QString error; // why the bytes hold no icons; empty when they were read
    };

    static Result parse(QByteArrayView bytes);

    // The picture of an icon at `side` by `side` pixels: the image of that size with the most
    // colours, else the nearest larger (or largest) one scaled smoothly. Null when no image of
    // the icon decodes.
    static QImage render(const Icon& icon, int side);

private:
    static Result parseIco(QByteArrayView bytes);
    static Result parsePe(QByteArrayView bytes, quint32 peOffset);
    static Result parseNe(QByteArrayView bytes, quint32 neOffset);
};

} // namespace tk
