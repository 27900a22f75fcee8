#include "screens/desktop/FrmBureaubladView.h"
#include "tests/screens/PngBewaren.h"
#include "tests/support/Werkplek.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::Werkplek;

namespace {

bool dichtbij(QRgb a, QRgb b, int marge = 6) {
    return qAbs(qRed(a) - qRed(b)) <= marge && qAbs(qGreen(a) - qGreen(b)) <= marge &&
           qAbs(qBlue(a) - qBlue(b)) <= marge;
}

// The opaque pixels of an icon, as they must stand on the canvas at `plek`.
int verschillen(const QImage& scherm, const QImage& icoon, QPoint plek) {
    const QImage i = icoon.convertToFormat(QImage::Format_ARGB32);
    int fout = 0;
    for (int y = 0; y < i.height(); ++y)
        for (int x = 0; x < i.width(); ++x)
            if (qAlpha(i.pixel(x, y)) == 255 &&
                !dichtbij(i.pixel(x, y), scherm.pixel(plek.x() + x, plek.y() + y)))
                ++fout;
    return fout;
}

} // namespace

TEST(BureaubladViewTest, IconsStandAtTheirPlacesOnTheCentredCanvas) {
    Werkplek w(Werkplek::bureaublad);
    w.applicatie(0, 0, "1", "Rekenen", "standaard|0", "/bin/true");
    w.applicatie(0, 1, "2", "Klok", "standaard|10");
    w.applicatie(0, 2, "3", "Geplaatst", "standaard|5");
    w.klas(0, "Groep 1", "12", "1|leeg|2|3", "Ja");
    w.posities("K12", "3|k|615x500");
    FrmBureaubladView view(w.b());
    view.resize(1280, 1024);
    w.b().Openen(0, "12");
    const QImage beeld = view.grab().toImage();
    tk::test::bewaarPng(beeld, "bureaublad-klas");
    const QPoint canvas((1280 - 1024) / 2, (1024 - 768) / 2);

    // Around the canvas the window is black.
    EXPECT_EQ(beeld.pixel(5, 5), qRgb(0, 0, 0));
    ASSERT_EQ(w.b().zichtbareIconen.size(), 4);
    for (int rij : {0, 2, 3}) {
        SCOPED_TRACE(rij);
        const auto* i = w.icoon(rij);
        ASSERT_NE(i, nullptr);
        EXPECT_EQ(verschillen(beeld, i->plaatje, canvas + i->beeld.topLeft()), 0);
    }
    // The internet icon at its own place.
    EXPECT_EQ(verschillen(beeld, w.icoon(4)->plaatje, canvas + QPoint(920, 248)), 0);
    // A free place shows the background.
    const QPoint gat = FrmBureaublad::RasterPlek(2) + QPoint(16, 16);
    EXPECT_TRUE(dichtbij(beeld.pixel(canvas + gat), w.b().achtergrond.pixel(gat), 40));

    // The mouse on the canvas reaches the model: a move hovers, a release starts.
    const QPointF op = QPointF(w.plek(0) + QPoint(8, 8));
    QMouseEvent beweeg(QEvent::MouseMove, op, op, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view.canvas(), &beweeg);
    EXPECT_EQ(w.b().Iconen(0, FrmBureaublad::KolomHover), "ja");
    QMouseEvent los(QEvent::MouseButtonRelease, op, op, Qt::LeftButton, Qt::NoButton,
                    Qt::NoModifier);
    QCoreApplication::sendEvent(view.canvas(), &los);
    EXPECT_EQ(w.platform.fakeProcesses().started.size(), 1);
}

TEST(BureaubladViewTest, HoverTooltipAndTeacherPanelAreDrawn) {
    Werkplek w(Werkplek::bureaublad);
    w.d().Categorien[0](0, 0) = "5";
    w.d().Categorien[0](0, 1) = "Rekenen";
    for (int i = 0; i < 14; ++i)
        w.applicatie(0, i, QString::number(i + 1),
                     i == 0 ? "Rekenen met breuken en kommagetallen"
                            : "Programma " + QString::number(i + 1),
                     "standaard|" + QString::number(i), "/bin/true",
                     "Oefenen met breuken, kommagetallen en procenten", "5");
    w.klas(0, "Groep 7", "12", "1|2|3|4|5|6|7|8|9|10|11|12|13|14|cdrom", "Ja");
    FrmBureaubladView view(w.b());
    w.b().Openen(0, "12");
    const QPoint op = w.plek(0) + QPoint(10, 10);
    w.b().Form_MouseMove(op.x(), op.y());
    w.b().tmrTooltip_Timer();
    const QImage beeld = view.canvas()->grab().toImage();
    tk::test::bewaarPng(beeld, "bureaublad-hover");
    // The tooltip's box stands where the model put it, in its pale yellow.
    ASSERT_TRUE(w.b().picTooltipZichtbaar);
    EXPECT_TRUE(dichtbij(beeld.pixel(w.b().picTooltipPlek + QPoint(3, 3)), qRgb(255, 255, 225)));
    // The highlighted name stands on the hover colour.
    const auto* i = w.icoon(0);
    EXPECT_TRUE(
        dichtbij(beeld.pixel(i->tekst.topLeft() + QPoint(-2, 0)), w.b().KleurIcoonHover.rgb()));

    w.leraar(0, "Vries", "Jan", "de", "21", "appel");
    w.leraar(1, "Jansen", "Petra", "", "22", "peer");
    w.b().Openen(2, "");
    const QImage paneel = view.canvas()->grab().toImage();
    tk::test::bewaarPng(paneel, "bureaublad-leraren");
    const QRect r = w.b().picAanmelden;
    EXPECT_TRUE(dichtbij(paneel.pixel(r.left() + 10, r.bottom() - 10), qRgb(255, 255, 255), 20));
    EXPECT_EQ(verschillen(paneel, w.b().imgAanmelden, r.topLeft() + QPoint(16, 44)), 0);
}

TEST(BureaubladViewTest, TheTeachersPasswordFieldAndButtonDriveTheModel) {
    Werkplek w(Werkplek::bureaublad);
    w.applicatie(1, 0, "3", "Lesprogramma");
    w.leraar(0, "Vries", "Jan", "de", "22", "appel", "3", "jvries");
    FrmBureaubladView view(w.b());
    w.b().Openen(2, "");
    w.b().cmbAanmelden_Click(0);
    QLineEdit* veld = view.findChild<QLineEdit*>();
    QPushButton* knop = nullptr;
    for (QPushButton* k : view.findChildren<QPushButton*>())
        if (k->text() == w.b().knopAanmeldenTekst)
            knop = k;
    ASSERT_NE(veld, nullptr);
    ASSERT_NE(knop, nullptr);
    EXPECT_EQ(veld->echoMode(), QLineEdit::Password);

    // What is typed reaches the model; a wrong password by Enter is refused and cleared.
    veld->setText("peer");
    Q_EMIT veld->textEdited("peer");
    EXPECT_EQ(w.b().txtWachtwoord, "peer");
    Q_EMIT veld->returnPressed();
    EXPECT_EQ(w.meldingen().size(), 1);
    EXPECT_EQ(w.b().txtWachtwoord, "");
    // The right one by the button opens the teacher's desktop.
    Q_EMIT veld->textEdited("appel");
    knop->click();
    EXPECT_EQ(w.b().Weergave, 1);
    EXPECT_EQ(w.b().kop, "Jan de Vries");
}
