// The whole load against the real tafelkrater-server with its demo school: online, then offline
// from the sealed cache, and the cache holds the server's raw answers under their keys.
#include "core/Ansi.h"
#include "core/IniDocument.h"
#include "data/SealedCache.h"
#include "tests/e2e/ServerProces.h"
#include "tests/support/Werkplek.h"

#include <QMap>
#include <QTcpSocket>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::ServerProces;
using tk::test::Werkplek;

namespace {

QString s(const char* t) {
    return QString::fromLatin1(t);
}

// A plain client of the server: one request, one reply.
class RuweClient {
public:
    explicit RuweClient(quint16 poort) {
        m_socket.connectToHost(QHostAddress::LocalHost, poort);
        m_socket.waitForConnected(5000);
    }
    QString vraag(const QString& bericht) {
        m_socket.write(Ansi::naarBytes(bericht));
        m_socket.flush();
        QByteArray antwoord;
        if (m_socket.waitForReadyRead(5000))
            antwoord = m_socket.readAll();
        while (m_socket.waitForReadyRead(30))
            antwoord += m_socket.readAll();
        return Ansi::naarTekst(antwoord);
    }

private:
    QTcpSocket m_socket;
};

} // namespace

TEST(DataServerTest, OnlineThenOfflineFromTheCacheGivesTheSameTablesAndTheCacheHoldsRawAnswers) {
    ServerProces server;
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();

    Werkplek online(Werkplek::gegevens, server.poort());
    online.laadOnline();
    EXPECT_TRUE(online.rapporten.isEmpty()) << online.rapporten.join(s(", ")).toStdString();
    ModData& d = online.d();
    ASSERT_GT(d.Klassen.gebruikt(), 0);
    ASSERT_GT(d.Leraren.gebruikt(), 0);
    EXPECT_FALSE(d.Applicaties[0].vrij(0));
    EXPECT_FALSE(QFileInfo::exists(online.pad(s("Data/Tijdelijk.ini"))));

    // The sealed cache, deciphered with the fixed key, against what the server answers now.
    const QByteArray verzegeld = online.cache();
    ASSERT_FALSE(verzegeld.isEmpty());
    const IniDocument cache = IniDocument::parse(Ansi::naarTekst(SealedCache::decipher(verzegeld)));
    QMap<QString, QString> verwacht; // "section/key" -> the answer after its prefix
    RuweClient ruw(server.poort());
    auto zet = [&](const QString& sectie, const QString& sleutel, const QString& waarde) {
        verwacht.insert(sectie + u'/' + sleutel, waarde);
    };
    ruw.vraag(s("INFDMN"));
    zet(s("Algemeen"), s("Domein"), online.p.frmMain->Domein);
    for (const auto& [snc, da, sectie] : {std::tuple{"LDNKLSSNC", "LDNKLSDA", "Groepen"},
                                          std::tuple{"LDNLRNSNC", "LDNLRNDA", "Leerkrachten"}}) {
        const QString info = ruw.vraag(s(snc)).mid(9);
        zet(s(sectie), s("Info"), info);
        const int laatste = info.section(u'|', 0, 0).toInt();
        for (int n = 0; n <= laatste; ++n) {
            const QString nummer = QString::number(n);
            zet(s(sectie), nummer, ruw.vraag(s(da) + nummer).mid(8 + nummer.size() + 1));
        }
    }
    for (int soort = 0; soort < 3; ++soort) {
        const QString letter = s("KLA").mid(soort, 1);
        zet(s("Categorien"), QString::number(soort), ruw.vraag(s("LDNCA") + letter).mid(6));
        const QString sectie = s("Applicaties: ") + QString::number(soort);
        const QString info = ruw.vraag(s("LDNAP") + letter + s("SNC")).mid(9);
        zet(sectie, s("Info"), info);
        for (int i = 1; i <= info.section(u'|', 0, 0).toInt(); ++i)
            zet(sectie, QString::number(i),
                ruw.vraag(s("LDNAP") + letter + s("DAT") + QString::number(i)).mid(9));
    }
    zet(s("Algemeen"), s("Wachtwoorden"), ruw.vraag(s("LDNWCH")).mid(6));
    zet(s("Algemeen"), s("Overige"), ruw.vraag(s("LDNOVR")).mid(6));
    const QString paginas = ruw.vraag(s("LDNIVWINF")).mid(9);
    zet(s("Internetfilter"), s("Verboden woorden"), paginas);
    for (int i = 1; i <= paginas.toInt(); ++i)
        zet(s("Internetfilter"), QStringLiteral("V%1").arg(i),
            ruw.vraag(QStringLiteral("LDNIVWPA%1").arg(i)).mid(6));
    zet(s("Internetfilter"), s("T1"), ruw.vraag(s("LDNITS")).mid(6));
    zet(s("Algemeen"), s("Printermodule"), ruw.vraag(s("LDNMOD")).mid(6));
    zet(s("Algemeen"), s("Printers"), ruw.vraag(s("LDNPRN")).mid(6));

    QMap<QString, QString> gevonden;
    for (const QString& sectie : cache.sections())
        for (const QString& sleutel : cache.keys(sectie))
            gevonden.insert(sectie + u'/' + sleutel,
                            cache.value(sectie, sleutel).value_or(QString()));
    EXPECT_EQ(gevonden.keys(), verwacht.keys());
    for (auto it = verwacht.cbegin(); it != verwacht.cend(); ++it) {
        SCOPED_TRACE(it.key().toStdString());
        EXPECT_EQ(gevonden.value(it.key()), it.value());
    }

    // Offline from that cache: the same tables.
    Werkplek offline(Werkplek::gegevens);
    offline.schrijf(s("Data/data.tijdelijk"), verzegeld);
    offline.p.modMainLaden->Laden();
    EXPECT_TRUE(offline.rapporten.isEmpty()) << offline.rapporten.join(s(", ")).toStdString();
    EXPECT_EQ(Werkplek::alleGegevens(offline.d()), Werkplek::alleGegevens(d));
    EXPECT_EQ(offline.cache(), verzegeld);
    EXPECT_FALSE(QFileInfo::exists(offline.pad(s("Data/Tijdelijk.ini"))));
}
