// One tick of the taskbar asks for the task list. Run by hand:
//   ./build/bench/platform/tk_platform_bench
// and for the instructions spent in the client:
//   valgrind --tool=callgrind --toggle-collect='tk::LinuxWindows::topLevelWindows*'
//     ./build/bench/platform/tk_platform_bench --benchmark_filter=TopLevelWindows/30
//     --benchmark_min_time=0.05        (one command line)
//   callgrind_annotate callgrind.out.<pid>
// Starts its own Xvfb with openbox (nothing is drawn on the screen of the one who runs it).
#include "platform/linux/LinuxWindows.h"
#include "tests/platform/ProgrammaVensters.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace {

using tk::test::XvfbSession;

std::unique_ptr<XvfbSession> g_session;

void TopLevelWindows(benchmark::State& state) {
    if (!g_session || !g_session->ok()) {
        state.SkipWithError("no Xvfb with openbox");
        return;
    }
    const int count = int(state.range(0));
    const std::vector<xcb_window_t> made = tk::test::maakProgrammaVensters(*g_session, count, 2);
    tk::LinuxWindows windows(g_session->display());
    QDeadlineTimer deadline(20000);
    while (windows.topLevelWindows().size() < count && !deadline.hasExpired())
        QThread::msleep(10);
    if (windows.topLevelWindows().size() != count) {
        state.SkipWithError("the manager did not take all windows");
        return;
    }
    for (auto _ : state) {
        const QList<tk::WindowInfo> list = windows.topLevelWindows();
        benchmark::DoNotOptimize(list.data());
    }
    for (xcb_window_t w : made)
        xcb_destroy_window(g_session->connection(), w);
    xcb_flush(g_session->connection());
}
BENCHMARK(TopLevelWindows)->Arg(1)->Arg(10)->Arg(30)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (XvfbSession::installed())
        g_session = std::make_unique<XvfbSession>();
    benchmark::RunSpecifiedBenchmarks();
    g_session.reset();
    benchmark::Shutdown();
    return 0;
}
