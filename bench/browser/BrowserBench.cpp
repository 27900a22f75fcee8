// A new blank tab once the first view exists (goal 150 ms): in a slot that makes its view, and in
// one whose view is left from a closed tab; and the proportional resident memory of the process
// and its engine helpers with the pane alone. The whole workstation with a desktop and the pane
// (goal under 400 MB) is measured by bureaublad_internet.py beside this file. Run by hand:
//   QT_QPA_PLATFORM=offscreen ./build/bench/browser/tk_browser_bench
#include "screens/browser/BrowserPane.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QWebEngineView>
#include <benchmark/benchmark.h>

#include <cstdio>

namespace {

using tk::BrowserPane;

BrowserPane* pane = nullptr;

// The proportional resident kilobytes (shared pages split between their users) of `pid` and
// every process below it: a plain sum of resident sizes counts the engine's shared libraries
// once per helper process.
long rssBoom(int pid) {
    long kb = 0;
    QFile status(QStringLiteral("/proc/%1/smaps_rollup").arg(pid));
    if (status.open(QIODevice::ReadOnly))
        for (const QByteArray& regel : status.readAll().split('\n'))
            if (regel.startsWith("Pss:"))
                kb += regel.mid(4).trimmed().split(' ').value(0).toLong();
    for (const QString& naam : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        bool getal = false;
        const int kind = naam.toInt(&getal);
        if (!getal)
            continue;
        QFile stat(QStringLiteral("/proc/%1/stat").arg(kind));
        if (!stat.open(QIODevice::ReadOnly))
            continue;
        const QByteArray s = stat.readAll();
        const QList<QByteArray> velden = s.mid(s.lastIndexOf(')') + 2).split(' ');
        if (velden.value(1).toInt() == pid)
            kb += rssBoom(kind);
    }
    return kb;
}

bool wachtOpGeladen(int slot) {
    QDeadlineTimer grens(10000);
    while (!pane->tabs().tab(slot).Geladen && !grens.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
    return pane->tabs().tab(slot).Geladen;
}

// Opens one blank tab per iteration and waits until it loaded.
void openTabs(benchmark::State& state) {
    for (auto _ : state) {
        const int slot = pane->NieuwTabblad();
        if (slot < 0 || !wachtOpGeladen(slot)) {
            state.SkipWithError("the new tab did not load");
            break;
        }
    }
}

// Closes every tab but the first; the closed slots keep their views.
void closeTabs() {
    const QList<int> strip = pane->tabs().strip();
    for (int slot : strip)
        if (slot != 0)
            pane->SluitTab(slot);
}

// Each iteration opens a tab in a slot not used before, so that each makes its own view; the
// memory is that of the pane with 21 tabs.
void NieuwBlancoTabblad(benchmark::State& state) {
    openTabs(state);
    state.counters["pss_MB"] = double(rssBoom(int(QCoreApplication::applicationPid()))) / 1024;
    closeTabs();
}
BENCHMARK(NieuwBlancoTabblad)->Unit(benchmark::kMillisecond)->Iterations(20);

// The same once the slots' views exist: a tab closed before is opened again.
void NieuwBlancoTabbladInBestaandeView(benchmark::State& state) {
    openTabs(state);
    closeTabs();
}
BENCHMARK(NieuwBlancoTabbladInBestaandeView)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20)
    ->Repetitions(3);

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    tk::BrowserOmgeving o;
    o.programmaMap = QStringLiteral(TK_PROGRAMMA_MAP);
    BrowserPane p(std::move(o));
    p.resize(1024, 700);
    p.show();
    pane = &p;
    // The first view and its helper processes exist before the measure.
    wachtOpGeladen(0);
    std::fprintf(stderr, "pane with one tab: %.0f MB proportional resident (process and helpers)\n",
                 double(rssBoom(int(QCoreApplication::applicationPid()))) / 1024);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
