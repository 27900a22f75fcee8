// A whole workstation: the launcher starts the client from an installed program folder, the
// client connects to tafelkrater-server with the demo school, loads it and opens the start screen.
#include "tests/e2e/Programmamap.h"
#include "tests/e2e/ServerProces.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using tk::test::Programmamap;
using tk::test::ServerProces;

TEST(StartschermE2ETest, LauncherClientAndServerReachTheStartScreenForEveryone) {
    // A Standalone workstation finds its server on this machine, at the port its settings name.
    ServerProces server;
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
    Programmamap map(server.poort());
    ASSERT_TRUE(map.gemaakt()) << map.fout().toStdString();

    ASSERT_TRUE(map.startLauncher());
    ASSERT_TRUE(server.wachtOpUitvoer(QStringLiteral("at location GLOBAL"), 60000))
        << server.uitvoer().toStdString() << map.uitvoer().toStdString();
    EXPECT_TRUE(map.wachtOpUitvoer(QStringLiteral("start screen for everyone"), 10000))
        << map.uitvoer().toStdString();
    // The client came through the launcher and loaded the school: the raw answers are sealed in
    // the offline cache, nothing of the load is left in the clear.
    EXPECT_TRUE(map.uitvoer().contains(QStringLiteral("starting the client with STARTUP")));
    EXPECT_FALSE(map.uitvoer().contains(QStringLiteral("STARTUPFOUT")));
    EXPECT_TRUE(QFile::exists(map.pad(QStringLiteral("Data/data.tijdelijk"))));
    EXPECT_FALSE(QFile::exists(map.pad(QStringLiteral("Data/Tijdelijk.ini"))));

    // Ended as a session ends it: the client goes first, and nothing restarts it.
    ASSERT_TRUE(map.stopLauncher());
    EXPECT_TRUE(server.wachtOpUitvoer(QStringLiteral("connection 1 closed"), 10000))
        << server.uitvoer().toStdString();
    EXPECT_FALSE(map.uitvoer().contains(QStringLiteral("STARTUPFOUT")));
}
