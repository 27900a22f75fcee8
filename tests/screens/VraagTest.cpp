// The question window frmVraag: the answer of every kind, its layout, and its view.
#include "PngBewaren.h"
#include "screens/start/FrmVraag.h"
#include "screens/start/FrmVraagView.h"
#include "tests/support/Werkplek.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <gtest/gtest.h>

using namespace tk;
using namespace tk::test;

namespace {

// The user's steps, apart by "|": "=text" types, "#n" chooses option n, and Enter, OK, Cancel or
// Escape.
void doe(FrmVraag& f, const QString& stappen) {
    for (const QString& s : stappen.split(u'|', Qt::SkipEmptyParts)) {
        if (s.startsWith(u'='))
            f.txtTekst_Change(s.mid(1));
        else if (s.startsWith(u'#'))
            f.optKeuze_Click(s.mid(1).toInt());
        else if (s == u"Enter" || s == u"Escape")
            f.txtTekst_KeyPress(s == u"Enter" ? 13 : 27);
        else
            (s == u"OK") ? f.cmdOK_Click() : f.cmdAnnuleren_Click();
    }
}

void stuur(QWidget* w, int toets, const QString& tekst = {}) {
    QKeyEvent e(QEvent::KeyPress, toets, Qt::NoModifier, tekst);
    QCoreApplication::sendEvent(w, &e);
}

} // namespace

TEST(VraagTest, EveryKindAnswersAsTheWrapperPromises) {
    struct Geval {
        const char* stijl;
        const char* stappen;
        const char* antwoord;
        bool klaar;
    };
    const Geval gevallen[] = {
        {"-", "OK", "", true},
        {"-", "Escape", "", true},
        {":", "OK", "ja", true},
        {":", "Enter", "ja", true},
        {":", "Cancel", "nee", true},
        {"?", "OK", "ja", true},
        {"?", "Cancel", "nee", true},
        {"?", "Escape", "nee", true},
        {"*", "=geheim|Enter", "geheim", true},
        {"*", "=geheim|Cancel", "", true},
        {"*", "Enter", "", false}, // an empty password: Enter does nothing
        {"*", "=a|=|OK", "", false},
        {"pc1:34487", "Enter", "pc1:34487", true}, // a text keeps its default
        {"pc1", "=server2|OK", "server2", true},
        {"pc1", "Cancel", "", true},
        {"Rood|Groen|Blauw", "#1|Enter", "Groen", true},
        {"Rood|Groen", "#0|#1|OK", "Groen", true},
        {"Rood|Groen", "OK", "", false}, // nothing chosen: OK is off
        {"Rood|Groen", "#5|OK", "", false},
        {"Rood|Groen", "#0|Cancel", "", true},
        {"Rood|", "#1|OK", "", false}, // an empty item
    };
    for (const Geval& g : gevallen) {
        SCOPED_TRACE(std::string(g.stijl) + " " + g.stappen);
        Werkplek w;
        FrmVraag f(w.p);
        f.Laden("Titel", "Vraag?", g.stijl, 0);
        doe(f, g.stappen);
        EXPECT_EQ(g.klaar, f.Klaar);
        EXPECT_EQ(QString(g.antwoord), f.Antwoord());
    }
    // Vraag shows the window modally and answers what it was left with.
    Werkplek w;
    w.dialogen.opModaal = [](Form& form) { doe(dynamic_cast<FrmVraag&>(form), "=Sleutel|Enter"); };
    FrmVraag f(w.p);
    EXPECT_EQ("Sleutel", f.Vraag("Wachtwoord", "Geef het wachtwoord", "*", 0));
    EXPECT_EQ(QStringList({"frmVraag"}), w.dialogen.getoond);
}

TEST(VraagTest, ControlsFollowTheKind) {
    Werkplek w;
    FrmVraag f(w.p);
    f.Laden("T", "V", "?", 0);
    ASSERT_FALSE(f.cmdOKCaption.isEmpty());
    EXPECT_EQ(w.p.modTaal.LaadTekst(2703), f.cmdOKCaption);
    EXPECT_EQ(w.p.modTaal.LaadTekst(2704), f.cmdAnnulerenCaption);
    EXPECT_FALSE(f.txtTekstZichtbaar);
    EXPECT_TRUE(f.cmdOKEnabled);
    f.Laden("T", "V", ":", 0);
    EXPECT_EQ(w.p.modTaal.LaadTekst(2701), f.cmdOKCaption);
    EXPECT_EQ(w.p.modTaal.LaadTekst(2702), f.cmdAnnulerenCaption);
    f.Laden("T", "V", "-", 1);
    EXPECT_FALSE(f.cmdAnnulerenZichtbaar);
    EXPECT_EQ(304, f.cmdOKVak.width()); // OK alone across the bottom
    f.Laden("T", "V", "*", 0);
    EXPECT_TRUE(f.txtTekstZichtbaar);
    EXPECT_TRUE(f.wachtwoordTeken);
    EXPECT_FALSE(f.cmdOKEnabled);
    f.Laden("T", "V", "standaard", 0);
    EXPECT_FALSE(f.wachtwoordTeken);
    EXPECT_EQ("standaard", f.txtTekst);
    EXPECT_TRUE(f.cmdOKEnabled);
    // A new question on the same window forgets the last answer.
    f.cmdOK_Click();
    f.Laden("T", "V", "a|b", 0);
    EXPECT_FALSE(f.Klaar);
    EXPECT_EQ(-1, f.gekozen);
    EXPECT_TRUE(f.txtTekst.isEmpty());
    EXPECT_FALSE(f.txtTekstZichtbaar);
    EXPECT_EQ(QStringList({"a", "b"}), f.optKeuze);
}

TEST(VraagTest, LayoutGrowsTwentyPixelsAnOptionAndLeavesNoOverlaps) {
    Werkplek w;
    FrmVraag f(w.p);
    int vorige = 0;
    for (int n = 2; n <= 6; ++n) {
        SCOPED_TRACE(n);
        QStringList opties;
        for (int i = 0; i < n; ++i)
            opties << QString("Optie %1").arg(i);
        f.Laden("T", "Kies er een", opties.join('|'), 0);
        ASSERT_EQ(n, f.optKeuzeVakken.size());
        if (vorige) {
            EXPECT_EQ(FrmVraag::OptieHoogte, f.Hoogte - vorige);
        }
        vorige = f.Hoogte;
        for (int i = 1; i < n; ++i)
            EXPECT_EQ(f.optKeuzeVakken[i - 1].bottom() + 1, f.optKeuzeVakken[i].top());
        EXPECT_GT(f.optKeuzeVakken[0].top(), f.vraagVak.bottom());
        EXPECT_GT(f.cmdOKVak.top(), f.optKeuzeVakken.last().bottom());
        EXPECT_LT(f.cmdOKVak.bottom(), f.Hoogte);
        EXPECT_FALSE(f.cmdOKVak.intersects(f.cmdAnnulerenVak));
    }
    // The icon stands at (18, 12) and the question beside it; without an icon the question
    // takes its place.
    f.Laden("T", "V", "-", 0);
    EXPECT_GE(f.vraagVak.left(), FrmVraag::IcoonPlek.x() + FrmVraag::IcoonMaat);
    f.Laden("T", "V", "-", 7);
    EXPECT_EQ(FrmVraag::Geen, f.icoon);
    EXPECT_EQ(FrmVraag::Marge, f.vraagVak.left());
    // A long question makes the window taller, and wider past some lines; the text box follows.
    f.Laden("T", QString("woord ").repeated(10), "x", 0);
    const int kort = f.Hoogte;
    f.Laden("T", QString("woord ").repeated(60), "x", 0);
    EXPECT_GT(f.Hoogte, kort);
    EXPECT_GT(f.txtTekstVak.top(), f.vraagVak.bottom());
    f.Laden("T", QString("woord ").repeated(400), "x", 0);
    EXPECT_GT(f.breedte, FrmVraag::Breedte);
}

TEST(VraagTest, ViewPaintsTheQuestionMasksThePasswordAndMovesAChoiceWithTheArrows) {
    Werkplek w;
    FrmVraag f(w.p);
    f.Laden("Tafelkrater", "Wil je echt afsluiten?\r\nAlle programma's worden gesloten.", "?", 0);
    {
        FrmVraagView view(f);
        const QImage beeld = view.grab().toImage();
        bewaarPng(beeld, "frmVraag-janee");
        ASSERT_EQ(QSize(f.breedte, f.Hoogte + DialogFrame::Kop), beeld.size());
        const int kop = DialogFrame::Kop;
        // The caption band, the icon's blue disc at (18, 12), the body.
        EXPECT_EQ(DialogFrame::kopKleur().rgb(), beeld.pixel(5, 5) | 0xff000000);
        const QRgb icoon = beeld.pixel(18 + 6, kop + 12 + 16);
        EXPECT_GT(qBlue(icoon), qRed(icoon) + 60);
        EXPECT_EQ(DialogFrame::lijfKleur().rgb(), beeld.pixel(f.breedte - 4, kop + 4));
        // Dark text in the question's box, and the two buttons' frames.
        int donker = 0;
        for (int y = f.vraagVak.top(); y <= f.vraagVak.bottom(); ++y)
            for (int x = f.vraagVak.left(); x <= f.vraagVak.right(); ++x)
                donker += qGray(beeld.pixel(x, y + kop)) < 100;
        EXPECT_GT(donker, 100);
        for (const QRect& knop : {f.cmdOKVak, f.cmdAnnulerenVak}) {
            EXPECT_LT(qGray(beeld.pixel(knop.center().x(), knop.top() + kop)), 120);
            EXPECT_EQ(qRgb(255, 255, 255), beeld.pixel(knop.left() + 6, knop.center().y() + kop));
        }
    }
    f.Laden("Tafelkrater", "Geef het wachtwoord van de onderhoudsmodule", "*", 0);
    {
        FrmVraagView view(f);
        ASSERT_TRUE(view.tekstvak());
        EXPECT_EQ(QLineEdit::Password, view.tekstvak()->echoMode());
        EXPECT_EQ(DialogFrame::inVenster(f.txtTekstVak), view.tekstvak()->geometry());
        for (const QChar c : QString("abc"))
            stuur(view.tekstvak(), 0, c);
        EXPECT_TRUE(f.cmdOKEnabled);
        stuur(&view, Qt::Key_Return);
        EXPECT_TRUE(f.Klaar);
        EXPECT_EQ("abc", f.Antwoord());
    }
    f.Laden("Tafelkrater", "Welke printer?", "Lokaal|Lokaal 2|Netwerk", 1);
    FrmVraagView view(f);
    EXPECT_FALSE(view.tekstvak()->isVisibleTo(&view));
    stuur(&view, Qt::Key_Down);
    stuur(&view, Qt::Key_Down);
    EXPECT_EQ(1, f.gekozen);
    const QImage beeld = view.grab().toImage();
    bewaarPng(beeld, "frmVraag-keuze");
    // The dot of the chosen option is green, the others are empty.
    auto stip = [&](int i) {
        const QRect r = f.optKeuzeVakken[i];
        return beeld.pixel(r.left() + 6, r.center().y() + DialogFrame::Kop);
    };
    EXPECT_GT(qGreen(stip(1)), qRed(stip(1)) + 40);
    EXPECT_EQ(qRgb(255, 255, 255), stip(0));
    EXPECT_EQ(qRgb(255, 255, 255), stip(2));
    stuur(&view, Qt::Key_Return);
    EXPECT_EQ("Lokaal 2", f.Antwoord());
}
