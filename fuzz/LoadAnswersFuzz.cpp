// Every client-side splitter of a load answer into table rows. Input: the clear text of the
// offline cache (an INI text of the server's answers by section and key), sealed and opened as a
// workstation without a link opens its cache file; then every loader runs on it, and the
// favourites and icon places are split as their screens do.
#include "FuzzWorkstation.h"
#include "core/Fout.h"
#include "data/Favorieten.h"
#include "data/ModData.h"

#include <QDir>

using namespace tk;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::FuzzWorkstation& w = fuzz::workstation();
    w.p.maak(w.p.modData, w.p);
    w.p.modMain.MaakMappen(QStringLiteral("\\Data"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::FuzzWorkstation& w = fuzz::workstation();
    ModData& d = *w.p.modData;
    // The loaders' faults go to the log book: now and then it starts empty again.
    static int run = 0;
    if (++run % 1024 == 0)
        QDir(w.p.modMain.Pad(QStringLiteral("\\Logboek"))).removeRecursively();
    try {
        d.cache.openSealed(SealedCache::encipher(fuzz::bytes(data, size)),
                           QString::fromLatin1(ModData::CacheBestand));
    } catch (const Fout&) {
        d.cache.close();
        return 0;
    }
    d.LaadKlassen();
    d.LaadLeraren();
    for (int soort = 0; soort < 3; ++soort) {
        d.LaadCategorien(soort);
        d.LaadApplicaties(soort);
    }
    d.LaadAccounts();
    d.LaadWachtwoorden();
    d.LaadOverigeInstellingen();
    d.LaadModules();
    d.LaadVerbodenWoorden();
    d.LaadToegestaneSites();
    (void)d.ZoekPrinterNaam(QStringLiteral("Printer"));
    const QString favorieten = d.cache.read(QStringLiteral("Favorieten"), QStringLiteral("Groep1"));
    Favorieten f = Favorieten::uitAntwoord(favorieten);
    fuzz::require(f.actieve(5).size() <= 5);
    // What a save sends (cleaned of the wire's separators) comes back as it went.
    f.zonderScheidingstekens();
    fuzz::require(Favorieten::uitAntwoord(f.alsTekst()) == f);
    fuzz::require(d.laadbalk.waarde <= d.laadbalk.maximum || !d.laadbalk.zichtbaar);
    d.cache.close();
    return 0;
}
