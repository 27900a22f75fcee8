// The screens with the keyboard alone, at the level of their models: Tab and the arrows move the
// focus in reading order through the controls, Enter or Space presses, Escape closes a panel.
#include "screens/common/FocusOrder.h"
#include "screens/taskbar/FrmTaakbalk2.h"
#include "tests/desktop/BureaubladWerkplek.h"
#include "tests/screens/ScreenWerkplek.h"

#include <gtest/gtest.h>

using namespace tk;
using namespace tk::test;
using Stap = FocusOrder::Stap;

TEST(KeyboardTest, FocusOrderIsReadingOrderForTabAndNearestForTheArrows) {
    // A grid of two rows (0 1 2 / 3 _ 4), an empty place, and one far right in the first row
    // set a little lower.
    const QList<QRect> plekken = {QRect(0, 0, 10, 10),
                                  QRect(20, 0, 10, 10),
                                  QRect(40, 0, 10, 10),
                                  QRect(0, 20, 10, 10),
                                  QRect(),
                                  QRect(40, 20, 10, 10),
                                  QRect(90, 3, 10, 10)};
    struct Case {
        int van;
        Stap stap;
        int naar;
    };
    const Case cases[] = {
        {-1, Stap::Volgende, 0}, {-1, Stap::Vorige, 5},  {0, Stap::Volgende, 1},
        {2, Stap::Volgende, 6},  {6, Stap::Volgende, 3}, {5, Stap::Volgende, -1},
        {0, Stap::Vorige, -1},   {3, Stap::Vorige, 6},   {0, Stap::Rechts, 1},
        {1, Stap::Omlaag, 3},    {2, Stap::Omlaag, 5},   {5, Stap::Links, 3},
        {3, Stap::Omhoog, 0},    {0, Stap::Links, 0},    {3, Stap::Omlaag, 3},
        {2, Stap::Rechts, 6},    {-1, Stap::Rechts, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.van << " step " << int(c.stap));
        EXPECT_EQ(c.naar, FocusOrder::volgende(plekken, c.van, c.stap));
    }
    EXPECT_EQ(-1, FocusOrder::volgende({QRect(), QRect()}, -1, Stap::Volgende));
    struct Toets {
        int toets;
        bool shift;
        std::optional<Stap> stap;
    };
    const Toets toetsen[] = {{Qt::Key_Tab, false, Stap::Volgende},
                             {Qt::Key_Tab, true, Stap::Vorige},
                             {Qt::Key_Backtab, true, Stap::Vorige},
                             {Qt::Key_Down, false, Stap::Omlaag},
                             {Qt::Key_A, false, std::nullopt}};
    for (const auto& t : toetsen)
        EXPECT_EQ(t.stap, FocusOrder::stapVoor(t.toets, t.shift)) << t.toets;
    EXPECT_TRUE(FocusOrder::isDrukken(Qt::Key_Space));
    EXPECT_TRUE(FocusOrder::isDrukken(Qt::Key_Enter));
    EXPECT_FALSE(FocusOrder::isDrukken(Qt::Key_Escape));
}

TEST(KeyboardTest, StartScreenAndTeacherLogOnWithTheKeyboardAlone) {
    ScreenWerkplek w;
    OpnameSchermen schermen;
    w.p.schermen = &schermen;
    w.p.modTaal.Taal = 1033;
    for (int i = 0; i < 10; ++i)
        w.klas(i, QString("Groep %1").arg(i), QString::number(i));
    w.balk().Zichtbaar = true;
    w.balk().LadenVormgeving();
    w.balk().Form_Activate();
    w.balk().ToonAccounts();
    FrmMain& f = w.f();
    f.AccountKlik(0);
    auto klasMetFocus = [&] {
        int n = -1;
        for (int i = 0; i < int(f.knopGroep.size()); ++i)
            if (f.knop(i) && f.knop(i)->focus) {
                EXPECT_EQ(-1, n) << "two class buttons with the focus";
                n = i;
            }
        return n;
    };
    // Tab from nothing: the first class; the arrows move in the grid of eight a row.
    f.Toets(Qt::Key_Tab);
    EXPECT_EQ(0, klasMetFocus());
    f.Toets(Qt::Key_Right);
    EXPECT_EQ(1, klasMetFocus());
    f.Toets(Qt::Key_Down);
    EXPECT_EQ(9, klasMetFocus());
    f.Toets(Qt::Key_Up);
    EXPECT_EQ(1, klasMetFocus());
    // Tab on past the last class reaches the taskbar: its buttons, then the accounts.
    for (int i = 1; i < 10; ++i)
        f.Toets(Qt::Key_Tab);
    EXPECT_EQ(-1, klasMetFocus());
    EXPECT_EQ(0, w.balk().focusPlek());
    EXPECT_TRUE(w.balk().knoppen[0].focus);
    int stappen = 0;
    while (!w.balk().Account[1].focus && stappen++ < 20)
        f.Toets(Qt::Key_Tab);
    ASSERT_TRUE(w.balk().Account[1].focus);
    EXPECT_FALSE(w.balk().knoppen[0].focus);
    // Shift+Tab goes back, and Tab past the end comes round to the first class.
    f.Toets(Qt::Key_Tab, true);
    EXPECT_TRUE(w.balk().Account[0].focus);
    f.Toets(Qt::Key_Tab);

    // Enter on the teachers' button opens the password panel; Escape closes it and the classes
    // come back; again, a password and Enter log the teacher on.
    f.Toets(Qt::Key_Return);
    EXPECT_TRUE(f.picAanmeldenZichtbaar);
    EXPECT_TRUE(f.focusOpWachtwoord);
    EXPECT_TRUE(f.Toets(Qt::Key_Escape));
    EXPECT_FALSE(f.picAanmeldenZichtbaar);
    EXPECT_TRUE(f.knop(0)->Visible);
    f.Toets(Qt::Key_Space);
    ASSERT_TRUE(f.picAanmeldenZichtbaar);
    w.p.modData->Wachtwoorden = QStringList{"geheim", "beheer"};
    f.txtWachtwoord = "geheim";
    f.txtWachtwoord_KeyPress(13);
    EXPECT_FALSE(f.picAanmeldenZichtbaar);
    EXPECT_EQ(w.p.modTaal.LaadTekst(708), f.ballonTekst);

    // Space on a class opens its desktop.
    schermen.log.clear();
    f.AccountKlik(0);
    f.zetFocus(-1);
    f.Toets(Qt::Key_Tab);
    f.Toets(Qt::Key_Tab);
    f.Toets(Qt::Key_Space);
    EXPECT_EQ(QStringList{"bureaublad 0:101"}, schermen.log);
}

TEST(KeyboardTest, DesktopItemsThenTheTaskbarAndBackWithTheKeyboardAlone) {
    BureaubladWerkplek w;
    w.p.modTaal.Taal = 1033;
    for (int i = 0; i < 8; ++i)
        w.applicatie(0, i, QString::number(i + 1), QString("Programma %1").arg(i + 1));
    w.klas(0, "Groep 3", "100", "1|2|3|4|5|6|7|8", "Nee");
    w.p.maak(w.p.frmTaakbalk2, w.p);
    FrmTaakbalk2& balk = *w.p.frmTaakbalk2;
    balk.VensterHandle = [] { return quint64(5); };
    balk.KoppelBureaublad(w.b());
    w.b().Openen(0, "100");
    balk.tmrTaken.stop();
    balk.tmrMuis.stop();
    w.platform.fakeWindows().windows.append(WindowInfo{8, true, 0, 0, false, false, "Tekenen", 0});
    balk.tmrTaken_Timer();
    FrmBureaublad& b = w.b();

    // The items stand in columns of six; the focus goes in reading order, row by row.
    b.Toets(Qt::Key_Tab);
    EXPECT_EQ(0, b.focusRij);
    b.Toets(Qt::Key_Tab);
    EXPECT_EQ(6, b.focusRij);
    b.Toets(Qt::Key_Down);
    EXPECT_EQ(7, b.focusRij);
    b.Toets(Qt::Key_Left);
    EXPECT_EQ(1, b.focusRij);
    for (int rij = 2; rij <= 5; ++rij) {
        b.Toets(Qt::Key_Down);
        EXPECT_EQ(rij, b.focusRij);
    }
    b.Toets(Qt::Key_Down); // nothing lower: the focus stays
    EXPECT_EQ(5, b.focusRij);
    // Past the last item the taskbar takes the focus, in its own reading order: a fixed button
    // on its left first, then the task.
    b.Toets(Qt::Key_Tab);
    EXPECT_TRUE(b.focusOpBalk);
    const QList<int> balkVolgorde = FocusOrder::leesvolgorde(balk.focusPlekken());
    ASSERT_GE(balkVolgorde.size(), 2);
    EXPECT_EQ(balkVolgorde.first(), balk.focusPlek);
    EXPECT_EQ(-1, b.focusRij);
    int stappen = 0;
    while (balk.focusPlek != 0 && stappen++ < 10)
        b.Toets(Qt::Key_Tab);
    ASSERT_EQ(0, balk.focusPlek);
    // Enter on the task brings its window forward.
    w.platform.fakeWindows().log.clear();
    b.Toets(Qt::Key_Return);
    EXPECT_TRUE(w.platform.fakeWindows().log.contains("activate 8"));
    // Escape brings the focus back to the desktop; Shift+Tab from the first item goes back to
    // the bar's last button.
    b.Toets(Qt::Key_Escape);
    EXPECT_FALSE(b.focusOpBalk);
    EXPECT_EQ(-1, balk.focusPlek);
    b.Toets(Qt::Key_Tab);
    EXPECT_EQ(0, b.focusRij);
    b.Toets(Qt::Key_Tab, true);
    EXPECT_TRUE(b.focusOpBalk);
    EXPECT_EQ(balkVolgorde.last(), balk.focusPlek);
    // Tab past the bar's last button comes round to the first item.
    b.Toets(Qt::Key_Tab);
    EXPECT_FALSE(b.focusOpBalk);
    EXPECT_EQ(0, b.focusRij);
    // Space starts the program of the item in focus.
    b.Toets(Qt::Key_Space);
    EXPECT_EQ(1, w.platform.fakeProcesses().started.size());
}
