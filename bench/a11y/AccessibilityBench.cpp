// What accessibility costs the painted screens. Run by hand:
//   QT_QPA_PLATFORM=offscreen ./build/bench/a11y/tk_a11y_bench
// Goals: building the accessible tree of the start screen with 21 classes and of a desktop with
// 45 items (every object made and asked its role, name, state and place, as a screen reader does
// when a window appears), and one focus move, each under 5 ms; the start screen's first frame
// with accessibility on no more than 5 % slower than with it off.
#include "screens/common/AccessibleFactory.h"
#include "screens/desktop/FrmBureaubladView.h"
#include "screens/start/FrmMainView.h"
#include "screens/taskbar/FrmTaakbalk1View.h"
#include "tests/support/Werkplek.h"

#include <QAccessible>
#include <QApplication>
#include <benchmark/benchmark.h>

#include <memory>

namespace {

using tk::test::Werkplek;

// Every object below `i` asked what a screen reader asks.
int lees(QAccessibleInterface* i, int diepte = 0) {
    if (!i || diepte > 12)
        return 0;
    int n = 1;
    benchmark::DoNotOptimize(i->text(QAccessible::Name));
    benchmark::DoNotOptimize(i->role());
    benchmark::DoNotOptimize(i->state());
    benchmark::DoNotOptimize(i->rect());
    for (int k = 0; k < i->childCount(); ++k)
        n += lees(i->child(k), diepte + 1);
    return n;
}

struct Startscherm {
    Startscherm() {
        for (int i = 0; i < 21; ++i)
            w.startKlas(i, QStringLiteral("Groep %1").arg(i + 1), QString::number(i + 1),
                        QStringLiteral("%1a.jpg").arg(i % 8 + 1));
        w.balk1().Zichtbaar = true;
        w.balk1().LadenVormgeving();
        w.balk1().Form_Activate();
        w.balk1().ToonAccounts();
        w.f().Form_Load();
        w.f().AccountKlik(0);
    }
    std::unique_ptr<tk::FrmMainView> maakView() {
        auto view = std::make_unique<tk::FrmMainView>(w.f());
        auto* b = new tk::FrmTaakbalk1View(w.balk1(), view->canvas());
        b->move(0, tk::FrmMain::Hoogte);
        view->canvas()->taakbalk = b;
        view->canvas()->bijwerken();
        return view;
    }
    Werkplek w{Werkplek::startscherm};
};

struct Bureaublad {
    Bureaublad() {
        QStringList items;
        for (int i = 0; i < 45; ++i) {
            w.applicatie(0, i, QString::number(i + 1),
                         QStringLiteral("Programma nummer %1").arg(i + 1),
                         QStringLiteral("standaard|%1").arg(i % 22));
            items << QString::number(i + 1);
        }
        w.klas(0, "Groep 8", "12", items.join('|'), "Ja");
        w.b().Openen(0, "12");
    }
    Werkplek w{Werkplek::bureaublad};
};

// A fresh view made off the clock, its whole tree read on it.
template <typename MaakView> void leesBoom(benchmark::State& state, MaakView maakView) {
    int objecten = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto view = maakView();
        state.ResumeTiming();
        objecten = lees(QAccessible::queryAccessibleInterface(view.get()));
        state.PauseTiming();
        view.reset();
        state.ResumeTiming();
    }
    state.counters["objecten"] = objecten;
}

void StartschermBoom(benchmark::State& state) {
    Startscherm s;
    leesBoom(state, [&] { return s.maakView(); });
}
BENCHMARK(StartschermBoom)->Unit(benchmark::kMillisecond);

void BureaubladBoom(benchmark::State& state) {
    Bureaublad b;
    leesBoom(state, [&] { return std::make_unique<tk::FrmBureaubladView>(b.w.b()); });
}
BENCHMARK(BureaubladBoom)->Unit(benchmark::kMillisecond);

// One Tab on the desktop of 45 items with accessibility on: the model moves the focus, the view
// paints anew and tells the bus which item has it.
void FocusStap(benchmark::State& state) {
    Bureaublad b;
    tk::FrmBureaubladView view(b.w.b());
    view.show();
    QAccessible::setActive(true);
    lees(QAccessible::queryAccessibleInterface(&view));
    for (auto _ : state) {
        b.w.b().Toets(Qt::Key_Tab);
        if (b.w.b().focusOpBalk || b.w.b().focusRij < 0)
            b.w.b().zetFocus(-1);
    }
    QAccessible::setActive(false);
}
BENCHMARK(FocusStap)->Unit(benchmark::kMicrosecond);

// The start screen's first frame: the view made and painted, with accessibility off, and on
// with the tree read as a screen reader does when the window appears. Kept out of line so that
// an instruction count (bench/a11y/eerste_beeld_instructies.sh) finds the frames by name.
[[gnu::noinline]] void beeld(Startscherm& s, bool aan) {
    auto view = s.maakView();
    view->resize(1024, 768);
    benchmark::DoNotOptimize(view->grab());
    if (aan)
        lees(QAccessible::queryAccessibleInterface(view.get()));
}

// The fonts and pictures a process loads once are loaded before the clock runs.
[[gnu::noinline]] void opwarmen(Startscherm& s, bool aan) {
    beeld(s, aan);
}

void EersteBeeld(benchmark::State& state) {
    const bool aan = state.range(0) != 0;
    Startscherm s;
    QAccessible::setActive(aan);
    opwarmen(s, aan);
    for (auto _ : state)
        beeld(s, aan);
    QAccessible::setActive(false);
}
BENCHMARK(EersteBeeld)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    tk::AccessibleFactory::installeren();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
