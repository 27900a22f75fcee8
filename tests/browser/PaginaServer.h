#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QTcpServer>

namespace tk {

// A small HTTP server on loopback (a free port) serving fixed pages by path. It remembers the
// Cookie header of the last request of each path; a page may set a cookie and carry headers of
// its own (a file to save, for example).
class PaginaServer : public QTcpServer {
public:
    PaginaServer();
    // Without `metLengte` the body ends where the connection closes, as an answer of unknown
    // length does.
    void pagina(const QByteArray& pad, const QByteArray& html, const QByteArray& koekje = {},
                const QByteArray& koppen = {}, bool metLengte = true);
    // A path whose requests get no answer: a page part that never comes.
    void stil(const QByteArray& pad) { m_stil.insert(pad); }
    QString adres(const QByteArray& pad) const;
    QByteArray koekjeVan(const QByteArray& pad) const { return m_koekjes.value(pad); }
    int verzoeken(const QByteArray& pad) const { return m_verzoeken.value(pad); }

private:
    struct Pagina {
        QByteArray html;
        QByteArray koekje;
        QByteArray koppen;
        bool metLengte = true;
    };
    void antwoord(class QTcpSocket* s);
    QHash<QByteArray, Pagina> m_paginas;
    QHash<QByteArray, QByteArray> m_koekjes;
    QHash<QByteArray, int> m_verzoeken;
    QSet<QByteArray> m_stil;
};

} // namespace tk
