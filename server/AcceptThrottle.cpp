#include "AcceptThrottle.h"

#include "ServerLog.h"

#include <QAbstractEventDispatcher>
#include <QTcpServer>
#include <QTimer>

namespace tk::server {

AcceptThrottle::AcceptThrottle(QTcpServer* server, const QString& name, qint64 fileLimit,
                               int pauseMs)
    : QObject(server), m_server(server), m_name(name), m_fileLimit(fileLimit),
      m_timer(new QTimer(this)) {
    m_timer->setSingleShot(true);
    m_timer->setInterval(pauseMs);
    connect(m_timer, &QTimer::timeout, this, &AcceptThrottle::retry);
    connect(m_server, &QTcpServer::acceptError, this, &AcceptThrottle::onAcceptError);
    if (m_fileLimit <= 0)
        connect(m_server, &QTcpServer::newConnection, this, [this] {
            if (m_paused)
                ended();
        });
}

qint64 AcceptThrottle::reserveFrom() const {
    return m_fileLimit - std::max<qint64>(8, m_fileLimit / 16);
}

void AcceptThrottle::accepted(qintptr descriptor) {
    if (m_fileLimit > 0 && descriptor >= reserveFrom())
        shortage(QStringLiteral("descriptor %1 of at most %2 open files")
                     .arg(descriptor)
                     .arg(m_fileLimit));
    else if (m_paused)
        ended();
}

void AcceptThrottle::onAcceptError(QAbstractSocket::SocketError error) {
    // QTcpServer has paused itself.
    if (error == QAbstractSocket::SocketResourceError) {
        shortage(m_server->errorString());
        return;
    }
    // One attempt that went wrong (aborted before it was taken): the next may be fine.
    QTimer::singleShot(0, this, [this] {
        if (!m_paused)
            m_server->resumeAccepting();
    });
}

void AcceptThrottle::shortage(const QString& why) {
    m_server->pauseAccepting();
    ++m_waits;
    if (!m_paused) {
        m_paused = true;
        m_since.start();
        m_wakeups = 0;
        if (auto* loop = QAbstractEventDispatcher::instance())
            m_wakeCount = connect(loop, &QAbstractEventDispatcher::aboutToBlock, this,
                                  [this] { ++m_wakeups; });
        ServerLog::fault(m_name, QStringLiteral("running out of file descriptors (%1); accepting "
                                                "paused until a connection closes or %2 ms pass")
                                     .arg(why)
                                     .arg(m_timer->interval()));
    }
    m_timer->start();
    if (onShortage)
        onShortage();
}

void AcceptThrottle::ended() {
    m_paused = false;
    m_timer->stop();
    disconnect(m_wakeCount);
    ServerLog::line(QStringLiteral("%1: accepting again after %2 ms (%3 pauses, %4 wake-ups)")
                        .arg(m_name)
                        .arg(m_since.elapsed())
                        .arg(m_waits)
                        .arg(m_wakeups));
    m_waits = 0;
}

void AcceptThrottle::retry() {
    if (!m_paused)
        return;
    m_timer->stop();
    if (onShortage)
        onShortage();
    m_server->resumeAccepting();
    if (onResume)
        onResume();
    // Still short (the connection taken got a descriptor near the limit, or none was waiting):
    // try again later; QTcpServer itself stops at its one pending connection meanwhile.
    if (m_paused && !m_timer->isActive())
        m_timer->start();
}

void AcceptThrottle::resume() {
    retry();
}

} // namespace tk::server
