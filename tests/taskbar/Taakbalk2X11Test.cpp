#include "core/Programma.h"
#include "screens/taskbar/FrmTaakbalk2.h"
#include "screens/taskbar/FrmTaakbalk2View.h"
#include "screens/taskbar/ModMainAfsluiten.h"
#include "screens/taskbar/TaakbalkToetsen.h"
#include "tests/platform/X11TestSessie.h"
#include "tests/platform/X11VenstersPlatform.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/WaitUntil.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QWidget>
#include <gtest/gtest.h>

#include <cstdlib>
#include <xcb/xcb.h>

using namespace tk;
using namespace tk::test;
using K = FrmTaakbalk2::Kolom;

namespace {

class Taakbalk2X11Test : public ::testing::Test {
protected:
    void SetUp() override {
        if (!X11TestSessie::sessie)
            GTEST_SKIP() << "no Xvfb with openbox";
        x = X11TestSessie::sessie;
        platform = std::make_unique<X11VenstersPlatform>(map.path(), x->display());
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
    std::vector<uint32_t> waarden(xcb_window_t w, const char* eigenschap, xcb_atom_t soort) {
        return x->property(w, eigenschap, soort);
    }
    // A click of the real mouse on the bar, as a pupil makes it.
    bool klik(QPoint opBalk) {
        const QPoint scherm = view->mapToGlobal(opBalk);
        QProcess xdotool;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(x->display()));
        xdotool.setProcessEnvironment(env);
        xdotool.start(QStringLiteral("xdotool"),
                      {QStringLiteral("mousemove"), QString::number(scherm.x()),
                       QString::number(scherm.y()), QStringLiteral("click"), QStringLiteral("1")});
        return xdotool.waitForFinished(5000) && xdotool.exitCode() == 0;
    }
    QPoint midden(int rij) {
        return QPoint((balk().Knoppen(rij, K::KaderLinks).toInt() +
                       balk().Knoppen(rij, K::KaderRechts).toInt()) /
                          2,
                      balk().Hoogte / 2);
    }
    void bewaarScherm(const char* naam) {
        const QString map = QDir::temp().filePath(QStringLiteral("tafelkrater-taakbalk"));
        QDir().mkpath(map);
        QProcess import;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(x->display()));
        import.setProcessEnvironment(env);
        import.start(QStringLiteral("import"),
                     {QStringLiteral("-window"), QStringLiteral("root"),
                      map + QLatin1Char('/') + QLatin1String(naam) + QStringLiteral(".png")});
        import.waitForFinished(10000);
    }

    XvfbSession* x = nullptr;
    QTemporaryDir map;
    std::unique_ptr<X11VenstersPlatform> platform;
    ScriptedDialogs dialogen;
    std::unique_ptr<Programma> p;
    std::unique_ptr<FrmTaakbalk2View> view;
};

TEST_F(Taakbalk2X11Test, TheBarIsADockAtTheBottomThatKeepsItsStripFree) {
    const xcb_window_t id = xcb_window_t(view->winId());
    ASSERT_TRUE(totDat([&] { return view->isVisible(); }));
    const std::vector<uint32_t> soort = waarden(id, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM);
    ASSERT_FALSE(soort.empty());
    EXPECT_EQ(x->atom("_NET_WM_WINDOW_TYPE_DOCK"), soort.front());
    EXPECT_EQ(QRect(0, 768 - balk().Hoogte, 1024, balk().Hoogte), view->geometry());
    const std::vector<uint32_t> strook = waarden(id, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL);
    ASSERT_EQ(12u, strook.size());
    EXPECT_EQ(uint32_t(balk().Hoogte), strook[3]); // the bottom
    // The manager leaves the strip out of the area that maximised windows fill.
    EXPECT_TRUE(totDat([&] {
        const std::vector<uint32_t> werk = waarden(x->root(), "_NET_WORKAREA", XCB_ATOM_CARDINAL);
        return werk.size() >= 4 && werk[3] == uint32_t(768 - balk().Hoogte);
    }));
    // The bar is never a task of its own.
    for (const Taak& t : balk().lstTaken2)
        EXPECT_NE(quint64(id), t.handle);

    // Closed with the desktop and opened with the next one: still a dock with its strip.
    view->sluiten();
    view->openen();
    ASSERT_TRUE(totDat([&] { return view->isVisible(); }));
    EXPECT_EQ(x->atom("_NET_WM_WINDOW_TYPE_DOCK"),
              waarden(id, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM).front());
    EXPECT_EQ(uint32_t(balk().Hoogte),
              waarden(id, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL).at(3));
}

TEST_F(Taakbalk2X11Test, StepsAsideForAProgramThatDemandsTheWholeScreen) {
    const xcb_window_t id = xcb_window_t(view->winId());
    const auto werkHoogte = [&] {
        const std::vector<uint32_t> werk = waarden(x->root(), "_NET_WORKAREA", XCB_ATOM_CARDINAL);
        return werk.size() >= 4 ? int(werk[3]) : -1;
    };
    ASSERT_TRUE(totDat([&] { return werkHoogte() == 768 - balk().Hoogte; }));
    balk().ZetZichtbaar(false);
    EXPECT_TRUE(totDat([&] { return !view->isVisible() && werkHoogte() == 768; })) << werkHoogte();
    balk().ZetZichtbaar(true);
    EXPECT_TRUE(totDat([&] { return view->isVisible() && werkHoogte() == 768 - balk().Hoogte; }))
        << werkHoogte();
    EXPECT_EQ(x->atom("_NET_WM_WINDOW_TYPE_DOCK"),
              waarden(id, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM).front());
    EXPECT_EQ(QRect(0, 768 - balk().Hoogte, 1024, balk().Hoogte), view->geometry());
}

TEST_F(Taakbalk2X11Test, RealProgramsBecomeTasksTheClickedOneComesForwardAndAClosedOneGoes) {
    QProcess* logo = x->startProgram(QStringLiteral("xlogo"));
    QProcess* calc = x->startProgram(QStringLiteral("xcalc"));
    ASSERT_TRUE(totDat([&] { return rijVan("xlogo") >= 0 && rijVan("Calculator") >= 0; }))
        << knoppen();
    EXPECT_EQ(2, balk().AantalKnoppen) << knoppen();

    // A real click on each button in turn: that program comes forward and its button is pressed,
    // and the bar itself never takes the focus from it.
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
    view->repaint();
    bewaarScherm("x-sessie");

    // Closed as from its own close button: its button goes, the other stays where it was.
    const quint64 logoHandle = balk().handleVan(rijVan("xlogo"));
    platform->windows().close(logoHandle);
    EXPECT_TRUE(totDat([&] { return rijVan("xlogo") < 0; })) << knoppen();
    EXPECT_TRUE(logo->state() == QProcess::NotRunning || logo->waitForFinished(10000));
    EXPECT_EQ(0, rijVan("Calculator"));
    EXPECT_EQ(1, balk().AantalKnoppen);
    calc->kill();
    EXPECT_TRUE(totDat([&] { return balk().AantalKnoppen == 0; })) << knoppen();
}

TEST_F(Taakbalk2X11Test, AWindowWithATenThousandCharacterTitleIsCutNotFatal) {
    xcb_connection_t* c = x->connection();
    const xcb_screen_t* s = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
    const xcb_window_t w = xcb_generate_id(c);
    xcb_create_window(c, XCB_COPY_FROM_PARENT, w, s->root, 100, 100, 300, 200, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, s->root_visual, 0, nullptr);
    const QByteArray titel = QByteArray(10000, 'T');
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, x->atom("_NET_WM_NAME"),
                        x->atom("UTF8_STRING"), 8, uint32_t(titel.size()), titel.constData());
    xcb_map_window(c, w);
    xcb_flush(c);
    ASSERT_TRUE(totDat([&] { return balk().AantalKnoppen == 1; })) << knoppen();
    EXPECT_EQ(QString(255, QLatin1Char('T')), balk().Knoppen(0, K::Titel));
    const QImage beeld = view->grab().toImage();
    EXPECT_EQ(view->size(), beeld.size());
    xcb_destroy_window(c, w);
    xcb_flush(c);
    EXPECT_TRUE(totDat([&] { return balk().AantalKnoppen == 0; }));
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
        QProcess xdotool;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(x->display()));
        xdotool.setProcessEnvironment(env);
        xdotool.start(QStringLiteral("xdotool"),
                      {QStringLiteral("windowactivate"), QStringLiteral("--sync"),
                       QString::number(venster.winId()), QStringLiteral("key"),
                       QStringLiteral("--clearmodifiers"), QString::fromLatin1(toets)});
        return xdotool.waitForFinished(5000) && xdotool.exitCode() == 0;
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
