// Many clients load everything at once: a maximal school (21 classes, 100 teachers, 20
// categories and 200 applications of each kind) is put in a fresh store, the real server is
// started on it, and N clients (200 by default) connect together and each runs the start-up
// load in lock-step, parsing the paged replies to know what to ask next. Prints the wall time
// until the last client is done, the requests answered, and the server's peak resident memory.
#include "BenchSchool.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <cstdio>
#include <memory>

using namespace tk::bench;

int main(int argc, char** argv) {
    qputenv("QT_NO_GLIB", "1");
    QCoreApplication app(argc, argv);
    const int clients = argc > 1 ? std::atoi(argv[1]) : 200;
    QTemporaryDir data;
    {
        tk::server::Store store;
        QString error;
        if (!store.open(data.path(), &error) || !seedMaximalSchool(store))
            return 1;
    }
    BenchServer server;
    if (!server.start(data.path()))
        return 1;
    const qint64 before = server.peakKb();

    int done = 0;
    qint64 requests = 0;
    QElapsedTimer clock;
    clock.start();
    std::vector<std::unique_ptr<LoadingClient>> all;
    for (int i = 0; i < clients; ++i)
        all.push_back(std::make_unique<LoadingClient>(server.port(), &done, &requests));
    while (done < clients && clock.elapsed() < 120000) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        server.readLog(); // keep the server's log pipe from filling
    }
    const qint64 ms = clock.elapsed();
    std::printf("%d of %d clients loaded everything in %lld ms (%lld requests, %.0f a second)\n",
                done, clients, static_cast<long long>(ms), static_cast<long long>(requests),
                requests * 1000.0 / std::max<qint64>(ms, 1));
    std::printf("server peak resident memory: %lld kB at rest before the load, %lld kB after\n",
                static_cast<long long>(before), static_cast<long long>(server.peakKb()));
    server.stop();
    return done == clients ? 0 : 1;
}
