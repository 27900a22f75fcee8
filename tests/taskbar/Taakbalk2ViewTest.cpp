#include "screens/taskbar/FrmTaakbalk2View.h"
#include "tests/screens/PngBewaren.h"
#include "tests/support/Werkplek.h"

#include <QImage>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::Werkplek;
using K = FrmTaakbalk2::Kolom;

namespace {

int tel(const QImage& beeld, const QRect& gebied, const QColor& kleur) {
    int n = 0;
    for (int y = gebied.top(); y <= gebied.bottom(); ++y)
        for (int x = gebied.left(); x <= gebied.right(); ++x)
            n += beeld.pixelColor(x, y) == kleur;
    return n;
}

} // namespace

TEST(Taakbalk2ViewTest, PaintsTasksPressedHoveredAndCut) {
    Werkplek w(Werkplek::taakbalk);
    QImage rood(16, 16, QImage::Format_ARGB32);
    rood.fill(QColor(220, 0, 0));
    w.programma(1, "Rekenen");
    w.programma(2, "Een heel lange titel van een tekstverwerker die niet past");
    w.programma(3, QString(10000, QLatin1Char('x')));
    w.vensters().icons.insert(1, rood);
    w.vensters().active = 2;
    w.p.InternetOpen = FrmTaakbalk2::InternetActief;
    w.tik();
    ASSERT_EQ(4, w.balk2().AantalKnoppen);
    w.balk2().Form_MouseMove(w.midden(3));
    ASSERT_EQ(3, w.balk2().HoverKnop);

    FrmTaakbalk2View view(w.balk2());
    view.setGeometry(0, 0, 1024, w.balk2().Hoogte);
    const QImage beeld = view.grab().toImage().convertToFormat(QImage::Format_RGB32);
    tk::test::bewaarPng(beeld, "taakbalk-taken");
    ASSERT_EQ(QSize(1024, 40), beeld.size());

    const auto kader = [&](int rij) {
        return QRect(w.kolom(rij, K::KaderLinks) + 3, 8,
                     w.kolom(rij, K::KaderRechts) - w.kolom(rij, K::KaderLinks) - 8, 24);
    };
    // The pressed button is filled with the theme's selected colour, the hovered one with the
    // hover colour, the others with neither.
    EXPECT_GT(tel(beeld, kader(2), w.balk2().takenGeselecteerd), 200);
    EXPECT_GT(tel(beeld, kader(3), w.balk2().takenHover), 200);
    EXPECT_EQ(0, tel(beeld, kader(1), w.balk2().takenGeselecteerd));
    EXPECT_EQ(0, tel(beeld, kader(1), w.balk2().takenHover));
    // The window's icon stands at the button's left plus 2.
    EXPECT_EQ(QColor(220, 0, 0), beeld.pixelColor(w.kolom(1, K::Links) + 2 + 8, 20));
    // Titles stay inside their buttons: the column just past the hovered frame is no hover.
    EXPECT_EQ(0, tel(beeld, QRect(w.kolom(3, K::KaderRechts) + 1, 8, 3, 24), w.balk2().takenHover));
    // The log-off button's picture stands at the left.
    const QRect afmelden = w.balk2().zoek("afmelden")->plek;
    int oranje = 0;
    for (int y = afmelden.top(); y <= afmelden.bottom(); ++y)
        for (int x = afmelden.left(); x < afmelden.left() + FrmTaakbalk2::BeeldMaat; ++x) {
            const QColor c = beeld.pixelColor(x, y);
            oranje += c.red() > 200 && c.green() > 110 && c.green() < 200 && c.blue() < 120;
        }
    EXPECT_GT(oranje, 200);
}

// The view's hooks: marked a bar for the manager before the bar loads and shows, placed where the
// model says, and out of the way while a program has the whole screen. (That the manager then
// keeps the strip free is the platform's X test.)
TEST(Taakbalk2ViewTest, OpeningMarksTheWindowABarFirstAndItStepsAsideForAWholeScreenProgram) {
    Werkplek w(Werkplek::taakbalk);
    FrmTaakbalk2View view(w.balk2());
    for (int keer = 0; keer < 2; ++keer) { // closed with the desktop and opened with the next
        SCOPED_TRACE(keer);
        view.sluiten();
        w.vensters().log.clear();
        view.openen();
        ASSERT_FALSE(w.vensters().log.isEmpty());
        EXPECT_EQ(w.vensters().log.first(), QStringLiteral("kind %1 dock").arg(view.winId()));
        EXPECT_TRUE(view.isVisible());
        EXPECT_EQ(view.geometry(), w.balk2().Plek);
        EXPECT_EQ(view.geometry().bottom() + 1, w.balk2().SchermHoogte);
    }
    w.balk2().ZetZichtbaar(false);
    EXPECT_FALSE(view.isVisible());
    w.balk2().ZetZichtbaar(true);
    EXPECT_TRUE(view.isVisible());
    view.sluiten();
}
