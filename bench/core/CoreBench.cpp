// Settings files and the cache cipher: a 1 MB INI file read cold, one key written into it, a
// document gaining and losing many keys and sections, and RC4 over 10 MB.
#include "core/ClsRC4.h"
#include "core/DialogService.h"
#include "core/IniDocument.h"
#include "core/IniFiles.h"
#include "core/Programma.h"
#include "platform/fake/FakePlatform.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace tk;

namespace {

// About 1 MB: 400 sections of 100 keys.
QString groteIni(int secties = 400, int sleutels = 100) {
    QString tekst;
    for (int s = 0; s < secties; ++s) {
        tekst += QStringLiteral("[Sectie%1]\r\n").arg(s);
        for (int k = 0; k < sleutels; ++k)
            tekst += QStringLiteral("Sleutel%1=waarde %2 van sectie %3\r\n").arg(k).arg(k).arg(s);
    }
    return tekst;
}

void BM_IniParse(benchmark::State& state) {
    const QString tekst = groteIni(int(state.range(0)), 100);
    for (auto _ : state) {
        IniDocument doc = IniDocument::parse(tekst);
        benchmark::DoNotOptimize(doc.value(QStringLiteral("Sectie1"), QStringLiteral("Sleutel5")));
    }
    state.SetBytesProcessed(state.iterations() * tekst.size());
}
// 0.25, 0.5 and 1 MB: a linear parse keeps bytes per second flat.
BENCHMARK(BM_IniParse)->Arg(100)->Arg(200)->Arg(400)->Unit(benchmark::kMillisecond);

void BM_IniLookupInWarmFile(benchmark::State& state) {
    QTemporaryDir dir;
    const QString pad = dir.filePath(QStringLiteral("groot.ini"));
    QFile f(pad);
    f.open(QIODevice::WriteOnly);
    f.write(groteIni().toUtf8());
    f.close();
    IniFiles files;
    int i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(files.read(pad, QStringLiteral("Sectie%1").arg(i % 400),
                                            QStringLiteral("Sleutel%1").arg(i % 100)));
        ++i;
    }
}
BENCHMARK(BM_IniLookupInWarmFile);

void BM_IniWriteIntoOneMegabyteFile(benchmark::State& state) {
    QTemporaryDir dir;
    const QString pad = dir.filePath(QStringLiteral("groot.ini"));
    QFile f(pad);
    f.open(QIODevice::WriteOnly);
    f.write(groteIni().toUtf8());
    f.close();
    IniFiles files;
    int i = 0;
    for (auto _ : state)
        files.write(pad, QStringLiteral("Sectie200"), QStringLiteral("Sleutel50"),
                    QString::number(i++));
}
BENCHMARK(BM_IniWriteIntoOneMegabyteFile)->Unit(benchmark::kMillisecond);

// A document that gains many keys in memory (a registry import, a tool writing a large file):
// each new key costs its own line, not a pass over the whole document.
void BM_IniDocumentGainsKeys(benchmark::State& state) {
    const int keys = int(state.range(0));
    const IniDocument start = IniDocument::parse(groteIni(10, 100));
    for (auto _ : state) {
        IniDocument doc = start;
        for (int k = 0; k < keys; ++k)
            doc.setValue(QStringLiteral("Sectie%1").arg(k % 10), QStringLiteral("Nieuw%1").arg(k),
                         QStringLiteral("waarde"));
        benchmark::DoNotOptimize(doc.value(QStringLiteral("Sectie3"), QStringLiteral("Nieuw3")));
    }
    state.SetItemsProcessed(state.iterations() * keys);
}
// 2,000 and 20,000 keys: a constant cost per key keeps items per second flat.
BENCHMARK(BM_IniDocumentGainsKeys)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);

// A document that loses every key, one at a time, and one that loses every section (a tool that
// clears a large file): each removal costs its own section, not a pass over the whole document.
void BM_IniDocumentLosesKeys(benchmark::State& state) {
    const int keys = int(state.range(0));
    const IniDocument start = IniDocument::parse(groteIni(keys / 100, 100));
    for (auto _ : state) {
        IniDocument doc = start;
        for (int k = 0; k < keys; ++k)
            doc.removeKey(QStringLiteral("Sectie%1").arg(k % (keys / 100)),
                          QStringLiteral("Sleutel%1").arg(k / (keys / 100)));
        benchmark::DoNotOptimize(doc.value(QStringLiteral("Sectie3"), QStringLiteral("Sleutel3")));
    }
    state.SetItemsProcessed(state.iterations() * keys);
}
BENCHMARK(BM_IniDocumentLosesKeys)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);

void BM_IniDocumentLosesSections(benchmark::State& state) {
    const int sections = int(state.range(0));
    const IniDocument start = IniDocument::parse(groteIni(sections, 100));
    for (auto _ : state) {
        IniDocument doc = start;
        for (int s = 0; s < sections; ++s)
            doc.removeSection(QStringLiteral("Sectie%1").arg((s * 7) % sections));
        benchmark::DoNotOptimize(doc.sections());
    }
    state.SetItemsProcessed(state.iterations() * sections);
}
BENCHMARK(BM_IniDocumentLosesSections)->Arg(40)->Arg(400)->Unit(benchmark::kMillisecond);

// One fault reported on a workstation that stored `reports` fault reports before (a client that
// meets a malformed answer): the log-book line and the check against the ignored faults; the
// report window closes at once.
void BM_FaultReport(benchmark::State& state) {
    struct Closed : DialogService {
        QString vraag(const QString&, const QString&, const QString&) override {
            return QStringLiteral("nee");
        }
        void toonModaal(Form&) override {}
    } dialogs;
    QTemporaryDir dir;
    FakePlatform platform(dir.path());
    Programma p(platform);
    p.dialogen = &dialogs;
    QDir(dir.path()).mkdir(QStringLiteral("Data"));
    const int reports = int(state.range(0));
    QString list = QStringLiteral("[Foutrapportage]\r\nLaatste ID=%1\r\n").arg(reports);
    for (int id = 1; id <= reports; ++id)
        list += QStringLiteral("[ID=%1]\r\nFout negeren=Nee\r\nApplicatie=Tafelkrater\r\n"
                               "Procedure=modData.LaadKlassen\r\nLijn=1\r\nOmschrijving=x\r\n")
                    .arg(id);
    QFile file(dir.filePath(QStringLiteral("Data/Foutrapportage.ini")));
    file.open(QIODevice::WriteOnly);
    file.write(list.toUtf8());
    // Written long ago: a file changed in the last seconds is compared again at every read.
    file.setFileTime(QDateTime::currentDateTime().addSecs(-3600),
                     QFileDevice::FileModificationTime);
    file.close();
    for (auto _ : state)
        p.modMain.Foutmelding(QStringLiteral("Subscript out of range"), QStringLiteral("modData"),
                              QStringLiteral("modData.LaadKlassen"), QStringLiteral("12"));
}
BENCHMARK(BM_FaultReport)->Arg(0)->Arg(200)->Unit(benchmark::kMicrosecond);

void BM_Rc4(benchmark::State& state) {
    QByteArray gegevens(10 * 1024 * 1024, 'x');
    ClsRC4 rc4;
    rc4.Key(QStringLiteral("Tafelkrater_VQXZ"));
    for (auto _ : state)
        rc4.EncryptByte(gegevens);
    state.SetBytesProcessed(state.iterations() * gegevens.size());
}
BENCHMARK(BM_Rc4)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
