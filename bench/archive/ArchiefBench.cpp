// Packing and unpacking a 200 MB theme-like tree (many JPEG files in nested folders) with the
// archive control, side by side with tar -cf / tar -xf of the same tree in the same run.
// Run: ./build/bench/archive/tk_archive_bench [--benchmark_...]; TK_BENCH_DIR picks the scratch
// folder (default: the system's temporary folder).
#include "archive/UcArchief.h"

#include <QBuffer>
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <memory>

namespace {

constexpr qint64 TreeBytes = 200LL * 1024 * 1024;

// The scratch folder with its tree, made once for all benchmarks.
struct Tree {
    std::unique_ptr<QTemporaryDir> dir;
    QString source, archive, tarFile;
    qint64 bytes = 0;
    int files = 0;
};

Tree& tree() {
    static Tree t = [] {
        Tree t;
        const QByteArray base = qgetenv("TK_BENCH_DIR");
        t.dir = std::make_unique<QTemporaryDir>(
            base.isEmpty()
                ? QDir::tempPath() + QStringLiteral("/tk_archive_bench-XXXXXX")
                : QString::fromLocal8Bit(base) + QStringLiteral("/tk_archive_bench-XXXXXX"));
        t.source = t.dir->filePath(QStringLiteral("bron"));
        t.archive = t.dir->filePath(QStringLiteral("pakket.thema"));
        t.tarFile = t.dir->filePath(QStringLiteral("pakket.tar"));
        // Real JPEG pictures of noise (which does not compress), 64 to 512 KB each, in the
        // folders of a theme.
        QRandomGenerator rnd(2024);
        const QStringList folders = {
            QStringLiteral("Achtergronden"),  QStringLiteral("Achtergronden/Thumbs"),
            QStringLiteral("Knoppen"),        QStringLiteral("Taakbalk"),
            QStringLiteral("Onderhoud/Menu"), QString()};
        while (t.bytes < TreeBytes) {
            const int side = 128 + rnd.bounded(320);
            QImage image(side, side, QImage::Format_RGB32);
            for (int y = 0; y < side; ++y) {
                auto* row = reinterpret_cast<quint32*>(image.scanLine(y));
                for (int x = 0; x < side; ++x)
                    row[x] = rnd.generate();
            }
            QByteArray jpeg;
            QBuffer buffer(&jpeg);
            buffer.open(QIODevice::WriteOnly);
            image.save(&buffer, "JPG", 95);
            const QString folder =
                t.source + QLatin1Char('/') + folders.at(t.files % folders.size());
            QDir().mkpath(folder);
            QFile f(folder + QStringLiteral("/beeld%1.jpg").arg(t.files));
            f.open(QIODevice::WriteOnly);
            f.write(jpeg);
            t.bytes += jpeg.size();
            ++t.files;
        }
        return t;
    }();
    return t;
}

bool tar(const QStringList& args) {
    return QProcess::execute(QStringLiteral("tar"), args) == 0;
}

void report(benchmark::State& state) {
    state.SetBytesProcessed(state.iterations() * tree().bytes);
    state.counters["files"] = tree().files;
}

void BM_PackArchief(benchmark::State& state) {
    tk::UcArchief archief;
    for (auto _ : state)
        archief.SaveFilesToArchiv(tree().source, tree().archive, false);
    report(state);
}

void BM_PackTar(benchmark::State& state) {
    for (auto _ : state)
        if (!tar({QStringLiteral("-cf"), tree().tarFile, QStringLiteral("-C"), tree().source,
                  QStringLiteral(".")}))
            state.SkipWithError("tar -cf failed");
    report(state);
}

void BM_UnpackArchief(benchmark::State& state) {
    tk::UcArchief archief;
    archief.SaveFilesToArchiv(tree().source, tree().archive, false);
    const QString target = tree().dir->filePath(QStringLiteral("uit-archief"));
    for (auto _ : state) {
        state.PauseTiming();
        QDir(target).removeRecursively();
        state.ResumeTiming();
        archief.ExtractFilesFromArchiv(tree().archive, target, false);
    }
    report(state);
}

void BM_UnpackTar(benchmark::State& state) {
    tar({QStringLiteral("-cf"), tree().tarFile, QStringLiteral("-C"), tree().source,
         QStringLiteral(".")});
    const QString target = tree().dir->filePath(QStringLiteral("uit-tar"));
    for (auto _ : state) {
        state.PauseTiming();
        QDir(target).removeRecursively();
        QDir().mkpath(target);
        state.ResumeTiming();
        if (!tar({QStringLiteral("-xf"), tree().tarFile, QStringLiteral("-C"), target}))
            state.SkipWithError("tar -xf failed");
    }
    report(state);
}

BENCHMARK(BM_PackArchief)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3);
BENCHMARK(BM_PackTar)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3);
BENCHMARK(BM_UnpackArchief)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3);
BENCHMARK(BM_UnpackTar)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3);

} // namespace

int main(int argc, char** argv) {
    // The tree is drawn with Qt's JPEG writer.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    tree();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
