#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTcpSocket>
#include <QTimer>
#include <functional>

namespace tk {

class Programma;

// Sends a file to the server (the Sender on frmMain). It connects two sockets to the server: the
// info socket carries short text commands (one read is one command, Windows-1252, no
// terminator), the binary socket the file's bytes, streamed from the file in blocks of
// Blokgrootte with a pump after each. Progress comes from what the socket has written.
class BinarySender : public QObject {
    Q_OBJECT
public:
    explicit BinarySender(Programma& p, QObject* parent = nullptr);
    ~BinarySender() override;

    // Connects the info socket to RemoteHost:RemotePortInfo. On the server's "CNT" the event
    // Connected is raised and the binary socket connects to RemotePortBinary.
    void Connect();
    // Offers the file: "FIS<size>|0@<name>".
    void SendInfo();
    // Sends the file's bytes on the binary socket; returns when the last block is handed to the
    // socket (or the socket is gone).
    void SendFile();
    // Closes both sockets, clears the counters and the timer, Blokgrootte back to 8192.
    void Reset();
    // Clears the counters of the present file and stops the timer.
    void ResetFile();
    // Both sockets are connected.
    bool Connected() const;

    // The whole file in memory (empty, with a reported fault, when it cannot be read).
    QByteArray ReadBinaryArray(const QString& pad);
    // Writes `bytes` as the whole file `pad`; false (with a reported fault) when it cannot.
    bool SaveBinaryArray(const QString& pad, const QByteArray& bytes);
    // The name behind the last "\" (or "/").
    static QString StripPath(const QString& pad);

    // The half-second tick of the speed timer: raises SpeedRecord with the kilobytes per second.
    void tmrUploadSpeed_Timer();

    void setRemoteHost(const QString& host) { RemoteHost = host; }
    void setRemotePortInfo(qint64 poort) { RemotePortInfo = poort; }
    void setRemotePortBinary(qint64 poort) { RemotePortBinary = poort; }
    // The file to send (a program path or a native absolute one); fills CurrentFileName and
    // CurrentFileSize. False (with a reported fault) when the file does not exist.
    bool setSource(const QString& pad);
    const QString& remoteHost() const { return RemoteHost; }
    const QString& source() const { return Source; }
    const QString& currentFileName() const { return CurrentFileName; }
    qint64 currentFileSize() const { return CurrentFileSize; }
    qint64 blokgrootte() const { return Blokgrootte; }
    qint64 verzonden() const { return Verzonden; }
    qint64 gelezen() const { return Gelezen; }
    bool speedTimerActive() const { return tmrUploadSpeed.isActive(); }

    // Events. Each is called on the one thread, inside whatever pump is running.
    std::function<void(const QString& omschrijving)> onSendError;
    std::function<void()> onConnected;
    std::function<void()> onCommandAccepted;
    std::function<void()> onCommandRefused;
    // (size of the file, bytes the socket has written)
    std::function<void(qint64 totaal, qint64 verzonden)> onSendProgress;
    std::function<void()> onSendComplete;
    std::function<void(qint64 kbps)> onSpeedRecord;

private:
    void wsInfo_DataArrival();
    void handleCommand(const QByteArray& bericht);
    void wsSender_SendProgress(qint64 geschreven);
    // Hands one block to the binary socket and holds back while the socket has much unsent.
    bool sendBlock(const char* blok, qint64 grootte);
    void raiseError(const QString& omschrijving);

    Programma& p;
    QTcpSocket wsInfo;
    QTcpSocket wsSender;
    QTimer tmrUploadSpeed;

    QString RemoteHost;
    qint64 RemotePortInfo = 0;
    qint64 RemotePortBinary = 0;
    QString Source;
    QString CurrentFileName;
    qint64 CurrentFileSize = 0;
    qint64 Blokgrootte = 8192;
    qint64 Verzonden = 0;
    qint64 Gelezen = 0;
    qint64 Snelheid = 0;
    bool m_inProgress = false;
};

} // namespace tk
