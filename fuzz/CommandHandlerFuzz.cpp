// The server's command handler on one message, as the command server hands it over: the
// maintenance commands first, then the vocabulary. The store is a real SQLite store in memory,
// filled with the demo school once; one connection per message. Input: the
// message's bytes as one read gives them (Windows-1252).
#include "FuzzSupport.h"
#include "server/ArchivePackager.h"
#include "server/BackupKeeper.h"
#include "server/ClientConnection.h"
#include "server/CommandHandler.h"
#include "server/CommandServer.h"
#include "server/DemoSchool.h"
#include "server/MaintenanceCommands.h"
#include "server/Store.h"
#include "server/ThemeCatalogue.h"
#include "server/UpdateOffer.h"
#include "server/WireText.h"

#include <QDir>
#include <QTcpSocket>
#include <memory>

using namespace tk::server;
namespace fuzz = tk::fuzz;

namespace {

struct Server {
    Server() {
        folder = fuzz::scratch().filePath(QStringLiteral("server"));
        QDir().mkpath(folder);
        QString error;
        if (!store.openInMemory(&error) || !DemoSchool::seed(store, QString(), packages, &error))
            qFatal("store: %s", qPrintable(error));
        options.dataFolder = folder;
        options.port = 0;
        // Nothing listens there: a file sent to the client fails at once.
        options.clientDataPort = 1;
        options.clientInfoPort = 1;
        options.transferTimeoutMs = 100;
        server = std::make_unique<CommandServer>(store, options);
        handler = std::make_unique<CommandHandler>(*server, store, server->transfers(), packages);
        catalogue = std::make_unique<ThemeCatalogue>(
            QDir(folder).filePath(QStringLiteral("Themacatalogus")));
        maintenance = std::make_unique<MaintenanceCommands>(store, server->transfers(), packages,
                                                            server->backups(), updates, *catalogue);
    }
    QString folder;
    Store store;
    ArchivePackager packages;
    ServerOptions options;
    UpdateOffer updates;
    std::unique_ptr<CommandServer> server;
    std::unique_ptr<CommandHandler> handler;
    std::unique_ptr<ThemeCatalogue> catalogue;
    std::unique_ptr<MaintenanceCommands> maintenance;
};

// The store grows with every save a message makes; a store of thousands of accounts and
// records makes each list slower, so now and then the server starts again from the demo school.
// It is never deleted at exit: Qt's list of database connections is gone by then.
Server& server(bool fresh = false) {
    static Server* s = nullptr;
    if (!s || fresh) {
        delete s;
        s = new Server;
    }
    return *s;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::startQt();
    server();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const ClientConnection::Limits limits{0};
    if (qint64(size) > limits.maxMessage)
        return 0;
    static int run = 0;
    ++run;
    Server& s = server(run % 4096 == 0);
    // Each backup request makes one: now and then the folder starts empty again, so that the
    // list a backup request reads stays short.
    if (run % 64 == 0)
        QDir(QDir(s.folder).filePath(QStringLiteral("Backups"))).removeRecursively();
    auto* socket = new QTcpSocket;
    auto connection = std::make_unique<ClientConnection>(socket, 1, limits);
    const QString message = WireText::fromBytes(fuzz::bytes(data, size));
    if (!s.maintenance->handle(*connection, message))
        s.handler->handle(*connection, message);
    QCoreApplication::processEvents();
    return 0;
}
