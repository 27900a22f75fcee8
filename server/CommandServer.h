#pragma once

#include "ArchivePackager.h"
#include "CommandHandler.h"
#include "LoadCache.h"
#include "MaintenanceCommands.h"
#include "ServerOptions.h"
#include "SourceRateLimit.h"
#include "ThemeCatalogue.h"
#include "UpdateOffer.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>

class QTcpServer;
class QTimer;

namespace tk::server {

class AcceptThrottle;
class BackupKeeper;
class ClientConnection;
class Store;
class TransferChannel;

// The command channel: listens, keeps one ClientConnection per client with the location it
// reported, hands every message to the CommandHandler, relays the maintenance handshake
// between the client inside the maintenance module and the one asking to enter, and sends the
// keep-alive "PIN" to connections that have been idle; one that does not answer "PING" before
// the next keep-alive is closed.
class CommandServer : public QObject {
    Q_OBJECT
public:
    static constexpr int maxConnections = 4096;

    CommandServer(Store& store, const ServerOptions& options, QObject* parent = nullptr);
    ~CommandServer() override;

    // Listens on the command port and the upload ports. False with a reason when a port is
    // taken.
    bool start(QString* error);
    void stop();

    quint16 port() const;
    const ServerOptions& options() const { return m_options; }
    TransferChannel& transfers() { return *m_transfers; }
    LoadCache& loadCache() { return m_cache; }
    BackupKeeper& backups() { return *m_backups; }
    const QList<ClientConnection*>& connections() const { return m_connections; }
    const AcceptThrottle& acceptThrottle() const { return *m_throttle; }
    // The domain the server tells its clients.
    QString domain();

    // The maintenance handshake.
    ClientConnection* insider(const ClientConnection* except) const;
    static bool inMaintenance(const QString& location);
    void askInsider(ClientConnection* newcomer);
    void insiderRefuses(ClientConnection* insider);
    void newcomerGivesUp(ClientConnection* newcomer);
    // How many notices of the handshake were passed on so far.
    int relayedNotices() const { return m_relayed; }

    // One round of keep-alives, and of closing what one address holds silent beyond its share;
    // runs every second, public so that a test can run it at once.
    void keepAliveTick();

Q_SIGNALS:
    void connectionCountChanged(int count);

private:
    // Takes the connections QTcpServer accepted; `retry`: one even while short of descriptors.
    void takeConnections(bool retry);
    void onClosed(ClientConnection* connection);
    void closeSilent();
    void closeSilentBeyondShare();
    void reportFlood();

    Store& m_store;
    ServerOptions m_options;
    LoadCache m_cache;
    TransferChannel* m_transfers;
    ArchivePackager m_packages;
    CommandHandler m_handler;
    UpdateOffer m_updates;
    ThemeCatalogue m_catalogue;
    BackupKeeper* m_backups;
    MaintenanceCommands m_maintenance;
    QTcpServer* m_server;
    AcceptThrottle* m_throttle;
    SourceRateLimit m_sources;
    QElapsedTimer m_clock;
    QTimer* m_keepAlive;
    QList<ClientConnection*> m_connections;
    // Who asked whom: newcomer -> insider.
    QList<QPair<ClientConnection*, ClientConnection*>> m_asks;
    int m_counter = 0;
    int m_relayed = 0;
};

} // namespace tk::server
