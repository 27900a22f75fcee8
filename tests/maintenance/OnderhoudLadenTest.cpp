// What the module reads when it is entered (the lists of its panels in their order, the themes,
// the icon library), and the double click that makes eight classes on the real server.
#include "screens/maintenance/OnderhoudServer.h"
#include "tests/maintenance/OnderhoudWerkplek.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::OnderhoudPlek;
using tk::test::ScriptedPeer;

TEST(OnderhoudLadenTest, EntryReadsThePanelsListsInOrderThenTheThemesAndTheIcons) {
    ScriptedPeer peer;
    tk::test::binnenkomst(peer);
    OnderhoudPlek plek(peer.poort());
    QDir().mkpath(plek.ws.pad("Afbeeldingen/Pictogrammen"));
    ASSERT_TRUE(
        QFile::copy(TK_STANDARD_ICL, plek.ws.pad("Afbeeldingen/Pictogrammen/standaard.icl")));
    ASSERT_TRUE(plek.verbindKaal());
    ASSERT_TRUE(plek.betreed());
    // Every message in the order of the script, none unexpected.
    EXPECT_TRUE(peer.klaar());
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();
    FrmOnderhoud& f = plek.f();
    EXPECT_EQ(f.WindowsAccounts, QStringList({"GROEP1", "GROEP2"}));
    using Paren = QList<std::pair<QString, QString>>;
    EXPECT_EQ(f.WindowsGroepen, Paren({{"[GLOBAAL] Domain Users", "g"},
                                       {"[GLOBAAL] Leraren", "g"},
                                       {"[LOKAAL] Gebruikers", "l"}}));
    EXPECT_EQ(f.Aanmeldscripts, QStringList({"\\\\srv\\a.bat", "b.cmd"}));
    auto* server = dynamic_cast<OnderhoudServer*>(f.paneel(FrmOnderhoud::PServer));
    ASSERT_TRUE(server);
    EXPECT_EQ(server->cmbBackup.size(), 1);
    EXPECT_EQ(f.Stationsletters.size(), 23);
    EXPECT_EQ(f.Stationsletters.value(0), "D:");
    EXPECT_EQ(f.Stationsletters.value(22), "Z:");
    ASSERT_EQ(f.Kleurdiepten.size(), 5);
    EXPECT_EQ(f.Kleurdiepten.last().second, 32);
    EXPECT_TRUE(f.Resoluties.contains("1024x768"));
    // Openen: the theme of the workstation by its name, the standard library's icons.
    ASSERT_FALSE(f.ThemaLijst.isEmpty());
    EXPECT_EQ(f.ThemaLijst.first().first, "1");
    EXPECT_NE(f.ThemaLijst.first().second, "1") << "the theme's own name";
    EXPECT_FALSE(f.PictogramLijst.isEmpty());
    EXPECT_EQ(f.Pictogrammen.keys.size(), f.PictogramLijst.size());
}

#ifdef TK_SERVER_PAD
using OnderhoudKlassenE2ETest = tk::test::OnderhoudServerTest;

TEST_F(OnderhoudKlassenE2ETest, ADoubleClickOnTheClassesPanelMakesEightClassesOnTheServer) {
    Programma& p = binnen->p();
    FrmOnderhoud& f = binnen->f();
    auto& dialogen = binnen->ws.dialogen;
    // What a second workstation reads from the server (the demo school has eight groups too).
    ModData& d = *nieuw->p().modData;
    const auto groepen = [&] {
        d.LaadKlassen();
        QStringList uit;
        for (int r = 0; r < ModData::KlassenRijen && !d.Klassen(r, 0).isEmpty(); ++r)
            uit << d.Klassen(r, 0) + "/" + d.Klassen(r, 1) + "/" + d.Klassen(r, 2) + "/" +
                       d.Klassen(r, 4).toUpper(); // the server keeps accounts lower-cased
        return uit;
    };
    const QStringList voor = groepen();
    // Elsewhere than on the classes panel, or with "No", nothing happens.
    f.picMenuItem_DblClick(FrmOnderhoud::PLeraren);
    dialogen.antwoorden = {"nee"};
    f.picMenuItem_DblClick(FrmOnderhoud::PKlassen);
    EXPECT_TRUE(p.modData->Klassen(0, 0).isEmpty());
    // "Yes", and yes to each account the server does not know.
    dialogen.gesteld.clear();
    dialogen.antwoorden = QStringList(9, "ja");
    f.picMenuItem_DblClick(FrmOnderhoud::PKlassen);
    ASSERT_FALSE(dialogen.gesteld.isEmpty());
    EXPECT_EQ(dialogen.gesteld[0].tekst, p.modTaal.LaadTekst(3378));
    EXPECT_EQ(dialogen.gesteld[0].stijl, "?");

    const QStringList na = groepen();
    ASSERT_EQ(na.size(), voor.size() + 8) << na.join(", ").toStdString();
    EXPECT_EQ(na[voor.size()], "Groep 1/1/1a.jpg/GROEP1");
    EXPECT_EQ(na.last(), "Groep 8/8/8a.jpg/GROEP8");
    EXPECT_EQ(nieuw->ws.vraag("ACDCONGROEP8"), "JA") << "the account was made";
}
#endif
