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

// The wait rule (wrappers, helpers, the grace after the last window) is ProcesLeeftTest's, real
// processes and display modes are the platform's tests; here the launcher meets a real screen
// to capture and a window manager that maximises once.
TEST_F(StarterX11Test, AProgramDeniedItsModeRunsMaximisedOverTheCapturedScreenUntilItCloses) {
    X11Werkplek w(x());
    // The desktop, a green window on the screen.
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

    // A mode the output does not offer: said, and the program runs at the present one, where
    // it is shown maximised, as the window manager records it.
    w.start(QStringLiteral("xlogo"), QString(), QStringLiteral("640x480x8xNEE"));
    ASSERT_EQ(w.meldingen().size(), 1);
    EXPECT_TRUE(w.meldingen()[0].contains(QStringLiteral("640 by")));
    EXPECT_EQ(rootSize(x()), QSize(1024, 768));
    // The overlay lays the screen as it was over the desktop (its picture is the view's test).
    EXPECT_EQ(w.s().picDisableBeeld.pixel(300, 300), qRgb(0, 255, 0));
    groen.close();
    EXPECT_TRUE(w.tikTot([&] {
        const xcb_window_t v = xcb_window_t(w.vensters().value(0).handle);
        return v != 0 && hasAtom(v, "_NET_WM_STATE", "_NET_WM_STATE_MAXIMIZED_VERT") &&
               hasAtom(v, "_NET_WM_STATE", "_NET_WM_STATE_MAXIMIZED_HORZ");
    }));
    EXPECT_TRUE(w.s().picDisableZichtbaar);
    // Its window closes: the wait ends and the desktop comes back.
    w.platform.linuxWindows().close(w.vensters().constFirst().handle);
    EXPECT_TRUE(w.tikTot([&] { return !w.s().tmrShellWait.isActive(); }));
    EXPECT_FALSE(w.s().picDisableZichtbaar);
    EXPECT_EQ(rootSize(x()), QSize(1024, 768));
}

} // namespace

} // namespace tk::test
