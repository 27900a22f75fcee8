#include "ClientConnection.h"

#include "ServerLog.h"
#include "WireText.h"

#include <QTcpSocket>
#include <QTimer>

namespace tk::server {

namespace {
constexpr int maxQueue = 64;
}

ClientConnection::ClientConnection(QTcpSocket* socket, int number, const Limits& limits,
                                   QObject* parent)
    : QObject(parent), m_socket(socket), m_number(number), m_limits(limits),
      m_firstMessage(new QTimer(this)) {
    m_socket->setParent(this);
    // Before the assembler reads: a connection whose first bytes are no command word is closed
    // before its input is read at all.
    connect(m_socket, &QTcpSocket::readyRead, this, [this] {
        // What the socket took from the system this turn; the assembler reads it all after.
        m_bytesIn += m_socket->bytesAvailable();
        m_activity.restart();
        checkFirstWord();
    });
    if (m_socket->bytesAvailable() > 0)
        QTimer::singleShot(0, this, &ClientConnection::checkFirstWord);
    m_assembler = new tk::MessageAssembler(socket, this);
    // The socket reads no more from the system than its buffer holds, and reads again at the
    // next turn of the event loop: a peer that sends without pause gets one slice a turn and
    // fills no more memory than that before it is read.
    m_socket->setReadBufferSize(m_limits.turnSlice);
    // Each message in a segment of its own, at once: without this the system holds a small
    // message back until the one before it is acknowledged, and may send the two together.
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_activity.start();
    m_clock.start();
    m_assembler->setQuietMs(m_limits.pieceQuietMs);
    m_assembler->setLimit(m_limits.maxMessage);
    m_assembler->onMessage = [this](const QByteArray& bytes) { onMessage(bytes); };
    m_assembler->onOverLimit = [this](qint64 bytes) {
        ServerLog::fault(QStringLiteral("connection %1").arg(m_number),
                         QStringLiteral("input of %1 bytes without a pause is above the limit of "
                                        "%2 bytes for one message; closed")
                             .arg(bytes)
                             .arg(m_limits.maxMessage));
        close();
    };
    // A connection that says nothing holds a place and a file descriptor for nothing.
    m_firstMessage->setSingleShot(true);
    connect(m_firstMessage, &QTimer::timeout, this, [this] {
        ServerLog::fault(
            QStringLiteral("connection %1").arg(m_number),
            QStringLiteral("no first message within %1 ms; closed").arg(m_limits.firstMessageMs));
        close();
    });
    m_firstMessage->start(m_limits.firstMessageMs);
    connect(m_socket, &QTcpSocket::bytesWritten, this, &ClientConnection::flush);
    connect(m_socket, &QTcpSocket::disconnected, this, [this] {
        if (!m_closed) {
            m_closed = true;
            m_firstMessage->stop();
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

bool ClientConnection::beginsWithCommandWord(const QByteArray& bytes) {
    for (qsizetype i = 0; i < std::min<qsizetype>(bytes.size(), commandWordLength); ++i)
        if (bytes[i] < 'A' || bytes[i] > 'Z')
            return false;
    return true;
}

void ClientConnection::checkFirstWord() {
    if (m_firstWordSeen || m_closed)
        return;
    const QByteArray start = m_socket->peek(commandWordLength);
    if (!beginsWithCommandWord(start)) {
        ServerLog::fault(QStringLiteral("connection %1").arg(m_number),
                         QStringLiteral("the first message begins with no command word; closed"));
        close();
        return;
    }
    m_firstWordSeen = start.size() >= commandWordLength;
}

void ClientConnection::onMessage(const QByteArray& bytes) {
    if (m_closed)
        return;
    m_activity.restart();
    m_firstMessage->stop();
    m_spoken = true;
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

void ClientConnection::releaseReplies(bool send) {
    m_holding = false;
    const auto held = std::exchange(m_held, {});
    if (send)
        for (const auto& [text, settles] : held)
            enqueue(text, settles);
}

void ClientConnection::enqueue(const QString& text, bool settles) {
    if (m_closed)
        return;
    if (m_holding) {
        m_held.append({text, settles});
        return;
    }
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
            readyAt = std::max(readyAt, now - m_sinceWrite.elapsed() + m_limits.settleMs);
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
        m_quietUntil = out.settles ? m_clock.elapsed() + m_limits.settleMs : 0;
    }
}

void ClientConnection::close() {
    if (m_closed)
        return;
    m_closed = true;
    m_firstMessage->stop();
    m_queue.clear();
    m_socket->abort();
    Q_EMIT closed(this);
}

} // namespace tk::server
