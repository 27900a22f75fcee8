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
const QString reg = QStringLiteral("\\Data\\Pictogrammen.ini");
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
        EXPECT_EQ(ModDataPictogrammen::leesDatum(QString::fromLatin1(c.tekst)), c.moment);
    }
}

TEST(PictogrammenTest, AGroupsListKeepsWhatIsNewerOrMissingAndDropsWhatIsGone) {
    Werkplek w;
    ModDataPictogrammen store(w.p);
    w.schrijf(QStringLiteral("Afbeeldingen/Pictogrammen/Applicaties/Algemeen/3.pic"), "drie");
    w.schrijf(QStringLiteral("Afbeeldingen/Pictogrammen/Applicaties/Algemeen/4.pic"), "vier");
    w.schrijf(QStringLiteral("Afbeeldingen/Pictogrammen/Applicaties/Algemeen/9.pic"), "weg");
    w.schrijf(QStringLiteral("Data/Pictogrammen.ini"), "[Algemeen]\nAantal=3\n1=3\n2=4\n3=9\n"
                                                       "[Algemeen3]\nWijziging=1-3-2026 10:00\n"
                                                       "[Algemeen4]\nWijziging=1-3-2026 10:00\n"
                                                       "[Algemeen9]\nWijziging=1-3-2026 10:00\n");
    // 3 unchanged, 4 newer on the server, 5 new, 9 no longer listed, "../x" not an ID.
    const QString halen = store.ControleerPictogrammen(
        QStringLiteral("3|1-3-2026 10:00><4|2-3-2026 10:00><5|1-3-2026 10:00><../x|1-1-2026"), 2);
    EXPECT_EQ(halen, QStringLiteral("4|5"));
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Aantal"), reg),
              QStringLiteral("3"));
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("3"), reg),
              QStringLiteral("5"));
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("Algemeen4"), QStringLiteral("Wijziging"), reg),
              QStringLiteral("2-3-2026 10:00"));
    EXPECT_FALSE(QFile::exists(
        w.pad(QStringLiteral("Afbeeldingen/Pictogrammen/Applicaties/Algemeen/9.pic"))));
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("Algemeen9"), QStringLiteral("Wijziging"), reg),
              QString());
    EXPECT_TRUE(QFile::exists(
        w.pad(QStringLiteral("Afbeeldingen/Pictogrammen/Applicaties/Algemeen/3.pic"))));
}

TEST(PictogrammenTest, WhenAllDatesAreEqualNothingIsFetched) {
    ScriptedPeer peer;
    peer.op(QStringLiteral("TST"), QStringLiteral("TST"))
        .op(QStringLiteral("LDNPICWIJ"),
            QStringLiteral("LDNPICWIJ1-3-2026 10:00|1-3-2026 10:00|1-3-2026 10:00|1-3-2026 10:00"));
    Werkplek w;
    w.p.maak(w.p.frmMain, w.p);
    w.p.maak(w.p.modMainVerbinding, w.p);
    w.p.modMain.ModusNetwerk = true;
    w.platform.fakeClock().setStepPerRead(100);
    w.schrijf(QStringLiteral("Data/Instellingen.ini"),
              QStringLiteral("[Instellingen]\nServerlocatie=127.0.0.1:%1\n")
                  .arg(peer.poort())
                  .toLatin1());
    w.schrijf(QStringLiteral("Data/Pictogrammen.ini"),
              "[Standaard]\nWijziging=1-3-2026 10:00\n[Groepen]\nWijziging=1-3-2026 10:00\n"
              "[Leerkrachten]\nWijziging=1-3-2026 10:00\n[Algemeen]\nWijziging=1-3-2026 10:00\n");
    w.schrijf(QStringLiteral("Afbeeldingen/Pictogrammen/standaard.icl"), "bibliotheek");
    ASSERT_TRUE(w.p.modMainVerbinding->BepaalServerlocatie());
    ASSERT_TRUE(w.p.frmMain->ServerVerbinden(true));
    ModDataPictogrammen store(w.p);
    EXPECT_TRUE(store.LaadPictogrammen());
    EXPECT_TRUE(peer.klaar());
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join(u'\n').toStdString();
    EXPECT_FALSE(QDir(w.pad(QStringLiteral("Tijdelijk"))).exists());
}

TEST(PictogrammenTest, TemporaryFoldersAndShortcutCopiesAreRemoved) {
    Werkplek w;
    ModDataPictogrammen store(w.p);
    w.schrijf(QStringLiteral("Tijdelijk/x"), "x");
    w.schrijf(QStringLiteral("Updates/y"), "y");
    w.schrijf(QStringLiteral("Afbeeldingen/Pictogrammen/Applicaties/Groepen/1.pic.lnk"), "l");
    w.schrijf(QStringLiteral("Afbeeldingen/Pictogrammen/Applicaties/Groepen/1.pic"), "p");
    store.TijdelijkeMapVerwijderen();
    store.TijdelijkePictogrammenVerwijderen();
    EXPECT_FALSE(QDir(w.pad(QStringLiteral("Tijdelijk"))).exists());
    EXPECT_FALSE(QDir(w.pad(QStringLiteral("Updates"))).exists());
    EXPECT_FALSE(QFile::exists(
        w.pad(QStringLiteral("Afbeeldingen/Pictogrammen/Applicaties/Groepen/1.pic.lnk"))));
    EXPECT_TRUE(QFile::exists(
        w.pad(QStringLiteral("Afbeeldingen/Pictogrammen/Applicaties/Groepen/1.pic"))));
}
