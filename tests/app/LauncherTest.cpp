// tafelkrater-startup as a process: it runs a stand-in client (a shell script that writes down
// how it was started and then does what its plan says) and takes words over its local socket.
#include "link/ModMainVerbinding.h"
#include "tests/support/WaitUntil.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <QProcess>
#include <QScopeGuard>
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
        const QString launcher = dir.filePath("tafelkrater-startup");
        ASSERT_TRUE(QFile::copy(QStringLiteral(TK_STARTUP_PAD), launcher));
        QFile script(dir.filePath("client.sh"));
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

    QString lees(const char* naam) {
        QFile f(dir.filePath(naam));
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    }
    // A fresh run with this plan: the client's earlier calls forgotten.
    void start(const QStringList& runs, const char* client = "client.sh") {
        QFile::remove(dir.filePath("calls.txt"));
        QFile f(dir.filePath("plan.txt"));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(runs.join(u'\n').toUtf8() + '\n');
        f.close();
        launcher.setProcessChannelMode(QProcess::MergedChannels);
        launcher.start(dir.filePath("tafelkrater-startup"), {dir.filePath(client)});
        ASSERT_TRUE(launcher.waitForStarted(5000));
    }
    QStringList calls() { return lees("calls.txt").split(u'\n', Qt::SkipEmptyParts); }
    QString log() { return lees("Logboek/startup.log"); }
    // Waits until the client was started n times.
    bool waitForCalls(int n) {
        return tk::test::waitUntil([&] { return calls().size() >= n; });
    }
    // Lets a waiting client end.
    void go() { QFile(dir.filePath("go")).open(QIODevice::WriteOnly); }
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
    // The launcher ended within ms.
    bool ended(int ms) {
        return launcher.state() == QProcess::NotRunning || launcher.waitForFinished(ms);
    }

    QTemporaryDir dir;
    QProcess launcher;
};

} // namespace

TEST_F(LauncherTest, ACrashOrAFailingExitCodeRestartsWithStartupfoutAndAnEndOnPurposeEndsBoth) {
    for (const char* eerste : {"crash", "exit 3"}) {
        SCOPED_TRACE(eerste);
        start({eerste, "exit 0"});
        ASSERT_TRUE(ended(15000)) << launcher.readAll().toStdString();
        EXPECT_EQ(0, launcher.exitCode());
        EXPECT_EQ((QStringList{"STARTUP", "STARTUPFOUT"}), calls());
    }
    EXPECT_TRUE(log().contains("the client crashed"));
    EXPECT_TRUE(log().contains("the client ended with code 3"));
}

TEST_F(LauncherTest, AClientThatKeepsCrashingIsGivenUp) {
    start(QStringList(10, "crash"));
    ASSERT_TRUE(ended(30000));
    EXPECT_EQ(1, launcher.exitCode());
    // The first start and five restarts; the sixth crash within the minute ends it.
    EXPECT_EQ(6, calls().size());
    EXPECT_TRUE(log().contains("giving up"));
}

TEST_F(LauncherTest, WordsThatBringTheClientBackStartItWithStartup) {
    for (const char* word : {"resolutie", "Resolutie", "UPDATE"}) {
        SCOPED_TRACE(word);
        // The client says its word and ends, as the real one does; the second run ends the
        // launcher with "afsluiten".
        start({"wait", "wait"});
        ASSERT_TRUE(waitForCalls(1));
        ASSERT_TRUE(say(word));
        ASSERT_TRUE(logged(QString("word \"%1\"").arg(word)));
        go();
        ASSERT_TRUE(waitForCalls(2));
        ASSERT_TRUE(say("afsluiten"));
        ASSERT_TRUE(logged("word \"afsluiten\""));
        go();
        ASSERT_TRUE(ended(15000));
        EXPECT_EQ(0, launcher.exitCode());
        EXPECT_EQ((QStringList{"STARTUP", "STARTUP"}), calls());
    }
}

TEST_F(LauncherTest, AfsluitenOrTheLauncherEndedEndsAClientThatDoesNotEnd) {
    start({"hang"});
    ASSERT_TRUE(waitForCalls(1));
    ASSERT_TRUE(say("Afsluiten"));
    // Within the grace period and the forced end after it; no restart.
    ASSERT_TRUE(ended(20000));
    EXPECT_EQ(0, launcher.exitCode());
    EXPECT_EQ(QStringList{"STARTUP"}, calls());
    EXPECT_TRUE(log().contains("ending it"));

    // Terminating the launcher ends the client first.
    start({"hang"});
    ASSERT_TRUE(waitForCalls(1));
    const QString client = "/proc/" + lees("pid.txt").trimmed();
    ASSERT_TRUE(QFile::exists(client));
    launcher.terminate();
    ASSERT_TRUE(ended(15000));
    EXPECT_EQ(QProcess::NormalExit, launcher.exitStatus());
    EXPECT_FALSE(QFile::exists(client));
    EXPECT_EQ(QStringList{"STARTUP"}, calls());
}

TEST_F(LauncherTest, UnknownWordsAreLoggedAndChangeNothingAndNoClientIsAClearError) {
    start({"wait"});
    ASSERT_TRUE(waitForCalls(1));
    ASSERT_TRUE(say("opnieuw\nniets"));
    ASSERT_TRUE(logged("unknown word \"niets\" ignored"));
    go();
    ASSERT_TRUE(ended(15000));
    EXPECT_EQ(QStringList{"STARTUP"}, calls());
    EXPECT_TRUE(log().contains("unknown word \"opnieuw\" ignored"));
    // No client is a clear error in the log.
    start({}, "missing-client");
    ASSERT_TRUE(ended(10000));
    EXPECT_EQ(1, launcher.exitCode());
    EXPECT_TRUE(log().contains("no client at"));
}

// The socket lives in the account's own runtime folder: what another account (or a launcher that
// was killed) left under the shared temporary folder's name cannot keep the launcher out.
TEST_F(LauncherTest, TheSocketLivesInTheAccountsRuntimeFolder) {
    const QString gedeeld = QDir::temp().filePath(tk::ModMainVerbinding::launcherNaam(dir.path()));
    ASSERT_TRUE(QDir().mkpath(gedeeld + "/bezet")); // not a socket, and not removable as one
    const auto weg = qScopeGuard([&] { QDir(gedeeld).removeRecursively(); });
    ASSERT_TRUE(QDir(dir.path()).mkdir("runtime"));
    qputenv("XDG_RUNTIME_DIR", dir.filePath("runtime").toUtf8());
    const auto terug = qScopeGuard([] { qunsetenv("XDG_RUNTIME_DIR"); });
    start({"wait"});
    ASSERT_TRUE(waitForCalls(1)) << log().toStdString();
    EXPECT_TRUE(say("niets"));
    EXPECT_EQ(QFileInfo(tk::ModMainVerbinding::launcherNaam(dir.path())).path(),
              dir.filePath("runtime"));
    go();
    EXPECT_TRUE(ended(10000));
}
