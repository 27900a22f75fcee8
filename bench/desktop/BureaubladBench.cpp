// Opening a desktop with 45 icons, from the click on the class's button on the start screen to
// the desktop drawn offscreen at 1024 by 768. Run by hand:
//   QT_QPA_PLATFORM=offscreen ./build/bench/desktop/tk_bureaublad_bench
// The goal is under 100 ms for KlikTotGetekend. The parts: the model alone (LaadBureaublad with
// the places from the server), the drawing alone, and the first desktop of a run, which also
// reads the standard icon library.
#include "screens/ScreenRouter.h"
#include "screens/desktop/FrmBureaubladView.h"
#include "screens/start/FrmMain.h"
#include "tests/support/Werkplek.h"

#include <QApplication>
#include <benchmark/benchmark.h>

#include <memory>

namespace {

using tk::FrmBureaublad;
using tk::test::Werkplek;

// A school with one class of 45 applications, each with its own library picture and a name
// that breaks, 20 of them on stored places; the start screen with the class's button.
struct School {
    School() {
        for (int i = 0; i < 45; ++i)
            w.applicatie(0, i, QString::number(i + 1),
                         QStringLiteral("Programma nummer %1").arg(i + 1),
                         QStringLiteral("standaard|%1").arg(i % 22));
        QStringList items, plekken;
        for (int i = 0; i < 45; ++i) {
            items << QString::number(i + 1);
            if (i % 2 == 0 && plekken.size() < 20)
                plekken
                    << QStringLiteral("%1|k|%2x%3").arg(i + 1).arg(80 + i * 15).arg(180 + i * 9);
        }
        w.klas(0, "Groep 8", "12", items.join('|'), "Ja");
        w.posities("K12", plekken.join("><"));
        w.p.maak(w.p.frmMain, w.p);
        w.p.maak(w.p.startScreen, w.p, *w.p.frmMain);
        w.p.startScreenEvents = w.p.startScreen;
        view = std::make_unique<tk::FrmBureaubladView>(w.b());
        w.p.schermen = &schermen;
        w.p.startScreen->WeergevenKlassen(true);
    }
    // The desktop opened and drawn, as the client does after a class click.
    struct Schermen : tk::ScreenRouter {
        explicit Schermen(School& s) : ScreenRouter(s.w.p), s(s) {}
        void openBureaublad(int soort, const QString& id) override {
            ScreenRouter::openBureaublad(soort, id);
            s.beeld = s.view->canvas()->grab().toImage();
        }
        School& s;
    };
    Werkplek w{Werkplek::bureaublad};
    Schermen schermen{*this};
    std::unique_ptr<tk::FrmBureaubladView> view;
    QImage beeld;
};

void KlikTotGetekend(benchmark::State& state) {
    School s;
    for (auto _ : state) {
        s.w.p.startScreen->knopGroep_Click(0);
        benchmark::DoNotOptimize(s.beeld.constBits());
    }
    if (s.w.b().zichtbareIconen.size() != 46)
        state.SkipWithError("the desktop does not hold 45 icons and the internet icon");
}
BENCHMARK(KlikTotGetekend)->Unit(benchmark::kMillisecond);

void LaadBureaublad(benchmark::State& state) {
    School s;
    s.w.b().Openen(0, "12");
    for (auto _ : state)
        s.w.b().LaadBureaublad(0, true);
}
BENCHMARK(LaadBureaublad)->Unit(benchmark::kMillisecond);

void Tekenen(benchmark::State& state) {
    School s;
    s.w.b().Openen(0, "12");
    for (auto _ : state) {
        const QImage beeld = s.view->canvas()->grab().toImage();
        benchmark::DoNotOptimize(beeld.constBits());
    }
}
BENCHMARK(Tekenen)->Unit(benchmark::kMillisecond);

// The first desktop of a run: a new desktop that reads the standard library first.
void EersteBureaublad(benchmark::State& state) {
    School s;
    for (auto _ : state) {
        state.PauseTiming();
        s.view.reset();
        auto nieuw = std::make_unique<FrmBureaublad>(s.w.p);
        nieuw->onChanged = [] {};
        state.ResumeTiming();
        nieuw->Form_Load();
        nieuw->Openen(0, "12");
        tk::FrmBureaubladView view(*nieuw);
        const QImage beeld = view.canvas()->grab().toImage();
        benchmark::DoNotOptimize(beeld.constBits());
        state.PauseTiming();
        nieuw.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(EersteBureaublad)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
