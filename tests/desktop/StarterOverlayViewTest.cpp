#include "screens/desktop/StarterOverlayView.h"
#include "tests/screens/PngBewaren.h"
#include "tests/support/Werkplek.h"

#include <QPainter>
#include <QPushButton>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::Werkplek;

namespace {

// A desktop window to lie over: bright so that the grey veil shows.
class Bureaublad : public QWidget {
public:
    Bureaublad() { setFixedSize(1024, 768); }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), Qt::yellow); }
};

// The captured screen: four coloured quarters.
QImage opname() {
    QImage beeld(1024, 768, QImage::Format_RGB32);
    QPainter g(&beeld);
    g.fillRect(0, 0, 512, 384, QColor(255, 0, 0));
    g.fillRect(512, 0, 512, 384, QColor(0, 255, 0));
    g.fillRect(0, 384, 512, 384, QColor(0, 0, 255));
    g.fillRect(512, 384, 512, 384, QColor(255, 255, 255));
    return beeld;
}

int helderheid(QColor c) {
    return (c.red() + c.green() + c.blue()) / 3;
}

} // namespace

TEST(StarterOverlayViewTest, ShowsTheCapturedScreenUnderGreyWithTextAndButtonWhileAProgramRuns) {
    Werkplek w(Werkplek::starter);
    w.s().Schermopname = opname;
    Bureaublad bureaublad;
    StarterOverlayView overlay(w.s(), &bureaublad);
    EXPECT_FALSE(overlay.isVisibleTo(&bureaublad)); // idle: nothing over the desktop

    w.s().StartApplicatie("/bin/sh", "", "", "800x600x32xJA", "Rekenen");
    ASSERT_TRUE(overlay.isVisibleTo(&bureaublad));
    EXPECT_EQ(overlay.geometry(), QRect(0, 0, 1024, 768));
    QPushButton* knop = overlay.cmdShellWait();
    EXPECT_TRUE(knop->isVisibleTo(&overlay));
    EXPECT_EQ(knop->text(), "Close Program");
    EXPECT_EQ(knop->geometry(), w.s().cmdShellWait);

    // The desktop stands off the screen's corner: the capture is laid where it was taken.
    bureaublad.move(60, 40);
    const QImage beeld = bureaublad.grab().toImage();
    tk::test::bewaarPng(beeld, "StarterOverlayView");
    // The quarters of the capture show through the grey, darkened; the yellow desktop doesn't.
    auto op = [&](int x, int y) { return beeld.pixelColor(x, y); };
    EXPECT_GT(op(50, 700).blue(), op(50, 700).red() + 20);   // the blue quarter
    EXPECT_GT(op(900, 50).green(), op(900, 50).blue() + 20); // the green quarter
    EXPECT_LT(helderheid(op(900, 700)), 200);                // white, under grey
    EXPECT_GT(helderheid(op(900, 700)), 0x40);
    EXPECT_LT(op(50, 50).green(), 100); // red, not the yellow desktop
    // Just either side of the quarters' border, 60 to the left of where it is on the screen.
    EXPECT_GT(op(512 - 60 - 4, 50).red(), op(512 - 60 - 4, 50).green() + 20);
    EXPECT_GT(op(512 - 60 + 4, 50).green(), op(512 - 60 + 4, 50).red() + 20);
    // lblDisable: white text in its box, above the button.
    int wit = 0;
    const QRect tekst = w.s().lblDisable;
    for (int y = tekst.top(); y < w.s().cmdShellWait.top(); ++y)
        for (int x = tekst.left(); x <= tekst.right(); ++x)
            wit += helderheid(op(x, y)) > 230;
    EXPECT_GT(wit, 100);

    // The button ends the program, and the overlay goes.
    const qint64 pid = w.s().ShellProces;
    knop->click();
    EXPECT_EQ(w.platform.fakeProcesses().killed, QList<qint64>{pid});
    EXPECT_FALSE(overlay.isVisibleTo(&bureaublad));

    // Without a capture the overlay is plain grey.
    w.s().Schermopname = [] { return QImage(); };
    w.later();
    w.s().StartApplicatie("/bin/sh", "", "", "1024x768x32xJA", "Rekenen");
    const QImage grijs = bureaublad.grab().toImage();
    EXPECT_EQ(grijs.pixelColor(5, 5), QColor(0x40, 0x40, 0x40));
    EXPECT_EQ(grijs.pixelColor(1018, 762), QColor(0x40, 0x40, 0x40));
}
