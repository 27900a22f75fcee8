#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

namespace tk {

// The icon of a freedesktop ".desktop" entry: its [Desktop Entry] Icon value, either a path or a
// name looked up in the hicolor icon theme and the pixmaps folder below each data folder.
class DesktopEntryIcon {
public:
    // The Icon value of the entry's text; empty when it has none.
    static QString iconValue(const QByteArray& entryText);
    // The file of an icon name, the size nearest above `side` first; empty when none is found.
    static QString findIcon(const QString& value, int side,
                            const QStringList& dataFolders = defaultDataFolders());
    // The entry's icon at `side` by `side`; null when the entry or its icon cannot be read.
    static QImage load(const QString& desktopFile, int side,
                       const QStringList& dataFolders = defaultDataFolders());
    static QStringList defaultDataFolders();
};

} // namespace tk
