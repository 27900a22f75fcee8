// The maintenance module against tafelkrater-server on loopback, the server holding a maximal
// school (21 classes, 100 teachers, 200 applications of each kind) and the client having loaded
// it: from the maintenance password on the start screen to the module drawn (a workstation's
// first entry: Form_Load with its lists, Openen, the window made and painted whole), a switch
// between the Settings and the Server panel (the server asked, the window painted whole), and a
// hover from one menu row to the next (the rows repainted). The start screen's login animation
// runs on the fake clock, so its deliberate pauses are not in the figure.
// Run by hand: QT_QPA_PLATFORM=offscreen ./build/bench/maintenance/tk_onderhoud_bench
#include "bench/server/BenchSchool.h"
#include "data/ModData.h"
#include "data/ModMainLaden.h"
#include "link/ModMainVerbinding.h"
#include "screens/ScreenRouter.h"
#include "screens/maintenance/BewerkPaneel.h"
#include "screens/maintenance/BewerkPaneelView.h"
#include "screens/maintenance/FrmOnderhoud.h"
#include "screens/maintenance/FrmOnderhoudView.h"
#include "screens/maintenance/OnderhoudServer.h"
#include "screens/maintenance/OnderhoudServerView.h"
#include "screens/start/FrmMain.h"
#include "server/Store.h"
#include "tests/support/Werkplek.h"
#include "theme/ModThema.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <memory>

using namespace tk;

namespace {

quint16 g_poort = 0;

// An administrator's workstation at its start screen, connected, the school loaded.
struct Beheerplek {
    Beheerplek() : ws(g_poort, tk::test::Werkplek::Rol::Beheer, 10), router(p()) {
        ws.kopieer(QStringLiteral(TK_DEFAULT_THEME), QStringLiteral("Afbeeldingen/Skins/1/"));
        QDir().mkpath(ws.pad(QStringLiteral("Afbeeldingen/Pictogrammen")));
        QFile::copy(QStringLiteral(TK_STANDARD_ICL),
                    ws.pad(QStringLiteral("Afbeeldingen/Pictogrammen/standaard.icl")));
        Programma& p = this->p();
        p.maak(p.modData, p);
        p.modMainVerbinding->namen = p.modData;
        p.maak(p.modMainLaden, p);
        p.maak(p.modThema, p);
        p.modThema->LaadThema();
        p.maak(p.startScreen, p, *p.frmMain);
        p.startScreenEvents = p.startScreen;
        p.schermen = &router;
        klaar = ws.identificeer();
        p.modMainLaden->Laden();
        // The maximal school sets no passwords: the administrator's is set here.
        if (p.modData->Wachtwoorden.value(1).isEmpty())
            p.modData->Wachtwoorden =
                QStringList{QStringLiteral("leraar"), QStringLiteral("beheer")};
        FrmMain& f = *p.startScreen;
        f.lblGebruiker = p.modTaal.LaadTekst(1601);
        f.txtWachtwoord = f.WachtwoordOnderhoud();
        klaar = klaar && !f.txtWachtwoord.isEmpty();
    }
    ~Beheerplek() {
        if (p().frmOnderhoud && p().frmOnderhoud->Zichtbaar)
            p().frmOnderhoud->lblAfmelden_Click(); // the server hears the stay end
    }
    Programma& p() { return ws.p; }
    // The password is pressed; the module's window is made with its panels and painted.
    bool betreed() {
        p().startScreen->knopAanmelden_Click();
        FrmOnderhoud* f = p().frmOnderhoud;
        if (!f || !f->Zichtbaar)
            return false;
        view = std::make_unique<FrmOnderhoudView>(*f);
        view->plaatsPaneelView(FrmOnderhoud::PInstellingen,
                               new BewerkPaneelView(dynamic_cast<BewerkPaneel&>(
                                   *f->paneel(FrmOnderhoud::PInstellingen))));
        view->plaatsPaneelView(FrmOnderhoud::PServer,
                               new OnderhoudServerView(dynamic_cast<OnderhoudServer&>(
                                   *f->paneel(FrmOnderhoud::PServer))));
        view->openen();
        benchmark::DoNotOptimize(view->grab());
        return true;
    }
    tk::test::Werkplek ws;
    ScreenRouter router;
    std::unique_ptr<FrmOnderhoudView> view;
    bool klaar = false;
};

void BM_WachtwoordTotModule(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto plek = std::make_unique<Beheerplek>();
        if (!plek->klaar) {
            state.SkipWithError("no link");
            return;
        }
        state.ResumeTiming();
        if (!plek->betreed()) {
            state.SkipWithError("the module did not open");
            return;
        }
        state.PauseTiming();
        plek.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_WachtwoordTotModule)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(15);

void BM_PaneelWissel(benchmark::State& state) {
    Beheerplek plek;
    if (!plek.klaar || !plek.betreed()) {
        state.SkipWithError("the module did not open");
        return;
    }
    FrmOnderhoud& f = *plek.p().frmOnderhoud;
    bool server = false;
    for (auto _ : state) {
        // Settings (its heading) and Server (the row under it) in turn.
        f.Kies(server ? 401 : 400);
        if (f.ZichtbaarPaneel != (server ? FrmOnderhoud::PServer : FrmOnderhoud::PInstellingen)) {
            state.SkipWithError("the panel did not change");
            return;
        }
        benchmark::DoNotOptimize(plek.view->grab());
        server = !server;
    }
}
BENCHMARK(BM_PaneelWissel)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

void BM_HoverHertekenen(benchmark::State& state) {
    Beheerplek plek;
    if (!plek.klaar || !plek.betreed()) {
        state.SkipWithError("the module did not open");
        return;
    }
    FrmOnderhoud& f = *plek.p().frmOnderhoud;
    f.Kies(0); // open the accounts
    plek.view->bijwerken();
    const QPoint rij[2] = {f.rijVak(0, 1).center(), f.rijVak(0, 2).center()};
    f.Form_MouseMove(rij[1].x(), rij[1].y());
    int i = 0;
    qint64 vlakken = 0;
    for (auto _ : state) {
        f.Form_MouseMove(rij[i].x(), rij[i].y());
        vlakken += plek.view->laatsteHertekening.size();
        for (const QRect& vak : std::as_const(plek.view->laatsteHertekening))
            plek.view->repaint(vak);
        i = 1 - i;
    }
    // Two rows, the info strip and the log-off: 4 areas a move.
    state.counters["vlakken"] =
        benchmark::Counter(double(vlakken), benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_HoverHertekenen)->Unit(benchmark::kMicrosecond)->UseRealTime()->MinTime(2.0);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir data;
    {
        tk::server::Store store;
        QString fout;
        if (!store.open(data.path(), &fout) || !tk::bench::seedMaximalSchool(store))
            return 1;
    }
    tk::bench::BenchServer server;
    if (!server.start(data.path()))
        return 1;
    g_poort = server.port();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    server.stop();
    return 0;
}
