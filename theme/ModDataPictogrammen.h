#pragma once

#include <QDateTime>
#include <QString>

namespace tk {

class Programma;

// modData's icon store: the application icons of the three kinds and the standard library in
// \Afbeeldingen\Pictogrammen, kept in step with the server by the change dates of four groups,
// with one package for all that changed. \Data\Pictogrammen.ini remembers the dates.
class ModDataPictogrammen {
public:
    explicit ModDataPictogrammen(Programma& p) : p(p) {}

    // True when all went well (also when nothing had to be fetched).
    bool LaadPictogrammen();
    // Takes the server's list of one group ("ID|date" items joined by "><"), updates the
    // group's part of the register, deletes icons no longer listed, and returns the IDs to
    // fetch (newer on the server, or missing here) joined by "|".
    QString ControleerPictogrammen(const QString& lijst, int groep);
    void TijdelijkeMapVerwijderen();
    void TijdelijkePictogrammenVerwijderen();

    // A date of the register or of the server: "d-m-yyyy hh:nn"; unreadable gives 1-1-1900.
    static QDateTime leesDatum(const QString& tekst);
    static QString schrijfDatum(const QDateTime& moment);

    static constexpr const char* Register = "\\Data\\Pictogrammen.ini";
    static constexpr const char* Map = "\\Afbeeldingen\\Pictogrammen";

private:
    Programma& p;
};

} // namespace tk
