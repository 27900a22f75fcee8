#include "tests/support/Werkplek.h"

#include <QFontMetrics>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::Werkplek;
using K = FrmTaakbalk2::Kolom;

TEST(Taakbalk2Test, TasksShareTheSpaceFromLeft220) {
    struct Case {
        int taken;
        int breedte;
    };
    const Case cases[] = {{1, 368}, {2, 184}, {3, 122}, {10, 36}, {20, 18}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.taken);
        Werkplek w(Werkplek::taakbalk);
        for (int i = 0; i < c.taken; ++i)
            w.programma(100 + i, QStringLiteral("Programma %1").arg(i));
        w.tik();
        ASSERT_EQ(c.taken, w.balk2().AantalKnoppen);
        int links = FrmTaakbalk2::TakenLinks;
        for (int i = 0; i < c.taken; ++i) {
            EXPECT_EQ(QString::number(100 + i), w.balk2().Knoppen(i, K::Actie));
            EXPECT_EQ(links, w.kolom(i, K::Links));
            EXPECT_EQ(c.breedte, w.kolom(i, K::Rechts) - w.kolom(i, K::Links));
            // Frames follow one another without a gap, each 30 wider than its title's share.
            EXPECT_EQ(links, w.kolom(i, K::KaderLinks));
            links = w.kolom(i, K::Rechts) + FrmTaakbalk2::TitelInspringing;
            EXPECT_EQ(links, w.kolom(i, K::KaderRechts));
        }
    }
}

TEST(Taakbalk2Test, TheShellsOwnWindowsNeverGetAButton) {
    Werkplek w(Werkplek::taakbalk);
    const char* titels[] = {
        "Tafelkrater", "TAFELKRATER - Bureaublad", "tafel@school",  "De Krater van de maan",
        "Rekenen",     "Tafel en stoel",           "Tafels oefenen"};
    quint64 h = 1;
    for (const char* t : titels)
        w.programma(h++, t);
    w.tik();
    EXPECT_EQ((QStringList{"Rekenen", "Tafel en stoel", "Tafels oefenen"}), w.knopTitels());
    EXPECT_EQ(3, w.balk2().AantalTaken()); // what a log-off counts as open programs
    // The hidden ones do not take a share of the space either.
    EXPECT_EQ(122, w.kolom(0, K::Rechts) - w.kolom(0, K::Links));
}

TEST(Taakbalk2Test, TheWindowInFrontIsPressedAndTheInternetPaneIsTheFirstShareOfItsWord) {
    Werkplek w(Werkplek::taakbalk);
    w.programma(1, "Tafelkrater"); // hidden, and before the others
    w.programma(2, "Een");
    w.programma(3, "Twee");
    w.vensters().active = 3;
    w.tik();
    EXPECT_EQ(1, w.balk2().ActieveKnop);
    const int getekend = w.hertekend;
    w.tik(); // a tick that changes nothing paints nothing
    EXPECT_EQ(getekend, w.hertekend);
    w.vensters().active = 1; // the shell itself in front: nothing pressed
    w.tik();
    EXPECT_EQ(-1, w.balk2().ActieveKnop);
    EXPECT_EQ(getekend + 1, w.hertekend);

    // The internet pane is a button before the tasks, pressed while no program is in front; it
    // measures its word and counts as one of the share.
    w.p.InternetOpen = FrmTaakbalk2::InternetActief;
    w.tik();
    ASSERT_EQ(3, w.balk2().AantalKnoppen);
    EXPECT_EQ("internet", w.balk2().Knoppen(0, K::Actie));
    EXPECT_EQ(0, w.balk2().ActieveKnop);
    const int woord =
        QFontMetrics(w.balk2().takenFont).horizontalAdvance(w.p.modTaal.LaadTekst(745));
    EXPECT_EQ(w.p.modTaal.LaadTekst(745), w.balk2().Knoppen(0, K::Titel));
    EXPECT_EQ(220, w.kolom(0, K::Links));
    EXPECT_EQ(220 + woord, w.kolom(0, K::Rechts));
    EXPECT_EQ(220 + woord + 30, w.kolom(1, K::Links));
    EXPECT_EQ(122, w.kolom(1, K::Rechts) - w.kolom(1, K::Links));
    EXPECT_EQ(w.kolom(1, K::Rechts) + 30, w.kolom(2, K::Links));
    w.vensters().active = 3;
    w.tik();
    EXPECT_EQ(2, w.balk2().ActieveKnop);

    // The back-to-the-desktop button stands only while the pane is in front.
    EXPECT_NE(nullptr, w.balk2().zoek("bureaublad"));
    w.p.InternetOpen = 0;
    w.tik();
    EXPECT_EQ(nullptr, w.balk2().zoek("bureaublad"));
    EXPECT_EQ(2, w.balk2().AantalKnoppen);
}

TEST(Taakbalk2Test, TheTwentyFirstTaskStopsTheDrawingWithOneReport) {
    Werkplek w(Werkplek::taakbalk);
    for (int i = 0; i < 21; ++i)
        w.programma(100 + i, QStringLiteral("Programma %1").arg(i));
    w.tik();
    EXPECT_EQ(FrmTaakbalk2::MaxKnoppen, w.balk2().AantalKnoppen);
    EXPECT_EQ("119", w.balk2().Knoppen(19, K::Actie));
    EXPECT_EQ(21, w.balk2().lstTaken2.size()); // still followed, only not drawn
    EXPECT_EQ(1, w.logboek().count("frmTaakbalk2.TekenKnop"));
    EXPECT_TRUE(w.dialogen.gesteld.isEmpty()); // nothing in the pupil's face

    w.tik();
    w.tik();
    EXPECT_EQ(1, w.logboek().count("frmTaakbalk2.TekenKnop")) << "reported once, not every tick";

    // Back to twenty: all drawn again, and a new overflow is reported anew.
    w.vensters().windows.removeLast();
    w.tik();
    EXPECT_EQ(20, w.balk2().AantalKnoppen);
    w.programma(200, "Nog een");
    w.tik();
    EXPECT_EQ(2, w.logboek().count("frmTaakbalk2.TekenKnop"));
}

TEST(Taakbalk2Test, ClicksOnTasksAndButtons) {
    Werkplek w(Werkplek::taakbalk);
    w.programma(1, "Een");
    w.programma(2, "Twee");
    w.p.InternetOpen = FrmTaakbalk2::InternetActief;
    w.tik();

    w.balk2().Form_MouseDown(w.midden(2));
    EXPECT_EQ(2, w.balk2().IngedruktKnop);
    w.balk2().Form_MouseUp(w.midden(2));
    EXPECT_EQ(-1, w.balk2().IngedruktKnop);
    EXPECT_EQ(QStringList{"activate 2"}, w.vensters().log);
    EXPECT_EQ(2, w.balk2().ActieveKnop);

    w.balk2().Form_MouseUp(w.midden(0));
    w.balk2().Form_MouseUp(w.balk2().zoek("bureaublad")->plek.center());
    w.dialogen.antwoorden << "ja"; // yes, log off with the programs open
    w.balk2().Form_MouseUp(w.balk2().zoek("afmelden")->plek.center());
    w.balk2().Form_MouseUp(w.balk2().zoek("help")->plek.center());
    EXPECT_EQ((QStringList{"InternetWeergeven", "BureaubladWeergeven", "Afmelden", "open help"}),
              w.acties);

    // A window that died since the last tick: asked, nothing happens, nothing pressed.
    w.vensters().windows.removeFirst();
    w.vensters().log.clear();
    w.balk2().ActieveKnop = -1;
    w.balk2().Form_MouseUp(w.midden(1));
    EXPECT_EQ(QStringList{"activate 1"}, w.vensters().log);
    EXPECT_EQ(-1, w.balk2().ActieveKnop);

    // Empty ground of the bar and points below it do nothing.
    w.vensters().log.clear();
    w.balk2().Form_MouseUp(QPoint(160, 20));
    w.balk2().Form_MouseUp(QPoint(w.midden(1).x(), w.balk2().Hoogte + 3));
    EXPECT_TRUE(w.vensters().log.isEmpty());
    EXPECT_EQ(4, w.acties.size());
}

TEST(Taakbalk2Test, MaintenanceButtonsOnlyWhereAskedForAndMissingScreensNamed) {
    Werkplek w(Werkplek::taakbalk);
    EXPECT_EQ(nullptr, w.balk2().zoek("onderhoud"));
    EXPECT_EQ(nullptr, w.balk2().zoek("bureaubladpictogrammen_onderhoud"));
    w.balk2().OnderhoudZichtbaar = true;
    w.balk2().PictogrammenZichtbaar = true;
    w.balk2().LadenVormgeving();
    const TaakbalkKnop* help = w.balk2().zoek("help");
    const TaakbalkKnop* onderhoud = w.balk2().zoek("onderhoud");
    const TaakbalkKnop* pictogrammen = w.balk2().zoek("bureaubladpictogrammen_onderhoud");
    ASSERT_TRUE(onderhoud && pictogrammen);
    // From the right end inwards: help, maintenance, icon positions; none over another.
    EXPECT_LT(onderhoud->plek.right(), help->plek.left());
    EXPECT_LT(pictogrammen->plek.right(), onderhoud->plek.left());
    EXPECT_FALSE(onderhoud->hint.isEmpty());
    w.balk2().Form_MouseUp(onderhoud->plek.center());
    w.balk2().Form_MouseUp(pictogrammen->plek.center());
    EXPECT_EQ((QStringList{"Onderhoud", "open bureaubladpictogrammen_onderhoud"}), w.acties);

    // Screens this workstation lacks are named, not silently ignored.
    w.p.schermen = nullptr;
    w.balk2().KnopActie("help");
    w.balk2().KnopActie("bureaubladpictogrammen_onderhoud");
    ASSERT_EQ(2, w.dialogen.gesteld.size());
    EXPECT_EQ(w.p.modTaal.LaadTekst(9542), w.dialogen.gesteld[0].tekst);
    EXPECT_EQ(w.p.modTaal.LaadTekst(9543), w.dialogen.gesteld[1].tekst);
    EXPECT_EQ(2, w.logboek().count("frmTaakbalk2.KnopActie"));
}

TEST(Taakbalk2Test, HoverFollowsTheMouseExceptOnOtherWindows) {
    Werkplek w(Werkplek::taakbalk);
    w.programma(1, "Een");
    w.programma(2, "Overige vensters...");
    w.tik();
    QPoint muis = w.midden(0);
    w.balk2().MuisPositie = [&] { return muis; };
    w.balk2().tmrMuis_Timer();
    EXPECT_EQ(0, w.balk2().HoverKnop);
    const int getekend = w.hertekend;
    muis = w.midden(1);
    w.balk2().tmrMuis_Timer();
    EXPECT_EQ(-1, w.balk2().HoverKnop);
    EXPECT_EQ(getekend + 1, w.hertekend); // the task's hover went: painted again
    muis = w.balk2().zoek("help")->plek.center();
    w.balk2().tmrMuis_Timer();
    EXPECT_TRUE(w.balk2().zoek("help")->hover);
    muis = QPoint(-1, -1); // left the bar
    w.balk2().tmrMuis_Timer();
    EXPECT_FALSE(w.balk2().zoek("help")->hover);
    EXPECT_EQ(-1, w.balk2().HoverKnop);
}

TEST(Taakbalk2Test, TheStripStandsAtTheBottomOnTopWithTheWorkAreaAboveIt) {
    Werkplek w(Werkplek::taakbalk);
    QRect geplaatst;
    w.balk2().Plaatsen = [&](const QRect& r) { geplaatst = r; };
    w.balk2().VensterPositie(768, 1024);
    EXPECT_EQ(QRect(0, 728, 1024, 40), geplaatst);
    EXPECT_EQ((QStringList{"ontop 5 1", "workarea 0,0 1024x728 on 5"}), w.vensters().log);

    // A program changed the display: the strip follows.
    w.vensters().log.clear();
    w.balk2().VensterPositie(480, 640);
    EXPECT_EQ(QRect(0, 440, 640, 40), geplaatst);
    EXPECT_EQ((QStringList{"ontop 5 1", "workarea 0,0 640x440 on 5"}), w.vensters().log);
    EXPECT_LE(w.balk2().zoek("help")->plek.right(), 640);

    // Closing the bar gives the strip back and stops following windows.
    w.vensters().log.clear();
    w.balk2().tmrTaken.start(); // as it runs while the bar stands
    w.balk2().Form_Unload();
    EXPECT_EQ(QStringList{"workarea 0,0 640x480 on 5"}, w.vensters().log);
    EXPECT_FALSE(w.balk2().tmrTaken.isActive());
    w.programma(1, "Een");
    w.tik();
    EXPECT_EQ(0, w.balk2().AantalKnoppen);
}

TEST(Taakbalk2Test, LoggingOffAsksWhileProgramsAreOpen) {
    struct Case {
        int programmas;
        const char* antwoord;
        const char* vraag; // empty: no question
        bool afgemeld;
    };
    const Case cases[] = {
        {0, "", "", true},
        {1, "nee", "There are still 1 program open.", false},
        {2, "ja", "There are still 2 programs open.", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.programmas);
        Werkplek w(Werkplek::taakbalk);
        w.p.modTaal.Taal = 1033;
        w.programma(99, "Tafelkrater"); // the shell's own: not counted
        for (int i = 0; i < c.programmas; ++i)
            w.programma(1 + i, QStringLiteral("Programma %1").arg(i));
        w.tik();
        w.dialogen.antwoorden << c.antwoord;
        w.balk2().Form_MouseUp(w.balk2().zoek("afmelden")->plek.center());
        if (*c.vraag) {
            ASSERT_EQ(1, w.dialogen.gesteld.size());
            EXPECT_TRUE(w.dialogen.gesteld[0].tekst.startsWith(c.vraag))
                << qPrintable(w.dialogen.gesteld[0].tekst);
            EXPECT_EQ("?", w.dialogen.gesteld[0].stijl);
        } else {
            EXPECT_TRUE(w.dialogen.gesteld.isEmpty());
        }
        EXPECT_EQ(c.afgemeld, w.acties.contains("Afmelden"));
    }
}

TEST(Taakbalk2Test, TheThemeGivesHeightAndPicturesOrTheDefaults) {
    Werkplek w(Werkplek::taakbalk);
    EXPECT_EQ(40, w.balk2().Hoogte); // the default theme's bar picture
    EXPECT_FALSE(w.balk2().achtergrond.isNull());
    EXPECT_EQ(QSize(16, 16), w.balk2().internetIcoon.size());
    EXPECT_EQ(QColor(255, 221, 87), w.balk2().takenGeselecteerd); // its own key of the theme
    for (const char* naam : {"afmelden", "help"}) {
        EXPECT_FALSE(w.balk2().zoek(naam)->beeld.isNull()) << naam;
        EXPECT_FALSE(w.balk2().zoek(naam)->tekst.isEmpty()) << naam;
    }
    // The fixed buttons keep clear of the tasks: left ones end before the internet icon.
    EXPECT_LT(w.balk2().zoek("afmelden")->plek.right(), FrmTaakbalk2::InternetIcoonLinks);

    // A theme without the bar's picture and colours: the defaults, no fault in the way.
    QFile::remove(w.pad("Afbeeldingen/Skins/1/Instellingen.ini"));
    w.balk2().LadenVormgeving();
    EXPECT_EQ(FrmTaakbalk2::StandaardHoogte, w.balk2().Hoogte);
    EXPECT_TRUE(w.balk2().achtergrond.isNull());
    EXPECT_TRUE(w.dialogen.gesteld.isEmpty());
}

TEST(Taakbalk2Test, TitlesAreCutWithDotsToFit) {
    const QFont font(QStringLiteral("Verdana"), 8);
    const QFontMetrics fm(font);
    struct Case {
        QString titel;
        int breedte;
    };
    const Case cases[] = {
        {"Kort", 200},
        {"Een titel die veel te lang is voor de knop", 80},
        {QString(10000, QLatin1Char('W')), 120},
        {"Iets", 3}, // not even the dots fit
        {"Iets", 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.titel.left(40).toStdString());
        const QString uit = FrmTaakbalk2::Tekentekst(c.titel, fm, c.breedte);
        EXPECT_LE(fm.horizontalAdvance(uit), qMax(0, c.breedte));
        if (fm.horizontalAdvance(c.titel) <= c.breedte) {
            EXPECT_EQ(c.titel, uit);
        } else if (!uit.isEmpty()) {
            EXPECT_TRUE(uit.endsWith("..."));
            EXPECT_TRUE(c.titel.startsWith(uit.chopped(3)));
            // As much of the title as fits: one more character would not.
            qsizetype volgende = uit.size() - 3;
            while (c.titel.at(volgende).isSpace()) // blanks before the dots are dropped
                ++volgende;
            const QString langer = c.titel.left(volgende + 1) + "...";
            EXPECT_GT(fm.horizontalAdvance(langer), c.breedte);
        }
    }
}
