// The desktop's window on a real X server with openbox: a desktop window that stays under the
// programs started from it and fills the screen.
#include "screens/desktop/FrmBureaubladView.h"
#include "tests/platform/X11Fixture.h"
#include "tests/platform/X11VenstersPlatform.h"
#include "tests/support/Werkplek.h"

#include <QCoreApplication>
#include <QProcess>

using namespace tk;
using namespace tk::test;

namespace {

class BureaubladX11Test : public X11Test {
protected:
    QList<xcb_window_t> vensters(const char* eigenschap) {
        const std::vector<uint32_t> v = cardinals(x().root(), eigenschap, XCB_ATOM_WINDOW);
        return QList<xcb_window_t>(v.begin(), v.end());
    }
};

} // namespace

TEST_F(BureaubladX11Test, TheDesktopIsTheScreensDesktopWindowUnderTheProgramsStartedOnIt) {
    Werkplek w([](const QString& map) {
        return std::make_unique<X11VenstersPlatform>(map, X11TestSessie::sessie->display());
    });
    w.applicatie(0, 0, "1", "Logo");
    w.klas(0, "Groep 1", "12", "1", "Nee", "Geen");
    FrmBureaubladView view(w.b());
    w.b().Openen(0, "12");
    view.openen();
    const xcb_window_t bureaublad = xcb_window_t(view.winId());
    ASSERT_TRUE(
        waitUntil([&] { return vensters("_NET_CLIENT_LIST_STACKING").contains(bureaublad); }));
    EXPECT_EQ(cardinals(bureaublad, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM),
              std::vector<uint32_t>{x().atom("_NET_WM_WINDOW_TYPE_DESKTOP")});
    EXPECT_EQ(view.geometry(), QRect(0, 0, 1280, 1024));
    // The canvas stands unscaled in the middle.
    EXPECT_EQ(view.canvas()->geometry(), QRect(128, 128, 1024, 768));

    const QList<xcb_window_t> voor = vensters("_NET_CLIENT_LIST");
    QProcess* xlogo = x().startProgram(QStringLiteral("xlogo"));
    ASSERT_EQ(xlogo->state(), QProcess::Running) << "xlogo does not start";
    xcb_window_t programma = 0;
    ASSERT_TRUE(waitUntil([&] {
        for (xcb_window_t w : vensters("_NET_CLIENT_LIST"))
            if (w != bureaublad && !voor.contains(w))
                programma = w;
        return programma != 0;
    }));
    // Brought forward again (as the taskbar's desktop button does), the desktop stays under it.
    view.openen();
    QCoreApplication::processEvents();
    ASSERT_TRUE(x().windowManagerCaughtUp());
    const QList<xcb_window_t> stapel = vensters("_NET_CLIENT_LIST_STACKING");
    ASSERT_TRUE(stapel.contains(programma));
    EXPECT_LT(stapel.indexOf(bureaublad), stapel.indexOf(programma));
}
