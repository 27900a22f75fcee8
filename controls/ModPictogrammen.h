#pragma once

#include "controls/IconListItem.h"
#include "controls/ImageList.h"

#include <QImage>
#include <QList>
#include <QString>
#include <QStringList>

namespace tk {

class Programma;

// The icon procedures of the maintenance module's pickers and of the desktop: the icons of a
// library (.icl, .dll, .exe) or of an .ico file as a numbered list, and the icon of any file
// painted into a picture. Paths are the program's ("\Afbeeldingen\Pictogrammen\standaard.icl")
// or native. A file without icons, or one that cannot be read, gives an empty list; faults are
// reported under the procedure's name.
class ModPictogrammen {
public:
    explicit ModPictogrammen(Programma& p);

    // Fills `beeldlijst` with each icon at 32 by 32 under the key "<n>pictogram " (n from 0),
    // and, with `lijstVullen`, `lijst` with an item per icon under the same key, named as
    // GetIconNames names it.
    void ReadLibrary(ImageList& beeldlijst, QList<IconListItem>& lijst, const QString& bestand,
                     bool lijstVullen);
    // The names of a library's `aantal` icons: "Pictogram 1", ...; for a file whose name ends
    // in lower-case "ico", its file name alone.
    QStringList GetIconNames(const QString& bestand, int aantal);
    // Paints the icon of a file (its own icon, a .desktop entry's icon, or the picture of a
    // folder or a document) at x, y: 32 by 32, or 16 by 16 when `klein`. `wissen` clears the
    // target first.
    void DrawIconPic(const QString& bestand, QImage& doel, bool klein, bool wissen, int x, int y);
    void DrawIconExtra(const QString& bestand, QImage& doel, bool klein, bool wissen, int x, int y);

    // The number of icons in a file, as the shell counts them (0 for none or a bad file).
    int IconCount(const QString& bestand);
    // The icon `index` of a file at `side` by `side`; null when there is none.
    QImage IconOf(const QString& bestand, int index, int side);
    // The icon the desktop shows for a file.
    QImage FileIcon(const QString& bestand, int side);

    static constexpr const char* Standaard = "\\Afbeeldingen\\Pictogrammen\\standaard.icl";
    // Larger files are not icon files or libraries a school would use.
    static constexpr qint64 MaxBestand = 256 * 1024 * 1024;

private:
    void draw(const char* procedure, const QString& bestand, QImage& doel, bool klein, bool wissen,
              int x, int y);
    Programma& p;
};

} // namespace tk
