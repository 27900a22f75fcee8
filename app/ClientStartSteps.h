#pragma once

#include "core/UnbuiltStartSteps.h"

#include <memory>

namespace tk {

class FrmMainView;
class Programma;

// The start-up steps this client has built: the launcher, the local server, the theme, the theme
// and icon stores, the connection, the load, and the start screen with its taskbar on the screen.
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

    // Shows the start screen's window over the whole screen.
    void toonHoofdvenster();
    // Hides it while a desktop stands.
    void verbergHoofdvenster();

private:
    std::unique_ptr<FrmMainView> m_view;
};

} // namespace tk
