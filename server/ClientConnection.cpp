#include "ClientConnection.h"

#include "ServerLog.h"
#include "WireText.h"

#include <QTcpSocket>
#include <QTimer>

namespace tk::server {

namespace {
constexpr int maxQueue = 64;
}

ClientConnection::ClientConnection(QTcpSocket* socket, int number, int settleMs, QObject* parent)
    : QObject(parent), m_socket(socket), m_number(number), m_settleMs(settleMs) {
    m_socket->setParent(this);
    m_socket->setReadBufferSize(0);
    // Each message in a segment of its own, at once: without this the system holds a small
    // message back until the one before it is acknowledged, and may send the two together.
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_activity.start();
    m_clock.start();
    connect(m_socket, &QTcpSocket::readyRead, this, &ClientConnection::onReadyRead);
    connect(m_socket, &QTcpSocket::bytesWritten, this, &ClientConnection::flush);
    connect(m_socket, &QTcpSocket::disconnected, this, [this] {
        if (!m_closed) {
            m_closed = true;
            Q_EMIT closed(this);
        }
    });
}

ClientConnection::~ClientConnection() = default;

QHostAddress ClientConnection::peerAddress() const {
    return m_socket->peerAddress();
}

QString ClientConnection::peer() const {
    return QStringLiteral("%1:%2")
        .arg(m_socket->peerAddress().toString())
        .arg(m_socket->peerPort());
}

void ClientConnection::onReadyRead() {
    m_activity.restart();
    const qint64 available = m_socket->bytesAvailable();
    if (available > maxMessage) {
        // Far more than any message: read it away in pieces and drop it whole.
        while (m_socket->bytesAvailable() > 0)
            m_socket->read(64 * 1024);
        ServerLog::fault(QStringLiteral("connection %1").arg(m_number),
                         QStringLiteral("dropped a message of %1 bytes").arg(available));
        return;
    }
    const QByteArray bytes = m_socket->readAll();
    if (bytes.isEmpty())
        return;
    Q_EMIT messageReceived(this, WireText::fromBytes(bytes));
}

void ClientConnection::sendReply(const QString& text) {
    enqueue(text, false);
}

void ClientConnection::sendSettlingReply(const QString& text) {
    enqueue(text, true);
}

void ClientConnection::sendNotice(const QString& text) {
    enqueue(text, true);
}

void ClientConnection::enqueue(const QString& text, bool settles) {
    if (m_closed)
        return;
    if (m_queue.size() >= maxQueue) {
        ServerLog::fault(QStringLiteral("connection %1").arg(m_number),
                         QStringLiteral("the client reads nothing; closing"));
        close();
        return;
    }
    m_queue.enqueue({WireText::toBytes(text), settles});
    flush();
}

void ClientConnection::flush() {
    if (m_closed)
        return;
    while (!m_queue.isEmpty()) {
        if (m_socket->bytesToWrite() > 0)
            return; // bytesWritten calls again
        const qint64 now = m_clock.elapsed();
        qint64 readyAt = m_quietUntil;
        // An unsolicited message waits until the connection has been quiet for a while, so
        // that the client has read what came before it.
        if (m_queue.head().settles && m_sinceWrite.isValid())
            readyAt = std::max(readyAt, now - m_sinceWrite.elapsed() + m_settleMs);
        if (now < readyAt) {
            if (!m_timer) {
                m_timer = new QTimer(this);
                m_timer->setSingleShot(true);
                connect(m_timer, &QTimer::timeout, this, &ClientConnection::flush);
            }
            if (!m_timer->isActive() || m_timer->remainingTime() > readyAt - now)
                m_timer->start(int(readyAt - now));
            return;
        }
        const Outgoing out = m_queue.dequeue();
        m_socket->write(out.bytes);
        m_socket->flush();
        m_sinceWrite.restart();
        m_activity.restart();
        m_quietUntil = out.settles ? m_clock.elapsed() + m_settleMs : 0;
    }
}

void ClientConnection::close() {
    if (m_closed)
        return;
    m_closed = true;
    m_queue.clear();
    m_socket->abort();
    Q_EMIT closed(this);
}

} // namespace tk::server
