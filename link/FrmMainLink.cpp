#include "FrmMainLink.h"

#include "core/Ansi.h"
#include "core/Fout.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/StartScreenEvents.h"
#include "core/Wire.h"
#include "link/ModMainVerbinding.h"
#include "link/Woordenlijst.h"
#include "platform/Clock.h"

#include <QTimer>

namespace tk {

FrmMainLink::FrmMainLink(Programma& p) : Berichten(&WS), Sender(p), Receiver(p), p(p) {
    WS.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    Sender.onConnected = [this] { SenderVerbonden = true; };
    Sender.onCommandAccepted = [this] { Sender.SendFile(); };
    Sender.onSendProgress = [this](qint64 totaal, qint64 verzonden) {
        if (this->p.startScreenEvents)
            this->p.startScreenEvents->verzendVoortgang(totaal, verzonden);
    };
    Sender.onSendComplete = [this] {
        VerzendenKlaar = true;
        Sender.ResetFile();
        Sender.Reset();
    };
    // A refused upload ends its wait instead of leaving it hanging.
    Sender.onCommandRefused = [this] { m_verzendenGeweigerd = true; };
    Receiver.onSendRequest = [this] { ReceiverVraag = true; };
    Receiver.onReceiveProgress = [this](qint64 ontvangen, qint64 totaal) {
        if (LaadbalkBijOntvangst && this->p.startScreenEvents)
            this->p.startScreenEvents->ontvangstVoortgang(ontvangen, totaal);
    };
    Receiver.onReceiveComplete = [this] { ReceiverKlaar = true; };
    // A long message that the network delivers in pieces is read whole.
    Berichten.onMessage = [this](const QByteArray& bericht) { WS_DataArrival(bericht); };
    Berichten.onOverLimit = [this](qint64 grootte) {
        Procedure(this->p, "frmMain.WS_DataArrival", [&] {
            throw Fout(
                QStringLiteral("A message of %1 bytes is too long; it is dropped").arg(grootte));
        });
    };
    connect(&WS, &QTcpSocket::disconnected, this, [this] { WS_Close(); });
    p.kanaal = this;
}

FrmMainLink::~FrmMainLink() {
    if (p.kanaal == this)
        p.kanaal = nullptr;
    WS.disconnect(this);
    WS.abort();
}

bool FrmMainLink::isConnected() {
    return WS.state() == QAbstractSocket::ConnectedState;
}

void FrmMainLink::sluitZelf() {
    // Our own close is not a loss: only the peer's close raises the close event.
    m_zelfGesloten = true;
    WS.abort();
    Berichten.clear();
    m_zelfGesloten = false;
}

void FrmMainLink::WS_Versturen(const QString& bericht, bool wachten) {
    Procedure(p, "frmMain.WS_Versturen", [&] {
        if (isConnected()) {
            if (wachten)
                BevestigdBericht = false;
            WS.write(Ansi::naarBytes(bericht));
            WS.flush();
            if (wachten)
                p.wacht.Tot([this] { return BevestigdBericht; });
        } else if (!Offline) {
            VerbindingVerbroken();
        }
    });
}

void FrmMainLink::WS_DataArrival(const QByteArray& bytes) {
    // A window shown from inside this handler (a fault report) runs its own event loop; what
    // came in meanwhile is handed on as soon as this handler is done.
    Procedure(p, "frmMain.WS_DataArrival", [&] {
        const QString bericht = Ansi::naarTekst(bytes);
        const Woordenlijst::Sortering s = Woordenlijst::sorteer(bericht);
        ModMain& m = p.modMain;
        switch (s.actie) {
        case Woordenlijst::Actie::Vallen:
            return;
        case Woordenlijst::Actie::Ping:
            WS_Versturen(QString(wire::PING), false);
            return;
        case Woordenlijst::Actie::Fir:
            if (m.ModusStandalone)
                FirewallAntwoord = s.payload;
            else if (m.ModusNetwerk)
                Domein = s.payload;
            m.AntwoordOntvangen = true;
            return;
        case Woordenlijst::Actie::Infdmn: {
            BevestigdBericht = true;
            const QStringList velden = s.payload.split(wire::valueSep);
            if (velden.size() < 7)
                throw Fout(QStringLiteral("Subscript out of range (INFDMN has %1 of 7 fields)")
                               .arg(velden.size()));
            // A port the socket cannot take is refused whole, before any of them is kept.
            long poorten[4];
            for (int i = 0; i < 4; ++i) {
                poorten[i] = velden[i + 1].toLong();
                if (poorten[i] < 0 || poorten[i] > 65535)
                    throw Fout(QStringLiteral("Invalid property value (INFDMN port \"%1\")")
                                   .arg(velden[i + 1].left(20)));
            }
            Domein = velden[0];
            ReceiverPortBinary = poorten[0];
            ReceiverPortInfo = poorten[1];
            SenderPortBinary = poorten[2];
            SenderPortInfo = poorten[3];
            ServerVlagA = Ansi::hoofdletters(velden[5]) == u"JA";
            ServerVlagB = Ansi::hoofdletters(velden[6]) == u"JA";
            Receiver.setLocalPortBinary(ReceiverPortBinary);
            Receiver.setLocalPortInfo(ReceiverPortInfo);
            Sender.setRemotePortBinary(SenderPortBinary);
            Sender.setRemotePortInfo(SenderPortInfo);
            return;
        }
        case Woordenlijst::Actie::Infona:
            // A question in a window is a wait: it runs after this handler has returned.
            QTimer::singleShot(0, this, [this] {
                if (p.startScreenEvents)
                    p.startScreenEvents->onderhoudGevraagd();
            });
            return;
        case Woordenlijst::Actie::Infonc:
            QTimer::singleShot(0, this, [this] {
                if (p.startScreenEvents)
                    p.startScreenEvents->onderhoudVraagIngetrokken();
            });
            return;
        case Woordenlijst::Actie::Geen:
            break;
        }
        switch (s.klasse) {
        case Woordenlijst::Klasse::A:
            if (s.metPayload)
                m.Antwoord = s.payload;
            m.AntwoordOntvangen = true;
            break;
        case Woordenlijst::Klasse::B:
            if (s.metPayload)
                m.AntwoordOpslaan = s.payload;
            m.AntwoordOpslaanOntvangen = true;
            break;
        case Woordenlijst::Klasse::C:
            BevestigdBericht = true;
            break;
        case Woordenlijst::Klasse::D:
            break;
        }
    });
}

void FrmMainLink::WS_Close() {
    if (m_zelfGesloten)
        return;
    p.wacht.VerbindingVerloren();
    VerbindingVerbroken();
}

void FrmMainLink::VerbindingVerbroken() {
    Procedure(p, "frmMain.VerbindingVerbroken", [&] {
        if (VerliesVerwacht || VerbindingTesten)
            return;
        sluitZelf();
        ModMain& m = p.modMain;
        // In the module the client restarts: its location is the module's in any language.
        const bool inModule = m.Locatie.toLower() == u"onderhoudsmodule" ||
                              (p.modMainVerbinding && p.modMainVerbinding->InOnderhoudsmodule());
        if (m.ModusStandalone || inModule) {
            m.ToonVraag(p.modTaal.LaadTekst(3), p.modTaal.LaadTekst(1619), QStringLiteral("-"));
            if (p.modMainVerbinding)
                p.modMainVerbinding->StuurOpstartCommando(QStringLiteral("resolutie"));
            p.Einde();
            return;
        }
        if (m.ModusBeheer) {
            if (p.startScreenEvents)
                p.startScreenEvents->hoofdvensterTonen();
            return;
        }
        if (m.ModusNetwerk)
            Offline = true;
    });
}

void FrmMainLink::ServerVerbinden2(int seconden, int poging) {
    Q_UNUSED(poging);
    Procedure(p, "frmMain.ServerVerbinden2", [&] {
        const qint64 deadline = (p.platform.clock().msecsSinceStart() / 1000 + seconden) * 1000;
        sluitZelf();
        WS.connectToHost(ServerHost, quint16(ServerPoort));
        picLadenZichtbaar = true;
        tmrLadenAan = true;
        p.wacht.Tot([this] { return isConnected() || ShiftIngedrukt; }, deadline, false);
        GeenCache = ShiftIngedrukt;
        tmrLadenAan = false;
        picLadenZichtbaar = false;
    });
}

bool FrmMainLink::TestVerbinding() {
    return Procedure(p, "frmMain.TestVerbinding", false, [&] {
        const qint64 deadline = p.platform.clock().msecsSinceStart() + 5000;
        picLadenZichtbaar = true;
        tmrLadenAan = true;
        BevestigdBericht = false;
        WS_Versturen(QString(wire::TST), false);
        p.wacht.Tot([this] { return BevestigdBericht; }, deadline);
        picLadenZichtbaar = false;
        tmrLadenAan = false;
        if (!BevestigdBericht) {
            sluitZelf();
            return false;
        }
        return true;
    });
}

bool FrmMainLink::ServerVerbinden(bool verbinden) {
    return Procedure(p, "frmMain.ServerVerbinden", false, [&] {
        ModMain& m = p.modMain;
        if (p.startScreenEvents)
            p.startScreenEvents->hoofdvensterTonen();
        int poging = 0;
        while (true) {
            ++poging;
            lblLaden = Ansi::hoofdletters(p.modTaal.LaadTekst(1610));
            lblLadenZichtbaar = true;
            if (verbinden)
                ServerVerbinden2(m.ModusStandalone ? 10 : 5, poging);
            if (isConnected())
                TestVerbinding();
            if (isConnected())
                return true;
            if (!m.ModusStandalone)
                break;
            const int status = p.modMainVerbinding ? p.modMainVerbinding->LeesServerstatus() : -1;
            const int tekst = status == 0 ? 2930 : status == 1 ? 2931 : 2932;
            lblLaden = Ansi::hoofdletters(p.modTaal.LaadTekst(tekst));
            if (status != 0 || poging == 3) {
                if (p.startScreenEvents) {
                    p.startScreenEvents->taakbalkHertekenen();
                    if (status == -1)
                        p.startScreenEvents->taakbalkHertekenen();
                }
                return false;
            }
        }
        if (p.modMain.BestandBestaat(QStringLiteral("\\Data\\data.tijdelijk")) && !GeenCache) {
            Offline = true;
            return true;
        }
        GeenCache = false;
        lblLaden = Ansi::hoofdletters(p.modTaal.LaadTekst(1611));
        if (p.startScreenEvents)
            p.startScreenEvents->taakbalkHertekenen();
        return false;
    });
}

bool FrmMainLink::OntvangBestand(const QString& verzoek, const QString& doel, bool wachten) {
    return Procedure(p, "frmMain.OntvangBestand", false, [&] {
        Receiver.Reset();
        Receiver.setLocalPortBinary(ReceiverPortBinary);
        Receiver.setLocalPortInfo(ReceiverPortInfo);
        if (!Receiver.Listen())
            return false;
        ReceiverVraag = false;
        // A link lost while the request went out (its acknowledgement's wait ends so) leaves
        // no offer to wait for.
        const quint64 verliezen = p.wacht.verliezen();
        WS_Versturen(verzoek, wachten);
        if (p.wacht.Tot([this] { return ReceiverVraag; }, std::nullopt, true, verliezen) !=
            Wacht::Uitkomst::Voldaan)
            return false;
        ReceiverKlaar = false;
        const int slash = doel.lastIndexOf(QLatin1Char('\\'));
        if (slash > 0)
            p.modMain.MaakMappen(doel.left(slash));
        Receiver.AcceptSendRequest(doel);
        return p.wacht.Tot([this] { return ReceiverKlaar; }, std::nullopt, true, verliezen) ==
               Wacht::Uitkomst::Voldaan;
    });
}

bool FrmMainLink::VerstuurBestand(const QString& bron) {
    return Procedure(p, "frmMain.VerstuurBestand", false, [&] {
        VerzendenKlaar = false;
        SenderVerbonden = false;
        m_verzendenGeweigerd = false;
        Sender.Reset();
        Sender.setRemoteHost(ServerHost);
        Sender.setRemotePortBinary(SenderPortBinary);
        Sender.setRemotePortInfo(SenderPortInfo);
        if (!Sender.setSource(bron))
            return false;
        Sender.Connect();
        if (p.wacht.Tot([this] { return SenderVerbonden; }) != Wacht::Uitkomst::Voldaan)
            return false;
        Sender.SendInfo();
        p.wacht.Tot([this] { return VerzendenKlaar || m_verzendenGeweigerd; });
        return VerzendenKlaar;
    });
}

void FrmMainLink::Form_Unload() {
    if (isConnected())
        sluitZelf();
}

} // namespace tk
