#include "core/Programma.h"
#include "screens/taskbar/FrmTaakbalk2.h"
#include "screens/taskbar/FrmTaakbalk2View.h"
#include "screens/taskbar/ModMainAfsluiten.h"
#include "screens/taskbar/TaakbalkToetsen.h"
#include "tests/platform/X11Fixture.h"
#include "tests/platform/X11VenstersPlatform.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/WaitUntil.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QWidget>
#include <gtest/gtest.h>

#include <xcb/xcb.h>

using namespace tk;
using namespace tk::test;
using K = FrmTaakbalk2::Kolom;

namespace {

class Taakbalk2X11Test : public X11Test {
protected:
    void SetUp() override {
        X11Test::SetUp();
        if (IsSkipped())
            return;
        platform = std::make_unique<X11VenstersPlatform>(map.path(), x().display());
        p = std::make_unique<Programma>(*platform);
        p->dialogen = &dialogen;
        p->maak(p->frmTaakbalk2, *p);
        p->BureaubladOpen = true;
        view = std::make_unique<FrmTaakbalk2View>(balk());
        view->openen();
        balk().tmrTaken.stop(); // ticked by the test
        balk().tmrMuis.stop();
    }
    void TearDown() override {
        if (view)
            view->sluiten();
        view.reset();
        p.reset();
    }
    FrmTaakbalk2& balk() { return *p->frmTaakbalk2; }

    // Ticks, with the events running, until the condition holds; the deadline only ends a wait
    // that would otherwise hang.
    template <class F> bool totDat(F voorwaarde) {
        return waitUntil([&] {
            balk().tmrTaken_Timer();
            return voorwaarde();
        });
    }
    int rijVan(const QString& titel) {
        for (int i = 0; i < balk().AantalKnoppen; ++i)
            if (balk().Knoppen(i, K::Titel) == titel)
                return i;
        return -1;
    }
    std::string knoppen() {
        std::string uit;
        for (int i = 0; i < balk().AantalKnoppen; ++i)
            uit += "[" + balk().Knoppen(i, K::Titel).left(40).toStdString() + "] ";
        return uit;
    }
    // Runs xdotool on the test's server to its end.
    bool xdotool(const QStringList& woorden) {
        QProcess* p = x().startProgram(QStringLiteral("xdotool"), woorden);
        return p->waitForFinished(10000) && p->exitCode() == 0;
    }
    // A click of the real mouse on the bar, as a pupil makes it.
    bool klik(QPoint opBalk) {
        const QPoint scherm = view->mapToGlobal(opBalk);
        return xdotool({QStringLiteral("mousemove"), QString::number(scherm.x()),
                        QString::number(scherm.y()), QStringLiteral("click"), QStringLiteral("1")});
    }
    QPoint midden(int rij) {
        return QPoint((balk().Knoppen(rij, K::KaderLinks).toInt() +
                       balk().Knoppen(rij, K::KaderRechts).toInt()) /
                          2,
                      balk().Hoogte / 2);
    }

    QTemporaryDir map;
    std::unique_ptr<X11VenstersPlatform> platform;
    ScriptedDialogs dialogen;
    std::unique_ptr<Programma> p;
    std::unique_ptr<FrmTaakbalk2View> view;
};

// Listing, activating and closing real windows is the platform's test, a click's request the
// model's; here a real click reaches the bar and its program comes forward.
TEST_F(Taakbalk2X11Test, ARealClickBringsItsProgramForwardAndTheBarNeverTakesTheFocus) {
    QProcess* logo = x().startProgram(QStringLiteral("xlogo"));
    QProcess* calc = x().startProgram(QStringLiteral("xcalc"));
    ASSERT_TRUE(totDat([&] { return rijVan("xlogo") >= 0 && rijVan("Calculator") >= 0; }))
        << knoppen();
    for (const char* titel : {"xlogo", "Calculator", "xlogo"}) {
        SCOPED_TRACE(titel);
        const int rij = rijVan(titel);
        ASSERT_GE(rij, 0);
        const quint64 handle = balk().handleVan(rij);
        ASSERT_TRUE(klik(midden(rij)));
        EXPECT_TRUE(totDat([&] {
            return platform->windows().activeWindow() == handle && balk().ActieveKnop == rij;
        })) << "active "
            << platform->windows().activeWindow() << " pressed " << balk().ActieveKnop;
    }
    logo->kill();
    calc->kill();
    EXPECT_TRUE(totDat([&] { return balk().AantalKnoppen == 0; })) << knoppen();
}

} // namespace

TEST_F(Taakbalk2X11Test, HeldCtrlAndShiftWithAFunctionKeyReachTheBarFromAnyWindowOfTheClient) {
    p->maak(p->modMainAfsluiten, *p);
    TaakbalkToetsen toetsen(*p);
    qApp->installEventFilter(&toetsen);
    // A window of the client with the keyboard, as the desktop has it.
    QWidget venster;
    venster.setGeometry(100, 100, 300, 200);
    venster.show();
    ASSERT_TRUE(totDat([&] { return venster.isVisible(); }));
    auto druk = [&](const char* toets) {
        return xdotool({QStringLiteral("windowactivate"), QStringLiteral("--sync"),
                        QString::number(venster.winId()), QStringLiteral("key"),
                        QStringLiteral("--clearmodifiers"), QString::fromLatin1(toets)});
    };
    const QStringList& gestart = platform->fakeProcesses().started;
    // F9 alone, and with Ctrl alone, is a key like any other.
    ASSERT_TRUE(druk("F9"));
    ASSERT_TRUE(druk("ctrl+F9"));
    ASSERT_TRUE(druk("ctrl+shift+F9"));
    ASSERT_TRUE(totDat([&] { return !gestart.isEmpty(); }));
    EXPECT_EQ(1, gestart.size());
    EXPECT_TRUE(gestart.value(0).startsWith(u"x-terminal-emulator"))
        << gestart.value(0).toStdString();
    EXPECT_EQ(p->modMainAfsluiten->uitgevoerd, QStringList{QStringLiteral("toets 120")});
    qApp->removeEventFilter(&toetsen);
}
