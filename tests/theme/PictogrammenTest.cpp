#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "tests/support/ScriptedPeer.h"
#include "tests/support/Werkplek.h"
#include "theme/ModDataPictogrammen.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::ScriptedPeer;
using tk::test::Werkplek;

namespace {
const QString reg = "\\Data\\Pictogrammen.ini";
}

TEST(PictogrammenTest, DatesReadInTheirFormAndAnUnreadableOneIsOld) {
    struct Case {
        const char* tekst;
        QDateTime moment;
    };
    const Case cases[] = {
        {"9-3-2026 08:30", QDateTime(QDate(2026, 3, 9), QTime(8, 30))},
        {"1-1-2004 0:00", QDateTime(QDate(2004, 1, 1), QTime(0, 0))},
        {"31-12-2025 23:59:10", QDateTime(QDate(2025, 12, 31), QTime(23, 59, 10))},
        {"gisteren", QDateTime(QDate(1900, 1, 1), QTime(0, 0))},
        {"", QDateTime(QDate(1900, 1, 1), QTime(0, 0))},
        {"32-1-2020 10:00", QDateTime(QDate(1900, 1, 1), QTime(0, 0))},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.tekst);
        EXPECT_EQ(ModDataPictogrammen::leesDatum(c.tekst), c.moment);
    }
}

TEST(PictogrammenTest, IconFilesKeepWhatIsNewerOrMissingAndLoseWhatIsGoneOrTemporary) {
    Werkplek w;
    ModDataPictogrammen store(w.p);
    w.schrijf("Afbeeldingen/Pictogrammen/Applicaties/Algemeen/3.pic", "drie");
    w.schrijf("Afbeeldingen/Pictogrammen/Applicaties/Algemeen/4.pic", "vier");
    w.schrijf("Afbeeldingen/Pictogrammen/Applicaties/Algemeen/9.pic", "weg");
    w.schrijf("Data/Pictogrammen.ini", "[Algemeen]\nAantal=3\n1=3\n2=4\n3=9\n"
                                       "[Algemeen3]\nWijziging=1-3-2026 10:00\n"
                                       "[Algemeen4]\nWijziging=1-3-2026 10:00\n"
                                       "[Algemeen9]\nWijziging=1-3-2026 10:00\n");
    // 3 unchanged, 4 newer on the server, 5 new, 9 no longer listed, "../x" not an ID.
    const QString halen = store.ControleerPictogrammen(
        "3|1-3-2026 10:00><4|2-3-2026 10:00><5|1-3-2026 10:00><../x|1-1-2026", 2);
    EXPECT_EQ(halen, "4|5");
    EXPECT_EQ(w.p.modMain.LeesIni("Algemeen", "Aantal", reg), "3");
    EXPECT_EQ(w.p.modMain.LeesIni("Algemeen", "3", reg), "5");
    EXPECT_EQ(w.p.modMain.LeesIni("Algemeen4", "Wijziging", reg), "2-3-2026 10:00");
    EXPECT_FALSE(QFile::exists(w.pad("Afbeeldingen/Pictogrammen/Applicaties/Algemeen/9.pic")));
    EXPECT_EQ(w.p.modMain.LeesIni("Algemeen9", "Wijziging", reg), QString());
    EXPECT_TRUE(QFile::exists(w.pad("Afbeeldingen/Pictogrammen/Applicaties/Algemeen/3.pic")));

    // The temporary folders and the shortcut copies of icons go.
    w.schrijf("Tijdelijk/x", "x");
    w.schrijf("Updates/y", "y");
    w.schrijf("Afbeeldingen/Pictogrammen/Applicaties/Groepen/1.pic.lnk", "l");
    w.schrijf("Afbeeldingen/Pictogrammen/Applicaties/Groepen/1.pic", "p");
    store.TijdelijkeMapVerwijderen();
    store.TijdelijkePictogrammenVerwijderen();
    EXPECT_FALSE(QDir(w.pad("Tijdelijk")).exists());
    EXPECT_FALSE(QDir(w.pad("Updates")).exists());
    EXPECT_FALSE(QFile::exists(w.pad("Afbeeldingen/Pictogrammen/Applicaties/Groepen/1.pic.lnk")));
    EXPECT_TRUE(QFile::exists(w.pad("Afbeeldingen/Pictogrammen/Applicaties/Groepen/1.pic")));
}

TEST(PictogrammenTest, WhenAllDatesAreEqualNothingIsFetched) {
    ScriptedPeer peer;
    peer.op("TST", "TST")
        .op("LDNPICWIJ", "LDNPICWIJ1-3-2026 10:00|1-3-2026 10:00|1-3-2026 10:00|1-3-2026 10:00");
    Werkplek w(peer.poort(), Werkplek::Rol::Netwerk);
    w.schrijf("Data/Pictogrammen.ini",
              "[Standaard]\nWijziging=1-3-2026 10:00\n[Groepen]\nWijziging=1-3-2026 10:00\n"
              "[Leerkrachten]\nWijziging=1-3-2026 10:00\n[Algemeen]\nWijziging=1-3-2026 10:00\n");
    w.schrijf("Afbeeldingen/Pictogrammen/standaard.icl", "bibliotheek");
    ASSERT_TRUE(w.verbind());
    ModDataPictogrammen store(w.p);
    EXPECT_TRUE(store.LaadPictogrammen());
    EXPECT_TRUE(peer.klaar());
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join(u'\n').toStdString();
    EXPECT_FALSE(QDir(w.pad("Tijdelijk")).exists());
}
