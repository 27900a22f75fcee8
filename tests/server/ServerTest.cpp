// The server against clients on loopback: saves and loads in the client's columns, deletes,
// restarts, the maintenance handshake, the framing rules, bad input and the transfers.
#include "RunningServer.h"
#include "WireClient.h"
#include "archive/UcArchief.h"
#include "server/TransferChannel.h"

#include <QDir>
#include <QFile>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tk::server;
using namespace tk::server::test;

namespace {

QString field(const QString& reply, const QString& prefix) {
    EXPECT_TRUE(reply.startsWith(prefix)) << reply.toStdString() << " for " << prefix.toStdString();
    return reply.mid(prefix.size());
}

// Columns 6, 0, 1, 2, 3, 4, 5, 7, 8, 10, 11, 12 on the wire.
QString newClass(const QString& naam) {
    return "0><" + naam + "><Nw><9a.jpg><Geen><nieuw><geheim><1|a1|cdrom><Ja><Ruimte><120,80><1|a1";
}

// The files a package holds, unpacked as the client unpacks it.
QString unpack(const QByteArray& package, const QTemporaryDir& dir, int files) {
    QFile f(dir.filePath("pakket"));
    EXPECT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(package);
    f.close();
    EXPECT_EQ(files,
              tk::UcArchief().ExtractFilesFromArchiv(f.fileName(), dir.filePath("uit"), false));
    return dir.filePath("uit/");
}

QByteArray read(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

} // namespace

TEST(ServerLoadTest, ABlockStaysSmallAndAFullTableSplitsIntoSeveralBlocks) {
    RunningServer s({}, false);
    WireClient c(s.port());
    const QString longList = QStringList(45, "a123").join('|');
    for (int i = 0; i < Store::maxClasses; ++i) {
        QString record = newClass(QString("Klas %1").arg(i));
        record.replace("1|a1|cdrom", longList);
        ASSERT_FALSE(c.ask("OPSKLZ" + record).endsWith("FOUT"));
    }
    EXPECT_EQ("OPSKLZFOUT", c.ask("OPSKLZ" + newClass("22e")));
    const int last = c.ask("LDNKLSSNC").mid(9).section('|', 0, 0).toInt();
    EXPECT_GT(last, 1);
    for (int n = 0; n <= last; ++n)
        EXPECT_LT(c.ask(QString("LDNKLSDA%1").arg(n)).size(), 1460);
    EXPECT_EQ(21, loadClasses(c).size());
}

TEST(ServerSaveTest, AFullKindRefusesANewCategoryOrApplicationButTakesChanges) {
    RunningServer s;
    WireClient c(s.port());
    for (int n = loadCategories(c, "A").size() - 1; n < Store::maxCategories; ++n)
        ASSERT_TRUE(c.ask(QString("OPSCANalgemeen;<>;-1;<>;Soort %1").arg(n)).startsWith("OPSCAT"));
    EXPECT_EQ("OPSCATFOUT", c.ask("OPSCANalgemeen;<>;-1;<>;Een te veel"));
    const auto save = [&](const QString& id, const QString& naam) {
        return c.ask("OPSAPPa><" + id + "><ja><" + naam + "><1><x><eigen><><><800x600x16xJA");
    };
    QString app;
    for (int n = loadApplications(c, "A").size(); n < Store::maxApplications; ++n) {
        app = field(c.ask("OPSAPPNIEa"), "OPSAPP");
        ASSERT_EQ("OPSAPPOK", save(app, "App"));
    }
    EXPECT_EQ("OPSAPPFOUT", save(field(c.ask("OPSAPPNIEa"), "OPSAPP"), "Een te veel"));
    EXPECT_EQ("OPSAPPOK", save(app, "Gewijzigd"));
    EXPECT_EQ("Gewijzigd", loadApplications(c, "A").last()[1]);
    // All teachers at once, with more new ones than the table has room for: refused whole.
    const QStringList teachers(Store::maxTeachers, "0><T><><V><i><p><a><w><1><Nee><1><Nee><Ja><1");
    EXPECT_EQ("OPSLRNFOUT",
              c.ask(QString("OPSLRNb;<>;%1;<>;").arg(teachers.size()) + teachers.join(";<>;")));
    EXPECT_EQ(4, loadTeachers(c).size());
}

TEST(ServerSaveTest, SavedRecordsComeBackInTheirColumns) {
    RunningServer s;
    WireClient c(s.port());

    // A new class gets an ID above the last; its columns come back in place.
    const QString id = field(c.ask("OPSKLZ" + newClass("Nieuwe klas")), "OPSKLZ");
    EXPECT_EQ("9", id);
    auto classes = loadClasses(c);
    ASSERT_EQ(9, classes.size());
    EXPECT_EQ(QStringList({"Nieuwe klas", "Nw", "9a.jpg", "Geen", "nieuw", "geheim", id,
                           "1|a1|cdrom", "Ja", "", "Ruimte", "120,80", "1|a1", ""}),
              classes[8]);

    // A change of an existing class, and a copied class that takes over the favourites of the
    // class it was copied from.
    QString changed = newClass("Hernoemd").replace(0, 1, id);
    EXPECT_EQ("OPSKLZ" + id, c.ask("OPSKLZ" + changed));
    EXPECT_EQ("Hernoemd", loadClasses(c)[8][0]);
    const QString copyId =
        field(c.ask("OPSKLZ" + newClass("Kopie").replace(0, 1, "kopie1")), "OPSKLZ");
    EXPECT_EQ(c.ask("LDNFAVGroep1"), c.ask("LDNFAVGroep" + copyId));
    // The account panel's extra values go to the account of the class (column 4).
    changed.replace("><nieuw><", "><klas9><");
    EXPECT_EQ("OPSKLZ" + id,
              c.ask("OPSKLZ" + changed + "><\\\\srv\\profiel9|klas.bat|K:|\\\\srv\\home9|JA"));
    EXPECT_EQ("LDNACC\\\\srv\\profiel9|\\\\srv\\home9|K:|klas.bat|", c.ask("LDNACCINFklas9"));

    // A teacher: the wire order 5, 0, 7, 6, 1, 2, 3, 4, 8, 9, 10, 11, 12, 15, 14, and the account
    // panel's extra values.
    const QString teacherId =
        field(c.ask("OPSLRZ0><Smit><van der><Karin><smit.ico><bos.jpg><ksmit><pw><3|cdrom><Ja><1|2>"
                    "<Ja><Nee|Ja><2|a1><Oceaan><\\\\srv\\profiel|login.bat|H:|\\\\srv\\home|JA"),
              "OPSLRZ");
    const auto teachers = loadTeachers(c);
    ASSERT_EQ(5, teachers.size());
    EXPECT_EQ(
        QStringList({"Smit", "smit.ico", "bos.jpg", "ksmit", "pw", teacherId, "Karin", "van der",
                     "3|cdrom", "Ja", "1|2", "Ja", "Nee|Ja", "", "Oceaan", "2|a1", ""}),
        teachers[4]);
    EXPECT_EQ("LDNACC\\\\srv\\profiel|\\\\srv\\home|H:|login.bat|", c.ask("LDNACCINFksmit"));

    // All teachers at once, in a new order, without themes: the stored themes stay.
    QStringList rows;
    for (int i = teachers.size() - 1; i >= 0; --i) {
        const QStringList& r = teachers[i];
        rows << QStringList{r[5], r[0], r[7], r[6],  r[1],  r[2],  r[3],
                            r[4], r[8], r[9], r[10], r[11], r[12], r[15]}
                    .join("><");
    }
    // A row with ID 0 is a new teacher: it gets the next ID, in its place, its themes empty.
    rows.insert(1, "0><Bos><><Els><b.ico><c.jpg><ebos><pw2><1><Nee><1><Nee><Ja|Ja><3|a1");
    EXPECT_EQ("OPSLRNOK", c.ask("OPSLRNbeheer;<>;6;<>;" + rows.join(";<>;")));
    const auto reordered = loadTeachers(c);
    ASSERT_EQ(6, reordered.size());
    EXPECT_EQ("Smit", reordered[0][0]);
    EXPECT_EQ("Oceaan", reordered[0][14]);
    EXPECT_EQ(
        QStringList({"Bos", "b.ico", "c.jpg", "ebos", "pw2", QString::number(teacherId.toInt() + 1),
                     "Els", "", "1", "Nee", "1", "Nee", "Ja|Ja", "", "", "3|a1", ""}),
        reordered[1]);
    EXPECT_EQ("OPSLRNFOUT", c.ask("OPSLRNbeheer;<>;3;<>;" + rows[0]));

    // Categories: both forms of a new one, a rename, an order.
    const QString cat = field(c.ask("OPSCANgroep;<>;-1;<>;Muziek"), "OPSCAT");
    const QString cat2 = field(c.ask("OPSCANgroep;<>;Natuur;<>;-1"), "OPSCAT");
    EXPECT_NE(cat, cat2);
    EXPECT_EQ(QStringList({cat + "|Muziek", cat2 + "|Natuur"}), loadCategories(c, "K").mid(4))
        << "a new category comes last of its kind";
    converse(c, {{QString("OPSCANgroep;<>;%1;<>;Zang").arg(cat), "OPSCAT" + cat},
                 {QString("OPSCATklas;<>;nee;<>;nee;<>;1><%1><Zang;<>;2><1><Rekenen").arg(cat),
                  "OPSCATOK"}});
    EXPECT_EQ(QStringList({cat2, cat + "|Zang", "1|Rekenen"}), loadCategories(c, "K").mid(0, 3));

    // An application: its ID first, then the record with Pictogram before Omschrijving.
    const QString app = field(c.ask("OPSAPPNIEa"), "OPSAPP");
    EXPECT_EQ("OPSAPPOK", c.ask("OPSAPPa><" + app +
                                "><ja><Ogen><1></usr/bin/xeyes><eigen><Kijk\r\nmee>"
                                "<-geometry 200x200><800x600x16xJA"));
    EXPECT_EQ(QStringList({app, "Ogen", "1", "/usr/bin/xeyes", "Kijk mee", "eigen",
                           "-geometry 200x200", "800x600x16xJA"}),
              loadApplications(c, "A").last());
    // Saved again, it changes in its place.
    const qsizetype apps = loadApplications(c, "A").size();
    EXPECT_EQ("OPSAPPOK",
              c.ask("OPSAPPa><" + app + "><ja><Oog><1><xeyes><eigen><><><800x600x16xJA"));
    EXPECT_EQ(apps, loadApplications(c, "A").size());
    EXPECT_EQ("Oog", loadApplications(c, "A").last()[1]);

    // Desktop, positions, favourites, word list in pieces, sites, settings, accounts.
    converse(c, {
                    {"OPSAPPa><999><ja><X><1><x><y><z><p><b>", "OPSAPPFOUT"}, // never given out
                    {"OPSBEHk><2><7|a1|leeg><Nee><a1", "OPSBEHOK"},
                    {"OPSAPPPOSk2;<>;7|app|10x20><1|app|90x20", "OPSAPPOK"},
                    {"LDNAPPPOSK2", "LDNAPPPOS7|app|10x20><1|app|90x20"},
                    {"OPSFAVLeraar2;<>;2|Ja|Nee|Ja;<>;https://a.nl|A||Ja", "OPSFAVOK"},
                    {"LDNFAVLeraar2", "LDNFAV2|Ja|Nee|Ja;<>;https://a.nl|A||Ja"},
                    {"OPSVBW;<een|twee", "OPSVBWOK"},
                    {"OPSVBW;<+drie|vier", "OPSVBWOK"},
                    {"LDNIVWINF", "LDNIVWINF1"},
                    {"LDNIVWPA1", "LDNIVWPA1een|twee|drie|vier"},
                    {"OPSITSa.nl|b.nl", "OPSITSOK"},
                    {"LDNITS", "LDNITSa.nl|b.nl"},
                    {"OPSINSl1;<>;b1;<>;https://x.nl;<>;aan@x;<>;School;<>;van@x;<>;2;<>;1033",
                     "OPSINSOK"},
                    {"LDNTAA", "LDNTAA1033"},
                    {"OPSINSalleen;<>;twee", "OPSINSFOUT"},
                    // Passwords that would come back cut elsewhere, once joined by ";|;".
                    {"OPSINSl;|;<>;b;<>;s;<>;a;<>;S;<>;v;<>;2;<>;1033", "OPSINSFOUT"},
                    {"OPSINSl;<>;a;|;b;<>;s;<>;a;<>;S;<>;v;<>;2;<>;1033", "OPSINSFOUT"},
                    {"LDNWCH", "LDNWCHl1;|;b1"},
                    {"ACDNIEnieuw|geheim|1|Nieuwe klas", "ACDNIEOK"},
                    {"ACDCONnieuw", "ACDCONJA"},
                    {"OPSWAGnieuw><l:Gebruikers|g:Leerlingen", "OPSWAG"},
                    {"LDNACCINFnieuw", "LDNACC||||Gebruikers:l><Leerlingen:g"},
                });
    EXPECT_EQ("Nieuwe klas", s.store().account("nieuw").fullName) << "the groups' save kept it";
    converse(c, {{"ACDVWRnieuw", "ACDVWROK"}, {"ACDCONnieuw", "ACDCONNEE"}});
    EXPECT_EQ("7|a1|leeg", loadClasses(c)[1][7]);
    c.send("OPSTEL1|2|0");
    EXPECT_TRUE(waitFor([&] { return s.store().starts(0, 1) == 1; }));
    c.send("OPSTEL1|3|0");
    EXPECT_TRUE(waitFor([&] { return s.store().starts(0, 1) == 2; }));
    EXPECT_TRUE(c.reads().isEmpty()) << "a start is not answered";
}

TEST(ServerSaveTest, DeletesRemoveRecordsAndRefuseUnknownIds) {
    RunningServer s;
    WireClient c(s.port());
    converse(c, {
                    {"VWNKLS3", "VWNKLSOK"},
                    {"VWNKLS3", "VWNKLSFOUT"},
                    {"VWNKLSdrie", "VWNKLSFOUT"},
                    {"VWNLRN2", "VWNLRNOK"},
                    {"VWNLRN77", "VWNLRNFOUT"},
                    {"VWNAPPk|3", "VWNAPPOK"},
                    {"VWNAPPk|3", "VWNAPPFOUT"},
                    {"VWNAPPx|1", "VWNAPPFOUT"},
                    {"VWNCATk|1", "VWNCATOK"},
                    {"VWNCATk|1", "VWNCATFOUT"},
                    {"LDNFAVGroep3", "LDNFAV0|Nee|Nee|Nee;<>;"},
                });
    const auto classes = loadClasses(c);
    EXPECT_EQ(7, classes.size());
    for (const QStringList& row : classes)
        EXPECT_NE("3", row[6]);
    EXPECT_EQ(3, loadTeachers(c).size());
    // The category's applications went with it: only those of category 2 and 3 are left.
    for (const QStringList& app : loadApplications(c, "K"))
        EXPECT_NE("1", app[2]);
    // An empty teacher list is taken; the teachers it leaves out stay, in their order.
    const auto teachers = loadTeachers(c);
    converse(c, {{"OPSLRNbeheer;<>;0", "OPSLRNOK"}});
    EXPECT_EQ(teachers, loadTeachers(c));
}

TEST(ServerStoreTest, EverythingSavedIsThereAfterARestart) {
    RunningServer s;
    QString id;
    {
        WireClient c(s.port());
        id = field(c.ask("OPSKLZ" + newClass("Blijvend")), "OPSKLZ");
        EXPECT_EQ("NEE", c.ask("LDNSIN").split(";<>;").value(1)) << "the settings' defaults";
        converse(c, {{"OPSITSblijft.nl", "OPSITSOK"},
                     {"VWNLRN1", "VWNLRNOK"},
                     {"OPSSIN6;<>;Ja;<>;JA;<>;Nee", "OPSSIN"},
                     {"OPSSIN6;<>;NEE", "OPSSINFOUT"},
                     {"OPSSIN5;<>;NEE;<>;NEE;<>;Nee", "OPSSINFOUT"}});
    }
    s.restart();
    WireClient c(s.port());
    const QStringList settings = c.ask("LDNSIN").mid(6).split(";<>;");
    ASSERT_EQ(4, settings.size());
    EXPECT_EQ(3, settings[0].split('.').size()) << "the server's version";
    EXPECT_EQ((QStringList{"JA", "JA"}), settings.mid(1, 2));
    const auto classes = loadClasses(c);
    ASSERT_EQ(9, classes.size());
    EXPECT_EQ("Blijvend", classes.last()[0]);
    EXPECT_EQ(id, classes.last()[6]);
    EXPECT_EQ("LDNITSblijft.nl", c.ask("LDNITS"));
    EXPECT_EQ(3, loadTeachers(c).size());
    // IDs go on from where they were: a deleted ID is never given again.
    EXPECT_EQ("OPSKLZ" + QString::number(id.toInt() + 1),
              c.ask("OPSKLZ" + newClass("Na herstart")));
}

TEST(ServerMaintenanceTest, TheHandshakeIsRelayedBetweenInsiderAndNewcomer) {
    RunningServer s;
    WireClient insider(s.port());
    WireClient newcomer(s.port());
    EXPECT_EQ("INFONDNEE", newcomer.ask("INFOND"));
    EXPECT_EQ("LOC", insider.ask("LOCLERAAR|2|onderhoud"));
    EXPECT_EQ("INFONDJA", newcomer.ask("INFOND"));
    EXPECT_EQ("INFONDNEE", insider.ask("INFOND")) << "not itself";

    // The insider refuses.
    newcomer.send("INFONA");
    EXPECT_EQ("INFONA", insider.next());
    EXPECT_EQ("INFOK", insider.ask("INFONC"));
    EXPECT_EQ("INFONC", newcomer.next());

    // The newcomer gives up.
    newcomer.send("INFONA");
    EXPECT_EQ("INFONA", insider.next());
    EXPECT_EQ("INFOK", newcomer.ask("INFONB"));
    EXPECT_EQ("INFONC", insider.next());

    // The insider goes back to the start screen: the module is free.
    EXPECT_EQ("LOC", insider.ask("LOCGLOBAL"));
    EXPECT_EQ("INFONDNEE", newcomer.ask("INFOND"));
    EXPECT_EQ("LOC", insider.ask("LOCOnderhoudsmodule"));
    EXPECT_EQ("INFONDJA", newcomer.ask("INFOND"));
}

TEST(ServerFramingTest, ANoticeNeverJoinsAReplyASlowReaderHasNotReadYet) {
    RunningServer s;
    WireClient insider(s.port());
    WireClient newcomer(s.port());
    WireClient other(s.port());
    EXPECT_EQ("LOC", insider.ask("LOCONDERHOUD"));
    insider.setSlow(true);
    for (int round = 0; round < 3; ++round) {
        SCOPED_TRACE(round);
        // The insider's reply has arrived but is not read yet when the newcomer's request is
        // relayed to it.
        insider.send("TST");
        ASSERT_TRUE(waitFor([&] { return insider.socket().bytesAvailable() > 0; }));
        newcomer.send("INFONA");
        ASSERT_TRUE(waitFor([&] { return s.server().relayedNotices() == round + 1; }));
        // A round trip of another client lets anything already written reach the insider.
        EXPECT_EQ("TST", other.ask("TST"));
        EXPECT_EQ("TST", insider.take());
        ASSERT_TRUE(waitFor([&] { return insider.socket().bytesAvailable() > 0; }));
        EXPECT_EQ("INFONA", insider.take());
    }
}

TEST(ServerFramingTest, AKeepAliveGoesOnlyToAnIdleClientAndSilenceEndsTheConnection) {
    RunningServer s([](ServerOptions& o) { o.keepAliveSeconds = 1; });
    WireClient answering(s.port());
    answering.setAnswerPings(true);
    WireClient silent(s.port());
    EXPECT_EQ("PIN", silent.next(4000));
    EXPECT_TRUE(waitFor([&] { return silent.closedByServer(); }, 5000));
    EXPECT_GE(answering.pings(), 1);
    EXPECT_FALSE(answering.closedByServer());
    EXPECT_EQ("TST", answering.ask("TST"));
}

TEST(ServerBadInputTest, BadMessagesAreRefusedOrDroppedAndNothingStoredIsLost) {
    RunningServer s;
    WireClient quiet(s.port()); // connects and never speaks
    WireClient bad(s.port());
    WireClient good(s.port());
    const auto before = loadClasses(good);

    struct Case {
        QByteArray request;
        const char* reply; // nullptr: dropped without an answer
    };
    const Case cases[] = {
        {"XYZ", nullptr},
        {"pin", nullptr},
        {"PINGTST", "TST"}, // the keep-alive's answer and a request in one read
        {QByteArray("\x00\xff\xfe\x01garbage", 11), nullptr},
        {"LDNKLSDAabc", "LDNKLSDAFOUT"},
        {"LDNAPKDAT999", "LDNAPKDATFOUT"},
        {"OPSKLZ1><te><weinig", "OPSKLZFOUT"},
        {"OPSKLZkopie99><Kopie><K><1a.jpg><Geen><k><w><1><Ja><><0,0><1", "OPSKLZFOUT"}, // no 99
        {"OPSKLZ1><Groep;<>;1><a><b><c><d><e><f><g><h><i><j", "OPSKLZFOUT"},
        {"OPSKLZ1><Groep 1><a><b><c><d><e><f><g><h><i><j;|", "OPSKLZFOUT"}, // joins the next
        {"OPSKLZ1><Gr><oep><a><b><c><d><e><f><g><h><i><j", "OPSKLZFOUT"},   // a name with "><"
        {"OPSCANgroep;<>;-1;<>;Muziek;<>", "OPSCATFOUT"},
        {"OPSLRZ0><alleen", "OPSLRZFOUT"},
        {"OPSAPPk><1", "OPSAPPFOUT"},
        {"OPSCANgroep", "OPSCATFOUT"},
        {"OPSBEHk><abc><><><", "OPSBEHFOUT"},
        {"OPSBEHk><2><7", "OPSBEHFOUT"},             // too few lists
        {"OPSBEHa><1><7|a1><Nee><a1", "OPSBEHFOUT"}, // everyone's applications have no desktop
        {"OPSBEHx><1><7|a1><Nee><a1", "OPSBEHFOUT"},
        {"LDNTH", nullptr}, // a theme without its ID
        {"OPSFAVGeenEigenaar;<>;1|2|3|4;<>;", "OPSFAVFOUT"},
        {"ACDNIEalleen", "ACDNIEFOUT"},
        {"LDNAPPPOSX1", "LDNAPPPOSFOUT"},
    };
    for (const Case& t : cases) {
        SCOPED_TRACE(t.request.left(30).toStdString());
        bad.sendBytes(t.request);
        if (t.reply) {
            EXPECT_EQ(t.reply, bad.next());
        } else {
            // Dropped: the next request is answered, and by its own reply only.
            EXPECT_TRUE(waitFor([&] { return bad.socket().bytesToWrite() == 0; }));
            EXPECT_EQ("TST", good.ask("TST"));
            EXPECT_EQ("TST", bad.ask("TST"));
        }
    }
    EXPECT_EQ(before, loadClasses(good));
    EXPECT_TRUE(quiet.connected());
    EXPECT_TRUE(quiet.reads().isEmpty());
}

TEST(ServerTransferTest, AnUploadedIconIsListedAndComesBackInAPackage) {
    RunningServer s;
    WireClient c(s.port());
    const QString before = c.ask("LDNPICWIJ");
    {
        // A file nobody announced is refused. (An upload broken off half way is the problem
        // call test's.)
        FileSender stranger(s.options().uploadInfoPort, s.options().uploadDataPort);
        stranger.offer("2.pic", QByteArray(100, 'x'));
        EXPECT_TRUE(waitFor([&] { return stranger.refused(); }));
    }
    EXPECT_EQ("OPSAP2OK", c.ask("OPSAP2k|\\Afbeeldingen\\2.pic"));
    QByteArray icon(9000, '\0');
    for (int i = 0; i < icon.size(); ++i)
        icon[i] = char(i * 7);
    FileSender upload(s.options().uploadInfoPort, s.options().uploadDataPort);
    upload.offer("2.pic", icon);
    EXPECT_TRUE(waitFor([&] { return upload.finished(); }));
    EXPECT_EQ(QStringList({"CNT", "ACP", "RFC"}), upload.answers());

    const QString after = c.ask("LDNPICWIJ");
    EXPECT_NE(before.section('|', 1, 1), after.section('|', 1, 1));
    EXPECT_EQ("LDNPICGRP2|" + after.mid(9).section('|', 1, 1), c.ask("LDNPICGRP"));

    EXPECT_EQ("LDNPICPAK", c.ask("LDNPICPAKgroep|2;<>;algemeen|"));
    ASSERT_TRUE(waitFor([&] { return s.receiver().complete(); }));
    EXPECT_EQ("pakket.pictogrammen", s.receiver().name());
    QTemporaryDir dir;
    const QString out = unpack(s.receiver().content(), dir, 1);
    EXPECT_EQ(icon, read(out + "Applicaties/Groepen/2.pic"));
}

// A client's receiver takes one file at a time: the next waits its turn, and beyond a few
// waiting the rest is refused at once, so that a receiver that takes the connection and never
// answers holds no more than those.
TEST(ServerTransferTest, FilesForOneClientGoOneAtATimeAndTooManyWaitingAreRefused) {
    QTcpServer stil;
    ASSERT_TRUE(stil.listen(QHostAddress::LocalHost));
    QObject::connect(&stil, &QTcpServer::newConnection, [&] { stil.nextPendingConnection(); });
    TransferChannel kanaal(stil.serverPort(), stil.serverPort(), 100);
    QList<bool> geeindigd;
    const int teVeel = 2;
    for (int i = 0; i < 1 + TransferChannel::maxWaiting + teVeel; ++i)
        kanaal.sendFile(QHostAddress::LocalHost, "f", "x", [&](bool ok) { geeindigd << ok; });
    EXPECT_EQ(QList<bool>(teVeel, false), geeindigd) << "refused at once";
    int hoogstens = 0;
    EXPECT_TRUE(waitFor([&] {
        hoogstens = std::max(hoogstens, kanaal.activeTransfers());
        return geeindigd.size() == 1 + TransferChannel::maxWaiting + teVeel;
    }));
    EXPECT_EQ(1, hoogstens);
    EXPECT_EQ(0, kanaal.activeTransfers());
}
