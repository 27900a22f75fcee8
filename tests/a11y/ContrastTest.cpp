#include "controls/Contrast.h"
#include "controls/AccessibleName.h"
#include "controls/Knop2.h"
#include "controls/Ondergrond.h"
#include "controls/TextScale.h"
#include "screens/ScreenRouter.h"
#include "screens/desktop/FrmBureaubladView.h"
#include "screens/maintenance/FrmOnderhoud.h"
#include "screens/maintenance/FrmOnderhoudView.h"
#include "screens/taskbar/FrmTaakbalk1.h"
#include "screens/taskbar/FrmTaakbalk2.h"
#include "screens/taskbar/FrmTaakbalk2View.h"
#include "screens/taskbar/TaakbalkKnopView.h"
#include "tests/screens/PngBewaren.h"
#include "tests/support/Werkplek.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>
#include <iostream>

using namespace tk;
using namespace tk::test;

TEST(ContrastTest, RatiosAsTheGuidelinesMeasureThem) {
    struct Case {
        QColor a, b;
        double verhouding;
    };
    const Case cases[] = {
        {Qt::black, Qt::white, 21.0},
        {Qt::white, Qt::white, 1.0},
        {QColor(118, 118, 118), Qt::white, 4.54}, // the lightest grey that passes on white
        {QColor(30, 58, 95), QColor(92, 180, 238), 5.05},
        {QColor(255, 221, 87), Qt::white, 1.34},
        {QColor(5, 5, 5), Qt::white, 20.38}, // dark enough for the straight part of the curve
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.a.name().toStdString() + " on " + c.b.name().toStdString());
        EXPECT_NEAR(c.verhouding, Contrast::verhouding(c.a, c.b), 0.01);
        EXPECT_NEAR(c.verhouding, Contrast::verhouding(c.b, c.a), 0.01);
        // The outline colour always stands out from the text.
        EXPECT_GE(Contrast::verhouding(c.a, Contrast::tegenkleur(c.a)), 4.58);
    }
    // The worst pixel under a caption counts: half white, half black.
    QImage beeld(10, 2, QImage::Format_RGB32);
    beeld.fill(Qt::white);
    for (int x = 0; x < 5; ++x)
        beeld.setPixel(x, 0, qRgb(0, 0, 0));
    EXPECT_NEAR(1.0, Contrast::slechtste(Qt::white, beeld, QRect(0, 0, 10, 2)), 0.01);
    EXPECT_NEAR(21.0, Contrast::slechtste(Qt::white, beeld, QRect(0, 0, 5, 1)), 0.01);
    EXPECT_NEAR(21.0, Contrast::slechtste(Qt::white, beeld, QRect(20, 20, 5, 5)), 0.01);
    // The worst pixel in the last row of the area, and the lightest not the last pixel.
    beeld.setPixel(9, 1, qRgb(0, 0, 0));
    EXPECT_NEAR(1.0, Contrast::slechtste(Qt::black, beeld, QRect(5, 0, 5, 2)), 0.01);
    QImage drie(3, 1, QImage::Format_RGB32);
    drie.setPixel(0, 0, qRgb(255, 255, 255));
    drie.setPixel(1, 0, qRgb(0, 0, 0));
    drie.setPixel(2, 0, qRgb(128, 128, 128));
    EXPECT_NEAR(1.0, Contrast::slechtste(Qt::white, drie, drie.rect()), 0.01);
    EXPECT_NEAR(1.0, Contrast::slechtste(Qt::black, drie, drie.rect()), 0.01); // nor the darkest
    // A picture in another pixel format is measured the same.
    const QImage smal = beeld.convertToFormat(QImage::Format_RGB888);
    EXPECT_NEAR(1.0, Contrast::slechtste(Qt::white, smal, QRect(0, 0, 10, 2)), 0.01);
    EXPECT_NEAR(21.0, Contrast::slechtste(Qt::white, smal, QRect(0, 0, 5, 1)), 0.01);

    // The outline stands one pixel around every stroke of the caption, and only when asked.
    auto schrijf = [](const QColor& kleur, bool rand) {
        QImage b(40, 20, QImage::Format_RGB32);
        b.fill(Qt::gray);
        QPainter p(&b);
        QFont font = p.font(); // whole pixels, so that colours compare exactly
        font.setStyleStrategy(QFont::NoAntialias);
        p.setFont(font);
        Contrast::schrijf(p, QPoint(8, 14), "Wm", kleur, rand);
        return b;
    };
    auto vakVan = [](const QImage& b, QRgb kleur) {
        QRect vak;
        for (int y = 0; y < b.height(); ++y)
            for (int x = 0; x < b.width(); ++x)
                if ((b.pixel(x, y) & 0xffffff) == (kleur & 0xffffff))
                    vak |= QRect(x, y, 1, 1);
        return vak;
    };
    const QRect inkt = vakVan(schrijf(Qt::white, false), qRgb(255, 255, 255));
    ASSERT_FALSE(inkt.isEmpty());
    EXPECT_EQ(inkt.adjusted(-1, -1, 1, 1), vakVan(schrijf(Qt::gray, true), qRgb(0, 0, 0)));
    EXPECT_TRUE(vakVan(schrijf(Qt::gray, false), qRgb(0, 0, 0)).isEmpty());
}

TEST(ContrastTest, AccessibleNamesOfBadInput) {
    const QString lang(10000, QChar(u'a'));
    QString paar = QString(AccessibleName::Langste - 2, QChar(u'b'));
    paar += QString::fromUtf8("😀😀😀"); // a surrogate pair across the cut
    struct Case {
        QString tekst, zonder, naam;
    };
    const Case cases[] = {
        {"Groep 5", "Groep 9", "Groep 5"},
        {"", "Groep 3", "Groep 3"},
        {" \r\n ", "Groep 3", "Groep 3"},
        {"Twee\r\nregels", "", "Twee regels"},
        {"&Kinderen && ouders", "", "Kinderen & ouders"},
        {lang, "", QString(AccessibleName::Langste - 1, QChar(u'a')) + QChar(0x2026)},
        {QString::fromUtf8("שלום עולם"), "", QString::fromUtf8("שלום עולם")},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.tekst.left(20).toStdString());
        EXPECT_EQ(c.naam, AccessibleName::maak(c.tekst, c.zonder));
    }
    const QString geknipt = AccessibleName::maak(paar);
    EXPECT_LE(geknipt.size(), AccessibleName::Langste);
    EXPECT_FALSE(geknipt.at(geknipt.size() - 2).isHighSurrogate());
}

namespace {
// A caption's contrast as the screen shows it: against the picture under it, or against its
// outline where the painter draws one.
struct Gemeten {
    double direct;
    double zichtbaar;
};
Gemeten meet(const QColor& tekst, double direct) {
    return {direct, direct >= Contrast::Minimum
                        ? direct
                        : Contrast::verhouding(tekst, Contrast::tegenkleur(tekst))};
}
Gemeten meet(const QColor& tekst, const QImage& onder, const QRect& vak) {
    return meet(tekst, Contrast::slechtste(tekst, onder, vak));
}
// Pixels of the outline colour inside `vak` that the picture without the caption lacks.
int randPixels(const QImage& getekend, const QImage& kaal, const QRect& vak, const QColor& tekst) {
    const QRgb rand = Contrast::tegenkleur(tekst).rgb() & 0xffffff;
    int gevonden = 0;
    for (int y = vak.top(); y <= vak.bottom(); ++y)
        for (int x = vak.left(); x <= vak.right(); ++x)
            gevonden +=
                (getekend.pixel(x, y) & 0xffffff) == rand && (kaal.pixel(x, y) & 0xffffff) != rand;
    return gevonden;
}
} // namespace

TEST(ContrastTest, DefaultThemeCaptionsReadOnTheirPictures) {
    Werkplek w(Werkplek::startscherm);
    for (int i = 0; i < 8; ++i)
        w.startKlas(i, QString("Groep %1").arg(i + 1), QString::number(i + 1),
                    QString("%1a.jpg").arg(i + 1));
    w.f().Form_Load();
    w.f().WeergevenKlassen(true);
    for (int i = 0; i < 8; ++i) {
        Knop2& k = *w.f().knop(i);
        SCOPED_TRACE(k.Tekst.toStdString());
        Knop2 kaal = k;
        kaal.Tekst.clear();
        const QImage onder = kaal.Teken();
        const QFontMetrics fm(k.Font);
        const QRect vak((onder.width() - fm.horizontalAdvance(k.Tekst)) / 2,
                        (onder.height() - fm.height()) / 2, fm.horizontalAdvance(k.Tekst),
                        fm.height());
        const Gemeten g = meet(k.ForeColor, onder, vak);
        std::cout << "class button " << k.Tekst.toStdString() << ": " << g.direct
                  << " on the picture, " << g.zichtbaar << " as shown\n";
        EXPECT_GE(g.zichtbaar, Contrast::Minimum);
        if (g.direct < Contrast::Minimum) {
            // The outline is really there: pixels of its colour inside the caption's box.
            const QImage getekend = k.Teken();
            const QRgb rand = Contrast::tegenkleur(k.ForeColor).rgb();
            int gevonden = 0;
            for (int y = vak.top(); y <= vak.bottom(); ++y)
                for (int x = vak.left(); x <= vak.right(); ++x)
                    gevonden += (getekend.pixel(x, y) & 0xffffff) == (rand & 0xffffff) &&
                                (onder.pixel(x, y) & 0xffffff) != (rand & 0xffffff);
            EXPECT_GT(gevonden, 10);
        }
    }
}

TEST(ContrastTest, DesktopNamesAndBarCaptionsOfTheDefaultThemeRead) {
    Werkplek w(Werkplek::bureaublad);
    w.applicatie(0, 0, "1", "Rekenen");
    w.applicatie(0, 1, "2", "Taal");
    for (const char* achtergrond : {"Heuvels.jpg", "Ruimte.jpg"}) {
        SCOPED_TRACE(achtergrond);
        w.klas(0, "Groep 1", "100", "1|2", "Ja", achtergrond);
        w.b().Openen(0, "100");
        ASSERT_FALSE(w.b().achtergrond.isNull());
        for (const auto& i : w.b().zichtbareIconen) {
            const Gemeten g = meet(w.b().KleurIcoonTekst, w.b().achtergrond, i.tekst);
            std::cout << achtergrond << " name " << i.naam.toStdString() << ": " << g.direct
                      << " on the picture, " << g.zichtbaar << " as shown\n";
            EXPECT_GE(g.zichtbaar, Contrast::Minimum) << i.naam.toStdString();
        }
    }
}

TEST(ContrastTest, TextScaleFromTheEnvironmentGrowsThePaintedCaptions) {
    struct Case {
        const char* waarde;
        double factor;
    };
    const Case cases[] = {{"", 1.0},    {"1.5", 1.5}, {"150%", 1.5},  {"1,25", 1.25},
                          {"0.5", 1.0}, {"3", 1.0},   {"groot", 1.0}, {"2", 2.0}};
    for (const auto& c : cases)
        EXPECT_DOUBLE_EQ(c.factor, TextScale::factor(c.waarde)) << c.waarde;

    Werkplek gewoon(Werkplek::startscherm);
    Werkplek groot(Werkplek::startscherm);
    groot.platform.fakeEnvironment().setVariable("TK_TEKSTSCHAAL", "1.5");
    groot.p.maak(groot.p.startScreen, groot.p, *groot.p.frmMain);
    groot.p.startScreenEvents = groot.p.startScreen;
    EXPECT_DOUBLE_EQ(gewoon.f().knopFont.pointSizeF() * 1.5, groot.f().knopFont.pointSizeF());
    // A scaled caption still fits its button: cut, never wider than the picture.
    groot.startKlas(0, "Groep met een lange naam", "Groep met een lange naam");
    groot.f().Form_Load();
    groot.f().WeergevenKlassen(true);
    EXPECT_EQ(groot.f().knop(0)->Grootte(), groot.f().knop(0)->Teken().size());
}

TEST(ContrastTest, DesktopNamesAtTextScaleTwoStayAboveTheNextRow) {
    Werkplek w(Werkplek::bureaublad);
    w.platform.fakeEnvironment().setVariable("TK_TEKSTSCHAAL", "2");
    w.p.maak(w.p.frmBureaublad, w.p);
    w.b().Form_Load();
    const QString naam = "Programma voor rekenen en taal in groep drie";
    w.applicatie(0, 0, "1", naam);
    w.applicatie(0, 1, "2", "WWWWWWWWWWWW"); // one line wider than its column
    w.klas(0, "Groep 3", "100", "1|2", "Nee");
    const QPoint tweede = FrmBureaublad::RasterPlek(6); // the top of the next column
    w.posities("K100", QString("2|k|%1x%2").arg(tweede.x() + 15).arg(tweede.y()));
    FrmBureaubladView view(w.b());
    w.b().Openen(0, "100");
    ASSERT_EQ(tweede, w.plek(1));
    const QImage beeld = view.canvas()->grab().toImage();
    bewaarPng(beeld, "bureaublad-tekstschaal-2");

    // Under the first name, where the next row's item would stand (the place is free), and
    // right of the second, in the free column beside it, the background shows untouched.
    const QPoint onder = FrmBureaublad::RasterPlek(1);
    const int midden = tweede.x() + 16, regel = tweede.y() + 36;
    const QRect vrij[] = {QRect(onder.x() - 30, onder.y() - 2, 92, 34),
                          QRect(midden + 47, regel, 14, 24)};
    for (const QRect& vak : vrij) {
        int beschreven = 0;
        for (int y = vak.top(); y <= vak.bottom(); ++y)
            for (int x = vak.left(); x <= vak.right(); ++x) {
                const QRgb a = beeld.pixel(x, y), b = w.b().achtergrond.pixel(x, y);
                beschreven += qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b)) +
                                  qAbs(qBlue(a) - qBlue(b)) >
                              60;
            }
        EXPECT_EQ(0, beschreven) << vak.x() << "," << vak.y();
    }
    // The name shown is cut, the name a screen reader hears is whole.
    const FrmBureaublad::Icoon& eerste = w.b().zichtbareIconen.at(0);
    EXPECT_LT(eerste.tekst.bottom(), onder.y());
    for (const FrmBureaublad::Icoon& i : w.b().zichtbareIconen)
        EXPECT_LE(i.tekst.width(), FrmBureaublad::NaamRuimteBreedte) << i.naam.toStdString();
    EXPECT_TRUE(eerste.regels.last().endsWith(QChar(0x2026)));
    const QList<PaintedControl> lijst = w.b().bedieningen();
    EXPECT_TRUE(std::any_of(lijst.begin(), lijst.end(),
                            [&](const PaintedControl& c) { return c.naam == naam; }));
}

TEST(ContrastTest, TaskbarCaptionsReadOnTheBar) {
    // The ground of a bar as the captions meet it: a picture stretched, or its colour alone.
    QImage streep(10, 4, QImage::Format_RGB32);
    streep.fill(Qt::white);
    for (int y = 0; y < 4; ++y)
        streep.setPixel(9, y, qRgb(0, 0, 0));
    QImage hoog(2, 2, QImage::Format_RGB32); // white over black
    hoog.fill(Qt::white);
    hoog.setPixel(0, 1, qRgb(0, 0, 0));
    hoog.setPixel(1, 1, qRgb(0, 0, 0));
    struct Grond {
        const char* wat;
        Ondergrond onder;
        QRect vak;
        double verhouding; // of black text
    };
    const Grond gronden[] = {
        {"no picture: the colour", {{}, {}, QColor(Qt::white)}, QRect(0, 0, 5, 5), 21.0},
        {"white part, stretched five times",
         {streep, QSize(50, 4), Qt::black},
         QRect(0, 0, 40, 4),
         21.0},
        {"the black column stretched", {streep, QSize(50, 4), Qt::white}, QRect(44, 0, 6, 4), 1.0},
        {"past the picture the colour", {streep, QSize(50, 4), Qt::black}, QRect(0, 2, 10, 4), 1.0},
        {"off the picture", {streep, QSize(50, 4), Qt::white}, QRect(60, 0, 5, 5), 21.0},
        {"a size but no picture", {{}, QSize(50, 4), Qt::black}, QRect(0, 0, 5, 4), 1.0},
        {"the last pixel on the black column",
         {streep, QSize(50, 4), Qt::white},
         QRect(0, 0, 46, 4),
         1.0},
        {"stretched down, the black row reached",
         {hoog, QSize(2, 10), Qt::white},
         QRect(0, 0, 2, 6),
         1.0},
        {"stretched down, above the black row",
         {hoog, QSize(2, 10), Qt::white},
         QRect(0, 0, 2, 5),
         21.0},
    };
    for (const Grond& g : gronden)
        EXPECT_NEAR(g.verhouding, g.onder.slechtste(Qt::black, g.vak), 0.01) << g.wat;

    // The default theme: the fixed buttons' captions, normal and under the mouse, and a task's
    // title in each of its states, on the desktop's bar.
    Werkplek w(Werkplek::bureaublad);
    w.p.modTaal.Taal = 1033;
    w.applicatie(0, 0, "1", "Rekenen");
    w.klas(0, "Groep 1", "100", "1", "Ja");
    w.p.maak(w.p.frmTaakbalk2, w.p);
    FrmTaakbalk2& balk = *w.p.frmTaakbalk2;
    balk.VensterHandle = [] { return quint64(5); };
    balk.KoppelBureaublad(w.b());
    FrmTaakbalk2View view(balk);
    w.b().Openen(0, "100");
    balk.tmrTaken.stop();
    balk.tmrMuis.stop();
    w.platform.fakeWindows().windows.append(WindowInfo{8, true, 0, 0, false, false, "Tekenen", 0});
    balk.tmrTaken_Timer();
    ASSERT_EQ(1, balk.AantalKnoppen);
    const Ondergrond grond{balk.achtergrond, QSize(view.width(), balk.Hoogte),
                           balk.achtergrondKleur};
    Werkplek start(Werkplek::startscherm);
    start.p.modTaal.Taal = 1033;
    start.balk1().Zichtbaar = true;
    start.balk1().LadenVormgeving();
    start.balk1().Form_Activate();
    const FrmTaakbalk1& balk1 = start.balk1();
    const struct {
        const char* wat;
        const QList<TaakbalkKnop>& knoppen;
        QFont font;
        int beeldMaat;
        Ondergrond onder;
    } balken[] = {
        {"start screen's bar",
         balk1.knoppen,
         balk1.knopFont,
         40,
         {balk1.achtergrond, balk1.achtergrond.size(), balk1.achtergrondKleur}},
        {"desktop's bar", balk.vasteKnoppen, balk.knopFont, FrmTaakbalk2::BeeldMaat, grond}};
    for (const auto& b : balken) {
        int bijschriften = 0;
        for (const TaakbalkKnop& k : b.knoppen) {
            if (k.plek.isNull() || k.tekst.isEmpty())
                continue;
            const QRect vak = TaakbalkKnopView::tekstVak(k, b.font, b.beeldMaat);
            for (const QColor& kleur : {k.tekstKleur, k.hoverKleur}) {
                const Gemeten g = meet(kleur, b.onder.slechtste(kleur, vak));
                std::cout << b.wat << " " << k.tekst.toStdString() << " in "
                          << kleur.name().toStdString() << ": " << g.direct << " on the bar, "
                          << g.zichtbaar << " as shown\n";
                EXPECT_GE(g.zichtbaar, Contrast::Minimum) << b.wat << " " << k.tekst.toStdString();
                ++bijschriften;
            }
        }
        EXPECT_GT(bijschriften, 0) << b.wat;
    }
    using K = FrmTaakbalk2::Kolom;
    const QRect knop(balk.Knoppen(0, K::KaderLinks).toInt(), 4,
                     balk.Knoppen(0, K::KaderRechts).toInt() -
                         balk.Knoppen(0, K::KaderLinks).toInt(),
                     balk.Hoogte - 8);
    const struct {
        const char* toestand;
        QColor tekst;
        Ondergrond onder;
    } taken[] = {{"task", balk.takenTekst, grond},
                 {"task under the mouse", balk.takenTekstHover, {{}, {}, balk.takenHover}},
                 {"task in front", balk.takenTekstGeselecteerd, {{}, {}, balk.takenGeselecteerd}}};
    for (const auto& t : taken) {
        const Gemeten g = meet(t.tekst, t.onder.slechtste(t.tekst, knop));
        std::cout << t.toestand << ": " << g.direct << " on its ground, " << g.zichtbaar
                  << " as shown\n";
        EXPECT_GE(g.zichtbaar, Contrast::Minimum) << t.toestand;
    }

    // A title or a caption in a colour that does not stand out from the bar is painted with an
    // outline, and one that does, without.
    balk.ActieveKnop = -1;
    auto vast = std::find_if(balk.vasteKnoppen.begin(), balk.vasteKnoppen.end(),
                             [](const TaakbalkKnop& k) { return !k.tekst.isEmpty(); });
    ASSERT_NE(balk.vasteKnoppen.end(), vast);
    const QString bijschrift = vast->tekst;
    const QImage kaal = [&] {
        balk.Knoppen(0, K::Titel) = "";
        vast->tekst.clear();
        return view.grab().toImage();
    }();
    balk.Knoppen(0, K::Titel) = "Tekenen";
    vast->tekst = bijschrift;
    const QRect vastVak = TaakbalkKnopView::tekstVak(*vast, balk.knopFont, FrmTaakbalk2::BeeldMaat);
    for (const QColor& kleur : {grond.kleur, Contrast::tegenkleur(grond.kleur)}) {
        balk.takenTekst = kleur;
        vast->tekstKleur = kleur;
        const QImage getekend = view.grab().toImage();
        const bool rand = grond.randNodig(kleur, knop);
        std::cout << "title in " << kleur.name().toStdString() << (rand ? " with" : " without")
                  << " an outline\n";
        EXPECT_EQ(rand, randPixels(getekend, kaal, knop, kleur) > 10) << kleur.name().toStdString();
        EXPECT_EQ(grond.randNodig(kleur, vastVak),
                  randPixels(getekend, kaal, vastVak.adjusted(-1, -1, 1, 1), kleur) > 10)
            << bijschrift.toStdString() << " in " << kleur.name().toStdString();
    }
}

TEST(ContrastTest, MaintenanceMenuReadsOnEveryLookAndShowsTheChosenRow) {
    // The default theme, and the plain look of a workstation without a theme.
    for (const bool thema : {true, false}) {
        SCOPED_TRACE(thema ? "default theme" : "no theme");
        Werkplek w;
        w.p.modTaal.Taal = 1033;
        w.d();
        if (thema)
            w.thema();
        ScreenRouter router(w.p);
        w.p.schermen = &router;
        ASSERT_TRUE(router.openOnderhoudsmodule(-1, {}));
        FrmOnderhoud& f = *w.p.frmOnderhoud;
        FrmOnderhoudView view(f);
        view.bijwerken();
        // Server chosen under the open settings while the window stands, the pointer on the
        // heading of the themes; every other group closed.
        f.Kies(400);
        f.Kies(401);
        const QPoint muis = f.rijVak(5, 0).center();
        f.Form_MouseMove(muis.x(), muis.y());
        ASSERT_EQ("5|0", f.MenuSleutel);
        const QImage beeld = view.grab().toImage();
        bewaarPng(beeld, thema ? "onderhoud-menu-thema" : "onderhoud-menu-kaal");
        auto kleurVan = [](quint32 bgr) {
            return QColor(int(bgr & 0xff), int(bgr >> 8 & 0xff), int(bgr >> 16 & 0xff));
        };
        struct Rij {
            QString naam;
            QColor kleur;
            QRect vak;
        };
        QList<Rij> rijen;
        for (int g = 0; g < FrmOnderhoud::Groepen; ++g)
            for (int r = 0; r < FrmOnderhoud::Rijen; ++r)
                if (f.cel(g, r, FrmOnderhoud::Getoond) == "ja")
                    rijen.append({f.cel(g, r, FrmOnderhoud::Tekst),
                                  kleurVan(f.cel(g, r, FrmOnderhoud::Kleur).toUInt()),
                                  f.rijVak(g, r)});
        // What lies under the captions: the same window with them blank.
        for (int g = 0; g < FrmOnderhoud::Groepen; ++g)
            for (int r = 0; r < FrmOnderhoud::Rijen; ++r)
                if (f.cel(g, r, FrmOnderhoud::Getoond) == "ja")
                    f.cel(g, r, FrmOnderhoud::Tekst) = " ";
        const QImage kaal = view.grab().toImage();
        ASSERT_EQ(rijen.size(), 8); // seven headings and Server
        for (const Rij& rij : rijen) {
            SCOPED_TRACE(rij.naam.toStdString());
            const Gemeten g = meet(rij.kleur, kaal, rij.vak);
            std::cout << (thema ? "theme" : "plain") << " menu " << rij.naam.toStdString() << " in "
                      << rij.kleur.name().toStdString() << ": " << g.direct << " on its ground, "
                      << g.zichtbaar << " as shown\n";
            EXPECT_GE(g.zichtbaar, Contrast::Minimum);
            if (g.direct < Contrast::Minimum) {
                EXPECT_GT(randPixels(beeld, kaal, rij.vak.adjusted(-1, -1, 1, 1), rij.kleur), 10);
            }
            // The caption's ink stays inside the row's hit box, bold headings too.
            QRect inkt;
            for (int y = rij.vak.top(); y <= rij.vak.bottom(); ++y)
                for (int x = rij.vak.left() - 2; x < FrmOnderhoudView::menuVak().right(); ++x)
                    if (beeld.pixel(x, y) != kaal.pixel(x, y))
                        inkt |= QRect(x, y, 1, 1);
            EXPECT_LE(inkt.right(), rij.vak.right() + 1);
            EXPECT_GE(inkt.left(), rij.vak.left() - 1);
        }
        // The chosen row is drawn in the chosen colour, unlike any row not chosen, and with a
        // bar before it.
        const QColor gekozen = kleurVan(f.kleurGeselecteerd);
        EXPECT_EQ(gekozen, kleurVan(f.cel(4, 1, FrmOnderhoud::Kleur).toUInt()));
        EXPECT_NE(gekozen, kleurVan(f.kleurMenu));
        EXPECT_NE(gekozen, kleurVan(f.kleurSub));
        const QRect server = f.rijVak(4, 1);
        int balk = 0;
        for (int y = server.top(); y <= server.bottom(); ++y)
            for (int x = server.left() - 5; x < server.left(); ++x)
                balk += beeld.pixelColor(x, y) == gekozen;
        EXPECT_GE(balk, 3 * (server.height() - 4));
    }
}
