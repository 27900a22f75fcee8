// The launcher's overlay on a real X server: it captures the screen as it is and lays it,
// under grey, over the desktop while a program runs.
#include "DesktopX11Sessie.h"
#include "core/Programma.h"
#include "screens/desktop/FrmBureaubladStarter.h"
#include "screens/desktop/StarterOverlayView.h"
#include "tests/desktop/X11Platform.h"
#include "tests/support/ScriptedDialogs.h"

#include <QPainter>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tk::test {

namespace {

// A desktop of two colours: green on the left, blue on the right.
class Bureaublad : public QWidget {
public:
    Bureaublad() { setFixedSize(1024, 768); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter g(this);
        g.fillRect(0, 0, 450, 768, QColor(0, 255, 0));
        g.fillRect(450, 0, 574, 768, QColor(0, 0, 255));
    }
};

TEST(StarterOverlayX11Test, TheOverlayShowsTheCapturedScreenUnderGreyUntilTheProgramIsClosed) {
    if (!X11TestSessie::sessie)
        GTEST_SKIP() << "Xvfb or openbox is not there";
    XvfbSession& x = *X11TestSessie::sessie;
    QTemporaryDir map;
    FakePlatform fake(map.path());
    X11Platform platform(fake, x.display());
    ScriptedDialogs dialogen;
    Programma p(platform);
    p.dialogen = &dialogen;
    FrmBureaubladStarter starter(p);

    Bureaublad bureaublad;
    StarterOverlayView overlay(starter, &bureaublad); // captures the screen itself
    // The desktop off the screen's corner: the capture is laid where it was taken.
    bureaublad.setWindowFlag(Qt::FramelessWindowHint);
    bureaublad.setFixedSize(900, 700);
    bureaublad.move(60, 40);
    bureaublad.show();
    ASSERT_TRUE(waitUntil([&] { return bureaublad.mapToGlobal(QPoint(0, 0)) == QPoint(60, 40); }));
    // Just inside the colours' border, so that a capture laid a little off shows the other.
    const QPoint links = bureaublad.mapToGlobal(QPoint(440, 100));
    const QPoint rechts = bureaublad.mapToGlobal(QPoint(460, 100));
    ASSERT_TRUE(waitUntil([&] {
        return schermpixel(x, links) == qRgb(0, 255, 0) &&
               schermpixel(x, rechts) == qRgb(0, 0, 255);
    }));

    // A program that demands a hidden taskbar: the launcher waits for it under the overlay.
    starter.StartApplicatie(QStringLiteral("/bin/sh"), QStringLiteral("-c \"sleep 60\""), QString(),
                            QStringLiteral("1024x768x32xJA"), QStringLiteral("Slaap"));
    ASSERT_TRUE(starter.tmrShellWait.isActive());
    ASSERT_FALSE(starter.picDisableBeeld.isNull());
    EXPECT_EQ(starter.picDisableBeeld.pixel(links), qRgb(0, 255, 0));
    EXPECT_EQ(starter.picDisableBeeld.pixel(rechts), qRgb(0, 0, 255));
    // On the screen: the same colours, darkened under grey.
    EXPECT_TRUE(waitUntil([&] {
        const QColor l = QColor::fromRgb(schermpixel(x, links));
        const QColor r = QColor::fromRgb(schermpixel(x, rechts));
        return l.green() > l.red() + 50 && l.green() < 200 && r.blue() > r.red() + 50 &&
               r.blue() < 200;
    })) << std::hex
        << schermpixel(x, links) << " " << schermpixel(x, rechts);
    starter.cmdShellWait_Click();
    bureaublad.close();
}

} // namespace

} // namespace tk::test
