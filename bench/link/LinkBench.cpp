// A 100 MB file over loopback, to the client and from it, through BinaryReceiver and
// BinarySender (8192-byte blocks, a pump after each, a temporary file moved onto the target),
// side by side with a plain socket pair doing the same transfer in the same event loop.
#include "core/Programma.h"
#include "link/BinaryReceiver.h"
#include "link/BinarySender.h"
#include "platform/fake/FakePlatform.h"
#include "tests/link/TransferPeer.h"

#include <QCoreApplication>
#include <QFile>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <memory>

using namespace tk;
using tk::test::TransferPeer;

namespace {

constexpr qint64 grootte = 100LL * 1024 * 1024;

const QByteArray& bestand() {
    static const QByteArray bytes = [] {
        QByteArray b(grootte, Qt::Uninitialized);
        quint32 x = 1;
        for (qint64 i = 0; i < grootte; ++i) {
            x = x * 1664525u + 1013904223u;
            b[i] = char(x >> 24);
        }
        return b;
    }();
    return bytes;
}

// A program folder, the fake platform and a Programma for the pump.
struct Werkplaats {
    QTemporaryDir map;
    FakePlatform platform{map.path()};
    Programma p{platform};
    bool wacht(const std::function<bool()>& voorwaarde) {
        return p.wacht.Tot(voorwaarde, std::nullopt, false) == Wacht::Uitkomst::Voldaan;
    }
};

void BM_DownloadBinaryReceiver(benchmark::State& state) {
    Werkplaats w;
    BinaryReceiver receiver(w.p);
    int vragen = 0;
    int klaar = 0;
    receiver.onSendRequest = [&] { ++vragen; };
    receiver.onReceiveComplete = [&] { ++klaar; };
    receiver.Listen();
    TransferPeer server;
    server.verbindMet(quint16(receiver.localPortInfo()), quint16(receiver.localPortBinary()));
    if (!w.wacht([&] { return server.verbonden() && server.infoOntvangen.contains("CNT"); })) {
        state.SkipWithError("no connection");
        return;
    }
    const QString doel = w.map.filePath(QStringLiteral("doel.bin"));
    for (auto _ : state) {
        receiver.ResetFile();
        const int voor = klaar;
        server.infoOntvangen.clear();
        server.stuurInfo("FIS" + QByteArray::number(grootte) + "|0@doel.bin");
        w.wacht([&] { return vragen > 0; });
        vragen = 0;
        receiver.AcceptSendRequest(doel);
        w.wacht([&] { return server.infoOntvangen.contains("ACP"); });
        server.stuurBinair(bestand());
        w.wacht([&] { return klaar > voor && server.infoOntvangen.contains("RFC"); });
    }
    if (QFile(doel).size() != grootte)
        state.SkipWithError("file incomplete");
    state.SetBytesProcessed(state.iterations() * grootte);
}
BENCHMARK(BM_DownloadBinaryReceiver)->Unit(benchmark::kMillisecond)->UseRealTime();

// The same bytes with plain sockets: one write on one side, every read appended to a file that
// is renamed onto the target at the end.
void BM_DownloadPlainSockets(benchmark::State& state) {
    Werkplaats w;
    QTcpServer luisteraar;
    luisteraar.listen(QHostAddress::LocalHost, 0);
    QTcpSocket zender;
    zender.connectToHost(QHostAddress::LocalHost, luisteraar.serverPort());
    w.wacht([&] { return luisteraar.hasPendingConnections(); });
    std::unique_ptr<QTcpSocket> ontvanger(luisteraar.nextPendingConnection());
    const QString doel = w.map.filePath(QStringLiteral("doel.bin"));
    const QString tijdelijk = w.map.filePath(QStringLiteral("doel.tmp"));
    QFile uit;
    qint64 ontvangen = 0;
    QObject::connect(ontvanger.get(), &QTcpSocket::readyRead, [&] {
        const QByteArray bytes = ontvanger->readAll();
        uit.write(bytes);
        ontvangen += bytes.size();
    });
    for (auto _ : state) {
        ontvangen = 0;
        uit.setFileName(tijdelijk);
        uit.open(QIODevice::WriteOnly | QIODevice::Truncate);
        zender.write(bestand());
        w.wacht([&] { return ontvangen >= grootte; });
        uit.close();
        QFile::remove(doel);
        QFile::rename(tijdelijk, doel);
    }
    if (QFile(doel).size() != grootte)
        state.SkipWithError("file incomplete");
    state.SetBytesProcessed(state.iterations() * grootte);
}
BENCHMARK(BM_DownloadPlainSockets)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_UploadBinarySender(benchmark::State& state) {
    Werkplaats w;
    QFile bron(w.map.filePath(QStringLiteral("bron.bin")));
    bron.open(QIODevice::WriteOnly);
    bron.write(bestand());
    bron.close();
    TransferPeer server;
    server.bewaarBytes = false;
    server.luister();
    BinarySender sender(w.p);
    int verbonden = 0;
    int klaar = 0;
    sender.onConnected = [&] { ++verbonden; };
    sender.onCommandAccepted = [&] { sender.SendFile(); };
    sender.onSendComplete = [&] { ++klaar; };
    for (auto _ : state) {
        server.binairAantal = 0;
        sender.Reset();
        sender.setRemoteHost(QStringLiteral("127.0.0.1"));
        sender.setRemotePortInfo(server.infoPoort());
        sender.setRemotePortBinary(server.binairPoort());
        sender.setSource(bron.fileName());
        const int voor = klaar;
        sender.Connect();
        w.wacht([&] { return verbonden > voor; });
        sender.SendInfo();
        if (!w.wacht([&] { return klaar > voor; }))
            state.SkipWithError("no completion");
    }
    if (server.binairAantal != grootte)
        state.SkipWithError("file incomplete");
    state.SetBytesProcessed(state.iterations() * grootte);
}
BENCHMARK(BM_UploadBinarySender)->Unit(benchmark::kMillisecond)->UseRealTime();

// The same bytes with plain sockets: the file read whole and written in one call.
void BM_UploadPlainSockets(benchmark::State& state) {
    Werkplaats w;
    QFile bron(w.map.filePath(QStringLiteral("bron.bin")));
    bron.open(QIODevice::WriteOnly);
    bron.write(bestand());
    bron.close();
    QTcpServer luisteraar;
    luisteraar.listen(QHostAddress::LocalHost, 0);
    QTcpSocket zender;
    zender.connectToHost(QHostAddress::LocalHost, luisteraar.serverPort());
    w.wacht([&] { return luisteraar.hasPendingConnections(); });
    std::unique_ptr<QTcpSocket> ontvanger(luisteraar.nextPendingConnection());
    qint64 ontvangen = 0;
    QObject::connect(ontvanger.get(), &QTcpSocket::readyRead,
                     [&] { ontvangen += ontvanger->readAll().size(); });
    for (auto _ : state) {
        ontvangen = 0;
        bron.open(QIODevice::ReadOnly);
        zender.write(bron.readAll());
        bron.close();
        w.wacht([&] { return ontvangen >= grootte; });
    }
    state.SetBytesProcessed(state.iterations() * grootte);
}
BENCHMARK(BM_UploadPlainSockets)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    bestand();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
