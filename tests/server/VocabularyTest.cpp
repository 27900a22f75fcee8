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

enum class Expect {
    Reply,    // a reply of the given class
    File,     // a reply of the given class and a file at the client's receiver
    OnlyFile, // no reply on the command channel: the transfer is the answer
    Nothing   // no reply at all
};

struct Row {
    const char* message;
    Expect expect;
    Klasse klasse;
    Actie actie;
    const char* payload; // the payload the client keeps begins with this; nullptr: flag alone
    const char* file = nullptr; // the name of the file that comes to the receiver
};

void writeFile(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

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
    RunningServer s(true, 60, updates.path());
    writeFile(QDir(s.dataFolder()).filePath("Themacatalogus/7/Instellingen.ini"),
              "[Algemeen]\r\nNaam=Zee\r\nOmschrijving=Blauw\r\nVersie=1.2.0\r\n");
    writeFile(QDir(s.dataFolder()).filePath("Themacatalogus/7/achtergrond.bmp"),
              QByteArray(500, 'z'));
    WireClient c(s.port());
    const QByteArray jpeg = QByteArray("\xff\xd8\xff\xe0", 4) + QByteArray(20000, 'j');

    const Row rows[] = {
        {"TST", Expect::Reply, Klasse::C, Actie::Geen, nullptr},
        {"FIR", Expect::Reply, Klasse::A, Actie::Fir, "TAFELBERG"},
        {"LOCGLOBAL", Expect::Reply, Klasse::C, Actie::Geen, nullptr},
        {"INFVER1.0.0", Expect::Reply, Klasse::C, Actie::Geen, nullptr},
        {"INFDMN", Expect::Reply, Klasse::C, Actie::Infdmn, "TAFELBERG|{ports}|{uploads}|NEE|NEE"},
        {"INFCOMPC-07", Expect::Reply, Klasse::C, Actie::Geen, nullptr},
        {"INFOND", Expect::Reply, Klasse::A, Actie::Geen, "NEE"},
        {"INFONA", Expect::Nothing, Klasse::D, Actie::Geen, nullptr},
        {"INFONB", Expect::Reply, Klasse::C, Actie::Geen, nullptr},
        {"INFONC", Expect::Reply, Klasse::C, Actie::Geen, nullptr},
        {"PING", Expect::Nothing, Klasse::D, Actie::Geen, nullptr},
        {"UPDVER1.0.0", Expect::Reply, Klasse::A, Actie::Geen, "2.5.0"},
        {"UPDOPHINF", Expect::Reply, Klasse::A, Actie::Geen, "{ports}|2.5.0.zip"},
        {"UPDOPHREQ", Expect::OnlyFile, Klasse::D, Actie::Geen, nullptr, "2.5.0.zip"},
        {"UPDCON", Expect::Reply, Klasse::A, Actie::Geen, "2.5.0"},
        {faultReport, Expect::Reply, Klasse::A, Actie::Geen, nullptr},
        {problemCall, Expect::Reply, Klasse::A, Actie::Geen, nullptr},
        {"HLPSNC", Expect::Reply, Klasse::A, Actie::Geen, ""},
        {"HLPLDN2", Expect::Reply, Klasse::A, Actie::Geen,
         "{call};<>;Manual;<>;3-5-2024;<>;9:05:00"},
        {"HLPSCR{call}", Expect::OnlyFile, Klasse::D, Actie::Geen, nullptr, "{call}.jpg"},
        {"HLPVWN{call}", Expect::Reply, Klasse::A, Actie::Geen, "OK"},
        {"BCKMKB", Expect::Reply, Klasse::A, Actie::Geen, ""},
        {"BCKLST", Expect::Reply, Klasse::A, Actie::Geen, "{backup}"},
        {"BCKRST{backup}", Expect::Reply, Klasse::A, Actie::Geen, "OK"},
        {"ACDCONgroep1", Expect::Reply, Klasse::A, Actie::Geen, "JA"},
        {"ACDCONonbekend", Expect::Reply, Klasse::A, Actie::Geen, "NEE"},
        {"ACDNIEnieuw|geheim|1|Nieuw", Expect::Reply, Klasse::A, Actie::Geen, "OK"},
        {"ACDVWRnieuw", Expect::Reply, Klasse::A, Actie::Geen, "OK"},
        {"LDNKLSSNC", Expect::Reply, Klasse::A, Actie::Geen, "0|8"},
        {"LDNKLSDA0", Expect::Reply, Klasse::A, Actie::Geen, "0|1;<>;Groep 1"},
        {"LDNLRNSNC", Expect::Reply, Klasse::A, Actie::Geen, "0|4"},
        {"LDNLRNDA0", Expect::Reply, Klasse::A, Actie::Geen, "0|Vries;<>;"},
        {"LDNCAK", Expect::Reply, Klasse::A, Actie::Geen, "3;<>;1|Rekenen;<>;2|Taal"},
        {"LDNCAL", Expect::Reply, Klasse::A, Actie::Geen, "2;<>;1|Hulpmiddelen"},
        {"LDNCAA", Expect::Reply, Klasse::A, Actie::Geen, "2;<>;1|Algemeen"},
        {"LDNAPKSNC", Expect::Reply, Klasse::A, Actie::Geen, "5|"},
        {"LDNAPKDAT1", Expect::Reply, Klasse::A, Actie::Geen,
         "1><Klok><1></usr/bin/xclock><Een klok"},
        {"LDNAPLSNC", Expect::Reply, Klasse::A, Actie::Geen, ""},
        {"LDNAPLDAT1", Expect::Reply, Klasse::A, Actie::Geen, "1><Rekenmachine><1>"},
        {"LDNAPASNC", Expect::Reply, Klasse::A, Actie::Geen, ""},
        {"LDNAPADAT1", Expect::Reply, Klasse::A, Actie::Geen,
         "1><Klok><1></usr/bin/xclock><De klok><standaard|10><><1024x768x32xNEE"},
        {"LDNAPPPOSK1", Expect::Reply, Klasse::A, Actie::Geen, "POS"},
        {"LDNPICWIJ", Expect::Reply, Klasse::A, Actie::Geen,
         "1-1-2004 00:00|1-1-2004 00:00|1-1-2004 00:00|1-1-2004 00:00"},
        {"LDNPICGRP", Expect::Reply, Klasse::A, Actie::Geen, ""},
        {"LDNPICLRN", Expect::Reply, Klasse::A, Actie::Geen, ""},
        {"LDNPICALG", Expect::Reply, Klasse::A, Actie::Geen, ""},
        {"LDNPICPAKgroep|1", Expect::File, Klasse::C, Actie::Geen, nullptr, "pakket.pictogrammen"},
        {"LDNWCH", Expect::Reply, Klasse::A, Actie::Geen, "leraar;|;beheer"},
        {"LDNOVR", Expect::Reply, Klasse::A, Actie::Geen,
         "https://nl.wikipedia.org;<>;ict@school.example;<>;Basisschool De "
         "Tafelberg;<>;tafelkrater@school.example;<>;1;<>;1043"},
        {"LDNTAA", Expect::Reply, Klasse::A, Actie::Geen, "1043"},
        {"LDNFAVGroep1", Expect::Reply, Klasse::A, Actie::Geen,
         "1|Ja|Ja|Nee;<>;https://nl.wikipedia.org|Wikipedia||Ja><"},
        {"LDNITS", Expect::Reply, Klasse::A, Actie::Geen, "nl.wikipedia.org|schooltv.nl|"},
        {"LDNMOD", Expect::Reply, Klasse::A, Actie::Geen, "JA|NEE"},
        {"LDNPRN", Expect::Reply, Klasse::A, Actie::Geen,
         "Kopieerapparaat|\\\\server\\kopie><Kleurenprinter|"},
        {"LDNIVWINF", Expect::Reply, Klasse::A, Actie::Geen, "1"},
        {"LDNIVWPA1", Expect::Reply, Klasse::A, Actie::Geen, "PA1casino|gokken|"},
        {"LDNTHD", Expect::Reply, Klasse::A, Actie::Geen, "7|Zee|Blauw|0.00|1.2.0"},
        {"LDNTHO7|", Expect::Reply, Klasse::A, Actie::Geen, "OK"},
        {"LDNTHE", Expect::Reply, Klasse::A, Actie::Geen, ""},
        {"LDNTH7", Expect::File, Klasse::A, Actie::Geen, nullptr, "7.thema"},
        {"LDNTHV7", Expect::Reply, Klasse::A, Actie::Geen, nullptr},
        // A theme the server no longer has: both waits of the client still end.
        {"LDNTH7", Expect::File, Klasse::A, Actie::Geen, nullptr, "7.thema"},
        {"LDNGRPGLB", Expect::Reply, Klasse::A, Actie::Geen,
         "Leerlingen:Alle leerlingen|Leraren:Alle leraren"},
        {"LDNGRPLKL", Expect::Reply, Klasse::A, Actie::Geen,
         "Gebruikers:Gebruikers van deze computer|Printergebruikers"},
        {"LDNWSA", Expect::Reply, Klasse::A, Actie::Geen, "adijk|groep1|groep2|groep3|"},
        {"LDNACCINFjvries", Expect::Reply, Klasse::A, Actie::Geen,
         "|||\\\\server\\netlogon\\leraar.bat|Leraren:g><Gebruikers:l"},
        {"LDNACCLST", Expect::Reply, Klasse::A, Actie::Geen,
         "\\\\server\\netlogon\\leerling.bat|\\\\server\\netlogon\\leraar.bat"},
        {"LDNSIN", Expect::Reply, Klasse::A, Actie::Geen, ""},
        {"OPSSIN6;<>;JA;<>;NEE;<>;Nee", Expect::Reply, Klasse::B, Actie::Geen, nullptr},
        {"OPSKLZ0><Groep 9><9><9a.jpg><Geen><groep9><geheim><1|a1><Ja><><0,0><1", Expect::Reply,
         Klasse::B, Actie::Geen, "9"},
        {"OPSWAGgroep9><l:Gebruikers", Expect::Reply, Klasse::B, Actie::Geen, nullptr},
        {"OPSLRZ0><Smit><><Karin><s.ico><b.jpg><ksmit><pw><3><Ja><1><Ja><Nee|Ja><2><Oceaan>",
         Expect::Reply, Klasse::B, Actie::Geen, "5"},
        {"OPSCANgroep;<>;-1;<>;Muziek", Expect::Reply, Klasse::B, Actie::Geen, ""},
        {"OPSCATklas;<>;nee;<>;nee;<>;1><1><Rekenen", Expect::Reply, Klasse::B, Actie::Geen, "OK"},
        {"OPSAPPNIEa", Expect::Reply, Klasse::B, Actie::Geen, ""},
        {"OPSAPPPOSk2;<>;7|app|10x20", Expect::Reply, Klasse::B, Actie::Geen, "OK"},
        {"OPSAP2k|\\Afbeeldingen\\2.pic", Expect::Reply, Klasse::A, Actie::Geen, "OK"},
        {"OPSBEHk><2><7|a1><Nee><a1", Expect::Reply, Klasse::B, Actie::Geen, "OK"},
        {"OPSFAVGroep2;<>;2|Ja|Nee|Ja;<>;https://a.nl|A||Ja", Expect::Reply, Klasse::B, Actie::Geen,
         "OK"},
        {"OPSVBW;<+drie", Expect::Reply, Klasse::B, Actie::Geen, "OK"},
        {"OPSITSa.nl|b.nl", Expect::Reply, Klasse::B, Actie::Geen, "OK"},
        {"OPSINSa;<>;b;<>;c;<>;d;<>;e;<>;f;<>;Standaard;<>;1043", Expect::Reply, Klasse::B,
         Actie::Geen, "OK"},
        {"OPSTEL1|1|0", Expect::Nothing, Klasse::D, Actie::Geen, nullptr},
        {"VWNAPPk|1", Expect::Reply, Klasse::B, Actie::Geen, "OK"},
        {"VWNCATa|1", Expect::Reply, Klasse::B, Actie::Geen, "OK"},
        {"VWNKLS9", Expect::Reply, Klasse::B, Actie::Geen, "OK"},
        {"VWNLRN5", Expect::Reply, Klasse::B, Actie::Geen, "OK"},
    };

    QHash<QString, QString> vars;
    vars["{ports}"] = QString("%1|%2").arg(s.receiver().dataPort()).arg(s.receiver().infoPort());
    vars["{uploads}"] =
        QString("%1|%2").arg(s.options().uploadDataPort).arg(s.options().uploadInfoPort);
    for (const Row& row : rows) {
        const QString message = substitute(QString::fromLatin1(row.message), vars);
        SCOPED_TRACE(message.left(60).toStdString());
        s.receiver().reset();
        c.send(message);
        const QString reply =
            c.next(row.expect == Expect::Nothing || row.expect == Expect::OnlyFile ? 700 : 5000);
        if (row.expect == Expect::Nothing || row.expect == Expect::OnlyFile) {
            EXPECT_EQ(QString(), reply) << "no reply is expected on the command channel";
        } else {
            ASSERT_FALSE(reply.isEmpty()) << "no reply: the client would wait for ever";
            const auto sorted = tk::Woordenlijst::sorteer(reply);
            EXPECT_EQ(row.klasse, sorted.klasse) << reply.toStdString();
            EXPECT_EQ(row.actie, sorted.actie) << reply.toStdString();
            if (!row.payload) {
                EXPECT_FALSE(sorted.metPayload) << reply.toStdString();
            } else {
                EXPECT_TRUE(sorted.metPayload) << reply.toStdString();
                EXPECT_TRUE(
                    sorted.payload.startsWith(substitute(QString::fromLatin1(row.payload), vars)))
                    << reply.toStdString();
                EXPECT_FALSE(sorted.payload.startsWith("FOUT")) << reply.toStdString();
            }
            if (message.startsWith("BCKMKB"))
                vars["{backup}"] = sorted.payload;
        }
        if (row.expect == Expect::File || row.expect == Expect::OnlyFile) {
            EXPECT_TRUE(waitFor([&] { return s.receiver().complete(); }))
                << "the file did not come";
            EXPECT_EQ(substitute(QString::fromLatin1(row.file), vars), s.receiver().name());
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
    RunningServer s(true, 60, QString(), true);
    WireClient c(s.port());
    EXPECT_EQ("FIR", c.ask("FIR")) << "no domain to tell";
}
