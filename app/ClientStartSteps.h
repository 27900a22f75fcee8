#pragma once

#include "core/OpstartStappen.h"

#include <memory>

namespace tk {

class FrmMainView;
class FrmTaakbalk1View;
class Programma;

// The start-up steps of the client: the launcher, the local server, the theme, the connection,
// the load, and the start screen with its taskbar on the screen. The take-over of the shell is
// written to the log until the session layer exists.
class ClientStartSteps : public OpstartStappen {
public:
    explicit ClientStartSteps(Programma& p);
    ~ClientStartSteps() override;

    bool StuurOpstartCommando(const QString& woord) override;
    void StartServer(bool firewall) override;
    void LaadThema() override;
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
    void ZetAutomatischeAanmelding(const QString& account, const QString& wachtwoord,
                                   const QString& domein, bool afmelden) override;

    // Shows the start screen's window (the hook HoofdvensterTonen of frmMain).
    void toonHoofdvenster();
    // Hides it while a desktop stands.
    void verbergHoofdvenster();

private:
    void meld(const QString& wat);
    Programma& p;
    std::unique_ptr<FrmMainView> m_view;
};

} // namespace tk
