#include "WireClient.h"

#include "core/Ansi.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

namespace tk::server::test {

bool waitFor(const std::function<bool()>& done, int ms) {
    QDeadlineTimer deadline(ms);
    while (!done()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    }
    return true;
}

WireClient::WireClient(quint16 port) {
    QObject::connect(&m_socket, &QTcpSocket::readyRead, [this] {
        if (m_slow)
            return;
        const QString text = tk::Ansi::naarTekst(m_socket.readAll());
        if (m_answerPings && text == "PIN") {
            ++m_pings;
            send("PING");
            return;
        }
        m_reads << text;
    });
    m_socket.connectToHost(QHostAddress::LocalHost, port);
    waitFor([this] { return connected(); });
}

QString WireClient::take() {
    m_socket.waitForReadyRead(0); // all the system holds for this socket, as one read takes it
    return tk::Ansi::naarTekst(m_socket.readAll());
}

void WireClient::send(const QString& message) {
    sendBytes(tk::Ansi::naarBytes(message));
}

void WireClient::sendBytes(const QByteArray& bytes) {
    m_socket.write(bytes);
    m_socket.flush();
}

QString WireClient::next(int ms) {
    if (!waitFor([this] { return !m_reads.isEmpty(); }, ms))
        return QString();
    return m_reads.takeFirst();
}

QString WireClient::ask(const QString& message) {
    send(message);
    return next();
}

FileReceiver::FileReceiver() {
    m_info.listen(QHostAddress::LocalHost, 0);
    m_data.listen(QHostAddress::LocalHost, 0);
    QObject::connect(&m_info, &QTcpServer::newConnection, [this] {
        m_infoSocket = m_info.nextPendingConnection();
        QObject::connect(m_infoSocket, &QTcpSocket::readyRead, [this] {
            const QString text = tk::Ansi::naarTekst(m_infoSocket->readAll());
            if (!text.startsWith("FIS"))
                return;
            m_size = text.mid(3, text.indexOf(QLatin1Char('|')) - 3).toLongLong();
            m_name = text.mid(text.indexOf(QLatin1Char('@')) + 1);
            m_infoSocket->write("ACP");
        });
        m_infoSocket->write("CNT");
    });
    QObject::connect(&m_data, &QTcpServer::newConnection, [this] {
        m_dataSocket = m_data.nextPendingConnection();
        QObject::connect(m_dataSocket, &QTcpSocket::readyRead, [this] {
            m_content += m_dataSocket->readAll();
            if (complete())
                m_infoSocket->write("RFC");
        });
    });
}

void FileReceiver::reset() {
    m_size = -1;
    m_name.clear();
    m_content.clear();
}

FileSender::FileSender(quint16 infoPort, quint16 dataPort) : m_dataPort(dataPort) {
    QObject::connect(&m_info, &QTcpSocket::readyRead, [this] {
        const QString answer = tk::Ansi::naarTekst(m_info.readAll());
        m_answers << answer;
        if (answer == "CNT")
            m_data.connectToHost(QHostAddress::LocalHost, m_dataPort);
        if (answer == "ACP") {
            m_data.write(m_sendBytes < 0 ? m_content : m_content.left(m_sendBytes));
            m_data.flush();
        }
    });
    m_info.connectToHost(QHostAddress::LocalHost, infoPort);
}

void FileSender::offer(const QString& name, const QByteArray& content, qint64 sendBytes) {
    m_content = content;
    m_sendBytes = sendBytes;
    waitFor([this] { return m_data.state() == QAbstractSocket::ConnectedState; });
    m_info.write(tk::Ansi::naarBytes(QString("FIS%1|0@%2").arg(content.size()).arg(name)));
    m_info.flush();
}

void FileSender::abort() {
    m_data.abort();
    m_info.abort();
}

} // namespace tk::server::test
