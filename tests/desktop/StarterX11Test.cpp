// The launcher on a real X server (Xvfb with openbox): real programs started through
// StartApplicatie, followed until their windows are gone, and real display modes over XRandR.
#include "tests/desktop/X11Platform.h"
#include "tests/platform/X11Fixture.h"
#include "tests/platform/XrandrTestModes.h"
#include "tests/support/Werkplek.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <memory>

namespace tk::test {

namespace {

// The launcher over that platform.
struct X11Werkplek {
    explicit X11Werkplek(XvfbSession& x) : platform(fake, x.display()), p(platform) {
        p.dialogen = &dialogen;
        p.kanaal = &kanaal;
        starter = std::make_unique<FrmBureaubladStarter>(p);
    }
    ~X11Werkplek() {
        // Nothing a test started outlives it.
        for (qint64 pid : gestart)
            platform.linuxProcesses().kill(pid);
    }
    FrmBureaubladStarter& s() { return *starter; }
    // Starts through the launcher and notes the process, so that it is ended at the latest
    // with the test.
    void start(const QString& opdracht, const QString& parameters, const QString& eis) {
        s().LaatsteStart = QDateTime(); // no guard against the start before
        s().StartApplicatie(opdracht, parameters, QString(), eis, QStringLiteral("Programma"));
        if (s().ShellProces > 0)
            gestart << s().ShellProces;
    }
    // The windows of the start that is waited for.
    QList<WindowInfo> vensters() {
        const QList<qint64> processen = platform.linuxProcesses().processesOfStart(s().ShellProces);
        QList<WindowInfo> uit;
        for (const WindowInfo& v : platform.linuxWindows().topLevelWindows())
            if (processen.contains(v.pid))
                uit << v;
        return uit;
    }
    // Ticks tmrShellWait until the condition holds (the program and the server take their time).
    template <class F> bool tikTot(F voorwaarde) {
        return waitUntil([&] {
            s().tmrShellWait_Timer();
            return voorwaarde();
        });
    }
    QStringList meldingen() const { return dialogen.teksten(); }

    QTemporaryDir map;
    FakePlatform fake{map.path()};
    X11Platform platform;
    ScriptedDialogs dialogen;
    Programma p;
    OpnameKanaal kanaal{p};
    std::unique_ptr<FrmBureaubladStarter> starter;
    QList<qint64> gestart;
};

class StarterX11Test : public X11Test {
protected:
    void SetUp() override {
        X11Test::SetUp();
        if (!IsSkipped() && QStandardPaths::findExecutable(QStringLiteral("xlogo")).isEmpty())
            GTEST_SKIP() << "xlogo is not installed";
    }
    // The screen's own mode again, also after a test that ended early.
    void TearDown() override {
        if (X11TestSessie::sessie)
            LinuxDisplay(x().display()).setMode(1024, 768, 32);
    }
};

// The wait rule itself (wrappers, helpers, the grace after the last window) is a model rule of
// ProcesLeeftTest; here it meets real processes, windows and display modes once.
TEST_F(StarterX11Test, AProgramInAModeOfItsOwnIsFollowedPastItsWrapperAndTheModeComesBack) {
    ASSERT_TRUE(addMode(x(), 800, 600));
    ASSERT_TRUE(addMode(x(), 1024, 768));
    X11Werkplek w(x());
    // The desktop runs at 1024 by 768.
    ASSERT_TRUE(w.platform.linuxDisplay().setMode(1024, 768, 32));

    // A wrapper that starts the program and a helper of it, and exits at once.
    w.start(QStringLiteral("/bin/sh"),
            QStringLiteral("-c \"sleep 600 & xlogo -geometry 120x120+10+10 & exit 0\""),
            QStringLiteral("800x600x32xNEE"));
    ASSERT_TRUE(w.meldingen().isEmpty()) << w.meldingen().join('\n').toStdString();
    const qint64 wrapper = w.s().ShellProces;
    EXPECT_EQ(rootSize(x()), QSize(800, 600));
    EXPECT_EQ(w.s().ShellWachtStand, "1");
    ASSERT_TRUE(w.tikTot([&] {
        return !w.platform.linuxProcesses().isRunning(wrapper) && !w.vensters().isEmpty();
    }));
    w.s().tmrShellWait_Timer(); // the launcher has seen the window too
    EXPECT_TRUE(w.s().tmrShellWait.isActive());
    EXPECT_TRUE(w.s().picDisableZichtbaar);

    // The window closes; the helper runs on, and is left to itself when the wait ends.
    w.platform.linuxWindows().close(w.vensters().constFirst().handle);
    EXPECT_TRUE(w.tikTot([&] { return !w.s().tmrShellWait.isActive(); }));
    EXPECT_FALSE(w.platform.linuxProcesses().processesOfStart(wrapper).isEmpty());
    EXPECT_FALSE(w.s().picDisableZichtbaar);
    EXPECT_EQ(rootSize(x()), QSize(1024, 768));
    EXPECT_TRUE(w.meldingen().isEmpty());

    // A mode the output does not offer: said, and the program runs at the present one, where
    // it is shown maximised, as the window manager records it.
    w.start(QStringLiteral("xlogo"), QString(), QStringLiteral("640x480x8xNEE"));
    ASSERT_EQ(w.meldingen().size(), 1);
    EXPECT_TRUE(w.meldingen()[0].contains(QStringLiteral("640 by")));
    EXPECT_EQ(rootSize(x()), QSize(1024, 768));
    EXPECT_TRUE(w.tikTot([&] {
        const xcb_window_t v = xcb_window_t(w.vensters().value(0).handle);
        return v != 0 && hasAtom(v, "_NET_WM_STATE", "_NET_WM_STATE_MAXIMIZED_VERT") &&
               hasAtom(v, "_NET_WM_STATE", "_NET_WM_STATE_MAXIMIZED_HORZ");
    }));
    w.s().cmdShellWait_Click();
    EXPECT_FALSE(w.s().tmrShellWait.isActive());
    EXPECT_EQ(rootSize(x()), QSize(1024, 768));
}

} // namespace

} // namespace tk::test
