#pragma once

#include "link/FrmNetwerk.h"
#include "link/NameLookup.h"

#include <QString>
#include <functional>

namespace tk {

class Programma;

// The procedures of modMain that need the link: finding the server, identifying the client,
// telling the server where the user is, the server's status in the local store, and the words
// for the launcher.
class ModMainVerbinding {
public:
    explicit ModMainVerbinding(Programma& p) : frmNetwerk(p), p(p) {}

    // Fills frmMain's ServerHost and ServerPoort; false when there is no location at all.
    bool BepaalServerlocatie();
    // Sets ServerHost and ServerPoort from a location text "host" or "host:port".
    void ZetServerlocatie(const QString& tekst);
    // "INFVER", "INFDMN", "INFCOM" in this order, each waited for; only when connected.
    void IdentificeerClient();
    // Sends "LOC" + plaats (waited for) when connected, and sets the location text of reports.
    void GeefLocatieDoor(const QString& plaats);
    // Whether the location last reported is the maintenance module of an administrator
    // ("ONDERHOUD", or the word "Onderhoudsmodule" the start screen reports), whatever the
    // language of its text.
    bool InOnderhoudsmodule() const;
    // "Status server" of the local store: -1 when empty.
    int LeesServerstatus();
    // Sends one word to the launcher; false when no launcher listens.
    bool StuurOpstartCommando(const QString& tekst);
    // Starts the local server named by "Locatie server", with "FIREWALL" for the firewall test.
    void StartServer(bool firewall);
    // Connect, identify, load, open (also the reconnect button's procedure). Asked again while
    // one runs (a button clicked during its waits), it does nothing: a second connect would
    // close the first one's link and empty the load it is filling.
    void StartVerbinding(bool opnieuw);
    // Opens the account Windows logged on to, or the global start screen.
    void AutomatischAanmelden();
    // The connection test of the take-over: connect, ask "FIR", close. True when answered.
    bool TestServerlocatie(bool firewall);

    // The names of classes and teachers for the location text; the data layer's tables, handed
    // over by the composition root (without them the location text names nobody).
    const NameLookup* namen = nullptr;

    // The name under which the launcher of this program folder listens: a path in the account's
    // runtime folder ($XDG_RUNTIME_DIR), or without one a name in the shared temporary folder.
    static QString launcherNaam(const QString& programmaMap);

    FrmNetwerk frmNetwerk;

private:
    bool m_verbindend = false;
    QString m_plaats; // the location as last reported, before it became text
    Programma& p;
};

} // namespace tk
