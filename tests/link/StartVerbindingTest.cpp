#include "core/UnbuiltStartSteps.h"
#include "link/FrmMainLink.h"
#include "link/FrmNetwerk.h"
#include "link/ModInternet.h"
#include "link/ModMainVerbinding.h"
#include "tests/support/ScriptedPeer.h"
#include "tests/support/Werkplek.h"

#include <functional>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::ScriptedPeer;
using tk::test::Werkplek;
using Levering = ScriptedPeer::Levering;

namespace {

class OpnameStappen : public UnbuiltStartSteps {
public:
    using UnbuiltStartSteps::UnbuiltStartSteps;
    void ControleerChangelog() override { log << "ControleerChangelog"; }
    void Laden() override {
        log << "Laden";
        if (tijdensLaden)
            tijdensLaden();
    }
    void ControleerLerarenRechten() override { log << "ControleerLerarenRechten"; }
    QStringList Accounts() override { return accounts; }
    void VerbergLaadlabel() override { log << "VerbergLaadlabel"; }
    void ZetSessiebeperkingen(bool, bool) override { log << "Sessiebeperkingen"; }
    void ZetAutomatischeAanmelding(const QString& a, const QString& w, const QString&,
                                   bool afmelden) override {
        log << QString("AutomatischeAanmelding:%1:%2:%3").arg(a, w).arg(afmelden);
    }
    void OpenGlobal(bool) override { log << "OpenGlobal"; }
    void OpenGroep(const QString& id) override { log << "OpenGroep:" + id; }
    void OpenLeraar(const QString& id) override { log << "OpenLeraar:" + id; }
    void OpenOnderhoud() override { log << "OpenOnderhoud"; }
    void OpenFout(const QString& t) override { log << "OpenFout:" + t; }
    QStringList log;
    QStringList accounts{"KLAS|groep3|4", "LERAAR|juf|7"};
    std::function<void()> tijdensLaden;
};

struct Client {
    Client() {
        w.p.maak(w.p.frmMain, w.p);
        w.p.maak(w.p.modMainVerbinding, w.p);
        w.p.opstartStappen = &stappen;
        w.platform.fakeClock().setStepPerRead(100);
        w.p.modMain.MaakMappen("\\Data");
    }
    void locatie(const QString& tekst) {
        w.p.modMain.SchrijfIni(tekst, "Instellingen", "Serverlocatie", "\\Data\\Instellingen.ini");
    }
    QStringList zonderLabel() const {
        QStringList l = stappen.log;
        l.removeAll("VerbergLaadlabel");
        l.removeAll("Sessiebeperkingen");
        return l;
    }
    Werkplek w;
    OpnameStappen stappen{w.p};
};

ScriptedPeer& begroeting(ScriptedPeer& peer) {
    return peer.op("TST", "TST")
        .op("INFVER*", "INFVER")
        .op("INFDMN", "INFDMNschool|1|2|3|4|NEE|NEE")
        .op("INFCOM*", "INFCOM");
}

} // namespace

// "Reconnect" clicked while a connect and its load run (the waits take clicks) starts no second
// connect inside the first.
TEST(StartVerbindingTest, AReconnectWhileOneRunsIsLeftAlone) {
    ScriptedPeer peer;
    begroeting(peer);
    Client k;
    k.w.p.modMain.ModusNetwerk = true;
    k.w.platform.fakeEnvironment().setVariable("USERNAME", "global");
    k.locatie(QString("127.0.0.1:%1").arg(peer.poort()));
    k.stappen.tijdensLaden = [&] { k.w.p.modMainVerbinding->StartVerbinding(false); };
    k.w.p.modMainVerbinding->StartVerbinding(false);
    EXPECT_EQ(k.stappen.log.count("Laden"), 1);
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();
    k.stappen.tijdensLaden = nullptr;
    k.stappen.log.clear();
    ScriptedPeer tweede;
    begroeting(tweede);
    k.locatie(QString("127.0.0.1:%1").arg(tweede.poort()));
    k.w.p.modMainVerbinding->StartVerbinding(false);
    EXPECT_EQ(k.stappen.log.count("Laden"), 1) << "and once it ended, the next one runs";
}

TEST(StartVerbindingTest, ConnectsIdentifiesLoadsAndOpensTheAccountOfTheSession) {
    struct Case {
        const char* modus;
        const char* gebruiker;
        const char* regel;
        const char* geopend;
    };
    const Case cases[] = {
        {"2", "groep3", "", "OpenGroep:4"},
        {"2", "JUF", "", "OpenLeraar:7"},
        {"2", "global", "", "OpenGlobal"},
        {"2", "onbekend", "", "AutomatischeAanmelding:GLOBAL:Sleutelwrk42:1"},
        {"0", "x", "", "OpenOnderhoud"},
        {"0", "x", "juf", "OpenLeraar:7"},
        {"0", "x", "niemand", "OpenFout:"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.modus) + " " + c.gebruiker + " " + c.regel);
        ScriptedPeer peer;
        begroeting(peer);
        Client k;
        ModMain& m = k.w.p.modMain;
        m.ModusNetwerk = *c.modus == '2';
        m.ModusStandalone = *c.modus == '1';
        m.ModusBeheer = *c.modus == '0';
        m.Opdrachtregel = QString::fromLatin1(c.regel).toUpper();
        k.w.platform.fakeEnvironment().setVariable("USERNAME", QString::fromLatin1(c.gebruiker));
        k.locatie(QString("127.0.0.1:%1").arg(peer.poort()));
        k.w.p.modMainVerbinding->StartVerbinding(false);
        EXPECT_TRUE(peer.klaar());
        QString geopend = QString::fromLatin1(c.geopend);
        if (geopend == u"OpenFout:")
            geopend += k.w.p.modTaal.LaadTekst(2910);
        EXPECT_EQ(k.zonderLabel(), (QStringList{"ControleerChangelog", "Laden",
                                                "ControleerLerarenRechten", geopend}));
        EXPECT_EQ(k.stappen.log.contains("Sessiebeperkingen"), !m.ModusBeheer);
    }
}

TEST(StartVerbindingTest, StandaloneOpensTheGlobalStartScreen) {
    Client k;
    k.w.p.modMain.ModusStandalone = true;
    k.w.p.modMainVerbinding->AutomatischAanmelden();
    EXPECT_EQ(k.zonderLabel(), QStringList{"OpenGlobal"});
}

TEST(StartVerbindingTest, WithoutALocationTheUserIsAskedAndTheAnswerIsStored) {
    ScriptedPeer peer;
    begroeting(peer);
    Client k;
    k.w.p.modMain.ModusNetwerk = true;
    k.w.platform.fakeEnvironment().setVariable("LOGONSERVER", QString());
    k.w.dialogen.opModaal = [&](Form& f) {
        auto& netwerk = static_cast<FrmNetwerk&>(f);
        EXPECT_EQ(netwerk.txtNaam, QString());
        EXPECT_FALSE(netwerk.cmdOKEnabled);
        netwerk.txtNaam_Change(QString("127.0.0.1:%1").arg(peer.poort()));
        netwerk.cmdOK_Click();
    };
    k.w.p.modMainVerbinding->StartVerbinding(false);
    EXPECT_TRUE(peer.klaar());
    EXPECT_EQ(k.w.p.modMain.LeesIni("Instellingen", "Serverlocatie", "\\Data\\Instellingen.ini"),
              QString("127.0.0.1:%1").arg(peer.poort()));
    EXPECT_TRUE(k.stappen.log.contains("Laden"));
}

TEST(StartVerbindingTest, ACancelledLocationWithoutCacheStopsBeforeTheLoad) {
    Client k;
    k.w.p.modMain.ModusNetwerk = true;
    k.w.platform.fakeEnvironment().setVariable("LOGONSERVER", QString());
    k.w.dialogen.opModaal = [](Form& f) { static_cast<FrmNetwerk&>(f).cmdAnnuleren_Click(); };
    k.w.p.modMainVerbinding->StartVerbinding(false);
    EXPECT_TRUE(k.stappen.log.isEmpty());
    EXPECT_EQ(k.w.p.frmMain->lblLaden, k.w.p.modTaal.LaadTekst(1611).toUpper());
}

TEST(FrmNetwerkTest, ShowsThePortOnlyWhenItIsNotTheDefault) {
    struct Case {
        long poort;
        const char* tekst;
    };
    for (const Case c : {Case{34487, "pc1"}, Case{4000, "pc1:4000"}, Case{0, "pc1"}}) {
        Client k;
        k.w.p.frmMain->ServerHost = "pc1";
        k.w.p.frmMain->ServerPoort = c.poort;
        QString gezien;
        k.w.dialogen.opModaal = [&](Form& f) { gezien = static_cast<FrmNetwerk&>(f).txtNaam; };
        k.w.p.modMainVerbinding->frmNetwerk.Computernaam();
        EXPECT_EQ(gezien, QString::fromLatin1(c.tekst));
    }
    Client k;
    FrmNetwerk& n = k.w.p.modMainVerbinding->frmNetwerk;
    n.tvwNetwork_NodeClick("\\\\SERVER01");
    EXPECT_EQ(n.txtNaam, "SERVER01");
    n.tvwNetwork_NodeClick("Werkgroep");
    EXPECT_EQ(n.txtNaam, "SERVER01");
}

TEST(ServerlocatieTestTest, TheFirewallTestAsksTheServerAndASilentOneCountsAsAClosedFirewall) {
    for (const bool antwoordt : {true, false}) {
        SCOPED_TRACE(antwoordt);
        ScriptedPeer peer;
        peer.op("FIR", antwoordt ? "FIRschool.local" : QString(),
                antwoordt ? Levering::Heel : Levering::Stil);
        Client k;
        k.w.p.modMain.ModusNetwerk = true;
        k.w.p.modMain.StilActiveren = !antwoordt; // no second question
        k.locatie(QString("127.0.0.1:%1").arg(peer.poort()));
        EXPECT_EQ(k.w.p.modMainVerbinding->TestServerlocatie(false), antwoordt);
        EXPECT_EQ(k.w.p.frmMain->Domein, antwoordt ? "school.local" : QString());
        EXPECT_FALSE(k.w.p.frmMain->isConnected()); // closed again after the test
        EXPECT_FALSE(k.w.p.frmMain->VerbindingTesten);
        EXPECT_FALSE(k.w.p.beeindigd);
        EXPECT_TRUE(k.w.dialogen.getoond.isEmpty());
    }
}

TEST(ModInternetTest, TheInternetTestEchoesTheWebServerUntilItIsOnline) {
    EXPECT_EQ(ModInternet::StatusTekst(0), "Online");
    EXPECT_EQ(ModInternet::StatusTekst(200), "Ping timed out");
    EXPECT_EQ(ModInternet::StatusTekst(11009), "Pachage too big for this host");
    EXPECT_EQ(ModInternet::StatusTekst(42), "Unexpected error");

    Client k;
    ModInternet internet(k.w.p);
    EXPECT_FALSE(internet.ControleerInternet(5)); // no web address configured
    EXPECT_TRUE(k.w.platform.fakeNetwork().gepingd.isEmpty());
    k.w.p.modMain.SchrijfIni("http://web.school.test:8080/", "Instellingen", "Webadres",
                             "\\Data\\Instellingen.ini");
    EXPECT_FALSE(internet.ControleerInternet(2));
    EXPECT_GE(k.w.platform.fakeNetwork().gepingd.size(), 2);
    EXPECT_EQ(k.w.platform.fakeNetwork().gepingd[0], "web.school.test:8080");
    k.w.platform.fakeNetwork().status.insert("web.school.test:8080", 0);
    EXPECT_TRUE(internet.ControleerInternet(2));
}
