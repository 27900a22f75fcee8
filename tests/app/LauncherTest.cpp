// tafelkrater-startup as a process: it runs a stand-in client (a shell script that writes down
// how it was started and then does what its plan says) and takes words over its local socket.
#include "link/ModMainVerbinding.h"
#include "tests/support/WaitUntil.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

// The stand-in client: run n writes its process id to pid.txt and then its words as line n of
// calls.txt (in this order, so that a counted call has its id written whole), then acts on line n
// of plan.txt: "crash" dies of a signal, "exit N" ends with code N, "wait" ends with code 0 once
// the test has made the file "go" (and takes it away), "hang" waits until it is ended.
const char* const ClientScript = R"(#!/bin/sh
here=$(dirname "$0")
echo $$ > "$here/pid.txt"
echo "$*" >> "$here/calls.txt"
n=$(wc -l < "$here/calls.txt")
action=$(sed -n "${n}p" "$here/plan.txt")
case "$action" in
  crash) kill -SEGV $$ ;;
  exit*) exit ${action#exit } ;;
  wait) while [ ! -e "$here/go" ]; do sleep 0.02; done; rm -f "$here/go"; exit 0 ;;
  hang) while :; do sleep 1; done ;;
esac
exit 0
)";

class LauncherTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        const QString launcher = dir.filePath(QStringLiteral("tafelkrater-startup"));
        ASSERT_TRUE(QFile::copy(QStringLiteral(TK_STARTUP_PAD), launcher));
        QFile script(dir.filePath(QStringLiteral("client.sh")));
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write(ClientScript);
        script.close();
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    void TearDown() override {
        if (launcher.state() != QProcess::NotRunning) {
            launcher.kill();
            launcher.waitForFinished(3000);
        }
    }

    void plan(const QStringList& runs) {
        QFile f(dir.filePath(QStringLiteral("plan.txt")));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(runs.join(QLatin1Char('\n')).toUtf8() + '\n');
    }
    void start() {
        launcher.setProcessChannelMode(QProcess::MergedChannels);
        launcher.start(dir.filePath(QStringLiteral("tafelkrater-startup")),
                       {dir.filePath(QStringLiteral("client.sh"))});
        ASSERT_TRUE(launcher.waitForStarted(5000));
    }
    QStringList calls() {
        QFile f(dir.filePath(QStringLiteral("calls.txt")));
        if (!f.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    // Waits until the client was started n times.
    bool waitForCalls(int n) {
        return tk::test::waitUntil([&] { return calls().size() >= n; });
    }
    // Lets a waiting client end.
    void go() { QFile(dir.filePath(QStringLiteral("go"))).open(QIODevice::WriteOnly); }
    bool logged(const QString& text) {
        return tk::test::waitUntil([&] { return log().contains(text); });
    }
    // Sends a word as the client does: connect, write, disconnect.
    bool say(const QString& word) {
        QLocalSocket s;
        s.connectToServer(tk::ModMainVerbinding::launcherNaam(dir.path()));
        if (!s.waitForConnected(3000))
            return false;
        s.write(word.toUtf8());
        s.waitForBytesWritten(1000);
        s.disconnectFromServer();
        return true;
    }
    // The launcher ended within ms; its exit code.
    bool ended(int ms) {
        return launcher.state() == QProcess::NotRunning || launcher.waitForFinished(ms);
    }
    QString log() {
        QFile f(dir.filePath(QStringLiteral("Logboek/startup.log")));
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    }

    QTemporaryDir dir;
    QProcess launcher;
};

} // namespace

TEST_F(LauncherTest, ACrashOrAFailingExitCodeRestartsWithStartupfoutAndAnEndOnPurposeEndsBoth) {
    for (const char* eerste : {"crash", "exit 3"}) {
        SCOPED_TRACE(eerste);
        QFile::remove(dir.filePath(QStringLiteral("calls.txt")));
        plan({QString::fromLatin1(eerste), QStringLiteral("exit 0")});
        start();
        ASSERT_TRUE(ended(15000)) << launcher.readAll().toStdString();
        EXPECT_EQ(0, launcher.exitCode());
        EXPECT_EQ((QStringList{QStringLiteral("STARTUP"), QStringLiteral("STARTUPFOUT")}), calls());
    }
    EXPECT_TRUE(log().contains(QStringLiteral("the client crashed")));
    EXPECT_TRUE(log().contains(QStringLiteral("the client ended with code 3")));
}

TEST_F(LauncherTest, AClientThatKeepsCrashingIsGivenUp) {
    plan(QStringList(10, QStringLiteral("crash")));
    start();
    ASSERT_TRUE(ended(30000));
    EXPECT_EQ(1, launcher.exitCode());
    // The first start and five restarts; the sixth crash within the minute ends it.
    EXPECT_EQ(6, calls().size());
    EXPECT_TRUE(log().contains(QStringLiteral("giving up")));
}

TEST_F(LauncherTest, WordsThatBringTheClientBackStartItWithStartup) {
    for (const char* word : {"resolutie", "Resolutie", "UPDATE"}) {
        SCOPED_TRACE(word);
        QFile::remove(dir.filePath(QStringLiteral("calls.txt")));
        // The client says its word and ends, as the real one does; the second run ends the
        // launcher with "afsluiten".
        plan({QStringLiteral("wait"), QStringLiteral("wait")});
        start();
        ASSERT_TRUE(waitForCalls(1));
        ASSERT_TRUE(say(QString::fromLatin1(word)));
        ASSERT_TRUE(logged(QStringLiteral("word \"%1\"").arg(QString::fromLatin1(word))));
        go();
        ASSERT_TRUE(waitForCalls(2));
        ASSERT_TRUE(say(QStringLiteral("afsluiten")));
        ASSERT_TRUE(logged(QStringLiteral("word \"afsluiten\"")));
        go();
        ASSERT_TRUE(ended(15000));
        EXPECT_EQ(0, launcher.exitCode());
        EXPECT_EQ((QStringList{QStringLiteral("STARTUP"), QStringLiteral("STARTUP")}), calls());
    }
}

TEST_F(LauncherTest, AfsluitenEndsAClientThatDoesNotEndAndTheLauncherWithIt) {
    plan({QStringLiteral("hang")});
    start();
    ASSERT_TRUE(waitForCalls(1));
    ASSERT_TRUE(say(QStringLiteral("Afsluiten")));
    // Within the grace period and the forced end after it; no restart.
    ASSERT_TRUE(ended(20000));
    EXPECT_EQ(0, launcher.exitCode());
    EXPECT_EQ(QStringList{QStringLiteral("STARTUP")}, calls());
    EXPECT_TRUE(log().contains(QStringLiteral("ending it")));
}

TEST_F(LauncherTest, TerminatingTheLauncherEndsTheClientFirst) {
    plan({QStringLiteral("hang")});
    start();
    ASSERT_TRUE(waitForCalls(1));
    QFile pidFile(dir.filePath(QStringLiteral("pid.txt")));
    ASSERT_TRUE(pidFile.open(QIODevice::ReadOnly));
    const QString client =
        QStringLiteral("/proc/") + QString::fromUtf8(pidFile.readAll()).trimmed();
    ASSERT_TRUE(QFile::exists(client));
    launcher.terminate();
    ASSERT_TRUE(ended(15000));
    EXPECT_EQ(QProcess::NormalExit, launcher.exitStatus());
    EXPECT_FALSE(QFile::exists(client));
    EXPECT_EQ(QStringList{QStringLiteral("STARTUP")}, calls());
}

TEST_F(LauncherTest, UnknownWordsAreLoggedAndChangeNothing) {
    plan({QStringLiteral("wait")});
    start();
    ASSERT_TRUE(waitForCalls(1));
    ASSERT_TRUE(say(QStringLiteral("opnieuw\nniets")));
    ASSERT_TRUE(logged(QStringLiteral("unknown word \"niets\" ignored")));
    go();
    ASSERT_TRUE(ended(15000));
    EXPECT_EQ(QStringList{QStringLiteral("STARTUP")}, calls());
    EXPECT_TRUE(log().contains(QStringLiteral("unknown word \"opnieuw\" ignored")));
}

TEST_F(LauncherTest, NoClientIsAClearErrorInTheLog) {
    launcher.setProcessChannelMode(QProcess::MergedChannels);
    launcher.start(dir.filePath(QStringLiteral("tafelkrater-startup")),
                   {dir.filePath(QStringLiteral("missing-client"))});
    ASSERT_TRUE(ended(10000));
    EXPECT_EQ(1, launcher.exitCode());
    EXPECT_TRUE(log().contains(QStringLiteral("no client at")));
}
