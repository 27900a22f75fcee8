#include "SplittingProxy.h"

#include <QTimer>

namespace tk::test {

SplittingProxy::SplittingProxy(quint16 target, int piece, int pauseMs)
    : m_target(target), m_piece(piece), m_pauseMs(pauseMs) {
    m_server.listen(QHostAddress::LocalHost, 0);
    m_upstream.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_toServer.to = &m_upstream;
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* s = m_server.nextPendingConnection()) {
            if (m_client) {
                s->abort();
                s->deleteLater();
                continue;
            }
            m_client = s;
            m_toClient.to = s;
            s->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            connect(s, &QTcpSocket::readyRead, this, [this] { take(m_client, m_toServer); });
            connect(s, &QTcpSocket::disconnected, this,
                    [this] { m_upstream.disconnectFromHost(); });
            m_upstream.connectToHost(QHostAddress::LocalHost, m_target);
        }
    });
    connect(&m_upstream, &QTcpSocket::connected, this, [this] { sendNext(m_toServer); });
    connect(&m_upstream, &QTcpSocket::readyRead, this, [this] { take(&m_upstream, m_toClient); });
    connect(&m_upstream, &QTcpSocket::disconnected, this, [this] {
        if (m_client)
            m_client->disconnectFromHost();
    });
}

SplittingProxy::~SplittingProxy() {
    m_upstream.disconnect(this);
    m_upstream.abort();
    if (m_client)
        m_client->disconnect(this);
}

void SplittingProxy::take(QTcpSocket* from, Direction& d) {
    const QByteArray bytes = from->readAll();
    if (bytes.size() > m_piece)
        ++d.split;
    for (qsizetype at = 0; at < bytes.size(); at += m_piece)
        d.pieces.enqueue(bytes.mid(at, m_piece));
    sendNext(d);
}

void SplittingProxy::sendNext(Direction& d) {
    if (d.sending || d.pieces.isEmpty() || !d.to ||
        d.to->state() != QAbstractSocket::ConnectedState)
        return;
    d.to->write(d.pieces.dequeue());
    d.to->flush();
    if (d.pieces.isEmpty())
        return;
    d.sending = true;
    QTimer::singleShot(m_pauseMs, this, [this, &d] {
        d.sending = false;
        sendNext(d);
    });
}

} // namespace tk::test
