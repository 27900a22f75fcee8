#include "IncomingTransfer.h"

#include "WireText.h"
#include "core/Wire.h"

#include <QTcpSocket>
#include <QTimer>

namespace tk::server {

IncomingTransfer::IncomingTransfer(QTcpSocket* info, Acceptor acceptor, qint64 maxSize,
                                   int timeoutMs, QObject* parent)
    : QObject(parent), m_info(info), m_acceptor(std::move(acceptor)), m_maxSize(maxSize),
      m_peer(info->peerAddress()), m_timeout(new QTimer(this)) {
    m_info->setParent(this);
    m_info->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_timeout->setSingleShot(true);
    m_timeout->setInterval(timeoutMs);
    connect(m_timeout, &QTimer::timeout, this,
            [this] { fail(QStringLiteral("the sender went silent")); });
    connect(m_info, &QTcpSocket::readyRead, this, &IncomingTransfer::onInfoRead);
    connect(m_info, &QTcpSocket::disconnected, this,
            [this] { fail(QStringLiteral("the sender closed its command socket")); });
    m_timeout->start();
    m_info->write(wire::CNT.data(), wire::CNT.size());
}

void IncomingTransfer::attachData(QTcpSocket* data) {
    m_data = data;
    m_data->setParent(this);
    connect(m_data, &QTcpSocket::readyRead, this, &IncomingTransfer::onData);
    connect(m_data, &QTcpSocket::disconnected, this, [this] {
        if (m_size < 0 || m_content.size() < m_size)
            fail(QStringLiteral("the sender closed its data socket half way"));
    });
    m_timeout->start();
    onData();
}

void IncomingTransfer::onInfoRead() {
    m_timeout->start();
    const QString text = WireText::fromBytes(m_info->read(4096));
    m_info->readAll();
    if (!text.startsWith(wire::FIS) || m_size >= 0)
        return; // anything else on this socket is not for the receiving side
    const int bar = text.indexOf(wire::valueSep);
    const int at = text.indexOf(wire::fileNameSep);
    qint64 size = 0;
    const qsizetype from = wire::FIS.size();
    const QString sizeText = text.mid(from, bar < 0 ? -1 : bar - from);
    const bool sized = WireText::number(sizeText, &size);
    m_name = at < 0 ? QString() : text.mid(at + 1);
    if (!sized || bar < 0 || size <= 0 || size > m_maxSize ||
        !m_acceptor(m_peer, m_name, size, &m_deliver)) {
        m_info->write(wire::RFS.data(), wire::RFS.size());
        m_info->flush();
        fail(QStringLiteral("refused the file \"%1\" of \"%2\" bytes").arg(m_name, sizeText));
        return;
    }
    m_size = size;
    m_info->write(wire::ACP.data(), wire::ACP.size());
    if (m_data)
        onData();
}

void IncomingTransfer::onData() {
    if (m_done || !m_data)
        return;
    m_timeout->start();
    if (m_size < 0) {
        if (m_data->bytesAvailable() > 0) // bytes before the offer was accepted
            fail(QStringLiteral("data before the offer"));
        return;
    }
    m_content.append(m_data->read(m_size - m_content.size()));
    m_data->readAll(); // nothing beyond the announced size belongs to the file
    if (m_content.size() < m_size)
        return;
    m_done = true;
    m_timeout->stop();
    m_info->write(wire::RFC.data(), wire::RFC.size());
    m_info->flush();
    if (m_deliver)
        m_deliver(m_content);
    Q_EMIT finished(true, m_name);
}

void IncomingTransfer::fail(const QString& reason) {
    if (m_done)
        return;
    m_done = true;
    m_timeout->stop();
    if (m_data)
        m_data->abort();
    m_info->disconnectFromHost();
    Q_EMIT finished(false, reason);
}

} // namespace tk::server
