// Every message a client sends, against the real server: the reply is sorted by the client's own
// dispatcher, must land in the row and class the client waits on, and carries what the client
// parses out of it (the demo school's records in the load replies).
#include "RunningServer.h"
#include "WireClient.h"
#include "link/Woordenlijst.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tk::server;
using namespace tk::server::test;
using Klasse = tk::Woordenlijst::Klasse;
using Actie = tk::Woordenlijst::Actie;

namespace {

struct Row {
    const char* message;
    // The class of the reply: 'A' to 'C'; '-' no reply at all; 'F' no reply on the command
    // channel, the transfer of `file` is the answer.
    char reply;
    const char* payload; // the payload the client keeps begins with this; nullptr: flag alone
    const char* file = nullptr; // the name of the file that comes to the client's receiver
};

QString substitute(QString text, const QHash<QString, QString>& vars) {
    for (auto it = vars.begin(); it != vars.end(); ++it)
        text.replace(it.key(), it.value());
    return text;
}

const char* const faultReport = "HLPOPS3-5-2024;<>;9:01:02;<>;PC-07;<>;Jan;<>;Bureaublad;<>;"
                                "Rekenen;<>;frmMain.Laden in lijn 12|Index buiten bereik;<>;Nee;"
                                "<>;3-5-2024 9:01:02;<>;Error report";
const char* const problemCall = "HLPOPSManual;<>;PC-07;<>;Jan;<>;Bureaublad;<>;Rekenen;<>;"
                                "Het programma start niet|twee regels;<>;Ja;<>;3-5-2024 9:05:00";

} // namespace

TEST(VocabularyTest, EveryClientMessageGetsTheReplyItsDispatcherRowExpects) {
    QTemporaryDir updates;
    writeFile(updates.filePath("2.5.0.zip"), QByteArray(3000, 'u'));
    RunningServer s([&](ServerOptions& o) { o.updatesFolder = updates.path(); });
    writeFile(QDir(s.dataFolder()).filePath("Themacatalogus/7/Instellingen.ini"),
              "[Algemeen]\r\nNaam=Zee\r\nOmschrijving=Blauw\r\nVersie=1.2.0\r\n");
    writeFile(QDir(s.dataFolder()).filePath("Themacatalogus/7/achtergrond.bmp"),
              QByteArray(500, 'z'));
    WireClient c(s.port());
    const QByteArray jpeg = QByteArray("\xff\xd8\xff\xe0", 4) + QByteArray(20000, 'j');

    const Row rows[] = {
        {"TST", 'C', nullptr},
        {"FIR", 'A', "TAFELBERG"},
        {"LOCGLOBAL", 'C', nullptr},
        {"INFVER1.0.0", 'C', nullptr},
        {"INFDMN", 'C', "TAFELBERG|{ports}|{uploads}|NEE|NEE"},
        {"INFCOMPC-07", 'C', nullptr},
        {"INFOND", 'A', "NEE"},
        {"INFONA", '-', nullptr},
        {"INFONB", 'C', nullptr},
        {"INFONC", 'C', nullptr},
        {"PING", '-', nullptr},
        {"UPDVER1.0.0", 'A', "2.5.0"},
        {"UPDOPHINF", 'A', "{ports}|2.5.0.zip"},
        {"UPDOPHREQ", 'F', nullptr, "2.5.0.zip"},
        {"UPDCON", 'A', "2.5.0"},
        {faultReport, 'A', nullptr},
        {problemCall, 'A', nullptr},
        {"HLPSNC", 'A', ""},
        {"HLPLDN2", 'A', "{call};<>;Manual;<>;3-5-2024;<>;9:05:00"},
        {"HLPSCR{call}", 'F', nullptr, "{call}.jpg"},
        {"HLPVWN{call}", 'A', "OK"},
        {"ACDCONgroep1", 'A', "JA"},
        {"ACDCONonbekend", 'A', "NEE"},
        {"ACDNIEnieuw|geheim|1|Nieuw", 'A', "OK"},
        {"ACDVWRnieuw", 'A', "OK"},
        {"LDNKLSSNC", 'A', "0|8"},
        {"LDNKLSDA0", 'A', "0|1;<>;Groep 1"},
        {"LDNLRNSNC", 'A', "0|4"},
        {"LDNLRNDA0", 'A', "0|Vries;<>;"},
        {"LDNCAK", 'A', "3;<>;1|Rekenen;<>;2|Taal"},
        {"LDNCAL", 'A', "2;<>;1|Hulpmiddelen"},
        {"LDNCAA", 'A', "2;<>;1|Algemeen"},
        {"LDNAPKSNC", 'A', "5|"},
        {"LDNAPKDAT1", 'A', "1><Klok><1></usr/bin/xclock><Een klok"},
        {"LDNAPLSNC", 'A', ""},
        {"LDNAPLDAT1", 'A', "1><Rekenmachine><1>"},
        {"LDNAPASNC", 'A', ""},
        {"LDNAPADAT1", 'A',
         "1><Kladblok><1></usr/bin/xedit><Een eenvoudig "
         "schrijfblok><standaard|6><><1024x768x32xNEE"},
        {"LDNAPPPOSK1", 'A', "POS"},
        {"LDNPICWIJ", 'A', "1-1-2004 00:00|1-1-2004 00:00|1-1-2004 00:00|1-1-2004 00:00"},
        {"LDNPICGRP", 'A', ""},
        {"LDNPICLRN", 'A', ""},
        {"LDNPICALG", 'A', ""},
        {"LDNPICPAKgroep|1", 'C', nullptr, "pakket.pictogrammen"},
        {"LDNWCH", 'A', "leraar;|;beheer"},
        {"LDNOVR", 'A',
         "https://nl.wikipedia.org;<>;ict@school.example;<>;Basisschool De "
         "Tafelberg;<>;tafelkrater@school.example;<>;1;<>;1043"},
        {"LDNTAA", 'A', "1043"},
        {"LDNFAVGroep1", 'A', "1|Ja|Ja|Nee;<>;https://nl.wikipedia.org|Wikipedia||Ja><"},
        {"LDNITS", 'A', "nl.wikipedia.org|schooltv.nl|"},
        {"LDNMOD", 'A', "JA|NEE"},
        {"LDNPRN", 'A', "Kopieerapparaat|\\\\server\\kopie><Kleurenprinter|"},
        {"LDNIVWINF", 'A', "1"},
        {"LDNIVWPA1", 'A', "PA1casino|gokken|"},
        {"LDNTHD", 'A', "7|Zee|Blauw|0.00|1.2.0"},
        {"LDNTHO7|", 'A', "OK"},
        {"LDNTHE", 'A', ""},
        {"LDNTH7", 'A', nullptr, "7.thema"},
        {"LDNTHV7", 'A', nullptr},
        // A theme the server no longer has: both waits of the client still end.
        {"LDNTH7", 'A', nullptr, "7.thema"},
        {"LDNGRPGLB", 'A', "Leerlingen:Alle leerlingen|Leraren:Alle leraren"},
        {"LDNGRPLKL", 'A', "Gebruikers:Gebruikers van deze computer|Printergebruikers"},
        {"LDNWSA", 'A', "adijk|groep1|groep2|groep3|"},
        {"LDNACCINFjvries", 'A', "|||\\\\server\\netlogon\\leraar.bat|Leraren:g><Gebruikers:l"},
        {"LDNACCLST", 'A', "\\\\server\\netlogon\\leerling.bat|\\\\server\\netlogon\\leraar.bat"},
        {"LDNSIN", 'A', ""},
        {"OPSSIN6;<>;JA;<>;NEE;<>;Nee", 'B', nullptr},
        {"OPSKLZ0><Groep 9><9><9a.jpg><Geen><groep9><geheim><1|a1><Ja><><0,0><1", 'B', "9"},
        {"OPSWAGgroep9><l:Gebruikers", 'B', nullptr},
        {"OPSLRZ0><Smit><><Karin><s.ico><b.jpg><ksmit><pw><3><Ja><1><Ja><Nee|Ja><2><Oceaan>", 'B',
         "5"},
        {"OPSCANgroep;<>;-1;<>;Muziek", 'B', ""},
        {"OPSCATklas;<>;nee;<>;nee;<>;1><1><Rekenen", 'B', "OK"},
        {"OPSAPPNIEa", 'B', ""},
        {"OPSAPPPOSk2;<>;7|app|10x20", 'B', "OK"},
        {"OPSAP2k|\\Afbeeldingen\\2.pic", 'A', "OK"},
        {"OPSBEHk><2><7|a1><Nee><a1", 'B', "OK"},
        {"OPSFAVGroep2;<>;2|Ja|Nee|Ja;<>;https://a.nl|A||Ja", 'B', "OK"},
        {"OPSVBW;<+drie", 'B', "OK"},
        {"OPSITSa.nl|b.nl", 'B', "OK"},
        {"OPSINSa;<>;b;<>;c;<>;d;<>;e;<>;f;<>;Standaard;<>;1043", 'B', "OK"},
        {"OPSTEL1|1|0", '-', nullptr},
        {"VWNAPPk|1", 'B', "OK"},
        {"VWNCATa|1", 'B', "OK"},
        {"VWNKLS9", 'B', "OK"},
        {"VWNLRN5", 'B', "OK"},
        // Last: a restore moves the icons' dates on.
        {"BCKMKB", 'A', ""},
        {"BCKLST", 'A', "{backup}"},
        {"BCKRST{backup}", 'A', "OK"},
    };

    QHash<QString, QString> vars;
    vars["{ports}"] = QString("%1|%2").arg(s.receiver().dataPort()).arg(s.receiver().infoPort());
    vars["{uploads}"] =
        QString("%1|%2").arg(s.options().uploadDataPort).arg(s.options().uploadInfoPort);
    for (const Row& row : rows) {
        const QString message = substitute(row.message, vars);
        SCOPED_TRACE(message.left(60).toStdString());
        s.receiver().reset();
        c.send(message);
        const bool silent = row.reply == '-' || row.reply == 'F';
        const QString reply = c.next(silent ? 700 : 5000);
        if (silent) {
            EXPECT_EQ(QString(), reply) << "no reply is expected on the command channel";
        } else {
            ASSERT_FALSE(reply.isEmpty()) << "no reply: the client would wait for ever";
            SCOPED_TRACE(reply.toStdString());
            const auto sorted = tk::Woordenlijst::sorteer(reply);
            EXPECT_EQ(Klasse(row.reply - 'A'), sorted.klasse);
            EXPECT_EQ(message == "FIR"      ? Actie::Fir
                      : message == "INFDMN" ? Actie::Infdmn
                                            : Actie::Geen,
                      sorted.actie);
            EXPECT_EQ(row.payload != nullptr, sorted.metPayload);
            if (row.payload) {
                EXPECT_TRUE(sorted.payload.startsWith(substitute(row.payload, vars)));
                EXPECT_FALSE(sorted.payload.startsWith("FOUT"));
            }
            if (message.startsWith("BCKMKB"))
                vars["{backup}"] = sorted.payload;
        }
        if (row.file) {
            EXPECT_TRUE(waitFor([&] { return s.receiver().complete(); })) << "no file came";
            EXPECT_EQ(substitute(row.file, vars), s.receiver().name());
            EXPECT_FALSE(s.receiver().content().isEmpty());
        }
        if (message.startsWith("HLPOPSManual")) {
            vars["{call}"] = QString::number(s.store().problemCalls().last().id);
            FileSender sender(s.options().uploadInfoPort, s.options().uploadDataPort);
            sender.offer("screenshot123.jpg", jpeg);
            EXPECT_TRUE(waitFor([&] { return sender.finished(); }));
            EXPECT_TRUE(waitFor([&] { return s.store().problemCalls().last().screenshot; }));
        }
        EXPECT_TRUE(c.reads().isEmpty())
            << "a reply too many: " << c.reads().join(' ').toStdString();
    }
    EXPECT_TRUE(c.connected());
}

TEST(VocabularyTest, TheLocalServerOfAStandaloneWorkstationAnswersABareFir) {
    RunningServer s([](ServerOptions& o) { o.firewallStart = true; });
    WireClient c(s.port());
    EXPECT_EQ("FIR", c.ask("FIR")) << "no domain to tell";
}
