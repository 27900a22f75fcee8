#include "AcceptThrottle.h"

#include "ServerLog.h"

#include <QTcpServer>
#include <QTimer>

namespace tk::server {

AcceptThrottle::AcceptThrottle(QTcpServer* server, const QString& name, int pauseMs)
    : QObject(server), m_server(server), m_name(name), m_timer(new QTimer(this)) {
    m_timer->setSingleShot(true);
    m_timer->setInterval(pauseMs);
    connect(m_timer, &QTimer::timeout, this, [this] {
        if (m_paused)
            m_server->resumeAccepting();
    });
    connect(m_server, &QTcpServer::acceptError, this, &AcceptThrottle::onAcceptError);
    connect(m_server, &QTcpServer::newConnection, this, &AcceptThrottle::accepted);
}

void AcceptThrottle::onAcceptError(QAbstractSocket::SocketError error) {
    ++m_faults;
    // QTcpServer has paused itself.
    if (error != QAbstractSocket::SocketResourceError) {
        // One attempt that went wrong (aborted before it was taken): the next may be fine.
        QTimer::singleShot(0, this, [this] {
            if (!m_paused)
                m_server->resumeAccepting();
        });
        return;
    }
    ++m_pauseFaults;
    if (!m_paused) {
        m_paused = true;
        m_since.start();
        ServerLog::fault(m_name, QStringLiteral("cannot accept a connection (%1); accepting "
                                                "paused until a connection closes or %2 ms pass")
                                     .arg(m_server->errorString())
                                     .arg(m_timer->interval()));
    }
    m_timer->start();
}

void AcceptThrottle::resume() {
    if (m_paused && m_timer->isActive()) {
        m_timer->stop();
        m_server->resumeAccepting();
    }
}

void AcceptThrottle::accepted() {
    if (!m_paused)
        return;
    m_paused = false;
    m_timer->stop();
    ServerLog::line(QStringLiteral("%1: accepting again after %2 ms (%3 attempts waited)")
                        .arg(m_name)
                        .arg(m_since.elapsed())
                        .arg(m_pauseFaults));
    m_pauseFaults = 0;
}

} // namespace tk::server
