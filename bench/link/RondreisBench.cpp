// One request and its reply through frmMain.WS_Versturen and the wait, against a plain socket
// doing the same over the same loopback server in the same run.
#include "core/Programma.h"
#include "link/FrmMainLink.h"
#include "platform/fake/FakePlatform.h"

#include <QCoreApplication>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace tk;

namespace {

// Answers every read with "LDNTAA1043", as a server answers a language request.
class Antwoorder {
public:
    Antwoorder() {
        m_server.listen(QHostAddress::LocalHost, 0);
        QObject::connect(&m_server, &QTcpServer::newConnection, [this] {
            while (QTcpSocket* s = m_server.nextPendingConnection()) {
                s->setSocketOption(QAbstractSocket::LowDelayOption, 1);
                QObject::connect(s, &QTcpSocket::readyRead, s, [s] {
                    s->readAll();
                    s->write("LDNTAA1043");
                });
            }
        });
    }
    quint16 poort() const { return m_server.serverPort(); }

private:
    QTcpServer m_server;
};

void BM_RondreisViaWS_Versturen(benchmark::State& state) {
    Antwoorder server;
    QTemporaryDir map;
    FakePlatform platform(map.path());
    Programma p(platform);
    p.maak(p.frmMain, p);
    p.frmMain->WS.connectToHost(QHostAddress::LocalHost, server.poort());
    p.frmMain->WS.waitForConnected(2000);
    for (auto _ : state) {
        p.modMain.AntwoordOntvangen = false;
        p.frmMain->WS_Versturen(QStringLiteral("LDNTAA"), false);
        p.wacht.Tot([&] { return p.modMain.AntwoordOntvangen; });
    }
    if (p.modMain.Antwoord != u"1043")
        state.SkipWithError("wrong reply");
}
BENCHMARK(BM_RondreisViaWS_Versturen)->UseRealTime();

void BM_RondreisKaleSocket(benchmark::State& state) {
    Antwoorder server;
    QTcpSocket socket;
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket.connectToHost(QHostAddress::LocalHost, server.poort());
    socket.waitForConnected(2000);
    bool klaar = false;
    QObject::connect(&socket, &QTcpSocket::readyRead, [&] {
        socket.readAll();
        klaar = true;
    });
    QEventLoop lus;
    for (auto _ : state) {
        klaar = false;
        socket.write("LDNTAA");
        socket.flush();
        while (!klaar)
            lus.processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
}
BENCHMARK(BM_RondreisKaleSocket)->UseRealTime();

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
