#pragma once

#include "core/CommandChannel.h"
#include "core/MessageAssembler.h"
#include "link/BinaryReceiver.h"
#include "link/BinarySender.h"
#include "link/Serverlocatie.h"

#include <QObject>
#include <QString>
#include <QTcpSocket>

namespace tk {

class Programma;

// frmMain's link to the server: the command socket WS, the connection loop, the one send routine
// and the dispatcher of everything the server says. The start screen's model holds it as a
// member; the loading label and bar it sets are plain state that the start screen's view paints,
// and what the start screen must do about the link (show its window, redraw its taskbar, follow
// a transfer) goes through StartScreenEvents.
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
    long ServerPoort = Serverlocatie::StandaardPoort;
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
    // A download's progress goes to the start screen's loading bar while this is set; an
    // upload's always goes to the start screen, which passes it to the window that shows it.
    bool LaadbalkBijOntvangst = false;
    // Which fetch the loading bar follows: a theme package or an icon package.
    bool ThemaLaden = false;
    bool PictogrammenLaden = false;
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

private:
    void sluitZelf();
    Programma& p;
    bool m_zelfGesloten = false;
    bool m_verzendenGeweigerd = false;
};

} // namespace tk
