#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QObject>
#include <QString>

class QTcpSocket;
class QTimer;

namespace tk::server {

// Sends one file to a client's receiver, which listens on two ports: the server connects to
// the command port and waits for "CNT", connects to the data port, offers the file with
// "FIS<size>|0@<name>", and on "ACP" sends the bytes; "RFC" ends it. "RFS", a closed socket or
// a silence longer than the time-out ends it as failed.
class OutgoingTransfer : public QObject {
    Q_OBJECT
public:
    OutgoingTransfer(const QHostAddress& host, quint16 infoPort, quint16 dataPort,
                     const QString& fileName, const QByteArray& content, int timeoutMs,
                     QObject* parent = nullptr);
    void start();
    QString fileName() const { return m_fileName; }

Q_SIGNALS:
    void finished(bool ok, const QString& reason);

private:
    enum class Step { Connecting, AwaitingCnt, ConnectingData, AwaitingAnswer, Sending, Done };
    void onInfoRead();
    void fail(const QString& reason);
    void succeed();
    void touch();

    QHostAddress m_host;
    quint16 m_infoPort;
    quint16 m_dataPort;
    QString m_fileName;
    QByteArray m_content;
    QTcpSocket* m_info;
    QTcpSocket* m_data;
    QTimer* m_timeout;
    Step m_step = Step::Connecting;
};

} // namespace tk::server
