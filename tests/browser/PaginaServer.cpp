#include "PaginaServer.h"

#include <QTcpSocket>

namespace tk {

PaginaServer::PaginaServer() {
    listen(QHostAddress::LocalHost, 0);
    connect(this, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* s = nextPendingConnection()) {
            connect(s, &QTcpSocket::readyRead, s, [this, s] { antwoord(s); });
            connect(s, &QTcpSocket::disconnected, s, &QObject::deleteLater);
        }
    });
}

void PaginaServer::pagina(const QByteArray& pad, const QByteArray& html, const QByteArray& koekje,
                          const QByteArray& koppen, bool metLengte) {
    m_paginas.insert(pad, {html, koekje, koppen, metLengte});
}

QString PaginaServer::adres(const QByteArray& pad) const {
    return QStringLiteral("http://127.0.0.1:%1").arg(serverPort()) + QString::fromLatin1(pad);
}

void PaginaServer::antwoord(QTcpSocket* s) {
    QByteArray verzoek = s->property("verzoek").toByteArray() + s->readAll();
    s->setProperty("verzoek", verzoek);
    if (!verzoek.contains("\r\n\r\n"))
        return;
    const QList<QByteArray> regels = verzoek.split('\n');
    const QByteArray pad = regels.value(0).split(' ').value(1);
    QByteArray koekje;
    for (const QByteArray& r : regels)
        if (r.toLower().startsWith("cookie:"))
            koekje = r.mid(7).trimmed();
    m_koekjes.insert(pad, koekje);
    ++m_verzoeken[pad];
    if (m_stil.contains(pad))
        return;
    const auto p = m_paginas.constFind(pad);
    QByteArray uit;
    if (p == m_paginas.cend()) {
        uit = "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
    } else {
        uit = "HTTP/1.1 200 OK\r\nConnection: close\r\n" +
              (p->koppen.isEmpty() ? QByteArray("Content-Type: text/html; charset=utf-8\r\n")
                                   : p->koppen);
        if (!p->koekje.isEmpty())
            uit += "Set-Cookie: " + p->koekje + "; Path=/\r\n";
        if (p->metLengte)
            uit += "Content-Length: " + QByteArray::number(p->html.size()) + "\r\n";
        uit += "\r\n" + p->html;
    }
    s->write(uit);
    s->disconnectFromHost();
}

} // namespace tk
