// The launcher on a real X server (Xvfb with openbox): real programs started through
// StartApplicatie, followed until their windows are gone, and real display modes over XRandR.
#include "DesktopX11Sessie.h"
#include "screens/desktop/StarterOverlayView.h"
#include "tests/desktop/X11Platform.h"
#include "tests/platform/X11Fixture.h"
#include "tests/platform/XrandrTestModes.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <QWidget>

namespace tk::test {

namespace {

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
    // The desktop runs at 1024 by 768, a green window on it.
    ASSERT_TRUE(w.platform.linuxDisplay().setMode(1024, 768, 32));
    QWidget groen;
    StarterOverlayView overlay(w.s(), &groen); // captures the screen itself
    groen.setWindowFlag(Qt::FramelessWindowHint);
    groen.setAutoFillBackground(true);
    QPalette kleur = groen.palette();
    kleur.setColor(QPalette::Window, QColor(0, 255, 0));
    groen.setPalette(kleur);
    groen.setGeometry(200, 200, 200, 200);
    groen.show();
    ASSERT_TRUE(waitUntil([&] { return schermpixel(x(), QPoint(300, 300)) == qRgb(0, 255, 0); }));

    // A wrapper that starts the program and a helper of it, and exits at once.
    w.start(QStringLiteral("/bin/sh"),
            QStringLiteral("-c \"sleep 600 & xlogo -geometry 120x120+10+10 & exit 0\""),
            QStringLiteral("800x600x32xNEE"));
    ASSERT_TRUE(w.meldingen().isEmpty()) << w.meldingen().join('\n').toStdString();
    const qint64 wrapper = w.s().ShellProces;
    EXPECT_EQ(rootSize(x()), QSize(800, 600));
    // The overlay lays the screen as it was over the desktop (its picture is the view's test).
    EXPECT_EQ(w.s().picDisableBeeld.pixel(300, 300), qRgb(0, 255, 0));
    groen.close();
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
