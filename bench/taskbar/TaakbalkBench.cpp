// One tick of the desktop taskbar (tmrTaken): the task list from the window manager, the kept
// list, the pressed button and the layout of the buttons, with 30 program windows. Run by hand:
//   ./build/bench/taskbar/tk_taakbalk_bench
// and for the instructions spent in the client, side by side with the platform bench:
//   valgrind --tool=callgrind --toggle-collect='tk::FrmTaakbalk2::tmrTaken_Timer*'
//     ./build/bench/taskbar/tk_taakbalk_bench --benchmark_filter=Tick/30
//     --benchmark_min_time=0.05        (one command line)
//   callgrind_annotate callgrind.out.<pid>  (divide by the iterations the bench printed)
// Starts its own Xvfb with openbox; the bar itself is not shown by the tick bench (a tick only
// paints when something changed): the paint is measured on its own (Verven).
#include "core/Programma.h"
#include "screens/taskbar/FrmTaakbalk2.h"
#include "screens/taskbar/FrmTaakbalk2View.h"
#include "tests/platform/ProgrammaVensters.h"
#include "tests/platform/X11VenstersPlatform.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QThread>
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

using tk::test::XvfbSession;

std::unique_ptr<XvfbSession> g_session;

// state.range(0) windows; with state.range(1) one of them changes its title before every tick
// (a browser loading pages), so that the tick renames a task and lays the bar out anew.
void Tick(benchmark::State& state) {
    if (!g_session || !g_session->ok()) {
        state.SkipWithError("no Xvfb with openbox");
        return;
    }
    const int aantal = int(state.range(0));
    const bool hernoemen = state.range(1) != 0;
    const std::vector<xcb_window_t> gemaakt = tk::test::maakProgrammaVensters(*g_session, aantal);
    QTemporaryDir map;
    tk::test::X11VenstersPlatform platform(map.path(), g_session->display());
    tk::Programma p(platform);
    tk::FrmTaakbalk2& balk = p.maak(p.frmTaakbalk2, p);
    p.BureaubladOpen = true;
    balk.Form_Load();
    balk.tmrTaken.stop();
    balk.tmrMuis.stop();
    QDeadlineTimer deadline(20000);
    while (balk.lstTaken2.size() < aantal - aantal / 5 && !deadline.hasExpired()) {
        QThread::msleep(10);
        balk.tmrTaken_Timer();
    }
    if (balk.lstTaken2.size() != aantal - aantal / 5) {
        state.SkipWithError("the manager did not take all windows");
        return;
    }
    int n = 0;
    for (auto _ : state) {
        if (hernoemen) {
            state.PauseTiming();
            tk::test::zetTitel(*g_session, gemaakt.front(), "Pagina " + QByteArray::number(++n));
            xcb_flush(g_session->connection());
            state.ResumeTiming();
        }
        balk.tmrTaken_Timer();
        benchmark::DoNotOptimize(balk.AantalKnoppen);
    }
    state.counters["knoppen"] = balk.AantalKnoppen;
    for (xcb_window_t w : gemaakt)
        xcb_destroy_window(g_session->connection(), w);
    xcb_flush(g_session->connection());
}
BENCHMARK(Tick)->Args({1, 0})->Args({10, 0})->Args({30, 0})->Args({30, 1})->Unit(
    benchmark::kMicrosecond);

// Painting the bar once with 20 task buttons (titles cut, one pressed, one hovered), as a tick
// that changed something asks for. No X server needed: the windows come from the fake.
void Verven(benchmark::State& state) {
    QTemporaryDir map;
    tk::FakePlatform platform(map.path());
    tk::Programma p(platform);
    tk::FrmTaakbalk2& balk = p.maak(p.frmTaakbalk2, p);
    p.BureaubladOpen = true;
    for (int i = 0; i < 20; ++i) {
        tk::WindowInfo w;
        w.handle = quint64(100 + i);
        w.title = QStringLiteral("Document %1 - Tekstverwerker met een lange titel").arg(i);
        platform.fakeWindows().windows.append(w);
    }
    platform.fakeWindows().active = 103;
    balk.Form_Load();
    balk.tmrTaken.stop();
    balk.tmrMuis.stop();
    balk.Form_MouseMove(QPoint(300, 20));
    tk::FrmTaakbalk2View view(balk);
    view.setGeometry(0, 0, 1024, balk.Hoogte);
    QImage beeld(view.size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        view.render(&beeld);
        benchmark::DoNotOptimize(beeld.constBits());
    }
}
BENCHMARK(Verven)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen"); // fonts for the layout; nothing is shown
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (XvfbSession::installed())
        g_session = std::make_unique<XvfbSession>();
    benchmark::RunSpecifiedBenchmarks();
    g_session.reset();
    benchmark::Shutdown();
    return 0;
}
