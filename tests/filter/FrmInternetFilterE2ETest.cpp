// The editor against the real server: an update from the server's own web side, and a word list
// long enough to go out in pieces comes back whole at the next load.
#include "data/ModData.h"
#include "screens/maintenance/FrmInternetFilter.h"
#include "tests/e2e/ServerProces.h"
#include "tests/support/Werkplek.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace tk;
using namespace tk::test;

TEST(FilterEditorE2E, AnUpdateFromTheServersWebSideIsSavedInPiecesAndLoadsWhole) {
    ServerProces server({"--web-port", "0"});
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
    ASSERT_TRUE(server.wachtOpUitvoer("web side on port", 10000));
    const int webPoort =
        QRegularExpression("web side on port (\\d+)").match(server.uitvoer()).captured(1).toInt();
    // A list of 400 words of ten letters and more: over 4,000 characters, three pieces.
    QByteArray lijst;
    for (int i = 0; i < 400; ++i)
        lijst += "woord" + QByteArray::number(100000 + i) + "\r\n";
    ASSERT_TRUE(QDir().mkpath(server.dataMap() + "/Web"));
    QFile bestand(server.dataMap() + "/Web/verbodenwoorden.txt");
    ASSERT_TRUE(bestand.open(QIODevice::WriteOnly));
    bestand.write(lijst);
    bestand.close();

    Werkplek ws(server.poort(), Werkplek::Rol::Beheer, 10);
    Programma& p = ws.p;
    p.maak(p.modData, p);
    ASSERT_TRUE(ws.identificeer());
    p.modMain.SchrijfIni(QString("http://127.0.0.1:%1").arg(webPoort), "Instellingen", "Webadres",
                         "\\Data\\Instellingen.ini");
    ws.platform.fakeNetwork().status.insert(QString("127.0.0.1:%1").arg(webPoort), 0);
    p.modData->LaadVerbodenWoorden();
    p.modData->LaadToegestaneSites();

    FrmInternetFilter f(p);
    f.Form_Load();
    const int voor = int(f.lijsten.lijst(FilterLists::Woorden).size());
    EXPECT_EQ(f.VerbodenWoordenUpdaten(false), 400);
    f.txt_Change(1, "bibliotheek.nl");
    f.txt_Enter(1);
    const QString woorden = f.lijsten.verbodenWoorden();
    ASSERT_GT(woorden.size(), 4000);
    EXPECT_EQ(f.lijsten.lijst(FilterLists::Woorden).size(), voor + 400);
    f.cmdOpslaan_Click();
    EXPECT_TRUE(f.Opgeslagen) << ws.meldingen().join("; ").toStdString();

    p.modData->VerbodenWoorden.clear();
    p.modData->ToegestaneSites.clear();
    p.modData->LaadVerbodenWoorden();
    p.modData->LaadToegestaneSites();
    EXPECT_EQ(p.modData->VerbodenWoorden, woorden);
    EXPECT_TRUE(p.modData->ToegestaneSites.endsWith("bibliotheek.nl"));
    // A second update finds nothing new.
    f.Form_Load();
    EXPECT_EQ(f.VerbodenWoordenUpdaten(false), 0);
}
