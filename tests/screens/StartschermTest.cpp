#include "screens/start/FrmMainView.h"
#include "tests/support/Werkplek.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QKeyEvent>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::Werkplek;

TEST(StartschermTest, TwentyOneClassesFillTheDefaultGridRowsOfEightFourFourFive) {
    Werkplek w(Werkplek::startscherm);
    w.f().AccountKlik(0);
    EXPECT_EQ(w.p.modTaal.LaadTekst(1612), w.f().ballonTekst); // no classes: the cloud says so
    for (int i = 0; i < 21; ++i)
        w.startKlas(i, QString("Groep %1").arg(i), QString::number(i));
    w.f().WeergevenKlassen(true);
    w.f().HerschikGroepen();
    struct Case {
        int index, left, top;
    };
    const Case cases[] = {{0, 130, 304},  {7, 830, 304},  {8, 130, 404},  {11, 430, 404},
                          {12, 130, 504}, {15, 430, 504}, {16, 130, 604}, {20, 530, 604}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.index);
        Knop2* k = w.f().knop(c.index);
        ASSERT_NE(k, nullptr);
        EXPECT_EQ(c.left, k->X);
        EXPECT_EQ(c.top, k->Y);
        EXPECT_TRUE(k->Visible);
    }
    // No two default places overlap, with the narrowed group mask.
    const QSize maat = w.f().knop(0)->Grootte();
    EXPECT_LE(maat.width(), 100);
    EXPECT_EQ(QString::number(20), w.f().knop(20)->Tekst);
    EXPECT_EQ(w.p.modTaal.LaadTekst(1613), w.f().ballonTekst);
}

TEST(StartschermTest, PositionsAndPicturesFromTheRecordsAndHoles) {
    Werkplek w(Werkplek::startscherm);
    w.startKlas(0, "Eerste", "1", "1a.jpg", "500,100");
    w.startKlas(1, "", "");
    w.startKlas(2, "Derde", "3", "2a.jpg", "0,0");
    w.startKlas(3, "Vierde", "4", "3a.jpg", "");
    w.startKlas(4, "Vijfde", "5", "77a.jpg", "12,x"); // no such picture
    w.f().WeergevenKlassen(true);
    EXPECT_EQ(500, w.f().knop(0)->X);
    EXPECT_EQ(100, w.f().knop(0)->Y);
    EXPECT_EQ(nullptr, w.f().knop(1)); // a hole is skipped
    EXPECT_EQ(330, w.f().knop(2)->X);  // and row 3 keeps its own index
    EXPECT_EQ(430, w.f().knop(3)->X);  // empty is no position
    EXPECT_EQ(530, w.f().knop(4)->X);  // nor is one that is no number
    EXPECT_EQ("acc2|pw2|102", w.f().knop(2)->Tag);
    EXPECT_EQ("Derde", w.f().knop(2)->ToolTipText);
    // A picture that is not there falls back on the first colour's.
    const QString knoppen = w.pad("Afbeeldingen/Skins/1/Knoppen/");
    EXPECT_EQ(QImage(knoppen + "3a.jpg"), w.f().knop(3)->Afbeelding_Normaal);
    EXPECT_EQ(QImage(knoppen + "3b.jpg"), w.f().knop(3)->Afbeelding_Hover);
    EXPECT_EQ(QImage(knoppen + "1a.jpg"), w.f().knop(4)->Afbeelding_Normaal);
    EXPECT_EQ(QImage(knoppen + "1b.jpg"), w.f().knop(4)->Afbeelding_Hover);
}

TEST(StartschermTest, PasswordPanelDecidesByTheLocalisedUserLabel) {
    for (long taal : {1033L, 1043L}) {
        SCOPED_TRACE(taal);
        Werkplek w(Werkplek::startscherm);
        w.p.modTaal.Taal = taal;
        w.p.modData->Wachtwoorden = QStringList{"leraar", "beheer"};
        w.balk1().LadenVormgeving();
        w.f().AccountKlik(1);
        EXPECT_TRUE(w.f().wachtwoordBallon.isEmpty());
        w.f().txtWachtwoord = "beheer"; // the maintenance password on the teachers' panel
        w.f().knopAanmelden_Click();
        EXPECT_EQ(w.p.modTaal.LaadTekst(1604), w.f().wachtwoordBallon);
        EXPECT_TRUE(w.f().wachtwoordGeselecteerd);
        w.f().txtWachtwoord = "leraar";
        w.f().txtWachtwoord_KeyPress(13);
        EXPECT_TRUE(w.f().wachtwoordBallon.isEmpty());
        EXPECT_FALSE(w.f().picAanmeldenZichtbaar);
        EXPECT_EQ(w.p.modTaal.LaadTekst(708), w.f().ballonTekst);
        ASSERT_EQ(1, w.f().meldingen.size());
    }
}

TEST(StartschermTest, TheAutomaticPanelRunsOnceAndEmptyPasswordsWarnAndLetAnEmptyPasswordIn) {
    Werkplek w(Werkplek::startscherm);
    w.p.modData->Wachtwoorden = QStringList{"", ""};
    w.balk1().LadenVormgeving();
    w.f().AccountKlik(4); // the maintenance module's panel
    EXPECT_TRUE(w.f().picAanmeldenZichtbaar);
    EXPECT_EQ(w.p.modTaal.LaadTekst(1601), w.f().lblGebruiker);
    w.f().picAanmeldenZichtbaar = false;
    w.f().AccountKlik(4);
    EXPECT_FALSE(w.f().picAanmeldenZichtbaar);
    w.f().AccountKlik(5);
    EXPECT_FALSE(w.f().picAanmeldenZichtbaar);
    w.f().AccountKlik(1); // a click of the user always works
    EXPECT_TRUE(w.f().picAanmeldenZichtbaar);
    EXPECT_EQ(w.p.modTaal.LaadTekst(1603), w.f().lblGebruiker);
    EXPECT_EQ(w.p.modTaal.LaadTekst(1607), w.f().wachtwoordBallon);
    w.f().AccountKlik(2);
    EXPECT_EQ(w.p.modTaal.LaadTekst(1608), w.f().wachtwoordBallon);
    // Not connected: the right password asks whether to connect again.
    w.dialogen.antwoorden << "nee";
    w.f().knopAanmelden_Click();
    ASSERT_EQ(1, w.dialogen.gesteld.size());
    EXPECT_EQ(w.p.modTaal.LaadTekst(1602), w.dialogen.gesteld[0].tekst);
    EXPECT_EQ("?", w.dialogen.gesteld[0].stijl);
}

TEST(StartschermTest, AClassOpensItsDesktopUnlessItLacksTheRightsInNetworkMode) {
    Werkplek w(Werkplek::startscherm);
    w.startKlas(0, "Groep 1", "1");
    w.startKlas(1, "Groep 2", "2");
    w.p.schermen = &w.schermen;
    w.f().OpenGroep("999"); // no such class: nothing opens
    w.f().OpenGroep("101");
    EXPECT_EQ(QStringList{"bureaublad 0:101"}, w.schermen.log);
    EXPECT_FALSE(w.f().knop(0)->Visible);
    EXPECT_FALSE(w.f().Zichtbaar);

    Werkplek n(Werkplek::startscherm);
    n.p.modMain.ModusNetwerk = true;
    n.startKlas(0, "Groep 1", "1");
    n.f().AccountKlik(0);
    n.f().knopGroep_Click(0);
    ASSERT_EQ(1, n.dialogen.gesteld.size());
    EXPECT_TRUE(n.dialogen.gesteld[0].tekst.contains("acc0"));
    EXPECT_TRUE(n.f().knop(0)->Visible);
    EXPECT_TRUE(n.f().meldingen.isEmpty());
}

TEST(StartschermTest, TheLoadingBarShowsAFetchsProgressOrBouncesWithoutASize) {
    Werkplek w(Werkplek::startscherm);
    FrmMain& f = w.f();
    f.LadenX = 100;
    f.LadenY = 200;
    f.UpdateX = 300;
    f.UpdateY = 400;
    f.LaadLaadbalkLaden();
    EXPECT_EQ(f.picLaden.topLeft(), QPoint(100, 200));
    f.LaadLaadbalkUpdate();
    EXPECT_EQ(f.picLaden.topLeft(), QPoint(300, 400));
    struct Case {
        bool thema, pictogrammen;
        qint64 ontvangen, totaal;
        int tekst, blokken;
    };
    const Case cases[] = {
        {true, false, 0, 1000, 1620, 1},
        {true, false, 500, 1000, 1620, 20},
        {false, true, 3000000000LL, 3000000000LL, 1621, 40}, // past 2 GB: still whole
        {false, false, 10, 0, 1609, 1},                      // no size told: an empty bar
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.tekst);
        f.link.picLadenZichtbaar = false;
        f.link.ThemaLaden = c.thema;
        f.link.PictogrammenLaden = c.pictogrammen;
        f.ontvangstVoortgang(c.ontvangen, c.totaal);
        EXPECT_TRUE(f.link.picLadenZichtbaar);
        EXPECT_EQ(f.laadTekst, w.p.modTaal.LaadTekst(c.tekst));
        EXPECT_EQ(f.laadBlokken.size(), c.blokken);
        EXPECT_EQ(f.laadTekstPlek, QPoint(200, 28));
    }
    // Without a size the block bounces, moved by tmrLaden, with the loading text.
    f.link.tmrLadenAan = true;
    for (int i = 0; i < 50; ++i)
        f.tmrLaden_Timer();
    EXPECT_EQ(f.laadBlokken, QList<QRect>{QRect(190, 2, 8, 9)});
    EXPECT_EQ(f.laadTekst, w.p.modTaal.LaadTekst(1609));
}

TEST(StartschermTest, MissingThemePictureIsReportedAndTheScreenStaysUsable) {
    Werkplek w(Werkplek::startscherm);
    QFile::remove(w.pad("Afbeeldingen/Skins/1/Schermen/Startscherm.jpg"));
    // A short colour key.
    w.p.modMain.SchrijfIni("1,2", "Kleuren", "Laden", "\\Afbeeldingen\\Skins\\1\\Instellingen.ini");
    w.f().LadenVormgeving();
    EXPECT_TRUE(w.f().achtergrond.isNull());
    EXPECT_FALSE(w.f().wolk.isNull());
    EXPECT_EQ(562, w.f().LadenY + 2); // places still read
    // Both faults reached the log book under the procedure's name.
    QString logboek;
    for (const QFileInfo& dag : QDir(w.pad("Logboek")).entryInfoList(QDir::Files))
        logboek += QString::fromUtf8(w.lees("Logboek/" + dag.fileName()));
    EXPECT_GE(logboek.count("frmMain.LadenVormgeving"), 2) << logboek.toStdString();

    w.startKlas(0, QString(200, 'x') + "|y", QString(200, 'k') + "|z");
    w.f().AccountKlik(0);
    const QImage beeld = w.f().knop(0)->Teken();
    EXPECT_EQ(w.f().knop(0)->Grootte(), beeld.size());
}

// Shift ends a connect's wait and skips the cache while it is held, not for the rest of the run.
TEST(StartschermTest, ShiftCountsOnlyWhileItIsHeld) {
    Werkplek w(Werkplek::startscherm);
    w.f().Form_Load();
    FrmMainView view(w.f());
    bool& shift = w.f().link.ShiftIngedrukt;
    const auto stuur = [&](QEvent&& e) { QCoreApplication::sendEvent(&view, &e); };
    stuur(QKeyEvent(QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier));
    EXPECT_TRUE(shift);
    stuur(QKeyEvent(QEvent::KeyRelease, Qt::Key_Shift, Qt::NoModifier));
    EXPECT_FALSE(shift);
    stuur(QKeyEvent(QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier));
    stuur(QFocusEvent(QEvent::FocusOut));
    EXPECT_FALSE(shift) << "its release may go to another window";
}

TEST(StartschermTest, TheViewDrawsTheClassPicturesAtTheirPlacesAndLongNamesCutInside) {
    Werkplek w(Werkplek::startscherm);
    w.startKlas(0, "Groep 1", "1", "1a.jpg");
    w.startKlas(1, "Groep 2", "2", "5a.jpg");
    w.f().Form_Load();
    w.f().AccountKlik(0);
    const auto teken = [&] {
        FrmMainView view(w.f());
        view.resize(1024, 768);
        return view.grab().toImage();
    };
    const QImage beeld = teken();
    const QImage rood(w.pad("Afbeeldingen/Skins/1/Knoppen/1a.jpg"));
    const QImage blauw(w.pad("Afbeeldingen/Skins/1/Knoppen/5a.jpg"));
    // A point in the body of each button, away from the caption, against the picture's own.
    auto dichtbij = [](QRgb a, QRgb b) {
        return qAbs(qRed(a) - qRed(b)) < 40 && qAbs(qGreen(a) - qGreen(b)) < 40 &&
               qAbs(qBlue(a) - qBlue(b)) < 40;
    };
    const QSize maat = w.f().knop(0)->Grootte();
    const int bx = 10, by = maat.height() - 10;
    const int sx = bx * rood.width() / maat.width();
    EXPECT_TRUE(dichtbij(rood.pixel(sx, by), beeld.pixel(130 + bx, 304 + by)));
    EXPECT_TRUE(dichtbij(blauw.pixel(sx, by), beeld.pixel(230 + bx, 304 + by)));
    // Between the buttons the background stands.
    const QImage achter(w.pad("Afbeeldingen/Skins/1/Schermen/Startscherm.jpg"));
    EXPECT_TRUE(dichtbij(achter.pixel(228, 330), beeld.pixel(228, 330)));

    // A caption of 200 characters with the list separators in it, beside a plain one.
    w.startKlas(0, QString(200, 'W') + "|x;<>;y", QString(100, 'W') + "|" + QString(100, 'M'));
    w.f().WeergevenKlassen(true);
    w.f().HerschikGroepen();
    const QImage lang = teken();
    EXPECT_EQ("acc0|pw0|100", w.f().knop(0)->Tag); // the name does not enter the tag
    // Left of the first button, in the gap between the two and above them nothing changed:
    // the caption stays inside its button.
    for (const QPoint pt :
         {QPoint(125, 330), QPoint(130 + maat.width() + 1, 330), QPoint(180, 300)}) {
        SCOPED_TRACE(pt.x());
        EXPECT_EQ(beeld.pixel(pt), lang.pixel(pt));
    }
}
