#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>

namespace tk::test {

// A server on loopback that plays a script against the client: for each expected message an
// answer, delivered whole, split over two writes with a pause, merged with the next unprompted
// answer in one write, not at all, or by closing the link. Steps without an expected message
// are sent unprompted, a moment after the step before them. Every message the client sends
// is recorded; one that the script does not expect is reported in `fouten`.
class ScriptedPeer : public QObject {
    Q_OBJECT
public:
    enum class Levering { Heel, Gesplitst, Samengevoegd, Stil, Sluiten };
    struct Stap {
        QString verwacht; // empty: sent unprompted; ending in '*': a prefix
        QString antwoord;
        Levering levering = Levering::Heel;
    };

    ScriptedPeer();
    ~ScriptedPeer() override;
    quint16 poort() const { return m_server.serverPort(); }
    ScriptedPeer& op(const QString& verwacht, const QString& antwoord,
                     Levering levering = Levering::Heel);
    ScriptedPeer& zelf(const QString& bericht, Levering levering = Levering::Heel);
    // Sends now, outside the script.
    void stuur(const QString& bericht);
    void sluit();
    bool klaar() const { return m_volgende >= m_stappen.size(); }
    bool verbonden() const {
        return m_client && m_client->state() == QAbstractSocket::ConnectedState;
    }

    QStringList ontvangen;
    QStringList fouten;

private:
    void bijBericht();
    void speelOngevraagd();
    void lever(const Stap& stap, const QString& erbij);

    QTcpServer m_server;
    QPointer<QTcpSocket> m_client;
    QList<Stap> m_stappen;
    int m_volgende = 0;
};

} // namespace tk::test
