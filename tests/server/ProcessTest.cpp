// The program itself: it ends at once when its port is taken, serves, keeps its data over a
// restart, and ends cleanly on SIGTERM.
#include "WireClient.h"

#include <QProcess>
#include <QTcpServer>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <signal.h>

using namespace tk::server::test;

namespace {

// A port that was free a moment ago, with the four after it.
quint16 freePort() {
    for (int attempt = 0; attempt < 20; ++attempt) {
        QTcpServer probe;
        probe.listen(QHostAddress::Any, 0);
        const quint16 port = probe.serverPort();
        probe.close();
        bool free = port < 65000;
        for (int i = 1; i <= 4 && free; ++i) {
            QTcpServer next;
            free = next.listen(QHostAddress::Any, quint16(port + i));
        }
        if (free)
            return port;
    }
    return 0;
}

QString listeningLine(QProcess& server) {
    QString out;
    waitFor([&] {
        out += QString::fromUtf8(server.readAllStandardOutput());
        return out.contains(QStringLiteral("listening")) || server.state() == QProcess::NotRunning;
    });
    return out;
}

} // namespace

TEST(ServerProcessTest, ServesDemoDataEndsOnSigtermAndRefusesATakenPort) {
    QTemporaryDir data;
    const quint16 port = freePort();
    ASSERT_NE(0, port);
    const QStringList args{QStringLiteral("--data"), data.path(), QStringLiteral("--port"),
                           QString::number(port), QStringLiteral("--demo")};
    QProcess server;
    server.start(QStringLiteral(TK_SERVER_EXE), args);
    ASSERT_TRUE(listeningLine(server).contains(QStringLiteral("listening")));
    {
        WireClient c(port);
        EXPECT_EQ(QStringLiteral("TST"), c.ask(QStringLiteral("TST")));
        EXPECT_EQ(QStringLiteral("OPSITSOK"), c.ask(QStringLiteral("OPSITSna.herstart")));

        // A second server on the same port ends at once, with a line that says why.
        QProcess second;
        second.start(QStringLiteral(TK_SERVER_EXE), args);
        ASSERT_TRUE(second.waitForFinished(10000));
        EXPECT_NE(0, second.exitCode());
        EXPECT_TRUE(
            QString::fromUtf8(second.readAllStandardOutput()).contains(QStringLiteral("ending")));
        EXPECT_EQ(QStringLiteral("TST"), c.ask(QStringLiteral("TST")));
    }
    ::kill(pid_t(server.processId()), SIGTERM);
    ASSERT_TRUE(waitFor([&] { return server.state() == QProcess::NotRunning; }, 10000));
    EXPECT_EQ(QProcess::NormalExit, server.exitStatus());
    EXPECT_EQ(0, server.exitCode());

    // Started again on the same folder: what was saved is there, the demo is not seeded twice.
    server.start(QStringLiteral(TK_SERVER_EXE), args);
    const QString log = listeningLine(server);
    EXPECT_FALSE(log.contains(QStringLiteral("demo school")));
    {
        WireClient c(port);
        EXPECT_EQ(QStringLiteral("LDNITSna.herstart"), c.ask(QStringLiteral("LDNITS")));
        EXPECT_EQ(QStringLiteral("LDNKLSSNC"), c.ask(QStringLiteral("LDNKLSSNC")).left(9));
    }
    ::kill(pid_t(server.processId()), SIGTERM);
    EXPECT_TRUE(waitFor([&] { return server.state() == QProcess::NotRunning; }, 10000));
}
