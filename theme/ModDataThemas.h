#pragma once

#include <QString>
#include <QStringList>

namespace tk {

class Programma;

// modData.LaadThemas: keeps the theme folders on this disk in step with the server's list.
// What is new or newer on the server comes as a package over the file transfer and is unpacked
// into \Afbeeldingen\Skins\<id>; what the server dropped is removed; the register of what is
// here is \Data\Thema.ini (rows are never renumbered).
class ModDataThemas {
public:
    explicit ModDataThemas(Programma& p) : p(p) {}

    void LaadThemas(bool toonVoortgang);

    static constexpr const char* Register = "\\Data\\Thema.ini";

private:
    // "id|versie" per register row, empty rows left out.
    QStringList lokaleLijst();
    bool haalPakket(const QString& id, bool toonVoortgang);
    void schrijfRij(const QString& id, const QString& versie);
    void verwijder(const QString& id);
    Programma& p;
};

} // namespace tk
