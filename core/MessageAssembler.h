#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QQueue>
#include <QTimer>
#include <functional>

class QIODevice;

namespace tk {

// Reads messages from a socket of the command channel. The wire has no framing: a message is
// what one send carries, and the receiver takes one read as one message. On a real network a
// message longer than one segment can arrive in pieces, so a read of `longRead` bytes or more is
// held for a short, bounded time: pieces that follow within the quiet time belong to it. A short
// read is a whole message at once and pays no wait. What arrives in one read stays one message.
//
// A message is never handed on while the one before it is still being handled (a handler may
// run a nested event loop); it is handed on as soon as that one is done.
class MessageAssembler : public QObject {
    Q_OBJECT
public:
    // A read this long may be the first segment of a longer message (a segment carries about
    // 1,400 bytes; every block the server sends stays under 1,200).
    static constexpr qint64 longRead = 1200;
    static constexpr int defaultQuietMs = 50;
    static constexpr int defaultMaxWaitMs = 1000;

    // Reads `device` whenever it has bytes; with no device, only feed() gives it bytes.
    explicit MessageAssembler(QIODevice* device, QObject* parent = nullptr);

    // How long after a piece of a long message the next may come, and how long from its first
    // piece a long message may take in all.
    void setQuietMs(int ms) { m_quietMs = ms; }
    void setMaxWaitMs(int ms) { m_maxWaitMs = ms; }
    // A message that grows beyond `bytes` is dropped whole and reported to onOverLimit.
    void setLimit(qint64 bytes) { m_limit = bytes; }

    std::function<void(const QByteArray& message)> onMessage;
    std::function<void(qint64 bytes)> onOverLimit;

    // What one read gave.
    void feed(const QByteArray& bytes);
    // The quiet time after the last piece of a long message ran out: it is whole.
    void quietTick();
    bool waiting() const { return !m_buffer.isEmpty(); }
    // Forgets a message that was still arriving (the link was closed).
    void clear();

private:
    void readDevice();
    void complete();
    void deliver();

    QIODevice* m_device;
    QTimer m_quiet;
    QElapsedTimer m_sinceFirstPiece;
    QByteArray m_buffer;
    QQueue<QByteArray> m_ready;
    int m_quietMs = defaultQuietMs;
    int m_maxWaitMs = defaultMaxWaitMs;
    qint64 m_limit = 16 * 1024 * 1024;
    bool m_delivering = false;
};

} // namespace tk
