#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>
#include <QTcpServer>
#include <QTcpSocket>
#include <functional>

namespace tk::test {

// The server's side of a file transfer on loopback, with an info socket for the short commands
// and a binary socket for the bytes.
//
// For a file to the client it connects to the receiver's two ports, and sends what the test
// says. For a file from the client it listens on two free ports, says "CNT" to a new info
// connection, answers an offer as `opAanbod` tells, collects the bytes and says "RFC" once the
// announced size has arrived. Every read of the info socket is recorded as one message.
class TransferPeer : public QObject {
    Q_OBJECT
public:
    enum class Antwoord { Accepteren, Weigeren, Stil };

    TransferPeer();

    // --- the server sends a file: it connects to the client
    void verbindMet(quint16 infoPoort, quint16 binairPoort);
    bool verbonden() const;
    void stuurInfo(const QByteArray& bericht);
    void stuurBinair(const QByteArray& bytes);
    void sluit();
    // Everything written has left this side (and, on loopback, stands in the client's socket).
    bool geleegd() const;

    // --- the server takes a file: it listens
    bool luister();
    quint16 infoPoort() const { return m_infoServer.serverPort(); }
    quint16 binairPoort() const { return m_binairServer.serverPort(); }
    Antwoord opAanbod = Antwoord::Accepteren;
    // Keep the bytes (tests) or only count them (benchmark).
    bool bewaarBytes = true;
    // Close both sockets once this many bytes have arrived (negative: never).
    qint64 sluitNa = -1;

    QList<QByteArray> infoOntvangen;
    QByteArray binairOntvangen;
    qint64 binairAantal = 0;
    qint64 aangekondigd = -1;
    bool binairGesloten = false;
    std::function<void()> opBinair;

private:
    void neemInfo(QTcpSocket* socket);
    void neemBinair(QTcpSocket* socket);
    void leesInfo();
    void leesBinair();

    QTcpServer m_infoServer;
    QTcpServer m_binairServer;
    QTcpSocket* m_info = nullptr;
    QTcpSocket* m_binair = nullptr;
};

} // namespace tk::test
