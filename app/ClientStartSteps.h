#pragma once

#include "core/UnbuiltStartSteps.h"

#include <memory>

namespace tk {

class FrmMainView;
class ModMainSessie;
class Programma;
class SystemActions;

// The start-up steps this client has built: the launcher, the local server, the theme, the theme
// and icon stores, the connection, the load, the start screen with its taskbar on the screen, and
// the take-over and hand-back of the machine with the end of the session.
// Every other step is an unbuilt one (UnbuiltStartSteps) that says so in the log book.
class ClientStartSteps : public UnbuiltStartSteps {
public:
    explicit ClientStartSteps(Programma& p);
    ~ClientStartSteps() override;

    bool StuurOpstartCommando(const QString& woord) override;
    void StartServer(bool firewall) override;
    void LaadThema() override;
    void LaadThemas(bool toonVoortgang) override;
    void LaadPictogrammen() override;
    void OpenTaakbalk1() override;
    void StartVerbinding(bool opnieuw) override;
    void Laden() override;
    QStringList Accounts() override;
    void VerbergLaadlabel() override;
    void OpenGlobal(bool eerste) override;
    void OpenGroep(const QString& id) override;
    void OpenLeraar(const QString& id) override;
    void OpenOnderhoud() override;
    void OpenFout(const QString& tekst) override;

    // The take-over and hand-back, the session's policies and its end (session layer).
    bool frmActiveren(bool rechten, bool resolutie, bool shellIngesteld,
                      FrmInitialiseren* voortgang) override;
    void WijzigOpstarten() override;
    void BewaarOpstartinstellingen() override;
    void TafelkraterAccountVerwijderen() override;
    void TafelkraterDeactiverenSetup() override;
    void TafelkraterDeactiveren() override;
    void Afmelden() override;
    void ZetBureaubladachtergrond(bool aan, bool opslaan) override;
    void ZetBrowserbeperkingen(bool aan) override;
    void ZetSessiebeperkingen(bool opheffen, bool metTaakbeheer) override;
    void ZetAutomatischeAanmelding(const QString& account, const QString& wachtwoord,
                                   const QString& domein, bool afmelden) override;
    void ControleerLerarenRechten() override;
    void StartVerkenner() override;
    void ZetProxy(bool aan) override;
    void NaarSysteembureaublad() override;
    bool SessieActie(const QString& actie) override;
    // The session module, made at its first use in the setting of \Data\Instellingen.ini.
    ModMainSessie& sessie();

    // Shows the start screen's window over the whole screen.
    void toonHoofdvenster();
    // Hides it while a desktop stands.
    void verbergHoofdvenster();

private:
    std::unique_ptr<FrmMainView> m_view;
    std::unique_ptr<SystemActions> m_systeem;
    std::unique_ptr<ModMainSessie> m_sessie;
};

} // namespace tk
