#pragma once

#include "theme/RgbColour.h"
#include "theme/ThemeKeys.h"

#include <QString>

namespace tk {

class Programma;

// modMain's theme procedures and the theme state every screen reads: huidigThema (the theme id,
// the folder's name below \Afbeeldingen\Skins), themaMap (that folder in the program's form,
// "\Afbeeldingen\Skins\1\", with its trailing backslash) and themaNaam ([Algemeen] Naam).
// Missing theme folders are never reported: the choices fall back in silence.
class ModThema {
public:
    explicit ModThema(Programma& p);

    // modMain.LaadThema: the theme of \Data\Instellingen.ini [Instellingen] Thema when its
    // Instellingen.ini exists, else "1", else "Standaard"; then its Naam.
    void LaadThema();

    // The choice of frmBureaublad.LaadThemaBureaublad for a user who logged on, from the class's
    // or teacher's theme field: an empty field is "Standaard"; a theme whose folder does not
    // exist is "1" (the reverse order of LaadThema). Sets huidigThema and themaMap.
    void chooseUserTheme(const QString& themaVeld);

    // The keys of the current theme as typed values.
    ThemeKeys keys() const { return ThemeKeys(p, themaMap); }

    // frmWachten.LaadThema's bar colours ("Laadbalk wachten streep" and "... rand"): a value that
    // does not split into exactly three parts gives RGB(112,148,241) for theme 8 and
    // RGB(10,112,0) for every other theme.
    RgbColour waitBarColour(const QString& key) const;

    // "\Afbeeldingen\Skins\<id>\"
    static QString folderOf(const QString& id);

    QString huidigThema;
    QString themaMap;
    QString themaNaam;

    static constexpr const char* Skins = "\\Afbeeldingen\\Skins\\";

private:
    // An id that names a folder directly below Skins (no separators, no "." or "..").
    static bool isFolderName(const QString& id);
    Programma& p;
};

} // namespace tk
