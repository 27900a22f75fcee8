// The session side with its real stores and tools. Run by hand, as root (the account tools):
//   ./build/bench/session/tk_session_bench
// TakeOver/HandBack: the contained setting on a program folder in a temporary folder, with the
// registry's files and the settings file on disk; a take-over is what the wizard and the first
// start do (keep the logon, make the account, wallpaper, logon values, policies). Grants: the
// network's check of the teachers' rights for 100 accounts, carried out by tafelkrater-systeem
// with groupadd/groupmod under a temporary system root (one call for the batch); the counter
// tools_cpu_ms is the CPU time of the programs it ran (the benchmark's own CPU column counts only
// this process). LogOff: from the request to the moment
// the client's process may end (the launcher told, the event loop asked to quit).
#include "core/Programma.h"
#include "core/UnbuiltStartSteps.h"
#include "platform/ContainedSystemActions.h"
#include "platform/fake/FakePlatform.h"
#include "platform/linux/PrivilegedSystemActions.h"
#include "platform/linux/RegistryFileStore.h"
#include "session/ModMainSessie.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <memory>
#include <sys/resource.h>
#include <unistd.h>

namespace {

using namespace tk;

// The fake platform with the registry as the files the real one keeps.
class SchijfPlatform : public FakePlatform {
public:
    explicit SchijfPlatform(const QString& map)
        : FakePlatform(map), m_register(map + QStringLiteral("/Register"), QStringLiteral("b")) {}
    RegistryStore& registry() override { return m_register; }

private:
    RegistryFileStore m_register;
};

class Stappen : public UnbuiltStartSteps {
public:
    using UnbuiltStartSteps::UnbuiltStartSteps;
    bool StuurOpstartCommando(const QString&) override { return true; }
    QStringList Accounts() override { return accounts; }
    QStringList accounts;
};

struct Werkstation {
    explicit Werkstation(SystemActions* systeem = nullptr)
        : platform(map.path()), p(platform), stappen(p), contained(map.path(), platform.clock()),
          sessie(p, systeem ? *systeem : contained) {
        p.opstartStappen = &stappen;
        p.modMain.MaakMappen(QStringLiteral("\\Data"));
        p.modMain.ModusStandalone = true;
        sessie.sessieBeeindigen = false;
    }
    QTemporaryDir map;
    SchijfPlatform platform;
    Programma p;
    Stappen stappen;
    ContainedSystemActions contained;
    ModMainSessie sessie;
};

void overnemen(Werkstation& w) {
    w.sessie.BewaarOpstartinstellingen();
    w.sessie.TafelkraterAccountAanmaken();
    w.sessie.ZetBureaubladachtergrond(true, true);
    w.sessie.WijzigOpstarten();
    w.sessie.ZetBrowserbeperkingen(true);
    w.sessie.ZetSysteembeperkingen(false, false);
}

void TakeOver(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto w = std::make_unique<Werkstation>();
        state.ResumeTiming();
        overnemen(*w);
        state.PauseTiming();
        w.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(TakeOver)->Unit(benchmark::kMillisecond)->Iterations(20);

void HandBack(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto w = std::make_unique<Werkstation>();
        overnemen(*w);
        state.ResumeTiming();
        w->sessie.TafelkraterDeactiveren(true);
        state.PauseTiming();
        w.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(HandBack)->Unit(benchmark::kMillisecond)->Iterations(20);

void LogOff(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto w = std::make_unique<Werkstation>();
        w->sessie.sessieBeeindigen = true;
        state.ResumeTiming();
        w->sessie.SessieActie(QStringLiteral("afmelden"));
        QCoreApplication::processEvents(); // the quit the client's main loop would see
        state.PauseTiming();
        if (!w->p.beeindigd)
            state.SkipWithError("the client did not end");
        w.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(LogOff)->Unit(benchmark::kMillisecond)->Iterations(50);

// A bare system root with `n` local accounts k000..k(n-1), made with the real tool.
bool maakRoot(const QString& root, int n) {
    QDir().mkpath(root + QStringLiteral("/etc"));
    QDir().mkpath(root + QStringLiteral("/home"));
    const std::pair<const char*, const char*> bestanden[] = {
        {"/etc/passwd", "root:x:0:0:root:/root:/bin/bash\n"},
        {"/etc/group", "root:x:0:\n"},
        {"/etc/shadow", "root:*:19000:0:99999:7:::\n"},
        {"/etc/gshadow", "root:*::\n"}};
    for (const auto& [pad, inhoud] : bestanden) {
        QFile f(root + QLatin1String(pad));
        if (!f.open(QIODevice::WriteOnly))
            return false;
        f.write(inhoud);
    }
    PrivilegedSystemActions tool(QStringLiteral(TK_SYSTEEM_MAP), 60000, {});
    QString uit;
    for (int i = 0; i < n; ++i)
        if (!tool.run(QStringLiteral("net"),
                      {QStringLiteral("user"),
                       QStringLiteral("k%1").arg(i, 3, 10, QLatin1Char('0')), QStringLiteral("pw"),
                       QStringLiteral("/add")},
                      QString(), &uit)) {
            fprintf(stderr, "%s\n", qPrintable(uit));
            return false;
        }
    return true;
}

void Grants(benchmark::State& state) {
    if (geteuid() != 0) {
        state.SkipWithError("the account tools need root");
        return;
    }
    const int n = int(state.range(0));
    // The CPU time of the waited-for child processes, in ms.
    const auto kinderen = [] {
        rusage r{};
        getrusage(RUSAGE_CHILDREN, &r);
        return (r.ru_utime.tv_sec + r.ru_stime.tv_sec) * 1e3 +
               (r.ru_utime.tv_usec + r.ru_stime.tv_usec) / 1e3;
    };
    double tools = 0;
    for (auto _ : state) {
        state.PauseTiming();
        QTemporaryDir root;
        qputenv("TK_SYSTEEM_ROOT", root.path().toLocal8Bit());
        if (!maakRoot(root.path(), n)) {
            state.SkipWithError("the accounts could not be made");
            return;
        }
        PrivilegedSystemActions tool(QStringLiteral(TK_SYSTEEM_MAP), 60000, {});
        auto w = std::make_unique<Werkstation>(&tool);
        w->p.modMain.ModusStandalone = false;
        w->p.modMain.ModusNetwerk = true;
        w->platform.fakeEnvironment().setVariable(QStringLiteral("USERNAME"),
                                                  QStringLiteral("GLOBAL"));
        w->platform.fakeEnvironment().setVariable(QStringLiteral("USERDOMAIN"),
                                                  QStringLiteral("SCHOOL"));
        for (int i = 0; i < n; ++i)
            w->stappen.accounts
                << QStringLiteral("LERAAR|k%1|%2").arg(i, 3, 10, QLatin1Char('0')).arg(i);
        const double voor = kinderen();
        state.ResumeTiming();
        w->sessie.ControleerLerarenRechten();
        state.PauseTiming();
        tools += kinderen() - voor;
        const QString laatste = w->p.modMain.LeesIni(
            QStringLiteral("K%1").arg(n - 1, 3, 10, QLatin1Char('0')),
            QStringLiteral("Administratorrechten"), QStringLiteral("\\Data\\Instellingen.ini"));
        if (laatste != u"Ja")
            state.SkipWithError("a grant failed");
        w.reset();
        state.ResumeTiming();
    }
    state.counters["tools_cpu_ms"] = benchmark::Counter(tools, benchmark::Counter::kAvgIterations);
}
BENCHMARK(Grants)->Arg(100)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
