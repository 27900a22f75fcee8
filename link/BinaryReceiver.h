#pragma once

#include "link/SocketListener.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTcpSocket>
#include <QTimer>
#include <functional>
#include <memory>

class QTemporaryFile;

namespace tk {

class Programma;

// Takes a file from the server (the Receiver on frmMain). It listens on two ports: the info
// socket carries short text commands (one read is one command, Windows-1252, no terminator), the
// binary socket the file's bytes. The server connects to both, offers a file with "FIS", the
// caller accepts it with a full target path, the bytes are written to a private temporary file
// and only the complete file is moved onto the target.
//
// The offered name is information only: nothing builds a path from it.
class BinaryReceiver : public QObject {
    Q_OBJECT
public:
    // A parsed "FIS<size>|<n>@<name>" offer.
    struct FileOffer {
        bool geldig = false;
        qint64 grootte = 0;
        qint64 nummer = 0;
        QString naam;
        QString fout; // why the offer is not valid
    };
    // Parses one info message that begins with "FIS". Never throws.
    static FileOffer parseFileOffer(const QString& bericht);

    explicit BinaryReceiver(Programma& p, QObject* parent = nullptr);
    ~BinaryReceiver() override;

    // Puts both sockets in listen state on LocalPortInfo and LocalPortBinary. A port of 0 takes a
    // free one, which is then the port's value. False (and Error) when a port cannot be taken.
    bool Listen();
    // Accepts the offer: the bytes go to `pad` (a program path such as "\Tijdelijk\x" or a native
    // absolute path), through a temporary file. Sends "ACP".
    void AcceptSendRequest(const QString& pad);
    // Sends "RFS"; the sockets stay open for a next offer.
    void RefuseSendRequest();
    // Closes both sockets and both listeners, clears the counters and the timer, and removes an
    // unfinished temporary file.
    void Reset();
    // Clears the counters of the present file and stops the timer; an unfinished temporary file
    // is removed. Enough between two files on one connection.
    void ResetFile();

    // The half-second tick of the speed timer: raises SpeedRecord with the kilobytes per second.
    void tmrDownloadSpeed_Timer();

    void setLocalPortInfo(qint64 poort) { LocalPortInfo = poort; }
    void setLocalPortBinary(qint64 poort) { LocalPortBinary = poort; }
    qint64 localPortInfo() const { return LocalPortInfo; }
    qint64 localPortBinary() const { return LocalPortBinary; }
    qint64 currentFileSize() const { return CurrentFileSize; }
    const QString& currentFileName() const { return CurrentFileName; }
    qint64 currentFileNumber() const { return m_offerNumber; }
    qint64 ontvangen() const { return Ontvangen; }
    qint64 totaal() const { return Totaal; }
    const QString& doelpad() const { return Doelpad; }
    // The temporary file of the present file while it is being written; empty otherwise.
    QString temporaryFile() const;
    // The folder that holds the temporary files and nothing else.
    QString temporaryFolder() const;
    bool speedTimerActive() const { return tmrDownloadSpeed.isActive(); }

    QString LocalHostName() const;
    QString LocalIP() const;

    // Events. Each is called on the one thread, inside whatever pump is running.
    std::function<void(const QString& omschrijving)> onError;
    std::function<void()> onSendRequest;
    std::function<void()> onConnected;
    std::function<void()> onReceiveComplete;
    // (bytes received since Reset, announced size of the present file)
    std::function<void(qint64 ontvangen, qint64 totaal)> onReceiveProgress;
    std::function<void(qint64 kbps)> onSpeedRecord;

private:
    void wsInfo_ConnectionRequest(qintptr requestID);
    void wsReader_ConnectionRequest(qintptr requestID);
    void wsInfo_DataArrival();
    void wsReader_DataArrival();
    void handleCommand(const QByteArray& bericht);
    void writeArrival(const QByteArray& buffer);
    void finishFile();
    void discardTemporaryFile();
    void removeStaleTemporaryFiles();
    void send(QTcpSocket& socket, QLatin1StringView bericht);
    void raiseError(const QString& omschrijving);

    Programma& p;
    SocketListener m_infoListener;
    SocketListener m_readerListener;
    QTcpSocket wsInfo;
    QTcpSocket wsReader;
    QTimer tmrDownloadSpeed;

    qint64 LocalPortInfo = 0;
    qint64 LocalPortBinary = 0;
    qint64 CurrentFileSize = 0;
    QString CurrentFileName;
    qint64 m_offerNumber = 0;
    qint64 Ontvangen = 0;
    qint64 Totaal = 0;
    QString Doelpad;
    // The open file (the role of Bestandsnummer); null when no file is accepted.
    std::unique_ptr<QTemporaryFile> m_tempFile;
    qint64 m_lastTickCount = 0;
};

} // namespace tk
