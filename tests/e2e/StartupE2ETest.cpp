// The client's start-up against the real server with its demo school.
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
