// A backup of a big store while clients load: 10,000 problem calls with screenshots (about
// 100 MB) are put in a fresh store, the real server is started on it, and this prints
//   - a plain cp of the store file, for comparison;
//   - the backup (BCKMKB until its reply) with nobody else on the line;
//   - 50 clients loading at once (each a lock-step run of load requests), without a backup;
//   - the same 50 clients while a backup runs, and the backup's own time then.
// Run by hand: ./tk_server_backup_bench [clients] [calls]
#include "server/Store.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

using tk::server::Store;

namespace {

QString s(const char* t) {
    return QString::fromLatin1(t);
}

// The schema comes from the store itself; the rows go in one transaction of our own, far faster
// than 20,000 single changes.
bool seed(const QString& folder, int calls) {
    QString error;
    {
        Store store;
        if (!store.open(folder, &error)) {
            std::fprintf(stderr, "seed: %s\n", qPrintable(error));
            return false;
        }
    }
    bool ok = true;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(s("QSQLITE"), s("seed"));
        db.setDatabaseName(folder + s("/tafelkrater.sqlite"));
        ok = db.open() && db.transaction();
        QSqlQuery insert(db);
        QSqlQuery screenshot(db);
        ok = ok &&
             insert.prepare(
                 s("INSERT INTO problem_calls(id, type, datum, tijd, computernaam, rapporteur,"
                   " module, applicatie, omschrijving, location, screenshot)"
                   " VALUES(?,?,?,?,?,?,?,?,?,?,1)")) &&
             screenshot.prepare(s("INSERT INTO problem_screenshots(id, data) VALUES(?, ?)"));
        QByteArray picture(10 * 1024, Qt::Uninitialized);
        for (int i = 0; ok && i < calls; ++i) {
            // Bytes that do not compress, as a real JPEG.
            QRandomGenerator::global()->fillRange(reinterpret_cast<quint32*>(picture.data()),
                                                  picture.size() / 4);
            insert.addBindValue(i + 1);
            for (const QString& v :
                 {s("Manual"), s("3-5-2024"), s("9:05:00"), QStringLiteral("PC-%1").arg(i % 60),
                  s("Jan"), s("Bureaublad"), s("Paint"),
                  QStringLiteral("Het programma start niet, melding %1").arg(i), s("GLOBAL")})
                insert.addBindValue(v);
            screenshot.addBindValue(i + 1);
            screenshot.addBindValue(picture);
            ok = insert.exec() && screenshot.exec();
        }
        ok = ok && db.commit();
        if (!ok)
            std::fprintf(stderr, "seed: %s\n", qPrintable(db.lastError().text()));
        db.close();
    }
    QSqlDatabase::removeDatabase(s("seed"));
    return ok;
}

// One client: connects and asks its list of requests one after the other.
class LoadingClient {
public:
    LoadingClient(quint16 port, const QStringList& requests, int* done)
        : m_requests(requests), m_done(done) {
        QObject::connect(&m_socket, &QTcpSocket::connected, [this] { next(); });
        QObject::connect(&m_socket, &QTcpSocket::readyRead, [this] {
            m_socket.readAll();
            next();
        });
        m_clock.start();
        m_socket.connectToHost(QHostAddress::LocalHost, port);
    }
    qint64 ms() const { return m_ms; }

private:
    void next() {
        if (m_at < m_requests.size()) {
            m_socket.write(m_requests[m_at++].toLatin1());
            return;
        }
        if (m_ms < 0) {
            m_ms = m_clock.elapsed();
            ++*m_done;
            m_socket.disconnectFromHost();
        }
    }
    QTcpSocket m_socket;
    QStringList m_requests;
    int* m_done;
    int m_at = 0;
    qint64 m_ms = -1;
    QElapsedTimer m_clock;
};

quint16 freePort() {
    QTcpServer probe;
    probe.listen(QHostAddress::Any, 0);
    return probe.serverPort();
}

struct LoadResult {
    qint64 wallMs = 0;
    qint64 medianMs = 0;
    qint64 maxMs = 0;
};

LoadResult load(QProcess& server, quint16 port, int clients, const QStringList& requests) {
    int done = 0;
    QElapsedTimer clock;
    clock.start();
    std::vector<std::unique_ptr<LoadingClient>> all;
    for (int i = 0; i < clients; ++i)
        all.push_back(std::make_unique<LoadingClient>(port, requests, &done));
    while (done < clients && clock.elapsed() < 300000) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        server.readAllStandardOutput();
    }
    LoadResult r;
    r.wallMs = clock.elapsed();
    std::vector<qint64> times;
    for (const auto& c : all)
        times.push_back(c->ms());
    std::sort(times.begin(), times.end());
    r.medianMs = times[times.size() / 2];
    r.maxMs = times.back();
    return r;
}

// Sends BCKMKB on its own connection; `ms` gets the time to the reply.
class BackupClient {
public:
    explicit BackupClient(quint16 port) {
        QObject::connect(&m_socket, &QTcpSocket::connected, [this] {
            m_clock.start();
            m_socket.write("BCKMKB");
        });
        QObject::connect(&m_socket, &QTcpSocket::readyRead, [this] {
            m_reply = QString::fromLatin1(m_socket.readAll());
            m_ms = m_clock.elapsed();
        });
        m_socket.connectToHost(QHostAddress::LocalHost, port);
    }
    bool finished() const { return m_ms >= 0; }
    qint64 ms() const { return m_ms; }
    QString reply() const { return m_reply; }

private:
    QTcpSocket m_socket;
    QElapsedTimer m_clock;
    qint64 m_ms = -1;
    QString m_reply;
};

void waitFor(QProcess& server, const std::function<bool()>& done) {
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < 300000) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        server.readAllStandardOutput();
    }
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_NO_GLIB", "1");
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    QCoreApplication app(argc, argv);
    const int clients = argc > 1 ? std::atoi(argv[1]) : 50;
    const int calls = argc > 2 ? std::atoi(argv[2]) : 10000;
    QTemporaryDir data;
    const QString storeFile = data.filePath(QStringLiteral("tafelkrater.sqlite"));
    {
        QElapsedTimer clock;
        clock.start();
        if (!seed(data.path(), calls))
            return 1;
        std::printf("seeded %d problem calls in %lld ms\n", calls,
                    static_cast<long long>(clock.elapsed()));
    }
    std::printf("store: %.1f MB\n", QFileInfo(storeFile).size() / 1e6);

    const quint16 port = freePort();
    QProcess server;
    server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    server.start(s(TK_SERVER_EXE),
                 {s("--data"), data.path(), s("--port"), QString::number(port),
                  s("--client-data-port"), QString::number(freePort()), s("--client-info-port"),
                  QString::number(freePort()), s("--upload-data-port"), QString::number(freePort()),
                  s("--upload-info-port"), QString::number(freePort())});
    QByteArray log;
    while (!log.contains("listening") && server.waitForReadyRead(10000))
        log += server.readAllStandardOutput();
    if (!log.contains("listening")) {
        std::fprintf(stderr, "the server did not start: %s\n", log.constData());
        return 1;
    }

    // What each client asks: the opening, the problem call overview (the first 100 calls),
    // and the small sets of a start-up.
    QStringList requests{s("TST"),       s("INFVER1.0.0"), s("INFDMN"),    s("INFCOMPC"),
                         s("LDNTAA"),    s("LDNKLSSNC"),   s("LDNKLSDA0"), s("LDNLRNSNC"),
                         s("LDNLRNDA0"), s("LDNWCH"),      s("LDNOVR"),    s("LDNCAK"),
                         s("HLPSNC")};
    for (int i = 1; i <= 100; ++i)
        requests << QStringLiteral("HLPLDN%1").arg(i * std::max(1, calls / 100));

    {
        QElapsedTimer clock;
        clock.start();
        const int rc = QProcess::execute(s("cp"), {storeFile, data.filePath(s("kopie.sqlite"))});
        std::printf("cp of the store: %lld ms (exit %d)\n", static_cast<long long>(clock.elapsed()),
                    rc);
        QFile::remove(data.filePath(s("kopie.sqlite")));
    }
    {
        BackupClient backup(port);
        waitFor(server, [&] { return backup.finished(); });
        std::printf("backup alone: %lld ms (%s)\n", static_cast<long long>(backup.ms()),
                    qPrintable(backup.reply()));
    }
    const LoadResult quiet = load(server, port, clients, requests);
    std::printf("%d clients, %lld requests each, no backup: all done in %lld ms; a client's "
                "load: median %lld ms, slowest %lld ms\n",
                clients, static_cast<long long>(requests.size()),
                static_cast<long long>(quiet.wallMs), static_cast<long long>(quiet.medianMs),
                static_cast<long long>(quiet.maxMs));
    BackupClient backup(port);
    const LoadResult busy = load(server, port, clients, requests);
    waitFor(server, [&] { return backup.finished(); });
    std::printf("%d clients during a backup: all done in %lld ms; a client's load: median %lld "
                "ms, slowest %lld ms\n",
                clients, static_cast<long long>(busy.wallMs), static_cast<long long>(busy.medianMs),
                static_cast<long long>(busy.maxMs));
    std::printf("backup during the load: %lld ms (%s)\n", static_cast<long long>(backup.ms()),
                qPrintable(backup.reply()));
    server.terminate();
    server.waitForFinished(10000);
    return 0;
}
