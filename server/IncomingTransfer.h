#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QObject>
#include <QString>
#include <functional>

class QTcpSocket;
class QTimer;

namespace tk::server {

// Takes one file from a client's sender: the client connects to the server's command port
// (answered "CNT") and data port, offers the file with "FIS<size>|<n>@<name>"; the server
// answers "ACP" when it expects that file, else "RFS"; after the last byte it answers "RFC".
// A client that goes away or falls silent half way leaves nothing behind.
class IncomingTransfer : public QObject {
    Q_OBJECT
public:
    // Asked on the offer: whether this file is expected; `deliver` then receives its bytes.
    using Acceptor = std::function<bool(const QHostAddress& peer, const QString& name, qint64 size,
                                        std::function<void(QByteArray)>* deliver)>;

    IncomingTransfer(QTcpSocket* info, Acceptor acceptor, qint64 maxSize, int timeoutMs,
                     QObject* parent = nullptr);
    QHostAddress peerAddress() const { return m_peer; }
    bool hasData() const { return m_data != nullptr; }
    void attachData(QTcpSocket* data);

Q_SIGNALS:
    void finished(bool ok, const QString& reason);

private:
    void onInfoRead();
    void onData();
    void fail(const QString& reason);

    QTcpSocket* m_info;
    QTcpSocket* m_data = nullptr;
    Acceptor m_acceptor;
    std::function<void(QByteArray)> m_deliver;
    qint64 m_maxSize;
    qint64 m_size = -1;
    QString m_name;
    QByteArray m_content;
    QHostAddress m_peer;
    QTimer* m_timeout;
    bool m_done = false;
};

} // namespace tk::server
