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

TEST(WachtvenstersTest, WaitBarFollowsTheValueAndAValueAboveTheMaximumFillsIt) {
    Werkplek w(Werkplek::startscherm);
    FrmWachten f(w.p);
    f.Openen("Opslaan", 10);
    EXPECT_FALSE(f.tmrLadenActief());
    const int breedte = f.picLaden.plek.width();
    ASSERT_EQ(1, f.picLaden.blokkenNu.size()); // 0 of 10: the first block only
    f.Waarde(5);
    EXPECT_EQ(Laadbalk::blokken(breedte, 10, 5), f.picLaden.blokkenNu);
    EXPECT_LT(f.picLaden.blokkenNu.last().right(), breedte / 2 + Laadbalk::Pitch);
    f.Waarde(25);
    const QList<QRect> vol = f.picLaden.blokkenNu;
    f.Waarde(10);
    EXPECT_EQ(vol, f.picLaden.blokkenNu);
    EXPECT_EQ(breedte - 3, vol.last().right() + 1); // the last partial block ends at width - 3
    for (int i = 1; i < vol.size(); ++i)
        EXPECT_EQ(Laadbalk::Pitch, vol[i].left() - vol[i - 1].left());
    f.Waarde(-4); // below zero counts as nothing done
    EXPECT_EQ(1, f.picLaden.blokkenNu.size());
    // Without a text the bar takes the top; the window stays as wide as it was made.
    const int metTekst = f.picLaden.plek.top();
    f.Openen(QString(), 10);
    EXPECT_TRUE(f.regels.isEmpty());
    EXPECT_EQ(metTekst - f.regelHoogte, f.picLaden.plek.top());
    EXPECT_EQ(FrmWachten::MinBreedte, f.Breedte);
}

TEST(WachtvenstersTest, WithoutAMaximumTheBlockBouncesUntilTheWindowCloses) {
    Werkplek w(Werkplek::startscherm);
    FrmWachten f(w.p);
    f.Openen("Bezig", 0);
    EXPECT_TRUE(f.Zichtbaar);
    EXPECT_TRUE(f.tmrLadenActief());
    int grootste = 0, kleinste = 1000;
    bool terug = false;
    for (int i = 0; i < 260; ++i) {
        f.tmrLaden_Timer();
        ASSERT_EQ(1, f.picLaden.blokkenNu.size());
        const QRect b = f.picLaden.blokkenNu[0];
        EXPECT_EQ(Laadbalk::Blok, b.width());
        EXPECT_GE(b.left(), 2);
        EXPECT_LE(b.right(), f.picLaden.plek.width() - 3);
        grootste = qMax(grootste, b.left());
        if (f.picLaden.omlaag)
            terug = true;
        if (terug)
            kleinste = qMin(kleinste, b.left());
    }
    EXPECT_TRUE(terug);
    EXPECT_GE(grootste, f.picLaden.plek.width() - 30);
    EXPECT_EQ(2, kleinste); // back at the start after turning
    // Waarde has no bar to move without a maximum.
    const QList<QRect> voor = f.picLaden.blokkenNu;
    f.Waarde(50);
    EXPECT_EQ(voor, f.picLaden.blokkenNu);
    f.Sluiten();
    EXPECT_FALSE(f.Zichtbaar);
    EXPECT_FALSE(f.tmrLadenActief());
    // A second opening with a maximum stops the bouncing.
    f.Openen("Nog eens", 3);
    EXPECT_FALSE(f.tmrLadenActief());
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

TEST(WachtvenstersTest, TwoLinesOfTextStandCentredOverTheBar) {
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
}

TEST(WachtvenstersTest, LoggingInWindowFillsTheScreenAndBouncesWithItsText) {
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
}

TEST(WachtvenstersTest, LoggingInWindowWithABrokenThemeReportsAndStillPaints) {
    Werkplek w(Werkplek::startscherm);
    QFile::remove(w.pad("Afbeeldingen/Skins/1/Schermen/Startscherm.jpg"));
    w.p.modMain.SchrijfIni("1,2", "Kleuren", "Laadbalk streep", themaIni);
    FrmAanmelden f(w.p);
    f.Openen();
    EXPECT_TRUE(f.Zichtbaar);
    EXPECT_TRUE(f.tmrLadenActief());
    ASSERT_EQ(2, w.dialogen.getoond.size()); // the colours and the picture, each once
    EXPECT_EQ("frmAanmelden.LaadVormgeving", w.p.frmFoutrapportage.Procedure);
    EXPECT_TRUE(f.achtergrond.isNull());
    EXPECT_FALSE(f.taakbalk.isNull()); // the part after the fault still came in
    FrmAanmeldenView view(f);
    view.resize(FrmAanmelden::Breedte, FrmAanmelden::Hoogte);
    const QImage beeld = view.grab().toImage();
    EXPECT_TRUE(dichtbij(beeld.pixel(100, 100), f.KleurAchtergrond, 5));
    const QRect r = f.picLaden.plek;
    EXPECT_TRUE(dichtbij(beeld.pixel(r.left() + 1, r.top() + 1), f.KleurRand, 10));
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
    const QRect r = f.picLaden.plek;
    EXPECT_TRUE(dichtbij(beeld.pixel(r.left() + 1, r.top() + 6), f.KleurRand, 10));
    f.Sluiten();
    EXPECT_FALSE(f.tmrLadenActief());
    // A short colour key is reported and the window opens all the same.
    w.p.modMain.SchrijfIni("30,58", "Kleuren", "Laadbalk rand", themaIni);
    f.Openen();
    EXPECT_TRUE(f.Zichtbaar);
    EXPECT_EQ(QStringList({"frmFoutrapportage"}), w.dialogen.getoond);
    EXPECT_EQ("frmAfmelden.LaadVormgeving", w.p.frmFoutrapportage.Procedure);
}
