// The server under hostile load. A maximal school is put in a store; one client loads alone for
// the reference answers; then 200 well-behaved clients do the full start-up load twice, each time
// on a fresh server: once in quiet, once while an attacking process (this program with --attack)
// keeps up 20 connections that send random bytes, half messages and 1 MB lines without pause,
// 500 connections that connect and say nothing, and a flood of 2,000 connects a second for 10
// seconds. Prints per run the median, 90th percentile and slowest load time, whether every client
// got the reference answers, the server's resident memory (sampled, and its peak) and what its
// log says about limits and descriptors.
//
//   tk_server_hostile_bench [--clients N] [--server-files N] [--attacker-nice N]
//                           [--attack-from ADDRESS]
//
// The attacker connects from 127.0.0.2 (another loopback address, as another machine would), the
// clients from 127.0.0.1; --attack-from 127.0.0.1 makes them share one address.
// --server-files runs the server under that open-file limit (for example 1024, to see it run out
// of descriptors during the flood). Run bench/server/hostile.sh for both.
#include "BenchSchool.h"
#include "platform/linux/FileLimit.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>
#include <vector>

using namespace tk::bench;

namespace {

QString s(const char* t) {
    return QString::fromLatin1(t);
}

// --- the attacking side

// The attacker's own address: another loopback address than the clients' 127.0.0.1, so that
// the server can tell the two apart as it would two machines.
QHostAddress attackFrom(QStringLiteral("127.0.0.2"));

void connectFromAttacker(QTcpSocket& socket, quint16 port) {
    socket.bind(attackFrom);
    socket.connectToHost(QHostAddress::LocalHost, port);
}

struct AttackCounts {
    qint64 idleReconnects = 0;
    qint64 garbageClosed = 0;
    qint64 garbageBytes = 0;
    qint64 floodAttempts = 0;
    qint64 floodConnected = 0;
    qint64 floodFailed = 0;
};

// A connection that is opened again whenever the server closes it.
class Persistent {
public:
    enum class Kind { Idle, Random, HalfMessages, MegabyteLines };
    Persistent(quint16 port, Kind kind, AttackCounts& counts) : m_kind(kind), m_counts(counts) {
        m_socket.setReadBufferSize(4096);
        QObject::connect(&m_socket, &QTcpSocket::connected, [this] { feed(); });
        QObject::connect(&m_socket, &QTcpSocket::bytesWritten, [this] { feed(); });
        QObject::connect(&m_socket, &QTcpSocket::readyRead, [this] { m_socket.readAll(); });
        QObject::connect(&m_socket, &QTcpSocket::disconnected, [this, port] {
            if (m_kind == Kind::Idle)
                ++m_counts.idleReconnects;
            else
                ++m_counts.garbageClosed;
            QTimer::singleShot(10, [this, port] { open(port); });
        });
        QObject::connect(&m_socket, &QTcpSocket::errorOccurred, [this, port] {
            if (m_socket.state() == QAbstractSocket::UnconnectedState)
                QTimer::singleShot(50, [this, port] { open(port); });
        });
        open(port);
    }

private:
    void open(quint16 port) {
        if (m_socket.state() == QAbstractSocket::UnconnectedState)
            connectFromAttacker(m_socket, port);
    }
    void feed() {
        if (m_kind == Kind::Idle || m_socket.state() != QAbstractSocket::ConnectedState)
            return;
        while (m_socket.bytesToWrite() < 512 * 1024) {
            const QByteArray chunk = next();
            m_counts.garbageBytes += chunk.size();
            m_socket.write(chunk);
        }
    }
    // Made once, so that the attacker spends its time sending rather than making bytes.
    QByteArray next() {
        static const QByteArray random = [] {
            QByteArray bytes(256 * 1024, Qt::Uninitialized);
            QRandomGenerator::global()->fillRange(reinterpret_cast<quint32*>(bytes.data()),
                                                  bytes.size() / 4);
            return bytes;
        }();
        static const QByteArray halves = halfMessages();
        static const QByteArray line = QByteArray(1024 * 1024, 'x') + '\n';
        switch (m_kind) {
        case Kind::Random:
            return random;
        case Kind::HalfMessages:
            return halves;
        case Kind::MegabyteLines:
            return line;
        case Kind::Idle:
            break;
        }
        return {};
    }
    static QByteArray halfMessages() {
        QRandomGenerator& r = *QRandomGenerator::global();
        {
            static const char* const starts[] = {"LDNKLSDA",
                                                 "OPSKLZ0><Groep 9><9><9a.jpg><Geen><groep9",
                                                 "OPSFAVGroep3;<>;0|Nee",
                                                 "INFVER1.",
                                                 "LDNAPKDAT1",
                                                 "OPSAPPk><1><ja><Naam><1><",
                                                 "HLPOPSManual;<>;PC-07"};
            QByteArray bytes;
            while (bytes.size() < 256 * 1024) {
                const QByteArray start = starts[r.bounded(int(std::size(starts)))];
                bytes += start.left(1 + r.bounded(int(start.size())));
            }
            return bytes;
        }
    }

    QTcpSocket m_socket;
    Kind m_kind;
    AttackCounts& m_counts;
};

int attack(quint16 port, int seconds) {
    AttackCounts counts;
    std::vector<std::unique_ptr<Persistent>> persistent;
    for (int i = 0; i < 500; ++i)
        persistent.push_back(std::make_unique<Persistent>(port, Persistent::Kind::Idle, counts));
    for (int i = 0; i < 20; ++i) {
        const auto kind = i < 7    ? Persistent::Kind::Random
                          : i < 14 ? Persistent::Kind::HalfMessages
                                   : Persistent::Kind::MegabyteLines;
        persistent.push_back(std::make_unique<Persistent>(port, kind, counts));
    }
    // The flood: 2,000 connects a second for 10 seconds.
    QElapsedTimer clock;
    clock.start();
    QTimer flood;
    flood.setInterval(5);
    QObject::connect(&flood, &QTimer::timeout, [&] {
        if (clock.elapsed() >= 10000) {
            flood.stop();
            return;
        }
        const qint64 due = clock.elapsed() * 2 - counts.floodAttempts; // 2,000 a second
        for (qint64 i = 0; i < due; ++i) {
            auto* socket = new QTcpSocket;
            ++counts.floodAttempts;
            // Each holds its place for a second, so that some 2,000 are open at any moment.
            QObject::connect(socket, &QTcpSocket::connected, [socket, &counts] {
                ++counts.floodConnected;
                QTimer::singleShot(1000, socket, [socket] {
                    socket->abort();
                    socket->deleteLater();
                });
            });
            QObject::connect(socket, &QTcpSocket::errorOccurred, [socket, &counts] {
                if (socket->state() == QAbstractSocket::UnconnectedState &&
                    socket->error() != QAbstractSocket::RemoteHostClosedError) {
                    ++counts.floodFailed;
                    socket->deleteLater();
                }
            });
            connectFromAttacker(*socket, port);
        }
    });
    flood.start();
    std::printf("ready\n");
    std::fflush(stdout);
    while (clock.elapsed() < qint64(seconds) * 1000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    std::printf(
        "attack: %lld flood connects tried, %lld made, %lld failed; garbage: %lld MB sent, "
        "%lld connections closed by the server; %lld silent connections closed by the "
        "server; the attacker used %.1f s of CPU\n",
        static_cast<long long>(counts.floodAttempts), static_cast<long long>(counts.floodConnected),
        static_cast<long long>(counts.floodFailed),
        static_cast<long long>(counts.garbageBytes / (1024 * 1024)),
        static_cast<long long>(counts.garbageClosed), static_cast<long long>(counts.idleReconnects),
        double(std::clock()) / CLOCKS_PER_SEC);
    std::fflush(stdout);
    return 0;
}

// --- the well-behaved side

// The replies without INFDMN, which names the transfer ports of that server start.
QStringList comparable(QStringList replies) {
    replies.removeIf([](const QString& r) { return r.startsWith(QStringLiteral("INFDMN")); });
    return replies;
}

struct RunResult {
    int finished = 0;
    int correct = 0;
    qint64 wallMs = 0;
    qint64 medianMs = 0;
    qint64 p90Ms = 0;
    qint64 slowestMs = 0;
    qint64 maxRssKb = 0;
    int maxFiles = 0;
    qint64 peakKb = 0;
    qint64 serverCpuMs = 0;
    qint64 clientsCpuMs = 0;
};

RunResult loadAll(BenchServer& server, int clients, const QStringList& reference,
                  const std::function<void()>& alongside = {}) {
    RunResult r;
    const qint64 cpuBefore = server.cpuMs();
    const std::clock_t clientsBefore = std::clock();
    int done = 0;
    qint64 requests = 0;
    QElapsedTimer clock;
    clock.start();
    std::vector<std::unique_ptr<LoadingClient>> all;
    for (int i = 0; i < clients; ++i)
        all.push_back(std::make_unique<LoadingClient>(server.port(), &done, &requests));
    QElapsedTimer sample;
    sample.start();
    while (done < clients && clock.elapsed() < 180000) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        server.readLog();
        if (alongside)
            alongside();
        if (sample.elapsed() >= 100) {
            r.maxRssKb = std::max(r.maxRssKb, server.residentKb());
            r.maxFiles = std::max(r.maxFiles, server.openFiles());
            sample.restart();
        }
    }
    r.wallMs = clock.elapsed();
    std::vector<qint64> times;
    for (const auto& c : all)
        if (c->finished()) {
            ++r.finished;
            times.push_back(c->loadMs());
            r.correct += comparable(c->replies()) == reference ? 1 : 0;
        }
    std::sort(times.begin(), times.end());
    if (!times.empty()) {
        r.medianMs = times[times.size() / 2];
        r.p90Ms = times[times.size() * 9 / 10];
        r.slowestMs = times.back();
    }
    r.peakKb = server.peakKb();
    r.serverCpuMs = server.cpuMs() - cpuBefore;
    r.clientsCpuMs = qint64(std::clock() - clientsBefore) * 1000 / CLOCKS_PER_SEC;
    return r;
}

void print(const char* name, const RunResult& r, int clients) {
    std::printf("%s: %d of %d clients finished, %d with the reference answers; load time median "
                "%lld ms, 90%% %lld ms, slowest %lld ms, all done in %lld ms; server memory: "
                "at most %lld kB sampled, peak %lld kB; at most %d descriptors open; server CPU "
                "during the load %lld ms, the clients' %lld ms\n",
                name, r.finished, clients, r.correct, static_cast<long long>(r.medianMs),
                static_cast<long long>(r.p90Ms), static_cast<long long>(r.slowestMs),
                static_cast<long long>(r.wallMs), static_cast<long long>(r.maxRssKb),
                static_cast<long long>(r.peakKb), r.maxFiles, static_cast<long long>(r.serverCpuMs),
                static_cast<long long>(r.clientsCpuMs));
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_NO_GLIB", "1");
    QCoreApplication app(argc, argv);
    tk::FileLimit::raise();
    const QStringList args = app.arguments();
    auto option = [&](const char* name, int fallback) {
        const qsizetype at = args.indexOf(s(name));
        return at > 0 && at + 1 < args.size() ? args[at + 1].toInt() : fallback;
    };
    if (const qsizetype at = args.indexOf(s("--attack-from")); at > 0 && at + 1 < args.size())
        attackFrom = QHostAddress(args[at + 1]);
    if (args.contains(s("--attack")))
        return attack(quint16(option("--attack", 0)), option("--seconds", 12));
    const int clients = option("--clients", 200);
    const int serverFiles = option("--server-files", 0);

    QTemporaryDir data;
    {
        tk::server::Store store;
        QString error;
        if (!store.open(data.path(), &error) || !seedMaximalSchool(store))
            return 1;
    }
    // The reference: one client alone.
    QStringList reference;
    {
        BenchServer server;
        if (!server.start(data.path(), serverFiles))
            return 1;
        int done = 0;
        qint64 requests = 0;
        LoadingClient alone(server.port(), &done, &requests);
        while (done < 1)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        reference = comparable(alone.replies());
        server.stop();
        std::printf("reference: %lld replies, %lld bytes, one client alone in %lld ms\n",
                    static_cast<long long>(reference.size()),
                    static_cast<long long>(reference.join(QString()).size()),
                    static_cast<long long>(alone.loadMs()));
    }

    RunResult quiet;
    {
        BenchServer server;
        if (!server.start(data.path(), serverFiles))
            return 1;
        quiet = loadAll(server, clients, reference);
        server.stop();
        print("quiet", quiet, clients);
    }

    RunResult hostile;
    bool alive = false;
    bool afterwards = false;
    {
        BenchServer server;
        if (!server.start(data.path(), serverFiles))
            return 1;
        const qint64 rest = server.peakKb();
        QProcess attacker;
        attacker.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        const int seconds = int(std::max<qint64>(12, quiet.wallMs * 3 / 1000 + 2));
        // Attackers would be other machines; --attacker-nice N lowers this one's share of the
        // processors so that it does not take the clients' on a small machine.
        attacker.start(s("nice"),
                       {s("-n"), QString::number(option("--attacker-nice", 0)),
                        QCoreApplication::applicationFilePath(), s("--attack-from"),
                        attackFrom.toString(), s("--attack"), QString::number(server.port()),
                        s("--seconds"), QString::number(seconds)});
        QByteArray attackOut;
        while (!attackOut.contains("ready") && attacker.waitForReadyRead(10000))
            attackOut += attacker.readAllStandardOutput();
        // The attack in full swing (the silent ones all connected, the flood running).
        QElapsedTimer settle;
        settle.start();
        while (settle.elapsed() < 1000) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
            server.readLog();
        }
        hostile = loadAll(server, clients, reference,
                          [&] { attackOut += attacker.readAllStandardOutput(); });
        // Sample through the rest of the attack.
        while (attacker.state() != QProcess::NotRunning) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
            server.readLog();
            hostile.maxRssKb = std::max(hostile.maxRssKb, server.residentKb());
            attackOut += attacker.readAllStandardOutput();
        }
        hostile.peakKb = server.peakKb();
        print("under attack", hostile, clients);
        std::printf("%s", attackOut.mid(attackOut.indexOf("attack:")).constData());
        std::printf("server at rest before the attack: %lld kB\n", static_cast<long long>(rest));
        // One more client after the attack, on the same server.
        int done = 0;
        qint64 requests = 0;
        LoadingClient after(server.port(), &done, &requests);
        QElapsedTimer wait;
        wait.start();
        while (done < 1 && wait.elapsed() < 60000) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
            server.readLog();
        }
        afterwards = after.finished() && comparable(after.replies()) == reference;
        alive = server.residentKb() > 0;
        server.stop();
        std::printf("server log: %d inputs above the limit, %d silent connections closed, %d "
                    "descriptor shortages (%d ended), %d refused as too many\n",
                    server.logCount(s("above the limit")), server.logCount(s("no first message")),
                    server.logCount(s("accepting paused")), server.logCount(s("accepting again")),
                    server.logCount(s("too many connections")));
        std::printf("server log: %d connection-flood reports\n",
                    server.logCount(s("connection flood")));
    }
    const double ratio = double(hostile.medianMs) / double(std::max<qint64>(1, quiet.medianMs));
    std::printf("median load time under attack / in quiet: %.2f (goal at most 1.5); server alive "
                "after the attack: %s; a client after the attack got the reference answers: %s\n",
                ratio, alive ? "yes" : "no", afterwards ? "yes" : "no");
    const bool ok = quiet.correct == clients && hostile.correct == clients && alive && afterwards;
    return ok ? 0 : 1;
}
