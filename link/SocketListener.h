#pragma once

#include <QTcpServer>

namespace tk {

// A listening socket that hands each incoming connection to its owner as a bare request, the way
// a socket control raises ConnectionRequest: the owner closes its own socket and accepts the
// request into it (QTcpSocket::setSocketDescriptor), so that the connected socket is a member of
// the owner and never a heap object that must be deleted inside one of its own events.
class SocketListener : public QTcpServer {
    Q_OBJECT
public:
    using QTcpServer::QTcpServer;

Q_SIGNALS:
    void ConnectionRequest(qintptr requestID);

protected:
    void incomingConnection(qintptr requestID) override;
};

} // namespace tk
