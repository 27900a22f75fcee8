// The desktop against the real server: the tables of the demo school, the stored places of a
// desktop, a start counted, and a teacher's login told to the server.
#include "data/ModData.h"
#include "link/FrmMainLink.h"
#include "screens/desktop/FrmBureaublad.h"
#include "tests/e2e/ServerProces.h"
#include "tests/support/Werkplek.h"

#include <gtest/gtest.h>

using namespace tk;
using tk::test::ServerProces;
using tk::test::Werkplek;

TEST(BureaubladE2ETest, ADemoClassDesktopStandsWhereTheServerKeepsItAndATeacherLogsInThere) {
    ServerProces server;
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
    Werkplek ws;
    ws.verbinding(server.poort(), Werkplek::Rol::Netwerk, 10);
    ASSERT_TRUE(ws.identificeer());
    Programma& p = ws.p;
    ModData& d = ws.d();
    d.LaadKlassen();
    d.LaadLeraren();
    for (int soort = 0; soort < 3; ++soort) {
        d.LaadCategorien(soort);
        d.LaadApplicaties(soort);
    }
    int rij = 0;
    while (rij < ModData::KlassenRijen && d.Klassen(rij, 0) != u"Groep 5")
        ++rij;
    ASSERT_LT(rij, ModData::KlassenRijen);
    const QString klas = d.Klassen(rij, 6);
    const QStringList items = d.Klassen(rij, 7).split(QLatin1Char('|'));
    ASSERT_GE(items.size(), 3);

    // The second item gets a stored place; the server keeps it for this class.
    p.modMain.AntwoordOpslaanOntvangen = false;
    p.frmMain->WS_Versturen(QStringLiteral("OPSAPPPOSk") + klas + QStringLiteral(";<>;") +
                                items[1] + QStringLiteral("|k|415x480"),
                            false);
    p.wacht.Tot([&] { return p.modMain.AntwoordOpslaanOntvangen; });

    FrmBureaublad& b = p.maak(p.frmBureaublad, p);
    b.Openen(0, klas);
    ASSERT_EQ(b.Eigenaar, rij);
    EXPECT_EQ(b.kop, QStringLiteral("Groep 5"));
    ASSERT_EQ(b.posApplicatie.size(), 1);
    // Every item and the internet icon of this class stand on the desktop.
    EXPECT_EQ(b.zichtbareIconen.size(), items.size() + 1);
    auto plek = [&](int r) {
        for (const auto& i : b.zichtbareIconen)
            if (i.rij == r)
                return i.beeld.topLeft();
        return QPoint(-1, -1);
    };
    EXPECT_EQ(plek(1), QPoint(400, 480)); // the grid around it is the model's test

    // A click on the first icon starts its program and counts the start on the server.
    const QPoint op = plek(0) + QPoint(8, 8);
    b.Form_MouseUp(1, op.x(), op.y());
    EXPECT_EQ(ws.platform.fakeProcesses().started.size(), 1);
    // The count is not answered; the next question's answer shows it went before.
    EXPECT_FALSE(ws.vraag(QStringLiteral("LDNKLSSNC")).isEmpty());
    EXPECT_FALSE(server.uitvoer().contains(QStringLiteral("OPSTEL")))
        << server.uitvoer().toStdString();

    // A teacher logs in on the everyone's desktop, and the server knows where.
    p.modMain.SchrijfIni(QStringLiteral("JA"), QStringLiteral("jvries"),
                         QStringLiteral("Administratorrechten"),
                         QStringLiteral("\\Data\\Instellingen.ini"));
    b.Openen(2, QString());
    const int keuze = int(b.cmbAanmelden.indexOf(QStringLiteral("Vries, Jan de")));
    ASSERT_GE(keuze, 0) << b.cmbAanmelden.join(QLatin1Char('/')).toStdString();
    b.cmbAanmelden_Click(keuze);
    b.txtWachtwoord = QStringLiteral("appel");
    b.knopAanmelden_Click();
    ASSERT_EQ(b.Weergave, 1);
    EXPECT_EQ(b.kop, QStringLiteral("Jan de Vries"));
    EXPECT_FALSE(b.zichtbareIconen.isEmpty());
    EXPECT_TRUE(server.wachtOpUitvoer(QStringLiteral("at location LERAAR|") +
                                          d.Leraren(b.Eigenaar, 5) + QStringLiteral("|bureaublad"),
                                      10000))
        << server.uitvoer().toStdString();
}
