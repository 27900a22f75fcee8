// The whole load against a scripted server: the order of its messages, the sealed cache, the
// offline start, and a link lost halfway.
#include "core/Ansi.h"
#include "core/IniDocument.h"
#include "data/SealedCache.h"
#include "tests/support/ScriptedPeer.h"
#include "tests/support/Werkplek.h"

#include <gtest/gtest.h>

using namespace tk;
using tk::test::ScriptedPeer;
using tk::test::Werkplek;
using Levering = ScriptedPeer::Levering;

namespace {

QString s(const char* t) {
    return QString::fromLatin1(t);
}

struct Stap {
    QString verwacht, antwoord;
};

QString klas(int id, const char* naam) {
    return QStringList{s("x"),          s(naam),
                       s("1"),          s("1a.jpg"),
                       s("Geen"),       QStringLiteral("groep%1").arg(id),
                       s("geheim"),     QString::number(id),
                       s("1|a1|cdrom"), s("Ja"),
                       s("reserve"),    s("Jungle"),
                       s("0,0"),        s("1|a1")}
        .join(s(";<>;"));
}
QString leraar(int id, const char* achternaam) {
    return QStringList{s(achternaam), s("pic"),
                       s("Geen"),     QStringLiteral("leraar%1").arg(id),
                       s("ww"),       QString::number(id),
                       s("Anna"),     s("de"),
                       s("1|2"),      s("Ja"),
                       s("1|2"),      s("Nee"),
                       s("Ja|Nee"),   s("r"),
                       s("1|a2"),     s("Standaard")}
        .join(s(";<>;"));
}

// A small school, as the server answers its loads, in the order of a full load of a Network
// workstation whose account is not the global one.
QList<Stap> schoolScript() {
    return {
        {s("LDNTAA"), s("LDNTAA1043")},
        {s("LDNKLSSNC"), s("LDNKLSSNC1|7")},
        {s("LDNKLSDA0"), s("LDNKLSDA0|") + klas(3, "Groep 3") + s(";|;") + klas(5, "Groep 5")},
        {s("LDNKLSDA1"), s("LDNKLSDA1|") + klas(7, "Groep 7")},
        {s("LDNLRNSNC"), s("LDNLRNSNC0|4")},
        {s("LDNLRNDA0"), s("LDNLRNDA0|") + leraar(2, "Jansen") + s(";|;") + leraar(4, "Bakker")},
        {s("LDNWCH"), s("LDNWCHleraar;|;beheer")},
        {s("LDNOVR"), s("LDNOVRhttp://start;<>;a@b.nl;<>;De School;<>;c@d.nl;<>;Jungle;<>;1043")},
        {s("LDNCAK"), s("LDNCAK3;<>;1|Rekenen;<>;3|Taal")},
        {s("LDNCAL"), s("LDNCAL1;<>;1|Alles")},
        {s("LDNCAA"), s("LDNCAA2;<>;2|Web")},
        {s("LDNAPKSNC"), s("LDNAPKSNC2|9")},
        {s("LDNAPKDAT1"),
         s("LDNAPKDAT5><Klok><1><xclock><Een klok><standaard|3><-digital><1024x768x32xNEE")},
        {s("LDNAPKDAT2"), s("LDNAPKDAT9><Ogen><3><xeyes><><eigen><><800x600x16xJA")},
        {s("LDNAPLSNC"), s("LDNAPLSNC0|1")},
        {s("LDNAPASNC"), s("LDNAPASNC1|4")},
        {s("LDNAPADAT1"), s("LDNAPADAT4><Web><2><xdg-open http://a.nl><><standaard|1><><")},
        {s("LDNIVWINF"), s("LDNIVWINF2")},
        {s("LDNIVWPA1"), s("LDNIVWPA1kat|hond")},
        {s("LDNIVWPA2"), s("LDNIVWPA2url>slecht.nl")},
        {s("LDNITS"), s("LDNITSgoed.nl|ook.nl")},
        {s("LDNMOD"), s("LDNMODJA|NEE")},
        {s("LDNPRN"), s("LDNPRNHP|\\\\srv\\hp><Canon|\\\\srv\\canon")},
    };
}

void speel(ScriptedPeer& peer, const QList<Stap>& stappen) {
    peer.op(s("TST"), s("TST"))
        .op(s("INFVER*"), s("INFVER"))
        .op(s("INFDMN"), s("INFDMNSCHOOL|0|0|0|0|NEE|NEE"))
        .op(s("INFCOM*"), s("INFCOM"));
    for (const Stap& stap : stappen)
        peer.op(stap.verwacht, stap.antwoord);
}

QStringList verwachtBegin() {
    return {s("TST"), s("INFVER") + ModMain::ProgrammaVersie(), s("INFDMN"), s("INFCOMLOKAAL-12")};
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
    peer.op(s("HLPOPS*"), s("HLPOPS"));
    Werkplek dw(Werkplek::gegevens, peer.poort());
    dw.platform.fakeEnvironment().setComputerName(s("LOKAAL-12"));
    // A stored report that did not reach the server ("nee" in any case) goes out last; a sent
    // one does not.
    dw.schrijf(s("Data/Foutrapportage.ini"),
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
    EXPECT_TRUE(peer.ontvangen.last().startsWith(s("HLPOPS2-2-2024;<>;")));
    EXPECT_TRUE(peer.ontvangen.last().contains(s("modData.LaadKlassen in lijn 9|kapot")));
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join(s("\n")).toStdString();
    EXPECT_TRUE(dw.rapporten.isEmpty()) << dw.rapporten.join(s(", ")).toStdString();
    EXPECT_EQ(dw.p.modMain.LeesIni(s("ID=2"), s("Verstuurd"), s("\\Data\\Foutrapportage.ini")),
              s("Ja"));

    // The tables as loaded.
    ModData& d = dw.d();
    EXPECT_EQ(d.Klassen(2, 0), s("Groep 7"));
    EXPECT_TRUE(d.Klassen.vrij(3));
    EXPECT_EQ(d.LaatsteKlasID, s("7"));
    EXPECT_EQ(d.Leraren(1, 0), s("Bakker"));
    EXPECT_EQ(d.Applicaties[0](1, 1), s("Ogen"));
    EXPECT_EQ(d.Applicaties[2](0, 0), s("4"));
    EXPECT_EQ(d.LaatsteApplicatieID[1], s("1"));
    EXPECT_EQ(d.Categorien[0](1, 1), s("Taal"));
    EXPECT_EQ(d.LaatsteCategorieID[0], s("3"));
    EXPECT_EQ(d.Wachtwoorden, (QStringList{s("leraar"), s("beheer")}));
    EXPECT_EQ(d.VerbodenWoorden, s("kat|hond|url>slecht.nl"));
    EXPECT_TRUE(d.Printermodule);
    EXPECT_FALSE(d.ActiveDirectoryModule);
    EXPECT_EQ(d.ZoekPrinterNaam(s("\\\\SRV\\canon")), s("Canon"));
    EXPECT_EQ(d.Accounts, (QStringList{s("ONDERHOUD|ONDERHOUD"), s("GLOBAL|GLOBAL"),
                                       s("KLAS|groep3|3"), s("KLAS|groep5|5"), s("KLAS|groep7|7"),
                                       s("LERAAR|Jansen|2"), s("LERAAR|Bakker|4")}));

    // The plain copy is gone; the sealed one holds the raw answers under their keys.
    EXPECT_FALSE(QFileInfo::exists(dw.pad(s("Data/Tijdelijk.ini"))));
    const IniDocument cache = ontcijfer(dw.cache());
    struct Sleutel {
        const char* sectie;
        const char* sleutel;
        QString waarde;
    };
    const Sleutel sleutels[] = {
        {"Algemeen", "Domein", s("SCHOOL")},
        {"Groepen", "Info", s("1|7")},
        {"Groepen", "1", klas(7, "Groep 7")}, // the echo "1|" is removed
        {"Leerkrachten", "Info", s("0|4")},
        {"Algemeen", "Wachtwoorden", s("leraar;|;beheer")},
        {"Algemeen", "Overige",
         s("http://start;<>;a@b.nl;<>;De School;<>;c@d.nl;<>;Jungle;<>;1043")},
        {"Categorien", "0", s("3;<>;1|Rekenen;<>;3|Taal")},
        {"Categorien", "1", s("1;<>;1|Alles")},
        {"Applicaties: 0", "Info", s("2|9")},
        {"Applicaties: 0", "2", s("9><Ogen><3><xeyes><><eigen><><800x600x16xJA")},
        {"Applicaties: 1", "Info", s("0|1")},
        {"Internetfilter", "Verboden woorden", s("2")},
        {"Internetfilter", "V1", s("PA1kat|hond")},
        {"Internetfilter", "T1", s("goed.nl|ook.nl")},
        {"Algemeen", "Printermodule", s("JA|NEE")},
        {"Algemeen", "Printers", s("HP|\\\\srv\\hp><Canon|\\\\srv\\canon")},
    };
    for (const Sleutel& k : sleutels) {
        SCOPED_TRACE(std::string(k.sectie) + "/" + k.sleutel);
        EXPECT_EQ(cache.value(s(k.sectie), s(k.sleutel)).value_or(s("<none>")), k.waarde);
    }
}

TEST(LadenTest, TheGlobalAccountOfANetworkWorkstationLoadsNoApplicationsOrLists) {
    ScriptedPeer peer;
    QList<Stap> script;
    for (const Stap& stap : schoolScript())
        if (!stap.verwacht.startsWith(s("LDNCA")) && !stap.verwacht.startsWith(s("LDNAP")) &&
            !stap.verwacht.startsWith(s("LDNIVW")) && stap.verwacht != u"LDNITS")
            script.append(stap);
    speel(peer, script);
    Werkplek dw(Werkplek::gegevens, peer.poort());
    dw.platform.fakeEnvironment().setVariable(s("USERNAME"), s("global"));
    dw.laadOnline();
    EXPECT_TRUE(peer.klaar());
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join(s("\n")).toStdString();
    EXPECT_EQ(peer.ontvangen.last(), s("LDNPRN"));
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
    const qsizetype tweede = Ansi::naarTekst(SealedCache::decipher(verzegeld)).indexOf(s("Bakker"));
    ASSERT_GT(tweede, 0);

    // A second workstation with the cache and no server; Management mode loads the same sets as a
    // Network workstation does. A foreign, cut or empty cache is reported by every loader that
    // finds nothing, and what was loaded before it stays.
    const QStringList allesWeg{s("modMain.Laden"),           s("modData.LaadKlassen"),
                               s("modData.LaadLeraren"),     s("modData.LaadApplicaties"),
                               s("modData.LaadApplicaties"), s("modData.LaadApplicaties")};
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
        offline.schrijf(s("Data/data.tijdelijk"), c.bestand);
        ModData& d = offline.d();
        d.Klassen(0, 0) = d.Leraren(1, 0) = s("al geladen");
        offline.p.modMainLaden->Laden();
        EXPECT_EQ(offline.rapporten, c.rapporten);
        if (c.rapporten.isEmpty()) {
            EXPECT_EQ(Werkplek::alleGegevens(d), Werkplek::alleGegevens(online.d()));
            EXPECT_EQ(offline.p.frmMain->Domein, s("SCHOOL"));
        } else {
            // The first teacher of a truncated cache is whole; the cut one stores nothing.
            const bool klassen = c.rapporten.size() < allesWeg.size();
            EXPECT_EQ(d.Klassen(0, 0), klassen ? s("Groep 3") : s("al geladen"));
            EXPECT_EQ(d.Leraren(0, 0), klassen ? s("Jansen") : QString());
            EXPECT_EQ(d.Leraren(1, 0), s("al geladen"));
        }
        // The cache is believed or not, and left as it was; no plain copy remains.
        EXPECT_EQ(offline.cache(), c.bestand);
        EXPECT_FALSE(QFileInfo::exists(offline.pad(s("Data/Tijdelijk.ini"))));
    }
}

TEST(LadenTest, ALinkLostHalfwayReadsTheRestFromTheCacheAndKeepsTheOldCache) {
    ScriptedPeer eerste;
    speel(eerste, schoolScript());
    Werkplek online(Werkplek::gegevens, eerste.poort());
    online.laadOnline();
    const QByteArray verzegeld = online.cache();

    // The next start: the classes have changed on the server, and the link goes during the
    // second block.
    ScriptedPeer tweede;
    speel(tweede, {{s("LDNTAA"), s("LDNTAA1043")},
                   {s("LDNKLSSNC"), s("LDNKLSSNC1|9")},
                   {s("LDNKLSDA0"), s("LDNKLSDA0|") + klas(3, "Groep 3 nieuw")}});
    tweede.op(s("LDNKLSDA1"), QString(), Levering::Sluiten);
    Werkplek dw(Werkplek::gegevens, tweede.poort());
    dw.schrijf(s("Data/data.tijdelijk"), verzegeld);
    dw.laadOnline();

    EXPECT_TRUE(tweede.klaar());
    ModData& d = dw.d();
    // Block 0 came from the server, block 1 from the cache; the new last ID stands.
    EXPECT_EQ(d.Klassen(0, 0), s("Groep 3 nieuw"));
    EXPECT_EQ(d.Klassen(1, 0), s("Groep 7"));
    EXPECT_EQ(d.LaatsteKlasID, s("9"));
    // Everything after it came from the cache as well.
    const QStringList nu = Werkplek::alleGegevens(d);
    const QStringList toen = Werkplek::alleGegevens(online.d());
    for (const QString& regel : toen) {
        if (!regel.startsWith(s("Klassen")) && !regel.startsWith(s("LaatsteKlasID")) &&
            !regel.startsWith(s("Accounts"))) {
            EXPECT_TRUE(nu.contains(regel)) << regel.toStdString();
        }
    }
    EXPECT_TRUE(dw.p.frmMain->Offline);
    EXPECT_EQ(dw.cache(), verzegeld);
    EXPECT_FALSE(QFileInfo::exists(dw.pad(s("Data/Tijdelijk.ini"))));
}

TEST(LadenTest, PositionsAndFavouritesOpenAndSealTheCacheThemselves) {
    ScriptedPeer peer;
    speel(peer, schoolScript());
    peer.op(s("LDNAPPPOSK12"), s("LDNAPPPOS5|app|10x20><a4|app|30x40"))
        .op(s("LDNAPPPOSL7"), s("LDNAPPPOS"))
        .op(s("LDNFAVGroep3"), s("LDNFAV1|Ja|Nee|Nee;<>;http://a.nl|A||Ja><http://b.nl|B||Nee"));
    Werkplek dw(Werkplek::gegevens, peer.poort());
    dw.laadOnline();
    ModData& d = dw.d();

    // Kind 0 and ID 12: the command puts the letter first, the key the kind.
    EXPECT_EQ(d.LaadApplicatiePosities(0, s("12")), s("5|app|10x20><a4|app|30x40"));
    EXPECT_EQ(d.LaadApplicatiePosities(1, s("7")), QString());
    const Favorieten fav = d.LaadFavorieten(s("Groep3"));
    EXPECT_EQ(fav.Internetmodus, s("1"));
    ASSERT_EQ(fav.Lijst.size(), 2);
    EXPECT_EQ(fav.actieve().size(), 1);
    EXPECT_TRUE(peer.klaar());
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join(s("\n")).toStdString();

    const IniDocument cache = ontcijfer(dw.cache());
    EXPECT_EQ(cache.value(s("Applicaties: posities"), s("0|12")),
              s("POS5|app|10x20><a4|app|30x40"));
    EXPECT_EQ(cache.value(s("Applicaties: posities"), s("1|7")), s("POS"));
    EXPECT_TRUE(cache.value(s("Favorieten"), s("Groep3")).has_value());
    // The rest of the cache stayed with them.
    EXPECT_EQ(cache.value(s("Groepen"), s("Info")), s("1|7"));
    EXPECT_FALSE(QFileInfo::exists(dw.pad(s("Data/Tijdelijk.ini"))));

    // Without the link the same answers come from the cache.
    peer.sluit();
    tk::test::pompVoor(100);
    ASSERT_FALSE(dw.p.modMain.Verbonden());
    const QByteArray verzegeld = dw.cache();
    EXPECT_EQ(d.LaadApplicatiePosities(0, s("12")), s("5|app|10x20><a4|app|30x40"));
    EXPECT_EQ(d.LaadFavorieten(s("Groep3")), fav);
    EXPECT_EQ(d.LaadFavorieten(s("Leraar99")), Favorieten());
    EXPECT_EQ(dw.cache(), verzegeld);
}
