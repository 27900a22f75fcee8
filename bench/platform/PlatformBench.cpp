// One tick of the taskbar asks for the task list. Run by hand:
//   ./build/bench/platform/tk_platform_bench
// and for the instructions spent in the client:
//   valgrind --tool=callgrind --toggle-collect='tk::LinuxWindows::topLevelWindows*'
//     ./build/bench/platform/tk_platform_bench --benchmark_filter=TopLevelWindows/30
//     --benchmark_min_time=0.05        (one command line)
//   callgrind_annotate callgrind.out.<pid>
// Starts its own Xvfb with openbox (nothing is drawn on the screen of the one who runs it).
#include "platform/linux/LinuxWindows.h"
#include "tests/platform/XvfbSession.h"

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

// Windows as programs make them: a title in both properties, a type, a process, some owned.
std::vector<xcb_window_t> makeWindows(XvfbSession& x, int count) {
    xcb_connection_t* c = x.connection();
    const xcb_screen_t* s = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
    std::vector<xcb_window_t> made;
    for (int i = 0; i < count; ++i) {
        const xcb_window_t w = xcb_generate_id(c);
        xcb_create_window(c, XCB_COPY_FROM_PARENT, w, s->root, int16_t(10 * i), int16_t(10 * i),
                          300, 200, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, s->root_visual, 0, nullptr);
        const QByteArray title = "Document " + QByteArray::number(i) + " - Tekstverwerker";
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, x.atom("_NET_WM_NAME"),
                            x.atom("UTF8_STRING"), 8, uint32_t(title.size()), title.constData());
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                            uint32_t(title.size()), title.constData());
        const uint32_t type =
            x.atom(i % 5 == 4 ? "_NET_WM_WINDOW_TYPE_DIALOG" : "_NET_WM_WINDOW_TYPE_NORMAL");
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, x.atom("_NET_WM_WINDOW_TYPE"),
                            XCB_ATOM_ATOM, 32, 1, &type);
        if (i % 5 == 4)
            xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, XCB_ATOM_WM_TRANSIENT_FOR,
                                XCB_ATOM_WINDOW, 32, 1, &made.front());
        if (i % 2 == 0) {
            const uint32_t pid = 1000 + uint32_t(i);
            xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, x.atom("_NET_WM_PID"),
                                XCB_ATOM_CARDINAL, 32, 1, &pid);
        }
        xcb_map_window(c, w);
        made.push_back(w);
    }
    xcb_flush(c);
    return made;
}

void TopLevelWindows(benchmark::State& state) {
    if (!g_session || !g_session->ok()) {
        state.SkipWithError("no Xvfb with openbox");
        return;
    }
    const int count = int(state.range(0));
    const std::vector<xcb_window_t> made = makeWindows(*g_session, count);
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
