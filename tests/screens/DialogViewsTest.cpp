// The start-up and closing dialogs on the screen: each view rendered offscreen, driven with
// mouse and keys, and what it leaves in its model.
#include "PngBewaren.h"
#include "core/FrmInitialiseren.h"
#include "core/FrmVersie.h"
#include "link/FrmNetwerk.h"
#include "platform/fake/FakeSystemActions.h"
#include "screens/common/AccessibleFactory.h"
#include "screens/start/FrmActiveren.h"
#include "screens/start/FrmActiverenView.h"
#include "screens/start/FrmFoutrapportageView.h"
#include "screens/start/FrmInitialiserenView.h"
#include "screens/start/FrmNetwerkView.h"
#include "screens/start/FrmVersieView.h"
#include "screens/taskbar/FrmUitschakelenView.h"
#include "session/ModMainSessie.h"
#include "tests/support/Werkplek.h"

#include <QAccessible>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <algorithm>
#include <gtest/gtest.h>

using namespace tk;
using namespace tk::test;

namespace {

// A click of the left button on a point of the dialog's body.
void klik(QWidget& w, const QPoint& lijf) {
    const QPoint punt = lijf + QPoint(0, DialogFrame::Kop);
    QMouseEvent druk(QEvent::MouseButtonPress, punt, w.mapToGlobal(punt), Qt::LeftButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&w, &druk);
    QMouseEvent los(QEvent::MouseButtonRelease, punt, w.mapToGlobal(punt), Qt::LeftButton,
                    Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&w, &los);
}

// A key, or with toets 0 a text typed.
void toets(QWidget& w, int toets, const QString& tekst = {}) {
    QKeyEvent e(QEvent::KeyPress, toets, Qt::NoModifier, tekst);
    QCoreApplication::sendEvent(&w, &e);
}
// How many pixels of a rectangle of the body are dark: text or lines were drawn there.
int donker(const QImage& beeld, const QRect& lijf, int grens = 110) {
    int n = 0;
    const QRect r = lijf.translated(0, DialogFrame::Kop).intersected(beeld.rect());
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x)
            n += qGray(beeld.pixel(x, y)) < grens;
    return n;
}

QRgb pixel(const QImage& beeld, const QPoint& lijf) {
    return beeld.pixel(lijf + QPoint(0, DialogFrame::Kop));
}

} // namespace

TEST(DialogViewsTest, VersionWindowGreysWhatTheMachineCannotBeAndAnswersTheStoredValue) {
    Werkplek w(Werkplek::startscherm);
    FrmVersie f(w.p);
    f.LaadTaal();
    f.optEnabled[0] = f.optEnabled[1] = false; // as on "Windows 2003"
    f.Gekozen = 2;
    FrmVersieView view(f);
    const QImage beeld = view.grab().toImage();
    bewaarPng(beeld, "frmVersie");
    // The enabled option's caption is dark, the greyed ones have no dark pixels.
    EXPECT_EQ(0, donker(beeld, FrmVersieView::optieVak(0)));
    EXPECT_GT(donker(beeld, FrmVersieView::optieVak(2)), 20);
    EXPECT_GT(donker(beeld, QRect(18, 12, 300, 24)), 20); // the text above
    // A click on a greyed option changes nothing; OK answers 0 for the third option.
    klik(view, FrmVersieView::optieVak(0).center());
    EXPECT_EQ(2, f.Gekozen);
    toets(view, Qt::Key_Return);
    EXPECT_EQ(0, f.Antwoord);
    EXPECT_FALSE(view.isVisible());

    FrmVersie f2(w.p);
    f2.LaadTaal();
    FrmVersieView view2(f2);
    klik(view2, FrmVersieView::optieVak(1).center());
    EXPECT_EQ(1, f2.Gekozen);
    toets(view2, Qt::Key_Escape); // Close
    EXPECT_EQ(-1, f2.Antwoord);
}

TEST(DialogViewsTest, ServerLocationWindowTakesTheTypedTextOnlyWithText) {
    Werkplek w(Werkplek::startscherm);
    FrmNetwerk f(w.p);
    f.LaadTaal();
    f.txtNaam_Change("pc1:4000");
    FrmNetwerkView view(f);
    QLineEdit* vak = view.tekstvak();
    EXPECT_EQ("pc1:4000", vak->text());
    const QImage beeld = view.grab().toImage();
    bewaarPng(beeld, "frmNetwerk");
    EXPECT_GT(donker(beeld, QRect(18, 14, FrmNetwerkView::Breedte - 36, 30)), 50); // explanation
    // Emptied: OK is off and Enter does nothing.
    vak->selectAll();
    toets(*vak, Qt::Key_Backspace);
    EXPECT_TRUE(f.txtNaam.isEmpty());
    EXPECT_FALSE(f.cmdOKEnabled);
    toets(view, Qt::Key_Return);
    EXPECT_TRUE(f.Antwoord.isEmpty());
    EXPECT_NE(QDialog::Accepted, view.result()); // the window stays
    toets(*vak, 0, "server2");
    toets(view, Qt::Key_Return);
    EXPECT_EQ("server2", f.Antwoord);
    EXPECT_EQ(QDialog::Accepted, view.result()); // and OK ends it

    FrmNetwerk f2(w.p);
    f2.LaadTaal();
    f2.txtNaam_Change("pc1");
    FrmNetwerkView view2(f2);
    toets(view2, Qt::Key_Escape);
    EXPECT_TRUE(f2.Antwoord.isEmpty());
}

TEST(DialogViewsTest, FaultReportShowsTheReportAndStoresTheTickedBox) {
    Werkplek w(Werkplek::startscherm);
    QImage beeld;
    QRect omschrijving;
    w.dialogen.opModaal = [&](Form& form) {
        FrmFoutrapportageView view(dynamic_cast<FrmFoutrapportage&>(form));
        beeld = view.grab().toImage();
        omschrijving = view.regelVak(7);
        // Tick "Ignore error next time", then "Do not send error report".
        klik(view, QPoint(FrmFoutrapportageView::Breedte / 4, view.kader().bottom() + 24));
        const QImage na = view.grab().toImage();
        bewaarPng(na, "frmFoutrapportage");
        klik(view, QPoint(FrmFoutrapportageView::Breedte * 3 / 4, view.kader().bottom() + 50));
    };
    w.p.modMain.Foutmelding("Subscript out of range\r\nin de tweede regel", "Foutrapportage",
                            "frmMain.WeergevenKlassen", "12", false);
    ASSERT_FALSE(beeld.isNull());
    ASSERT_EQ(QStringList({"frmFoutrapportage"}), w.dialogen.getoond);
    // The description spans two rows of the frame, and both hold text.
    const int regel = QFontMetrics(QFont("Verdana", 9)).height();
    EXPECT_GE(omschrijving.height(), 2 * regel);
    const QRect waarde(FrmFoutrapportageView::waardeLinks, omschrijving.top(),
                       omschrijving.right() - FrmFoutrapportageView::waardeLinks, regel);
    EXPECT_GT(donker(beeld, waarde), 20);
    EXPECT_GT(donker(beeld, waarde.translated(0, regel)), 20);
    // Stored with the box ticked, not sent: what keeps the fault from showing again.
    const QString ini = "\\Data\\Foutrapportage.ini";
    EXPECT_EQ("Ja", w.p.modMain.LeesIni("ID=1", "Fout negeren", ini));
    EXPECT_EQ("Nee", w.p.modMain.LeesIni("ID=1", "Verstuurd", ini));
}

TEST(DialogViewsTest, CheckWindowShowsItsRowsWithTheirMarksWhileTheModelIsShown) {
    Werkplek w(Werkplek::startscherm);
    FrmInitialiseren f(w.p);
    f.LaadTaal();
    FrmInitialiserenView view(f);
    EXPECT_FALSE(view.isVisible());
    f.Tonen();
    EXPECT_TRUE(view.isVisible());
    const int leeg = view.height();
    f.Instelling(0, true);
    f.Instelling(1, false);
    f.Instelling(0, true, true);
    EXPECT_EQ(leeg + 2 * FrmInitialiserenView::RijHoogte, view.height());
    const QImage beeld = view.grab().toImage();
    bewaarPng(beeld, "frmInitialiseren");
    auto mark = [&](int n) {
        return pixel(beeld,
                     FrmInitialiserenView::markVak(FrmInitialiserenView::rijVak(n)).topLeft() +
                         QPoint(3, 9));
    };
    EXPECT_GT(qGreen(mark(0)), qRed(mark(0)) + 50); // passed
    EXPECT_GT(qRed(mark(1)), qGreen(mark(1)) + 50); // failed
    EXPECT_GT(qGreen(mark(2)), qRed(mark(2)) + 50); // the sub-row
    EXPECT_GT(donker(beeld, FrmInitialiserenView::rijVak(1).adjusted(0, 0, -30, 0)), 20);
    f.Verbergen();
    EXPECT_FALSE(view.isVisible());
}

TEST(DialogViewsTest, TakeOverWizardShowsTheTestedRowsAndTheKeysReachItsLiveButtons) {
    Werkplek w(Werkplek::startscherm);
    FakeSystemActions systeem;
    ModMainSessie sessie(w.p, systeem);
    FrmActiveren f(w.p, sessie);
    f.LaadTaal();
    f.optRegister.opt = FrmActiveren::Keuze::Ja;
    f.optResolutie.opt = FrmActiveren::Keuze::Ja;
    f.optFirewall.opt = FrmActiveren::Keuze::Nee;
    f.tmrFirewall_Timer();
    FrmActiverenView view(f);
    const QImage beeld = view.grab().toImage();
    bewaarPng(beeld, "frmActiveren");
    // The chosen button of a row has its dot: Yes for the registry, No for the firewall. The
    // dot sits in the centre of the 13-pixel circle at the left of the option's area.
    auto punt = [](int rij, bool ja) { return QPoint(ja ? 356 : 434, 14 + rij * 74 + 10); };
    auto gevuld = [&](int rij, bool ja) { return qGray(pixel(beeld, punt(rij, ja))) < 200; };
    EXPECT_TRUE(gevuld(0, true));
    EXPECT_FALSE(gevuld(0, false));
    EXPECT_TRUE(gevuld(2, false));
    EXPECT_FALSE(gevuld(2, true));
    EXPECT_GT(donker(beeld, QRect(18, 14 + 2 * 74, 300, 20)), 40); // the firewall's question
    // A screen reader hears each row's answer and the four buttons, the live ones pressable.
    QStringList namen, drukbaar;
    for (const PaintedControl& c : view.geschilderd()) {
        if (c.aangevinkt)
            namen << c.naam;
        if (c.drukbaar && !c.uitgeschakeld)
            drukbaar << c.naam;
    }
    EXPECT_EQ(namen, (QStringList{f.optRegister.lblTekst + u' ' + f.lblJa,
                                  f.optResolutie.lblTekst + u' ' + f.lblJa,
                                  f.optFirewall.lblTekst + u' ' + f.lblNee}));
    QStringList knoppen;
    for (const QString& c : {f.cmdFirewallCaption, f.cmdServerlocatieCaption, f.cmdActiverenCaption,
                             f.cmdSluitenCaption})
        knoppen << AccessibleName::maak(c);
    EXPECT_EQ(drukbaar, knoppen);
    // Tab walks the live buttons only; Space presses the one with the focus: the fourth, Close.
    for (int i = 0; i < 4; ++i)
        toets(view, Qt::Key_Tab);
    QString gefocust;
    for (const PaintedControl& c : view.geschilderd())
        if (c.focus)
            gefocust = c.naam;
    EXPECT_EQ(AccessibleName::maak(f.cmdSluitenCaption), gefocust);
    toets(view, Qt::Key_Space);
    EXPECT_TRUE(f.Klaar);
    EXPECT_FALSE(f.Antwoord);
}

TEST(DialogViewsTest, CloseOptionsWorkByKeyboardAndMouseNameWhatTheyPaintAndLogOnAsAClass) {
    AccessibleFactory::installeren();
    Werkplek w(Werkplek::startscherm);
    w.p.modMain.ModusStandalone = true;
    w.startKlas(0, "Groep 1", "1");
    w.startKlas(1, "Groep 2", "2");
    w.p.schermen = &w.schermen;
    FrmUitschakelen& f = w.p.modMainAfsluiten->frmUitschakelen;
    w.dialogen.opModaal = [&](Form&) {
        FrmUitschakelenView view(f);
        // What a screen reader finds: the painted question, each option and button by caption.
        QAccessibleInterface* venster = QAccessible::queryAccessibleInterface(&view);
        ASSERT_NE(nullptr, venster);
        QList<QAccessible::Role> rollen;
        QStringList namen;
        for (int i = 0; i < venster->childCount(); ++i) {
            rollen << venster->child(i)->role();
            namen << venster->child(i)->text(QAccessible::Name);
        }
        EXPECT_TRUE(namen.contains(f.lblKies));
        for (const QString& optie : f.optCaptions)
            EXPECT_EQ(QAccessible::RadioButton,
                      rollen.value(int(namen.indexOf(AccessibleName::maak(optie)))));
        const auto gefocust = [&] {
            for (const PaintedControl& c : view.geschilderd())
                if (c.focus)
                    return c.naam;
            return QString();
        };
        // Tab reaches the first option (the lists are off until the last option is chosen), the
        // arrows move on, Space chooses, Enter stays the default button's on an option.
        toets(view, Qt::Key_Tab);
        EXPECT_EQ(AccessibleName::maak(f.optCaptions[0]), gefocust());
        toets(view, Qt::Key_Down);
        EXPECT_EQ(AccessibleName::maak(f.optCaptions[1]), gefocust());
        toets(view, Qt::Key_Space);
        EXPECT_EQ(1, f.optAntwoord);
        // Tab past the last enabled area comes round to the first.
        const int stops = int(
            std::count_if(view.geschilderd().cbegin(), view.geschilderd().cend(),
                          [](const PaintedControl& c) { return c.drukbaar && !c.uitgeschakeld; }));
        for (int i = 0; i < stops - 1; ++i)
            toets(view, Qt::Key_Tab);
        EXPECT_EQ(AccessibleName::maak(f.optCaptions[0]), gefocust());
        toets(view, Qt::Key_Down);
        toets(view, Qt::Key_Return);
    };
    QString antwoord;
    f.Vraag(antwoord);
    EXPECT_EQ("opnieuwopstarten", antwoord);

    // The mouse on the last option: a user of the chosen group, whose desktop opens outside
    // network mode.
    w.dialogen.opModaal = [&](Form&) {
        FrmUitschakelenView view(f);
        EXPECT_FALSE(view.groepen()->isEnabled());
        const int laatste = int(f.optCaptions.size()) - 1;
        klik(view, FrmUitschakelenView::optieVak(laatste).center());
        ASSERT_EQ(laatste, f.optAntwoord);
        EXPECT_TRUE(view.groepen()->isEnabled());
        view.groepen()->setCurrentIndex(1); // classes
        ASSERT_EQ(2, view.gebruikers()->count());
        EXPECT_EQ("Groep 1", view.gebruikers()->itemText(0));
        view.gebruikers()->setCurrentIndex(1);
        const QImage beeld = view.grab().toImage();
        bewaarPng(beeld, "frmUitschakelen");
        // The chosen option's dot is green; the group's label is written in dark text.
        const QRect optie = FrmUitschakelenView::optieVak(laatste);
        const QRgb stip = pixel(beeld, QPoint(optie.left() + 6, optie.center().y()));
        EXPECT_GT(qGreen(stip), qRed(stip) + 40);
        EXPECT_GT(donker(beeld, QRect(52, view.groepen()->y() - DialogFrame::Kop, 80, 24)), 10);
        toets(view, Qt::Key_Return);
    };
    w.p.modMainAfsluiten->VerwerkAfsluitkeuze();
    EXPECT_EQ("aanmelden|" + w.p.modTaal.LaadTekst(2415) + "|Groep 2|101", f.Antwoord);
    EXPECT_EQ(QStringList{"bureaublad 0:101"}, w.schermen.log);
    EXPECT_FALSE(w.p.beeindigd);

    w.dialogen.opModaal = [&](Form&) {
        FrmUitschakelenView view(f);
        toets(view, Qt::Key_Escape);
    };
    f.Vraag(antwoord);
    EXPECT_TRUE(antwoord.isEmpty());
}
