// Nothing acknowledged is lost when the server is killed. The real server is started on one data
// folder again and again; clients save favourites (each under an owner of its own, some long
// enough to come in pieces) and note every save the server acknowledged; at a random moment the
// server gets SIGKILL. Before each restart the store must pass SQLite's integrity check and hold
// every acknowledged save with its content. CI runs 20 kills; by hand, 1,000 take a few minutes:
//
//   TK_KILLS=1000 TK_SEED=7 ./tk_server_kill_test
#include "WireClient.h"

#include <QHash>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

using tk::server::test::waitFor;

namespace {

// One client that saves one record after another, each once the one before was answered.
class SavingClient {
public:
    SavingClient(quint16 port, qint64 firstOwner, QRandomGenerator& random,
                 QHash<QString, QByteArray>& acknowledged)
        : m_owner(firstOwner), m_random(random), m_acknowledged(acknowledged) {
        QObject::connect(&m_socket, &QTcpSocket::connected, [this] { next(); });
        QObject::connect(&m_socket, &QTcpSocket::readyRead, [this] {
            if (m_socket.readAll() == "OPSFAVOK")
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
        m_pendingOwner = QString("Groep%1").arg(m_owner++);
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

// The sqlite3 program's output, tab-separated; the test fails when it does.
QByteArray sqlite(const QString& database, const QString& sql) {
    QProcess p;
    p.start("sqlite3", {"-batch", "-noheader", "-separator", "\t", database, sql});
    EXPECT_TRUE(p.waitForFinished(60000) && p.exitCode() == 0)
        << qPrintable(p.errorString()) << p.readAllStandardError().toStdString();
    return p.readAllStandardOutput();
}

} // namespace

TEST(ServerKillTest, EveryAcknowledgedSaveOutlivesASigkill) {
    ASSERT_FALSE(QStandardPaths::findExecutable("sqlite3").isEmpty())
        << "the sqlite3 program is not installed (Debian package sqlite3)";
    const int kills =
        qEnvironmentVariableIsSet("TK_KILLS") ? qEnvironmentVariableIntValue("TK_KILLS") : 20;
    const quint64 seed = qEnvironmentVariableIsSet("TK_SEED")
                             ? qEnvironmentVariable("TK_SEED").toULongLong()
                             : QRandomGenerator::system()->generate();
    RecordProperty("seed", std::to_string(seed));
    QRandomGenerator random(seed);
    QTemporaryDir data;
    const QRegularExpression listening("listening on port (\\d+) ");
    QHash<QString, QByteArray> acknowledged;
    qint64 owner = 1;

    for (int round = 1; round <= kills; ++round) {
        SCOPED_TRACE(QString("round %1, seed %2").arg(round).arg(seed).toStdString());
        QProcess server;
        server.setProcessChannelMode(QProcess::MergedChannels);
        server.start(TK_SERVER_EXE, {"--data", data.path(), "--port", "0"});
        QString log;
        waitFor(
            [&] {
                log += QString::fromUtf8(server.readAllStandardOutput());
                return listening.match(log).hasMatch() || server.state() == QProcess::NotRunning;
            },
            20000);
        ASSERT_TRUE(listening.match(log).hasMatch())
            << "the server did not start: " << log.toStdString();

        // Clients save; the kill comes after a random time once the first save was answered.
        const qsizetype before = acknowledged.size();
        std::vector<std::unique_ptr<SavingClient>> clients;
        for (int c = 0; c < 4; ++c, owner += 100000)
            clients.push_back(std::make_unique<SavingClient>(
                quint16(listening.match(log).captured(1).toUInt()), owner, random, acknowledged));
        waitFor([&] { return acknowledged.size() > before; }, 10000);
        waitFor([] { return false; }, random.bounded(200));
        server.kill(); // SIGKILL
        server.waitForFinished(10000);
        for (const auto& c : clients)
            ASSERT_EQ(0, c->faults()) << "saves were refused";
        clients.clear();

        // What the restart finds.
        const QString database = data.filePath("tafelkrater.sqlite");
        ASSERT_EQ("ok", sqlite(database, "PRAGMA integrity_check").trimmed());
        QHash<QString, QByteArray> stored;
        for (const QByteArray& row :
             sqlite(database, "SELECT owner, list FROM favourites").split('\n'))
            if (const qsizetype tab = row.indexOf('\t'); tab > 0)
                stored.insert(QString::fromLatin1(row.left(tab)), row.mid(tab + 1));
        int lost = 0;
        for (auto it = acknowledged.cbegin(); it != acknowledged.cend(); ++it)
            if (stored.value(it.key()) != it.value() && ++lost <= 5)
                ADD_FAILURE() << "the acknowledged save of " << it.key().toStdString() << " is "
                              << (stored.contains(it.key()) ? "changed" : "missing");
        ASSERT_EQ(0, lost) << "acknowledged saves lost";
    }
    std::printf("%d kills, %lld acknowledged saves all there\n", kills,
                static_cast<long long>(acknowledged.size()));
}
