// The whole load (modMain.Laden) of a maximal school from tafelkrater-server on loopback, and the
// offline load of the same set from the sealed cache. The school is put on a fresh server over
// the wire first: 21 classes, 100 teachers, 20 categories and 200 applications of each kind and
// a forbidden-word list of about 30 pages. Run by hand: ./tk_data_bench
#include "core/Programma.h"
#include "data/ModData.h"
#include "data/ModMainLaden.h"
#include "link/FrmMainLink.h"
#include "platform/fake/FakePlatform.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTcpServer>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <memory>

using namespace tk;

namespace {

QString s(const char* t) {
    return QString::fromLatin1(t);
}

quint16 vrijePoort() {
    QTcpServer proef;
    proef.listen(QHostAddress::LocalHost, 0);
    return proef.serverPort();
}

// A Network workstation in its own program folder, with the data layer.
struct Werkstation {
    Werkstation() : platform(map.path()), p(platform) {
        p.maak(p.frmMain, p);
        p.maak(p.modData, p);
        p.maak(p.modMainLaden, p);
        p.modMain.ModusNetwerk = true;
        p.modMain.MaakMappen(s("\\Data"));
        // Each reply is one read: counting reads counts round trips.
        QObject::connect(&p.frmMain->WS, &QTcpSocket::readyRead, [this] { ++rondreizen; });
    }
    bool verbind(quint16 poort) {
        p.frmMain->WS.connectToHost(QHostAddress::LocalHost, poort);
        return p.frmMain->WS.waitForConnected(5000);
    }
    // A save of class B that ModData has no procedure for.
    QString opslaan(const QString& bericht) {
        p.modMain.AntwoordOpslaanOntvangen = false;
        p.frmMain->WS_Versturen(bericht, false);
        p.wacht.Tot([this] { return p.modMain.AntwoordOpslaanOntvangen; });
        return p.modMain.AntwoordOpslaan;
    }
    QTemporaryDir map;
    FakePlatform platform;
    Programma p;
    qint64 rondreizen = 0;
};

bool vulSchool(Werkstation& w) {
    ModData& d = *w.p.modData;
    const char* const woord[] = {"groep", "leer", "algemeen"};
    const char* const letter[] = {"k", "l", "a"};
    for (int soort = 0; soort < 3; ++soort) {
        QStringList categorien;
        for (int c = 0; c < ModData::CategorieRijen; ++c)
            categorien << w.opslaan(s("OPSCAN") + s(woord[soort]) +
                                    QStringLiteral(";<>;Categorie %1;<>;-1").arg(c));
        for (int a = 0; a < ModData::ApplicatieRijen; ++a) {
            const QString id = w.opslaan(s("OPSAPPNIE") + s(letter[soort]));
            const QString antwoord = w.opslaan(
                s("OPSAPP") +
                QStringList{s(letter[soort]), id, s("ja"),
                            QStringLiteral("Applicatie met een naam %1").arg(a),
                            categorien[a % categorien.size()], s("/usr/bin/xclock"),
                            s("standaard|12"),
                            s("Een omschrijving van een regel of wat tekst voor de tooltip"),
                            s("-digital -update 1"), s("1024x768x32xNEE")}
                    .join(s("><")));
            if (antwoord != u"OK") {
                std::fprintf(stderr, "application refused: %s\n", qPrintable(antwoord));
                return false;
            }
        }
    }
    QStringList bureaublad;
    for (int i = 1; i <= 45; ++i)
        bureaublad << QString::number(i);
    for (int k = 0; k < ModData::KlassenRijen; ++k) {
        const QStringList kolommen{QStringLiteral("Groep %1").arg(k),
                                   s("G"),
                                   s("1a.jpg"),
                                   s("Geen"),
                                   QStringLiteral("groep%1").arg(k),
                                   s("Sleutelwrk42"),
                                   s("0"),
                                   bureaublad.join(u'|'),
                                   s("Ja"),
                                   QString(),
                                   s("Standaard"),
                                   s("0,0"),
                                   s("1|2|3|a1"),
                                   QString()};
        for (int c = 0; c < kolommen.size(); ++c)
            d.Klassen(k, c) = kolommen[c];
        if (d.OpslaanKlasRecord(k, false) == u"FOUT")
            return false;
    }
    for (int l = 0; l < ModData::LerarenRijen; ++l) {
        for (int c = 0; c < ModData::LerarenKolommen; ++c)
            d.Leraren(l, c).clear();
        d.Leraren(l, 0) = QStringLiteral("Achternaam%1").arg(l);
        d.Leraren(l, 3) = QStringLiteral("leraar%1").arg(l);
        d.Leraren(l, 4) = s("wachtwoord");
        d.Leraren(l, 5) = s("0");
        d.Leraren(l, 6) = s("Voornaam");
        d.Leraren(l, 8) = bureaublad.join(u'|');
        d.Leraren(l, 9) = s("Ja");
        d.Leraren(l, 10) = s("1|2|3|4|5|6");
        d.Leraren(l, 11) = s("Nee");
        d.Leraren(l, 12) = s("Nee|Nee");
        d.Leraren(l, 14) = s("Standaard");
        d.Leraren(l, 15) = s("1|2|a1");
        if (d.OpslaanLeraarRecord(l) == u"FOUT")
            return false;
    }
    QStringList woorden;
    for (int i = 0; i < 3000; ++i)
        woorden << QStringLiteral("woord%1").arg(i, 4, 10, QLatin1Char('0'));
    d.VerbodenWoorden = woorden.join(u'|');
    d.ToegestaneSites = s("a.nl|b.nl|c.nl");
    return d.OpslaanVerbodenWoorden() && d.OpslaanToegestaneSites();
}

QProcess* server = nullptr;
quint16 serverPoort = 0;
QByteArray cacheVanOnline;

bool volledig(ModData& d) {
    return d.Klassen.gebruikt() == 21 && d.Leraren.gebruikt() == 100 &&
           d.Applicaties[0].gebruikt() == 200 && d.Applicaties[1].gebruikt() == 200 &&
           d.Applicaties[2].gebruikt() == 200 && d.Categorien[2].gebruikt() == 20 &&
           d.VerbodenWoorden.size() > 25000;
}

void BM_LadenOnline(benchmark::State& state) {
    Werkstation w;
    if (!w.verbind(serverPoort)) {
        state.SkipWithError("no server");
        return;
    }
    qint64 rondreizen = 0;
    for (auto _ : state) {
        w.rondreizen = 0;
        w.p.modMainLaden->Laden();
        rondreizen = w.rondreizen;
    }
    if (!volledig(*w.p.modData)) {
        state.SkipWithError("the load is not complete");
        return;
    }
    QFile cache(w.p.modMain.Pad(s(ModData::CacheBestand)));
    if (cache.open(QIODevice::ReadOnly))
        cacheVanOnline = cache.readAll();
    state.counters["round_trips"] = double(rondreizen);
    state.counters["us_per_round_trip"] =
        benchmark::Counter(double(rondreizen) * double(state.iterations()),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.counters["cache_bytes"] = double(cacheVanOnline.size());
}
BENCHMARK(BM_LadenOnline)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

void BM_LadenOffline(benchmark::State& state) {
    if (cacheVanOnline.isEmpty()) {
        state.SkipWithError("no cache from the online load");
        return;
    }
    Werkstation w;
    QFile uit(w.p.modMain.Pad(s(ModData::CacheBestand)));
    if (!uit.open(QIODevice::WriteOnly) || uit.write(cacheVanOnline) != cacheVanOnline.size()) {
        state.SkipWithError("cannot write the cache");
        return;
    }
    uit.close();
    for (auto _ : state)
        w.p.modMainLaden->Laden();
    if (!volledig(*w.p.modData))
        state.SkipWithError("the offline load is not complete");
}
BENCHMARK(BM_LadenOffline)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    QTemporaryDir data;
    serverPoort = vrijePoort();
    QProcess proces;
    server = &proces;
    proces.setProcessChannelMode(QProcess::MergedChannels);
    proces.start(s(TK_SERVER_EXE),
                 {s("--data"), data.path(), s("--port"), QString::number(serverPoort),
                  s("--client-data-port"), QString::number(vrijePoort()), s("--client-info-port"),
                  QString::number(vrijePoort()), s("--upload-data-port"),
                  QString::number(vrijePoort()), s("--upload-info-port"),
                  QString::number(vrijePoort())});
    QByteArray log;
    while (!log.contains("listening") && proces.waitForReadyRead(10000))
        log += proces.readAll();
    if (!log.contains("listening")) {
        std::fprintf(stderr, "the server did not start: %s\n", log.constData());
        return 1;
    }
    // The server's log pipe must not fill up while the benchmarks run.
    QObject::connect(&proces, &QProcess::readyRead, [&proces] { proces.readAll(); });
    {
        Werkstation vuller;
        if (!vuller.verbind(serverPoort) || !vulSchool(vuller)) {
            std::fprintf(stderr, "could not put the school on the server\n");
            return 1;
        }
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    proces.terminate();
    proces.waitForFinished(10000);
    return 0;
}
