#include "TransferPeer.h"

namespace tk::test {

TransferPeer::TransferPeer() {
    connect(&m_infoServer, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* s = m_infoServer.nextPendingConnection())
            neemInfo(s);
        m_info->write("CNT");
    });
    connect(&m_binairServer, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* s = m_binairServer.nextPendingConnection())
            neemBinair(s);
    });
}

void TransferPeer::neemInfo(QTcpSocket* socket) {
    if (m_info)
        m_info->deleteLater();
    m_info = socket;
    m_info->setParent(this);
    connect(m_info, &QTcpSocket::readyRead, this, &TransferPeer::leesInfo);
}

void TransferPeer::neemBinair(QTcpSocket* socket) {
    if (m_binair)
        m_binair->deleteLater();
    m_binair = socket;
    m_binair->setParent(this);
    binairGesloten = false;
    connect(m_binair, &QTcpSocket::readyRead, this, &TransferPeer::leesBinair);
    connect(m_binair, &QTcpSocket::disconnected, this, [this] { binairGesloten = true; });
}

void TransferPeer::verbindMet(quint16 infoPoort, quint16 binairPoort) {
    neemInfo(new QTcpSocket(this));
    neemBinair(new QTcpSocket(this));
    m_info->connectToHost(QHostAddress::LocalHost, infoPoort);
    m_binair->connectToHost(QHostAddress::LocalHost, binairPoort);
}

bool TransferPeer::verbonden() const {
    return m_info && m_binair && m_info->state() == QAbstractSocket::ConnectedState &&
           m_binair->state() == QAbstractSocket::ConnectedState;
}

void TransferPeer::stuurInfo(const QByteArray& bericht) {
    if (m_info)
        m_info->write(bericht);
}

void TransferPeer::stuurBinair(const QByteArray& bytes) {
    if (m_binair)
        m_binair->write(bytes);
}

bool TransferPeer::geleegd() const {
    return (!m_info || m_info->bytesToWrite() == 0) && (!m_binair || m_binair->bytesToWrite() == 0);
}

void TransferPeer::sluit() {
    if (m_info)
        m_info->abort();
    if (m_binair)
        m_binair->abort();
}

bool TransferPeer::luister() {
    return m_infoServer.listen(QHostAddress::LocalHost, 0) &&
           m_binairServer.listen(QHostAddress::LocalHost, 0);
}

void TransferPeer::leesInfo() {
    while (m_info && m_info->bytesAvailable() > 0) {
        const QByteArray bericht = m_info->readAll();
        infoOntvangen.append(bericht);
        if (!bericht.startsWith("FIS"))
            continue;
        const qsizetype streep = bericht.indexOf('|');
        aangekondigd = bericht.mid(3, streep - 3).toLongLong();
        if (opAanbod == Antwoord::Accepteren)
            m_info->write("ACP");
        else if (opAanbod == Antwoord::Weigeren)
            m_info->write("RFS");
    }
}

void TransferPeer::leesBinair() {
    if (!m_binair)
        return;
    const QByteArray bytes = m_binair->readAll();
    binairAantal += bytes.size();
    if (bewaarBytes)
        binairOntvangen += bytes;
    if (opBinair)
        opBinair();
    if (sluitNa >= 0 && binairAantal >= sluitNa) {
        sluit();
        return;
    }
    if (aangekondigd > 0 && binairAantal >= aangekondigd && m_info) {
        aangekondigd = -1;
        m_info->write("RFC");
    }
}

} // namespace tk::test
