// The lookups, the save payloads and the deletes of modData.
#include "tests/support/ScriptedPeer.h"
#include "tests/support/Werkplek.h"

#include <gtest/gtest.h>

using namespace tk;
using tk::test::ScriptedPeer;
using tk::test::Werkplek;

namespace {

void vulRij(FixedTable& tabel, int rij, const QString& voorvoegsel) {
    for (int k = 0; k < tabel.kolommen(); ++k)
        tabel(rij, k) = voorvoegsel + QString::number(k);
}

} // namespace

TEST(ZoekenTest, LookupsTellRowZeroFromAMissOnlyWhereTheyCan) {
    Werkplek dw(Werkplek::gegevens);
    ModData& d = dw.d();
    d.Applicaties[0](0, 0) = "5";
    d.Applicaties[0](1, 0) = "9";
    d.Klassen(0, 0) = "Groep 3";
    d.Klassen(0, 6) = "3";
    d.Klassen(2, 0) = "Achter een gat";
    d.Klassen(2, 6) = "8";
    d.Leraren(0, 0) = "Jansen";
    d.Leraren(4, 0) = "Bakker";
    d.Leraren(4, 5) = "12";
    d.Categorien[1](0, 0) = "4";
    d.Categorien[1](3, 0) = "07";

    struct Case {
        const char* wat;
        int uitkomst, verwacht;
    };
    const Case cases[] = {
        {"app in row 0", d.ZoekAppLijstID(0, "5"), 0},
        {"unknown app", d.ZoekAppLijstID(0, "77"), 0},
        {"app in row 1", d.ZoekAppLijstID(0, "9"), 1},
        {"Ex: app in row 0", d.ZoekAppLijstIDEx(0, "5"), 0},
        {"Ex: unknown app", d.ZoekAppLijstIDEx(0, "77"), -1},
        {"unknown kind", d.ZoekAppLijstID(7, "5"), 0},
        {"Ex: unknown kind", d.ZoekAppLijstIDEx(-1, "5"), -1},
        {"class after a free row", d.ZoekLijstID(0, "8"), 0},
        {"teacher after a free row", d.ZoekLijstID(1, "12"), 4},
        {"category compared as a number", d.ZoekCatLijstID(1, "7"), 3},
        {"unknown category", d.ZoekCatLijstID(1, "99"), 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.wat);
        EXPECT_EQ(c.uitkomst, c.verwacht);
    }
    EXPECT_EQ(d.naamVan("GROEP", "3"), "Groep 3");
    d.Leraren(4, 6) = "Piet";
    d.Leraren(4, 7) = "de";
    EXPECT_EQ(d.naamVan("LERAAR", "12"), "Bakker, Piet de");
    EXPECT_EQ(d.naamVan("LERAAR", "13"), QString());
    // The location text of a fault report names the class.
    dw.p.modMainVerbinding->GeefLocatieDoor("GROEP|3");
    EXPECT_TRUE(dw.p.modMain.Locatie.contains("Groep 3"));
    EXPECT_TRUE(dw.rapporten.isEmpty());
}

TEST(ZoekenTest, ApplicationsAreGroupedByCategoryInOrderOfFirstUse) {
    Werkplek dw(Werkplek::gegevens);
    ModData& d = dw.d();
    const char* const apps[][3] = {{"1", "10", ""}, {"2", "20", ""}, {"3", "10", ""}};
    for (int i = 0; i < 3; ++i) {
        d.Applicaties[0](i, 0) = QString(apps[i][0]);
        d.Applicaties[0](i, 2) = QString(apps[i][1]);
    }
    d.Applicaties[2](0, 0) = "4";
    d.Applicaties[2](0, 2) = "10";
    QStringList items{"2><x", "1><y", "A4><z", "3><w"};
    d.ApplicatiesSorteren(0, items);
    EXPECT_EQ(items, (QStringList{"20|1|2><x", "10|2|1><y|3><w", "a10|1|A4><z"}));

    // A 21st category does not fit the scratch table: reported, the collection kept.
    QStringList veel;
    for (int i = 0; i < 21; ++i) {
        d.Applicaties[1](i, 0) = QString::number(100 + i);
        d.Applicaties[1](i, 2) = QString::number(i);
        veel.append(QString::number(100 + i));
    }
    const QStringList voor = veel;
    d.ApplicatiesSorteren(1, veel);
    EXPECT_EQ(veel, voor);
    EXPECT_EQ(dw.rapporten, QStringList{"modData.ApplicatiesSorteren"});
}

TEST(OpslaanTest, RecordsGoOutWithTheirColumnsInTheWireOrder) {
    Werkplek dw(Werkplek::gegevens);
    ModData& d = dw.d();
    vulRij(d.Klassen, 0, "k");
    vulRij(d.Leraren, 0, "l");
    vulRij(d.Leraren, 1, "m");
    EXPECT_EQ(d.KlasBericht(0), "OPSKLZk6><k0><k1><k2><k3><k4><k5><k7><k8><k10><k11><k12><k13");
    EXPECT_EQ(d.KlasBericht(0, false), "OPSKLZk6><k0><k1><k2><k3><k4><k5><k7><k8><k10><k11><k12");
    EXPECT_EQ(d.LeraarBericht(1),
              "OPSLRZm5><m0><m7><m6><m1><m2><m3><m4><m8><m9><m10><m11><m12><m15><m14><m16");
    EXPECT_EQ(
        d.LerarenBericht("tekst"),
        QString("OPSLRNtekst;<>;2;<>;l5><l0><l7><l6><l1><l2><l3><l4><l8><l9><l10><l11><l12><l15"
                ";<>;m5><m0><m7><m6><m1><m2><m3><m4><m8><m9><m10><m11><m12><m15"));
    d.Leraren.leegmaken();
    EXPECT_EQ(d.LerarenBericht("t"), "OPSLRNt;<>;0");
}

TEST(OpslaanTest, SavesAndDeletesWaitForTheirAnswersAndMoveLaterRowsUp) {
    ScriptedPeer peer;
    peer.op("TST", "TST")
        .op("OPSKLZ*", "OPSKLZ31")
        .op("VWNKLS5", "VWNKLSFOUT")
        .op("VWNKLS5", "VWNKLSOK")
        .op("VWNLRN8", "VWNLRNOK")
        .op("OPSITSa.nl|b.nl", "OPSITSOK")
        .op("OPSINSx;<>;y", "OPSINSFOUT")
        .op("OPSFAVLeraar8;<>;1|Ja|Nee|Nee;<>;http://a.nl|A||Ja><http://b.nl|BC||Nee", "OPSFAVOK");
    Werkplek dw(Werkplek::gegevens, peer.poort());
    ASSERT_TRUE(dw.verbind());
    ModData& d = dw.d();
    for (int rij = 0; rij < 3; ++rij)
        vulRij(d.Klassen, rij, QString("r%1.").arg(rij));
    d.Klassen(0, 6) = "kopie3";
    d.Klassen(1, 6) = "5";
    d.Klassen(2, 13) = "extra";
    for (int rij = 0; rij < 2; ++rij)
        vulRij(d.Leraren, rij, QString("t%1.").arg(rij));
    d.Leraren(0, 5) = "8";

    // A copy takes the new ID the server gives.
    EXPECT_EQ(d.OpslaanKlasRecord(0), "31");
    EXPECT_EQ(d.Klassen(0, 6), "31");
    // A refused delete changes nothing.
    EXPECT_FALSE(d.VerwijderKlas(1));
    EXPECT_EQ(d.Klassen(1, 0), "r1.0");
    // A delete moves the later rows up in columns 0 to 12 and blanks the last row there.
    EXPECT_TRUE(d.VerwijderKlas(1));
    EXPECT_EQ(d.Klassen(1, 0), "r2.0");
    EXPECT_EQ(d.Klassen(1, 12), "r2.12");
    EXPECT_EQ(d.Klassen(1, 13), "r1.13");
    EXPECT_TRUE(d.Klassen.vrij(2));
    EXPECT_EQ(d.Klassen(2, 12), QString());
    EXPECT_EQ(d.Klassen(2, 13), "extra");
    EXPECT_TRUE(d.VerwijderLeraar(0));
    EXPECT_EQ(d.Leraren(0, 15), "t1.15");
    EXPECT_EQ(d.Leraren(0, 16), "t0.16");
    EXPECT_TRUE(d.Leraren.vrij(1));

    d.ToegestaneSites = "a.nl|b.nl";
    EXPECT_TRUE(d.OpslaanToegestaneSites());
    EXPECT_FALSE(d.Opslaan_Instellingen("x;<>;y"));
    Favorieten fav;
    fav.Internetmodus = "1";
    fav.Thuispagina = "Ja";
    fav.Filteren = fav.Blokkeren = "Nee";
    fav.Lijst = {{"http://a.nl", "A", QString(), "Ja"}, {"http://b.nl", "B><C", QString(), "Nee"}};
    // A name holding the wire's separators goes out without them, and the log book says so.
    EXPECT_TRUE(d.OpslaanFavorieten("Leraar8", fav));
    EXPECT_TRUE(dw.lees("Logboek/" + dw.platform.fakeClock().now().toString("d-M-yyyy") + ".txt")
                    .contains("The favourites of Leraar8: removed"));
    EXPECT_TRUE(peer.klaar());
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();

    // Without the link nothing is saved or deleted.
    peer.sluit();
    tk::test::pompVoor(100);
    EXPECT_FALSE(d.VerwijderKlas(0));
    EXPECT_FALSE(d.Klassen.vrij(0));
    EXPECT_FALSE(d.OpslaanToegestaneSites());
}

TEST(OpslaanTest, TheWordListGoesInPiecesUnder2000CharactersAfterTheFirstWithAPlus) {
    // 10-character items: 199 of them and their separators make 1999 characters.
    auto lijst = [](int aantal, int lengte) {
        QStringList items;
        for (int i = 0; i < aantal; ++i)
            items.append(QString("%1").arg(i, lengte, 10, QLatin1Char('w')));
        return items.join(QLatin1Char('|'));
    };
    struct Case {
        const char* naam;
        QString woorden;
        int stukken;
    };
    const Case cases[] = {
        {"empty", QString(), 1},
        {"1999 characters", lijst(181, 10) + "|" + QString(8, QLatin1Char('x')), 1},
        {"2000 characters", lijst(181, 10) + "|" + QString(9, QLatin1Char('x')), 2},
        {"three pieces", lijst(500, 10), 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.naam);
        if (QString::fromLatin1(c.naam).endsWith(u"characters")) {
            ASSERT_EQ(c.woorden.size(), c.naam[1] == '9' ? 1999 : 2000);
        }
        ScriptedPeer peer;
        peer.op("TST", "TST");
        for (int i = 0; i < c.stukken; ++i)
            peer.op("OPSVBW;<*", "OPSVBWOK");
        Werkplek dw(Werkplek::gegevens, peer.poort());
        ASSERT_TRUE(dw.verbind());
        dw.d().VerbodenWoorden = c.woorden;
        EXPECT_TRUE(dw.d().OpslaanVerbodenWoorden());
        const QStringList stukken = peer.ontvangen.mid(1);
        ASSERT_EQ(stukken.size(), c.stukken);
        QStringList terug;
        for (int i = 0; i < stukken.size(); ++i) {
            QString stuk = stukken[i].mid(8);
            EXPECT_LT(stuk.size(), 2000);
            EXPECT_EQ(stuk.startsWith(u'+'), i > 0);
            terug.append(i > 0 ? stuk.mid(1) : stuk);
        }
        // The pieces together are the list again.
        EXPECT_EQ(terug.join(QLatin1Char('|')), c.woorden);
    }
}

TEST(OpslaanTest, FavouritesParseTheirHeaderAndListAndWriteBackTheSameText) {
    struct Case {
        const char* antwoord;
        int aantal;
        int actief;
    };
    const Case cases[] = {
        {"0|Nee|Nee|Nee;<>;", 0, 0},
        {"2|Ja|Ja|Nee;<>;http://a.nl|A||ja", 1, 1}, // no "><": a single favourite
        {"2|Ja|Ja|Nee;<>;http://a.nl|A||Ja><http://b.nl|B||Nee><http://c.nl|C||JA", 3, 2},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.antwoord);
        const Favorieten f = Favorieten::uitAntwoord(QString(c.antwoord));
        EXPECT_EQ(f.Lijst.size(), c.aantal);
        EXPECT_EQ(f.actieve().size(), c.actief);
        EXPECT_EQ(f.alsTekst(), QString(c.antwoord));
    }
    EXPECT_EQ(Favorieten::uitAntwoord("1|Ja|Nee|Ja").Blokkeren, "Ja");

    // Values holding the separators or parts of them: cleaned, the favourites come back as they
    // went out, no more and no fewer.
    struct Value {
        const char* waarde;
        const char* schoon;
    };
    const Value waarden[] = {
        {"B><C", "BC"},      {"a|b", "ab"},     {"x;<>;y", "x;;y"},   {"eind;<>", "eind;"},
        {"<begin", "begin"}, {"eind>", "eind"}, {"gewoon", "gewoon"},
    };
    for (const Value& v : waarden) {
        SCOPED_TRACE(v.waarde);
        Favorieten f;
        f.Internetmodus = "1";
        f.Blokkeren = QString(v.waarde);
        f.Lijst = {{QString(v.waarde), QString(v.waarde), QString(), "Ja"},
                   {"http://b.nl", "B", QString(v.waarde), "Nee"}};
        EXPECT_EQ(f.zonderScheidingstekens(), QString(v.waarde) == QString(v.schoon) ? 0 : 4);
        EXPECT_EQ(f.Lijst[0][1], QString(v.schoon));
        EXPECT_EQ(Favorieten::uitAntwoord(f.alsTekst()), f);
    }
}
