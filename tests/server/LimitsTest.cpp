// What one client may cost the server: a connection that never speaks is closed after the set
// time, input beyond the limit closes its connection and stores nothing, a connection flood from
// one address is closed at accept, a peer that sends without pause gets one slice a turn, and a
// server out of file descriptors waits and serves everyone in turn. Small limits, so that the
// cases are quick.
#include "RunningServer.h"
#include "WireClient.h"
#include "server/ClientConnection.h"
#include "server/SourceRateLimit.h"

#include <QCoreApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

using namespace tk::server;
using namespace tk::server::test;

TEST(ServerLimitsTest, ASilentConnectionIsClosedAfterTheSetTimeAndOneThatSpokeStays) {
    RunningServer server([](ServerOptions& o) { o.firstMessageMs = 200; });
    WireClient silent(server.port());
    WireClient spoke(server.port());
    ASSERT_TRUE(silent.connected());
    EXPECT_EQ("TST", spoke.ask("TST"));
    EXPECT_TRUE(waitFor([&] { return silent.closedByServer(); }));
    EXPECT_TRUE(silent.reads().isEmpty());
    // Both came at the same moment: the one that spoke outlives the other's time.
    EXPECT_EQ("TST", spoke.ask("TST"));
    EXPECT_TRUE(spoke.connected());
}

TEST(ServerLimitsTest, InputAboveTheLimitClosesItsConnectionAndStoresNothing) {
    RunningServer server([](ServerOptions& o) { o.maxMessage = 4096; });
    WireClient good(server.port());
    const QString sites = "OPSITS" + QString(3000, QLatin1Char('a'));
    EXPECT_EQ("OPSITSOK", good.ask(sites)); // long, but within the limit
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
        EXPECT_EQ("LDNITS" + sites.mid(6), good.ask("LDNITS"));
    }
    EXPECT_EQ(1, int(server.server().connections().size()));
}

TEST(ServerLimitsTest, OutOfFileDescriptorsSilentConnectionsGiveWayAndTheRestWaitTheirTurn) {
    // A server that may hold 40 files: the store, its listeners and some twenty clients.
    QTemporaryDir data;
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start("/bin/sh", {"-c", "ulimit -n 40 && exec \"$0\" --data \"$1\" --port 0",
                              TK_SERVER_EXE, data.path()});
    QString log;
    auto readLog = [&] {
        log += QString::fromUtf8(process.readAllStandardOutput());
        return log;
    };
    const QRegularExpression listening("listening on port (\\d+) ");
    ASSERT_TRUE(waitFor([&] { return listening.match(readLog()).hasMatch(); }, 10000))
        << qPrintable(log);
    const quint16 port = quint16(listening.match(log).captured(1).toUInt());

    using Clients = std::vector<std::unique_ptr<WireClient>>;
    const auto connect = [&](Clients& clients, int count, bool speak) {
        for (int i = 0; i < count; ++i) {
            clients.push_back(std::make_unique<WireClient>(port));
            if (speak)
                clients.back()->send("TST");
        }
    };
    const auto answered = [](const Clients& clients) {
        return int(std::count_if(clients.begin(), clients.end(),
                                 [](const auto& c) { return c->reads().contains("TST"); }));
    };
    // Connections that say nothing fill the server's table, then clients come that speak: the
    // silent ones give way to those, oldest first.
    Clients silent, speaking;
    connect(silent, 30, false);
    ASSERT_TRUE(waitFor([&] { return readLog().contains("accepting paused"); }, 10000))
        << qPrintable(log);
    connect(speaking, 10, true);
    EXPECT_TRUE(waitFor([&] { return answered(speaking) == 10; }, 10000));
    EXPECT_TRUE(readLog().contains("connections that sent nothing"));
    silent.clear();
    speaking.clear();

    // More clients than the server has descriptors for, all speaking: each asks once, and as
    // the served ones go, the waiting ones are taken and answered.
    Clients clients;
    connect(clients, 60, true);
    waitFor([&] { return answered(clients) > 0; });
    const int first = answered(clients);
    EXPECT_GT(first, 0);
    EXPECT_LT(first, 60);
    while (answered(clients) < 60) {
        for (auto& c : clients)
            if (c->reads().contains("TST") && c->connected())
                c->socket().disconnectFromHost();
        const int before = answered(clients);
        if (!waitFor([&] { return answered(clients) > before; }, 10000))
            break;
    }
    EXPECT_EQ(60, answered(clients));
    EXPECT_EQ(QProcess::Running, process.state());
    // While it waits it does not spin: the line that ends each pause counts the times the server
    // woke meanwhile, a few for each connection that came or went and each retry a quarter
    // second apart, where a loop that retries at once wakes thousands of times a second.
    const QRegularExpression again(
        "accepting again after (\\d+) ms \\(\\d+ pauses, (\\d+) wake-ups");
    int pauses = 0;
    for (auto m = again.globalMatch(readLog()); m.hasNext(); ++pauses) {
        const auto line = m.next();
        EXPECT_LE(line.captured(2).toInt(), 100 + line.captured(1).toInt() / 10)
            << qPrintable(line.captured());
    }
    EXPECT_GE(pauses, 1) << qPrintable(log);
    process.terminate();
    process.waitForFinished(10000);
}

TEST(ServerLimitsTest, NewConnectionsPerAddressFollowTheirBucket) {
    // Connections that come at one moment from one address, and how many of them may stay.
    struct Step {
        qint64 ms;
        const char* from;
        int come;
        int stay;
    };
    struct Case {
        const char* what;
        SourceRateLimit::Limits limits;
        std::vector<Step> steps;
    };
    const SourceRateLimit::Limits defaults;
    const Case cases[] = {
        {"200 workstations behind one address after a power cut, and again at once",
         defaults,
         {{0, "10.0.0.1", 200, 200}, {500, "10.0.0.1", 200, 200}}},
        {"a flood from one address: the burst, then the rate",
         defaults,
         {{0, "10.0.0.9", 2000, 500}, {1000, "10.0.0.9", 2000, 100}, {1500, "10.0.0.9", 10, 10}}},
        {"one address's flood leaves another's bucket alone",
         {1, 3, 10000},
         {{0, "10.0.0.9", 5, 3}, {0, "10.0.0.2", 3, 3}, {0, "::1", 4, 3}}},
        {"an IPv4 address and its IPv6-mapped form are one address",
         {1, 3, 10000},
         {{0, "10.0.0.9", 2, 2}, {0, "::ffff:10.0.0.9", 2, 1}}},
        {"a bucket refills at the rate and no further than the burst",
         {2, 3, 10000},
         {{0, "10.0.0.9", 3, 3},
          {499, "10.0.0.9", 1, 0},
          {500, "10.0.0.9", 2, 1},
          {60000, "10.0.0.9", 5, 3}}},
        {"rate 0: no limit", {0, 1, 10000}, {{0, "10.0.0.9", 1000, 1000}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        SourceRateLimit limit(c.limits);
        for (const Step& step : c.steps) {
            SCOPED_TRACE(step.ms);
            int stayed = 0;
            for (int i = 0; i < step.come; ++i)
                stayed += limit.admit(QHostAddress(QString(step.from)), step.ms) ? 1 : 0;
            EXPECT_EQ(step.stay, stayed);
        }
    }
}

TEST(ServerLimitsTest, AFloodIsReportedAtOnceThenOncePerIntervalAndForgottenWhenOver) {
    SourceRateLimit limit({10, 10, 5000});
    const QHostAddress flood("10.0.0.9");
    EXPECT_TRUE(limit.admit(QHostAddress("10.0.0.2"), 0));
    EXPECT_EQ(QString(), limit.report(0)); // nothing closed, nothing to say
    // The three worst addresses by name, the others counted.
    for (int i = 0; i < 25; ++i)
        limit.admit(flood, 0);
    for (int a = 1; a <= 3; ++a)
        for (int i = 0; i < 10 + a; ++i)
            limit.admit(QHostAddress(QString("10.0.1.%1").arg(a)), 0);
    EXPECT_EQ("connection flood: closed 21 new connections at accept in 0.0 s (15 from 10.0.0.9, "
              "3 from 10.0.1.3, 2 from 10.0.1.2, the rest from 1 more addresses); allowed are 10 "
              "a second from one address, 10 at once",
              limit.report(0));
    for (int i = 0; i < 100; ++i)
        limit.admit(flood, 100 + i);
    EXPECT_EQ(QString(), limit.report(4000)); // within the interval: one line per interval
    const QString second = limit.report(5100);
    EXPECT_TRUE(second.contains("closed 99 new connections at accept in 5.0 s (99 from 10.0.0.9)"))
        << qPrintable(second);
    EXPECT_EQ(QString(), limit.report(10200)); // the flood is over
    // Addresses whose bucket is full again are forgotten: the table stays small.
    EXPECT_EQ(0, int(limit.sources()));
}

TEST(ServerLimitsTest, AFloodFromOneAddressIsClosedAtAcceptWhileAnotherIsServed) {
    RunningServer server([](ServerOptions& o) {
        QString error;
        EXPECT_TRUE(o.parse({"--source-rate", "1", "--source-burst", "3"}, QString(), &error))
            << qPrintable(error);
    });
    std::vector<std::unique_ptr<QTcpSocket>> flood;
    for (int i = 0; i < 10; ++i) {
        flood.push_back(std::make_unique<QTcpSocket>());
        flood.back()->bind(QHostAddress("127.0.0.2"));
        flood.back()->connectToHost(QHostAddress::LocalHost, server.port());
    }
    auto closed = [&] {
        int n = 0;
        for (const auto& f : flood)
            n += f->state() == QAbstractSocket::UnconnectedState ? 1 : 0;
        return n;
    };
    // Three at once, and one more if a second passed meanwhile.
    EXPECT_TRUE(waitFor([&] { return closed() >= 6; }));
    WireClient client(server.port());
    EXPECT_EQ("TST", client.ask("TST"));
    EXPECT_LE(int(server.server().connections().size()), 5);
}

TEST(ServerLimitsTest, AnAddressKeepsOnlyItsShareOfSilentConnectionsTheYoungest) {
    RunningServer server([](ServerOptions& o) {
        o.silentPerSource = 2;
        o.silentAgeMs = 0;
    });
    // Taken one after the other, so that the server's order is this order.
    std::vector<std::unique_ptr<QTcpSocket>> attacker;
    for (int i = 0; i < 5; ++i) {
        attacker.push_back(std::make_unique<QTcpSocket>());
        attacker.back()->bind(QHostAddress("127.0.0.2"));
        attacker.back()->connectToHost(QHostAddress::LocalHost, server.port());
        ASSERT_TRUE(waitFor([&] { return server.server().connections().size() == i + 1; }));
    }
    WireClient spoke(server.port());
    EXPECT_EQ("TST", spoke.ask("TST"));
    WireClient quiet1(server.port());
    WireClient quiet2(server.port());
    ASSERT_TRUE(waitFor([&] { return server.server().connections().size() == 8; }));
    server.server().keepAliveTick();
    EXPECT_TRUE(waitFor([&] {
        return attacker[0]->state() == QAbstractSocket::UnconnectedState &&
               attacker[1]->state() == QAbstractSocket::UnconnectedState &&
               attacker[2]->state() == QAbstractSocket::UnconnectedState;
    }));
    EXPECT_EQ(QAbstractSocket::ConnectedState, attacker[3]->state());
    EXPECT_EQ(QAbstractSocket::ConnectedState, attacker[4]->state());
    EXPECT_TRUE(quiet1.connected() && quiet2.connected());
    EXPECT_EQ("TST", spoke.ask("TST"));
    EXPECT_EQ(5, int(server.server().connections().size()));
}

TEST(ServerLimitsTest, APeerThatSendsWithoutPauseGetsOneSliceATurn) {
    constexpr qint64 slice = 16 * 1024;
    RunningServer server([](ServerOptions& o) {
        o.turnSliceBytes = slice;
        o.maxMessage = 64 * 1024 * 1024;
    });
    WireClient flooder(server.port());
    ASSERT_TRUE(waitFor([&] { return server.server().connections().size() == 1; }));
    ClientConnection* flooding = server.server().connections().first();
    // Far more than a slice waits in the system before the server looks again.
    flooder.sendBytes("OPSITS" + QByteArray(4 << 20, 'x'));
    while (flooder.socket().bytesToWrite() > 0 && flooder.socket().waitForBytesWritten(200)) {
    }
    ASSERT_GT(flooder.socket().bytesToWrite(), 0) << "the system took the whole input at once";
    const qint64 before = flooding->bytesIn();
    QCoreApplication::processEvents();
    EXPECT_GT(flooding->bytesIn(), before);
    EXPECT_LE(flooding->bytesIn() - before, slice);
    // Others are served meanwhile.
    WireClient other(server.port());
    EXPECT_EQ("TST", other.ask("TST"));
    EXPECT_TRUE(flooder.connected());
}
