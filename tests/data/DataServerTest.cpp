// The whole load against the real tafelkrater-server with its demo school: online, then offline
// from the sealed cache. Which answer goes under which key is the scripted load's business
// (LadenTest); this proves the client and the server agree.
#include "core/Ansi.h"
#include "core/IniDocument.h"
#include "data/SealedCache.h"
#include "tests/e2e/ServerProces.h"
#include "tests/support/Werkplek.h"

#include <gtest/gtest.h>

using namespace tk;
using tk::test::ServerProces;
using tk::test::Werkplek;

TEST(DataServerTest, OnlineThenOfflineFromTheCacheGivesTheSameTablesAndTheCacheHoldsRawAnswers) {
    ServerProces server;
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();

    Werkplek online(Werkplek::gegevens, server.poort());
    online.laadOnline();
    EXPECT_TRUE(online.rapporten.isEmpty())
        << online.rapporten.join(QStringLiteral(", ")).toStdString();
    ModData& d = online.d();
    ASSERT_GT(d.Klassen.gebruikt(), 0);
    ASSERT_GT(d.Leraren.gebruikt(), 0);
    EXPECT_FALSE(d.Applicaties[0].vrij(0));

    // The sealed cache holds what the server answers, as it answered it.
    const QByteArray verzegeld = online.cache();
    ASSERT_FALSE(verzegeld.isEmpty());
    const IniDocument cache = IniDocument::parse(Ansi::naarTekst(SealedCache::decipher(verzegeld)));
    const auto sleutel = [&](const char* sectie, const char* naam) {
        return cache.value(QString::fromLatin1(sectie), QString::fromLatin1(naam))
            .value_or(QStringLiteral("<none>"));
    };
    EXPECT_EQ(sleutel("Algemeen", "Domein"), online.p.frmMain->Domein);
    EXPECT_EQ(sleutel("Groepen", "Info"), online.vraag(QStringLiteral("LDNKLSSNC")));
    EXPECT_EQ(sleutel("Leerkrachten", "Info"), online.vraag(QStringLiteral("LDNLRNSNC")));
    EXPECT_EQ(sleutel("Algemeen", "Overige"), online.vraag(QStringLiteral("LDNOVR")));

    // Offline from that cache: the same tables, the cache as it was, nothing in the clear.
    Werkplek offline(Werkplek::gegevens);
    offline.schrijf(QStringLiteral("Data/data.tijdelijk"), verzegeld);
    offline.p.modMainLaden->Laden();
    EXPECT_TRUE(offline.rapporten.isEmpty())
        << offline.rapporten.join(QStringLiteral(", ")).toStdString();
    EXPECT_EQ(Werkplek::alleGegevens(offline.d()), Werkplek::alleGegevens(d));
    EXPECT_EQ(offline.cache(), verzegeld);
    EXPECT_FALSE(QFileInfo::exists(online.pad(QStringLiteral("Data/Tijdelijk.ini"))));
    EXPECT_FALSE(QFileInfo::exists(offline.pad(QStringLiteral("Data/Tijdelijk.ini"))));
}
