// Nothing acknowledged is lost when the server is killed. The real server is started on one data
// folder again and again; clients save favourites (each under an owner of its own, some long
// enough to come in pieces) and note every save the server acknowledged; at a random moment the
// server gets SIGKILL. Before each restart the store must pass SQLite's integrity check and hold
// every acknowledged save with its content.
//
//   tk_server_kill_test [--kills N] [--clients N] [--seed N]
//
// CI runs 20 kills; by hand, 1,000 take a few minutes.
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QHash>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

QString s(const char* text) {
    return QString::fromLatin1(text);
}

bool pumpUntil(const std::function<bool()>& done, int ms) {
    QDeadlineTimer deadline(ms);
    while (!done()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }
    return true;
}

// One client that saves one record after another, each once the one before was answered.
class SavingClient {
public:
    SavingClient(quint16 port, qint64 firstOwner, QRandomGenerator& random,
                 QHash<QString, QByteArray>& acknowledged)
        : m_owner(firstOwner), m_random(random), m_acknowledged(acknowledged) {
        QObject::connect(&m_socket, &QTcpSocket::connected, [this] { next(); });
        QObject::connect(&m_socket, &QTcpSocket::readyRead, [this] {
            const QByteArray reply = m_socket.readAll();
            if (reply == "OPSFAVOK")
                m_acknowledged.insert(m_pendingOwner, m_pendingList);
            else
                ++m_faults;
            next();
        });
        m_socket.connectToHost(QHostAddress::LocalHost, port);
    }
    int faults() const { return m_faults; }

private:
    void next() {
        m_pendingOwner = QStringLiteral("Groep%1").arg(m_owner++);
        // Most saves are short; one in five is several segments long.
        const int length = m_random.bounded(5) == 0 ? 4000 + m_random.bounded(4000) : 20;
        m_pendingList = QByteArray::number(m_random.generate64()).repeated(length / 16 + 1);
        m_socket.write("OPSFAV" + m_pendingOwner.toLatin1() + ";<>;0|Nee|Nee|Nee;<>;" +
                       m_pendingList);
        m_socket.flush();
    }

    QTcpSocket m_socket;
    qint64 m_owner;
    QRandomGenerator& m_random;
    QHash<QString, QByteArray>& m_acknowledged;
    QString m_pendingOwner;
    QByteArray m_pendingList;
    int m_faults = 0;
};

QByteArray sqlite(const QString& database, const QString& sql, QString* error) {
    QProcess p;
    p.start(s("sqlite3"), {s("-batch"), s("-noheader"), s("-separator"), s("\t"), database, sql});
    if (!p.waitForFinished(60000) || p.exitCode() != 0) {
        *error = QStringLiteral("sqlite3 failed: %1 %2")
                     .arg(p.errorString(), QString::fromLocal8Bit(p.readAllStandardError()));
        return {};
    }
    return p.readAllStandardOutput();
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_NO_GLIB", "1");
    QCoreApplication app(argc, argv);
    int kills = 20;
    int clientCount = 4;
    quint64 seed = QRandomGenerator::system()->generate();
    const QStringList args = app.arguments();
    for (int i = 1; i + 1 < args.size(); i += 2) {
        if (args[i] == u"--kills")
            kills = args[i + 1].toInt();
        else if (args[i] == u"--clients")
            clientCount = args[i + 1].toInt();
        else if (args[i] == u"--seed")
            seed = args[i + 1].toULongLong();
    }
    if (QStandardPaths::findExecutable(s("sqlite3")).isEmpty()) {
        std::fprintf(stderr, "the sqlite3 program is not installed (Debian package sqlite3)\n");
        return 1;
    }
    std::printf("seed %llu\n", static_cast<unsigned long long>(seed));
    QRandomGenerator random(seed);
    QTemporaryDir data;
    const QString database = data.filePath(s("tafelkrater.sqlite"));
    const QRegularExpression listening(s("listening on port (\\d+) "));
    QHash<QString, QByteArray> acknowledged;
    qint64 owner = 1;
    QElapsedTimer clock;
    clock.start();

    for (int round = 1; round <= kills; ++round) {
        QProcess server;
        server.setProcessChannelMode(QProcess::MergedChannels);
        server.start(s(TK_SERVER_EXE), {s("--data"), data.path(), s("--port"), s("0")});
        QString log;
        if (!pumpUntil(
                [&] {
                    log += QString::fromUtf8(server.readAllStandardOutput());
                    return listening.match(log).hasMatch() ||
                           server.state() == QProcess::NotRunning;
                },
                20000) ||
            !listening.match(log).hasMatch()) {
            std::fprintf(stderr, "round %d: the server did not start:\n%s\n", round,
                         qPrintable(log));
            return 1;
        }
        const quint16 port = quint16(listening.match(log).captured(1).toUInt());

        // Clients save; the kill comes after a random time once the first save was answered.
        const qsizetype before = acknowledged.size();
        std::vector<std::unique_ptr<SavingClient>> clients;
        for (int c = 0; c < clientCount; ++c) {
            clients.push_back(std::make_unique<SavingClient>(port, owner, random, acknowledged));
            owner += 100000;
        }
        pumpUntil([&] { return acknowledged.size() > before; }, 10000);
        const int delay = random.bounded(200);
        pumpUntil([] { return false; }, delay);
        server.kill(); // SIGKILL
        server.waitForFinished(10000);
        int faults = 0;
        for (const auto& c : clients)
            faults += c->faults();
        clients.clear();
        if (faults > 0) {
            std::fprintf(stderr, "round %d: %d saves were refused\n", round, faults);
            return 1;
        }

        // What the restart finds.
        QString error;
        const QByteArray check = sqlite(database, s("PRAGMA integrity_check"), &error).trimmed();
        if (check != "ok") {
            std::fprintf(stderr, "round %d: integrity check: %s %s\n", round, check.constData(),
                         qPrintable(error));
            return 1;
        }
        QHash<QString, QByteArray> stored;
        const QByteArray rows = sqlite(database, s("SELECT owner, list FROM favourites"), &error);
        if (!error.isEmpty()) {
            std::fprintf(stderr, "round %d: %s\n", round, qPrintable(error));
            return 1;
        }
        for (const QByteArray& row : rows.split('\n')) {
            const qsizetype tab = row.indexOf('\t');
            if (tab > 0)
                stored.insert(QString::fromLatin1(row.left(tab)), row.mid(tab + 1));
        }
        int lost = 0;
        for (auto it = acknowledged.cbegin(); it != acknowledged.cend(); ++it)
            if (stored.value(it.key()) != it.value()) {
                if (++lost <= 5)
                    std::fprintf(stderr, "round %d: acknowledged save of %s is %s\n", round,
                                 qPrintable(it.key()),
                                 stored.contains(it.key()) ? "changed" : "missing");
            }
        if (lost > 0) {
            std::fprintf(stderr, "round %d: %d acknowledged saves lost\n", round, lost);
            return 1;
        }
        if (round % 50 == 0 || round == kills)
            std::printf("%d kills, %lld acknowledged saves all there, %.1f s\n", round,
                        static_cast<long long>(acknowledged.size()), clock.elapsed() / 1000.0);
        std::fflush(stdout);
    }
    return 0;
}
