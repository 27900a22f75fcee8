// The texts the settings and server panels read from outside: language rows, the server's
// settings answer, a backup list and a typed server location. Nothing crashes; a language list
// ends at the first blank row; a store name is lower-case; every listed backup has a name, and a
// server's own name comes back from what the list shows; a port is a real port.
#include "FuzzSupport.h"
#include "core/Ansi.h"
#include "link/Serverlocatie.h"
#include "screens/maintenance/InstellingenTeksten.h"

using namespace tk;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString tekst = Ansi::naarTekst(fuzz::bytes(data, size));

    const QStringList rijen = tekst.split(QLatin1Char('\n'));
    qsizetype leeg = 0;
    while (leeg < rijen.size() && !rijen[leeg].trimmed().isEmpty())
        ++leeg;
    fuzz::require(InstellingenTeksten::taalLijst(rijen).size() == leeg);

    const auto s = InstellingenTeksten::serverInstellingen(tekst);
    fuzz::require(s.module == s.module.toLower());
    fuzz::require(tekst.startsWith(s.versie));

    for (const QString& naam : InstellingenTeksten::backups(tekst))
        fuzz::require(!naam.trimmed().isEmpty());
    for (const QString& naam : tekst.split(QLatin1Char('|')))
        if (naam.endsWith(QLatin1String(".backup")) && !naam.contains(QLatin1Char(':')))
            fuzz::require(InstellingenTeksten::bestandsnaam(InstellingenTeksten::leesbaar(naam)) ==
                          naam);

    const auto l = Serverlocatie::lees(tekst);
    fuzz::require(l.poort >= 1 && l.poort <= 65535);
    fuzz::require(!l.host.contains(QLatin1Char(':')));
    return 0;
}
