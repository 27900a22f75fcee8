#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
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

    // A file `name` from `peer` is expected within a minute; `deliver` gets its bytes.
    void expectUpload(const QHostAddress& peer, const QString& name,
                      std::function<void(QByteArray)> deliver);
    // Sends a file to the receiver of the client at `peer`. `done` is told how it ended.
    void sendFile(const QHostAddress& peer, const QString& name, const QByteArray& content,
                  std::function<void(bool ok)> done = {});
    int activeTransfers() const { return m_active; }

Q_SIGNALS:
    void transferEnded(bool ok);

private:
    struct Expected {
        QHostAddress peer;
        QString name;
        std::function<void(QByteArray)> deliver;
        QDeadlineTimer deadline;
    };
    bool accept(const QHostAddress& peer, const QString& name, qint64 size,
                std::function<void(QByteArray)>* deliver);
    void onInfoConnection();
    void onDataConnection();

    quint16 m_clientDataPort;
    quint16 m_clientInfoPort;
    int m_timeoutMs;
    QTcpServer* m_infoServer;
    QTcpServer* m_dataServer;
    QList<Expected> m_expected;
    QList<IncomingTransfer*> m_incoming;
    int m_active = 0;
};

} // namespace tk::server
