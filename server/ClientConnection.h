#pragma once

#include "LoadCache.h"
#include "core/MessageAssembler.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QHostAddress>
#include <QList>
#include <QObject>
#include <QQueue>
#include <QString>
#include <memory>
#include <utility>

class QTcpSocket;
class QTimer;

namespace tk::server {

// One client on the command channel. The wire has no framing: the client takes what one read
// gives as one message. So this class writes one message at a time and never a second before
// the client can have consumed the first:
// - a reply goes out at once: the request it answers shows that the client consumed what came
//   before (the client waits for each reply before it asks again);
// - an unsolicited message (a relayed notice, a keep-alive) and the acknowledgement of a
//   message the client may send without waiting go out only after the connection has been
//   quiet for a settling time, and hold back everything behind them for that time too.
// On the read side, what one read gives is one message, and a long message that arrives in
// pieces is read whole (MessageAssembler). A message above the input limit, a first message that
// does not begin with a command word (three capitals: every client's first message does), or no
// first message within the set time, closes the connection with a log line.
class ClientConnection : public QObject {
    Q_OBJECT
public:
    struct Limits {
        int settleMs = 250;
        qint64 maxMessage = 256 * 1024;
        int firstMessageMs = 30000;
        int pieceQuietMs = MessageAssembler::defaultQuietMs;
        // What one turn of the event loop reads at most: a peer that sends without pause gets
        // this slice and the others are served in the same turn.
        qint64 turnSlice = 16 * 1024;
    };

    ClientConnection(QTcpSocket* socket, int number, const Limits& limits,
                     QObject* parent = nullptr);
    ~ClientConnection() override;

    int number() const { return m_number; }
    QHostAddress peerAddress() const;
    QString peer() const;

    void sendReply(const QString& text);
    // A reply to a message that the client may have sent without waiting: it settles like a
    // notice.
    void sendSettlingReply(const QString& text);
    void sendNotice(const QString& text);
    // While a request is handled its replies can wait here, so that one made from a read of the
    // store that failed is dropped instead of sent; released, they go in their order.
    void holdReplies() { m_holding = true; }
    void releaseReplies(bool send);
    void close();

    // Milliseconds since the last byte either way.
    qint64 idleMs() const { return m_activity.elapsed(); }
    bool hasQueue() const { return !m_queue.isEmpty(); }
    // Whether a first message came, and how long ago the connection came.
    bool spoken() const { return m_spoken; }
    qint64 ageMs() const { return m_clock.elapsed(); }
    // Bytes read from the client so far.
    qint64 bytesIn() const { return m_bytesIn; }
    bool awaitingPing() const { return m_awaitingPing; }
    void setAwaitingPing(bool waiting) { m_awaitingPing = waiting; }

    // What the server keeps of this client.
    QString location;
    QString computerName;
    QString clientVersion;
    std::shared_ptr<const LoadCache::Snapshot> loading; // the snapshot a load began with

Q_SIGNALS:
    void messageReceived(tk::server::ClientConnection* connection, const QString& message);
    void closed(tk::server::ClientConnection* connection);

private:
    struct Outgoing {
        QByteArray bytes;
        bool settles = false;
    };
    static constexpr qsizetype commandWordLength = 3;
    static bool beginsWithCommandWord(const QByteArray& bytes);
    void checkFirstWord();
    void onMessage(const QByteArray& bytes);
    void flush();
    void enqueue(const QString& text, bool settles);

    QTcpSocket* m_socket;
    int m_number;
    Limits m_limits;
    tk::MessageAssembler* m_assembler;
    QTimer* m_firstMessage;
    QQueue<Outgoing> m_queue;
    QList<std::pair<QString, bool>> m_held; // text, settles
    bool m_holding = false;
    QElapsedTimer m_activity;
    QElapsedTimer m_sinceWrite;
    qint64 m_quietUntil = 0; // in m_clock milliseconds
    QElapsedTimer m_clock;
    QTimer* m_timer = nullptr;
    qint64 m_bytesIn = 0;
    bool m_awaitingPing = false;
    bool m_spoken = false;
    bool m_firstWordSeen = false;
    bool m_closed = false;
};

} // namespace tk::server
