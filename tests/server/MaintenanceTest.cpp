// Problem calls, backups, updates, server settings and the web side against the real server.
#include "RunningServer.h"
#include "WireClient.h"
#include "server/BackupKeeper.h"
#include "server/TransferChannel.h"
#include "server/UpdateOffer.h"
#include "server/WebServer.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QUuid>
#include <gtest/gtest.h>

using namespace tk::server;
using namespace tk::server::test;

namespace {

// Every row of every table of an SQLite file, as text, table by table.
QStringList dump(const QString& path) {
    const QString name = QUuid::createUuid().toString();
    QStringList out;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", name);
        db.setDatabaseName(path);
        db.setConnectOptions("QSQLITE_OPEN_READONLY");
        EXPECT_TRUE(db.open());
        QSqlQuery tables(db);
        tables.exec("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name");
        while (tables.next()) {
            const QString table = tables.value(0).toString();
            out << QString("[%1]").arg(table);
            QSqlQuery rows(db);
            rows.exec(QString("SELECT * FROM %1 ORDER BY rowid").arg(table));
            while (rows.next()) {
                QStringList values;
                for (int i = 0; i < rows.record().count(); ++i)
                    values << rows.value(i).toString();
                out << values.join(QLatin1Char('\x1f'));
            }
        }
    }
    QSqlDatabase::removeDatabase(name);
    return out;
}

QString newClass(const QString& naam) {
    return QString("OPSKLZ0><%1><N><n.jpg><Geen><><><1><Ja><><0,0><1").arg(naam);
}

const QByteArray jpeg = QByteArray("\xff\xd8\xff\xe0", 4) + QByteArray(50000, 'p') + "\xff\xd9";

} // namespace

TEST(ProblemCallTest, ACallWithItsScreenshotIsListedLoadedFetchedAndRemoved) {
    RunningServer s;
    WireClient c(s.port());
    c.ask("INFCOMPC-07");
    c.ask("LOCGROEP|1");
    EXPECT_EQ("HLPSNC1-1-2000 0:00:00|0", c.ask("HLPSNC"));

    EXPECT_EQ("HLPOPS", c.ask("HLPOPSManual;<>;PC-07;<>;Jan;<>;Bureaublad;<>;Paint;<>;"
                              "Start niet|Echt niet;<>;Ja;<>;3-5-2024 9:05:00"));
    {
        // Another file from the same address is not the screenshot: workstations behind one
        // address each upload their own.
        FileSender ander(s.options().uploadInfoPort, s.options().uploadDataPort);
        ander.offer("2.pic", jpeg);
        EXPECT_TRUE(waitFor([&] { return ander.refused(); }));
    }
    FileSender sender(s.options().uploadInfoPort, s.options().uploadDataPort);
    sender.offer("screenshot4711.jpg", jpeg);
    ASSERT_TRUE(waitFor([&] { return sender.finished(); }));

    const QStringList snc = c.ask("HLPSNC").mid(6).split(QLatin1Char('|'));
    ASSERT_EQ(2, snc.size());
    EXPECT_EQ("1", snc[1]);
    const QDateTime first = QDateTime::fromString(snc[0], "d-M-yyyy H:mm:ss");
    EXPECT_TRUE(first.isValid()) << snc[0].toStdString();

    const QStringList call = c.ask("HLPLDN1").mid(6).split(";<>;");
    ASSERT_EQ(10, call.size());
    const QString id = call[0];
    EXPECT_EQ((QStringList{id, "Manual", "3-5-2024", "9:05:00", "PC-07", "Jan", "Bureaublad",
                           "Paint", "Start niet|Echt niet", "Ja"}),
              call);
    EXPECT_EQ("GROEP|1", s.store().problemCalls().value(0).location);

    c.send("HLPSCR" + id);
    ASSERT_TRUE(waitFor([&] { return s.receiver().complete(); }));
    EXPECT_EQ(id + ".jpg", s.receiver().name());
    EXPECT_EQ(jpeg, s.receiver().content());

    // A fault report: ten fields, its type from the record, no screenshot.
    EXPECT_EQ("HLPOPS", c.ask("HLPOPS3-5-2024;<>;9:01:02;<>;PC-07;<>;Jan;<>;Start;<>;;<>;"
                              "frmMain.Laden in lijn 3|Fout 9;<>;Nee;<>;3-5-2024 9:01:02;<>;"
                              "Error report"));
    const QStringList fault = c.ask("HLPLDN2").mid(6).split(";<>;");
    EXPECT_EQ((QStringList{"Error report", "3-5-2024", "9:01:02", "PC-07", "Jan", "Start", "",
                           "frmMain.Laden in lijn 3|Fout 9", "Nee"}),
              fault.mid(1));

    converse(c, {{"HLPVWN" + id, "HLPVWNOK"}, {"HLPVWN" + id, "HLPVWNFOUT"}});
    const QStringList after = c.ask("HLPSNC").mid(6).split(QLatin1Char('|'));
    EXPECT_EQ("1", after.value(1));
    EXPECT_GT(QDateTime::fromString(after[0], "d-M-yyyy H:mm:ss"), first)
        << "each change moves the moment on, so that the client's mirror loads anew";
    EXPECT_EQ("HLPLDNFOUT", c.ask("HLPLDN2"));
    // A description holding the separator (a fault text quoting the wire), and a fault report
    // with no text: kept, and loaded back in their columns.
    const QString kop = "HLPOPS3-5-2024;<>;9:01:02;<>;PC-07;<>;Jan;<>;Start;<>;;<>;";
    const QString staart = ";<>;Nee;<>;3-5-2024 9:01:02;<>;Error report";
    const std::pair<QString, QString> omschrijvingen[] = {
        {kop + "OPSKLZ;<>;x;<>;y" + staart, "OPSKLZ; <>;x; <>;y"},
        {kop + staart, ""},
        {"HLPOPSManual;<>;PC;<>;Jan;<>;M;<>;A;<>;Kapot;<>;echt;<>;Nee;<>;1-1-2024 1:00:00",
         "Kapot; <>;echt"}};
    for (const auto& [bericht, omschrijving] : omschrijvingen) {
        SCOPED_TRACE(bericht.toStdString());
        EXPECT_EQ("HLPOPS", c.ask(bericht));
        const QStringList geladen =
            c.ask("HLPLDN" + QString::number(s.store().problemCalls().size())).mid(6).split(";<>;");
        ASSERT_EQ(10, geladen.size());
        EXPECT_EQ(omschrijving, geladen[8]);
    }
    // The newest call removed, the next one has an ID of its own.
    const auto nieuwste = [&] {
        return c.ask("HLPLDN" + QString::number(s.store().problemCalls().size()))
            .mid(6)
            .section(";<>;", 0, 0);
    };
    const QString weg = nieuwste();
    EXPECT_EQ("HLPVWNOK", c.ask("HLPVWN" + weg));
    c.ask(kop + staart);
    EXPECT_GT(nieuwste().toInt(), weg.toInt());
}

TEST(ProblemCallTest, BadRecordsAndABrokenUploadAreRefusedAndChangeNothing) {
    RunningServer s;
    WireClient c(s.port());
    WireClient other(s.port());
    const struct {
        const char* message;
        const char* reply;
    } cases[] = {
        {"HLPOPSalleen;<>;twee;<>;drie", "HLPOPSFOUT"},                    // too few fields
        {"HLPOPSa;<>;b;<>;c;<>;d;<>;e;<>;f;<>;g;<>;h;<>;i", "HLPOPSFOUT"}, // nine
        {"HLPOPSManual;<>;PC;<>;Jan;<>;M;<>;A;<>;;<>;Nee;<>;1-1-2024 1:00:00", "HLPOPSFOUT"},
        {"HLPLDN0", "HLPLDNFOUT"},
        {"HLPLDNx", "HLPLDNFOUT"},
        {"HLPVWN-1", "HLPVWNFOUT"},
        {"HLPSCR99", "HLPSCRFOUT"},
    };
    for (const auto& k : cases) {
        SCOPED_TRACE(k.message);
        EXPECT_EQ(k.reply, c.ask(k.message));
        EXPECT_EQ(0, s.store().problemCalls().size());
        EXPECT_EQ("TST", other.ask("TST"));
    }
    EXPECT_FALSE(s.receiver().complete()) << "no empty file is ever offered";

    // The upload of the screenshot stops half way: the call stays without one.
    EXPECT_EQ("HLPOPS", c.ask("HLPOPSManual;<>;PC;<>;Jan;<>;M;<>;A;<>;Kapot;<>;Ja;<>;"
                              "1-1-2024 1:00:00"));
    {
        FileSender sender(s.options().uploadInfoPort, s.options().uploadDataPort);
        sender.offer("screenshot1.jpg", jpeg, jpeg.size() / 2);
        EXPECT_TRUE(waitFor([&] { return s.server().transfers().activeTransfers() == 1; }));
        sender.abort();
    }
    waitFor([&] { return s.server().transfers().activeTransfers() == 0; });
    ASSERT_EQ(1, s.store().problemCalls().size());
    EXPECT_FALSE(s.store().problemCalls()[0].screenshot);
    EXPECT_TRUE(c.ask("HLPLDN1").endsWith(";<>;Nee"));
    EXPECT_EQ("HLPSCRFOUT", c.ask(QString("HLPSCR%1").arg(s.store().problemCalls()[0].id)));
    EXPECT_EQ("TST", other.ask("TST"));
}

TEST(BackupTest, ABackupTakenWhileAnotherConnectionSavesIsWhatARestoreBringsBack) {
    RunningServer s;
    s.server().backups().setPagesPerStep(1); // many steps: the other connection is served between
    {
        // A store of some hundreds of pages, so that the backup takes many steps.
        Store::ProblemCall call;
        call.omschrijving = "groot";
        QString why;
        ASSERT_TRUE(s.store().addProblemCall(&call, &why));
        ASSERT_TRUE(s.store().attachScreenshot(call.id, QByteArray(2 * 1024 * 1024, 's'), &why));
        ASSERT_TRUE(s.store().saveIcon(0, 1, "oud", &why));
    }
    const QString live = QDir(s.dataFolder()).filePath("tafelkrater.sqlite");
    WireClient admin(s.port());
    WireClient teacher(s.port());
    EXPECT_EQ("BCK", admin.ask("BCKLST"));

    admin.send("BCKMKB");
    int saves = 0;
    QString made;
    QStringList beforeLastSave = dump(live);
    while (made.isEmpty() && saves < 5000) {
        beforeLastSave = dump(live);
        EXPECT_EQ("OPSITSOK", teacher.ask(QString("OPSITSsite%1.nl").arg(saves)));
        ++saves;
        if (!admin.reads().isEmpty())
            made = admin.next();
    }
    ASSERT_TRUE(made.startsWith("BCK")) << made.toStdString();
    const QString name = made.mid(3);
    EXPECT_TRUE(BackupKeeper::isBackupName(name)) << name.toStdString();
    EXPECT_GT(saves, 1) << "the saves were served while the backup ran";
    const QString backup = QDir(s.dataFolder()).filePath("Backups/" + name);
    // The backup ended either after the last save or while it was still on its way.
    const QStringList atBackup = dump(backup);
    EXPECT_TRUE(atBackup == dump(live) || atBackup == beforeLastSave)
        << "the backup is the store as it was at one moment, with every save made before";
    EXPECT_GE(atBackup.count("[classes]"), 1);
    EXPECT_EQ("BCK" + name, admin.ask("BCKLST"));

    // A second backup in the same second gets a name of its own; both are listed, oldest first.
    // A backup of this store takes many steps: on a loaded machine more than a reply's usual wait.
    admin.send("BCKMKB");
    const QString second = admin.next(60000).mid(3);
    EXPECT_NE(name, second);
    EXPECT_EQ("BCK" + name + QLatin1Char('|') + second, admin.ask("BCKLST"));

    EXPECT_TRUE(teacher.ask(newClass("Na de backup")).startsWith("OPSKLZ"));
    QString why;
    ASSERT_TRUE(s.store().saveIcon(0, 1, "nieuw", &why));
    const QDateTime gezien = s.store().iconsChanged(0); // a workstation fetched "nieuw"
    EXPECT_NE(atBackup, dump(live));
    EXPECT_EQ("BCKOK", admin.ask("BCKRST" + name));
    // The store is the backup again, but for the icons' dates: they go past what any
    // workstation saw, so that each fetches the restored icons.
    const auto zonderIcoondatums = [](const QStringList& d) {
        QStringList uit;
        bool icons = false;
        for (const QString& r : d) {
            if (r.startsWith('['))
                icons = r == "[icons]";
            if (icons && !r.startsWith('['))
                uit << r.section('\x1f', 0, 1) + r.section('\x1f', 3); // kind, ID, data
            else if (!r.startsWith("icons_changed"))
                uit << r;
        }
        return uit;
    };
    EXPECT_EQ(zonderIcoondatums(atBackup), zonderIcoondatums(dump(live)));
    EXPECT_EQ("oud", s.store().icon(0, 1));
    EXPECT_GT(s.store().iconsChanged(0), gezien);
    EXPECT_GT(s.store().icons(0).value(0).changed, gezien);
    const QString sites = teacher.ask("LDNITS").mid(6);
    EXPECT_TRUE(atBackup.contains("allowed_sites\x1f" + sites))
        << "loads see the restored store at once";
}

TEST(BackupTest, ARestoreOfAMissingEscapingOrDamagedBackupIsRefusedAndChangesNothing) {
    RunningServer s;
    const QString live = QDir(s.dataFolder()).filePath("tafelkrater.sqlite");
    WireClient admin(s.port());
    WireClient other(s.port());
    const QString good = admin.ask("BCKMKB").mid(3);
    writeFile(QDir(s.dataFolder()).filePath("Backups/1-1-2020 10.00.00.backup"),
              QByteArray(8192, 'x'));
    writeFile(QDir(s.dataFolder()).filePath("Backups/2-1-2020 10.00.00.backup"), "SQLite format 3");
    const QStringList before = dump(live);
    const char* const names[] = {
        "",
        "9-9-2099 10.00.00.backup", // does not exist
        "../tafelkrater.sqlite",    // leaves the folder
        "../../etc/passwd",
        "..\\tafelkrater.sqlite",
        "/etc/passwd",
        "1-1-2020 10.00.00.backup/../../tafelkrater.sqlite",
        "1-1-2020 10.00.00.backup", // not a store
        "2-1-2020 10.00.00.backup", // cut off
    };
    for (const char* n : names) {
        SCOPED_TRACE(n);
        EXPECT_EQ("BCKFOUT", admin.ask("BCKRST" + QString::fromLatin1(n)));
        EXPECT_EQ(before, dump(live));
        EXPECT_EQ("TST", other.ask("TST"));
    }
    EXPECT_EQ("BCKOK", admin.ask("BCKRST" + good));
}

TEST(UpdateTest, AVersionIsOfferedOnlyWhenAPackageIsThereAndComesOverTheTransfer) {
    QTemporaryDir updates;
    RunningServer s([&](ServerOptions& o) { o.updatesFolder = updates.path(); });
    WireClient c(s.port());
    // Nothing on offer: the client's own version, so that it stays as it is.
    converse(c, {{"INFVER2.4.1", "INFVER"},
                 {"UPDVER2.4.1", "UPDVER2.4.1"},
                 {"UPDVER", "UPDVER2.4.1"},
                 {"UPDCON", "UPDCON2.4.1"},
                 {"UPDOPHINF", "UPDOPHINFFOUT"}});
    c.send("UPDOPHREQ");
    EXPECT_EQ(QString(), c.next(400)) << "the client waits for a transfer, never for a reply";
    EXPECT_FALSE(s.receiver().complete()) << "no empty file is ever offered";

    writeFile(updates.filePath("2.5.0.zip"), QByteArray(100000, 'a'));
    writeFile(updates.filePath("2.10.0.zip"), QByteArray(120000, 'b'));
    writeFile(updates.filePath("9.9.9.zip"), QByteArray()); // empty: ignored
    writeFile(updates.filePath("leesmij.txt"), "geen versie");
    // Versions compare as numbers.
    converse(c, {{"UPDVER2.4.1", "UPDVER2.10.0"},
                 {"UPDCON", "UPDCON2.10.0"},
                 {"UPDOPHINF", QString("UPDOPHINF%1|%2|2.10.0.zip")
                                   .arg(s.receiver().dataPort())
                                   .arg(s.receiver().infoPort())}});
    c.send("UPDOPHREQ");
    ASSERT_TRUE(waitFor([&] { return s.receiver().complete(); }));
    EXPECT_EQ("2.10.0.zip", s.receiver().name());
    EXPECT_EQ(QByteArray(120000, 'b'), s.receiver().content());
    EXPECT_EQ(QString(), UpdateOffer::versionOf("2.5.zip"));
    EXPECT_EQ(QString(), UpdateOffer::versionOf("1.99999.0.zip"));
}

TEST(ThemeCatalogueTest, ACatalogueThemeIsAddedOfferedAndRemovedButTheDefaultStays) {
    RunningServer s;
    const QString catalogue = QDir(s.dataFolder()).filePath("Themacatalogus");
    writeFile(
        catalogue + "/8/Instellingen.ini",
        "[Algemeen]\r\nNaam=Bos\r\nOmschrijving=Groen|donker\r\nVersie=1.0.1\r\nKosten=2.50\r\n");
    writeFile(catalogue + "/8/knop.bmp", QByteArray(300, 'k'));
    writeFile(catalogue + "/leeg/readme.txt", "geen thema");
    // Named so that its package request would read as a removal: never offered.
    writeFile(catalogue + "/Vos/Instellingen.ini", "[Algemeen]\r\nNaam=Vos\r\nVersie=1.0\r\n");
    QString why;
    ASSERT_TRUE(s.store().saveTheme({"1", "1.0.0", true}, QByteArray("pakket"), &why));
    WireClient c(s.port());
    converse(c, {{"LDNTHD", "LDNTHD8|Bos|Groen/donker|2.50|1.0.1"},
                 {"LDNTHO8|", "LDNTHOOK"},
                 {"LDNTHE", "LDNTHE1|1.0.0|JA><8|1.0.1|NEE"},
                 {"LDNTHO../8|", "LDNTHOFOUT"},
                 {"LDNTHOleeg|", "LDNTHOFOUT"},
                 {"LDNTHV1", "LDNTHVFOUT"}, // the default
                 {"LDNTHV8", "LDNTHVOK"},
                 {"LDNTHV8", "LDNTHVFOUT"},
                 {"LDNTHE", "LDNTHE1|1.0.0|JA"}});
}

namespace {

// A plain HTTP GET of a raw path, so that paths a browser would clean up go out as they are.
QPair<int, QByteArray> get(int port, const QByteArray& path) {
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, quint16(port));
    if (!socket.waitForConnected(3000))
        return {-1, {}};
    socket.write("GET " + path + " HTTP/1.1\r\nHost: school\r\nConnection: close\r\n\r\n");
    QByteArray all;
    while (socket.waitForReadyRead(3000))
        all += socket.readAll();
    all += socket.readAll();
    const int end = all.indexOf("\r\n\r\n");
    return {all.mid(9, 3).toInt(), end < 0 ? QByteArray() : all.mid(end + 4)};
}

} // namespace

TEST(WebSideTest, TheClientsPathsAreServedAndNothingOutsideTheFolder) {
    QTemporaryDir data;
    QTemporaryDir updates;
    const QString web = data.filePath("Web");
    writeFile(web + "/verbodenwoorden.txt", "woord1\r\nwoord2\r\n");
    writeFile(web + "/geblokkeerdesites.txt", "slecht.nl\r\n");
    writeFile(web + "/extra/startup.exe", "launcher");
    writeFile(web + "/themainfo/8s.jpg", jpeg);
    writeFile(web + "/changelog.html", "<p>algemeen</p>");
    writeFile(web + "/changelog/2.5.0.html", "<p>2.5.0</p>");
    writeFile(data.filePath("geheim.txt"), "geheim");
    writeFile(updates.filePath("2.5.0.zip"), "client package");
    writeFile(updates.filePath("server/3.1.0.zip"), "server package");
    QFile::link(data.filePath("geheim.txt"), web + "/extra/link.txt");

    WebServer server(web, UpdateOffer(updates.path()));
    QString error;
    ASSERT_TRUE(server.start(0, &error)) << error.toStdString();
    const struct {
        const char* path;
        int status;
        const char* body; // nullptr: not checked
    } cases[] = {
        {"/applicatie/verbodenwoorden.txt", 200, "woord1\r\nwoord2\r\n"},
        {"/applicatie/geblokkeerdesites.txt", 200, "slecht.nl\r\n"},
        {"/applicatie/extra/startup.exe", 200, "launcher"},
        {"/applicatie/extra/tabstrip.ocx", 404, nullptr},
        {"/applicatie/themainfo/8s.jpg", 200, nullptr},
        {"/applicatie/download_changelog.php4?versie=2.5.0&update", 200, "<p>2.5.0</p>"},
        {"/applicatie/download_changelog.php4?versie=2.4.1", 200, "<p>algemeen</p>"},
        {"/applicatie/data.php?standalone", 200,
         "[Informatie]\r\nClient_versie=2.5.0\r\nClient_locatie=2.5.0.zip\r\n"
         "Server_versie=3.1.0\r\nServer_locatie=3.1.0.zip\r\n"},
        {"/applicatie/data.php?standalone&beta", 200, nullptr},
        {"/applicatie/update.php?standalone&type=Client", 200, "client package"},
        {"/applicatie/update.php?standalone&type=Server&beta", 200, "server package"},
        {"/applicatie/update.php?standalone&type=Iets", 404, nullptr},
        {"/applicatie/../geheim.txt", 403, nullptr},
        {"/applicatie/extra/../../geheim.txt", 403, nullptr},
        {"/applicatie/extra/%2e%2e/%2e%2e/geheim.txt", 403, nullptr},
        {"/applicatie/extra/..%2f..%2fgeheim.txt", 403, nullptr},
        {"/applicatie/extra/..%5c..%5cgeheim.txt", 403, nullptr},
        {"/applicatie/extra/link.txt", 403, nullptr}, // a link out of the folder
        {"/applicatie/download_changelog.php4?versie=../../geheim", 200, "<p>algemeen</p>"},
        {"/geheim.txt", 404, nullptr},
        {"/Web/verbodenwoorden.txt", 404, nullptr},
    };
    for (const auto& k : cases) {
        SCOPED_TRACE(k.path);
        const auto [status, body] = get(server.port(), k.path);
        EXPECT_EQ(k.status, status);
        if (k.body) {
            EXPECT_EQ(QByteArray(k.body), body);
        }
        EXPECT_FALSE(body.contains("geheim") && k.status != 200);
    }
    // A request line that is no path at all is refused by the library itself.
    const auto [status, body] = get(server.port(), "../geheim.txt");
    EXPECT_GE(status, 400);
    EXPECT_FALSE(body.contains("geheim"));
    EXPECT_EQ(200, get(server.port(), "/applicatie/verbodenwoorden.txt").first) << "still serving";
}
