#pragma once

#include "core/CommandChannel.h"
#include "core/MessageAssembler.h"
#include "link/BinaryReceiver.h"
#include "link/BinarySender.h"

#include <QObject>
#include <QString>
#include <QTcpSocket>
#include <functional>

namespace tk {

class Programma;

// The part of the start screen frmMain that holds the link to the server: the command socket
// WS, the connection loop, the one send routine and the dispatcher of everything the server
// says. The start screen's model derives from it; the loading label and bar it sets are plain
// state that the screen's view paints.
class FrmMainLink : public QObject, public CommandChannel {
    Q_OBJECT
public:
    explicit FrmMainLink(Programma& p);
    ~FrmMainLink() override;

    // --- the channel
    bool isConnected() override;
    void WS_Versturen(const QString& bericht, bool wachten) override;
    bool ServerVerbinden(bool verbinden = true);
    void ServerVerbinden2(int seconden, int poging);
    bool TestVerbinding();
    // One message from the server, as the assembler hands it on.
    void WS_DataArrival(const QByteArray& bytes);
    void WS_Close();
    void VerbindingVerbroken();
    // Form_Unload: the link is closed at the end of the program.
    void Form_Unload();

    QTcpSocket WS;
    MessageAssembler Berichten; // the messages of WS
    QString ServerHost;
    long ServerPoort = 34487;
    bool BevestigdBericht = false;
    bool Offline = false;
    bool ShiftIngedrukt = false;
    bool GeenCache = false;
    // Either makes a loss of the link silent: an expected close (deactivation, a restored
    // backup) and the location test that closes the socket on purpose.
    bool VerliesVerwacht = false;
    bool VerbindingTesten = false;

    // --- the server's facts (INFDMN) and the firewall test's answer (FIR)
    QString Domein;
    long ReceiverPortBinary = 0; // LocalPortBinary of the receiver
    long ReceiverPortInfo = 0;   // LocalPortInfo of the receiver
    long SenderPortBinary = 0;   // RemotePortBinary of the sender
    long SenderPortInfo = 0;     // RemotePortInfo of the sender
    bool ServerVlagA = false;
    bool ServerVlagB = false;
    QString FirewallAntwoord;

    // --- file transfer: the sender and receiver of frmMain and the flags their users wait on
    BinarySender Sender;
    BinaryReceiver Receiver;
    bool SenderVerbonden = false;
    bool VerzendenKlaar = false;
    bool ReceiverVraag = false;
    bool ReceiverKlaar = false;
    // The progress bar of an upload (frmHelp, frmOnderhoud), when one is registered.
    std::function<void(qint64 totaal, qint64 verzonden)> VoortgangBalk;
    // The loading bar of a download, while LaadbalkBijOntvangst is set.
    bool LaadbalkBijOntvangst = false;
    std::function<void(qint64 ontvangen, qint64 totaal)> OntvangstVoortgang;
    // A download as its users do it: ask on the command channel, wait for the offer, accept it
    // into `doel` (a program path), wait until it is written. False when the link went away.
    bool OntvangBestand(const QString& verzoek, const QString& doel, bool wachten = false);
    // An upload: connect the sender, offer `bron` (a native path), wait until it is taken.
    bool VerstuurBestand(const QString& bron);

    // --- what the start screen shows while connecting
    QString lblLaden;
    bool lblLadenZichtbaar = false;
    bool picLadenZichtbaar = false;
    bool tmrLadenAan = false;

    // --- what the layers above attach
    std::function<void()> OpINFONA; // another user asks for the maintenance module
    std::function<void()> OpINFONC; // that question was withdrawn
    std::function<void()> TaakbalkHertekenen;
    std::function<void()> HoofdvensterTonen;

private:
    void sluitZelf();
    Programma& p;
    bool m_zelfGesloten = false;
    bool m_verzendenGeweigerd = false;
};

} // namespace tk
