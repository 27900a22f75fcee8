#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QHash>
#include <QHostAddress>
#include <QList>
#include <QObject>
#include <QString>
#include <functional>

class QTcpServer;

namespace tk::server {

class IncomingTransfer;

// The file side of the server: it listens on the two upload ports for files the clients send,
// takes only files it was told to expect (an icon after "OPSAP2"), and sends files to a
// client's receiver. The ports are those the server announces in "INFDMN".
class TransferChannel : public QObject {
    Q_OBJECT
public:
    static constexpr qint64 maxUpload = 16 * 1024 * 1024;

    TransferChannel(quint16 clientDataPort, quint16 clientInfoPort, int timeoutMs,
                    QObject* parent = nullptr);
    ~TransferChannel() override;
    bool listen(quint16 uploadDataPort, quint16 uploadInfoPort, QString* error);
    quint16 uploadDataPort() const;
    quint16 uploadInfoPort() const;
    quint16 clientDataPort() const { return m_clientDataPort; }
    quint16 clientInfoPort() const { return m_clientInfoPort; }

    // A file `name` from `peer` is expected within a minute; `deliver` gets its bytes. A name
    // ending in "*" takes any file name that begins with what comes before it. Only a file of
    // its name is taken: workstations behind one address upload each their own.
    void expectUpload(const QHostAddress& peer, const QString& name,
                      std::function<void(QByteArray)> deliver);
    // Sends a file to the receiver of the client at `peer`. `done` is told how it ended. A
    // client's receiver takes one file at a time: a file for a client still receiving waits its
    // turn, and beyond `maxWaiting` files waiting for one client a new one is refused, so that
    // a client asking for packages without end holds no more than that.
    void sendFile(const QHostAddress& peer, const QString& name, const QByteArray& content,
                  std::function<void(bool ok)> done = {});
    int activeTransfers() const { return m_active; }
    static constexpr int maxWaiting = 4;

Q_SIGNALS:
    void transferEnded(bool ok);

private:
    struct Expected {
        QHostAddress peer;
        QString name;
        std::function<void(QByteArray)> deliver;
        QDeadlineTimer deadline;
    };
    struct Outgoing {
        QString name;
        QByteArray content;
        std::function<void(bool)> done;
    };
    bool accept(const QHostAddress& peer, const QString& name, qint64 size,
                std::function<void(QByteArray)>* deliver);
    // Starts the first file waiting for `host`, whose receiver is free.
    void sendNext(const QHostAddress& host);
    void onInfoConnection();
    void onDataConnection();

    quint16 m_clientDataPort;
    quint16 m_clientInfoPort;
    int m_timeoutMs;
    QTcpServer* m_infoServer;
    QTcpServer* m_dataServer;
    QList<Expected> m_expected;
    QList<IncomingTransfer*> m_incoming;
    // Per client (by address): the file being sent first, then those waiting.
    QHash<QHostAddress, QList<Outgoing>> m_outgoing;
    int m_active = 0;
};

} // namespace tk::server
