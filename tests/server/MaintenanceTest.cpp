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

void writeFile(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

// Every row of every table of an SQLite file, as text, table by table.
QStringList dump(const QString& path) {
    const QString name = QUuid::createUuid().toString();
    QStringList out;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        db.setDatabaseName(path);
        db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        EXPECT_TRUE(db.open());
        QSqlQuery tables(db);
        tables.exec(
            QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"));
        while (tables.next()) {
            const QString table = tables.value(0).toString();
            out << QStringLiteral("[%1]").arg(table);
            QSqlQuery rows(db);
            rows.exec(QStringLiteral("SELECT * FROM %1 ORDER BY rowid").arg(table));
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
    return QStringLiteral("OPSKLZ0><%1><N><n.jpg><Geen><><><1><Ja><><0,0><1").arg(naam);
}

const QByteArray jpeg = QByteArray("\xff\xd8\xff\xe0", 4) + QByteArray(50000, 'p') + "\xff\xd9";

} // namespace

TEST(ProblemCallTest, ACallWithItsScreenshotIsListedLoadedFetchedAndRemoved) {
    RunningServer s;
    WireClient c(s.port());
    c.ask(QStringLiteral("INFCOMPC-07"));
    c.ask(QStringLiteral("LOCGROEP|1"));
    EXPECT_EQ(QStringLiteral("HLPSNC1-1-2000 0:00:00|0"), c.ask(QStringLiteral("HLPSNC")));

    EXPECT_EQ(QStringLiteral("HLPOPS"),
              c.ask(QStringLiteral("HLPOPSManual;<>;PC-07;<>;Jan;<>;Bureaublad;<>;Paint;<>;"
                                   "Start niet|Echt niet;<>;Ja;<>;3-5-2024 9:05:00")));
    FileSender sender(s.options().uploadInfoPort, s.options().uploadDataPort);
    sender.offer(QStringLiteral("screenshot4711.jpg"), jpeg);
    ASSERT_TRUE(waitFor([&] { return sender.finished(); }));

    const QStringList snc = c.ask(QStringLiteral("HLPSNC")).mid(6).split(QLatin1Char('|'));
    ASSERT_EQ(2, snc.size());
    EXPECT_EQ(QStringLiteral("1"), snc[1]);
    const QDateTime first = QDateTime::fromString(snc[0], QStringLiteral("d-M-yyyy H:mm:ss"));
    EXPECT_TRUE(first.isValid()) << snc[0].toStdString();

    const QStringList call = c.ask(QStringLiteral("HLPLDN1")).mid(6).split(QStringLiteral(";<>;"));
    ASSERT_EQ(10, call.size());
    const QString id = call[0];
    EXPECT_EQ(
        (QStringList{id, QStringLiteral("Manual"), QStringLiteral("3-5-2024"),
                     QStringLiteral("9:05:00"), QStringLiteral("PC-07"), QStringLiteral("Jan"),
                     QStringLiteral("Bureaublad"), QStringLiteral("Paint"),
                     QStringLiteral("Start niet|Echt niet"), QStringLiteral("Ja")}),
        call);
    EXPECT_EQ(QStringLiteral("GROEP|1"), s.store().problemCalls().value(0).location);

    c.send(QStringLiteral("HLPSCR") + id);
    ASSERT_TRUE(waitFor([&] { return s.receiver().complete(); }));
    EXPECT_EQ(id + QStringLiteral(".jpg"), s.receiver().name());
    EXPECT_EQ(jpeg, s.receiver().content());

    // A fault report: ten fields, its type from the record, no screenshot.
    EXPECT_EQ(QStringLiteral("HLPOPS"),
              c.ask(QStringLiteral("HLPOPS3-5-2024;<>;9:01:02;<>;PC-07;<>;Jan;<>;Start;<>;;<>;"
                                   "frmMain.Laden in lijn 3|Fout 9;<>;Nee;<>;3-5-2024 9:01:02;<>;"
                                   "Error report")));
    const QStringList fault = c.ask(QStringLiteral("HLPLDN2")).mid(6).split(QStringLiteral(";<>;"));
    ASSERT_EQ(10, fault.size());
    EXPECT_EQ(QStringLiteral("Error report"), fault[1]);
    EXPECT_EQ(QStringLiteral("frmMain.Laden in lijn 3|Fout 9"), fault[8]);
    EXPECT_EQ(QStringLiteral("Nee"), fault[9]);

    EXPECT_EQ(QStringLiteral("HLPVWNOK"), c.ask(QStringLiteral("HLPVWN") + id));
    EXPECT_EQ(QStringLiteral("HLPVWNFOUT"), c.ask(QStringLiteral("HLPVWN") + id));
    const QStringList after = c.ask(QStringLiteral("HLPSNC")).mid(6).split(QLatin1Char('|'));
    EXPECT_EQ(QStringLiteral("1"), after.value(1));
    EXPECT_GT(QDateTime::fromString(after[0], QStringLiteral("d-M-yyyy H:mm:ss")), first)
        << "each change moves the moment on, so that the client's mirror loads anew";
    EXPECT_EQ(QStringLiteral("HLPLDNFOUT"), c.ask(QStringLiteral("HLPLDN2")));
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
        EXPECT_EQ(QString::fromLatin1(k.reply), c.ask(QString::fromLatin1(k.message)));
        EXPECT_EQ(0, s.store().problemCalls().size());
        EXPECT_EQ(QStringLiteral("TST"), other.ask(QStringLiteral("TST")));
    }
    EXPECT_FALSE(s.receiver().complete()) << "no empty file is ever offered";

    // The upload of the screenshot stops half way: the call stays without one.
    EXPECT_EQ(QStringLiteral("HLPOPS"),
              c.ask(QStringLiteral("HLPOPSManual;<>;PC;<>;Jan;<>;M;<>;A;<>;Kapot;<>;Ja;<>;"
                                   "1-1-2024 1:00:00")));
    {
        FileSender sender(s.options().uploadInfoPort, s.options().uploadDataPort);
        sender.offer(QStringLiteral("screenshot1.jpg"), jpeg, jpeg.size() / 2);
        waitFor([] { return false; }, 300);
        sender.abort();
    }
    waitFor([&] { return s.server().transfers().activeTransfers() == 0; });
    ASSERT_EQ(1, s.store().problemCalls().size());
    EXPECT_FALSE(s.store().problemCalls()[0].screenshot);
    EXPECT_TRUE(c.ask(QStringLiteral("HLPLDN1")).endsWith(QStringLiteral(";<>;Nee")));
    EXPECT_EQ(QStringLiteral("HLPSCRFOUT"),
              c.ask(QStringLiteral("HLPSCR%1").arg(s.store().problemCalls()[0].id)));
    EXPECT_EQ(QStringLiteral("TST"), other.ask(QStringLiteral("TST")));
}

TEST(BackupTest, ABackupTakenWhileAnotherConnectionSavesIsWhatARestoreBringsBack) {
    RunningServer s;
    s.server().backups().setPagesPerStep(1); // many steps: the other connection is served between
    {
        // A store of some hundreds of pages, so that the backup takes many steps.
        Store::ProblemCall call;
        call.omschrijving = QStringLiteral("groot");
        QString why;
        ASSERT_TRUE(s.store().addProblemCall(&call, &why));
        ASSERT_TRUE(s.store().attachScreenshot(call.id, QByteArray(2 * 1024 * 1024, 's'), &why));
    }
    const QString live = QDir(s.dataFolder()).filePath(QStringLiteral("tafelkrater.sqlite"));
    WireClient admin(s.port());
    WireClient teacher(s.port());
    EXPECT_EQ(QStringLiteral("BCK"), admin.ask(QStringLiteral("BCKLST")));

    admin.send(QStringLiteral("BCKMKB"));
    int saves = 0;
    QString made;
    QStringList beforeLastSave = dump(live);
    while (made.isEmpty() && saves < 5000) {
        beforeLastSave = dump(live);
        EXPECT_EQ(QStringLiteral("OPSITSOK"),
                  teacher.ask(QStringLiteral("OPSITSsite%1.nl").arg(saves)));
        ++saves;
        if (!admin.reads().isEmpty())
            made = admin.next();
    }
    ASSERT_TRUE(made.startsWith(QStringLiteral("BCK"))) << made.toStdString();
    const QString name = made.mid(3);
    EXPECT_TRUE(BackupKeeper::isBackupName(name)) << name.toStdString();
    EXPECT_GT(saves, 1) << "the saves were served while the backup ran";
    const QString backup = QDir(s.dataFolder()).filePath(QStringLiteral("Backups/") + name);
    // The backup ended either after the last save or while it was still on its way.
    const QStringList atBackup = dump(backup);
    EXPECT_TRUE(atBackup == dump(live) || atBackup == beforeLastSave)
        << "the backup is the store as it was at one moment, with every save made before";
    EXPECT_GE(atBackup.count(QStringLiteral("[classes]")), 1);
    EXPECT_EQ(QStringLiteral("BCK") + name, admin.ask(QStringLiteral("BCKLST")));

    // A second backup in the same second gets a name of its own; both are listed, oldest first.
    const QString second = admin.ask(QStringLiteral("BCKMKB")).mid(3);
    EXPECT_NE(name, second);
    EXPECT_EQ(QStringLiteral("BCK") + name + QLatin1Char('|') + second,
              admin.ask(QStringLiteral("BCKLST")));

    EXPECT_TRUE(
        teacher.ask(newClass(QStringLiteral("Na de backup"))).startsWith(QStringLiteral("OPSKLZ")));
    EXPECT_NE(atBackup, dump(live));
    EXPECT_EQ(QStringLiteral("BCKOK"), admin.ask(QStringLiteral("BCKRST") + name));
    EXPECT_EQ(atBackup, dump(live)) << "the store is the backup again";
    const QString sites = teacher.ask(QStringLiteral("LDNITS")).mid(6);
    EXPECT_TRUE(atBackup.contains(QStringLiteral("allowed_sites\x1f") + sites))
        << "loads see the restored store at once";
}

TEST(BackupTest, ARestoreOfAMissingEscapingOrDamagedBackupIsRefusedAndChangesNothing) {
    RunningServer s;
    const QString live = QDir(s.dataFolder()).filePath(QStringLiteral("tafelkrater.sqlite"));
    WireClient admin(s.port());
    WireClient other(s.port());
    const QString good = admin.ask(QStringLiteral("BCKMKB")).mid(3);
    writeFile(QDir(s.dataFolder()).filePath(QStringLiteral("Backups/1-1-2020 10.00.00.backup")),
              QByteArray(8192, 'x'));
    writeFile(QDir(s.dataFolder()).filePath(QStringLiteral("Backups/2-1-2020 10.00.00.backup")),
              "SQLite format 3");
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
        EXPECT_EQ(QStringLiteral("BCKFOUT"),
                  admin.ask(QStringLiteral("BCKRST") + QString::fromLatin1(n)));
        EXPECT_EQ(before, dump(live));
        EXPECT_EQ(QStringLiteral("TST"), other.ask(QStringLiteral("TST")));
    }
    EXPECT_EQ(QStringLiteral("BCKOK"), admin.ask(QStringLiteral("BCKRST") + good));
}

TEST(UpdateTest, AVersionIsOfferedOnlyWhenAPackageIsThereAndComesOverTheTransfer) {
    QTemporaryDir updates;
    RunningServer s(true, 60, updates.path());
    WireClient c(s.port());
    c.ask(QStringLiteral("INFVER2.4.1"));
    // Nothing on offer: the client's own version, so that it stays as it is.
    EXPECT_EQ(QStringLiteral("UPDVER2.4.1"), c.ask(QStringLiteral("UPDVER2.4.1")));
    EXPECT_EQ(QStringLiteral("UPDVER2.4.1"), c.ask(QStringLiteral("UPDVER")));
    EXPECT_EQ(QStringLiteral("UPDCON2.4.1"), c.ask(QStringLiteral("UPDCON")));
    EXPECT_EQ(QStringLiteral("UPDOPHINFFOUT"), c.ask(QStringLiteral("UPDOPHINF")));
    c.send(QStringLiteral("UPDOPHREQ"));
    EXPECT_EQ(QString(), c.next(400)) << "the client waits for a transfer, never for a reply";
    EXPECT_FALSE(s.receiver().complete()) << "no empty file is ever offered";

    writeFile(updates.filePath(QStringLiteral("2.5.0.zip")), QByteArray(100000, 'a'));
    writeFile(updates.filePath(QStringLiteral("2.10.0.zip")), QByteArray(120000, 'b'));
    writeFile(updates.filePath(QStringLiteral("9.9.9.zip")), QByteArray()); // empty: ignored
    writeFile(updates.filePath(QStringLiteral("leesmij.txt")), "geen versie");
    EXPECT_EQ(QStringLiteral("UPDVER2.10.0"), c.ask(QStringLiteral("UPDVER2.4.1")))
        << "versions compare as numbers";
    EXPECT_EQ(QStringLiteral("UPDCON2.10.0"), c.ask(QStringLiteral("UPDCON")));
    EXPECT_EQ(QStringLiteral("UPDOPHINF%1|%2|2.10.0.zip")
                  .arg(s.receiver().dataPort())
                  .arg(s.receiver().infoPort()),
              c.ask(QStringLiteral("UPDOPHINF")));
    c.send(QStringLiteral("UPDOPHREQ"));
    ASSERT_TRUE(waitFor([&] { return s.receiver().complete(); }));
    EXPECT_EQ(QStringLiteral("2.10.0.zip"), s.receiver().name());
    EXPECT_EQ(QByteArray(120000, 'b'), s.receiver().content());
    EXPECT_EQ(QString(), UpdateOffer::versionOf(QStringLiteral("2.5.zip")));
    EXPECT_EQ(QString(), UpdateOffer::versionOf(QStringLiteral("1.99999.0.zip")));
}

TEST(ServerSettingsTest, SettingsAreStoredAndStayAfterARestart) {
    RunningServer s;
    {
        WireClient c(s.port());
        const QStringList fresh =
            c.ask(QStringLiteral("LDNSIN")).mid(6).split(QStringLiteral(";<>;"));
        ASSERT_EQ(4, fresh.size());
        EXPECT_EQ(QStringLiteral("NEE"), fresh[1]);
        EXPECT_EQ(QStringLiteral("OPSSIN"), c.ask(QStringLiteral("OPSSIN6;<>;Ja;<>;JA;<>;Nee")));
        EXPECT_EQ(QStringLiteral("OPSSINFOUT"), c.ask(QStringLiteral("OPSSIN6;<>;NEE")));
        EXPECT_EQ(QStringLiteral("OPSSINFOUT"),
                  c.ask(QStringLiteral("OPSSIN5;<>;NEE;<>;NEE;<>;Nee")));
    }
    s.restart();
    WireClient c(s.port());
    const QStringList f = c.ask(QStringLiteral("LDNSIN")).mid(6).split(QStringLiteral(";<>;"));
    ASSERT_EQ(4, f.size());
    EXPECT_EQ(3, f[0].split(QLatin1Char('.')).size()) << "the server's version";
    EXPECT_EQ(QStringLiteral("JA"), f[1]);
    EXPECT_EQ(QStringLiteral("JA"), f[2]);
}

TEST(ThemeCatalogueTest, ACatalogueThemeIsAddedOfferedAndRemovedButTheDefaultStays) {
    RunningServer s;
    const QString catalogue = QDir(s.dataFolder()).filePath(QStringLiteral("Themacatalogus"));
    writeFile(
        catalogue + QStringLiteral("/8/Instellingen.ini"),
        "[Algemeen]\r\nNaam=Bos\r\nOmschrijving=Groen|donker\r\nVersie=1.0.1\r\nKosten=2.50\r\n");
    writeFile(catalogue + QStringLiteral("/8/knop.bmp"), QByteArray(300, 'k'));
    writeFile(catalogue + QStringLiteral("/leeg/readme.txt"), "geen thema");
    QString why;
    ASSERT_TRUE(s.store().saveTheme({QStringLiteral("1"), QStringLiteral("1.0.0"), true},
                                    QByteArray("pakket"), &why));
    WireClient c(s.port());
    EXPECT_EQ(QStringLiteral("LDNTHD8|Bos|Groen/donker|2.50|1.0.1"),
              c.ask(QStringLiteral("LDNTHD")));
    EXPECT_EQ(QStringLiteral("LDNTHOOK"), c.ask(QStringLiteral("LDNTHO8|")));
    EXPECT_EQ(QStringLiteral("LDNTHE1|1.0.0|JA><8|1.0.1|NEE"), c.ask(QStringLiteral("LDNTHE")));
    EXPECT_EQ(QStringLiteral("LDNTHOFOUT"), c.ask(QStringLiteral("LDNTHO../8|")));
    EXPECT_EQ(QStringLiteral("LDNTHOFOUT"), c.ask(QStringLiteral("LDNTHOleeg|")));
    EXPECT_EQ(QStringLiteral("LDNTHVFOUT"), c.ask(QStringLiteral("LDNTHV1"))) << "the default";
    EXPECT_EQ(QStringLiteral("LDNTHVOK"), c.ask(QStringLiteral("LDNTHV8")));
    EXPECT_EQ(QStringLiteral("LDNTHVFOUT"), c.ask(QStringLiteral("LDNTHV8")));
    EXPECT_EQ(QStringLiteral("LDNTHE1|1.0.0|JA"), c.ask(QStringLiteral("LDNTHE")));
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
    const QString web = data.filePath(QStringLiteral("Web"));
    writeFile(web + QStringLiteral("/verbodenwoorden.txt"), "woord1\r\nwoord2\r\n");
    writeFile(web + QStringLiteral("/geblokkeerdesites.txt"), "slecht.nl\r\n");
    writeFile(web + QStringLiteral("/extra/startup.exe"), "launcher");
    writeFile(web + QStringLiteral("/themainfo/8s.jpg"), jpeg);
    writeFile(web + QStringLiteral("/changelog.html"), "<p>algemeen</p>");
    writeFile(web + QStringLiteral("/changelog/2.5.0.html"), "<p>2.5.0</p>");
    writeFile(data.filePath(QStringLiteral("geheim.txt")), "geheim");
    writeFile(updates.filePath(QStringLiteral("2.5.0.zip")), "client package");
    writeFile(updates.filePath(QStringLiteral("server/3.1.0.zip")), "server package");
    QFile::link(data.filePath(QStringLiteral("geheim.txt")),
                web + QStringLiteral("/extra/link.txt"));

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
