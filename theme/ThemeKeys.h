#pragma once

#include "theme/RgbColour.h"
#include "theme/ThemeSource.h"

#include <QPoint>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

namespace tk {

class Programma;

// The keys of a theme's Instellingen.ini read as typed values, the way every screen reads them.
// A value is read as the settings helper reads it (empty when absent, cut at 4999 characters).
//
// Fault rules: a colour or position that is missing, has too few parts or a part that is not a
// number throws a Fout naming the key, for the guard of the screen that reads it; only the few
// keys with a documented default (colourOr) never fail on their form. Pictures are native paths
// below the theme folder, matched without regard to case.
class ThemeKeys {
public:
    // `themaMap` in the program's form: "\Afbeeldingen\Skins\1\"; the theme on disk.
    ThemeKeys(Programma& p, QString themaMap);
    // The same theme from another source.
    ThemeKeys(std::shared_ptr<const ThemeSource> source, QString themaMap);

    const QString& themaMap() const { return m_themaMap; }
    // "\Afbeeldingen\Skins\1\Instellingen.ini"
    const QString& settingsFile() const;

    QString text(const QString& section, const QString& key) const;
    // "R,G,B": parts beyond the third are ignored; a part above 255 counts as 255.
    RgbColour colour(const QString& section, const QString& key) const;
    // The same, but a value that does not split into exactly three parts gives `fallback`.
    RgbColour colourOr(const QString& section, const QString& key, RgbColour fallback) const;
    // "x,y": Left and Top in the pixels of the 1024 by 685 canvas. A part beyond maxPosition
    // either way is an overflow.
    QPoint position(const QString& section, const QString& key) const;
    static constexpr qint64 maxPosition = 32767;
    // Yes only when the value, upper-cased, is "JA"; "Yes", "1", "waar" are all no.
    bool yes(const QString& section, const QString& key) const;
    // No only when the value, upper-cased, is "NEE"; absent counts as yes.
    bool notNo(const QString& section, const QString& key) const;

    // The native path of a file of the theme folder ("Knoppen\1a.jpg").
    QString file(const QString& relative) const;
    bool fileExists(const QString& relative) const;
    // The native path of a picture key, whether the file exists or not.
    QString picturePath(const QString& section, const QString& key) const;
    // The same, for a loader that needs it: a picture that does not exist is a Fout.
    QString picture(const QString& section, const QString& key) const;
    // The picture when the value is not blank and the file exists; empty otherwise.
    QString pictureIfExists(const QString& section, const QString& key) const;

    // --- the rules of particular keys
    // [Kleuren] "Bureaublad Icoon Schaduw": RGB(255,0,255) unless three parts.
    RgbColour iconShadowColour() const;
    // A bar's `<word> tekst` and `<word> hover` pair (LaadKleuren).
    std::pair<RgbColour, RgbColour> colourPair(const QString& section, const QString& word) const;
    // [Achtergronden] Wallpaper: only a value of four or more characters that ends in .JPG
    // (any case) and names an existing file; empty otherwise.
    QString wallpaper() const;
    // [Onderhoudsmodule]: the picture of menu item 0..6; item 5 falls back on item 2 and item 6
    // on item 3; empty when there is none.
    QString maintenanceMenuPicture(int item) const;
    static QStringList maintenanceMenuKeys();
    // [Desktop - Internet Toolbar]: the file of a toolbar button ("Back", ...) when it exists;
    // `transparentGreen` is set when it is a .gif, shown with RGB(0,255,0) as its clear colour.
    QString toolbarPicture(const QString& key, bool* transparentGreen = nullptr) const;
    static QStringList toolbarKeys();
    // The class button of a colour field ("3a.jpg"): the normal picture, and the hover picture
    // with every "a" of the field replaced by "b"; both fall back on 1a.jpg and 1b.jpg when
    // either is missing.
    std::pair<QString, QString> classButtonPictures(const QString& colourField) const;
    static QString hoverField(const QString& colourField);
    // [Knoppen]: the names of the class button colours, as many as Knoppen\*a.jpg files, up to
    // the first number without a name.
    QStringList buttonColourNames() const;
    // A class's or teacher's desktop background: the file in Achtergronden\, or
    // Achtergronden\Bureaublad.jpg when it does not exist; empty for "Geen".
    QString desktopBackground(const QString& field) const;

    // The number forms of the keys: a decimal number (sign, digits, an optional fraction rounded
    // half to even) within [min, max], or nothing.
    static std::optional<qint64> parseNumber(const QString& text, qint64 min, qint64 max);

private:
    QStringList parts(const QString& section, const QString& key, int needed) const;
    std::shared_ptr<const ThemeSource> m_source;
    QString m_themaMap;
    QString m_settingsFile;
};

} // namespace tk
