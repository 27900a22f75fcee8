#pragma once

#include <QAbstractSocket>
#include <QElapsedTimer>
#include <QObject>
#include <QString>

class QTcpServer;
class QTimer;

namespace tk::server {

// Keeps a listener accepting through faults. When `accept` fails, QTcpServer stops accepting for
// good; out of file descriptors (or memory) it would otherwise spin. So this waits: a resource
// fault pauses accepting for a while (or until a connection closes and frees a descriptor), any
// other fault of one connection attempt resumes at once. The first fault of a pause and the end
// of the pause each get a log line, never one per attempt.
class AcceptThrottle : public QObject {
    Q_OBJECT
public:
    static constexpr int defaultPauseMs = 250;

    AcceptThrottle(QTcpServer* server, const QString& name, int pauseMs = defaultPauseMs);
    // A descriptor came free: try again now if paused.
    void resume();
    bool paused() const { return m_paused; }
    int faults() const { return m_faults; }

private:
    void onAcceptError(QAbstractSocket::SocketError error);
    // A connection taken: ends a pause with a log line.
    void accepted();

    QTcpServer* m_server;
    QString m_name;
    QTimer* m_timer;
    QElapsedTimer m_since;
    int m_faults = 0;      // in all
    int m_pauseFaults = 0; // in the present pause
    bool m_paused = false;
};

} // namespace tk::server
