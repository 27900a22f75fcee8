#include "screens/taskbar/ModTaken.h"
#include "screens/taskbar/Takenlijst.h"
#include "tests/support/Werkplek.h"

#include <gtest/gtest.h>

using namespace tk;
using tk::test::Werkplek;

TEST(ModTakenTest, WhichWindowIsATask) {
    struct Case {
        const char* naam;
        bool visible;
        quint64 parent, owner;
        bool tool, app;
        QString title;
        Vensteroordeel oordeel;
    };
    const Case cases[] = {
        {"plain program", true, 0, 0, false, false, "Tekstverwerker", Vensteroordeel::Taak},
        {"owned, app window", true, 0, 7, false, true, "Opslaan als", Vensteroordeel::Taak},
        {"owned, no app bit", true, 0, 7, false, false, "Opslaan als", Vensteroordeel::Overslaan},
        {"unowned tool window", true, 0, 0, true, false, "Palet", Vensteroordeel::Overslaan},
        {"unowned tool with app bit", true, 0, 0, true, true, "Palet", Vensteroordeel::Overslaan},
        {"owned tool with app bit", true, 0, 7, true, true, "Palet", Vensteroordeel::Taak},
        {"invisible", false, 0, 0, false, false, "Verborgen", Vensteroordeel::Overslaan},
        {"with parent", true, 9, 0, false, false, "Kind", Vensteroordeel::Overslaan},
        {"empty title", true, 0, 0, false, false, "", Vensteroordeel::Overslaan},
        {"security centre", true, 0, 0, false, false, "Windows Beveiligingscentrum",
         Vensteroordeel::Sluiten},
        {"security centre, other case", true, 0, 0, false, false, "windows beveiligingscentrum",
         Vensteroordeel::Taak},
        {"invisible security centre", false, 0, 0, false, false, "Windows Beveiligingscentrum",
         Vensteroordeel::Overslaan},
        {"title of blanks", true, 0, 0, false, false, "  ", Vensteroordeel::Taak},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.naam);
        EXPECT_EQ(c.oordeel, ModTaken::acceptWindow({.handle = 1,
                                                     .visible = c.visible,
                                                     .parent = c.parent,
                                                     .owner = c.owner,
                                                     .toolWindow = c.tool,
                                                     .appWindow = c.app,
                                                     .title = c.title}));
    }
}

TEST(ModTakenTest, EnumerationKeepsOrderClosesTheSecurityCentreAndCutsLongTitles) {
    Werkplek w(Werkplek::taakbalk);
    w.programma(30, "Rekenen");
    w.programma(31, "Windows Beveiligingscentrum");
    WindowInfo dialoog = Werkplek::venster(32, "Eigenschappen");
    dialoog.owner = 30;
    w.vensters().windows.append(dialoog);
    w.programma(33, QString(10000, QLatin1Char('x')));
    w.programma(34, "Taal");

    ModTaken modTaken(w.p);
    QList<Taak> lijst{{"oud", 99}};
    EXPECT_EQ(3, modTaken.WhichWindows(lijst));
    ASSERT_EQ(3, lijst.size());
    EXPECT_EQ((Taak{"Rekenen", 30}), lijst[0]);
    EXPECT_EQ(QString(255, QLatin1Char('x')), lijst[1].titel);
    EXPECT_EQ((Taak{"Taal", 34}), lijst[2]);
    EXPECT_EQ(QStringList{"close 31"}, w.vensters().log);

    // Without a window system the list is empty and nothing is asked.
    w.vensters().isAvailable = false;
    EXPECT_EQ(0, modTaken.WhichWindows(lijst));
    EXPECT_TRUE(lijst.isEmpty());
}

TEST(ModTakenTest, KeptListFollowsTheWindowsWithoutMovingATask) {
    Werkplek w(Werkplek::taakbalk);
    Takenlijst& t = w.balk2().taken;
    const auto titels = [&] {
        QStringList uit;
        for (const Taak& taak : t.lstTaken2)
            uit << taak.titel;
        return uit;
    };
    w.programma(1, "Een");
    w.programma(2, "Twee");
    EXPECT_TRUE(t.Bijwerken());
    EXPECT_EQ((QStringList{"Een", "Twee"}), titels());

    // A newer window that the manager lists first still comes last on the bar.
    w.vensters().windows.prepend(Werkplek::venster(3, "Drie"));
    EXPECT_TRUE(t.Bijwerken());
    EXPECT_EQ((QStringList{"Een", "Twee", "Drie"}), titels());

    // A renamed task keeps its place.
    w.vensters().windows[2].title = "Twee - gewijzigd";
    EXPECT_TRUE(t.Bijwerken());
    EXPECT_EQ((QStringList{"Een", "Twee - gewijzigd", "Drie"}), titels());

    // Nothing changed: nothing to report.
    EXPECT_FALSE(t.Bijwerken());

    // A window that died between two ticks is gone at the next one; bringing it forward does
    // nothing.
    w.vensters().windows.removeAt(1);
    EXPECT_TRUE(t.Bijwerken());
    EXPECT_EQ((QStringList{"Twee - gewijzigd", "Drie"}), titels());
    EXPECT_FALSE(t.modTaken.pSetForegroundWindow(1));

    // A handle that comes back is a new task at the end.
    w.programma(1, "Een");
    t.Bijwerken();
    EXPECT_EQ((QStringList{"Twee - gewijzigd", "Drie", "Een"}), titels());
}

TEST(ModTakenTest, IconsAreFetchedOnceAndAskedAgainWhileMissing) {
    Werkplek w(Werkplek::taakbalk);
    Takenlijst& t = w.balk2().taken;
    w.programma(1, "Met icoon");
    w.programma(2, "Zonder icoon");
    QImage rood(16, 16, QImage::Format_ARGB32);
    rood.fill(Qt::red);
    w.vensters().icons.insert(1, rood);
    t.Bijwerken();
    EXPECT_EQ(rood, t.icoon(1));
    EXPECT_TRUE(t.icoon(2).isNull());

    // The program sets its icon later: it shows within a few ticks.
    w.vensters().icons.insert(2, rood);
    bool gekomen = false;
    for (int i = 0; i < Takenlijst::IcoonOpnieuw && !gekomen; ++i)
        gekomen = t.Bijwerken() && !t.icoon(2).isNull();
    EXPECT_TRUE(gekomen);

    // A closed window's icon goes with it.
    w.vensters().windows.removeFirst();
    t.Bijwerken();
    EXPECT_TRUE(t.icoon(1).isNull());
}
