#include "screens/desktop/FrmKlok.h"
#include "screens/desktop/FrmKlokView.h"
#include "tests/support/Werkplek.h"

#include <QtMath>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::Werkplek;

TEST(KlokTest, MinuteMarksRunClockwiseFromTheTopAndEveryFifthIsLonger) {
    struct Case {
        int i;
        double dx, dy; // the direction from the centre
        double lengte;
    };
    const Case cases[] = {
        {0, 0, -1, 4},  // up
        {15, 1, 0, 4},  // right
        {30, 0, 1, 4},  // down
        {45, -1, 0, 4}, // left
        {1, qSin(M_PI / 30), -qCos(M_PI / 30), 3},
        {59, -qSin(M_PI / 30), -qCos(M_PI / 30), 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.i);
        const QLineF s = FrmKlok::Minuutstreep(c.i);
        EXPECT_NEAR(c.lengte, s.length(), 1e-6);
        // The outer end lies on the circle of radius 50 around (188, 188).
        EXPECT_NEAR(FrmKlok::Midden + 50 * c.dx, s.p2().x(), 1e-6);
        EXPECT_NEAR(FrmKlok::Midden + 50 * c.dy, s.p2().y(), 1e-6);
        EXPECT_NEAR(FrmKlok::Midden + (50 - c.lengte) * c.dx, s.p1().x(), 1e-6);
        EXPECT_NEAR(FrmKlok::Midden + (50 - c.lengte) * c.dy, s.p1().y(), 1e-6);
    }
}

TEST(KlokTest, TheWindowIsTheDialOnTopAndIsDraggedByItsPicture) {
    Werkplek w;
    FrmKlok k(w.p);
    k.hWnd = 42;
    k.Form_Load();
    const QImage masker = k.Masker();
    ASSERT_EQ(QSize(FrmKlok::Zijde, FrmKlok::Zijde), masker.size());
    // The key colour's corners are out, the dial's centre and its marks are in.
    auto binnen = [&](QPointF face) {
        const QPoint v = FrmKlok::naarVenster(face).toPoint();
        return masker.pixelIndex(v.x(), v.y()) == 1;
    };
    EXPECT_EQ(0, masker.pixelIndex(0, 0));
    EXPECT_EQ(0, masker.pixelIndex(FrmKlok::Zijde - 1, FrmKlok::Zijde - 1));
    EXPECT_TRUE(binnen(QPointF(FrmKlok::Midden, FrmKlok::Midden)));
    EXPECT_TRUE(binnen(FrmKlok::Minuutstreep(0).p2()));
    EXPECT_TRUE(binnen(FrmKlok::Minuutstreep(22).p1()));
    int uit = 0;
    for (int y = 0; y < masker.height(); ++y)
        for (int x = 0; x < masker.width(); ++x)
            uit += masker.pixelIndex(x, y) == 0;
    // A disc leaves about a fifth of its square outside.
    EXPECT_NEAR(1 - M_PI / 4, double(uit) / (masker.width() * masker.height()), 0.03);

    k.imgVerslepen_MouseDown(2, QPoint(5, 5)); // only the left button drags
    k.imgVerslepen_MouseDown(1, QPoint(300, 400));
    EXPECT_EQ(QStringList({"ontop 42 1", "move 42 300,400"}), w.platform.fakeWindows().log);
}

TEST(KlokTest, HandsAndTextFollowTheClockAndTheViewShowsThem) {
    Werkplek w;
    w.platform.fakeClock().setNow(QDateTime(QDate(2026, 3, 9), QTime(3, 0, 30)));
    FrmKlok k(w.p);
    FrmKlokView view(k);
    view.openen();
    EXPECT_EQ(k.lblTijd, "3:00");
    EXPECT_EQ(k.lblDatum, "9-3-2026");
    // Three o'clock: the hour hand points right, the minute hand just past the top, the second
    // hand down.
    const double m = FrmKlok::Midden;
    EXPECT_GT(k.uurwijzer.p2().x(), m + 20);
    EXPECT_NEAR(m, k.uurwijzer.p2().y(), 1.0);
    EXPECT_LT(k.minuutwijzer.p2().y(), m - 30);
    EXPECT_NEAR(m, k.secondewijzer.p2().x(), 1e-6);
    EXPECT_GT(k.secondewijzer.p2().y(), m);
    EXPECT_LT(k.uurwijzer.length(), k.minuutwijzer.length());

    const QImage beeld = view.grab().toImage();
    auto kleur = [&](QPointF face) {
        const QPoint v = FrmKlok::naarVenster(face).toPoint();
        return beeld.pixelColor(v.x(), v.y());
    };
    auto donker = [](QColor c) { return c.red() + c.green() + c.blue() < 3 * 128; };
    // The hour hand to the right, the minute hand up; nothing to the left.
    EXPECT_TRUE(donker(kleur({m + 15, m})));
    EXPECT_TRUE(donker(kleur({m, m - 30})));
    EXPECT_FALSE(donker(kleur({m - 15, m + 8})));
    // The marks: the one of twelve o'clock is dark, the dial between marks is light.
    EXPECT_TRUE(donker(kleur(FrmKlok::Minuutstreep(0).center())));
    EXPECT_FALSE(donker(kleur(FrmKlok::Wijzerpunt(2.5, FrmKlok::Straal - 2))));
    // The time and the date are written on the dial.
    int tekst = 0;
    for (int y = 0; y < beeld.height() / 2 - 8; ++y)
        for (int x = 20; x < beeld.width() - 20; ++x)
            tekst += donker(beeld.pixelColor(x, y)) && y > 20;
    EXPECT_GT(tekst, 20);

    w.platform.fakeClock().advance((12 * 60 + 9) * 60 * 1000); // a 24-hour clock
    k.Timer1_Timer();
    EXPECT_EQ(k.lblTijd, "15:09");
    view.close();
}
