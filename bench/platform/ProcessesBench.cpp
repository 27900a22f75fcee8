// What following a started program costs: one tick of the launcher's tmrShellWait asks for the
// processes of the start, which reads the facts of every process of the machine from /proc.
// Run by hand:
//   ./build/bench/platform/tk_processes_bench
// The argument is the number of extra processes running on the machine beside the followed one
// (a wrapper that exited and the program it left, in a session of their own).
#include "platform/linux/LinuxProcesses.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QStringList>
#include <QThread>
#include <benchmark/benchmark.h>

namespace {

void ProcessesOfStart(benchmark::State& state) {
    tk::LinuxProcesses processes;
    QList<qint64> extra;
    for (int i = 0; i < state.range(0); ++i)
        extra << processes.start(QStringLiteral("sleep"), {QStringLiteral("600")}, {}).pid;
    const tk::StartResult followed = processes.start(
        QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral("sleep 600 & exit 0")}, {});
    QDeadlineTimer deadline(5000);
    while (processes.isRunning(followed.pid) && !deadline.hasExpired())
        QThread::msleep(5);

    qsizetype found = 0;
    for (auto _ : state)
        found = processes.processesOfStart(followed.pid).size();
    state.counters["found"] = double(found);
    processes.kill(followed.pid);
    for (qint64 pid : extra)
        processes.kill(pid);
}
BENCHMARK(ProcessesOfStart)->Arg(0)->Arg(100)->Arg(500)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
