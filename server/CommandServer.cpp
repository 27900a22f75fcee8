#include "CommandServer.h"

#include "AcceptThrottle.h"
#include "BackupKeeper.h"
#include "ClientConnection.h"
#include "ServerLog.h"
#include "Store.h"
#include "TransferChannel.h"
#include "core/Wire.h"

#include <QDir>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <exception>

namespace tk::server {

CommandServer::CommandServer(Store& store, const ServerOptions& options, QObject* parent)
    : QObject(parent), m_store(store), m_options(options), m_cache(store),
      m_transfers(new TransferChannel(options.clientDataPort, options.clientInfoPort,
                                      options.transferTimeoutMs, this)),
      m_handler(*this, store, *m_transfers, m_packages), m_updates(options.updatesFolder),
      m_catalogue(QDir(options.dataFolder).filePath(QStringLiteral("Themacatalogus"))),
      m_backups(new BackupKeeper(
          store, QDir(options.dataFolder).filePath(QStringLiteral("Backups")), this)),
      m_maintenance(store, *m_transfers, m_packages, *m_backups, m_updates, m_catalogue),
      m_server(new QTcpServer(this)),
      m_throttle(new AcceptThrottle(m_server, QStringLiteral("command port"), options.fileLimit)),
      m_sources({options.sourceRate, options.sourceBurst}), m_keepAlive(new QTimer(this)) {
    m_clock.start();
    m_throttle->onShortage = [this] { closeSilent(); };
    m_throttle->onResume = [this] { takeConnections(true); };
    // Waiting clients wait in the system's listen queue, not in QTcpServer: it holds at most one
    // accepted connection that this server has not taken, so that it stops accepting as soon as
    // this server stops taking (a shortage of descriptors).
    m_server->setListenBacklogSize(1024);
    m_server->setMaxPendingConnections(1);
    connect(m_server, &QTcpServer::newConnection, this, [this] { takeConnections(false); });
    m_keepAlive->setInterval(1000);
    connect(m_keepAlive, &QTimer::timeout, this, &CommandServer::keepAliveTick);
}

CommandServer::~CommandServer() {
    stop();
}

bool CommandServer::start(QString* error) {
    if (!m_server->listen(QHostAddress::Any, m_options.port)) {
        *error =
            QStringLiteral("command port %1: %2").arg(m_options.port).arg(m_server->errorString());
        return false;
    }
    if (!m_transfers->listen(m_options.uploadDataPort, m_options.uploadInfoPort, error)) {
        m_server->close();
        return false;
    }
    // Ports the system chose (port 0) are what the clients are told.
    m_options.uploadDataPort = m_transfers->uploadDataPort();
    m_options.uploadInfoPort = m_transfers->uploadInfoPort();
    m_keepAlive->start();
    return true;
}

void CommandServer::stop() {
    m_keepAlive->stop();
    m_server->close();
    const QList<ClientConnection*> open = m_connections;
    for (ClientConnection* c : open)
        c->close();
}

quint16 CommandServer::port() const {
    return m_server->serverPort();
}

QString CommandServer::domain() {
    return m_options.domain.isEmpty() ? m_store.setting(QStringLiteral("domain"))
                                      : m_options.domain;
}

void CommandServer::takeConnections(bool retry) {
    const ClientConnection::Limits limits{m_options.settleMs, m_options.maxMessage,
                                          m_options.firstMessageMs, m_options.pieceQuietMs,
                                          m_options.turnSliceBytes};
    // Short of descriptors, nothing is taken but on a retry, and then one.
    while (retry || !m_throttle->paused()) {
        retry = false;
        QTcpSocket* socket = m_server->nextPendingConnection();
        if (!socket)
            break;
        m_throttle->accepted(socket->socketDescriptor());
        if (!m_sources.admit(socket->peerAddress(), m_clock.elapsed())) {
            socket->abort();
            delete socket;
            reportFlood();
            continue;
        }
        if (m_connections.size() >= maxConnections) {
            ServerLog::fault(QStringLiteral("command port"),
                             QStringLiteral("too many connections; refused %1")
                                 .arg(socket->peerAddress().toString()));
            socket->abort();
            socket->deleteLater();
            continue;
        }
        auto* c = new ClientConnection(socket, ++m_counter, limits, this);
        m_connections.append(c);
        ServerLog::line(QStringLiteral("connection %1 from %2").arg(c->number()).arg(c->peer()));
        connect(c, &ClientConnection::messageReceived, this,
                [this](ClientConnection* from, const QString& message) {
                    from->setAwaitingPing(false);
                    try {
                        if (!m_maintenance.handle(*from, message))
                            m_handler.handle(*from, message);
                    } catch (const std::exception& e) {
                        ServerLog::fault(QStringLiteral("connection %1").arg(from->number()),
                                         QString::fromLocal8Bit(e.what()));
                    }
                });
        connect(c, &ClientConnection::closed, this, &CommandServer::onClosed);
        Q_EMIT connectionCountChanged(int(m_connections.size()));
    }
}

void CommandServer::onClosed(ClientConnection* c) {
    ServerLog::line(QStringLiteral("connection %1 closed").arg(c->number()));
    m_connections.removeOne(c);
    m_asks.removeIf([c](const auto& ask) { return ask.first == c || ask.second == c; });
    c->deleteLater();
    // Its descriptor is free once the object is gone: a paused accept may try again then.
    QTimer::singleShot(0, m_throttle, &AcceptThrottle::resume);
    Q_EMIT connectionCountChanged(int(m_connections.size()));
}

void CommandServer::reportFlood() {
    const QString line = m_sources.report(m_clock.elapsed());
    if (!line.isEmpty())
        ServerLog::fault(QStringLiteral("command port"), line);
}

void CommandServer::closeSilent() {
    // Out of descriptors, the connections that never said a word (a flood, a scan) give way to
    // the clients waiting in the listen queue: the oldest first, a few at a time, none younger
    // than the settling time (a client that just came has had no chance to speak).
    const qsizetype most = std::max<qsizetype>(16, m_connections.size() / 16);
    QList<ClientConnection*> silent;
    for (ClientConnection* c : m_connections)
        if (!c->spoken() && c->ageMs() >= m_options.settleMs && silent.size() < most)
            silent << c;
    if (silent.isEmpty())
        return;
    ServerLog::fault(QStringLiteral("command port"),
                     QStringLiteral("out of descriptors: closed %1 connections that sent nothing")
                         .arg(silent.size()));
    for (ClientConnection* c : silent)
        c->close();
}

bool CommandServer::inMaintenance(const QString& location) {
    const QStringList parts = location.split(wire::valueSep);
    const QString first = parts.value(0).toUpper();
    if (first == QStringLiteral("ONDERHOUD") || first == QStringLiteral("ONDERHOUDSMODULE"))
        return true;
    return first == QStringLiteral("LERAAR") && parts.size() >= 3 &&
           parts[2].compare(QStringLiteral("onderhoud"), Qt::CaseInsensitive) == 0;
}

ClientConnection* CommandServer::insider(const ClientConnection* except) const {
    for (ClientConnection* c : m_connections)
        if (c != except && inMaintenance(c->location))
            return c;
    return nullptr;
}

void CommandServer::askInsider(ClientConnection* newcomer) {
    ClientConnection* in = insider(newcomer);
    if (!in)
        return; // the insider left meanwhile: the newcomer's next INFOND tells it so
    m_asks.removeIf([newcomer](const auto& ask) { return ask.first == newcomer; });
    m_asks.append(qMakePair(newcomer, in));
    in->sendNotice(QStringLiteral("INFONA"));
    ++m_relayed;
}

void CommandServer::insiderRefuses(ClientConnection* in) {
    for (qsizetype i = 0; i < m_asks.size(); ++i)
        if (m_asks[i].second == in) {
            ClientConnection* newcomer = m_asks.takeAt(i).first;
            newcomer->sendNotice(QStringLiteral("INFONC"));
            ++m_relayed;
            return;
        }
}

void CommandServer::newcomerGivesUp(ClientConnection* newcomer) {
    for (qsizetype i = 0; i < m_asks.size(); ++i)
        if (m_asks[i].first == newcomer) {
            ClientConnection* in = m_asks.takeAt(i).second;
            in->sendNotice(QStringLiteral("INFONC"));
            ++m_relayed;
            return;
        }
}

void CommandServer::closeSilentBeyondShare() {
    if (m_options.silentPerSource <= 0)
        return;
    // The youngest keep their place: they are the ones that may still speak.
    QHash<QHostAddress, int> held;
    QList<ClientConnection*> beyond;
    QHostAddress worst;
    for (auto it = m_connections.crbegin(); it != m_connections.crend(); ++it) {
        ClientConnection* c = *it;
        if (c->spoken() || c->ageMs() < m_options.silentAgeMs)
            continue;
        const QHostAddress source = SourceRateLimit::sourceOf(c->peerAddress());
        if (++held[source] > m_options.silentPerSource) {
            beyond << c;
            worst = source;
        }
    }
    if (beyond.isEmpty())
        return;
    ServerLog::fault(QStringLiteral("command port"),
                     QStringLiteral("closed %1 connections that sent nothing for %2 ms: more than "
                                    "%3 from one address (%4)")
                         .arg(beyond.size())
                         .arg(m_options.silentAgeMs)
                         .arg(m_options.silentPerSource)
                         .arg(worst.toString()));
    for (ClientConnection* c : beyond)
        c->close();
}

void CommandServer::keepAliveTick() {
    reportFlood();
    closeSilentBeyondShare();
    const qint64 idleLimit = qint64(m_options.keepAliveSeconds) * 1000;
    const QList<ClientConnection*> open = m_connections;
    for (ClientConnection* c : open) {
        if (c->hasQueue() || c->idleMs() < idleLimit)
            continue;
        if (c->awaitingPing()) {
            ServerLog::fault(QStringLiteral("connection %1").arg(c->number()),
                             QStringLiteral("no answer to the keep-alive; closed"));
            c->close();
            continue;
        }
        c->setAwaitingPing(true);
        c->sendNotice(QStringLiteral("PIN"));
    }
}

} // namespace tk::server
