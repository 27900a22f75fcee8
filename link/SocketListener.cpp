#include "SocketListener.h"

#include <QMetaMethod>
#include <QTcpSocket>

namespace tk {

void SocketListener::incomingConnection(qintptr requestID) {
    if (isSignalConnected(QMetaMethod::fromSignal(&SocketListener::ConnectionRequest))) {
        Q_EMIT ConnectionRequest(requestID);
        return;
    }
    // Nobody takes it: close it at once rather than leak the descriptor.
    QTcpSocket weg;
    weg.setSocketDescriptor(requestID);
    weg.abort();
}

} // namespace tk
