#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QString>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>
#include <functional>
#include <ostream>

// Messages print as text in test failures.
#include "tests/support/QtPrinters.h"

namespace tk::server::test {

// Pumps the event loop until `done` or `ms` milliseconds; true when `done` came.
bool waitFor(const std::function<bool()>& done, int ms = 5000);

// A client on the command channel that reads the way the real client does: one read is one
// message. Every read is kept apart, so that a test sees whether two messages shared one.
class WireClient {
public:
    explicit WireClient(quint16 port);
    bool connected() const { return m_socket.state() == QAbstractSocket::ConnectedState; }
    void send(const QString& message);
    void sendBytes(const QByteArray& bytes);
    // The next read (waits for it); empty when none came in time.
    QString next(int ms = 5000);
    // Sends and returns the one read that answers.
    QString ask(const QString& message);
    // Reads that came so far and were not taken.
    QStringList reads() const { return m_reads; }
    bool closedByServer() const { return m_socket.state() == QAbstractSocket::UnconnectedState; }
    QTcpSocket& socket() { return m_socket; }
    // Answers every "PIN" with "PING", as the client does, and keeps it out of the reads.
    void setAnswerPings(bool answer) { m_answerPings = answer; }
    // A slow reader: reads arrive in the socket's buffer and are taken only by take(), which
    // gets all that is there, as one read of the client would.
    void setSlow(bool slow) { m_slow = slow; }
    QString take();
    int pings() const { return m_pings; }

private:
    QTcpSocket m_socket;
    QStringList m_reads;
    bool m_answerPings = false;
    bool m_slow = false;
    int m_pings = 0;
};

// The client's receiving side of a file transfer: listens on two ports, answers "CNT", accepts
// the offer and answers "RFC" after the last byte.
class FileReceiver {
public:
    FileReceiver();
    quint16 dataPort() const { return m_data.serverPort(); }
    quint16 infoPort() const { return m_info.serverPort(); }
    bool complete() const { return m_size >= 0 && m_content.size() >= m_size; }
    QString name() const { return m_name; }
    QByteArray content() const { return m_content; }
    void reset();

private:
    QTcpServer m_info;
    QTcpServer m_data;
    QTcpSocket* m_infoSocket = nullptr;
    QTcpSocket* m_dataSocket = nullptr;
    qint64 m_size = -1;
    QString m_name;
    QByteArray m_content;
};

// The client's sending side: connects to the server's upload ports and offers one file; can
// stop half way.
class FileSender {
public:
    FileSender(quint16 infoPort, quint16 dataPort);
    // Offers the file; sends `sendBytes` of it (all when -1) once accepted.
    void offer(const QString& name, const QByteArray& content, qint64 sendBytes = -1);
    void abort();
    QStringList answers() const { return m_answers; }
    bool finished() const { return m_answers.contains(QStringLiteral("RFC")); }
    bool refused() const { return m_answers.contains(QStringLiteral("RFS")); }

private:
    QTcpSocket m_info;
    QTcpSocket m_data;
    quint16 m_dataPort;
    QStringList m_answers;
    QByteArray m_content;
    qint64 m_sendBytes = -1;
};

} // namespace tk::server::test
