// The program itself: it ends at once when its port is taken, serves, keeps its data over a
// restart, and ends cleanly on SIGTERM.
#include "WireClient.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <signal.h>

using namespace tk::server::test;

namespace {

QString listeningLine(QProcess& server) {
    QString out;
    waitFor([&] {
        out += QString::fromUtf8(server.readAllStandardOutput());
        return out.contains("), data in ") || server.state() == QProcess::NotRunning;
    });
    return out;
}

// The port a server started on port 0 names in its log; 0 when it named none.
quint16 portIn(const QString& log) {
    const auto m = QRegularExpression("listening on port (\\d+)").match(log);
    return m.hasMatch() ? quint16(m.captured(1).toUInt()) : 0;
}

} // namespace

TEST(ServerProcessTest, ServesDemoDataEndsOnSigtermAndRefusesATakenPort) {
    QTemporaryDir data;
    const QStringList args{"--data", data.path(), "--port", "0", "--demo"};
    QProcess server;
    server.start(QStringLiteral(TK_SERVER_EXE), args);
    quint16 port = portIn(listeningLine(server));
    ASSERT_NE(0, port);
    {
        WireClient c(port);
        EXPECT_EQ("TST", c.ask("TST"));
        EXPECT_EQ("OPSITSOK", c.ask("OPSITSna.herstart"));

        // A second server on the same port ends at once, with a line that says why.
        QProcess second;
        QStringList taken = args;
        taken[3] = QString::number(port);
        second.start(QStringLiteral(TK_SERVER_EXE), taken);
        ASSERT_TRUE(second.waitForFinished(10000));
        EXPECT_NE(0, second.exitCode());
        EXPECT_TRUE(QString::fromUtf8(second.readAllStandardOutput()).contains("ending"));
        EXPECT_EQ("TST", c.ask("TST"));
    }
    ::kill(pid_t(server.processId()), SIGTERM);
    ASSERT_TRUE(waitFor([&] { return server.state() == QProcess::NotRunning; }, 10000));
    EXPECT_EQ(QProcess::NormalExit, server.exitStatus());
    EXPECT_EQ(0, server.exitCode());

    // Started again on the same folder: what was saved is there, the demo is not seeded twice.
    server.start(QStringLiteral(TK_SERVER_EXE), args);
    const QString log = listeningLine(server);
    EXPECT_FALSE(log.contains("demo school"));
    port = portIn(log);
    ASSERT_NE(0, port);
    {
        WireClient c(port);
        EXPECT_EQ("LDNITSna.herstart", c.ask("LDNITS"));
        EXPECT_EQ("LDNKLSSNC", c.ask("LDNKLSSNC").left(9));
    }
    ::kill(pid_t(server.processId()), SIGTERM);
    EXPECT_TRUE(waitFor([&] { return server.state() == QProcess::NotRunning; }, 10000));
}
