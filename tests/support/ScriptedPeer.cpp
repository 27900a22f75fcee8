#include "ScriptedPeer.h"

#include <QTimer>

namespace tk::test {

namespace {
QByteArray bytes(const QString& tekst) {
    return tekst.toLatin1();
}
} // namespace

ScriptedPeer::ScriptedPeer() {
    m_server.listen(QHostAddress::LocalHost, 0);
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* s = m_server.nextPendingConnection()) {
            if (m_client) {
                s->abort(); // one client at a time
                s->deleteLater();
                continue;
            }
            m_client = s;
            s->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            connect(s, &QTcpSocket::readyRead, this, [this] { bijBericht(); });
            connect(s, &QTcpSocket::disconnected, this, [this, s] {
                if (m_client == s)
                    m_client = nullptr;
                s->deleteLater();
            });
            QTimer::singleShot(0, this, [this] { speelOngevraagd(); });
        }
    });
}

ScriptedPeer::~ScriptedPeer() {
    // The client socket is a child of the server: stop listening to it before both go.
    for (QTcpSocket* s : m_server.findChildren<QTcpSocket*>())
        s->disconnect(this);
    m_server.close();
}

ScriptedPeer& ScriptedPeer::op(const QString& verwacht, const QString& antwoord,
                               Levering levering) {
    m_stappen.append(Stap{verwacht, antwoord, levering});
    return *this;
}

ScriptedPeer& ScriptedPeer::zelf(const QString& bericht, Levering levering) {
    m_stappen.append(Stap{QString(), bericht, levering});
    return *this;
}

void ScriptedPeer::stuur(const QString& bericht) {
    if (m_client) {
        m_client->write(bytes(bericht));
        m_client->flush();
    }
}

void ScriptedPeer::sluit() {
    if (m_client)
        m_client->disconnectFromHost();
}

void ScriptedPeer::bijBericht() {
    if (!m_client)
        return;
    const QString bericht = QString::fromLatin1(m_client->readAll());
    ontvangen.append(bericht);
    if (bericht == u"PING")
        return; // keep-alive answers are recorded, never scripted
    if (klaar() || m_stappen[m_volgende].verwacht.isEmpty()) {
        fouten.append(QStringLiteral("unexpected: ") + bericht);
        return;
    }
    const Stap& stap = m_stappen[m_volgende];
    const bool prefix = stap.verwacht.endsWith(QLatin1Char('*'));
    const bool past =
        prefix ? bericht.startsWith(stap.verwacht.chopped(1)) : bericht == stap.verwacht;
    if (!past) {
        fouten.append(QStringLiteral("unexpected: ") + bericht + QStringLiteral(", expected: ") +
                      stap.verwacht);
        return;
    }
    ++m_volgende;
    QString erbij;
    if (stap.levering == Levering::Samengevoegd && !klaar() &&
        m_stappen[m_volgende].verwacht.isEmpty())
        erbij = m_stappen[m_volgende++].antwoord;
    lever(stap, erbij);
    QTimer::singleShot(30, this, [this] { speelOngevraagd(); });
}

void ScriptedPeer::speelOngevraagd() {
    if (klaar() || !m_stappen[m_volgende].verwacht.isEmpty() || !m_client)
        return;
    const Stap stap = m_stappen[m_volgende++];
    lever(stap, QString());
    QTimer::singleShot(30, this, [this] { speelOngevraagd(); });
}

void ScriptedPeer::lever(const Stap& stap, const QString& erbij) {
    if (!m_client)
        return;
    switch (stap.levering) {
    case Levering::Heel:
    case Levering::Samengevoegd:
        stuur(stap.antwoord + erbij);
        break;
    case Levering::Gesplitst: {
        const int helft = int(stap.antwoord.size()) / 2;
        stuur(stap.antwoord.left(helft));
        const QString rest = stap.antwoord.mid(helft);
        QTimer::singleShot(50, this, [this, rest] { stuur(rest); });
        break;
    }
    case Levering::Stil:
        break;
    case Levering::Sluiten:
        sluit();
        break;
    }
}

} // namespace tk::test
