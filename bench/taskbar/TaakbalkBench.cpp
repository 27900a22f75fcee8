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
#include "platform/fake/FakePlatform.h"
#include "platform/linux/LinuxWindows.h"
#include "screens/taskbar/FrmTaakbalk2.h"
#include "screens/taskbar/FrmTaakbalk2View.h"
#include "tests/platform/XvfbSession.h"

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

class XPlatform : public tk::FakePlatform {
public:
    XPlatform(const QString& map, const QByteArray& display)
        : FakePlatform(map), m_vensters(display) {}
    tk::Windows& windows() override { return m_vensters; }

private:
    tk::LinuxWindows m_vensters;
};

void zetTitel(XvfbSession& x, xcb_window_t w, const QByteArray& titel) {
    xcb_connection_t* c = x.connection();
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, x.atom("_NET_WM_NAME"), x.atom("UTF8_STRING"),
                        8, uint32_t(titel.size()), titel.constData());
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                        uint32_t(titel.size()), titel.constData());
}

// Windows as programs make them: a title in both properties, a type, a process, some owned
// dialogs (which are no tasks).
std::vector<xcb_window_t> maakVensters(XvfbSession& x, int aantal) {
    xcb_connection_t* c = x.connection();
    const xcb_screen_t* s = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
    std::vector<xcb_window_t> gemaakt;
    for (int i = 0; i < aantal; ++i) {
        const xcb_window_t w = xcb_generate_id(c);
        xcb_create_window(c, XCB_COPY_FROM_PARENT, w, s->root, int16_t(10 * i), int16_t(10 * i),
                          300, 200, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, s->root_visual, 0, nullptr);
        zetTitel(x, w, "Document " + QByteArray::number(i) + " - Tekstverwerker");
        const uint32_t soort =
            x.atom(i % 5 == 4 ? "_NET_WM_WINDOW_TYPE_DIALOG" : "_NET_WM_WINDOW_TYPE_NORMAL");
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, x.atom("_NET_WM_WINDOW_TYPE"),
                            XCB_ATOM_ATOM, 32, 1, &soort);
        if (i % 5 == 4)
            xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, XCB_ATOM_WM_TRANSIENT_FOR,
                                XCB_ATOM_WINDOW, 32, 1, &gemaakt.front());
        const uint32_t pid = 1000 + uint32_t(i);
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, x.atom("_NET_WM_PID"), XCB_ATOM_CARDINAL,
                            32, 1, &pid);
        xcb_map_window(c, w);
        gemaakt.push_back(w);
    }
    xcb_flush(c);
    return gemaakt;
}

// state.range(0) windows; with state.range(1) one of them changes its title before every tick
// (a browser loading pages), so that the tick renames a task and lays the bar out anew.
void Tick(benchmark::State& state) {
    if (!g_session || !g_session->ok()) {
        state.SkipWithError("no Xvfb with openbox");
        return;
    }
    const int aantal = int(state.range(0));
    const bool hernoemen = state.range(1) != 0;
    const std::vector<xcb_window_t> gemaakt = maakVensters(*g_session, aantal);
    QTemporaryDir map;
    XPlatform platform(map.path(), g_session->display());
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
            zetTitel(*g_session, gemaakt.front(), "Pagina " + QByteArray::number(++n));
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
