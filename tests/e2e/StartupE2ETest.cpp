// The client's start-up against the real server with its demo school.
#include "core/OpstartStappen.h"
#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "tests/e2e/ServerProces.h"
#include "tests/support/Werkplek.h"
#include "theme/UcArchief.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace tk;
using tk::test::ServerProces;
using tk::test::Werkplek;

namespace {

class Stappen : public OpstartStappen {
public:
    explicit Stappen(Programma& p) : p(p) {}
    void Laden() override {
        // The language is the first thing the load asks of the server.
        p.modMain.LaadTaal();
        geladen = true;
    }
    void OpenGlobal(bool) override { geopend = QStringLiteral("GLOBAL"); }
    void OpenOnderhoud() override { geopend = QStringLiteral("ONDERHOUD"); }
    Programma& p;
    bool geladen = false;
    QString geopend;
};

} // namespace

TEST(StartupE2ETest, AManagementWorkstationConnectsIdentifiesAndTakesTheServersLanguage) {
    ServerProces server;
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
    Werkplek w;
    w.p.maak(w.p.frmMain, w.p);
    w.p.maak(w.p.modMainVerbinding, w.p);
    Stappen stappen(w.p);
    w.p.opstartStappen = &stappen;
    w.p.modMain.ModusBeheer = true;
    w.p.modMain.MaakMappen(QStringLiteral("\\Data"));
    w.p.modMain.SchrijfIni(QStringLiteral("127.0.0.1:%1").arg(server.poort()),
                           QStringLiteral("Instellingen"), QStringLiteral("Serverlocatie"),
                           QStringLiteral("\\Data\\Instellingen.ini"));
    w.platform.fakeClock().setStepPerRead(10);

    w.p.modMainVerbinding->StartVerbinding(false);

    FrmMainLink& f = *w.p.frmMain;
    EXPECT_TRUE(f.isConnected());
    EXPECT_FALSE(f.Offline);
    EXPECT_EQ(f.ReceiverPortBinary, server.poort() + 1);
    EXPECT_EQ(f.ReceiverPortInfo, server.poort() + 2);
    EXPECT_EQ(f.SenderPortBinary, server.poort() + 3);
    EXPECT_EQ(f.SenderPortInfo, server.poort() + 4);
    EXPECT_TRUE(stappen.geladen);
    EXPECT_EQ(w.p.modTaal.Taal, 1043); // the demo school speaks Dutch
    EXPECT_EQ(stappen.geopend, QStringLiteral("ONDERHOUD"));
    // Where the user is reaches the server, and it acknowledges.
    w.p.modMainVerbinding->GeefLocatieDoor(QStringLiteral("ONDERHOUD"));
    EXPECT_EQ(w.p.modMain.Locatie, w.p.modTaal.LaadTekst(2915));
    EXPECT_TRUE(f.BevestigdBericht);
}

TEST(StartupE2ETest, AnIconGoesUpAndComesBackInTheIconPackage) {
    ServerProces server;
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
    Werkplek w;
    w.p.maak(w.p.frmMain, w.p);
    w.p.maak(w.p.modMainVerbinding, w.p);
    w.p.modMain.ModusBeheer = true;
    w.p.modMain.MaakMappen(QStringLiteral("\\Data"));
    w.p.modMain.SchrijfIni(QStringLiteral("127.0.0.1:%1").arg(server.poort()),
                           QStringLiteral("Instellingen"), QStringLiteral("Serverlocatie"),
                           QStringLiteral("\\Data\\Instellingen.ini"));
    w.platform.fakeClock().setStepPerRead(10);
    ASSERT_TRUE(w.p.modMainVerbinding->BepaalServerlocatie());
    ASSERT_TRUE(w.p.frmMain->ServerVerbinden(true));
    w.p.modMainVerbinding->IdentificeerClient();

    // An icon for general application 1 goes up first, as the maintenance module sends it.
    w.schrijf(QStringLiteral("Tijdelijk/1.pic"), QByteArray("icoon-bytes\0met nul", 19));
    w.p.modMain.AntwoordOntvangen = false;
    w.p.frmMain->WS_Versturen(QStringLiteral("OPSAP2a|1.pic"), false);
    w.p.wacht.Tot([&] { return w.p.modMain.AntwoordOntvangen; });
    ASSERT_EQ(w.p.modMain.Antwoord, QStringLiteral("OK"));
    ASSERT_TRUE(w.p.frmMain->VerstuurBestand(w.pad(QStringLiteral("Tijdelijk/1.pic"))));

    ASSERT_TRUE(w.p.frmMain->OntvangBestand(QStringLiteral("LDNPICPAKgroep|1;<>;algemeen|1"),
                                            QStringLiteral("\\Tijdelijk\\pakket.pictogrammen"),
                                            true))
        << server.uitvoer().toStdString();
    const QString pakket = w.pad(QStringLiteral("Tijdelijk/pakket.pictogrammen"));
    ASSERT_TRUE(QFile::exists(pakket));
    const QString doel = w.pad(QStringLiteral("Uitgepakt"));
    UcArchief archief;
    int uitgepakt = -1;
    EXPECT_NO_THROW(uitgepakt = archief.ExtractFilesFromArchiv(pakket, doel, false));
    EXPECT_EQ(uitgepakt, 1);
    QFile icoon(doel + QStringLiteral("/Applicaties/Algemeen/1.pic"));
    ASSERT_TRUE(icoon.open(QIODevice::ReadOnly)) << QDir(doel).entryList().join(u' ').toStdString();
    EXPECT_EQ(icoon.readAll(), QByteArray("icoon-bytes\0met nul", 19));
    // No temporary file of the transfer is left behind.
    EXPECT_TRUE(QDir(w.pad(QStringLiteral("Tijdelijk/Ontvangst")))
                    .entryList(QDir::Files | QDir::NoDotAndDotDot)
                    .isEmpty());
}
