#include "LinuxNetwork.h"

#include <QHostInfo>
#include <QNetworkInterface>
#include <QTcpSocket>

namespace tk {

int LinuxNetwork::ping(const QString& adres, int timeoutMs) {
    QString host = adres;
    quint16 poort = 80;
    const int dubbelepunt = host.lastIndexOf(QLatin1Char(':'));
    if (dubbelepunt > 0 && !host.contains(QLatin1Char(']'))) {
        bool ok = false;
        const uint p = host.mid(dubbelepunt + 1).toUInt(&ok);
        if (ok && p > 0 && p < 65536) {
            poort = quint16(p);
            host.truncate(dubbelepunt);
        }
    }
    QTcpSocket socket;
    socket.connectToHost(host, poort);
    if (socket.waitForConnected(timeoutMs)) {
        socket.abort();
        return 0;
    }
    switch (socket.error()) {
    case QAbstractSocket::ConnectionRefusedError:
        return 0; // the host is there; it only does not serve that port
    case QAbstractSocket::HostNotFoundError:
        return 11003;
    case QAbstractSocket::NetworkError:
        return 11002;
    case QAbstractSocket::SocketTimeoutError:
        return 200;
    default:
        return 11010;
    }
}

QString LinuxNetwork::hostName() {
    return QHostInfo::localHostName();
}

QString LinuxNetwork::localAddress() {
    for (const QHostAddress& adres : QNetworkInterface::allAddresses())
        if (adres.protocol() == QAbstractSocket::IPv4Protocol && !adres.isLoopback())
            return adres.toString();
    return QStringLiteral("127.0.0.1");
}

} // namespace tk
