#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "tests/support/OpnameSchermen.h"
#include "tests/support/ScriptedPeer.h"
#include "tests/support/WaitUntil.h"
#include "tests/support/Werkplek.h"

#include <QCoreApplication>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTcpSocket>
#include <QTimer>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::OpnameStartscherm;
using tk::test::ScriptedPeer;
using tk::test::Werkplek;
using Levering = ScriptedPeer::Levering;

TEST(LinkTest, WhatAMessageFromTheServerFillsIsDecidedByItsFirstCharacters) {
    // "A": the reply slot and its flag (the old text stays when only the flag is set), "B": the
    // save slot, "C": the acknowledgement; an empty outcome drops the message. A row for each
    // kind of outcome and for the words no server reply shows: the class and payload of every
    // reply the server gives are the vocabulary test's, against the real server.
    Werkplek w;
    FrmMainLink& f = w.verbinding();
    OpnameStartscherm startscherm;
    w.p.startScreenEvents = &startscherm;
    ModMain& m = w.p.modMain;
    auto uitkomst = [&](const char* bericht) {
        m.Antwoord = m.AntwoordOpslaan = f.Domein = "oud";
        m.AntwoordOntvangen = m.AntwoordOpslaanOntvangen = f.BevestigdBericht = false;
        startscherm.log.clear();
        f.WS_DataArrival(QByteArray(bericht));
        QCoreApplication::processEvents();
        QStringList uit = startscherm.log;
        if (m.AntwoordOntvangen)
            uit << "A " + m.Antwoord;
        if (m.AntwoordOpslaanOntvangen)
            uit << "B " + m.AntwoordOpslaan;
        if (f.BevestigdBericht)
            uit << "C";
        if (f.Domein != u"oud")
            uit << "domein " + f.Domein;
        return uit.join(", ");
    };
    const std::pair<const char*, const char*> gevallen[] = {
        {"TSTextra", "C"},
        {"INFDMNd|1|2|3|4|JA|NEE", "C, domein d"},
        {"INFAFM", ""},
        {"INFONDJA", "A JA"},
        {"INFONA", "onderhoud gevraagd"},
        {"INFONC", "onderhoud ingetrokken"},
        {"FIRschool", "A oud, domein school"},
        {"UPDOPHREQ", ""},
        {"UPDXYZ", ""},
        {"HLPOPS", "A oud"},
        {"HLPSCR", ""},
        {"LDNPICSTD", "A oud"},
        {"LDNPICXXX", ""},
        {"LDNIVWX", ""},
        {"LDNXYZ", ""},
        {"OPSKLZ5", "B 5"},
        {"OPSWAG", "B oud"},
        {"OPSXXX", ""},
        {"pin", ""},
        {"XYZ", ""},
        {"", ""},
    };
    for (const auto& [bericht, verwacht] : gevallen)
        EXPECT_EQ(uitkomst(bericht), QString::fromLatin1(verwacht)) << bericht;
    EXPECT_TRUE(w.rapporten.isEmpty());
}

TEST(LinkTest, TheFirstMessagesOfAConnectionGoInOrder) {
    ScriptedPeer peer;
    peer.op("TST", "TST")
        .op("INFVER" + ModMain::ProgrammaVersie(), "INFVER")
        .op("INFDMN", "INFDMNschool.local|3501|3502|3503|3504|ja|NEE")
        .op("INFCOMLOKAAL-12", "INFCOM");
    Werkplek w;
    w.verbinding(peer.poort());
    ASSERT_TRUE(w.verbind());
    w.p.modMainVerbinding->IdentificeerClient();
    EXPECT_TRUE(peer.klaar());
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join(QLatin1Char('\n')).toStdString();
    FrmMainLink& f = *w.p.frmMain;
    EXPECT_EQ(f.Domein, "school.local");
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
    peer.op("TST", QString(), Levering::Stil);
    Werkplek w;
    w.verbinding(peer.poort());
    const qint64 voor = w.platform.fakeClock().msecsSinceStart();
    EXPECT_FALSE(w.verbind());
    EXPECT_GE(w.platform.fakeClock().msecsSinceStart() - voor, 5000);
    EXPECT_FALSE(w.p.frmMain->isConnected());
    EXPECT_EQ(w.p.frmMain->lblLaden, w.p.modTaal.LaadTekst(1611).toUpper());
    EXPECT_FALSE(w.p.frmMain->Offline); // no cache to start from
}

TEST(LinkTest, OneReadIsOneMessageSoSplitRepliesAreTwoAndMergedRepliesOne) {
    ScriptedPeer peer;
    peer.op("TST", "TST")
        .op("LDNOVR", "LDNOVRabcdefghij", Levering::Gesplitst)
        .op("LDNOVR", "LDNOVRa;<>;b", Levering::Samengevoegd)
        .zelf("PIN");
    Werkplek w;
    w.verbinding(peer.poort());
    ASSERT_TRUE(w.verbind());
    // Split: the first half is the whole reply; the second half matches nothing.
    EXPECT_EQ(w.vraag("LDNOVR"), "ab");
    // Merged: the keep-alive becomes part of the payload and is not answered.
    EXPECT_EQ(w.vraag("LDNOVR"), "a;<>;bPIN");
    tk::test::pompVoor(200);
    EXPECT_FALSE(peer.ontvangen.contains("PING"));
    EXPECT_TRUE(peer.klaar());
}

TEST(LinkTest, AKeepAliveInTheMiddleOfALoadIsAnsweredAndUnknownCommandsAreDropped) {
    ScriptedPeer peer;
    peer.op("TST", "TST")
        .op("LDNKLSSNC", QString(), Levering::Stil)
        .zelf("PIN")
        .zelf("XYZonbekend")
        .zelf("LDNKLSSNC8");
    Werkplek w;
    w.verbinding(peer.poort());
    ASSERT_TRUE(w.verbind());
    w.p.modMain.Antwoord = "oud";
    EXPECT_EQ(w.vraag("LDNKLSSNC"), "8");
    EXPECT_EQ(peer.ontvangen, (QStringList{"TST", "LDNKLSSNC", "PING"}));
    EXPECT_TRUE(peer.fouten.isEmpty());
}

TEST(LinkTest, ServerFactsWithTooFewFieldsOrAPortOutsideTheSocketsRangeAreRefusedWhole) {
    struct Case {
        const char* bericht;
        bool genomen;
        const char* omschrijving = "";
    };
    const Case cases[] = {
        {"INFDMNschool|0|65535|3503|3504|JA|NEE", true},
        {"INFDMNschool|1|2|3|4|JA", false, "6 of 7"},
        {"INFDMNschool|65536|3502|3503|3504|JA|NEE", false},
        {"INFDMNschool|3501|3502|3503|4294971000|JA|NEE", false}, // 3704 after a cut to 16 bits
        {"INFDMNschool|3501|-1|3503|3504|JA|NEE", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.bericht);
        Werkplek w;
        w.p.maak(w.p.frmMain, w.p);
        FrmMainLink& f = *w.p.frmMain;
        f.Domein = "oud";
        f.WS_DataArrival(QByteArray(c.bericht));
        EXPECT_TRUE(f.BevestigdBericht); // the wait for it ends either way
        EXPECT_EQ(f.Domein, c.genomen ? "school" : "oud");
        EXPECT_EQ(f.SenderPortInfo, c.genomen ? 3504 : 0);
        EXPECT_EQ(w.dialogen.getoond.isEmpty(), c.genomen);
        if (!c.genomen) {
            EXPECT_EQ(w.p.frmFoutrapportage.Procedure, "frmMain.WS_DataArrival");
            EXPECT_TRUE(
                w.p.frmFoutrapportage.Omschrijving.contains(QString::fromLatin1(c.omschrijving)));
        }
    }
}

TEST(LinkTest, LossOfTheLinkInNetworkModeGoesOfflineAndEndsTheWait) {
    ScriptedPeer peer;
    peer.op("TST", "TST").op("LDNKLSSNC", QString(), Levering::Sluiten);
    Werkplek w;
    w.verbinding(peer.poort());
    ASSERT_TRUE(w.verbind());
    w.p.modMain.AntwoordOntvangen = false;
    w.p.frmMain->WS_Versturen("LDNKLSSNC", false);
    EXPECT_EQ(w.p.wacht.Tot([&] { return w.p.modMain.AntwoordOntvangen; }),
              Wacht::Uitkomst::VerbindingVerloren);
    EXPECT_TRUE(w.p.frmMain->Offline);
    EXPECT_TRUE(w.dialogen.gesteld.isEmpty());
    EXPECT_FALSE(w.p.beeindigd);
    // Offline, a send is lost without a word.
    w.p.frmMain->WS_Versturen("LDNWCH", false);
    EXPECT_TRUE(w.dialogen.gesteld.isEmpty());
}

TEST(LinkTest, ALostLinkRestartsAStandaloneClientAndTakesAManagerBackUnlessItWasExpected) {
    struct Case {
        const char* wat;
        bool standalone, verwacht;
        const char* woord;  // said to the launcher
        const char* scherm; // asked of the start screen
    };
    const Case cases[] = {
        {"Standalone", true, false, "resolutie", ""},
        {"management", false, false, "", "hoofdvenster"},
        {"expected", true, true, "", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.wat);
        ScriptedPeer peer;
        peer.op("TST", "TST");
        Werkplek w;
        w.verbinding(peer.poort());
        QLocalServer launcher;
        ASSERT_TRUE(launcher.listen(ModMainVerbinding::launcherNaam(w.map())));
        QByteArray woord;
        QObject::connect(&launcher, &QLocalServer::newConnection, [&] {
            QLocalSocket* s = launcher.nextPendingConnection();
            QObject::connect(s, &QLocalSocket::readyRead, [&woord, s] { woord += s->readAll(); });
        });
        ASSERT_TRUE(w.verbind()); // Network settings for the location; the mode is what counts
        w.p.modMain.ModusNetwerk = false;
        w.p.modMain.ModusStandalone = c.standalone;
        w.p.modMain.ModusBeheer = !c.standalone;
        w.p.frmMain->VerliesVerwacht = c.verwacht;
        OpnameStartscherm startscherm;
        w.p.startScreenEvents = &startscherm;
        peer.sluit();
        tk::test::waitUntil([&] {
            return !w.p.frmMain->isConnected() && woord == c.woord &&
                   startscherm.log.join(u',') == QLatin1String(c.scherm);
        });
        tk::test::pompVoor(200); // and nothing more comes
        EXPECT_EQ(woord, QByteArray(c.woord));
        EXPECT_EQ(startscherm.log.join(u','), QLatin1String(c.scherm));
        EXPECT_EQ(w.p.beeindigd, *c.woord != 0);
        EXPECT_FALSE(w.p.frmMain->Offline);
        const QStringList vragen =
            *c.woord ? QStringList{w.p.modTaal.LaadTekst(1619)} : QStringList();
        EXPECT_EQ(w.dialogen.gesteld.size(), vragen.size());
        if (*c.woord && !w.dialogen.gesteld.isEmpty()) {
            EXPECT_EQ(w.dialogen.gesteld[0].tekst, vragen[0]);
        }
    }
}

TEST(LinkTest, WithoutAServerTheCacheIsUsedUnlessShiftWasHeld) {
    // A port held without listening: a connection to it is refused, and nothing else takes it.
    QTcpSocket dicht;
    ASSERT_TRUE(dicht.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress));
    struct Case {
        bool cache, shift, verder;
    };
    for (const Case c :
         {Case{false, false, false}, Case{true, false, true}, Case{true, true, false}}) {
        SCOPED_TRACE(testing::Message() << "cache " << c.cache << " shift " << c.shift);
        Werkplek w;
        w.verbinding(dicht.localPort());
        if (c.cache)
            w.schrijf("Data/data.tijdelijk", "versleuteld");
        w.p.frmMain->ShiftIngedrukt = c.shift;
        const qint64 voor = w.platform.fakeClock().msecsSinceStart();
        EXPECT_EQ(w.verbind(), c.verder);
        EXPECT_EQ(w.p.frmMain->Offline, c.verder);
        EXPECT_FALSE(w.p.frmMain->GeenCache);
        if (!c.verder) {
            EXPECT_EQ(w.p.frmMain->lblLaden, w.p.modTaal.LaadTekst(1611).toUpper());
        }
        if (c.shift) {
            EXPECT_LT(w.platform.fakeClock().msecsSinceStart() - voor, 1000); // ends at once
        }
    }
}

TEST(LinkTest, StandaloneTriesThreeTimesWhileTheServerIsLoading) {
    QTcpSocket dicht;
    ASSERT_TRUE(dicht.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress));
    const quint16 dichtePoort = dicht.localPort();
    Werkplek w;
    w.verbinding(dichtePoort);
    w.platform.fakeClock().setStepPerRead(250);
    w.p.modMain.ModusNetwerk = false;
    w.p.modMain.ModusStandalone = true;
    w.platform.registry().write(RegistryRoot::LocalMachine, "SOFTWARE\\Tafelkrater",
                                "Status server", RegistryValue::string("0"));
    OpnameStartscherm startscherm;
    w.p.startScreenEvents = &startscherm;
    w.p.frmMain->ServerPoort = dichtePoort;
    w.p.frmMain->ServerHost = "127.0.0.1";
    const qint64 voor = w.platform.fakeClock().msecsSinceStart();
    EXPECT_FALSE(w.p.frmMain->ServerVerbinden(true));
    EXPECT_GE(w.platform.fakeClock().msecsSinceStart() - voor, 3 * 9000);
    EXPECT_EQ(startscherm.log.count("taakbalk"), 1);
    EXPECT_EQ(w.p.frmMain->lblLaden, w.p.modTaal.LaadTekst(2930).toUpper());
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
        {false, " pc1 : 80 ", "", true, "pc1", 80},
        {false, "pc1:0", "", true, "pc1", 34487}, // not a port: the standard one
        {false, "pc1:70000", "", true, "pc1", 34487},
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
        w.platform.fakeEnvironment().setVariable("LOGONSERVER", QString::fromLatin1(c.logonserver));
        w.schrijf("Data/Instellingen.ini",
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
            return soort == u"GROEP" ? "Groep " + id : "Jansen, Piet";
        }
    } namen;
    w.p.modMainVerbinding->namen = &namen;
    auto tekst = [&](int id) { return w.p.modTaal.LaadTekst(id); };
    struct Case {
        const char* plaats;
        QString verwacht;
    };
    const Case cases[] = {
        {"FOUT|juf", tekst(2913).replace("%account%", "juf")},
        {"global", tekst(2914)},
        {"ONDERHOUD", tekst(2915)},
        {"GROEP|3", tekst(2920).replace("%id%", "3").replace("%naam%", "Groep 3")},
        {"LERAAR|0", tekst(2919)},
        {"LERAAR|7|onderhoud", tekst(2918)
                                   .replace("%sectie%", tekst(2917))
                                   .replace("%id%", "7")
                                   .replace("%naam%", "Jansen, Piet")},
        {"Onderhoudsmodule", "Onderhoudsmodule"},
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

    w.schrijf("tafelkrater-server", "#!/bin/sh\n");
    w.platform.registry().write(RegistryRoot::LocalMachine, "SOFTWARE\\Tafelkrater",
                                "Locatie server", RegistryValue::string("\\tafelkrater-server"));
    w.p.modMainVerbinding->StartServer(true);
    ASSERT_EQ(w.platform.fakeProcesses().started.size(), 1);
    EXPECT_EQ(w.platform.fakeProcesses().started[0],
              w.pad("tafelkrater-server") + " FIREWALL (in " + w.map() + ")");
}

TEST(LinkTest, AnyBytesFromTheServerAreTakenWithoutACrash) {
    ScriptedPeer peer;
    peer.op("TST", "TST");
    Werkplek w;
    w.verbinding(peer.poort());
    ASSERT_TRUE(w.verbind());
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
        tk::test::pompVoor(20);
        // A long message is taken once its pieces have stopped coming.
        tk::test::waitUntil([&] { return !w.p.frmMain->Berichten.waiting(); });
    }
    EXPECT_TRUE(w.p.frmMain->isConnected());
    // The link still works after all of it.
    peer.op("LDNWCH", "LDNWCHa;|;b");
    EXPECT_EQ(w.vraag("LDNWCH"), "a;|;b");
}

TEST(LinkTest, AReplyThatArrivesWhileAFaultReportIsOnScreenIsStillTaken) {
    ScriptedPeer peer;
    peer.op("TST", "TST")
        .op("INFDMN", "INFDMNschool|1") // too few fields
        .zelf("LDNTAA1043");
    Werkplek w;
    w.verbinding(peer.poort());
    // The report window has its own event loop, open while the next message comes in.
    w.dialogen.opModaal = [&](Form& f) {
        tk::test::pompVoor(150);
        static_cast<FrmFoutrapportage&>(f).cmdNietVersturen_Click();
    };
    ASSERT_TRUE(w.verbind());
    w.p.modMain.AntwoordOntvangen = false;
    w.p.frmMain->WS_Versturen("INFDMN", true);
    tk::test::waitUntil([&] { return w.p.modMain.AntwoordOntvangen; });
    EXPECT_TRUE(peer.klaar());
    EXPECT_EQ(w.dialogen.getoond, QStringList{"frmFoutrapportage"});
    EXPECT_TRUE(w.p.modMain.AntwoordOntvangen);
    EXPECT_EQ(w.p.modMain.Antwoord, "1043");
}
