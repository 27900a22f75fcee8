// A whole workstation: the launcher starts the client from an installed program folder, the
// client connects to tafelkrater-server with the demo school, loads it and opens the start screen.
#include "tests/e2e/ServerProces.h"
#include "tests/support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using tk::test::ServerProces;
using tk::test::waitUntil;

namespace {

bool schrijf(const QString& pad, const QString& inhoud) {
    QDir().mkpath(QFileInfo(pad).path());
    QFile f(pad);
    return f.open(QIODevice::WriteOnly) && f.write(inhoud.toUtf8()) == inhoud.toUtf8().size();
}

} // namespace

TEST(StartschermE2ETest, LauncherClientAndServerReachTheStartScreenForEveryone) {
    ServerProces server;
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();

    // A fresh program folder made by the build's own install step, prepared as an activated
    // Standalone workstation: its shell is already handed to the client (in the folder's own
    // registry store), the workstation's own account runs the client, which asks nothing of it,
    // and its settings find the server on this machine at the test server's port.
    QTemporaryDir map;
    QProcess install;
    install.setProcessChannelMode(QProcess::MergedChannels);
    install.start(TK_CMAKE, {"--install", TK_BUILD_DIR, "--prefix", map.path()});
    ASSERT_TRUE(install.waitForFinished(120000) && install.exitCode() == 0)
        << install.readAll().toStdString();
    ASSERT_TRUE(schrijf(map.filePath("Register/HKEY_LOCAL_MACHINE.reg"),
                        QString("REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Tafelkrater]\n"
                                "\"Modus\"=\"1\"\n\"Locatie server\"=\"\\\\tafelkrater-server\"\n\n"
                                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows "
                                "NT\\CurrentVersion\\Winlogon]\n\"Shell\"=\"%1\"\n")
                            .arg(map.filePath("tafelkrater"))));
    ASSERT_TRUE(schrijf(map.filePath("Data/Instellingen.ini"),
                        QString("[Algemeen]\r\nGeactiveerd=JA\r\n[Instellingen]\r\n"
                                "Serverlocatie=localhost:%1\r\n")
                            .arg(server.poort())));

    QString uitvoer; // the launcher's and the client's; outlives the process, which may still write
    QProcess launcher;
    QProcessEnvironment omgeving = QProcessEnvironment::systemEnvironment();
    omgeving.insert("QT_QPA_PLATFORM", "offscreen");
    omgeving.insert("USERNAME", "TAFELKRATER");
    launcher.setProcessEnvironment(omgeving);
    launcher.setProcessChannelMode(QProcess::MergedChannels);
    QObject::connect(&launcher, &QProcess::readyRead,
                     [&] { uitvoer += QString::fromUtf8(launcher.readAll()); });
    launcher.start(map.filePath("tafelkrater-startup"), {map.filePath("tafelkrater")});
    ASSERT_TRUE(launcher.waitForStarted(5000));
    // Also when an assertion ends the test early: SIGTERM, so that the launcher ends its client.
    const auto stop = qScopeGuard([&] {
        launcher.terminate();
        launcher.waitForFinished(15000);
    });
    ASSERT_TRUE(server.wachtOpUitvoer("at location GLOBAL", 60000))
        << server.uitvoer().toStdString() << uitvoer.toStdString();
    EXPECT_TRUE(waitUntil([&] { return uitvoer.contains("start screen for everyone"); }, 10000))
        << uitvoer.toStdString();
    // The client came through the launcher and loaded the school: the raw answers are sealed in
    // the offline cache, nothing of the load is left in the clear.
    EXPECT_TRUE(uitvoer.contains("starting the client with STARTUP"));
    EXPECT_TRUE(QFile::exists(map.filePath("Data/data.tijdelijk")));
    EXPECT_FALSE(QFile::exists(map.filePath("Data/Tijdelijk.ini")));

    // Ended as a session ends it (SIGTERM): the client goes first, and nothing restarts it.
    launcher.terminate();
    ASSERT_TRUE(launcher.waitForFinished(15000));
    EXPECT_TRUE(server.wachtOpUitvoer("connection 1 closed", 10000))
        << server.uitvoer().toStdString();
    EXPECT_FALSE(uitvoer.contains("STARTUPFOUT"));
}
