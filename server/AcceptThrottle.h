#pragma once

#include <QAbstractSocket>
#include <QElapsedTimer>
#include <QMetaObject>
#include <QObject>
#include <QString>
#include <functional>

class QTcpServer;
class QTimer;

namespace tk::server {

// Keeps a listener accepting through a shortage of file descriptors, without spinning and
// without giving up. QTcpServer cannot be trusted here: after its first "try again" its socket
// keeps reporting that error, so a later "too many open files" makes it retry at once, forever,
// and a fault it does report stops it accepting for good. So:
// - the owner hands every accepted descriptor to accepted(); since the system gives out the
//   lowest free number, a descriptor near the open-file limit means the table is nearly full,
//   and accepting pauses before the limit is met (a reserve stays for the store and transfers);
//   while paused the owner takes no further connection, so that QTcpServer (at most one
//   pending) stops accepting too;
// - a fault QTcpServer reports pauses as well (a resource fault) or resumes at once (one failed
//   attempt);
// - a pause ends when a connection closes (resume()) or after `pauseMs`; waiting clients stay in
//   the system's listen queue.
// The start and the end of a shortage each get one log line, never one per attempt; the end's
// line counts the pauses and the times the event loop woke meanwhile, so that a shortage that
// spins shows. The owner hears of every pause (onShortage), so that it can close connections
// that cost without use.
class AcceptThrottle : public QObject {
    Q_OBJECT
public:
    static constexpr int defaultPauseMs = 250;

    // `fileLimit` 0: unknown, only the faults QTcpServer reports count.
    AcceptThrottle(QTcpServer* server, const QString& name, qint64 fileLimit = 0,
                   int pauseMs = defaultPauseMs);
    // Descriptors from this number on are the reserve.
    qint64 reserveFrom() const;
    void accepted(qintptr descriptor);
    // A descriptor came free: try again now if paused.
    void resume();
    bool paused() const { return m_paused; }
    // Told at every pause for want of descriptors and at every retry: the owner may free some.
    std::function<void()> onShortage;
    // Told when accepting resumes: the owner takes one connection QTcpServer holds, even while
    // paused, and hands its descriptor to accepted().
    std::function<void()> onResume;

private:
    void onAcceptError(QAbstractSocket::SocketError error);
    void retry();
    void shortage(const QString& why);
    void ended();

    QTcpServer* m_server;
    QString m_name;
    qint64 m_fileLimit;
    QTimer* m_timer;
    QElapsedTimer m_since;
    int m_waits = 0;
    int m_wakeups = 0;
    QMetaObject::Connection m_wakeCount;
    bool m_paused = false;
};

} // namespace tk::server
