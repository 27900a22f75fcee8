// Every client-side splitter of a load answer into table rows. Input: the clear text of the
// offline cache (an INI text of the server's answers by section and key), sealed to disk and
// opened as a workstation without a link does; then every loader runs on it, and the favourites
// and icon places are split as their screens do.
#include "FuzzWorkstation.h"
#include "core/Ansi.h"
#include "core/Fout.h"
#include "data/Favorieten.h"
#include "data/ModData.h"

#include <QDir>
#include <QFile>

using namespace tk;

namespace {

fuzz::FuzzWorkstation& werkplek() {
    static fuzz::FuzzWorkstation w;
    return w;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::startQt();
    fuzz::FuzzWorkstation& w = werkplek();
    w.p.maak(w.p.modData, w.p);
    w.p.modMain.ModusNetwerk = true;
    w.p.modMain.MaakMappen(QStringLiteral("\\Data"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::FuzzWorkstation& w = werkplek();
    ModData& d = *w.p.modData;
    const QString pad = w.p.modMain.Pad(QString::fromLatin1(ModData::CacheBestand));
    // The log book of the input before: kept, it would grow with every run.
    QDir(w.p.modMain.Pad(QStringLiteral("\\Logboek"))).removeRecursively();
    {
        QFile f(pad);
        const QByteArray sealed = SealedCache::encipher(fuzz::bytes(data, size));
        if (!f.open(QIODevice::WriteOnly) || f.write(sealed) != sealed.size())
            return 0;
    }
    try {
        d.cache.open(pad);
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
    const Favorieten f = Favorieten::uitAntwoord(favorieten);
    fuzz::require(f.actieve(5).size() <= 5);
    // The wire has no escapes: a value holding part of a separator cannot come back as it was,
    // so the round trip is asked only of values without those characters.
    const QString tekst = f.alsTekst();
    const QString zonderScheiding = QString(tekst)
                                        .remove(QStringLiteral(";<>;"))
                                        .remove(QStringLiteral("><"))
                                        .remove(QLatin1Char('|'));
    if (!zonderScheiding.contains(QLatin1Char(';')) &&
        !zonderScheiding.contains(QLatin1Char('<')) && !zonderScheiding.contains(QLatin1Char('>')))
        fuzz::require(Favorieten::uitAntwoord(tekst).Lijst.size() == f.Lijst.size());
    fuzz::require(d.laadbalk.waarde <= d.laadbalk.maximum || !d.laadbalk.zichtbaar);
    d.cache.close();
    return 0;
}
