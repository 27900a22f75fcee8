// The whole load against a scripted server: the order of its messages, the sealed cache, the
// offline start, and a link lost halfway.
#include "core/Ansi.h"
#include "core/IniDocument.h"
#include "data/SealedCache.h"
#include "tests/support/ScriptedPeer.h"
#include "tests/support/Werkplek.h"

#include <QTimer>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::ScriptedPeer;
using tk::test::Werkplek;
using Levering = ScriptedPeer::Levering;

namespace {

struct Stap {
    QString verwacht, antwoord;
};

QString klas(int id, const char* naam) {
    return QString(
               "x;<>;%1;<>;1;<>;1a.jpg;<>;Geen;<>;groep%2;<>;geheim;<>;%2;<>;1|a1|cdrom;<>;Ja;<>;"
               "reserve;<>;Jungle;<>;0,0;<>;1|a1")
        .arg(naam)
        .arg(id);
}
QString leraar(int id, const char* achternaam) {
    return QString("%1;<>;pic;<>;Geen;<>;leraar%2;<>;ww;<>;%2;<>;Anna;<>;de;<>;1|2;<>;Ja;<>;1|2;<>;"
                   "Nee;<>;Ja|Nee;<>;r;<>;1|a2;<>;Standaard")
        .arg(achternaam)
        .arg(id);
}

// A small school, as the server answers its loads, in the order of a full load of a Network
// workstation whose account is not the global one.
QList<Stap> schoolScript() {
    return {
        {"LDNTAA", "LDNTAA1043"},
        {"LDNKLSSNC", "LDNKLSSNC1|7"},
        {"LDNKLSDA0", "LDNKLSDA0|" + klas(3, "Groep 3") + ";|;" + klas(5, "Groep 5")},
        {"LDNKLSDA1", "LDNKLSDA1|" + klas(7, "Groep 7")},
        {"LDNLRNSNC", "LDNLRNSNC0|4"},
        {"LDNLRNDA0", "LDNLRNDA0|" + leraar(2, "Jansen") + ";|;" + leraar(4, "Bakker")},
        {"LDNWCH", "LDNWCHleraar;|;beheer"},
        {"LDNOVR", "LDNOVRhttp://start;<>;a@b.nl;<>;De School;<>;c@d.nl;<>;Jungle;<>;1043"},
        {"LDNCAK", "LDNCAK3;<>;1|Rekenen;<>;3|Taal"},
        {"LDNCAL", "LDNCAL1;<>;1|Alles"},
        {"LDNCAA", "LDNCAA2;<>;2|Web"},
        {"LDNAPKSNC", "LDNAPKSNC2|9"},
        {"LDNAPKDAT1",
         "LDNAPKDAT5><Klok><1><xclock><Een klok><standaard|3><-digital><1024x768x32xNEE"},
        {"LDNAPKDAT2", "LDNAPKDAT9><Ogen><3><xeyes><><eigen><><800x600x16xJA"},
        {"LDNAPLSNC", "LDNAPLSNC0|1"},
        {"LDNAPASNC", "LDNAPASNC1|4"},
        {"LDNAPADAT1", "LDNAPADAT4><Web><2><xdg-open http://a.nl><><standaard|1><><"},
        {"LDNIVWINF", "LDNIVWINF2"},
        {"LDNIVWPA1", "LDNIVWPA1kat|hond"},
        {"LDNIVWPA2", "LDNIVWPA2url>slecht.nl"},
        {"LDNITS", "LDNITSgoed.nl|ook.nl"},
        {"LDNMOD", "LDNMODJA|NEE"},
        {"LDNPRN", "LDNPRNHP|\\\\srv\\hp><Canon|\\\\srv\\canon"},
    };
}

void speel(ScriptedPeer& peer, const QList<Stap>& stappen) {
    peer.op("TST", "TST")
        .op("INFVER*", "INFVER")
        .op("INFDMN", "INFDMNSCHOOL|0|0|0|0|NEE|NEE")
        .op("INFCOM*", "INFCOM");
    for (const Stap& stap : stappen)
        peer.op(stap.verwacht, stap.antwoord);
}

QStringList verwachtBegin() {
    return {"TST", "INFVER" + ModMain::ProgrammaVersie(), "INFDMN", "INFCOMLOKAAL-12"};
}

// The clear text of a sealed cache.
IniDocument ontcijfer(const QByteArray& verzegeld) {
    return IniDocument::parse(Ansi::naarTekst(SealedCache::decipher(verzegeld)));
}

} // namespace

TEST(LadenTest, AFullLoadAsksEverythingInOrderAndSealsTheRawAnswers) {
    ScriptedPeer peer;
    const QList<Stap> school = schoolScript();
    speel(peer, school);
    peer.op("HLPOPS*", "HLPOPS");
    Werkplek dw(Werkplek::gegevens, peer.poort());
    dw.platform.fakeEnvironment().setComputerName("LOKAAL-12");
    // A stored report that did not reach the server ("nee" in any case) goes out last; a sent
    // one does not.
    dw.schrijf("Data/Foutrapportage.ini",
               "[Foutrapportage]\r\nLaatste ID=2\r\nAantal=2\r\n"
               "[ID=1]\r\nDatum=1-2-2024\r\nProcedure=frmMain.X\r\nVerstuurd=Ja\r\n"
               "[ID=2]\r\nDatum=2-2-2024\r\nProcedure=modData.LaadKlassen\r\nLijn=9\r\n"
               "Omschrijving=kapot\r\nVerstuurd=nee\r\n");

    dw.laadOnline();

    QStringList verwacht = verwachtBegin();
    for (const Stap& stap : school)
        verwacht.append(stap.verwacht);
    ASSERT_EQ(peer.ontvangen.size(), verwacht.size() + 1);
    EXPECT_EQ(peer.ontvangen.mid(0, verwacht.size()), verwacht);
    EXPECT_TRUE(peer.ontvangen.last().startsWith("HLPOPS2-2-2024;<>;"));
    EXPECT_TRUE(peer.ontvangen.last().contains("modData.LaadKlassen in lijn 9|kapot"));
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();
    EXPECT_TRUE(dw.rapporten.isEmpty()) << dw.rapporten.join(", ").toStdString();
    EXPECT_EQ(dw.p.modMain.LeesIni("ID=2", "Verstuurd", "\\Data\\Foutrapportage.ini"), "Ja");

    // The tables as loaded.
    ModData& d = dw.d();
    EXPECT_EQ(d.Klassen(2, 0), "Groep 7");
    EXPECT_TRUE(d.Klassen.vrij(3));
    EXPECT_EQ(d.LaatsteKlasID, "7");
    EXPECT_EQ(d.Leraren(1, 0), "Bakker");
    EXPECT_EQ(d.Applicaties[0](1, 1), "Ogen");
    EXPECT_EQ(d.Applicaties[2](0, 0), "4");
    EXPECT_EQ(d.LaatsteApplicatieID[1], "1");
    EXPECT_EQ(d.Categorien[0](1, 1), "Taal");
    EXPECT_EQ(d.LaatsteCategorieID[0], "3");
    EXPECT_EQ(d.Wachtwoorden, (QStringList{"leraar", "beheer"}));
    EXPECT_EQ(d.VerbodenWoorden, "kat|hond|url>slecht.nl");
    EXPECT_TRUE(d.Printermodule);
    EXPECT_FALSE(d.ActiveDirectoryModule);
    EXPECT_EQ(d.ZoekPrinterNaam("\\\\SRV\\canon"), "Canon");
    EXPECT_EQ(d.Accounts,
              (QStringList{"ONDERHOUD|ONDERHOUD", "GLOBAL|GLOBAL", "KLAS|groep3|3", "KLAS|groep5|5",
                           "KLAS|groep7|7", "LERAAR|Jansen|2", "LERAAR|Bakker|4"}));

    // The plain copy is gone; the sealed one holds the raw answers under their keys.
    EXPECT_FALSE(QFileInfo::exists(dw.pad("Data/Tijdelijk.ini")));
    const IniDocument cache = ontcijfer(dw.cache());
    struct Sleutel {
        const char* sectie;
        const char* sleutel;
        QString waarde;
    };
    const Sleutel sleutels[] = {
        {"Algemeen", "Domein", "SCHOOL"},
        {"Groepen", "Info", "1|7"},
        {"Groepen", "1", klas(7, "Groep 7")}, // the echo "1|" is removed
        {"Leerkrachten", "Info", "0|4"},
        {"Algemeen", "Wachtwoorden", "leraar;|;beheer"},
        {"Algemeen", "Overige", "http://start;<>;a@b.nl;<>;De School;<>;c@d.nl;<>;Jungle;<>;1043"},
        {"Categorien", "0", "3;<>;1|Rekenen;<>;3|Taal"},
        {"Categorien", "1", "1;<>;1|Alles"},
        {"Applicaties: 0", "Info", "2|9"},
        {"Applicaties: 0", "2", "9><Ogen><3><xeyes><><eigen><><800x600x16xJA"},
        {"Applicaties: 1", "Info", "0|1"},
        {"Internetfilter", "Verboden woorden", "2"},
        {"Internetfilter", "V1", "PA1kat|hond"},
        {"Internetfilter", "T1", "goed.nl|ook.nl"},
        {"Algemeen", "Printermodule", "JA|NEE"},
        {"Algemeen", "Printers", "HP|\\\\srv\\hp><Canon|\\\\srv\\canon"},
    };
    for (const Sleutel& k : sleutels) {
        SCOPED_TRACE(std::string(k.sectie) + "/" + k.sleutel);
        EXPECT_EQ(cache.value(QString(k.sectie), QString(k.sleutel)).value_or("<none>"), k.waarde);
    }
}

TEST(LadenTest, TheGlobalAccountOfANetworkWorkstationLoadsNoApplicationsOrLists) {
    ScriptedPeer peer;
    QList<Stap> script;
    for (const Stap& stap : schoolScript())
        if (!stap.verwacht.startsWith("LDNCA") && !stap.verwacht.startsWith("LDNAP") &&
            !stap.verwacht.startsWith("LDNIVW") && stap.verwacht != u"LDNITS")
            script.append(stap);
    speel(peer, script);
    Werkplek dw(Werkplek::gegevens, peer.poort());
    dw.platform.fakeEnvironment().setVariable("USERNAME", "global");
    dw.laadOnline();
    EXPECT_TRUE(peer.klaar());
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();
    EXPECT_EQ(peer.ontvangen.last(), "LDNPRN");
}

TEST(LadenTest, AnOfflineStartLoadsTheSameTablesAsTheOnlineLoadDidAndABadCacheIsKept) {
    ScriptedPeer peer;
    speel(peer, schoolScript());
    Werkplek online(Werkplek::gegevens, peer.poort());
    online.laadOnline();
    ASSERT_TRUE(peer.klaar());
    const QByteArray verzegeld = online.cache();
    ASSERT_FALSE(verzegeld.isEmpty());
    // Cut in the middle of the second teacher record.
    const qsizetype tweede = Ansi::naarTekst(SealedCache::decipher(verzegeld)).indexOf("Bakker");
    ASSERT_GT(tweede, 0);

    // A second workstation with the cache and no server; Management mode loads the same sets as a
    // Network workstation does. A foreign, cut or empty cache is reported by every loader that
    // finds nothing, and what was loaded before it stays.
    const QStringList allesWeg{"modMain.Laden",           "modData.LaadKlassen",
                               "modData.LaadLeraren",     "modData.LaadApplicaties",
                               "modData.LaadApplicaties", "modData.LaadApplicaties"};
    struct Case {
        const char* naam;
        QByteArray bestand;
        bool beheer;
        QStringList rapporten;
    };
    const Case cases[] = {
        {"Network", verzegeld, false, {}},
        {"Management", verzegeld, true, {}},
        {"foreign", QByteArray("\x89PNG\r\n\x1a\n not a cache at all", 27), false, allesWeg},
        {"truncated", verzegeld.left(tweede + 12), false, allesWeg.mid(2)},
        {"empty", QByteArray(), false, allesWeg},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.naam);
        Werkplek offline(Werkplek::gegevens);
        offline.p.modMain.ModusNetwerk = !c.beheer;
        offline.p.modMain.ModusBeheer = c.beheer;
        offline.schrijf("Data/data.tijdelijk", c.bestand);
        ModData& d = offline.d();
        d.Klassen(0, 0) = d.Leraren(1, 0) = "al geladen";
        offline.p.modMainLaden->Laden();
        EXPECT_EQ(offline.rapporten, c.rapporten);
        if (c.rapporten.isEmpty()) {
            EXPECT_EQ(Werkplek::alleGegevens(d), Werkplek::alleGegevens(online.d()));
            EXPECT_EQ(offline.p.frmMain->Domein, "SCHOOL");
        } else {
            // The first teacher of a truncated cache is whole; the cut one stores nothing.
            const bool klassen = c.rapporten.size() < allesWeg.size();
            EXPECT_EQ(d.Klassen(0, 0), klassen ? "Groep 3" : "al geladen");
            EXPECT_EQ(d.Leraren(0, 0), klassen ? "Jansen" : QString());
            EXPECT_EQ(d.Leraren(1, 0), "al geladen");
        }
        // The cache is believed or not, and left as it was; no plain copy remains.
        EXPECT_EQ(offline.cache(), c.bestand);
        EXPECT_FALSE(QFileInfo::exists(offline.pad("Data/Tijdelijk.ini")));
    }
}

// The link lost halfway, or the program ended halfway (the taskbar's shut-down during the
// load: its waits end without their answers while the link stays).
TEST(LadenTest, ALoadCutShortReadsTheRestFromTheCacheAndKeepsTheOldCache) {
    ScriptedPeer eerste;
    speel(eerste, schoolScript());
    Werkplek online(Werkplek::gegevens, eerste.poort());
    online.laadOnline();
    const QByteArray verzegeld = online.cache();

    for (const bool beeindigd : {false, true}) {
        SCOPED_TRACE(beeindigd ? "ended" : "link lost");
        // The next start: the classes have changed on the server, and the load is cut short
        // during the second block.
        ScriptedPeer tweede;
        speel(tweede, {{"LDNTAA", "LDNTAA1043"},
                       {"LDNKLSSNC", "LDNKLSSNC1|9"},
                       {"LDNKLSDA0", "LDNKLSDA0|" + klas(3, "Groep 3 nieuw")}});
        tweede.op("LDNKLSDA1", QString(), beeindigd ? Levering::Stil : Levering::Sluiten);
        Werkplek dw(Werkplek::gegevens, tweede.poort());
        dw.schrijf("Data/data.tijdelijk", verzegeld);
        QTimer einde;
        QObject::connect(&einde, &QTimer::timeout, [&] {
            if (beeindigd && tweede.ontvangen.contains("LDNKLSDA1") && !dw.p.beeindigd)
                dw.p.Einde();
        });
        einde.start(5);
        dw.laadOnline();

        EXPECT_TRUE(tweede.klaar());
        ModData& d = dw.d();
        // Block 0 came from the server, block 1 from the cache; the new last ID stands.
        EXPECT_EQ(d.Klassen(0, 0), "Groep 3 nieuw");
        EXPECT_EQ(d.Klassen(1, 0), "Groep 7");
        EXPECT_EQ(d.LaatsteKlasID, "9");
        // Everything after it came from the cache as well.
        const QStringList nu = Werkplek::alleGegevens(d);
        const QStringList toen = Werkplek::alleGegevens(online.d());
        for (const QString& regel : toen) {
            if (!regel.startsWith("Klassen") && !regel.startsWith("LaatsteKlasID") &&
                !regel.startsWith("Accounts")) {
                EXPECT_TRUE(nu.contains(regel)) << regel.toStdString();
            }
        }
        EXPECT_EQ(dw.p.frmMain->Offline, !beeindigd);
        EXPECT_EQ(dw.cache(), verzegeld);
        EXPECT_FALSE(QFileInfo::exists(dw.pad("Data/Tijdelijk.ini")));
    }
}

TEST(LadenTest, PositionsAndFavouritesOpenAndSealTheCacheThemselves) {
    ScriptedPeer peer;
    speel(peer, schoolScript());
    peer.op("LDNAPPPOSK12", "LDNAPPPOS5|app|10x20><a4|app|30x40")
        .op("LDNAPPPOSL7", "LDNAPPPOS")
        .op("LDNFAVGroep3", "LDNFAV1|Ja|Nee|Nee;<>;http://a.nl|A||Ja><http://b.nl|B||Nee");
    Werkplek dw(Werkplek::gegevens, peer.poort());
    dw.laadOnline();
    ModData& d = dw.d();

    // Kind 0 and ID 12: the command puts the letter first, the key the kind.
    EXPECT_EQ(d.LaadApplicatiePosities(0, "12"), "5|app|10x20><a4|app|30x40");
    EXPECT_EQ(d.LaadApplicatiePosities(1, "7"), QString());
    const Favorieten fav = d.LaadFavorieten("Groep3");
    EXPECT_EQ(fav.Internetmodus, "1");
    ASSERT_EQ(fav.Lijst.size(), 2);
    EXPECT_EQ(fav.actieve().size(), 1);
    EXPECT_TRUE(peer.klaar());
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();

    const IniDocument cache = ontcijfer(dw.cache());
    EXPECT_EQ(cache.value("Applicaties: posities", "0|12"), "POS5|app|10x20><a4|app|30x40");
    EXPECT_EQ(cache.value("Applicaties: posities", "1|7"), "POS");
    EXPECT_TRUE(cache.value("Favorieten", "Groep3").has_value());
    // The rest of the cache stayed with them.
    EXPECT_EQ(cache.value("Groepen", "Info"), "1|7");
    EXPECT_FALSE(QFileInfo::exists(dw.pad("Data/Tijdelijk.ini")));

    // Without the link the same answers come from the cache.
    peer.sluit();
    tk::test::pompVoor(100);
    ASSERT_FALSE(dw.p.modMain.Verbonden());
    const QByteArray verzegeld = dw.cache();
    EXPECT_EQ(d.LaadApplicatiePosities(0, "12"), "5|app|10x20><a4|app|30x40");
    EXPECT_EQ(d.LaadFavorieten("Groep3"), fav);
    EXPECT_EQ(d.LaadFavorieten("Leraar99"), Favorieten());
    EXPECT_EQ(dw.cache(), verzegeld);
}
