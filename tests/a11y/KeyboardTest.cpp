// The screens with the keyboard alone, at the level of their models: Tab and the arrows move the
// focus in reading order through the controls, Enter or Space presses, Escape closes a panel.
#include "screens/ScreenRouter.h"
#include "screens/common/FocusOrder.h"
#include "screens/maintenance/FrmOnderhoud.h"
#include "screens/maintenance/FrmOnderhoudView.h"
#include "screens/maintenance/OnderhoudPaneel.h"
#include "screens/taskbar/FrmTaakbalk2.h"
#include "tests/screens/PngBewaren.h"
#include "tests/support/Werkplek.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <gtest/gtest.h>

using namespace tk;
using namespace tk::test;
using Stap = FocusOrder::Stap;

TEST(KeyboardTest, FocusGoesInReadingOrderNearestForArrowsAndOnlyToWhatCanBePressed) {
    // A grid of two rows (0 1 2 / 3 _ 4), an empty place, and one far right in the first row
    // set a little lower.
    QList<QRect> plekken;
    for (const QPoint& p : {QPoint(0, 0), QPoint(20, 0), QPoint(40, 0), QPoint(0, 20),
                            QPoint(-1, -1), QPoint(40, 20), QPoint(90, 3)})
        plekken << (p.x() < 0 ? QRect() : QRect(p, QSize(10, 10)));
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
    // Rows of places at slightly different heights (10 high: one row while the middles lie
    // less than 5 apart), and three that pair by pair would each come before the next.
    struct Rijen {
        QList<QRect> plekken;
        QList<int> volgorde;
    };
    const Rijen rijen[] = {
        {{QRect(20, 0, 10, 10), QRect(0, 4, 10, 10)}, {1, 0}},
        {{QRect(20, 0, 10, 10), QRect(0, 5, 10, 10)}, {0, 1}},
        {{QRect(20, 0, 10, 10), QRect(0, 5, 10, 10), QRect(10, 3, 10, 10)}, {2, 0, 1}},
        {{QRect(0, 40, 10, 10), QRect(0, 0, 10, 10), QRect(), QRect(30, 2, 4, 4)}, {1, 3, 0}},
    };
    for (const Rijen& r : rijen)
        EXPECT_EQ(r.volgorde, FocusOrder::leesvolgorde(r.plekken)) << r.plekken.size();
    for (const auto& [toets, shift, stap] :
         {std::tuple{Qt::Key_Tab, false, std::optional(Stap::Volgende)},
          {Qt::Key_Tab, true, Stap::Vorige},
          {Qt::Key_Backtab, true, Stap::Vorige},
          {Qt::Key_Down, false, Stap::Omlaag},
          {Qt::Key_A, false, std::nullopt}})
        EXPECT_EQ(stap, FocusOrder::stapVoor(toets, shift)) << toets;
    for (const auto& [toets, drukt] :
         {std::pair{Qt::Key_Space, true}, {Qt::Key_Enter, true}, {Qt::Key_Escape, false}})
        EXPECT_EQ(drukt, FocusOrder::isDrukken(toets)) << toets;

    auto control = [](int stop, QRect plek, bool drukbaar = true, bool uit = false) {
        PaintedControl c;
        c.stop = stop;
        c.plek = plek;
        c.drukbaar = drukbaar;
        c.uitgeschakeld = uit;
        return c;
    };
    // Among painted controls: four in a column, the second text, the third disabled.
    const QList<PaintedControl> lijst = {
        control(10, QRect(0, 0, 50, 10)), control(20, QRect(0, 20, 50, 10), false),
        control(30, QRect(0, 40, 50, 10), true, true), control(40, QRect(0, 60, 50, 10))};
    const Case stops[] = {
        {-1, Stap::Volgende, 10}, {10, Stap::Volgende, 40}, {40, Stap::Volgende, -1},
        {-1, Stap::Vorige, 40},   {40, Stap::Omhoog, 10},   {10, Stap::Omhoog, 10},
        {20, Stap::Volgende, 10}, // a stop that takes no focus counts as none
        {77, Stap::Omlaag, 10},
    };
    for (const auto& c : stops) {
        SCOPED_TRACE(testing::Message() << c.van << " step " << int(c.stap));
        EXPECT_EQ(c.naar, FocusOrder::volgendeStop(lijst, c.van, c.stap));
    }
    EXPECT_EQ(-1,
              FocusOrder::volgendeStop({control(5, QRect(0, 0, 9, 9), false)}, -1, Stap::Volgende));
}

TEST(KeyboardTest, StartScreenAndTeacherLogOnWithTheKeyboardAlone) {
    Werkplek w(Werkplek::startscherm);
    OpnameSchermen schermen;
    w.p.schermen = &schermen;
    w.p.modTaal.Taal = 1033;
    for (int i = 0; i < 10; ++i)
        w.startKlas(i, QString("Groep %1").arg(i), QString::number(i));
    w.balk1().Zichtbaar = true;
    w.balk1().LadenVormgeving();
    w.balk1().Form_Activate();
    w.balk1().ToonAccounts();
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
    for (const auto& [toets, klas] :
         {std::pair{Qt::Key_Tab, 0}, {Qt::Key_Right, 1}, {Qt::Key_Down, 9}, {Qt::Key_Up, 1}}) {
        f.Toets(toets);
        EXPECT_EQ(klas, klasMetFocus()) << toets;
    }
    // Tab on past the last class reaches the taskbar: its buttons, then the accounts.
    for (int i = 1; i < 10; ++i)
        f.Toets(Qt::Key_Tab);
    EXPECT_EQ(-1, klasMetFocus());
    EXPECT_EQ(0, w.balk1().focusPlek());
    EXPECT_TRUE(w.balk1().knoppen[0].focus);
    int stappen = 0;
    while (!w.balk1().Account[1].focus && stappen++ < 20)
        f.Toets(Qt::Key_Tab);
    ASSERT_TRUE(w.balk1().Account[1].focus);
    EXPECT_FALSE(w.balk1().knoppen[0].focus);
    // Shift+Tab goes back, and Tab past the end comes round to the first class.
    f.Toets(Qt::Key_Tab, true);
    EXPECT_TRUE(w.balk1().Account[0].focus);
    f.Toets(Qt::Key_Tab);

    // Enter on the teachers' button opens the password panel; Escape closes it and the classes
    // come back.
    f.Toets(Qt::Key_Return);
    EXPECT_TRUE(f.picAanmeldenZichtbaar);
    EXPECT_TRUE(f.focusOpWachtwoord);
    EXPECT_TRUE(f.Toets(Qt::Key_Escape));
    EXPECT_FALSE(f.picAanmeldenZichtbaar);
    EXPECT_TRUE(f.knop(0)->Visible);
    f.Toets(Qt::Key_Space);
    EXPECT_TRUE(f.picAanmeldenZichtbaar);

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
    Werkplek w(Werkplek::bureaublad);
    w.p.modTaal.Taal = 1033;
    for (int i = 0; i < 8; ++i)
        w.applicatie(0, i, QString::number(i + 1), QString("Programma %1").arg(i + 1));
    w.klas(0, "Groep 3", "100", "1|2|3|4|5|6|7|8", "Nee");
    FrmTaakbalk2& balk = w.balk2();
    balk.KoppelBureaublad(w.b());
    w.b().Openen(0, "100");
    w.programma(8, "Tekenen");
    w.tik();
    FrmBureaublad& b = w.b();

    // The items stand in columns of six; the focus goes in reading order, row by row; below
    // the lowest the focus stays.
    for (const auto& [toets, rij] : {std::pair{Qt::Key_Tab, 0},
                                     {Qt::Key_Tab, 6},
                                     {Qt::Key_Down, 7},
                                     {Qt::Key_Left, 1},
                                     {Qt::Key_Down, 2},
                                     {Qt::Key_Down, 3},
                                     {Qt::Key_Down, 4},
                                     {Qt::Key_Down, 5},
                                     {Qt::Key_Down, 5}}) {
        b.Toets(toets);
        EXPECT_EQ(rij, b.focusRij) << toets;
    }
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

namespace {
// A panel that records that it was shown.
struct ProefPaneel : OnderhoudPaneel {
    QString titel() const override { return "proef"; }
    void Tonen(int rij) override { getoond << rij; }
    QList<int> getoond;
};
} // namespace

TEST(KeyboardTest, MaintenanceMenuWithTheKeyboardAloneAndItsFocusRing) {
    Werkplek w(Werkplek::startscherm);
    w.p.modTaal.Taal = 1033;
    ScreenRouter router(w.p);
    w.p.schermen = &router;
    ASSERT_TRUE(router.openOnderhoudsmodule(-1, {}));
    FrmOnderhoud& f = *w.p.frmOnderhoud;
    ProefPaneel klassen;
    f.plaatsPaneel(FrmOnderhoud::PKlassen, &klassen);
    FrmOnderhoudView view(f);
    auto* veld = new QLineEdit; // a field of the classes' panel
    view.plaatsPaneelView(FrmOnderhoud::PKlassen, veld);
    view.bijwerken();
    view.show();
    QApplication::setActiveWindow(&view);
    view.setFocus();
    // A key as the window gets it: to the widget with the focus, on to its parents.
    auto druk = [&](int toets, Qt::KeyboardModifiers shift = Qt::NoModifier) {
        QWidget* doel = view.focusWidget() ? view.focusWidget() : &view;
        QKeyEvent e(QEvent::KeyPress, toets, shift);
        QApplication::sendEvent(doel, &e);
    };
    auto inFocus = [&] {
        QString naam;
        for (const PaintedControl& c : view.geschilderd())
            if (c.focus) {
                EXPECT_TRUE(naam.isEmpty()) << "two controls with the focus";
                naam = c.naam;
            }
        return naam;
    };
    const QString afmelden = f.lblAfmelden;

    // Reading order: the log-off at the top, then the menu from its first heading down.
    druk(Qt::Key_Tab);
    EXPECT_EQ(afmelden, inFocus());
    druk(Qt::Key_Tab);
    EXPECT_EQ("Manage accounts", inFocus());
    // The ring is painted around the row in the menu's colour.
    const QImage beeld = view.grab().toImage();
    bewaarPng(beeld, "onderhoud-focus");
    const QRect rij = f.rijVak(0, 0);
    const QColor menu(int(f.kleurMenu & 0xff), int(f.kleurMenu >> 8 & 0xff),
                      int(f.kleurMenu >> 16 & 0xff));
    EXPECT_EQ(menu, beeld.pixelColor(rij.left() - 6, rij.center().y()));
    EXPECT_EQ(menu, beeld.pixelColor(rij.right() + 6, rij.center().y()));
    // Enter opens the group; the arrow goes down into it, Enter shows the panel.
    druk(Qt::Key_Return);
    druk(Qt::Key_Down);
    EXPECT_EQ("Classes", inFocus());
    druk(Qt::Key_Space);
    EXPECT_EQ(FrmOnderhoud::PKlassen, f.ZichtbaarPaneel);
    EXPECT_EQ(1, klassen.getoond.size());
    druk(Qt::Key_Up);
    EXPECT_EQ("Manage accounts", inFocus());
    druk(Qt::Key_Up); // above the menu only the log-off
    EXPECT_EQ(afmelden, inFocus());
    druk(Qt::Key_Tab);
    EXPECT_EQ("Manage accounts", inFocus());

    // Past the last row the panel's field takes the keyboard; its Escape is its own, and
    // Shift+Tab comes back to the last row.
    int stappen = 0;
    while (view.focusWidget() != veld && stappen++ < 60)
        druk(Qt::Key_Tab);
    ASSERT_EQ(veld, view.focusWidget());
    EXPECT_EQ(-1, view.focusStop());
    druk(Qt::Key_Escape);
    EXPECT_TRUE(f.Zichtbaar);
    druk(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(&view, view.focusWidget());
    const QList<PaintedControl> lijst = view.geschilderd();
    EXPECT_EQ(FocusOrder::volgendeStop(lijst, -1, FocusOrder::Stap::Vorige), view.focusStop());

    // While a record is edited the menu is dead to the keyboard too.
    const int voor = view.focusStop();
    f.ZetBewerkModus(true);
    druk(Qt::Key_Down);
    druk(Qt::Key_Escape);
    EXPECT_EQ(voor, view.focusStop());
    EXPECT_TRUE(f.Zichtbaar);
    f.ZetBewerkModus(false);
    // Escape logs off, as the log-off does.
    view.setFocus();
    druk(Qt::Key_Escape);
    EXPECT_FALSE(f.Zichtbaar);
}
