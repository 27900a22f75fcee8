// The lookups, the save payloads and the deletes of modData.
#include "tests/support/ScriptedPeer.h"
#include "tests/support/Werkplek.h"

#include <gtest/gtest.h>

using namespace tk;
using tk::test::ScriptedPeer;
using tk::test::Werkplek;

namespace {

QString s(const char* t) {
    return QString::fromLatin1(t);
}

void vulRij(FixedTable& tabel, int rij, const QString& voorvoegsel) {
    for (int k = 0; k < tabel.kolommen(); ++k)
        tabel(rij, k) = voorvoegsel + QString::number(k);
}

} // namespace

TEST(ZoekenTest, LookupsTellRowZeroFromAMissOnlyWhereTheyCan) {
    Werkplek dw(Werkplek::gegevens);
    ModData& d = dw.d();
    d.Applicaties[0](0, 0) = s("5");
    d.Applicaties[0](1, 0) = s("9");
    d.Klassen(0, 0) = s("Groep 3");
    d.Klassen(0, 6) = s("3");
    d.Klassen(2, 0) = s("Achter een gat");
    d.Klassen(2, 6) = s("8");
    d.Leraren(0, 0) = s("Jansen");
    d.Leraren(4, 0) = s("Bakker");
    d.Leraren(4, 5) = s("12");
    d.Categorien[1](0, 0) = s("4");
    d.Categorien[1](3, 0) = s("07");

    struct Case {
        const char* wat;
        int uitkomst, verwacht;
    };
    const Case cases[] = {
        {"app in row 0", d.ZoekAppLijstID(0, s("5")), 0},
        {"unknown app", d.ZoekAppLijstID(0, s("77")), 0},
        {"app in row 1", d.ZoekAppLijstID(0, s("9")), 1},
        {"Ex: app in row 0", d.ZoekAppLijstIDEx(0, s("5")), 0},
        {"Ex: unknown app", d.ZoekAppLijstIDEx(0, s("77")), -1},
        {"unknown kind", d.ZoekAppLijstID(7, s("5")), 0},
        {"Ex: unknown kind", d.ZoekAppLijstIDEx(-1, s("5")), -1},
        {"class after a free row", d.ZoekLijstID(0, s("8")), 0},
        {"teacher after a free row", d.ZoekLijstID(1, s("12")), 4},
        {"category compared as a number", d.ZoekCatLijstID(1, s("7")), 3},
        {"unknown category", d.ZoekCatLijstID(1, s("99")), 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.wat);
        EXPECT_EQ(c.uitkomst, c.verwacht);
    }
    EXPECT_EQ(d.naamVan(s("GROEP"), s("3")), s("Groep 3"));
    d.Leraren(4, 6) = s("Piet");
    d.Leraren(4, 7) = s("de");
    EXPECT_EQ(d.naamVan(s("LERAAR"), s("12")), s("Bakker, Piet de"));
    EXPECT_EQ(d.naamVan(s("LERAAR"), s("13")), QString());
    // The location text of a fault report names the class.
    dw.p.modMainVerbinding->GeefLocatieDoor(s("GROEP|3"));
    EXPECT_TRUE(dw.p.modMain.Locatie.contains(s("Groep 3")));
    EXPECT_TRUE(dw.rapporten.isEmpty());
}

TEST(ZoekenTest, ApplicationsAreGroupedByCategoryInOrderOfFirstUse) {
    Werkplek dw(Werkplek::gegevens);
    ModData& d = dw.d();
    const char* const apps[][3] = {{"1", "10", ""}, {"2", "20", ""}, {"3", "10", ""}};
    for (int i = 0; i < 3; ++i) {
        d.Applicaties[0](i, 0) = s(apps[i][0]);
        d.Applicaties[0](i, 2) = s(apps[i][1]);
    }
    d.Applicaties[2](0, 0) = s("4");
    d.Applicaties[2](0, 2) = s("10");
    QStringList items{s("2><x"), s("1><y"), s("A4><z"), s("3><w")};
    d.ApplicatiesSorteren(0, items);
    EXPECT_EQ(items, (QStringList{s("20|1|2><x"), s("10|2|1><y|3><w"), s("a10|1|A4><z")}));

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
    EXPECT_EQ(dw.rapporten, QStringList{s("modData.ApplicatiesSorteren")});
}

TEST(OpslaanTest, RecordsGoOutWithTheirColumnsInTheWireOrder) {
    Werkplek dw(Werkplek::gegevens);
    ModData& d = dw.d();
    vulRij(d.Klassen, 0, s("k"));
    vulRij(d.Leraren, 0, s("l"));
    vulRij(d.Leraren, 1, s("m"));
    EXPECT_EQ(d.KlasBericht(0), s("OPSKLZk6><k0><k1><k2><k3><k4><k5><k7><k8><k10><k11><k12><k13"));
    EXPECT_EQ(d.KlasBericht(0, false),
              s("OPSKLZk6><k0><k1><k2><k3><k4><k5><k7><k8><k10><k11><k12"));
    EXPECT_EQ(d.LeraarBericht(1),
              s("OPSLRZm5><m0><m7><m6><m1><m2><m3><m4><m8><m9><m10><m11><m12><m15><m14><m16"));
    EXPECT_EQ(d.LerarenBericht(s("tekst")),
              s("OPSLRNtekst;<>;2;<>;l5><l0><l7><l6><l1><l2><l3><l4><l8><l9><l10><l11><l12><l15"
                ";<>;m5><m0><m7><m6><m1><m2><m3><m4><m8><m9><m10><m11><m12><m15"));
    d.Leraren.leegmaken();
    EXPECT_EQ(d.LerarenBericht(s("t")), s("OPSLRNt;<>;0"));
}

TEST(OpslaanTest, SavesAndDeletesWaitForTheirAnswersAndMoveLaterRowsUp) {
    ScriptedPeer peer;
    peer.op(s("TST"), s("TST"))
        .op(s("OPSKLZ*"), s("OPSKLZ31"))
        .op(s("VWNKLS5"), s("VWNKLSFOUT"))
        .op(s("VWNKLS5"), s("VWNKLSOK"))
        .op(s("VWNLRN8"), s("VWNLRNOK"))
        .op(s("OPSITSa.nl|b.nl"), s("OPSITSOK"))
        .op(s("OPSINSx;<>;y"), s("OPSINSFOUT"))
        .op(s("OPSFAVLeraar8;<>;1|Ja|Nee|Nee;<>;http://a.nl|A||Ja><http://b.nl|BC||Nee"),
            s("OPSFAVOK"));
    Werkplek dw(Werkplek::gegevens, peer.poort());
    ASSERT_TRUE(dw.verbind());
    ModData& d = dw.d();
    for (int rij = 0; rij < 3; ++rij)
        vulRij(d.Klassen, rij, QStringLiteral("r%1.").arg(rij));
    d.Klassen(0, 6) = s("kopie3");
    d.Klassen(1, 6) = s("5");
    d.Klassen(2, 13) = s("extra");
    for (int rij = 0; rij < 2; ++rij)
        vulRij(d.Leraren, rij, QStringLiteral("t%1.").arg(rij));
    d.Leraren(0, 5) = s("8");

    // A copy takes the new ID the server gives.
    EXPECT_EQ(d.OpslaanKlasRecord(0), s("31"));
    EXPECT_EQ(d.Klassen(0, 6), s("31"));
    // A refused delete changes nothing.
    EXPECT_FALSE(d.VerwijderKlas(1));
    EXPECT_EQ(d.Klassen(1, 0), s("r1.0"));
    // A delete moves the later rows up in columns 0 to 12 and blanks the last row there.
    EXPECT_TRUE(d.VerwijderKlas(1));
    EXPECT_EQ(d.Klassen(1, 0), s("r2.0"));
    EXPECT_EQ(d.Klassen(1, 12), s("r2.12"));
    EXPECT_EQ(d.Klassen(1, 13), s("r1.13"));
    EXPECT_TRUE(d.Klassen.vrij(2));
    EXPECT_EQ(d.Klassen(2, 12), QString());
    EXPECT_EQ(d.Klassen(2, 13), s("extra"));
    EXPECT_TRUE(d.VerwijderLeraar(0));
    EXPECT_EQ(d.Leraren(0, 15), s("t1.15"));
    EXPECT_EQ(d.Leraren(0, 16), s("t0.16"));
    EXPECT_TRUE(d.Leraren.vrij(1));

    d.ToegestaneSites = s("a.nl|b.nl");
    EXPECT_TRUE(d.OpslaanToegestaneSites());
    EXPECT_FALSE(d.Opslaan_Instellingen(s("x;<>;y")));
    Favorieten fav;
    fav.Internetmodus = s("1");
    fav.Thuispagina = s("Ja");
    fav.Filteren = fav.Blokkeren = s("Nee");
    fav.Lijst = {{s("http://a.nl"), s("A"), QString(), s("Ja")},
                 {s("http://b.nl"), s("B><C"), QString(), s("Nee")}};
    // A name holding the wire's separators goes out without them, and the log book says so.
    EXPECT_TRUE(d.OpslaanFavorieten(s("Leraar8"), fav));
    EXPECT_TRUE(
        dw.lees(s("Logboek/") + dw.platform.fakeClock().now().toString(s("d-M-yyyy")) + s(".txt"))
            .contains("The favourites of Leraar8: removed"));
    EXPECT_TRUE(peer.klaar());
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join(s("\n")).toStdString();

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
            items.append(QStringLiteral("%1").arg(i, lengte, 10, QLatin1Char('w')));
        return items.join(QLatin1Char('|'));
    };
    struct Case {
        const char* naam;
        QString woorden;
        int stukken;
    };
    const Case cases[] = {
        {"empty", QString(), 1},
        {"1999 characters", lijst(181, 10) + s("|") + QString(8, QLatin1Char('x')), 1},
        {"2000 characters", lijst(181, 10) + s("|") + QString(9, QLatin1Char('x')), 2},
        {"three pieces", lijst(500, 10), 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.naam);
        if (QString::fromLatin1(c.naam).endsWith(u"characters")) {
            ASSERT_EQ(c.woorden.size(), c.naam[1] == '9' ? 1999 : 2000);
        }
        ScriptedPeer peer;
        peer.op(s("TST"), s("TST"));
        for (int i = 0; i < c.stukken; ++i)
            peer.op(s("OPSVBW;<*"), s("OPSVBWOK"));
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
        const Favorieten f = Favorieten::uitAntwoord(s(c.antwoord));
        EXPECT_EQ(f.Lijst.size(), c.aantal);
        EXPECT_EQ(f.actieve().size(), c.actief);
        EXPECT_EQ(f.alsTekst(), s(c.antwoord));
    }
    EXPECT_EQ(Favorieten::uitAntwoord(s("1|Ja|Nee|Ja")).Blokkeren, s("Ja"));

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
        f.Internetmodus = s("1");
        f.Blokkeren = s(v.waarde);
        f.Lijst = {{s(v.waarde), s(v.waarde), QString(), s("Ja")},
                   {s("http://b.nl"), s("B"), s(v.waarde), s("Nee")}};
        EXPECT_EQ(f.zonderScheidingstekens(), s(v.waarde) == s(v.schoon) ? 0 : 4);
        EXPECT_EQ(f.Lijst[0][1], s(v.schoon));
        EXPECT_EQ(Favorieten::uitAntwoord(f.alsTekst()), f);
    }
}
