#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "link/Woordenlijst.h"
#include "tests/support/OpnameSchermen.h"
#include "tests/support/ScriptedPeer.h"
#include "tests/support/Werkplek.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTimer>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::OpnameStartscherm;
using tk::test::ScriptedPeer;
using tk::test::Werkplek;
using Levering = ScriptedPeer::Levering;

namespace {

// A workstation with the link: Network mode, the server location pointing at a peer.
struct Verbinding {
    explicit Verbinding(quint16 poort) {
        w.p.maak(w.p.frmMain, w.p);
        w.p.maak(w.p.modMainVerbinding, w.p);
        w.p.modMain.ModusNetwerk = true;
        w.p.modMain.MaakMappen(QStringLiteral("\\Data"));
        w.p.modMain.SchrijfIni(QStringLiteral("127.0.0.1:%1").arg(poort),
                               QStringLiteral("Instellingen"), QStringLiteral("Serverlocatie"),
                               QString::fromLatin1(ModMain::Instellingen));
        // Every read of the clock moves it on, so that 5-second deadlines pass quickly.
        w.platform.fakeClock().setStepPerRead(100);
    }
    bool verbind() {
        return w.p.modMainVerbinding->BepaalServerlocatie() && w.p.frmMain->ServerVerbinden(true);
    }
    // Sends a class A request and waits for the reply.
    QString vraag(const QString& bericht) {
        w.p.modMain.AntwoordOntvangen = false;
        w.p.frmMain->WS_Versturen(bericht, false);
        w.p.wacht.Tot([this] { return w.p.modMain.AntwoordOntvangen; });
        return w.p.modMain.Antwoord;
    }
    // Pumps until the condition holds (or 2 s of real time, which fails the caller's check).
    void pompTot(const std::function<bool()>& voorwaarde) {
        QElapsedTimer t;
        t.start();
        while (!voorwaarde() && t.elapsed() < 2000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    void pompVoor(int ms) {
        QElapsedTimer t;
        t.start();
        while (t.elapsed() < ms)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    Werkplek w;
};

QString foutrapport(Werkplek& w, const char* sleutel) {
    return w.p.modMain.LeesIni(QStringLiteral("ID=1"), QString::fromLatin1(sleutel),
                               QStringLiteral("\\Data\\Foutrapportage.ini"));
}

} // namespace

TEST(WoordenlijstTest, SortsEveryReplyByItsFirstCharactersInTheTablesOrder) {
    using K = Woordenlijst::Klasse;
    using A = Woordenlijst::Actie;
    struct Case {
        const char* bericht;
        K klasse;
        A actie;
        bool metPayload;
        const char* payload;
    };
    const Case cases[] = {
        {"PIN", K::D, A::Ping, false, ""},
        {"pin", K::D, A::Vallen, false, ""}, // tests are case-sensitive
        {"TSTextra", K::C, A::Geen, false, ""},
        {"LOC", K::C, A::Geen, false, ""},
        {"ACDCONJA", K::A, A::Geen, true, "JA"},
        {"FIRschool", K::A, A::Fir, true, "school"},
        {"INFVERx", K::C, A::Geen, false, ""},
        {"INFDMNd|1|2|3|4|JA|NEE", K::C, A::Infdmn, true, "d|1|2|3|4|JA|NEE"},
        {"INFAFM", K::D, A::Geen, false, ""},
        {"INFONDJA", K::A, A::Geen, true, "JA"},
        {"INFONA", K::D, A::Infona, false, ""},
        {"INFONC", K::D, A::Infonc, false, ""},
        {"INFONB", K::C, A::Geen, false, ""},
        {"INF", K::C, A::Geen, false, ""},
        {"UPDVER2.0.0", K::A, A::Geen, true, "2.0.0"},
        {"UPDOPHINFx|y", K::A, A::Geen, true, "x|y"},
        {"UPDOPHREQ", K::D, A::Vallen, false, ""},
        {"UPDCONJA", K::A, A::Geen, true, "JA"},
        {"UPDXYZ", K::D, A::Vallen, false, ""},
        {"HLPOPS", K::A, A::Geen, false, ""},
        {"HLPSNC1-1-2000|3", K::A, A::Geen, true, "1-1-2000|3"},
        {"HLPSCR", K::D, A::Vallen, false, ""},
        {"BCKFOUT", K::A, A::Geen, true, "FOUT"},
        {"LDNKLSSNC21", K::A, A::Geen, true, "21"},
        {"LDNKLSDA3;rec", K::A, A::Geen, true, "3;rec"},
        {"LDNLRNDA12|x", K::A, A::Geen, true, "12|x"},
        {"LDNCAKcats", K::A, A::Geen, true, "cats"},
        {"LDNAPPPOS1|2", K::A, A::Geen, true, "POS1|2"},
        {"LDNAPKSNC200", K::A, A::Geen, true, "200"},
        {"LDNAPLDAT4rec", K::A, A::Geen, true, "4rec"},
        {"LDNAPKXYZ", K::A, A::Geen, true, "XYZ"},
        {"LDNPICGRP1-1-2000", K::A, A::Geen, true, "1-1-2000"},
        {"LDNPICSTD", K::A, A::Geen, false, ""},
        {"LDNPICPAK", K::C, A::Geen, false, ""},
        {"LDNPICXXX", K::D, A::Vallen, false, ""},
        {"LDNWCHa;|;b", K::A, A::Geen, true, "a;|;b"},
        {"LDNTAA1043", K::A, A::Geen, true, "1043"},
        {"LDNIVWINF7", K::A, A::Geen, true, "7"},
        {"LDNIVWPA1woord", K::A, A::Geen, true, "PA1woord"},
        {"LDNIVWX", K::D, A::Vallen, false, ""},
        {"LDNTHE1|2", K::A, A::Geen, true, "1|2"},
        {"LDNTHV", K::A, A::Geen, false, ""},
        {"LDNTHX", K::A, A::Geen, false, ""},
        {"LDNGRPa|b", K::A, A::Geen, true, "a|b"},
        {"LDNACCx", K::A, A::Geen, true, "x"},
        {"LDNXYZ", K::D, A::Vallen, false, ""},
        {"OPSKLZ5", K::B, A::Geen, true, "5"},
        {"OPSKLS", K::B, A::Geen, true, ""},
        {"OPSAPP17", K::B, A::Geen, true, "17"},
        {"OPSWAG", K::B, A::Geen, false, ""},
        {"OPSSIN", K::B, A::Geen, false, ""},
        {"OPSAP2OK", K::A, A::Geen, true, "OK"},
        {"OPSXXX", K::D, A::Vallen, false, ""},
        {"VWNKLSFOUT", K::B, A::Geen, true, "FOUT"},
        {"XYZ", K::D, A::Vallen, false, ""},
        {"", K::D, A::Vallen, false, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.bericht);
        const auto s = Woordenlijst::sorteer(QString::fromLatin1(c.bericht));
        EXPECT_EQ(s.klasse, c.klasse);
        EXPECT_EQ(s.actie, c.actie);
        EXPECT_EQ(s.metPayload, c.metPayload);
        EXPECT_EQ(s.payload, QString::fromLatin1(c.payload));
    }
}

TEST(LinkTest, TheFirstMessagesOfAConnectionGoInOrder) {
    ScriptedPeer peer;
    peer.op(QStringLiteral("TST"), QStringLiteral("TST"))
        .op(QStringLiteral("INFVER") + ModMain::ProgrammaVersie(), QStringLiteral("INFVER"))
        .op(QStringLiteral("INFDMN"),
            QStringLiteral("INFDMNschool.local|3501|3502|3503|3504|ja|NEE"))
        .op(QStringLiteral("INFCOMLOKAAL-12"), QStringLiteral("INFCOM"));
    Verbinding v(peer.poort());
    ASSERT_TRUE(v.verbind());
    v.w.p.modMainVerbinding->IdentificeerClient();
    EXPECT_TRUE(peer.klaar());
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join(QLatin1Char('\n')).toStdString();
    FrmMainLink& f = *v.w.p.frmMain;
    EXPECT_EQ(f.Domein, QStringLiteral("school.local"));
    EXPECT_EQ(f.ReceiverPortBinary, 3501);
    EXPECT_EQ(f.ReceiverPortInfo, 3502);
    EXPECT_EQ(f.SenderPortBinary, 3503);
    EXPECT_EQ(f.SenderPortInfo, 3504);
    EXPECT_TRUE(f.ServerVlagA); // "ja" is upper-cased before the test
    EXPECT_FALSE(f.ServerVlagB);
    EXPECT_FALSE(f.Offline);
}

TEST(LinkTest, AServerThatDoesNotAnswerTheTestWithinFiveSecondsCountsAsAbsent) {
    ScriptedPeer peer;
    peer.op(QStringLiteral("TST"), QString(), Levering::Stil);
    Verbinding v(peer.poort());
    const qint64 voor = v.w.platform.fakeClock().msecsSinceStart();
    EXPECT_FALSE(v.verbind());
    EXPECT_GE(v.w.platform.fakeClock().msecsSinceStart() - voor, 5000);
    EXPECT_FALSE(v.w.p.frmMain->isConnected());
    EXPECT_EQ(v.w.p.frmMain->lblLaden, v.w.p.modTaal.LaadTekst(1611).toUpper());
    EXPECT_FALSE(v.w.p.frmMain->Offline); // no cache to start from
}

TEST(LinkTest, OneReadIsOneMessageSoSplitRepliesAreTwoAndMergedRepliesOne) {
    ScriptedPeer peer;
    peer.op(QStringLiteral("TST"), QStringLiteral("TST"))
        .op(QStringLiteral("LDNOVR"), QStringLiteral("LDNOVRabcdefghij"), Levering::Gesplitst)
        .op(QStringLiteral("LDNOVR"), QStringLiteral("LDNOVRa;<>;b"), Levering::Samengevoegd)
        .zelf(QStringLiteral("PIN"));
    Verbinding v(peer.poort());
    ASSERT_TRUE(v.verbind());
    // Split: the first half is the whole reply; the second half matches nothing.
    EXPECT_EQ(v.vraag(QStringLiteral("LDNOVR")), QStringLiteral("ab"));
    // Merged: the keep-alive becomes part of the payload and is not answered.
    EXPECT_EQ(v.vraag(QStringLiteral("LDNOVR")), QStringLiteral("a;<>;bPIN"));
    v.pompVoor(200);
    EXPECT_FALSE(peer.ontvangen.contains(QStringLiteral("PING")));
    EXPECT_TRUE(peer.klaar());
}

TEST(LinkTest, AKeepAliveInTheMiddleOfALoadIsAnsweredAndUnknownCommandsAreDropped) {
    ScriptedPeer peer;
    peer.op(QStringLiteral("TST"), QStringLiteral("TST"))
        .op(QStringLiteral("LDNKLSSNC"), QString(), Levering::Stil)
        .zelf(QStringLiteral("PIN"))
        .zelf(QStringLiteral("XYZonbekend"))
        .zelf(QStringLiteral("LDNKLSSNC8"));
    Verbinding v(peer.poort());
    ASSERT_TRUE(v.verbind());
    v.w.p.modMain.Antwoord = QStringLiteral("oud");
    EXPECT_EQ(v.vraag(QStringLiteral("LDNKLSSNC")), QStringLiteral("8"));
    EXPECT_EQ(peer.ontvangen, (QStringList{QStringLiteral("TST"), QStringLiteral("LDNKLSSNC"),
                                           QStringLiteral("PING")}));
    EXPECT_TRUE(peer.fouten.isEmpty());
}

TEST(LinkTest, ServerFactsWithSixFieldsEndInAFaultReportAndTheWaitStillEnds) {
    ScriptedPeer peer;
    peer.op(QStringLiteral("TST"), QStringLiteral("TST"))
        .op(QStringLiteral("INFVER*"), QStringLiteral("INFVER"))
        .op(QStringLiteral("INFDMN"), QStringLiteral("INFDMNschool|1|2|3|4|JA"))
        .op(QStringLiteral("INFCOM*"), QStringLiteral("INFCOM"));
    Verbinding v(peer.poort());
    v.w.dialogen.opModaal = [](Form& f) {
        static_cast<FrmFoutrapportage&>(f).cmdNietVersturen_Click();
    };
    ASSERT_TRUE(v.verbind());
    v.w.p.modMainVerbinding->IdentificeerClient();
    EXPECT_TRUE(peer.klaar());
    EXPECT_EQ(foutrapport(v.w, "Procedure"), QStringLiteral("frmMain.WS_DataArrival"));
    EXPECT_TRUE(foutrapport(v.w, "Omschrijving").contains(QStringLiteral("6 of 7")));
}

TEST(LinkTest, ServerFactsWithAPortOutsideTheSocketsRangeAreRefusedWhole) {
    struct Case {
        const char* bericht;
        bool genomen;
    };
    const Case cases[] = {
        {"INFDMNschool|0|65535|3503|3504|JA|NEE", true},
        {"INFDMNschool|65536|3502|3503|3504|JA|NEE", false},
        {"INFDMNschool|3501|3502|3503|4294971000|JA|NEE", false}, // 3704 after a cut to 16 bits
        {"INFDMNschool|3501|-1|3503|3504|JA|NEE", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.bericht);
        Werkplek w;
        w.p.maak(w.p.frmMain, w.p);
        FrmMainLink& f = *w.p.frmMain;
        f.Domein = QStringLiteral("oud");
        f.WS_DataArrival(QByteArray(c.bericht));
        EXPECT_TRUE(f.BevestigdBericht);
        EXPECT_EQ(f.Domein, c.genomen ? QStringLiteral("school") : QStringLiteral("oud"));
        EXPECT_EQ(f.SenderPortInfo, c.genomen ? 3504 : 0);
        EXPECT_EQ(w.dialogen.getoond.isEmpty(), c.genomen);
        if (!c.genomen) {
            EXPECT_EQ(w.p.frmFoutrapportage.Procedure, QStringLiteral("frmMain.WS_DataArrival"));
        }
    }
}

TEST(LinkTest, LossOfTheLinkInNetworkModeGoesOfflineAndEndsTheWait) {
    ScriptedPeer peer;
    peer.op(QStringLiteral("TST"), QStringLiteral("TST"))
        .op(QStringLiteral("LDNKLSSNC"), QString(), Levering::Sluiten);
    Verbinding v(peer.poort());
    ASSERT_TRUE(v.verbind());
    v.w.p.modMain.AntwoordOntvangen = false;
    v.w.p.frmMain->WS_Versturen(QStringLiteral("LDNKLSSNC"), false);
    EXPECT_EQ(v.w.p.wacht.Tot([&] { return v.w.p.modMain.AntwoordOntvangen; }),
              Wacht::Uitkomst::VerbindingVerloren);
    EXPECT_TRUE(v.w.p.frmMain->Offline);
    EXPECT_TRUE(v.w.dialogen.gesteld.isEmpty());
    EXPECT_FALSE(v.w.p.beeindigd);
    // Offline, a send is lost without a word.
    v.w.p.frmMain->WS_Versturen(QStringLiteral("LDNWCH"), false);
    EXPECT_TRUE(v.w.dialogen.gesteld.isEmpty());
}

TEST(LinkTest, LossOfTheLinkInStandaloneModeRestartsThroughTheLauncher) {
    ScriptedPeer peer;
    peer.op(QStringLiteral("TST"), QStringLiteral("TST"));
    Verbinding v(peer.poort());
    QLocalServer launcher;
    ASSERT_TRUE(launcher.listen(ModMainVerbinding::launcherNaam(v.w.map())));
    QByteArray woord;
    QObject::connect(&launcher, &QLocalServer::newConnection, [&] {
        QLocalSocket* s = launcher.nextPendingConnection();
        QObject::connect(s, &QLocalSocket::readyRead, [&woord, s] { woord += s->readAll(); });
    });
    ASSERT_TRUE(v.verbind()); // Network settings for the location; the mode is what counts
    v.w.p.modMain.ModusNetwerk = false;
    v.w.p.modMain.ModusStandalone = true;
    peer.sluit();
    v.pompTot([&] { return v.w.p.beeindigd && woord == "resolutie"; });
    EXPECT_TRUE(v.w.p.beeindigd);
    EXPECT_EQ(woord, QByteArray("resolutie"));
    ASSERT_EQ(v.w.dialogen.gesteld.size(), 1);
    EXPECT_EQ(v.w.dialogen.gesteld[0].tekst, v.w.p.modTaal.LaadTekst(1619));
}

TEST(LinkTest, LossOfTheLinkOnAManagementWorkstationReturnsToTheStartScreen) {
    ScriptedPeer peer;
    peer.op(QStringLiteral("TST"), QStringLiteral("TST"));
    Verbinding v(peer.poort());
    ASSERT_TRUE(v.verbind());
    v.w.p.modMain.ModusNetwerk = false;
    v.w.p.modMain.ModusBeheer = true;
    OpnameStartscherm startscherm;
    v.w.p.startScreenEvents = &startscherm;
    peer.sluit();
    v.pompTot([&] { return !startscherm.log.isEmpty(); });
    EXPECT_EQ(startscherm.log, QStringList{QStringLiteral("hoofdvenster")});
    EXPECT_FALSE(v.w.p.beeindigd);
    EXPECT_FALSE(v.w.p.frmMain->Offline);
}

TEST(LinkTest, AnExpectedLossIsSilent) {
    ScriptedPeer peer;
    peer.op(QStringLiteral("TST"), QStringLiteral("TST"));
    Verbinding v(peer.poort());
    ASSERT_TRUE(v.verbind());
    v.w.p.modMain.ModusNetwerk = false;
    v.w.p.modMain.ModusStandalone = true;
    v.w.p.frmMain->VerliesVerwacht = true;
    peer.sluit();
    v.pompTot([&] { return !v.w.p.frmMain->isConnected(); });
    v.pompVoor(200);
    EXPECT_FALSE(v.w.p.beeindigd);
    EXPECT_TRUE(v.w.dialogen.gesteld.isEmpty());
}

TEST(LinkTest, WithoutAServerTheCacheIsUsedUnlessShiftWasHeld) {
    quint16 dichtePoort;
    {
        QTcpServer tijdelijk;
        tijdelijk.listen(QHostAddress::LocalHost, 0);
        dichtePoort = tijdelijk.serverPort();
    }
    {
        Verbinding v(dichtePoort);
        EXPECT_FALSE(v.verbind()); // no cache yet
        EXPECT_FALSE(v.w.p.frmMain->Offline);
    }
    {
        Verbinding v(dichtePoort);
        v.w.schrijf(QStringLiteral("Data/data.tijdelijk"), "versleuteld");
        EXPECT_TRUE(v.verbind());
        EXPECT_TRUE(v.w.p.frmMain->Offline);
    }
    {
        Verbinding v(dichtePoort);
        v.w.schrijf(QStringLiteral("Data/data.tijdelijk"), "versleuteld");
        v.w.p.frmMain->ShiftIngedrukt = true;
        const qint64 voor = v.w.platform.fakeClock().msecsSinceStart();
        EXPECT_FALSE(v.verbind());
        EXPECT_LT(v.w.platform.fakeClock().msecsSinceStart() - voor, 1000); // ends at once
        EXPECT_FALSE(v.w.p.frmMain->Offline);
        EXPECT_FALSE(v.w.p.frmMain->GeenCache);
        EXPECT_EQ(v.w.p.frmMain->lblLaden, v.w.p.modTaal.LaadTekst(1611).toUpper());
    }
}

TEST(LinkTest, StandaloneTriesThreeTimesWhileTheServerIsLoading) {
    quint16 dichtePoort;
    {
        QTcpServer tijdelijk;
        tijdelijk.listen(QHostAddress::LocalHost, 0);
        dichtePoort = tijdelijk.serverPort();
    }
    Verbinding v(dichtePoort);
    v.w.platform.fakeClock().setStepPerRead(250);
    v.w.p.modMain.ModusNetwerk = false;
    v.w.p.modMain.ModusStandalone = true;
    v.w.platform.registry().write(
        RegistryRoot::LocalMachine, QStringLiteral("SOFTWARE\\Tafelkrater"),
        QStringLiteral("Status server"), RegistryValue::string(QStringLiteral("0")));
    OpnameStartscherm startscherm;
    v.w.p.startScreenEvents = &startscherm;
    v.w.p.frmMain->ServerPoort = dichtePoort;
    v.w.p.frmMain->ServerHost = QStringLiteral("127.0.0.1");
    const qint64 voor = v.w.platform.fakeClock().msecsSinceStart();
    EXPECT_FALSE(v.w.p.frmMain->ServerVerbinden(true));
    EXPECT_GE(v.w.platform.fakeClock().msecsSinceStart() - voor, 3 * 9000);
    EXPECT_EQ(startscherm.log.count(QStringLiteral("taakbalk")), 1);
    EXPECT_EQ(v.w.p.frmMain->lblLaden, v.w.p.modTaal.LaadTekst(2930).toUpper());
}

TEST(ServerlocatieTest, TheLocationComesFromTheSettingsOrTheLogonServer) {
    struct Case {
        bool standalone;
        const char* instelling;
        const char* logonserver;
        bool gevonden;
        const char* host;
        long poort;
    };
    const Case cases[] = {
        {false, "pc1:4000", "\\\\DC", true, "pc1", 4000},
        {false, "pc1:abc", "", true, "pc1", 34487},
        {false, "pc1", "", true, "pc1", 34487},
        {false, "", "\\\\DC01", true, "DC01", 34487},
        {false, "", "", false, "", 34487},
        {false, "   ", "", false, "", 34487},
        {true, "pc1:4000", "", true, "localhost", 4000}, // on this machine, the port is kept
        {true, "", "", true, "localhost", 34487},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.instelling);
        Werkplek w;
        w.p.maak(w.p.frmMain, w.p);
        w.p.maak(w.p.modMainVerbinding, w.p);
        w.p.modMain.ModusStandalone = c.standalone;
        w.platform.fakeEnvironment().setVariable(QStringLiteral("LOGONSERVER"),
                                                 QString::fromLatin1(c.logonserver));
        w.schrijf(QStringLiteral("Data/Instellingen.ini"),
                  QByteArray("[Instellingen]\nServerlocatie=") + c.instelling + "\n");
        EXPECT_EQ(w.p.modMainVerbinding->BepaalServerlocatie(), c.gevonden);
        if (c.gevonden) {
            EXPECT_EQ(w.p.frmMain->ServerHost, QString::fromLatin1(c.host));
            EXPECT_EQ(w.p.frmMain->ServerPoort, c.poort);
        }
    }
}

TEST(LocatieTest, TheLocationTextOfReportsFollowsTheFirstField) {
    Werkplek w;
    w.p.maak(w.p.frmMain, w.p);
    w.p.maak(w.p.modMainVerbinding, w.p);
    struct Namen : NameLookup {
        QString naamVan(const QString& soort, const QString& id) const override {
            return soort == u"GROEP" ? QStringLiteral("Groep ") + id
                                     : QStringLiteral("Jansen, Piet");
        }
    } namen;
    w.p.modMainVerbinding->namen = &namen;
    auto tekst = [&](int id) { return w.p.modTaal.LaadTekst(id); };
    struct Case {
        const char* plaats;
        QString verwacht;
    };
    const Case cases[] = {
        {"FOUT|juf", tekst(2913).replace(QStringLiteral("%account%"), QStringLiteral("juf"))},
        {"global", tekst(2914)},
        {"ONDERHOUD", tekst(2915)},
        {"GROEP|3", tekst(2920)
                        .replace(QStringLiteral("%id%"), QStringLiteral("3"))
                        .replace(QStringLiteral("%naam%"), QStringLiteral("Groep 3"))},
        {"LERAAR|0", tekst(2919)},
        {"LERAAR|7|onderhoud",
         tekst(2918)
             .replace(QStringLiteral("%sectie%"), tekst(2917))
             .replace(QStringLiteral("%id%"), QStringLiteral("7"))
             .replace(QStringLiteral("%naam%"), QStringLiteral("Jansen, Piet"))},
        {"Onderhoudsmodule", QStringLiteral("Onderhoudsmodule")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.plaats);
        w.p.modMainVerbinding->GeefLocatieDoor(QString::fromLatin1(c.plaats));
        EXPECT_EQ(w.p.modMain.Locatie, c.verwacht);
    }
}

TEST(StartServerTest, StartsTheProgramTheStoreNamesOrSaysThereIsNone) {
    Werkplek w;
    w.p.maak(w.p.frmMain, w.p);
    w.p.maak(w.p.modMainVerbinding, w.p);
    struct Stappen : UnbuiltStartSteps {
        using UnbuiltStartSteps::UnbuiltStartSteps;
        void TafelkraterDeactiveren() override { ++gedeactiveerd; }
        int gedeactiveerd = 0;
    } stappen(w.p);
    w.p.opstartStappen = &stappen;
    int& gedeactiveerd = stappen.gedeactiveerd;
    w.p.modMainVerbinding->StartServer(false);
    EXPECT_EQ(gedeactiveerd, 1);
    ASSERT_EQ(w.dialogen.gesteld.size(), 1);
    EXPECT_EQ(w.dialogen.gesteld[0].tekst, w.p.modTaal.LaadTekst(2925));
    w.p.modMainVerbinding->StartServer(true); // the firewall test does not deactivate
    EXPECT_EQ(gedeactiveerd, 1);

    w.schrijf(QStringLiteral("tafelkrater-server"), "#!/bin/sh\n");
    w.platform.registry().write(RegistryRoot::LocalMachine, QStringLiteral("SOFTWARE\\Tafelkrater"),
                                QStringLiteral("Locatie server"),
                                RegistryValue::string(QStringLiteral("\\tafelkrater-server")));
    w.p.modMainVerbinding->StartServer(true);
    ASSERT_EQ(w.platform.fakeProcesses().started.size(), 1);
    EXPECT_EQ(w.platform.fakeProcesses().started[0], w.pad(QStringLiteral("tafelkrater-server")) +
                                                         QStringLiteral(" FIREWALL (in ") +
                                                         w.map() + QStringLiteral(")"));
}

TEST(LinkTest, AnyBytesFromTheServerAreTakenWithoutACrash) {
    ScriptedPeer peer;
    peer.op(QStringLiteral("TST"), QStringLiteral("TST"));
    Verbinding v(peer.poort());
    ASSERT_TRUE(v.verbind());
    QByteArray rommel;
    for (int i = 0; i < 256; ++i)
        rommel.append(char(i));
    const QList<QByteArray> berichten = {
        rommel,
        QByteArray(1 << 20, '\xff'),
        QByteArray("INFDMN"),
        QByteArray("INFDMN||||||"),
        QByteArray("LDN"),
        QByteArray("\0\0\0", 3),
        QByteArray("FIR"),
        QByteArray("OPS\x80\x81"),
    };
    for (const QByteArray& b : berichten) {
        peer.stuur(QString::fromLatin1(b));
        v.pompVoor(20);
        // A long message is taken once its pieces have stopped coming.
        v.pompTot([&] { return !v.w.p.frmMain->Berichten.waiting(); });
    }
    EXPECT_TRUE(v.w.p.frmMain->isConnected());
    // The link still works after all of it.
    peer.op(QStringLiteral("LDNWCH"), QStringLiteral("LDNWCHa;|;b"));
    EXPECT_EQ(v.vraag(QStringLiteral("LDNWCH")), QStringLiteral("a;|;b"));
}

TEST(LinkTest, AReplyThatArrivesWhileAFaultReportIsOnScreenIsStillTaken) {
    ScriptedPeer peer;
    peer.op(QStringLiteral("TST"), QStringLiteral("TST"))
        .op(QStringLiteral("INFDMN"), QStringLiteral("INFDMNschool|1")) // too few fields
        .zelf(QStringLiteral("LDNTAA1043"));
    Verbinding v(peer.poort());
    // The report window has its own event loop, open while the next message comes in.
    v.w.dialogen.opModaal = [&](Form& f) {
        v.pompVoor(150);
        static_cast<FrmFoutrapportage&>(f).cmdNietVersturen_Click();
    };
    ASSERT_TRUE(v.verbind());
    v.w.p.modMain.AntwoordOntvangen = false;
    v.w.p.frmMain->WS_Versturen(QStringLiteral("INFDMN"), true);
    v.pompTot([&] { return v.w.p.modMain.AntwoordOntvangen; });
    EXPECT_TRUE(peer.klaar());
    EXPECT_EQ(v.w.dialogen.getoond, QStringList{QStringLiteral("frmFoutrapportage")});
    EXPECT_TRUE(v.w.p.modMain.AntwoordOntvangen);
    EXPECT_EQ(v.w.p.modMain.Antwoord, QStringLiteral("1043"));
}
