#include "screens/ScreenRouter.h"
#include "screens/desktop/FrmBureaubladBeelden.h"
#include "screens/start/FrmMain.h"
#include "screens/taskbar/FrmTaakbalk1.h"
#include "screens/taskbar/FrmTaakbalk2.h"
#include "tests/support/OpnameSchermen.h"
#include "tests/support/Werkplek.h"

#include <QFontMetrics>
#include <QSettings>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::OpnameSchermen;
using tk::test::Werkplek;

namespace {

QString ids(int van, int tot, const QString& voor = "") {
    QStringList l;
    for (int i = van; i <= tot; ++i)
        l << voor + QString::number(i);
    return l.join('|');
}

} // namespace

TEST(BureaubladRasterTest, SixColumnsOfSixThenThreeOfThreeAndNoPlaceBeyond) {
    struct Case {
        int n, links, boven;
    };
    const Case cases[] = {
        {0, 56, 170},   {5, 56, 560},   {6, 154, 170},  {35, 546, 560}, {36, 644, 170},
        {38, 644, 326}, {39, 742, 170}, {44, 840, 326}, {45, 0, 0},     {-1, 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.n);
        EXPECT_EQ(FrmBureaublad::RasterPlek(c.n), QPoint(c.links, c.boven));
    }
}

TEST(BureaubladTest, FortySixItemsPutTheLastOneAtTheOrigin) {
    Werkplek w(Werkplek::bureaublad);
    for (int i = 0; i < 46; ++i)
        w.applicatie(0, i, QString::number(i + 1), "App " + QString::number(i + 1));
    w.klas(0, "Groep 1", "12", ids(1, 46), "Nee");
    w.b().Openen(0, "12");

    ASSERT_EQ(w.b().zichtbareIconen.size(), 46);
    EXPECT_EQ(w.plek(44), QPoint(840, 326));
    EXPECT_EQ(w.plek(45), QPoint(0, 0));
    EXPECT_EQ(w.b().Iconen(45, FrmBureaublad::KolomSleutel), "46");
    EXPECT_EQ(w.b().Iconen(45, FrmBureaublad::KolomLinks), "0");
    EXPECT_EQ(w.b().subKop, w.p.modTaal.LaadTekst(721));
    EXPECT_EQ(w.b().kop, "Groep 1");
    EXPECT_TRUE(w.p.BureaubladOpen);
    // The places were asked for this class, by its letter and ID.
    EXPECT_TRUE(w.kanaal.verstuurd.contains("LDNAPPPOSK12"));
}

TEST(BureaubladTest, EmptyItemsAndPlacesBeyondAnyScreenKeepTheGridUnlessPlacesAreStored) {
    Werkplek w(Werkplek::bureaublad);
    for (int i = 0; i < 3; ++i)
        w.applicatie(0, i, QString::number(i + 1), "App");

    w.klas(0, "Groep 1", "12", "1|leeg||2", "Nee");
    w.b().Openen(0, "12");
    EXPECT_EQ(w.plek(0), FrmBureaublad::RasterPlek(0));
    EXPECT_EQ(w.icoon(1), nullptr);
    EXPECT_EQ(w.b().Iconen(1, FrmBureaublad::KolomSleutel), "");
    EXPECT_EQ(w.plek(3), FrmBureaublad::RasterPlek(3));

    // With stored places the hole takes no place: the unplaced item gets the first one.
    w.klas(1, "Groep 2", "13", "1|leeg|2|3", "Nee");
    w.posities("K13", "1|k|300x400><3|k|500x200");
    w.b().Openen(0, "13");
    EXPECT_EQ(w.plek(0), QPoint(285, 400));
    EXPECT_EQ(w.plek(2), FrmBureaublad::RasterPlek(0));
    EXPECT_EQ(w.plek(3), QPoint(485, 200));

    // A damaged record from the server: places at the ends of the number range would run the
    // icon's and its name's pixel sums past what an int holds; they take places of the grid.
    w.klas(2, "Groep 3", "14", "1|2|3", "Nee");
    w.posities("K14", "1|k|-2147483648x100><2|k|2147483647x2147483647><3|k|300x400");
    w.b().Openen(0, "14");
    EXPECT_EQ(w.b().posApplicatie.size(), 1);
    EXPECT_EQ(w.plek(0), FrmBureaublad::RasterPlek(0));
    EXPECT_EQ(w.plek(1), FrmBureaublad::RasterPlek(1));
    EXPECT_EQ(w.plek(2), QPoint(285, 400));
    ASSERT_NE(w.icoon(1), nullptr);
    EXPECT_GT(w.icoon(1)->tekst.width(), 0);
}

TEST(BureaubladTest, StoredPlacesMatchKindAndIdAndBadItemsAreLeftOut) {
    Werkplek w(Werkplek::bureaublad);
    w.applicatie(1, 0, "4", "Eigen");
    w.applicatie(2, 0, "4", "Algemeen");
    w.leraar(0, "Vries", "Jan", "de", "21", "appel", "4| a4 |cdrom");
    w.posities("L21", "4|a|600x300><4|l|700x100><zes|l|1x1><5|l|10y10><4|k|15x15");
    w.b().Openen(1, "21");

    EXPECT_EQ(w.b().posApplicatie.size(), 3);
    EXPECT_EQ(w.plek(0), QPoint(685, 100));
    EXPECT_EQ(w.plek(1), QPoint(585, 300));
    EXPECT_EQ(w.b().Iconen(1, FrmBureaublad::KolomSleutel), "4a");
    // The drive item has no stored place: the first place of the grid.
    EXPECT_EQ(w.plek(2), FrmBureaublad::RasterPlek(0));
    EXPECT_TRUE(w.b().Iconen(2, FrmBureaublad::KolomSleutel).startsWith("cdrom"));
    EXPECT_EQ(w.icoon(2)->regels, QStringList{w.p.modTaal.LaadTekst(723)});
}

TEST(BureaubladTest, IconReferencesThatCannotBeDrawnShowTheBlankPicture) {
    Werkplek w(Werkplek::bureaublad);
    const QImage geen = FrmBureaubladBeelden::Geen();
    w.applicatie(0, 0, "1", "Goed", "standaard|3");
    w.applicatie(0, 1, "2", "Te groot", "standaard|999");
    w.applicatie(0, 2, "3", "Geen getal", "standaard|abc");
    w.applicatie(0, 3, "4", "Onbekend", "iets|anders");
    w.applicatie(0, 4, "5", "Leeg", "");
    w.applicatie(0, 5, "6", "Eigen zonder bestand", "eigen");
    w.klas(0, "Groep 1", "12", ids(1, 6) + "|99", "Nee");
    w.b().Openen(0, "12");

    ASSERT_EQ(w.b().zichtbareIconen.size(), 7);
    EXPECT_NE(w.icoon(0)->plaatje, geen);
    EXPECT_FALSE(w.icoon(0)->plaatje.isNull());
    for (int rij = 1; rij <= 5; ++rij) {
        SCOPED_TRACE(rij);
        EXPECT_EQ(w.icoon(rij)->plaatje, geen);
    }
    // An unknown ID shows the first application in its place.
    EXPECT_EQ(w.icoon(6)->regels.join(' '), "Goed");

    // The missing own icon is fetched again at the next start.
    QSettings ini(w.pad("Data/Pictogrammen.ini"), QSettings::IniFormat);
    EXPECT_EQ(ini.value("Groepen/Wijziging").toString(), "1-1-2000 0:00");
    EXPECT_EQ(ini.value("Groep6/Wijziging").toString(), "1-1-2000 0:00");
}

TEST(BureaubladTest, AnOwnIconIsCopiedToItsShortcutAndADesktopEntryShowsTheEntrysIcon) {
    Werkplek w(Werkplek::bureaublad);
    QDir().mkpath(w.pad("Afbeeldingen/Pictogrammen/Applicaties/Algemeen"));
    QFile::copy(QStringLiteral(TK_STANDARD_ICL),
                w.pad("Afbeeldingen/Pictogrammen/Applicaties/Algemeen/8.pic"));
    QImage rood(48, 48, QImage::Format_ARGB32);
    rood.fill(QColor(220, 20, 20));
    ASSERT_TRUE(rood.save(w.pad("rood.png")));
    w.schrijf("Afbeeldingen/Pictogrammen/Applicaties/Groepen/9.pic",
              "[Desktop Entry]\nType=Application\nName=Rood\nExec=/bin/true\nIcon=" +
                  w.pad("rood.png").toUtf8() + "\n");
    w.applicatie(2, 0, "8", "Eigen", "eigen");
    w.applicatie(0, 0, "9", "Rood", "eigen");
    w.klas(0, "Groep 1", "12", "a8|9", "Nee");
    w.b().Openen(0, "12");
    EXPECT_TRUE(QFile::exists(w.pad("Afbeeldingen/Pictogrammen/Applicaties/Algemeen/8.pic.lnk")));
    ASSERT_EQ(w.b().zichtbareIconen.size(), 2);
    EXPECT_NE(w.icoon(0)->plaatje, FrmBureaubladBeelden::Geen());
    const QImage beeld = w.icoon(1)->plaatje;
    ASSERT_EQ(beeld.size(), QSize(32, 32));
    EXPECT_EQ(QColor(beeld.pixel(16, 16)).red(), 220);
}

TEST(BureaubladTest, NamesBreakAtTwelveCharactersCentredUnderTheIcon) {
    Werkplek w(Werkplek::bureaublad);
    w.applicatie(0, 0, "1", "Rekenen met breuken");
    w.applicatie(0, 1, "2", "Klok");
    w.klas(0, "Groep 1", "12", "1|2", "Nee");
    w.b().Openen(0, "12");

    const auto* lang = w.icoon(0);
    EXPECT_EQ(lang->regels, (QStringList{"Rekenen met", "breuken"}));
    const auto* kort = w.icoon(1);
    const QFontMetrics fm(w.b().icoonFont);
    const QPoint ic = kort->beeld.topLeft();
    EXPECT_EQ(kort->tekst.left(), ic.x() + 16 - fm.horizontalAdvance("Klok") / 2);
    EXPECT_EQ(kort->tekst.top(), ic.y() + 36);
    EXPECT_EQ(w.b().Iconen(1, FrmBureaublad::KolomTekstBoven), QString::number(ic.y() + 36));
}

TEST(BureaubladTest, HoverHighlightsTheNameAndTheTooltipTellsWhatItIs) {
    Werkplek w(Werkplek::bureaublad);
    w.d().Categorien[0](0, 0) = "5";
    w.d().Categorien[0](0, 1) = "Rekenen";
    w.d().Categorien[0](1, 0) = "6";
    w.d().Categorien[0](1, 1) = "Taal";
    w.applicatie(0, 0, "1", "Woorden", "standaard|1", "/bin/true",
                 "Oefenen met woorden en zinnen voor groep drie en vier", "6");
    w.applicatie(0, 1, "2", "Sommen", "standaard|1", "/bin/true", "-", "5");
    w.klas(0, "Groep 1", "12", "1|2", "Ja");
    w.b().Openen(0, "12");
    auto& b = w.b();

    const QPoint op = w.plek(0) + QPoint(10, 10);
    b.Form_MouseMove(op.x(), op.y());
    EXPECT_EQ(b.Iconen(0, FrmBureaublad::KolomHover), "ja");
    EXPECT_TRUE(b.tmrTooltip.isActive());
    b.tmrTooltip_Timer();
    ASSERT_TRUE(b.picTooltipZichtbaar);
    EXPECT_EQ(b.tooltipRegels.mid(0, 2), (QStringList{"Woorden", "Categorie: Taal"}));
    EXPECT_GT(b.tooltipRegels.size(), 2);
    EXPECT_GE(b.picTooltipPlek.x(), w.plek(0).x() + 32);

    // Over the text of the second: the first goes back, the tooltip goes.
    const auto* tweede = w.icoon(1);
    b.Form_MouseMove(tweede->tekst.center().x(), tweede->tekst.center().y());
    EXPECT_EQ(b.Iconen(0, FrmBureaublad::KolomHover), "nee");
    EXPECT_EQ(b.Iconen(1, FrmBureaublad::KolomHover), "ja");
    EXPECT_FALSE(b.picTooltipZichtbaar);
    b.tmrTooltip_Timer();
    // A description of "-" is left out.
    EXPECT_EQ(b.tooltipRegels, (QStringList{"Sommen", "Categorie: Rekenen"}));

    // The internet icon has no tooltip; empty ground stops the timer.
    b.Form_MouseMove(925, 250);
    b.tmrTooltip_Timer();
    EXPECT_FALSE(b.picTooltipZichtbaar);
    b.Form_MouseMove(5, 700);
    EXPECT_FALSE(b.tmrTooltip.isActive());
    EXPECT_EQ(b.Iconen(2, FrmBureaublad::KolomHover), "nee");
}

TEST(BureaubladTest, LeftClickStartsTheApplicationAndCountsTheStart) {
    Werkplek w(Werkplek::bureaublad);
    auto& started = w.platform.fakeProcesses().started;
    w.applicatie(0, 0, "1", "Eigen", "standaard|1", "/bin/true");
    w.applicatie(2, 0, "7", "Algemeen", "standaard|1", "/bin/echo");
    w.klas(0, "Groep 1", "12", "1|a7", "Nee");
    w.b().Openen(0, "12");
    const QPoint eerste = w.plek(0) + QPoint(5, 5), tweede = w.plek(1) + QPoint(5, 5);

    w.b().Form_MouseUp(2, eerste.x(), eerste.y());
    w.b().Form_MouseUp(1, 1000, 700);
    EXPECT_TRUE(started.isEmpty());

    // A left click starts and counts the item of its kind (the guard is the launcher's).
    w.b().Form_MouseUp(1, eerste.x(), eerste.y());
    w.later();
    w.b().Form_MouseUp(1, tweede.x(), tweede.y());
    ASSERT_EQ(started.size(), 2);
    EXPECT_TRUE(started[0].startsWith("/bin/true"));
    EXPECT_TRUE(started[1].startsWith("/bin/echo"));
    EXPECT_EQ(w.kanaal.verstuurd.filter("OPSTEL"), QStringList({"OPSTEL1|12|0", "OPSTEL7|12|2"}));
}

TEST(BureaubladTest, TheInternetIconOnlyForAnOwnerWithInternetOpensItsBrowserOrSaysItIsNotThere) {
    Werkplek w(Werkplek::bureaublad);
    w.applicatie(0, 0, "1", "App");
    w.klas(0, "Zonder", "12", "1", "Nee");
    w.klas(1, "Met", "13", "1", "Ja");
    w.b().Openen(0, "12");
    EXPECT_EQ(w.b().zichtbareIconen.size(), 1);
    EXPECT_EQ(w.b().Iconen(1, FrmBureaublad::KolomSleutel), "");
    EXPECT_EQ(w.b().subKop, ""); // one item: no invitation in the sub-header

    w.b().Openen(0, "13");
    ASSERT_EQ(w.b().zichtbareIconen.size(), 2);
    EXPECT_EQ(w.b().Iconen(1, FrmBureaublad::KolomSleutel), w.p.modTaal.LaadTekst(745));
    EXPECT_EQ(w.plek(1), QPoint(920, 248));
    const auto* internet = w.icoon(1);
    EXPECT_EQ(internet->beeld.size(), QSize(31, 31));
    EXPECT_EQ(internet->tekst.top(), 284);
    EXPECT_NEAR(internet->tekst.center().x(), 935, 1);
    EXPECT_EQ(w.b().favorietenEigenaar(), "Groep13");

    // A workstation without the browser says so and logs it.
    w.b().Form_MouseUp(1, 930, 260);
    EXPECT_EQ(w.meldingen(), QStringList{w.p.modTaal.LaadTekst(9540)});
    EXPECT_FALSE(w.b().Internetstand);
    EXPECT_EQ(w.p.InternetOpen, 0);
    EXPECT_FALSE(QDir(w.pad("Logboek")).entryList(QDir::Files).isEmpty());

    OpnameSchermen schermen;
    w.p.schermen = &schermen;
    w.b().Form_MouseUp(1, 930, 260);
    EXPECT_EQ(w.meldingen().size(), 1);
    EXPECT_TRUE(w.b().Internetstand);
    EXPECT_EQ(w.p.InternetOpen, FrmTaakbalk2::InternetActief);
    w.b().BureaubladWeergeven();
    EXPECT_FALSE(w.b().Internetstand);
    EXPECT_EQ(schermen.log, (QStringList{"internet", "internet verbergen"}));
}

TEST(BureaubladTest, BackgroundFallsBackForAClassOnlyAndNoneMeansNone) {
    Werkplek w(Werkplek::bureaublad);
    w.klas(0, "Bestaat", "1", "", "Nee", "Zee.jpg");
    w.klas(1, "Ontbreekt", "2", "", "Nee", "Weg.jpg");
    w.klas(2, "Geen", "3", "", "Nee", "Geen");
    w.leraar(0, "Jansen", "Petra", "", "21", "peer");
    w.d().Leraren(0, 2) = "Weg.jpg";

    for (const char* id : {"1", "2"}) {
        w.b().Openen(0, id);
        SCOPED_TRACE(id);
        EXPECT_EQ(w.b().achtergrond.size(), QSize(1024, 768 - FrmBureaublad::KopHoogte));
    }
    w.b().Openen(0, "3");
    EXPECT_TRUE(w.b().achtergrond.isNull());
    w.b().Openen(1, "21");
    EXPECT_TRUE(w.b().achtergrond.isNull());
}

TEST(BureaubladAanmeldenTest, TheListNamesEveryTeacherOrSaysThereAreNone) {
    Werkplek w(Werkplek::bureaublad);
    w.b().Openen(2, "");
    EXPECT_TRUE(w.b().picAanmeldenZichtbaar);
    EXPECT_EQ(w.b().cmbAanmelden, QStringList{w.p.modTaal.LaadTekst(719)});
    EXPECT_EQ(w.b().cmbAanmeldenIndex, -1);
    w.b().knopAanmelden_Click();
    EXPECT_TRUE(w.b().picAanmeldenZichtbaar);

    w.leraar(0, "Vries", "Jan", "de", "21", "appel");
    w.leraar(1, "Jansen", "Petra", "", "22", "peer");
    w.b().Openen(2, "");
    EXPECT_EQ(w.b().cmbAanmelden, (QStringList{"Vries, Jan de", "Jansen, Petra"}));
    EXPECT_EQ(w.b().cmbAanmeldenIndex, 0);
    EXPECT_FALSE(w.b().imgAanmelden.isNull());
    EXPECT_TRUE(w.b().zichtbareIconen.isEmpty());
    // The header of a teacher's desktop leaves out an empty middle name too.
    w.b().Openen(1, "22");
    EXPECT_EQ(w.b().kop, "Petra Jansen");
}

TEST(BureaubladAanmeldenTest, PasswordDecisions) {
    struct Case {
        const char* naam;
        const char* opgeslagen;
        const char* getypt;
        bool netwerk;
        const char* rechten;
        int melding; // 0: none, the desktop opens
    };
    const Case cases[] = {
        {"exact", "appel", "appel", false, "", 0},
        {"case counts", "appel", "Appel", false, "", 709},
        {"blank counts", "appel", "appel ", false, "", 709},
        {"empty against empty", "", "", false, "", 0},
        {"empty against a password", "appel", "", false, "", 709},
        {"network without rights", "appel", "appel", true, "Nee", 707},
        {"network with rights", "appel", "appel", true, "ja", 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.naam);
        Werkplek w(Werkplek::bureaublad);
        w.applicatie(1, 0, "3", "Lesprogramma");
        w.leraar(0, "Jansen", "Petra", "", "21", "peer");
        w.leraar(1, "Vries", "Jan", "de", "22", c.opgeslagen, "3", "jvries");
        w.p.modMain.ModusNetwerk = c.netwerk;
        w.p.maak(w.p.modMainVerbinding, w.p); // offline: the place is noted, not sent
        w.kanaal.verbonden = false;
        QDir().mkpath(w.pad("Data"));
        if (*c.rechten)
            w.p.modMain.SchrijfIni(c.rechten, "jvries", "Administratorrechten",
                                   "\\Data\\Instellingen.ini");
        w.b().Openen(2, "");
        w.b().cmbAanmelden_Click(1);
        w.b().txtWachtwoord = c.getypt;
        w.b().txtWachtwoord_KeyPress(13);
        if (c.melding == 0) {
            EXPECT_TRUE(w.meldingen().isEmpty()) << w.meldingen().join('/').toStdString();
            EXPECT_FALSE(w.b().picAanmeldenZichtbaar);
            EXPECT_EQ(w.b().Weergave, 1);
            EXPECT_EQ(w.b().Eigenaar, 1);
            EXPECT_EQ(w.b().kop, "Jan de Vries");
            EXPECT_EQ(w.b().zichtbareIconen.size(), 1);
            // The server is told where the teacher is: on the desktop, not in maintenance.
            EXPECT_EQ(w.p.modMain.Locatie, "Desktop, Teacher:  (22)");
        } else {
            QString tekst = w.p.modTaal.LaadTekst(c.melding);
            tekst.replace("%account%", "jvries");
            EXPECT_EQ(w.meldingen(), QStringList{tekst});
            EXPECT_TRUE(w.b().picAanmeldenZichtbaar);
            EXPECT_EQ(w.b().Eigenaar, -1);
            EXPECT_EQ(w.p.modMain.Locatie, "");
            if (c.melding == 709) {
                EXPECT_EQ(w.b().txtWachtwoord, "");
            }
        }
    }
}

TEST(BureaubladOnderhoudTest, WithoutTheModuleTheTeacherIsToldAndTheLogSaysWhy) {
    Werkplek w(Werkplek::bureaublad);
    w.klas(0, "Groep 1", "12", "", "Nee");
    w.klas(1, "Groep 2", "13", "", "Nee");
    w.leraar(0, "Vries", "Jan", "de", "22", "appel");
    w.d().Leraren(0, 10) = "13|99|12";
    // Only a teacher's desktop leads to the module; a class's says nothing.
    w.b().Openen(0, "12");
    w.b().Onderhoud();
    EXPECT_TRUE(w.meldingen().isEmpty());
    w.b().Openen(1, "22");
    w.b().Onderhoud();
    EXPECT_EQ(w.meldingen(), QStringList{w.p.modTaal.LaadTekst(9541)});
    EXPECT_FALSE(QDir(w.pad("Logboek")).entryList(QDir::Files).isEmpty());

    OpnameSchermen schermen;
    w.p.schermen = &schermen;
    w.b().Onderhoud();
    EXPECT_EQ(schermen.log, QStringList{"onderhoud 0:1,0"});
    EXPECT_EQ(w.b().ballonTekst, w.p.modTaal.LaadTekst(710));
}

TEST(BureaubladStartschermTest, AClassClickOpensItsDesktopAndLogOffBringsTheSchoolBack) {
    Werkplek w(Werkplek::bureaublad);
    w.kopieer(QStringLiteral(TK_DEFAULT_THEME), QStringLiteral("Afbeeldingen/Skins/2/"));
    w.applicatie(0, 0, "1", "Rekenen");
    w.klas(0, "Groep 1", "12", "1", "Nee");
    w.d().Klassen(0, 10) = "2";
    w.p.maak(w.p.frmMain, w.p);
    w.p.maak(w.p.startScreen, w.p, *w.p.frmMain);
    w.p.startScreenEvents = w.p.startScreen;
    ScreenRouter schermen(w.p);
    w.p.schermen = &schermen;
    w.p.maak(w.p.frmTaakbalk1, w.p);
    w.p.maak(w.p.frmTaakbalk2, w.p);
    FrmTaakbalk2& balk2 = *w.p.frmTaakbalk2;
    balk2.VensterHandle = [] { return quint64(5); };
    int balk2Weg = 0;
    balk2.VensterVerbergen = [&] {
        ++balk2Weg;
        balk2.Form_Unload();
    };
    balk2.KoppelBureaublad(w.b());
    FrmMain& f = *w.p.startScreen;
    f.OpenGlobal(true);
    ASSERT_TRUE(w.p.frmTaakbalk1->AccountsZichtbaar);
    EXPECT_EQ(balk2Weg, 0); // nothing to unload yet

    f.knopGroep_Click(0);
    EXPECT_FALSE(f.Zichtbaar);
    EXPECT_TRUE(w.b().Zichtbaar);
    EXPECT_EQ(w.b().kop, "Groep 1");
    EXPECT_EQ(w.b().zichtbareIconen.size(), 1);
    // The class's own theme while its desktop stands.
    EXPECT_EQ(w.p.modThema->huidigThema, "2");
    EXPECT_FALSE(w.p.frmTaakbalk1->AccountsZichtbaar);
    ASSERT_TRUE(balk2.Geladen);
    balk2.tmrTaken.stop();

    w.platform.fakeWindows().log.clear();
    w.b().Afmelden();
    // The start screen's bar takes over at once: the desktop's is gone with its window and gives
    // the whole screen back without waiting for its next tick.
    EXPECT_EQ(balk2Weg, 1);
    EXPECT_FALSE(balk2.Geladen);
    EXPECT_TRUE(w.p.frmTaakbalk1->Zichtbaar);
    EXPECT_TRUE(w.platform.fakeWindows().log.filter("workarea").value(0).endsWith(" on 5"))
        << w.platform.fakeWindows().log.join(", ").toStdString();
    EXPECT_TRUE(f.Zichtbaar);
    EXPECT_FALSE(w.p.BureaubladOpen);
    EXPECT_EQ(w.p.modThema->huidigThema, "1");
    EXPECT_TRUE(w.p.frmTaakbalk1->AccountsZichtbaar);
    // The class buttons are there for the next pupil.
    ASSERT_NE(f.knop(0), nullptr);
    EXPECT_TRUE(f.knop(0)->Visible);
}

TEST(BureaubladTest, LoggingOffWhileAProgramRunsInItsModeLeavesNothingOpenAndTheScreenAsItWas) {
    Werkplek w(Werkplek::bureaublad);
    w.applicatie(0, 0, "1", "Rekenen");
    w.klas(0, "Groep 1", "12", "1", "Ja");
    w.b().Openen(0, "12");
    int getoond = 0;
    w.b().Tonen = [&] { ++getoond; };
    w.b().StartApplicatie("/bin/sh", "", "", "800x600x16xNEE", "Rekenen");
    ASSERT_TRUE(w.b().tmrShellWait.isActive());
    ASSERT_EQ(w.platform.fakeDisplay().mode, (DisplayMode{800, 600, 32}));

    // The taskbar's log-off button stays within reach while the program runs.
    OpnameSchermen schermen;
    w.p.schermen = &schermen;
    w.b().Afmelden();
    EXPECT_EQ(schermen.log, QStringList{"verlaten"});
    EXPECT_FALSE(w.b().Zichtbaar);
    EXPECT_TRUE(w.b().zichtbareIconen.isEmpty());
    EXPECT_FALSE(w.b().tmrTaakbalk.isActive());
    EXPECT_EQ(w.platform.fakeDisplay().mode, (DisplayMode{1024, 768, 32}));
    EXPECT_FALSE(w.b().tmrShellWait.isActive());
    EXPECT_FALSE(w.b().picDisableZichtbaar);
    EXPECT_EQ(w.b().ShellWachtStand, "0");
    EXPECT_EQ(w.b().ShellProces, 0);
    EXPECT_FALSE(w.b().TaakbalkVerborgen);

    // Nothing follows the program any more, so its end brings nothing of the desktop back over
    // the start screen; a click after log-off starts nothing.
    EXPECT_EQ(getoond, 0);
    EXPECT_FALSE(w.p.BureaubladOpen);
    w.b().Form_MouseUp(1, 930, 260);
    EXPECT_TRUE(w.meldingen().isEmpty());
}
