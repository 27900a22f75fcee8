#pragma once

#include "core/Form.h"
#include "screens/start/FrmActiveren2.h"

#include <QString>
#include <QTimer>
#include <functional>

namespace tk {

class FrmInitialiseren;
class ModMainSessie;
class Programma;

// The take-over wizard: three rows that each read Yes or No (administrator rights, the display
// resolution, the firewall), the buttons to activate, to close, to test the firewall again and to
// choose the server again. Activating runs the rows' tests in order; the first that fails says
// why and leaves the buttons live; when all pass frmActiveren2 carries the take-over out.
class FrmActiveren : public Form {
public:
    enum class Keuze { Geen, Ja, Nee };
    struct Rij {
        QString lblTekst;  // the question of the row
        QString lblUitleg; // what it means
        Keuze opt = Keuze::Geen;
    };

    FrmActiveren(Programma& p, ModMainSessie& sessie);
    QString formNaam() const override { return QStringLiteral("frmActiveren"); }
    void LaadTaal() override;

    // The wizard: whether the workstation may go on. `voortgang` is the progress window of the
    // start-up, whose rows of the firewall, the internet connection and the update it fills.
    bool Openen(bool rechten, bool resolutie, bool shellIngesteld,
                FrmInitialiseren* voortgang = nullptr);

    // The firewall timer's tick: the buttons to test again become live and the timer stops.
    void tmrFirewall_Timer();
    void cmdActiveren_Click();
    void cmdSluiten_Click();
    // Test the firewall again, at the location known.
    void cmdFirewall_Click();
    // Choose the server's location again, then test.
    void cmdServerlocatie_Click();

    QString Caption, lblJa, lblNee;
    Rij optRegister, optResolutie, optFirewall;
    QString cmdActiverenCaption, cmdSluitenCaption, cmdFirewallCaption, cmdServerlocatieCaption;
    bool cmdActiverenEnabled = true;
    bool cmdSluitenEnabled = true;
    bool cmdFirewallEnabled = false;
    bool cmdServerlocatieEnabled = false;
    QTimer tmrFirewall;

    // The window's answer is known and it closes.
    bool Klaar = false;
    bool Antwoord = false;

    FrmActiveren2 frmActiveren2;
    // Set by a view: the window's state changed.
    std::function<void()> onChanged;

private:
    void firewallTest(bool kiesLocatie);
    // Shows one refusal and makes the buttons live again.
    void weiger(int tekst);
    void gewijzigd();

    Programma& p;
};

} // namespace tk
