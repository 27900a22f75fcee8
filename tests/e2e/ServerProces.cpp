#include "ServerProces.h"

#include <QElapsedTimer>
#include <QRegularExpression>

namespace tk::test {

ServerProces::ServerProces(const QStringList& extra, quint16 poort) {
    m_proces.setProcessChannelMode(QProcess::MergedChannels);
    QObject::connect(&m_proces, &QProcess::readyRead,
                     [this] { m_uitvoer += QString::fromUtf8(m_proces.readAll()); });
    // Port 0: the server takes free ports of the system and names them in its log. The client's
    // transfer ports are told to the server before the client listens on them.
    if (m_clientPoorten.ports().isEmpty())
        return;
    const QStringList argumenten{"--data",
                                 m_data.path(),
                                 "--port",
                                 QString::number(poort),
                                 "--client-data-port",
                                 QString::number(m_clientPoorten.ports()[0]),
                                 "--client-info-port",
                                 QString::number(m_clientPoorten.ports()[1]),
                                 "--demo"};
    m_proces.start(TK_SERVER_PAD, argumenten + extra);
    if (!m_proces.waitForStarted(5000) || !wachtOpUitvoer("), data in ", 60000))
        return;
    const QRegularExpressionMatch gevonden =
        QRegularExpression("listening on port (\\d+) \\(transfers: client (\\d+) and (\\d+), "
                           "uploads (\\d+) and (\\d+)\\)")
            .match(m_uitvoer);
    m_poort = quint16(gevonden.captured(1).toUInt());
    for (int i = 2; i <= 5; ++i)
        m_overdrachtPoorten << quint16(gevonden.captured(i).toUInt());
    m_gestart = m_poort != 0;
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
