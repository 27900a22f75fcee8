// The client's start-up against the real server with its demo school.
#include "archive/UcArchief.h"
#include "core/UnbuiltStartSteps.h"
#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "tests/e2e/ServerProces.h"
#include "tests/e2e/Werkstation.h"
#include "tests/support/Werkplek.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace tk;
using tk::test::ServerProces;
using tk::test::Werkplek;
using tk::test::Werkstation;

namespace {

class Stappen : public UnbuiltStartSteps {
public:
    explicit Stappen(Programma& p) : UnbuiltStartSteps(p) {}
    void Laden() override {
        // The language is the first thing the load asks of the server.
        p.modMain.LaadTaal();
        geladen = true;
    }
    void OpenGlobal(bool) override { geopend = QStringLiteral("GLOBAL"); }
    void OpenOnderhoud() override { geopend = QStringLiteral("ONDERHOUD"); }
    bool geladen = false;
    QString geopend;
};

} // namespace

TEST(StartupE2ETest, AManagementWorkstationConnectsIdentifiesAndTakesTheServersLanguage) {
    ServerProces server;
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
    Werkstation ws(server.poort());
    Werkplek& w = ws.w;
    Stappen stappen(w.p);
    w.p.opstartStappen = &stappen;

    w.p.modMainVerbinding->StartVerbinding(false);

    FrmMainLink& f = *w.p.frmMain;
    EXPECT_TRUE(f.isConnected());
    EXPECT_FALSE(f.Offline);
    EXPECT_EQ(QList<quint16>({quint16(f.ReceiverPortBinary), quint16(f.ReceiverPortInfo),
                              quint16(f.SenderPortBinary), quint16(f.SenderPortInfo)}),
              server.overdrachtPoorten());
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
    Werkstation ws(server.poort());
    Werkplek& w = ws.w;
    ASSERT_TRUE(ws.verbind());
    // An icon for general application 1 goes up first, as the maintenance module sends it.
    ASSERT_TRUE(ws.stuurIcoon(QStringLiteral("a"), QStringLiteral("1"),
                              QByteArray("icoon-bytes\0met nul", 19)));

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
