// A click on an application icon is counted by the real server ("OPSTEL").
#include "data/ModData.h"
#include "link/FrmMainLink.h"
#include "screens/desktop/FrmBureaubladStarter.h"
#include "tests/e2e/ServerProces.h"
#include "tests/e2e/Werkstation.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::ServerProces;
using tk::test::Werkstation;

namespace {

// The starts the server counted for an application of a kind on an owner's desktop, read from
// its store as it stands.
qint64 geteld(const ServerProces& server, int soort, int app, int eigenaar) {
    qint64 aantal = -1;
    {
        QSqlDatabase db =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("telling"));
        db.setDatabaseName(QDir(server.dataMap()).filePath(QStringLiteral("tafelkrater.sqlite")));
        db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=5000"));
        if (db.open()) {
            QSqlQuery q(db);
            q.prepare(QStringLiteral("SELECT COALESCE(SUM(count), 0) FROM starts"
                                     " WHERE kind = ? AND application = ? AND owner = ?"));
            q.addBindValue(soort);
            q.addBindValue(app);
            q.addBindValue(eigenaar);
            if (q.exec() && q.next())
                aantal = q.value(0).toLongLong();
        }
    }
    QSqlDatabase::removeDatabase(QStringLiteral("telling"));
    return aantal;
}

// Lets the event loop run for a moment in real time, as between two clicks: two messages that
// the link sends back to back without an answer would reach the server as one.
void moment() {
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < 150)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

} // namespace

TEST(StarterE2ETest, AClickOnAnIconIsCountedByTheServerPerKindAndDesktop) {
    ServerProces server;
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
    Werkstation ws(server.poort(), false);
    Programma& p = ws.w.p;
    ASSERT_TRUE(ws.verbind());
    p.maak(p.modData, p);
    auto app = [&](int soort, int rij, const QString& id) {
        FixedTable& t = p.modData->Applicaties[soort];
        t(rij, 0) = id;
        t(rij, 1) = QStringLiteral("Rekenen");
        t(rij, 3) = QStringLiteral("/bin/sh");
        t(rij, 5) = QStringLiteral("standaard|3");
        t(rij, 8) = QStringLiteral("1024x768x32xNEE");
    };
    app(2, 0, QStringLiteral("12"));
    app(0, 1, QStringLiteral("5"));
    FrmBureaubladStarter starter(p);

    auto klik = [&](int soort, int rij, const QString& eigenaar) {
        starter.LaatsteStart = QDateTime(); // clicks further apart than the guard
        starter.StartApplicatieRij(soort, rij, eigenaar);
        moment();
    };
    klik(2, 0, QStringLiteral("7"));
    klik(2, 0, QStringLiteral("7"));
    klik(2, 0, QStringLiteral("8"));
    klik(0, 1, QStringLiteral("7"));
    EXPECT_EQ(ws.w.platform.fakeProcesses().started.size(), 4);
    // The server reads in order: once it answered a later request, it has counted the clicks.
    EXPECT_FALSE(ws.vraag(QStringLiteral("HLPSNC")).isEmpty());

    EXPECT_EQ(geteld(server, 2, 12, 7), 2);
    EXPECT_EQ(geteld(server, 2, 12, 8), 1);
    EXPECT_EQ(geteld(server, 0, 5, 7), 1);
    EXPECT_EQ(geteld(server, 1, 5, 7), 0); // the kinds are counted apart
    EXPECT_FALSE(server.uitvoer().contains(QStringLiteral("OPSTEL")))
        << server.uitvoer().toStdString();
}
