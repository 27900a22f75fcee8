#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

namespace tk {

// The steps of the start-up that belong to the layers above the core: the take-over of the
// shell, the display, the theme, the taskbar and the connection. Main calls them in its order;
// each layer fills in its own. What no layer has filled in yet does nothing and answers as a
// workstation that needs nothing would.
class OpstartStappen {
public:
    virtual ~OpstartStappen() = default;

    // Safe mode of the system (GetSystemMetrics 67); Linux has none.
    virtual bool VeiligeModus() { return false; }
    // A normal desktop of the system is present (its shell windows exist).
    virtual bool BureaubladAanwezig() { return false; }
    // Starts the system's own desktop shell with a normal window.
    virtual void StartVerkenner() {}
    virtual void ComputerHerstarten() {}

    // The launcher's words ("afsluiten", "resolutie"); false when no launcher listens.
    virtual bool StuurOpstartCommando(const QString& woord) {
        (void)woord;
        return false;
    }
    virtual void StartServer(bool firewall) { (void)firewall; }
    // Fetches a missing helper file from the configured web address.
    virtual void HaalHulpbestand(const QString& naam) { (void)naam; }

    virtual void ControleerUpdate(bool forceer) { (void)forceer; }
    virtual void LaadThema() {}

    // The take-over (session layer).
    virtual bool frmActiveren() { return true; }
    virtual void WijzigOpstarten() {}
    virtual void BewaarOpstartinstellingen() {}
    virtual void TafelkraterAccountVerwijderen() {}
    virtual void TafelkraterDeactiverenSetup() {}
    virtual void Afmelden() {}
    virtual void ZetBureaubladachtergrond(bool, bool) {}
    virtual void ZetBrowserbeperkingen(bool) {}
    virtual void SchermbeveiligingUit() {}

    // The display.
    virtual QSize Schermgrootte() { return QSize(1024, 768); }
    virtual int Kleurdiepte() { return 32; }
    virtual bool ControleerResolutieOndersteuning(int breedte, int hoogte, int diepte) {
        (void)breedte, (void)hoogte, (void)diepte;
        return true;
    }
    virtual bool ZetResolutie(bool vlag) {
        (void)vlag;
        return false;
    }

    // Steps 24 to 26: the start-screen taskbar and the connection.
    virtual void OpenTaakbalk1() {}
    virtual void StartVerbinding(bool opnieuw) { (void)opnieuw; }

    // The steps of the connection (modMain.StartVerbinding) that belong to higher layers.
    virtual void ControleerChangelog() {}
    virtual void Laden() {}
    virtual void ControleerLerarenRechten() {}
    // The account list: items "KLAS|<account>|<id>" and "LERAAR|<account>|<id>".
    virtual QStringList Accounts() { return {}; }
    virtual void VerbergLaadlabel() {}
    virtual void ZetSessiebeperkingen(bool, bool) {}
    virtual void ZetAutomatischeAanmelding(const QString& account, const QString& wachtwoord,
                                           const QString& domein, bool afmelden) {
        (void)account, (void)wachtwoord, (void)domein, (void)afmelden;
    }
    virtual void OpenGlobal(bool) {}
    virtual void OpenGroep(const QString& id) { (void)id; }
    virtual void OpenLeraar(const QString& id) { (void)id; }
    virtual void OpenOnderhoud() {}
    virtual void OpenFout(const QString& tekst) { (void)tekst; }
};

} // namespace tk
