#include "platform/linux/LinuxProcesses.h"
#include "tests/support/QtPrinters.h"

#include <QDeadlineTimer>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

namespace {

using tk::LinuxProcesses;

// Waits (briefly, polling) until the condition holds; the processes are real.
template <class F> bool binnenkort(F voorwaarde) {
    QDeadlineTimer deadline(5000);
    while (!voorwaarde()) {
        if (deadline.hasExpired())
            return false;
        QThread::msleep(10);
    }
    return true;
}

TEST(LinuxProcessesTest, NamesWhyAStartFails) {
    LinuxProcesses p;
    QTemporaryDir map;
    EXPECT_EQ(p.start(QStringLiteral("/geen/programma"), {}, {}).code, 2);
    EXPECT_EQ(p.start(QStringLiteral("geen-programma-met-deze-naam"), {}, {}).code, 2);
    EXPECT_EQ(p.start(QStringLiteral("/bin/sh"), {}, QStringLiteral("/geen/map")).code, 3);
    EXPECT_EQ(p.start(map.path(), {}, {}).code, 5); // a folder is no program
}

TEST(LinuxProcessesTest, FollowsAStartedTreeAndEndsItWhole) {
    LinuxProcesses p;
    QTemporaryDir map;
    // A shell that starts a child and waits for it: two processes to follow.
    const tk::StartResult r =
        p.start(QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral("sleep 60 & wait")},
                map.path());
    ASSERT_TRUE(r.started());
    ASSERT_GT(r.pid, 0);
    EXPECT_TRUE(p.isRunning(r.pid));
    ASSERT_TRUE(binnenkort([&] { return p.descendants(r.pid).size() == 1; }));
    const qint64 kind = p.descendants(r.pid).constFirst();
    EXPECT_TRUE(p.isRunning(kind));

    EXPECT_TRUE(p.kill(r.pid));
    EXPECT_TRUE(binnenkort([&] { return !p.isRunning(r.pid) && !p.isRunning(kind); }));
    EXPECT_FALSE(p.kill(p.ownPid()));
    EXPECT_FALSE(p.isRunning(0));
}

} // namespace
