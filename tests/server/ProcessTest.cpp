// The program itself: it ends at once when its port is taken, ends cleanly on SIGTERM, and seeds
// the demo school only into an empty store. (What a restart keeps is ServerStoreTest's and the
// kill test's.)
#include "WireClient.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <signal.h>

using namespace tk::server::test;

TEST(ServerProcessTest, EndsOnSigtermRefusesATakenPortAndSeedsTheDemoOnce) {
    QTemporaryDir data;
    QStringList args{"--data", data.path(), "--port", "0", "--demo"};
    // Started, it names its port (0: the system's choice) in its log; the log so far.
    const auto start = [&](QProcess& server) {
        server.start(TK_SERVER_EXE, args);
        QString log;
        waitFor([&] {
            log += QString::fromUtf8(server.readAllStandardOutput());
            return log.contains("), data in ") || server.state() == QProcess::NotRunning;
        });
        return log + QString::fromUtf8(server.readAllStandardOutput());
    };
    QProcess server;
    const QString first = start(server);
    EXPECT_TRUE(first.contains("demo school"));
    const auto port = QRegularExpression("listening on port (\\d+)").match(first).captured(1);
    ASSERT_FALSE(port.isEmpty()) << first.toStdString();
    WireClient c(quint16(port.toUInt()));
    EXPECT_EQ("TST", c.ask("TST"));

    // A second server on the same port ends at once, with a line that says why.
    args[3] = port;
    QProcess second;
    EXPECT_TRUE(start(second).contains("ending"));
    ASSERT_TRUE(waitFor([&] { return second.state() == QProcess::NotRunning; }, 10000));
    EXPECT_NE(0, second.exitCode());
    EXPECT_EQ("TST", c.ask("TST"));

    for (bool again : {false, true}) {
        ::kill(pid_t(server.processId()), SIGTERM);
        ASSERT_TRUE(waitFor([&] { return server.state() == QProcess::NotRunning; }, 10000));
        EXPECT_EQ(QProcess::NormalExit, server.exitStatus());
        EXPECT_EQ(0, server.exitCode());
        if (!again) {
            args[3] = "0";
            EXPECT_FALSE(start(server).contains("demo school")) << "seeded twice";
        }
    }
}
