// What the module reads when it is entered: the lists of its panels in their order, the themes,
// the icon library.
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
