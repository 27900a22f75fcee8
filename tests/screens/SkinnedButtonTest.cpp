#include "controls/Accounts.h"
#include "controls/Knop2.h"

#include <QImage>
#include <gtest/gtest.h>

using namespace tk;

namespace {
QImage vlak(QSize maat, QColor kleur) {
    QImage b(maat, QImage::Format_RGB32);
    b.fill(kleur);
    return b;
}
const QRect venster(100, 100, 50, 20);
const QPoint binnen(120, 110), buiten(10, 10);
} // namespace

// The state a tick of the hover timer shows: 0 normal, 1 pressed, 2 under the mouse.
TEST(SkinnedButtonTest, PressLeaveAndComeBackShowsThePressedPictureAgainIfThereIsOne) {
    for (const bool metDown : {true, false}) {
        SCOPED_TRACE(metDown);
        Knop2 k;
        k.Afbeelding_Normaal = vlak({50, 20}, Qt::red);
        k.Afbeelding_Hover = vlak({50, 20}, Qt::green);
        if (metDown)
            k.Afbeelding_Down = vlak({50, 20}, Qt::blue);
        k.tmrHover_Timer(binnen, venster);
        EXPECT_EQ(2, k.toestand);
        k.UserControl_MouseDown(1, 0, {});
        EXPECT_EQ(2, k.toestand); // the press shows at the next tick
        k.tmrHover_Timer(binnen, venster);
        EXPECT_EQ(metDown ? 1 : 0, k.toestand);
        EXPECT_EQ(QColor(metDown ? Qt::blue : Qt::red).rgb(), k.Teken().pixel(5, 5));
        k.tmrHover_Timer(buiten, venster);
        EXPECT_EQ(0, k.toestand);
        k.tmrHover_Timer(binnen, venster);
        EXPECT_EQ(metDown ? 1 : 0, k.toestand);
        k.UserControl_MouseUp(1, 0, {});
        k.tmrHover_Timer(binnen, venster);
        EXPECT_EQ(2, k.toestand);
        // The edge itself is not inside; a disabled button shows no hover.
        k.tmrHover_Timer(QPoint(100, 110), venster);
        EXPECT_EQ(0, k.toestand);
        k.tmrHover_Timer(binnen, venster);
        k.Enabled = false;
        k.tmrHover_Timer(binnen, venster);
        EXPECT_EQ(0, k.toestand);
    }
}

TEST(SkinnedButtonTest, RasterStepsLeaveTheBackgroundAroundTheMask) {
    const QImage achter = vlak({10, 1}, QColor(10, 20, 30));
    QImage masker = vlak({10, 1}, Qt::white);
    for (int x = 3; x < 7; ++x)
        masker.setPixel(x, 0, qRgb(0, 0, 0));
    // A picture drawn on black (as a cloud) and one drawn on white: the same result.
    for (QColor rond : {QColor(Qt::black), QColor(Qt::white)}) {
        QImage beeld = vlak({10, 1}, rond);
        for (int x = 3; x < 7; ++x)
            beeld.setPixel(x, 0, qRgb(200, 100, 50));
        const QImage uit = Knop2::samenstellen(achter, masker, beeld);
        EXPECT_EQ(qRgb(10, 20, 30), uit.pixel(0, 0));
        EXPECT_EQ(qRgb(10, 20, 30), uit.pixel(9, 0));
        EXPECT_EQ(qRgb(200, 100, 50), uit.pixel(4, 0));
    }
}

TEST(SkinnedButtonTest, PropertiesReadWithTheirDefaults) {
    Knop2 k;
    k.Groepnummer = "5";
    k.X = 7;
    k.UserControl_ReadProperties({{"Tekst", "Hallo"}, {"X", 70000}});
    EXPECT_EQ("-1", k.Groepnummer);
    EXPECT_EQ(0, k.X); // out of a 16-bit range: the default
    EXPECT_EQ(99, k.MousePointer);
    EXPECT_TRUE(k.Enabled);
    EXPECT_EQ("Hallo", k.Tekst);
    Knop2 kopie;
    kopie.UserControl_ReadProperties(k.UserControl_WriteProperties());
    EXPECT_EQ(k.Tekst, kopie.Tekst);
    EXPECT_EQ(k.MousePointer, kopie.MousePointer);

    Accounts a;
    a.UserControl_ReadProperties({{"Tekst", " Kinderen"}, {"Geselecteerd", true}});
    a.Normale_kleur = Qt::white;
    a.Teksthover = Qt::yellow;
    EXPECT_EQ(QColor(Qt::yellow), a.tekstKleur());
    a.Geselecteerd = false;
    EXPECT_EQ(QColor(Qt::white), a.tekstKleur());
    EXPECT_GT(a.Wijdte(), 0);
}
