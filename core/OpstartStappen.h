#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

namespace tk {

class FrmInitialiseren;

// The steps of the start-up (and of the close options) that belong to the layers above the core:
// the take-over of the shell, the display, the theme, the taskbar, the connection and the
// session. Main calls them in its order. Every step is pure: the client's composition root
// implements the built ones, and UnbuiltStartSteps lists every step that no layer fills yet, with
// the log line it writes, so that nothing is left out in silence.
class OpstartStappen {
public:
    virtual ~OpstartStappen() = default;

    // Safe mode of the system; Linux has none.
    virtual bool VeiligeModus() = 0;
    // A normal desktop of the system is present (its shell windows exist).
    virtual bool BureaubladAanwezig() = 0;
    // Starts the system's own desktop shell with a normal window.
    virtual void StartVerkenner() = 0;
    virtual void ComputerHerstarten() = 0;

    // The launcher's words ("afsluiten", "resolutie"); false when no launcher listens.
    virtual bool StuurOpstartCommando(const QString& woord) = 0;
    virtual void StartServer(bool firewall) = 0;
    // Fetches a missing helper file from the configured web address.
    virtual void HaalHulpbestand(const QString& naam) = 0;

    virtual void ControleerUpdate(bool forceer) = 0;
    virtual void LaadThema() = 0;

    // The take-over and hand-back of the machine (session layer).
    // The take-over wizard with the start-up's checks; `voortgang` is its progress window.
    virtual bool frmActiveren(bool rechten, bool resolutie, bool shellIngesteld,
                              FrmInitialiseren* voortgang) = 0;
    virtual void WijzigOpstarten() = 0;
    virtual void BewaarOpstartinstellingen() = 0;
    virtual void TafelkraterAccountVerwijderen() = 0;
    virtual void TafelkraterDeactiverenSetup() = 0;
    virtual void TafelkraterDeactiveren() = 0;
    virtual void Afmelden() = 0;
    virtual void ZetBureaubladachtergrond(bool herstel, bool opslaan) = 0;
    virtual void ZetBrowserbeperkingen(bool aan) = 0;
    virtual void SchermbeveiligingUit() = 0;
    // The filter's proxy on (aan) or in its normal state.
    virtual void ZetProxy(bool aan) = 0;
    // The system's own desktop for a while: the shell setting names it while it starts, then
    // names the program again, so that the take-over holds for the next logon.
    virtual void NaarSysteembureaublad() = 0;

    // The display.
    virtual QSize Schermgrootte() = 0;
    virtual int Kleurdiepte() = 0;
    virtual bool ControleerResolutieOndersteuning(int breedte, int hoogte, int diepte) = 0;
    virtual bool ZetResolutie(bool vlag) = 0;

    // The start-screen taskbar and the connection.
    virtual void OpenTaakbalk1() = 0;
    virtual void StartVerbinding(bool opnieuw) = 0;

    // The steps of the connection (modMain.StartVerbinding) that belong to higher layers.
    virtual void ControleerChangelog() = 0;
    virtual void Laden() = 0;
    virtual void ControleerLerarenRechten() = 0;
    // The theme and icon stores brought up to date in their places of the load.
    virtual void LaadThemas(bool toonVoortgang) = 0;
    virtual void LaadPictogrammen() = 0;
    // The account list: items "KLAS|<account>|<id>" and "LERAAR|<account>|<id>".
    virtual QStringList Accounts() = 0;
    virtual void VerbergLaadlabel() = 0;
    virtual void ZetSessiebeperkingen(bool beperken, bool opslaan) = 0;
    virtual void ZetAutomatischeAanmelding(const QString& account, const QString& wachtwoord,
                                           const QString& domein, bool afmelden) = 0;
    virtual void OpenGlobal(bool eerste) = 0;
    virtual void OpenGroep(const QString& id) = 0;
    virtual void OpenLeraar(const QString& id) = 0;
    virtual void OpenOnderhoud() = 0;
    virtual void OpenFout(const QString& tekst) = 0;

    // A session action of the close options: "afmelden", "opnieuwopstarten", "uitschakelen",
    // "sluiten", "deactiveren", "aanmeldenalsaccount|<account>|<password>"; true when carried out.
    virtual bool SessieActie(const QString& actie) = 0;
};

} // namespace tk
