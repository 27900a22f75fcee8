#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QQueue>
#include <QTcpServer>
#include <QTcpSocket>

namespace tk::test {

// A TCP proxy on loopback that behaves like a network with small segments: every read longer
// than one piece goes on in pieces of `piece` bytes with a pause between them, in both
// directions, in order. One connection at a time.
class SplittingProxy : public QObject {
    Q_OBJECT
public:
    SplittingProxy(quint16 target, int piece, int pauseMs);
    ~SplittingProxy() override;
    quint16 port() const { return m_server.serverPort(); }
    // Reads that went on in more than one piece, towards the server and towards the client.
    int splitToServer() const { return m_toServer.split; }
    int splitToClient() const { return m_toClient.split; }

private:
    struct Direction {
        QTcpSocket* to = nullptr;
        QQueue<QByteArray> pieces;
        bool sending = false;
        int split = 0;
    };
    void take(QTcpSocket* from, Direction& d);
    void sendNext(Direction& d);

    QTcpServer m_server;
    QTcpSocket* m_client = nullptr;
    QTcpSocket m_upstream;
    quint16 m_target;
    int m_piece;
    int m_pauseMs;
    Direction m_toServer;
    Direction m_toClient;
};

} // namespace tk::test
