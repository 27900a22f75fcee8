// The wait windows: frmWachten, frmAanmelden and frmAfmelden, as models and painted offscreen.
#include "PngBewaren.h"
#include "screens/common/Laadbalk.h"
#include "screens/start/FrmAanmelden.h"
#include "screens/start/FrmAanmeldenView.h"
#include "screens/start/FrmWachten.h"
#include "screens/start/FrmWachtenView.h"
#include "screens/taskbar/FrmAfmelden.h"
#include "screens/taskbar/FrmAfmeldenView.h"
#include "tests/support/Werkplek.h"

#include <QImage>
#include <gtest/gtest.h>

using namespace tk;
using namespace tk::test;

namespace {

bool dichtbij(QRgb a, QColor b, int marge = 40) {
    return qAbs(qRed(a) - b.red()) < marge && qAbs(qGreen(a) - b.green()) < marge &&
           qAbs(qBlue(a) - b.blue()) < marge;
}

// The columns of a band of rows that hold pixels darker than the background, inside the
// window's rim.
std::pair<int, int> donkereKolommen(const QImage& beeld, int boven, int onder) {
    int links = beeld.width(), rechts = -1;
    for (int y = boven; y < onder; ++y)
        for (int x = 4; x < beeld.width() - 4; ++x)
            if (qGray(beeld.pixel(x, y)) < 128) {
                links = qMin(links, x);
                rechts = qMax(rechts, x);
            }
    return {links, rechts};
}

const char* themaIni = "\\Afbeeldingen\\Skins\\1\\Instellingen.ini";

} // namespace

// The bar of the start screen and the wait windows, for a bar of 400 unless a row says otherwise.
TEST(LaadbalkTest, BlocksFillUpToTheValueAndTheBouncingBlockRunsToTheEndAndBack) {
    struct Blokken {
        int breedte, totaal, huidig, aantal;
        QRect laatste;
    };
    const Blokken blokken[] = {
        {400, 100, 0, 1, {0, 2, 8, 9}}, // nothing done: the first block only
        {400, 100, -4, 1, {0, 2, 8, 9}},
        {400, 100, 50, 20, {190, 2, 8, 9}}, // the end at 199
        {400, 3, 1, 14, {130, 2, 8, 9}},
        {402, 2, 1, 21, {200, 2, 8, 9}},     // half of 400: a block at 200 too
        {400, 0, -4, 1, {0, 2, 8, 9}},       // nothing of nothing: no division
        {400, 100, 100, 40, {390, 2, 7, 9}}, // full: the last block cut at width - 3
        {400, 100, 150, 40, {390, 2, 7, 9}},
        {400, 0, 0, 40, {390, 2, 7, 9}},
        {57, 10, 10, 5, {40, 2, 14, 9}},
    };
    for (const Blokken& b : blokken) {
        SCOPED_TRACE(testing::Message() << b.breedte << " " << b.totaal << " " << b.huidig);
        const QList<QRect> uit = Laadbalk::blokken(b.breedte, b.totaal, b.huidig);
        ASSERT_EQ(b.aantal, uit.size());
        EXPECT_EQ(b.laatste, uit.last());
        for (int i = 0; i + 1 < uit.size(); ++i)
            EXPECT_EQ(QRect(i * Laadbalk::Pitch, 2, 8, 9), uit[i]);
    }
    struct Sprong {
        int breedte, totaal, huidig;
        bool omlaag;
        int links;
    };
    const Sprong sprongen[] = {
        {400, 100, 0, false, 2},     {400, 100, 50, false, 190},
        {400, 100, 50, true, 180},   {400, 100, 1, false, 2},
        {400, 100, 110, false, 389}, {400, 100, -9, true, 2},
        {400, 0, 50, false, 2},      {12, 100, 50, false, 2},
        {13, 100, 100, false, 2}, // a bar too narrow for the block keeps it at the rim
    };
    for (const Sprong& s : sprongen) {
        SCOPED_TRACE(testing::Message() << s.breedte << " " << s.huidig << " " << s.omlaag);
        EXPECT_EQ(QRect(s.links, 2, 8, 9),
                  Laadbalk::springBlok(s.breedte, s.totaal, s.huidig, s.omlaag));
    }
    // The counter runs up to 110, turns, runs down below -9 and turns again.
    int teller = 0;
    bool omlaag = false;
    for (int i = 0; i < 109; ++i)
        Laadbalk::stap(teller, omlaag);
    EXPECT_FALSE(omlaag);
    Laadbalk::stap(teller, omlaag);
    EXPECT_EQ(110, teller);
    EXPECT_TRUE(omlaag);
    for (int i = 0; i < 120; ++i)
        Laadbalk::stap(teller, omlaag);
    EXPECT_EQ(-10, teller);
    EXPECT_FALSE(omlaag);
    EXPECT_EQ(QPoint(200, 28), Laadbalk::tekstPlek(QSize(400, 40)));
}

TEST(WachtvenstersTest, WaitColoursFallBackByThemeFolder) {
    struct Geval {
        const char* thema;
        const char* streep;
        const char* rand;
        QColor verwachtStreep, verwachtRand;
    };
    const QColor groen(10, 112, 0), blauw(112, 148, 241);
    const Geval gevallen[] = {
        {"1", "", "", groen, groen},
        {"8", "", "", blauw, blauw},
        {"8", "1,2,3", "4,5", QColor(1, 2, 3), blauw},     // a short key falls back alone
        {"1", "1,2,3,4", "9,9,9", groen, QColor(9, 9, 9)}, // four parts is not three
    };
    for (const Geval& g : gevallen) {
        SCOPED_TRACE(std::string(g.thema) + " " + g.streep + " / " + g.rand);
        Werkplek w(Werkplek::startscherm);
        if (QString(g.thema) != "1") {
            w.kopieerThema(); // theme 1 stays; the other is a copy
            QDir().rename(w.pad("Afbeeldingen/Skins/1"),
                          w.pad(QString("Afbeeldingen/Skins/") + g.thema));
            w.kopieerThema();
        }
        const QString ini = QString("\\Afbeeldingen\\Skins\\%1\\Instellingen.ini").arg(g.thema);
        w.p.modMain.SchrijfIni(g.streep, "Kleuren", "Laadbalk wachten streep", ini);
        w.p.modMain.SchrijfIni(g.rand, "Kleuren", "Laadbalk wachten rand", ini);
        w.p.modMain.MaakMappen("\\Data");
        w.p.modMain.SchrijfIni(g.thema, "Instellingen", "Thema", "\\Data\\Instellingen.ini");
        w.p.modThema->LaadThema();
        ASSERT_EQ(QString(g.thema), w.p.modThema->huidigThema);
        FrmWachten f(w.p);
        f.Openen("x", 0);
        EXPECT_EQ(g.verwachtStreep, f.KleurStreep);
        EXPECT_EQ(g.verwachtRand, f.KleurRand);
        EXPECT_TRUE(w.dialogen.getoond.isEmpty()); // the fall-backs are no fault
    }
}

TEST(WachtvenstersTest, TheWaitWindowCentresItsLinesAndShowsItsValueOrBouncesWithoutAMaximum) {
    Werkplek w(Werkplek::startscherm);
    FrmWachten f(w.p);
    f.Openen("Een korte regel\r\nEn een veel langere tweede regel eronder", 10);
    ASSERT_EQ(2, f.regels.size());
    EXPECT_GT(f.picLaden.plek.top(), f.regelsBoven + 2 * f.regelHoogte - 1);
    FrmWachtenView view(f);
    const QImage beeld = view.grab().toImage();
    ASSERT_EQ(QSize(f.Breedte, f.Hoogte), beeld.size());
    for (int regel = 0; regel < 2; ++regel) {
        SCOPED_TRACE(regel);
        const int boven = f.regelsBoven + regel * f.regelHoogte;
        const auto [links, rechts] = donkereKolommen(beeld, boven, boven + f.regelHoogte);
        ASSERT_LT(links, rechts);
        EXPECT_NEAR(f.Breedte / 2, (links + rechts) / 2, 3);
    }
    // The second line is the longer one.
    const auto eerste = donkereKolommen(beeld, f.regelsBoven, f.regelsBoven + f.regelHoogte);
    const auto tweede =
        donkereKolommen(beeld, f.regelsBoven + f.regelHoogte, f.regelsBoven + 2 * f.regelHoogte);
    EXPECT_GT(tweede.second - tweede.first, eerste.second - eerste.first + 50);
    // The bar: its rim and, after half the work, a block on the left and none on the right.
    f.Waarde(5);
    const QImage half = view.grab().toImage();
    bewaarPng(half, "frmWachten");
    const QRect r = f.picLaden.plek;
    EXPECT_TRUE(dichtbij(half.pixel(r.left() + 1, r.top() + 6), f.KleurRand, 10));
    EXPECT_TRUE(dichtbij(half.pixel(r.left() + 4, r.top() + 6), f.KleurStreep, 10));
    EXPECT_TRUE(dichtbij(half.pixel(r.right() - 10, r.top() + 6), f.KleurStatus, 10));

    f.Openen("Opslaan", 10);
    EXPECT_FALSE(f.tmrLadenActief());
    const int breedte = f.picLaden.plek.width();
    f.Waarde(5);
    EXPECT_EQ(Laadbalk::blokken(breedte, 10, 5), f.picLaden.blokkenNu);
    // Without a text the bar takes the top; the window stays as wide as it was made.
    const int metTekst = f.picLaden.plek.top();
    f.Openen(QString(), 10);
    EXPECT_TRUE(f.regels.isEmpty());
    EXPECT_EQ(metTekst - f.regelHoogte, f.picLaden.plek.top());
    EXPECT_EQ(FrmWachten::MinBreedte, f.Breedte);

    f.Openen("Bezig", 0);
    EXPECT_TRUE(f.Zichtbaar);
    EXPECT_TRUE(f.tmrLadenActief());
    for (int i = 0; i < 50; ++i)
        f.tmrLaden_Timer();
    const QList<QRect> springen{Laadbalk::springBlok(breedte, 100, 50, false)};
    EXPECT_EQ(springen, f.picLaden.blokkenNu);
    f.Waarde(20); // no bar to move without a maximum
    EXPECT_EQ(springen, f.picLaden.blokkenNu);
    f.Sluiten();
    EXPECT_FALSE(f.Zichtbaar);
    EXPECT_FALSE(f.tmrLadenActief());
    f.Openen("Nog eens", 3); // a maximum stops the bouncing
    EXPECT_FALSE(f.tmrLadenActief());
}

TEST(WachtvenstersTest, LoggingInWindowFillsTheScreenBouncesWithItsTextAndSurvivesABrokenTheme) {
    Werkplek w(Werkplek::startscherm);
    FrmAanmelden f(w.p);
    f.Openen();
    EXPECT_TRUE(f.Zichtbaar);
    EXPECT_TRUE(f.tmrLadenActief());
    EXPECT_EQ(w.p.modTaal.LaadTekst(200), f.Caption);
    EXPECT_EQ(w.p.modTaal.LaadTekst(201), f.picLaden.tekst);
    EXPECT_FALSE(f.picLaden.tekst.contains("%productnaam%"));
    // Centred on the screen above the taskbar.
    EXPECT_EQ(FrmAanmelden::Breedte / 2, f.picLaden.plek.center().x() + 1);
    EXPECT_NEAR(FrmAanmelden::SchermHoogte / 2, f.picLaden.plek.top() + 6, 2);
    for (int i = 0; i < 30; ++i)
        f.tmrLaden_Timer();
    EXPECT_EQ(30, f.picLaden.teller);
    EXPECT_TRUE(w.dialogen.getoond.isEmpty());

    FrmAanmeldenView view(f);
    view.resize(FrmAanmelden::Breedte, FrmAanmelden::Hoogte);
    const QImage beeld = view.grab().toImage();
    bewaarPng(beeld, "frmAanmelden");
    const QImage achter(w.pad("Afbeeldingen/Skins/1/Schermen/Startscherm.jpg"));
    const QImage balk(w.pad("Afbeeldingen/Skins/1/Taakbalk/Startscherm.jpg"));
    EXPECT_TRUE(dichtbij(beeld.pixel(100, 100), achter.pixel(100, 100)));
    EXPECT_TRUE(dichtbij(beeld.pixel(900, 40), achter.pixel(900, 40)));
    EXPECT_TRUE(dichtbij(beeld.pixel(500, 720), balk.pixel(500, 720 - 685)));
    const QRect r = f.picLaden.plek;
    EXPECT_TRUE(dichtbij(beeld.pixel(r.left() + 1, r.top() + 1), f.KleurRand, 10));
    const QRect blok = f.picLaden.blokkenNu.value(0).translated(r.topLeft());
    EXPECT_TRUE(dichtbij(beeld.pixel(blok.center()), f.KleurStreep, 10));
    // The text under the bar: dark pixels round the bar's middle.
    const auto [links, rechts] = donkereKolommen(beeld, r.top() + 18, r.bottom());
    ASSERT_LT(links, rechts);
    EXPECT_NEAR(r.center().x(), (links + rechts) / 2, 4);

    f.Sluiten();
    EXPECT_FALSE(f.Zichtbaar);
    EXPECT_FALSE(f.tmrLadenActief());

    // With a broken theme it reports and still paints.
    Werkplek k(Werkplek::startscherm);
    QFile::remove(k.pad("Afbeeldingen/Skins/1/Schermen/Startscherm.jpg"));
    k.p.modMain.SchrijfIni("1,2", "Kleuren", "Laadbalk streep", themaIni);
    FrmAanmelden g(k.p);
    g.Openen();
    EXPECT_TRUE(g.Zichtbaar);
    EXPECT_TRUE(g.tmrLadenActief());
    ASSERT_EQ(2, k.dialogen.getoond.size()); // the colours and the picture, each once
    EXPECT_EQ("frmAanmelden.LaadVormgeving", k.p.frmFoutrapportage.Procedure);
    EXPECT_TRUE(g.achtergrond.isNull());
    EXPECT_FALSE(g.taakbalk.isNull()); // the part after the fault still came in
    FrmAanmeldenView kaal(g);
    kaal.resize(FrmAanmelden::Breedte, FrmAanmelden::Hoogte);
    EXPECT_TRUE(dichtbij(kaal.grab().toImage().pixel(100, 100), g.KleurAchtergrond, 5));
}

TEST(WachtvenstersTest, LogOffWindowShowsItsTextOverTheBar) {
    Werkplek w(Werkplek::startscherm);
    FrmAfmelden f(w.p);
    f.Openen();
    EXPECT_EQ(w.p.modTaal.LaadTekst(716), f.lblAfmelden);
    EXPECT_TRUE(f.tmrLadenActief());
    f.tmrLaden_Timer();
    FrmAfmeldenView view(f);
    const QImage beeld = view.grab().toImage();
    bewaarPng(beeld, "frmAfmelden");
    ASSERT_EQ(QSize(FrmAfmelden::Breedte, FrmAfmelden::Hoogte), beeld.size());
    const auto [links, rechts] = donkereKolommen(beeld, 14, f.picLaden.plek.top() - 6);
    ASSERT_LT(links, rechts);
    EXPECT_NEAR(FrmAfmelden::Breedte / 2, (links + rechts) / 2, 4);
    f.Sluiten();
    EXPECT_FALSE(f.tmrLadenActief());
    // A short colour key is reported and the window opens all the same.
    w.p.modMain.SchrijfIni("30,58", "Kleuren", "Laadbalk rand", themaIni);
    f.Openen();
    EXPECT_TRUE(f.Zichtbaar);
    EXPECT_EQ(QStringList({"frmFoutrapportage"}), w.dialogen.getoond);
    EXPECT_EQ("frmAfmelden.LaadVormgeving", w.p.frmFoutrapportage.Procedure);
}
