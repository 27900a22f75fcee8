#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tk {

// A freedesktop .desktop entry as a start command: the fields of its [Desktop Entry] group that
// a start needs, and the command its Exec value gives. Reading and the command work on bytes
// alone, so that any text can be fed to them.
class BureaubladItem {
public:
    QString type, naam, exec, pad, icoon, url;
    bool geldig = false; // a [Desktop Entry] group was found

    // The entry in a file's text. Localised keys ("Name[nl]") and other groups are left alone.
    static BureaubladItem lees(const QByteArray& tekst);
    // Whether a file is an entry: its name ends in ".desktop", or its text begins (after
    // comments and blank lines) with a [Desktop Entry] group.
    static bool isItem(const QString& bestand);
    // The command of the Exec value with its field codes filled: %f %F %u %U take the files,
    // %i the icon, %c the name, %k the entry's own file, %% a percent sign; the deprecated codes
    // go. Empty when the value cannot be split.
    QStringList opdracht(const QStringList& bestanden, const QString& itemBestand) const;
};

} // namespace tk
