// The desktop's taskbar with the desktop itself: opened and closed with it, its buttons reaching
// it, kept on top by its launcher.
#include "screens/taskbar/FrmTaakbalk2.h"
#include "tests/support/Werkplek.h"

#include <gtest/gtest.h>

using namespace tk;
namespace {

// The desktop with its taskbar, which is loaded when it is shown.
struct Werkplek : tk::test::Werkplek {
    Werkplek() : tk::test::Werkplek(bureaublad) {
        p.modTaal.Taal = 1033;
        p.maak(p.frmTaakbalk2, p);
        balk().VensterHandle = [] { return quint64(5); };
        balk().VensterTonen = [this] {
            ++getoond;
            balk().Form_Load();
            balk().tmrTaken.stop(); // ticked by the test
            balk().tmrMuis.stop();
        };
        balk().VensterVerbergen = [this] {
            ++verborgen;
            balk().Form_Unload();
        };
        balk().KoppelBureaublad(b());
        klas(0, "Groep 3", "100", "");
        leraar(0, "Jansen", "Els", "", "200", "geheim");
    }
    FrmTaakbalk2& balk() { return *p.frmTaakbalk2; }
    int verborgen = 0;
};

} // namespace

TEST(TaakbalkBureaubladTest, TheBarOpensAndClosesWithTheDesktop) {
    Werkplek w;
    EXPECT_FALSE(w.balk().Geladen);
    w.b().Openen(0, "100");
    EXPECT_EQ(1, w.getoond);
    EXPECT_TRUE(w.balk().Geladen);
    EXPECT_EQ(nullptr, w.balk().zoek("onderhoud")); // a class has no maintenance button

    w.platform.fakeWindows().windows.append(WindowInfo{7, true, 0, 0, false, false, "Rekenen", 0});
    w.balk().tmrTaken_Timer();
    EXPECT_EQ(1, w.balk().AantalKnoppen);

    // The launcher keeps the bar on top while nothing hides it.
    w.platform.fakeWindows().log.clear();
    w.b().tmrTaakbalk_Timer();
    EXPECT_EQ(QStringList{"ontop 5 1"}, w.platform.fakeWindows().log);

    // Log off with one program open: asked, confirmed, the desktop is left and the bar goes.
    w.dialogen.antwoorden << "ja";
    w.balk().KnopActie("afmelden");
    EXPECT_FALSE(w.p.BureaubladOpen);
    w.balk().tmrTaken_Timer();
    EXPECT_EQ(1, w.verborgen);
    EXPECT_FALSE(w.balk().Geladen);
    w.balk().tmrTaken_Timer(); // an unloaded bar does nothing at all
    EXPECT_EQ(1, w.verborgen);
    EXPECT_EQ(0, w.balk().AantalKnoppen);

    // The next desktop, a teacher's, brings the bar back with the maintenance button.
    w.b().Openen(1, "200");
    EXPECT_EQ(2, w.getoond);
    ASSERT_NE(nullptr, w.balk().zoek("onderhoud"));
    w.dialogen.gesteld.clear();
    w.balk().KnopActie("onderhoud");
    EXPECT_EQ(QStringList{w.p.modTaal.LaadTekst(9541)},
              QStringList{w.dialogen.gesteld.value(0).tekst});
}

TEST(TaakbalkBureaubladTest, TheLaunchersDisplayChangesAndHiddenTaskbarsMoveTheStrip) {
    Werkplek w;
    QList<bool> zichtbaar;
    w.balk().VensterZichtbaar = [&](bool z) { zichtbaar << z; };
    w.b().Openen(0, "100");
    w.platform.fakeWindows().log.clear();
    // Without a window system's word on the screen, the height the launcher set.
    w.b().taakbalk->plaatsVoorScherm(480);
    EXPECT_EQ(QRect(0, 440, FrmTaakbalk2::Breedte, 40), w.balk().Plek);
    EXPECT_EQ((QStringList{"ontop 5 1", "workarea 0,0 1024x440 on 5"}),
              w.platform.fakeWindows().log);
    w.b().taakbalk->plaatsVoorScherm(768);

    // The launcher started a program that demands a hidden taskbar: it has the whole screen.
    w.platform.fakeWindows().log.clear();
    w.b().taakbalk->strookTonen(false);
    EXPECT_TRUE(w.balk().Weggestopt);
    EXPECT_EQ(QList<bool>{false}, zichtbaar);
    EXPECT_EQ((QStringList{"ontop 5 0", "workarea 0,0 1024x768 on 5"}),
              w.platform.fakeWindows().log);
    // While it runs nothing brings the bar back on top.
    w.b().tmrTaakbalk_Timer();
    w.balk().tmrTaken_Timer();
    EXPECT_EQ(2, w.platform.fakeWindows().log.size());

    // The program ended: the bar is back in its place, on top, with its strip.
    w.platform.fakeWindows().log.clear();
    w.b().taakbalk->strookTonen(true);
    EXPECT_FALSE(w.balk().Weggestopt);
    EXPECT_EQ((QList<bool>{false, true}), zichtbaar);
    EXPECT_EQ((QStringList{"ontop 5 1", "workarea 0,0 1024x728 on 5"}),
              w.platform.fakeWindows().log);
    // With a window system's word on the screen, the screen as it really is.
    w.balk().SchermGrootte = [] { return QSize(1280, 1024); };
    w.b().taakbalk->plaatsVoorScherm(768);
    EXPECT_EQ(QRect(0, 984, 1280, 40), w.balk().Plek);
}

TEST(TaakbalkBureaubladTest, ATeacherWhoLogsInOnTheDesktopBringsTheBarsLookOfTheirTheme) {
    Werkplek w;
    // Theme 2: the default one with a red bar.
    w.kopieer(QStringLiteral(TK_DEFAULT_THEME), QStringLiteral("Afbeeldingen/Skins/2/"));
    QByteArray ini = w.lees("Afbeeldingen/Skins/2/Instellingen.ini");
    ini.replace("Achtergrond taakbalk - Bureaublad=41,90,143",
                "Achtergrond taakbalk - Bureaublad=200,10,10");
    w.schrijf("Afbeeldingen/Skins/2/Instellingen.ini", ini);
    w.d().Leraren(0, 14) = "2";

    w.b().Openen(0, "100");
    EXPECT_EQ(QColor(41, 90, 143), w.balk().achtergrondKleur);
    int hertekend = 0;
    w.balk().onChanged = [&] { ++hertekend; };
    w.b().Aanmelden(0);
    EXPECT_EQ(QColor(200, 10, 10), w.balk().achtergrondKleur);
    EXPECT_GT(hertekend, 0);
    EXPECT_NE(nullptr, w.balk().zoek("onderhoud")); // and the teacher's maintenance button
}
