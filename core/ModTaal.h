#pragma once

#include "core/StringTable.h"

#include <QString>

namespace tk {

class Programma;

// The string-table lookup every visible text goes through.
class ModTaal {
public:
    explicit ModTaal(Programma& p);

    // The entry with the product placeholders filled in; an entry that is empty (or blank) gives
    // "[niet vertaald: <id>]" unless `stil`.
    QString LaadTekst(int id, int taal, bool stil = false) const;
    // The same in the program's language.
    QString LaadTekst(int id) const { return LaadTekst(id, Taal); }
    QString loadResourceString(int id, int taal) const;

    long Taal = 1033;
    QString ProductTitel;
    QString ProgrammaPad;

private:
    Programma& p;
    StringTable m_tabel;
};

} // namespace tk
