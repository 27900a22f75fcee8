#pragma once

namespace tk {

class Programma;

// modMain's part of the maintenance module's exclusive access: the check before entering, and
// the dispatcher's branches for a request from another workstation (INFONA) and for the other
// side ending the negotiation (INFONC).
class ModMainOnderhoud {
public:
    explicit ModMainOnderhoud(Programma& p);

    // True when somebody else stays inside and the caller must not enter (also without a link).
    // Quiet (`stil`): only asks the server; otherwise asks the one inside to leave and waits in
    // frmOnderhoudVraag.
    bool ControleerAanwezigOnderhoudsmodule(bool stil);
    // INFONA: another user wants in; this workstation's module asks its user.
    void OnderhoudGevraagd();
    // INFONC: the other side refused or gave up.
    void OnderhoudVraagIngetrokken();

private:
    Programma& p;
};

} // namespace tk
