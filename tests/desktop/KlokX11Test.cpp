// The desktop clock as a real window on X (Xvfb with openbox): cut to its dial, above the other
// windows, without a frame, and moved by dragging its face.
#include "DesktopX11Sessie.h"
#include "screens/desktop/FrmKlok.h"
#include "screens/desktop/FrmKlokView.h"
#include "tests/desktop/X11Platform.h"
#include "tests/platform/X11Fixture.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>
#include <gtest/gtest.h>

#include <cstdlib>

namespace tk::test {

namespace {

class KlokX11Test : public X11Test {
protected:
    void SetUp() override {
        X11Test::SetUp();
        if (!IsSkipped() && QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty())
            GTEST_SKIP() << "xdotool is not installed";
    }

    QRgb pixel(QPoint plek) { return schermpixel(x(), plek); }
    // Where a window stands on the screen, and its size.
    QRect plaats(quint64 venster) {
        xcb_connection_t* c = x().connection();
        xcb_translate_coordinates_reply_t* t = xcb_translate_coordinates_reply(
            c, xcb_translate_coordinates(c, xcb_window_t(venster), x().root(), 0, 0), nullptr);
        xcb_get_geometry_reply_t* g =
            xcb_get_geometry_reply(c, xcb_get_geometry(c, xcb_window_t(venster)), nullptr);
        const QRect uit = t && g ? QRect(t->dst_x, t->dst_y, g->width, g->height) : QRect();
        std::free(t);
        std::free(g);
        return uit;
    }
    // Runs xdotool on the test's server with the given words, to its end.
    bool xdotool(const QStringList& woorden) {
        QProcess* p = x().startProgram(QStringLiteral("xdotool"), woorden);
        return p->waitForFinished(10000) && p->exitCode() == 0;
    }
};

TEST_F(KlokX11Test, TheClockIsCutToItsDialStandsAboveWithoutAFrameAndIsDraggedByItsFace) {
    X11Werkplek w(x());

    // A red window under the clock, so that what the clock leaves out shows red.
    QWidget onder;
    onder.setAutoFillBackground(true);
    QPalette rood = onder.palette();
    rood.setColor(QPalette::Window, Qt::red);
    onder.setPalette(rood);
    onder.setGeometry(0, 0, 500, 500);
    onder.show();
    ASSERT_TRUE(waitUntil([&] { return pixel(QPoint(250, 250)) == qRgb(255, 0, 0); }));

    FrmKlok klok(w.p);
    FrmKlokView view(klok);
    view.move(150, 150);
    view.openen();
    const quint64 venster = view.winId();
    ASSERT_TRUE(waitUntil([&] {
        const QRect r = plaats(venster);
        return r.isValid() && pixel(r.center()) != qRgb(255, 0, 0);
    }));
    ASSERT_TRUE(bijgewerkt());
    const QRect r = plaats(venster);
    ASSERT_EQ(r.size(), QSize(FrmKlok::Zijde, FrmKlok::Zijde));

    // The shape: the corners of its square show the window below, the dial is the clock's.
    EXPECT_EQ(pixel(r.topLeft() + QPoint(2, 2)), qRgb(255, 0, 0));
    EXPECT_EQ(pixel(r.bottomRight() - QPoint(2, 2)), qRgb(255, 0, 0));
    EXPECT_NE(pixel(r.center() + QPoint(20, 20)), qRgb(255, 0, 0));
    // No frame around it, and above the window that is raised over it (the above state itself is
    // the platform's test).
    const std::vector<uint32_t> rand = x().property(xcb_window_t(venster), "_NET_FRAME_EXTENTS");
    EXPECT_EQ(rand, (std::vector<uint32_t>{0, 0, 0, 0}));
    onder.raise();
    onder.activateWindow();
    ASSERT_TRUE(bijgewerkt());
    EXPECT_NE(pixel(r.center() + QPoint(20, 20)), qRgb(255, 0, 0));

    // A drag on the face moves the window with the mouse.
    const QPoint greep = r.center() + QPoint(0, 25);
    ASSERT_TRUE(
        xdotool({QStringLiteral("mousemove"), QString::number(greep.x()),
                 QString::number(greep.y()), QStringLiteral("mousedown"), QStringLiteral("1")}));
    // The press reaches the clock, which hands the drag to the manager.
    ASSERT_TRUE(waitUntil([&] { return w.platform.linuxWindows().verplaatsingen == 1; }));
    ASSERT_TRUE(bijgewerkt());
    ASSERT_TRUE(xdotool({QStringLiteral("mousemove"), QString::number(greep.x() + 60),
                         QString::number(greep.y() + 30)}));
    ASSERT_TRUE(
        xdotool({QStringLiteral("mousemove"), QString::number(greep.x() + 120),
                 QString::number(greep.y() + 60), QStringLiteral("mouseup"), QStringLiteral("1")}));
    EXPECT_TRUE(waitUntil([&] {
        return plaats(venster).topLeft() == r.topLeft() + QPoint(120, 60);
    })) << "the clock stands at "
        << plaats(venster).x() << "," << plaats(venster).y() << ", it stood at " << r.x() << ","
        << r.y();
    view.close();
}

} // namespace

} // namespace tk::test
