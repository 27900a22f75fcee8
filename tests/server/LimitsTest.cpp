// What one client may cost the server: a connection that never speaks is closed after the set
// time, input beyond the limit closes its connection and stores nothing, and a server out of file
// descriptors waits and serves everyone in turn. Small limits, so that the cases are quick.
#include "RunningServer.h"
#include "WireClient.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

using namespace tk::server;
using namespace tk::server::test;

namespace {
QString s(const char* text) {
    return QString::fromLatin1(text);
}

// User and system time of a process, in clock ticks (hundredths of a second).
qint64 cpuTicks(qint64 pid) {
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray text = stat.readAll();
    const QList<QByteArray> fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    return fields.value(11).toLongLong() + fields.value(12).toLongLong();
}
} // namespace

TEST(ServerLimitsTest, ASilentConnectionIsClosedAfterTheSetTimeAndOneThatSpokeStays) {
    RunningServer server(true, 60, QString(), false,
                         [](ServerOptions& o) { o.firstMessageMs = 200; });
    WireClient silent(server.port());
    WireClient spoke(server.port());
    ASSERT_TRUE(silent.connected());
    EXPECT_EQ(s("TST"), spoke.ask(s("TST")));
    EXPECT_TRUE(waitFor([&] { return silent.closedByServer(); }));
    EXPECT_TRUE(silent.reads().isEmpty());
    // Both came at the same moment: the one that spoke outlives the other's time.
    EXPECT_EQ(s("TST"), spoke.ask(s("TST")));
    EXPECT_TRUE(spoke.connected());
}

TEST(ServerLimitsTest, InputAboveTheLimitClosesItsConnectionAndStoresNothing) {
    RunningServer server(true, 60, QString(), false, [](ServerOptions& o) { o.maxMessage = 4096; });
    WireClient good(server.port());
    const QString sites = s("OPSITS") + QString(3000, QLatin1Char('a'));
    EXPECT_EQ(s("OPSITSOK"), good.ask(sites)); // long, but within the limit
    struct Case {
        const char* what;
        QByteArray bytes;
    };
    const Case cases[] = {
        {"one message above the limit", "OPSITS" + QByteArray(10000, 'b')},
        {"a megabyte line without a pause", QByteArray(1 << 20, 'C')},
        // Closed at its first bytes, before the rest is read.
        {"random bytes", QByteArray("\x01\xfe\x80TST", 6) + QByteArray(1 << 20, '\xff')},
        {"a command word in lower case", "tst"},
        {"a line of text", QByteArray(1 << 20, 'c')},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        WireClient bad(server.port());
        bad.sendBytes(c.bytes);
        EXPECT_TRUE(waitFor([&] { return bad.closedByServer(); }));
        EXPECT_TRUE(bad.reads().isEmpty());
        EXPECT_EQ(s("LDNITS") + sites.mid(6), good.ask(s("LDNITS")));
    }
    EXPECT_EQ(1, int(server.server().connections().size()));
}

TEST(ServerLimitsTest, OutOfFileDescriptorsSilentConnectionsGiveWayAndTheRestWaitTheirTurn) {
    // A server that may hold 40 files: the store, its listeners and some twenty clients.
    QTemporaryDir data;
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(s("/bin/sh"), {s("-c"), s("ulimit -n 40 && exec \"$0\" --data \"$1\" --port 0"),
                                 s(TK_SERVER_EXE), data.path()});
    QString log;
    auto readLog = [&] {
        log += QString::fromUtf8(process.readAllStandardOutput());
        return log;
    };
    const QRegularExpression listening(s("listening on port (\\d+) "));
    ASSERT_TRUE(waitFor([&] { return listening.match(readLog()).hasMatch(); }, 10000))
        << qPrintable(log);
    const quint16 port = quint16(listening.match(log).captured(1).toUInt());

    // Connections that say nothing fill the server's table, then clients come that speak.
    std::vector<std::unique_ptr<WireClient>> silent;
    for (int i = 0; i < 30; ++i)
        silent.push_back(std::make_unique<WireClient>(port));
    ASSERT_TRUE(waitFor([&] { return readLog().contains(s("accepting paused")); }, 10000))
        << qPrintable(log);
    // While it waits it does not spin: half a second costs it far less than half a second.
    const qint64 busyBefore = cpuTicks(process.processId());
    waitFor([] { return false; }, 500);
    EXPECT_LT(cpuTicks(process.processId()) - busyBefore, 20);
    // The silent ones give way to those that speak, oldest first.
    std::vector<std::unique_ptr<WireClient>> speaking;
    for (int i = 0; i < 10; ++i) {
        speaking.push_back(std::make_unique<WireClient>(port));
        speaking.back()->send(s("TST"));
    }
    EXPECT_TRUE(waitFor(
        [&] {
            for (const auto& c : speaking)
                if (!c->reads().contains(s("TST")))
                    return false;
            return true;
        },
        10000));
    EXPECT_TRUE(readLog().contains(s("connections that sent nothing")));
    silent.clear();
    speaking.clear();

    // More clients than the server has descriptors for, all speaking: each asks once, and as
    // the served ones go, the waiting ones are taken and answered.
    std::vector<std::unique_ptr<WireClient>> clients;
    for (int i = 0; i < 60; ++i) {
        clients.push_back(std::make_unique<WireClient>(port));
        clients.back()->send(s("TST"));
    }
    auto answered = [&] {
        int n = 0;
        for (const auto& c : clients)
            n += c->reads().contains(s("TST")) ? 1 : 0;
        return n;
    };
    waitFor([&] { return answered() > 0; });
    const int first = answered();
    EXPECT_GT(first, 0);
    EXPECT_LT(first, 60);
    while (answered() < 60) {
        for (auto& c : clients)
            if (c->reads().contains(s("TST")) && c->connected())
                c->socket().disconnectFromHost();
        const int before = answered();
        if (!waitFor([&] { return answered() > before; }, 10000))
            break;
    }
    EXPECT_EQ(60, answered());
    EXPECT_EQ(QProcess::Running, process.state());
    EXPECT_TRUE(readLog().contains(s("accepting again")));
    process.terminate();
    process.waitForFinished(10000);
}
