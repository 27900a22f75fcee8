// The maintenance module's models and window: the menu table after both loaders, the dead menu
// while editing, what each entry does, the rows a hover repaints, the exclusive-access question's
// countdown, entry and exit through the screen router, and a picture of the window.
#include "screens/ScreenRouter.h"
#include "screens/maintenance/FrmOnderhoud.h"
#include "screens/maintenance/FrmOnderhoudView.h"
#include "screens/maintenance/FrmOnderhoudVraag.h"
#include "screens/maintenance/FrmOnderhoudVraagView.h"
#include "screens/maintenance/OnderhoudPaneel.h"
#include "tests/maintenance/OnderhoudWerkplek.h"
#include "tests/screens/PngBewaren.h"
#include "tests/support/Werkplek.h"
#include "theme/ModDataPictogrammen.h"

#include <gtest/gtest.h>

using namespace tk;
using tk::test::Werkplek;

namespace {

// A panel that records how it was asked for.
struct ProefPaneel : OnderhoudPaneel {
    QString titel() const override { return "proef"; }
    void Tonen(int rij) override { getoond << rij; }
    void Verlaten() override { ++verlaten; }
    QList<int> getoond;
    int verlaten = 0;
};

class OnderhoudTest : public ::testing::Test {
protected:
    OnderhoudTest() : router(w.p) {
        w.p.schermen = &router;
        for (int n : {0, 1, 2, 3, 4, 9})
            panelen[n] = std::make_unique<ProefPaneel>();
    }
    FrmOnderhoud& openen(int leraar = -1, const QList<int>& klassen = {}) {
        router.openOnderhoudsmodule(leraar, klassen);
        FrmOnderhoud& f = *w.p.frmOnderhoud;
        for (auto& [n, paneel] : panelen)
            f.plaatsPaneel(n, paneel.get());
        f.Tekenmenu();
        return f;
    }
    // The captions of the shown rows, group by group, headings in capitals.
    static QStringList rijen(const FrmOnderhoud& f, bool alleenGetoond = false) {
        QStringList uit;
        for (int g = 0; g < FrmOnderhoud::Groepen && !f.cel(g, 0, 0).isEmpty(); ++g)
            for (int r = 0; r < FrmOnderhoud::Rijen && !f.cel(g, r, 0).isEmpty(); ++r)
                if (!alleenGetoond || f.cel(g, r, FrmOnderhoud::Getoond) == "ja")
                    uit << (r == 0 ? f.cel(g, r, 0).toUpper() : f.cel(g, r, 0)) + "/" +
                               f.cel(g, r, FrmOnderhoud::Paneel);
        return uit;
    }
    static QPoint midden(const FrmOnderhoud& f, int g, int r) { return f.rijVak(g, r).center(); }
    void klik(FrmOnderhoud& f, int g, int r) {
        f.Tekenmenu();
        const QPoint m = midden(f, g, r);
        f.Form_MouseUp(m.x(), m.y());
    }

    Werkplek w{Werkplek::startscherm};
    ScreenRouter router;
    std::map<int, std::unique_ptr<ProefPaneel>> panelen;
};

} // namespace

TEST_F(OnderhoudTest, MenuTableAfterTheFullAndTheTeachersLoader) {
    FrmOnderhoud& f = openen();
    EXPECT_EQ(rijen(f).join('|'),
              "MANAGE ACCOUNTS/|Classes/0|Teachers/1|MANAGE APPLICATIONS/|General applications/2|"
              "Classes/2|Teachers/2|MANAGE DESKTOP/|Classes/4|Teachers/4|OVERVIEWS/|Users/5|"
              "Applications/6|Desktops/7|Problemcalls/8|SETTINGS/3|Server/9|THEMES/|"
              "Manage themes/10|Design themes/|MANAGEMENT TOOLS/");
    // Only the headings show until a group opens; the first heading stands closer to the top.
    EXPECT_EQ(rijen(f, true).size(), 7);
    EXPECT_EQ(f.cel(0, 0, FrmOnderhoud::Tussenruimte), "9");
    EXPECT_EQ(f.cel(1, 0, FrmOnderhoud::Tussenruimte), "25");
    EXPECT_EQ(f.cel(3, 2, FrmOnderhoud::Tussenruimte), "9");
    EXPECT_EQ(f.cel(0, 1, FrmOnderhoud::Links), "96");

    // A teacher's rights: applications, classes to manage, teachers to manage.
    struct Case {
        bool applicaties;
        const char* klassen;
        bool leraren;
        const char* menu;
        int appGroep, desktopGroep;
    };
    // "@" stands for the applications group.
    const QString apps = "MANAGE APPLICATIONS/|General applications/2|Classes/2|Teachers/2";
    // clang-format off
    const Case cases[] = {
        {false, "", false, "", -1, -1},
        {true, "", false, "@", 0, -1},
        {false, "7|9", false, "MANAGE DESKTOP/|Classes/4", -1, 0},
        {false, "", true, "MANAGE DESKTOP/|Teachers/4", -1, 0},
        {false, "|", true, "MANAGE DESKTOP/|Teachers/4", -1, 0},
        {true, "7", true, "@|MANAGE DESKTOP/|Classes/4|Teachers/4", 0, 1},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.klassen) + (c.applicaties ? " apps" : "") +
                     (c.leraren ? " teachers" : ""));
        f.Aangepast(c.klassen, c.applicaties, c.leraren);
        EXPECT_TRUE(f.Beperkt);
        EXPECT_EQ(rijen(f).join('|'), QString(c.menu).replace("@", apps));
        EXPECT_EQ(f.groepVan(FrmOnderhoud::Applicaties), c.appGroep);
        EXPECT_EQ(f.groepVan(FrmOnderhoud::Desktops), c.desktopGroep);
        EXPECT_EQ(f.groepVan(FrmOnderhoud::Accounts), -1);
        EXPECT_EQ(f.groepVan(FrmOnderhoud::Instellingen), -1);
        if (c.appGroep >= 0) {
            EXPECT_EQ(f.cel(c.appGroep, 1, FrmOnderhoud::Rustkleur), QString::number(0xC0C0C0));
        }
    }
}

TEST_F(OnderhoudTest, TheMenuIsDeadAndGreyWhileARecordIsEdited) {
    FrmOnderhoud& f = openen();
    klik(f, 0, 0); // open the accounts
    klik(f, 0, 1);
    ASSERT_EQ(f.ZichtbaarPaneel, 0);
    f.ZetBewerkModus(true);
    for (const auto& [g, r] : f.Tekenmenu())
        EXPECT_EQ(f.cel(g, r, FrmOnderhoud::Kleur), QString::number(FrmOnderhoud::LichtGrijs));
    // Neither another row, nor the selected one, nor the keyboard, nor the log-off respond.
    for (auto [g, r] : {std::pair{0, 2}, std::pair{0, 1}, std::pair{1, 0}}) {
        const QPoint m = midden(f, g, r);
        f.Form_MouseUp(m.x(), m.y());
        f.Kies(g * 100 + r);
    }
    f.lblAfmelden_Click();
    EXPECT_TRUE(f.MenuSleutel.isEmpty());
    EXPECT_EQ(f.ZichtbaarPaneel, 0);
    EXPECT_TRUE(f.Zichtbaar);
    EXPECT_EQ(panelen[1]->getoond, QList<int>());
    EXPECT_EQ(rijen(f, true).size(), 9);
    f.ZetBewerkModus(false);
    klik(f, 0, 2);
    EXPECT_EQ(f.ZichtbaarPaneel, 1);
}

TEST_F(OnderhoudTest, EachMenuEntryOpensItsPanelOrSaysWhyNot) {
    struct Case {
        int g, r;
        int paneel;       // shown after the click, -2: stays as it was
        int rijAanPaneel; // the row the panel was told (its audience)
        int melding;      // the string shown, 0 none
        int info;         // the help line, 0 none
    };
    const Case cases[] = {
        {0, 1, 0, 1, 0, 3285},  {0, 2, 1, 2, 0, 3286},  {1, 1, 2, 1, 0, 3289},
        {1, 2, 2, 2, 0, 3287},  {1, 3, 2, 3, 0, 3288},  {2, 1, 4, 1, 0, 3290},
        {2, 2, 4, 2, 0, 3291},  {3, 1, -1, 0, 9546, 0}, {3, 4, -1, 0, 9546, 0},
        {4, 0, 3, 0, 0, 0},     {4, 1, 9, 1, 0, 0},     {5, 1, -1, 0, 9546, 0},
        {5, 2, -2, 0, 3352, 0}, {6, 0, -2, 0, 3353, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(QString("%1|%2").arg(c.g).arg(c.r).toStdString());
        FrmOnderhoud& f = openen();
        f.MenuItemsBoxenNietWeergeven(7); // a panel stands
        w.dialogen.gesteld.clear();
        for (auto& [n, paneel] : panelen)
            paneel->getoond.clear();
        if (c.r > 0)
            klik(f, c.g, 0);
        if (c.g != 4) { // the settings heading is a panel itself
            EXPECT_EQ(f.ZichtbaarPaneel, 7) << "a heading leaves the panel as it is";
        }
        klik(f, c.g, c.r);
        EXPECT_EQ(f.ZichtbaarPaneel, c.paneel == -2 ? 7 : c.paneel);
        if (c.paneel >= 0) {
            EXPECT_EQ(panelen[c.paneel]->getoond, QList<int>({c.rijAanPaneel}));
            EXPECT_EQ(f.cel(c.g, c.r, FrmOnderhoud::Geselecteerd), "ja");
        }
        EXPECT_EQ(w.meldingen(),
                  c.melding ? QStringList(w.p.modTaal.LaadTekst(c.melding)) : QStringList());
        EXPECT_EQ(f.picMenuInfoZichtbaar, c.info != 0);
        if (c.info) {
            EXPECT_EQ(f.lblMenuInfo, w.p.modTaal.LaadTekst(c.info));
        }
    }
    // The selected row again closes its panel.
    FrmOnderhoud& f = *w.p.frmOnderhoud;
    klik(f, 0, 0);
    klik(f, 0, 1);
    ASSERT_EQ(f.ZichtbaarPaneel, 0);
    klik(f, 0, 1);
    EXPECT_EQ(f.ZichtbaarPaneel, -1);
    EXPECT_EQ(f.cel(0, 1, FrmOnderhoud::Geselecteerd), "nee");
    // A heading folds every other group.
    klik(f, 2, 0);
    EXPECT_EQ(rijen(f, true).join('|'), "MANAGE ACCOUNTS/|MANAGE APPLICATIONS/|MANAGE DESKTOP/|"
                                        "Classes/4|Teachers/4|OVERVIEWS/|SETTINGS/3|THEMES/|"
                                        "MANAGEMENT TOOLS/");
}

TEST_F(OnderhoudTest, TheQuestionCountsDownOnTheClockEndsAsThePartySaysAndShowsItsMode) {
    w.platform.fakeClock().setStepPerRead(0);
    FrmOnderhoudVraag v(w.p);
    struct Case {
        int modus;
        bool weigering;       // INFONC arrives after 3 seconds
        qint64 tot;           // the clock runs this long, in ticks of 500 ms
        bool open, resultaat; // still open, and else: may go ahead
        int tekst;            // the text shown last
    };
    const Case cases[] = {
        {0, false, 29'500, true, false, 1805},  {0, false, 30'500, false, true, 1805},
        {0, true, 7'500, true, false, 1808},    {0, true, 8'500, false, false, 1808},
        {1, true, 8'500, false, false, 1807},   {1, false, 34'500, true, false, 1806},
        {1, false, 35'500, false, false, 1806},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.modus * 1000000 + c.tot + c.weigering);
        v.Begin(c.modus);
        EXPECT_EQ(v.cmdAfmeldenZichtbaar, c.modus == 0);
        EXPECT_EQ(v.cmdAnnulerenCaption, w.p.modTaal.LaadTekst(1802)); // also after a note
        for (qint64 t = 0; t < c.tot; t += 500) {
            if (c.weigering && t == 3000)
                v.geweigerd = true;
            w.platform.fakeClock().advance(500);
            v.tmrAuto_Timer();
        }
        EXPECT_EQ(v.Open, c.open);
        if (!c.open) {
            EXPECT_EQ(!v.Annuleren, c.resultaat);
        }
        EXPECT_EQ(v.lblVraag, w.p.modTaal.LaadTekst(c.tekst));
        EXPECT_EQ(v.cmdAnnulerenCaption, w.p.modTaal.LaadTekst(c.weigering ? 1809 : 1802));
        v.cmdAnnuleren_Click();
    }
    // The countdown counts whole seconds left.
    v.Begin(0);
    w.platform.fakeClock().advance(10'200);
    v.tmrAuto_Timer();
    EXPECT_EQ(v.lblAftellen, "In 20 seconds you are logged off automatically");
    v.cmdAnnuleren_Click();

    // The window: the text and the buttons of each mode, under the module's name.
    FrmOnderhoudVraagView view(v);
    EXPECT_EQ(view.windowTitle(), w.p.modTaal.LaadTekst(1601));
    struct Venster {
        int modus;
        bool notitie; // INFONC came: the closing note
        bool afmelden;
        const char* png;
    };
    const Venster vensters[] = {
        {0, false, true, "onderhoudvraag-binnen"},
        {1, false, false, "onderhoudvraag-nieuw"},
        {1, true, false, "onderhoudvraag-geweigerd"},
    };
    auto donker = [](const QImage& beeld, const QRect& vak) {
        int n = 0;
        for (int y = vak.top(); y <= vak.bottom(); ++y)
            for (int x = vak.left(); x <= vak.right(); ++x)
                n += qGray(beeld.pixel(x, y)) < 100;
        return n;
    };
    for (const Venster& c : vensters) {
        SCOPED_TRACE(c.png);
        v.Begin(c.modus);
        if (c.notitie) {
            v.geweigerd = true;
            v.tmrAuto_Timer();
        }
        const QImage beeld = view.grab().toImage();
        tk::test::bewaarPng(beeld, c.png);
        const int kop = DialogFrame::Kop, knopBoven = v.Hoogte - 40 + kop;
        EXPECT_EQ(beeld.height(), v.Hoogte + kop);
        // The question in the body; the countdown under it, where the note is shorter.
        EXPECT_GT(donker(beeld, {64, kop + 12, 300, 30}), 50);
        if (!c.notitie) {
            EXPECT_GT(donker(beeld, {64, kop + 86, 300, 30}), 50);
        }
        // Log off only for the one inside (where the note has its OK); Cancel at the right but in
        // the note.
        const QColor lijf = DialogFrame::lijfKleur();
        const int breed = FrmOnderhoudVraagView::Breedte;
        auto knopOp = [&](int x) { return beeld.pixelColor(x, knopBoven + 14) != lijf; };
        EXPECT_EQ(knopOp(breed - 180), c.afmelden || c.notitie);
        EXPECT_EQ(knopOp(breed - 68), !c.notitie);
        v.cmdAnnuleren_Click();
    }
}

TEST_F(OnderhoudTest, TheModuleOpensForTheAdministratorOrATeacherAndLeavesToItsScreen) {
    FixedTable& l = w.p.modData->Leraren;
    l(4, 0) = "Jansen";
    l(4, 5) = "44";
    l(4, 11) = "Ja";
    l(4, 12) = "Nee|Ja";
    w.startKlas(2, "Groep 3", "3");
    FrmOnderhoud& f = openen(4, {2});
    EXPECT_TRUE(f.Beperkt);
    EXPECT_EQ(f.Leraarklassen, "102");
    EXPECT_TRUE(f.LeraarApplicaties);
    EXPECT_FALSE(f.LeraarLeraren);
    bool verlaten = false;
    f.verlaten = [&] { verlaten = true; };
    f.lblAfmelden_Click();
    EXPECT_TRUE(verlaten);
    EXPECT_FALSE(f.Zichtbaar);

    openen();
    EXPECT_FALSE(f.Beperkt);
    verlaten = false;
    w.f().Zichtbaar = false;
    f.lblAfmelden_Click();
    EXPECT_TRUE(verlaten);
    EXPECT_FALSE(f.Zichtbaar);
    EXPECT_TRUE(w.f().Zichtbaar) << "the start screen takes over";
    EXPECT_EQ(panelen[3]->verlaten, 2) << "each way of leaving tells every panel";
    EXPECT_TRUE(f.cel(0, 0, 0).isEmpty());

    // On a network workstation the stay had a logon of its own: the machine logs on as Global
    // again, in whose logon the start screen comes; the icon panel's shortcuts go either way.
    tk::test::AanmeldStappen stappen(w.p);
    w.p.opstartStappen = &stappen;
    w.p.modMain.ModusNetwerk = true;
    w.p.maak(w.p.modDataPictogrammen, w.p);
    ASSERT_TRUE(QDir().mkpath(w.pad("Afbeeldingen/Pictogrammen/Applicaties/Algemeen")));
    const QString snelkoppeling = w.pad("Afbeeldingen/Pictogrammen/Applicaties/Algemeen/7.lnk");
    QFile(snelkoppeling).open(QIODevice::WriteOnly);
    openen();
    w.f().Zichtbaar = false;
    f.lblAfmelden_Click();
    EXPECT_EQ(stappen.aanmelding, "GLOBAL/Sleutelwrk42/afmelden");
    EXPECT_FALSE(w.f().Zichtbaar);
    EXPECT_FALSE(QFile::exists(snelkoppeling));
    // A teacher's limited stay, ended by force, stays in the teacher's logon.
    stappen.aanmelding.clear();
    openen(4, {2});
    f.Afmelden();
    EXPECT_EQ(stappen.aanmelding, "");
    w.p.opstartStappen = &w.p.unbuiltSteps;
}

TEST_F(OnderhoudTest, AHoverRepaintsOnlyTheRowsThatChangedAndTheWindowNamesThem) {
    FrmOnderhoud& f = openen();
    klik(f, 0, 0);
    f.Tekenmenu();
    auto beweeg = [&](QPoint p) {
        f.Form_MouseMove(p.x(), p.y());
        QList<std::pair<int, int>> rijen = f.Tekenmenu();
        std::sort(rijen.begin(), rijen.end());
        return rijen;
    };
    using Rijen = QList<std::pair<int, int>>;
    const QPoint klassen = midden(f, 0, 1), leraren = midden(f, 0, 2);
    EXPECT_EQ(beweeg(klassen), Rijen({{0, 1}}));
    EXPECT_EQ(f.MenuSleutel, "0|1");
    EXPECT_EQ(f.cel(0, 1, FrmOnderhoud::Kleur), QString::number(f.kleurHover));
    EXPECT_EQ(beweeg(klassen + QPoint(1, 0)), Rijen());
    EXPECT_EQ(beweeg(leraren), Rijen({{0, 1}, {0, 2}}));
    EXPECT_EQ(beweeg({5, 5}), Rijen({{0, 2}}));
    EXPECT_TRUE(f.MenuSleutel.isEmpty());
    EXPECT_EQ(f.cel(0, 2, FrmOnderhoud::Kleur), f.cel(0, 2, FrmOnderhoud::Rustkleur));

    FrmOnderhoudView view(f);
    klik(f, 0, 1);
    const QPoint m = midden(f, 0, 2);
    f.Form_MouseMove(m.x(), m.y());
    // The hover asked only for the rows it changed, besides the strip and the log-off.
    ASSERT_EQ(view.laatsteHertekening.size(), 3);
    EXPECT_TRUE(view.laatsteHertekening[0].contains(f.rijVak(0, 2)));
    const QImage beeld = view.grab().toImage();
    tk::test::bewaarPng(beeld, "onderhoud");
    // The hover box stands around the teachers' row, in the theme's line colour.
    const QRect vak = f.rijVak(0, 2).adjusted(-5, -2, 5, 2);
    const QColor lijn(int(f.kleurLijn & 0xff), int(f.kleurLijn >> 8 & 0xff),
                      int(f.kleurLijn >> 16 & 0xff));
    EXPECT_EQ(beeld.pixelColor(vak.left() + 4, vak.top()), lijn);
    // A copy: a press changes the view, which renews the list it hands out.
    const QList<PaintedControl> bedieningen = view.geschilderd();
    QStringList namen;
    for (const PaintedControl& c : bedieningen)
        namen << c.naam;
    EXPECT_EQ(namen.mid(0, 3), QStringList({"Manage accounts", "Classes", "Teachers"}));
    EXPECT_TRUE(namen.contains(w.p.modTaal.LaadTekst(3285)));
    // A press by name acts as the click.
    view.druk(bedieningen[namen.indexOf("Teachers")]);
    EXPECT_EQ(f.ZichtbaarPaneel, 1);
}
