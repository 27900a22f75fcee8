// The desktop's window on a real X server with openbox: a desktop window that stays under the
// programs started from it and fills the screen.
#include "screens/desktop/FrmBureaubladView.h"
#include "tests/platform/X11TestSessie.h"
#include "tests/platform/X11VenstersPlatform.h"
#include "tests/support/WaitUntil.h"
#include "tests/support/Werkplek.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <xcb/xcb.h>

using namespace tk;
using tk::test::X11TestSessie;
using tk::test::X11VenstersPlatform;
using tk::test::XvfbSession;

namespace {

QList<xcb_window_t> vensters(const char* eigenschap) {
    const XvfbSession& x = *X11TestSessie::sessie;
    const std::vector<uint32_t> v = x.property(x.root(), eigenschap, XCB_ATOM_WINDOW);
    return QList<xcb_window_t>(v.begin(), v.end());
}

xcb_atom_t soort(xcb_window_t venster) {
    const std::vector<uint32_t> v =
        X11TestSessie::sessie->property(venster, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM);
    return v.empty() ? xcb_atom_t(XCB_ATOM_NONE) : v.front();
}

} // namespace

TEST(BureaubladX11Test, TheDesktopIsTheScreensDesktopWindowUnderTheProgramsStartedOnIt) {
    if (!X11TestSessie::sessie)
        GTEST_SKIP() << "no Xvfb with openbox";
    tk::test::Werkplek w([](const QString& map) {
        return std::make_unique<X11VenstersPlatform>(map, X11TestSessie::sessie->display());
    });
    w.applicatie(0, 0, "1", "Logo");
    w.klas(0, "Groep 1", "12", "1", "Nee", "Geen");
    FrmBureaubladView view(w.b());
    w.b().Openen(0, "12");
    view.openen();
    const xcb_window_t bureaublad = xcb_window_t(view.winId());
    ASSERT_TRUE(tk::test::waitUntil(
        [&] { return vensters("_NET_CLIENT_LIST_STACKING").contains(bureaublad); }));
    EXPECT_EQ(soort(bureaublad), X11TestSessie::sessie->atom("_NET_WM_WINDOW_TYPE_DESKTOP"));
    EXPECT_EQ(view.geometry(), QRect(0, 0, 1280, 1024));
    // The canvas stands unscaled in the middle.
    EXPECT_EQ(view.canvas()->geometry(), QRect(128, 128, 1024, 768));

    const QList<xcb_window_t> voor = vensters("_NET_CLIENT_LIST");
    QProcess* xlogo = X11TestSessie::sessie->startProgram(QStringLiteral("xlogo"));
    ASSERT_EQ(xlogo->state(), QProcess::Running) << "xlogo does not start";
    xcb_window_t programma = 0;
    ASSERT_TRUE(tk::test::waitUntil([&] {
        for (xcb_window_t w : vensters("_NET_CLIENT_LIST"))
            if (w != bureaublad && !voor.contains(w))
                programma = w;
        return programma != 0;
    }));
    // Brought forward again (as the taskbar's desktop button does), the desktop stays under it.
    view.openen();
    QCoreApplication::processEvents();
    ASSERT_TRUE(X11TestSessie::sessie->windowManagerCaughtUp());
    const QList<xcb_window_t> stapel = vensters("_NET_CLIENT_LIST_STACKING");
    ASSERT_TRUE(stapel.contains(programma));
    EXPECT_LT(stapel.indexOf(bureaublad), stapel.indexOf(programma));
}
