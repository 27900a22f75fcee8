#include "platform/linux/LinuxProcesses.h"
#include "platform/linux/PrivilegedSystemActions.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/WaitUntil.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

#include <unistd.h>

namespace {

using tk::LinuxProcesses;
using tk::test::waitUntil;

TEST(LinuxProcessesTest, NamesWhyAStartFails) {
    LinuxProcesses p;
    QTemporaryDir map;
    // A file marked executable that is no program and has no interpreter line.
    QFile onzin(map.filePath("onzin"));
    ASSERT_TRUE(onzin.open(QIODevice::WriteOnly));
    onzin.write("\x01\x02\x03 geen programma");
    onzin.close();
    onzin.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);

    EXPECT_EQ(p.start("/geen/programma", {}, {}).code, 2);
    EXPECT_EQ(p.start("geen-programma-met-deze-naam", {}, {}).code, 2);
    EXPECT_EQ(p.start("/bin/sh", {}, "/geen/map").code, 3);
    EXPECT_EQ(p.start(map.path(), {}, {}).code, 5); // a folder is no program
    EXPECT_EQ(p.start(onzin.fileName(), {}, {}).code, 11);
}

TEST(LinuxProcessesTest, RunsInTheGivenFolderWithTheGivenArguments) {
    LinuxProcesses p;
    QTemporaryDir map;
    // Our own input holds a text that the program must not get.
    int invoer[2];
    ASSERT_EQ(::pipe(invoer), 0);
    ASSERT_EQ(::write(invoer[1], "geheim", 6), 6);
    ::close(invoer[1]);
    const int eigen = ::dup(STDIN_FILENO);
    ::dup2(invoer[0], STDIN_FILENO);
    ::close(invoer[0]);
    const tk::StartResult r = p.start(
        "sh", {"-c", "printf '%s|%s|%s' \"$PWD\" \"$1\" \"$(cat)\" > uit", "sh", "een woord"},
        map.path());
    ::dup2(eigen, STDIN_FILENO);
    ::close(eigen);
    ASSERT_TRUE(r.started());
    QFile uit(map.filePath("uit"));
    ASSERT_TRUE(waitUntil([&] { return !p.isRunning(r.pid) && uit.size() > 0; }));
    ASSERT_TRUE(uit.open(QIODevice::ReadOnly));
    // Nothing to read: the program neither gets our input nor waits for input that never comes.
    EXPECT_EQ(uit.readAll(), QFile::encodeName(map.path()) + "|een woord|");
}

TEST(LinuxProcessesTest, FollowsWhatAWrapperLeftBehindApartFromOtherStartsAndEndsItWhole) {
    LinuxProcesses p;
    const auto sh = [&](const char* regel) {
        return p.start("sh", {"-c", QString::fromLatin1(regel)}, {});
    };
    // A shell that starts the real program and exits at once: the program lives on, no longer
    // below the process that was started. Beside it a shell that waits for its child.
    const tk::StartResult r = sh("sleep 60 & exit 0");
    const tk::StartResult b = sh("sleep 60 & wait");
    ASSERT_TRUE(r.started());
    ASSERT_TRUE(b.started());
    ASSERT_TRUE(
        waitUntil([&] { return !p.isRunning(r.pid) && p.processesOfStart(b.pid).size() == 2; }));
    const QList<qint64> over = p.processesOfStart(r.pid);
    ASSERT_EQ(over.size(), 1);
    EXPECT_NE(over.constFirst(), r.pid);
    EXPECT_TRUE(p.isRunning(over.constFirst()));

    EXPECT_TRUE(p.kill(r.pid));
    EXPECT_TRUE(waitUntil([&] { return p.processesOfStart(r.pid).isEmpty(); }));
    EXPECT_EQ(p.processesOfStart(b.pid).size(), 2);
    EXPECT_FALSE(p.kill(r.pid)); // nothing left to end
    EXPECT_FALSE(p.kill(p.ownPid()));
    EXPECT_FALSE(p.isRunning(0));
    EXPECT_TRUE(p.kill(b.pid));
    EXPECT_TRUE(waitUntil([&] { return p.processesOfStart(b.pid).isEmpty(); }));
}

TEST(LinuxProcessesTest, TheWebProxyReachesTheEnvironmentOfStartedProgramsOnly) {
    LinuxProcesses p;
    QTemporaryDir map;
    // The user's own proxy and another value of ours, as the session gave them.
    for (const char* naam : {"https_proxy", "ftp_proxy", "all_proxy", "HTTP_PROXY", "HTTPS_PROXY",
                             "FTP_PROXY", "ALL_PROXY", "no_proxy", "NO_PROXY"})
        qunsetenv(naam);
    qputenv("http_proxy", "http://eigen:1/");
    qputenv("TK_MERKTEKEN", "blijft");
    // What a program sees, started either way; it writes the file whole and then names it.
    const auto omgeving = [&](bool los, const char* naam) {
        const QString env = map.filePath("env");
        QFile::remove(env);
        const QStringList args{"-c", "env > e && mv e env"};
        if (los) {
            EXPECT_TRUE(p.startDetached("sh", args, map.path()));
        } else {
            const tk::StartResult r = p.start("sh", args, map.path());
            EXPECT_TRUE(r.started());
        }
        EXPECT_TRUE(waitUntil([&] { return QFile::exists(env); }));
        QFile uit(env);
        EXPECT_TRUE(uit.open(QIODevice::ReadOnly));
        QStringList regels = QString::fromLocal8Bit(uit.readAll()).split(QLatin1Char('\n'));
        regels =
            regels.filter(QRegularExpression(QString("^(%1)=").arg(QString::fromLatin1(naam))));
        regels.sort();
        return regels;
    };
    const QString dood = "http://dood.invalid:8080/";
    for (bool los : {false, true}) {
        SCOPED_TRACE(los ? "detached" : "followed");
        p.setWebProxy(" dood.invalid:8080 ");
        EXPECT_EQ(omgeving(los, "http_proxy|HTTPS_PROXY|ALL_PROXY|ftp_proxy|TK_MERKTEKEN"),
                  (QStringList{"ALL_PROXY=" + dood, "HTTPS_PROXY=" + dood, "TK_MERKTEKEN=blijft",
                               "ftp_proxy=" + dood, "http_proxy=" + dood}));
        EXPECT_EQ(
            omgeving(los, "no_proxy|NO_PROXY"),
            (QStringList{"NO_PROXY=localhost,127.0.0.1,::1", "no_proxy=localhost,127.0.0.1,::1"}));
        EXPECT_EQ(qgetenv("http_proxy"), QByteArray("http://eigen:1/")) << "our own stays";

        p.setWebProxy({});
        EXPECT_EQ(omgeving(los, "http_proxy|https_proxy|no_proxy|TK_MERKTEKEN"),
                  (QStringList{"TK_MERKTEKEN=blijft", "http_proxy=http://eigen:1/"}));
    }
    qunsetenv("http_proxy");
    qunsetenv("TK_MERKTEKEN");
}

} // namespace

TEST(LinuxProcessesTest, OneClientHoldsTheProgramFolderUntilItEnds) {
    QTemporaryDir map;
    auto eerste = std::make_unique<LinuxProcesses>();
    LinuxProcesses tweede;
    EXPECT_TRUE(eerste->claimSingleInstance(map.path()));
    EXPECT_TRUE(eerste->claimSingleInstance(map.path())); // asking again keeps it
    EXPECT_FALSE(tweede.claimSingleInstance(map.path()));
    eerste.reset();
    EXPECT_TRUE(tweede.claimSingleInstance(map.path()));
}

TEST(PrivilegedSystemActionsTest, AnActionIsWaitedForWithTheEventsRunningAndStoppedWhenItHangs) {
    // The privileged program of a program folder, run without sudo: it prints its arguments
    // and its input, fails for "weiger", and hangs for "hang".
    QTemporaryDir map;
    QFile script(map.filePath("tafelkrater-systeem"));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\n"
                 "case \"$1\" in hang) exec sleep 30;; weiger) echo refused; exit 2;; esac\n"
                 "echo \"$@\"; cat\n");
    script.close();
    script.setPermissions(script.permissions() | QFileDevice::ExeOwner);
    tk::PrivilegedSystemActions acties(map.path(), 300, {});
    EXPECT_EQ(acties.commandLine("admin-add", {"jan"}),
              (QStringList{map.filePath("tafelkrater-systeem"), "admin-add", "jan"}));
    // The machine's copy, apart from the program folder, is taken for the folder its install
    // named beside it, and only for that one.
    QTemporaryDir libexec;
    const QString kopie = libexec.filePath("tafelkrater-systeem");
    ASSERT_TRUE(QFile::copy(script.fileName(), kopie));
    for (const auto& [gediend, verwacht] :
         {std::pair{map.path() + "/", kopie}, std::pair{libexec.path(), script.fileName()}}) {
        QFile naam(libexec.filePath("programmamap"));
        ASSERT_TRUE(naam.open(QIODevice::WriteOnly | QIODevice::Truncate));
        naam.write(gediend.toUtf8() + '\n');
        naam.close();
        EXPECT_EQ(tk::PrivilegedSystemActions::programma(map.path(), kopie), verwacht);
    }
    struct Rij {
        const char* verb;
        bool gelukt;
        const char* uitvoer; // the start of what it printed
    };
    const Rij rijen[] = {
        {"account-create", true, "account-create jan\ngeheim \"x\""},
        {"weiger", false, "refused"},
        {"hang", false, "("},
    };
    for (const Rij& r : rijen) {
        SCOPED_TRACE(r.verb);
        // A timer of the client ticks while the action runs.
        int tikken = 0;
        QTimer tik;
        QObject::connect(&tik, &QTimer::timeout, [&] { ++tikken; });
        tik.start(20);
        QString uitvoer;
        EXPECT_EQ(r.gelukt,
                  acties.run(QString::fromLatin1(r.verb), {"jan"}, "geheim \"x\"", &uitvoer));
        EXPECT_TRUE(uitvoer.startsWith(QString::fromUtf8(r.uitvoer))) << uitvoer.toStdString();
        if (qstrcmp(r.verb, "hang") == 0) {
            EXPECT_GT(tikken, 3);
            EXPECT_TRUE(uitvoer.contains(u"did not end in time"));
        }
    }
    // Without the program the action fails (rather than waiting out its time).
    tk::PrivilegedSystemActions zonder(map.filePath("leeg"), 60000, {});
    EXPECT_FALSE(zonder.run("autologon-remove", {}, QString(), nullptr));
}
