#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>

namespace tk {

// Writes icons in the forms IconLibrary reads: an icon file with one icon in several sizes, an
// icon library as a resource-only PE file (what .icl and .dll libraries are), each icon one
// group icon resource, and the 16-bit NE form of a library. Images are stored as 32-bit bitmaps
// with their mask.
class IconLibraryWriter {
public:
    static QByteArray iconFile(const QList<QImage>& sizes);
    static QByteArray peLibrary(const QList<QList<QImage>>& icons);
    // A 16-bit NE library, each icon one group of one 32-bit bitmap image.
    static QByteArray neLibrary(const QList<QImage>& icons);
};

} // namespace tk
