#include "TransferChannel.h"

#include "AcceptThrottle.h"
#include "IncomingTransfer.h"
#include "OutgoingTransfer.h"
#include "ServerLog.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace tk::server {

namespace {

QString baseName(const QString& path) {
    const int slash =
        std::max(path.lastIndexOf(QLatin1Char('\\')), path.lastIndexOf(QLatin1Char('/')));
    return path.mid(slash + 1);
}

} // namespace

TransferChannel::TransferChannel(quint16 clientDataPort, quint16 clientInfoPort, int timeoutMs,
                                 QObject* parent)
    : QObject(parent), m_clientDataPort(clientDataPort), m_clientInfoPort(clientInfoPort),
      m_timeoutMs(timeoutMs), m_infoServer(new QTcpServer(this)),
      m_dataServer(new QTcpServer(this)) {
    // A fault in accepting (no descriptors left) pauses a listener for a while, never for good.
    new AcceptThrottle(m_infoServer, QStringLiteral("upload command port"));
    new AcceptThrottle(m_dataServer, QStringLiteral("upload data port"));
    connect(m_infoServer, &QTcpServer::newConnection, this, &TransferChannel::onInfoConnection);
    connect(m_dataServer, &QTcpServer::newConnection, this, &TransferChannel::onDataConnection);
}

TransferChannel::~TransferChannel() = default;

bool TransferChannel::listen(quint16 uploadDataPort, quint16 uploadInfoPort, QString* error) {
    if (!m_dataServer->listen(QHostAddress::Any, uploadDataPort)) {
        *error = QStringLiteral("upload data port %1: %2")
                     .arg(uploadDataPort)
                     .arg(m_dataServer->errorString());
        return false;
    }
    if (!m_infoServer->listen(QHostAddress::Any, uploadInfoPort)) {
        *error = QStringLiteral("upload command port %1: %2")
                     .arg(uploadInfoPort)
                     .arg(m_infoServer->errorString());
        m_dataServer->close();
        return false;
    }
    return true;
}

quint16 TransferChannel::uploadDataPort() const {
    return m_dataServer->serverPort();
}

quint16 TransferChannel::uploadInfoPort() const {
    return m_infoServer->serverPort();
}

void TransferChannel::expectUpload(const QHostAddress& peer, const QString& name,
                                   std::function<void(QByteArray)> deliver) {
    m_expected.removeIf([](const Expected& e) { return e.deadline.hasExpired(); });
    if (m_expected.size() >= 256)
        m_expected.removeFirst();
    m_expected.append({peer, baseName(name), std::move(deliver), QDeadlineTimer(60000)});
}

bool TransferChannel::accept(const QHostAddress& peer, const QString& name, qint64,
                             std::function<void(QByteArray)>* deliver) {
    m_expected.removeIf([](const Expected& e) { return e.deadline.hasExpired(); });
    qsizetype found = -1;
    const QString naam = baseName(name);
    const auto past = [&](const QString& verwacht) {
        return verwacht.endsWith(QLatin1Char('*'))
                   ? naam.startsWith(verwacht.chopped(1), Qt::CaseInsensitive)
                   : naam.compare(verwacht, Qt::CaseInsensitive) == 0;
    };
    for (qsizetype i = 0; i < m_expected.size() && found < 0; ++i)
        if (m_expected[i].peer.isEqual(peer, QHostAddress::TolerantConversion) &&
            past(m_expected[i].name))
            found = i;
    if (found < 0)
        return false;
    *deliver = m_expected.takeAt(found).deliver;
    return true;
}

void TransferChannel::onInfoConnection() {
    while (QTcpSocket* socket = m_infoServer->nextPendingConnection()) {
        if (m_incoming.size() >= 64) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        auto* transfer = new IncomingTransfer(
            socket,
            [this](const QHostAddress& peer, const QString& name, qint64 size,
                   std::function<void(QByteArray)>* deliver) {
                return accept(peer, name, size, deliver);
            },
            maxUpload, m_timeoutMs, this);
        m_incoming.append(transfer);
        ++m_active;
        connect(transfer, &IncomingTransfer::finished, this,
                [this, transfer](bool ok, const QString& what) {
                    ServerLog::line(
                        QStringLiteral("upload from %1 %2: %3")
                            .arg(transfer->peerAddress().toString(),
                                 ok ? QStringLiteral("received") : QStringLiteral("failed"), what));
                    m_incoming.removeOne(transfer);
                    --m_active;
                    transfer->deleteLater();
                    Q_EMIT transferEnded(ok);
                });
    }
}

void TransferChannel::onDataConnection() {
    while (QTcpSocket* socket = m_dataServer->nextPendingConnection()) {
        IncomingTransfer* owner = nullptr;
        for (IncomingTransfer* t : m_incoming)
            if (!t->hasData() &&
                t->peerAddress().isEqual(socket->peerAddress(), QHostAddress::TolerantConversion)) {
                owner = t;
                break;
            }
        if (!owner) {
            ServerLog::fault(QStringLiteral("transfer"),
                             QStringLiteral("a data connection from %1 without a command "
                                            "connection; closed")
                                 .arg(socket->peerAddress().toString()));
            socket->abort();
            socket->deleteLater();
            continue;
        }
        owner->attachData(socket);
    }
}

void TransferChannel::sendFile(const QHostAddress& peer, const QString& name,
                               const QByteArray& content, std::function<void(bool)> done) {
    // A client on IPv4 that reached the dual-stack listener shows as ::ffff:a.b.c.d.
    bool mapped = false;
    const quint32 v4 = peer.toIPv4Address(&mapped);
    const QHostAddress host = mapped ? QHostAddress(v4) : peer;
    QList<Outgoing>& rij = m_outgoing[host];
    if (rij.size() > maxWaiting) {
        ServerLog::line(QStringLiteral("FAULT sending %1 to %2: %3 files already wait for it")
                            .arg(name, host.toString())
                            .arg(maxWaiting));
        if (done)
            done(false);
        Q_EMIT transferEnded(false);
        return;
    }
    rij.append({name, content, std::move(done)});
    if (rij.size() == 1)
        sendNext(host);
}

void TransferChannel::sendNext(const QHostAddress& host) {
    const Outgoing& file = m_outgoing[host].first();
    auto* transfer = new OutgoingTransfer(host, m_clientInfoPort, m_clientDataPort, file.name,
                                          file.content, m_timeoutMs, this);
    ++m_active;
    connect(transfer, &OutgoingTransfer::finished, this,
            [this, transfer, host](bool ok, const QString& reason) {
                const Outgoing klaar = m_outgoing[host].takeFirst();
                ServerLog::line(ok ? QStringLiteral("sent %1 (%2 bytes) to %3")
                                         .arg(klaar.name)
                                         .arg(klaar.content.size())
                                         .arg(host.toString())
                                   : QStringLiteral("FAULT sending %1 to %2: %3")
                                         .arg(klaar.name, host.toString(), reason));
                --m_active;
                transfer->deleteLater();
                if (m_outgoing[host].isEmpty())
                    m_outgoing.remove(host);
                else
                    sendNext(host);
                if (klaar.done)
                    klaar.done(ok);
                Q_EMIT transferEnded(ok);
            });
    transfer->start();
}

} // namespace tk::server
