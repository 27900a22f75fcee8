#include "ServerProces.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

namespace tk::test {

namespace {
// A port whose four successors (the transfer ports) are free as well.
quint16 vrijePoort() {
    for (int poging = 0; poging < 20; ++poging) {
        QTcpServer eerste;
        if (!eerste.listen(QHostAddress::LocalHost, 0))
            continue;
        const quint16 basis = eerste.serverPort();
        if (basis > 65000)
            continue;
        bool vrij = true;
        for (int i = 1; i <= 4 && vrij; ++i) {
            QTcpServer volgende;
            vrij = volgende.listen(QHostAddress::Any, quint16(basis + i));
        }
        if (vrij)
            return basis;
    }
    return 0;
}
} // namespace

ServerProces::ServerProces(const QStringList& extra, quint16 poort) {
    m_poort = poort ? poort : vrijePoort();
    m_proces.setProcessChannelMode(QProcess::MergedChannels);
    QObject::connect(&m_proces, &QProcess::readyRead,
                     [this] { m_uitvoer += QString::fromUtf8(m_proces.readAll()); });
    const QStringList argumenten =
        QStringList{QStringLiteral("--data"), m_data.path(), QStringLiteral("--port"),
                    QString::number(m_poort), QStringLiteral("--demo")} +
        extra;
    m_proces.start(QStringLiteral(TK_SERVER_PAD), argumenten);
    if (!m_proces.waitForStarted(5000))
        return;
    // Ready when the command port accepts.
    QElapsedTimer klok;
    klok.start();
    while (klok.elapsed() < 10000 && m_proces.state() == QProcess::Running) {
        QTcpSocket proef;
        proef.connectToHost(QHostAddress::LocalHost, m_poort);
        if (proef.waitForConnected(200)) {
            proef.abort();
            m_gestart = true;
            return;
        }
        QThread::msleep(20);
    }
}

bool ServerProces::wachtOpUitvoer(const QString& tekst, int ms) {
    QElapsedTimer klok;
    klok.start();
    while (!m_uitvoer.contains(tekst) && klok.elapsed() < ms &&
           m_proces.state() == QProcess::Running) {
        m_proces.waitForReadyRead(50); // the output comes in through readyRead
    }
    return m_uitvoer.contains(tekst);
}

ServerProces::~ServerProces() {
    if (m_proces.state() == QProcess::Running) {
        m_proces.terminate();
        if (!m_proces.waitForFinished(5000))
            m_proces.kill();
    }
}

} // namespace tk::test
