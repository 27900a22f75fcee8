#include "OutgoingTransfer.h"

#include "WireText.h"
#include "core/Wire.h"

#include <QTcpSocket>
#include <QTimer>

namespace tk::server {

OutgoingTransfer::OutgoingTransfer(const QHostAddress& host, quint16 infoPort, quint16 dataPort,
                                   const QString& fileName, const QByteArray& content,
                                   int timeoutMs, QObject* parent)
    : QObject(parent), m_host(host), m_infoPort(infoPort), m_dataPort(dataPort),
      m_fileName(fileName), m_content(content), m_info(new QTcpSocket(this)),
      m_data(new QTcpSocket(this)), m_timeout(new QTimer(this)) {
    m_timeout->setSingleShot(true);
    m_timeout->setInterval(timeoutMs);
    connect(m_timeout, &QTimer::timeout, this,
            [this] { fail(QStringLiteral("the receiver went silent")); });
    connect(m_info, &QTcpSocket::connected, this, [this] {
        m_info->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        touch();
        m_step = Step::AwaitingCnt;
    });
    connect(m_info, &QTcpSocket::readyRead, this, &OutgoingTransfer::onInfoRead);
    connect(m_data, &QTcpSocket::connected, this, [this] {
        touch();
        m_step = Step::AwaitingAnswer;
        m_info->write(WireText::toBytes(wire::FIS + QString::number(m_content.size()) +
                                        wire::valueSep + QLatin1Char('0') + wire::fileNameSep +
                                        m_fileName));
    });
    connect(m_data, &QTcpSocket::bytesWritten, this, [this] { touch(); });
    for (QTcpSocket* socket : {m_info, m_data}) {
        connect(socket, &QTcpSocket::errorOccurred, this, [this, socket] {
            if (m_step != Step::Done)
                fail(socket->errorString());
        });
    }
}

void OutgoingTransfer::start() {
    touch();
    m_info->connectToHost(m_host, m_infoPort);
}

void OutgoingTransfer::touch() {
    m_timeout->start();
}

void OutgoingTransfer::onInfoRead() {
    touch();
    const QString command = WireText::fromBytes(m_info->readAll()).left(3);
    if (m_step == Step::AwaitingCnt && command == wire::CNT) {
        m_step = Step::ConnectingData;
        m_data->connectToHost(m_host, m_dataPort);
    } else if (m_step == Step::AwaitingAnswer && command == wire::ACP) {
        m_step = Step::Sending;
        // Blocks of 8192 bytes, as the client's own sender uses.
        for (qsizetype at = 0; at < m_content.size(); at += 8192)
            m_data->write(m_content.constData() + at,
                          std::min<qsizetype>(8192, m_content.size() - at));
    } else if (m_step == Step::AwaitingAnswer && command == wire::RFS) {
        fail(QStringLiteral("the receiver refused the file"));
    } else if (m_step == Step::Sending && command == wire::RFC) {
        succeed();
    }
}

void OutgoingTransfer::fail(const QString& reason) {
    if (m_step == Step::Done)
        return;
    m_step = Step::Done;
    m_timeout->stop();
    m_info->abort();
    m_data->abort();
    Q_EMIT finished(false, reason);
}

void OutgoingTransfer::succeed() {
    m_step = Step::Done;
    m_timeout->stop();
    m_data->disconnectFromHost();
    m_info->disconnectFromHost();
    Q_EMIT finished(true, QString());
}

} // namespace tk::server
