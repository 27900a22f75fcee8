// The server when it cannot do what is asked: the client waits for its answers until the link
// goes, so the server closes the link rather than answer with what it does not have.
#include "RunningServer.h"
#include "WireClient.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <gtest/gtest.h>

using namespace tk::server::test;

namespace {

// Another program renames tables in the file under the running server.
void renameTables(const QString& folder, const QStringList& from, const QStringList& to) {
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "other");
        db.setDatabaseName(folder + "/tafelkrater.sqlite");
        ASSERT_TRUE(db.open());
        for (int i = 0; i < from.size(); ++i) {
            QSqlQuery q(db);
            ASSERT_TRUE(q.exec(QString("ALTER TABLE %1 RENAME TO %2").arg(from[i], to[i])))
                << q.lastError().text().toStdString();
        }
    }
    QSqlDatabase::removeDatabase("other");
}

} // namespace

TEST(StoreFailureTest, ARequestWhoseReadFailsClosesTheLinkUnansweredAndTheNextReadsTheStoreAgain) {
    RunningServer s; // the demo school: eight classes
    WireClient voor(s.port());
    const QString wachtwoorden = voor.ask("LDNWCH");
    const QString domein = voor.ask("INFDMN");
    const QStringList tabellen{"classes", "settings", "accounts"};
    const QStringList weg{"classes_weg", "settings_weg", "accounts_weg"};
    renameTables(s.dataFolder(), tabellen, weg);
    // The load's first request renders the load cache; the others read the store at once. The
    // client gets no reply and sees the link go, which sends it to its cache.
    for (const char* vraag : {"LDNKLSSNC", "LDNWCH", "INFDMN", "ACDCONgroep1"}) {
        SCOPED_TRACE(vraag);
        WireClient c(s.port());
        c.send(vraag);
        EXPECT_TRUE(waitFor([&] { return c.closedByServer(); }));
        EXPECT_EQ(c.reads(), QStringList());
    }
    renameTables(s.dataFolder(), weg, tabellen);
    // Nothing of the failed reads was kept.
    WireClient na(s.port());
    EXPECT_EQ(loadClasses(na).size(), 8);
    EXPECT_EQ(na.ask("LDNWCH"), wachtwoorden);
    EXPECT_EQ(na.ask("INFDMN"), domein);
    EXPECT_TRUE(voor.connected());
}

TEST(PackageFailureTest, APackageThatCannotBeMadeClosesTheLinkInsteadOfAnnouncingAFile) {
    RunningServer s;
    const QByteArray tmp = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/proc"); // no folder to pack in: not even root makes one there
    for (const char* vraag : {"LDNPICPAKstandaard", "LDNTHgeen-thema"}) {
        SCOPED_TRACE(vraag);
        WireClient c(s.port());
        c.send(vraag);
        EXPECT_TRUE(waitFor([&] { return c.closedByServer(); }));
        EXPECT_EQ(c.reads(), QStringList());
    }
    qputenv("TMPDIR", tmp);
    WireClient c(s.port());
    EXPECT_EQ(c.ask("LDNPICPAKstandaard"), "LDNPICPAK");
    EXPECT_TRUE(waitFor([&] { return s.receiver().complete(); }));
}
