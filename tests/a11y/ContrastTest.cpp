// Captions on the painted screens read: the contrast rule and the outline, the accessible names
// of bad input, the text scale, and the default theme's captions measured against what lies
// under them in the painted pictures.
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
#include "screens/taskbar/FrmTaakbalk1View.h"
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

namespace {
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
// A caption in `kleur` over `vak` reads: at 4.5:1 against what lies under it (`kaal`, the
// picture without it), or with its outline really painted in `getekend`.
void leest(const std::string& wat, const QColor& kleur, const QImage& kaal, const QRect& vak,
           const QImage& getekend = {}) {
    const double direct = Contrast::slechtste(kleur, kaal, vak);
    std::cout << wat << " in " << kleur.name().toStdString() << ": " << direct
              << (direct < Contrast::Minimum ? " on its ground, outlined\n" : " on its ground\n");
    if (direct < Contrast::Minimum) {
        ASSERT_FALSE(getekend.isNull()) << wat << ": needs an outline where none is painted";
        EXPECT_GT(randPixels(getekend, kaal, vak.adjusted(-1, -1, 1, 1), kleur), 10) << wat;
    }
}
} // namespace

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
    // The worst pixel under a caption counts, the darkest and the lightest wherever they lie,
    // in any pixel format: half black, half white, and the last pixel black.
    QImage beeld(10, 2, QImage::Format_RGB32);
    beeld.fill(Qt::white);
    for (int x = 0; x < 5; ++x)
        beeld.setPixel(x, 0, qRgb(0, 0, 0));
    beeld.setPixel(9, 1, qRgb(0, 0, 0));
    QImage drie(3, 1, QImage::Format_RGB32); // white, black, grey: neither extreme the last
    drie.setPixel(0, 0, qRgb(255, 255, 255));
    drie.setPixel(1, 0, qRgb(0, 0, 0));
    drie.setPixel(2, 0, qRgb(128, 128, 128));
    const QImage smal = beeld.convertToFormat(QImage::Format_RGB888);
    const struct {
        const QImage& onder;
        QColor tekst;
        QRect vak;
        double verhouding;
    } pixels[] = {
        {beeld, Qt::white, QRect(0, 0, 10, 2), 1.0},   {beeld, Qt::white, QRect(0, 0, 5, 1), 21.0},
        {beeld, Qt::white, QRect(20, 20, 5, 5), 21.0}, {beeld, Qt::black, QRect(5, 0, 5, 2), 1.0},
        {drie, Qt::white, drie.rect(), 1.0},           {drie, Qt::black, drie.rect(), 1.0},
        {smal, Qt::white, QRect(0, 0, 10, 2), 1.0},    {smal, Qt::white, QRect(0, 0, 5, 1), 21.0},
    };
    for (const auto& c : pixels)
        EXPECT_NEAR(c.verhouding, Contrast::slechtste(c.tekst, c.onder, c.vak), 0.01)
            << c.vak.x() << "," << c.vak.width();

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

TEST(ContrastTest, DefaultThemeClassButtonsAndDesktopNamesRead) {
    Werkplek w(Werkplek::startscherm);
    for (int i = 0; i < 8; ++i)
        w.startKlas(i, QString("Groep %1").arg(i + 1), QString::number(i + 1),
                    QString("%1a.jpg").arg(i + 1));
    w.f().Form_Load();
    w.f().WeergevenKlassen(true);
    for (int i = 0; i < 8; ++i) {
        Knop2& k = *w.f().knop(i);
        Knop2 kaal = k;
        kaal.Tekst.clear();
        const QImage onder = kaal.Teken();
        const QFontMetrics fm(k.Font);
        const int breed = fm.horizontalAdvance(k.Tekst);
        leest("class button " + k.Tekst.toStdString(), k.ForeColor, onder,
              QRect((onder.width() - breed) / 2, (onder.height() - fm.height()) / 2, breed,
                    fm.height()),
              k.Teken());
    }

    Werkplek b(Werkplek::bureaublad);
    b.applicatie(0, 0, "1", "Rekenen");
    b.applicatie(0, 1, "2", "Taal");
    FrmBureaubladView view(b.b());
    for (const char* achtergrond : {"Heuvels.jpg", "Ruimte.jpg"}) {
        b.klas(0, "Groep 1", "100", "1|2", "Ja", achtergrond);
        b.b().Openen(0, "100");
        const QImage getekend = view.canvas()->grab().toImage();
        const auto iconen = b.b().zichtbareIconen;
        for (auto& i : b.b().zichtbareIconen)
            i.regels.clear();
        const QImage kaal = view.canvas()->grab().toImage();
        b.b().zichtbareIconen = iconen;
        for (const auto& i : iconen)
            leest(std::string(achtergrond) + " name " + i.naam.toStdString(), b.b().KleurIcoonTekst,
                  kaal, i.tekst, getekend);
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
    const QImage geen;
    QImage streep(10, 4, QImage::Format_RGB32); // white, the last column black
    streep.fill(Qt::white);
    QImage hoog(2, 2, QImage::Format_RGB32); // white over black
    hoog.fill(Qt::white);
    for (int i = 0; i < 4; ++i) {
        streep.setPixel(9, i, qRgb(0, 0, 0));
        hoog.setPixel(i % 2, 1, qRgb(0, 0, 0));
    }
    const struct {
        const char* wat;
        const QImage& beeld;
        QSize maat;
        QColor kleur;
        QRect vak;
        double verhouding; // of black text
    } gronden[] = {
        {"no picture: the colour", geen, {}, Qt::white, {0, 0, 5, 5}, 21.0},
        {"white part, stretched five times", streep, {50, 4}, Qt::black, {0, 0, 40, 4}, 21.0},
        {"the black column stretched", streep, {50, 4}, Qt::white, {44, 0, 6, 4}, 1.0},
        {"past the picture the colour", streep, {50, 4}, Qt::black, {0, 2, 10, 4}, 1.0},
        {"off the picture", streep, {50, 4}, Qt::white, {60, 0, 5, 5}, 21.0},
        {"a size but no picture", geen, {50, 4}, Qt::black, {0, 0, 5, 4}, 1.0},
        {"the last pixel on the black column", streep, {50, 4}, Qt::white, {0, 0, 46, 4}, 1.0},
        {"stretched down, the black row reached", hoog, {2, 10}, Qt::white, {0, 0, 2, 6}, 1.0},
        {"stretched down, above the black row", hoog, {2, 10}, Qt::white, {0, 0, 2, 5}, 21.0},
    };
    for (const auto& g : gronden)
        EXPECT_NEAR(g.verhouding,
                    (Ondergrond{g.beeld, g.maat, g.kleur}.slechtste(Qt::black, g.vak)), 0.01)
            << g.wat;

    // The default theme's bars: every caption, normal and under the mouse, and a task's title in
    // each of its states, against the bar painted without them.
    Werkplek start(Werkplek::startscherm);
    start.balk1().Zichtbaar = true;
    start.balk1().LadenVormgeving();
    start.balk1().Form_Activate();
    FrmTaakbalk1View balk1(start.balk1(), nullptr);
    Werkplek w(Werkplek::taakbalk);
    w.programma(8, "Tekenen");
    w.tik();
    ASSERT_EQ(1, w.balk2().AantalKnoppen);
    FrmTaakbalk2& balk = w.balk2();
    FrmTaakbalk2View balk2(balk);
    balk2.setGeometry(0, 0, 1024, balk.Hoogte);
    using K = FrmTaakbalk2::Kolom;
    const QFontMetrics fm(balk.takenFont); // the title's box, a pressed one a pixel lower
    const QRect titel(w.kolom(0, K::Links) + FrmTaakbalk2::TitelInspringing,
                      4 + (balk.Hoogte - 8 - fm.height()) / 2, fm.horizontalAdvance("Tekenen"),
                      fm.height() + 1);
    const struct {
        const char* wat;
        QWidget& view;
        QList<TaakbalkKnop>& knoppen;
        QFont font;
        int beeldMaat;
    } balken[] = {
        {"start screen's bar", balk1, start.balk1().knoppen, start.balk1().knopFont, 40},
        {"desktop's bar", balk2, balk.vasteKnoppen, balk.knopFont, FrmTaakbalk2::BeeldMaat}};
    // A bar painted with its captions, or without them.
    auto schilder = [&](const auto& b, bool tekst) {
        const QList<TaakbalkKnop> bewaard = b.knoppen;
        balk.Knoppen(0, K::Titel) = tekst ? "Tekenen" : "";
        if (!tekst)
            for (TaakbalkKnop& k : b.knoppen)
                k.tekst.clear();
        const QImage beeld = b.view.grab().toImage();
        b.knoppen = bewaard;
        return beeld;
    };
    for (const bool hover : {false, true})
        for (const auto& b : balken) {
            int bijschriften = 0;
            for (TaakbalkKnop& k : b.knoppen)
                k.hover = hover;
            const QImage getekend = schilder(b, true), kaal = schilder(b, false);
            for (const TaakbalkKnop& k : b.knoppen)
                if (!k.plek.isNull() && !k.tekst.isEmpty()) {
                    leest(b.wat + (" " + k.tekst.toStdString()),
                          hover ? k.hoverKleur : k.tekstKleur, kaal,
                          TaakbalkKnopView::tekstVak(k, b.font, b.beeldMaat), getekend);
                    ++bijschriften;
                }
            EXPECT_GT(bijschriften, 0) << b.wat;
        }
    const struct {
        const char* toestand;
        int hover, actief;
        QColor tekst;
    } taken[] = {{"task", -1, -1, balk.takenTekst},
                 {"task under the mouse", 0, -1, balk.takenTekstHover},
                 {"task in front", -1, 0, balk.takenTekstGeselecteerd}};
    for (const auto& t : taken) {
        balk.HoverKnop = t.hover;
        balk.ActieveKnop = t.actief;
        leest(t.toestand, t.tekst, schilder(balken[1], false), titel, schilder(balken[1], true));
    }

    // A title or a caption in the bar's own colour is painted with an outline, and one that
    // stands out from the bar without.
    balk.HoverKnop = balk.ActieveKnop = -1;
    for (TaakbalkKnop& k : balk.vasteKnoppen)
        k.hover = false;
    const auto vast = std::find_if(balk.vasteKnoppen.begin(), balk.vasteKnoppen.end(),
                                   [](const TaakbalkKnop& k) { return !k.tekst.isEmpty(); });
    ASSERT_NE(balk.vasteKnoppen.end(), vast);
    const QRect vastVak = TaakbalkKnopView::tekstVak(*vast, balk.knopFont, FrmTaakbalk2::BeeldMaat);
    for (const QColor& kleur :
         {balk.achtergrondKleur, Contrast::tegenkleur(balk.achtergrondKleur)}) {
        SCOPED_TRACE(kleur.name().toStdString());
        balk.takenTekst = vast->tekstKleur = kleur;
        const QImage getekend = schilder(balken[1], true), kaal = schilder(balken[1], false);
        const bool rand = kleur == balk.achtergrondKleur;
        EXPECT_EQ(rand, randPixels(getekend, kaal, titel.adjusted(-1, -1, 1, 1), kleur) > 10);
        EXPECT_EQ(rand, randPixels(getekend, kaal, vastVak.adjusted(-1, -1, 1, 1), kleur) > 10);
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
        // The title and the log-off on the band, and the menu rows (their ink within their
        // hit boxes, bold headings too).
        struct Bijschrift {
            QString naam;
            QColor kleur;
            QRect gebied;
            bool rij;
        };
        QList<Bijschrift> bijschriften = {
            {f.lblKop, kleurVan(f.kleurMenu), QRect(80, 30, 600, 40), false},
            {f.lblAfmelden, kleurVan(f.kleurMenu), f.afmeldenVak(), false}};
        for (int g = 0; g < FrmOnderhoud::Groepen; ++g)
            for (int r = 0; r < FrmOnderhoud::Rijen; ++r)
                if (f.cel(g, r, FrmOnderhoud::Getoond) == "ja") {
                    bijschriften.append({f.cel(g, r, FrmOnderhoud::Tekst),
                                         kleurVan(f.cel(g, r, FrmOnderhoud::Kleur).toUInt()),
                                         f.rijVak(g, r), true});
                    f.cel(g, r, FrmOnderhoud::Tekst) = " ";
                }
        // What lies under the captions: the same window with them blank.
        f.lblKop = f.lblAfmelden = "";
        const QImage kaal = view.grab().toImage();
        ASSERT_EQ(bijschriften.size(), 10); // title, log-off, seven headings, Server
        for (const Bijschrift& b : bijschriften) {
            const QRect zoek =
                b.rij ? QRect(QPoint(b.gebied.left() - 2, b.gebied.top()),
                              QPoint(FrmOnderhoudView::menuVak().right() - 1, b.gebied.bottom()))
                      : b.gebied;
            QRect inkt;
            for (int y = zoek.top(); y <= zoek.bottom(); ++y)
                for (int x = zoek.left(); x <= zoek.right(); ++x)
                    if (beeld.pixel(x, y) != kaal.pixel(x, y))
                        inkt |= QRect(x, y, 1, 1);
            ASSERT_FALSE(inkt.isEmpty()) << b.naam.toStdString();
            leest((thema ? "theme: " : "plain: ") + b.naam.toStdString(), b.kleur, kaal, inkt,
                  beeld);
            if (b.rij) {
                EXPECT_LE(inkt.right(), b.gebied.right() + 1) << b.naam.toStdString();
                EXPECT_GE(inkt.left(), b.gebied.left() - 1) << b.naam.toStdString();
            }
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
