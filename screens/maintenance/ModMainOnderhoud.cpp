#include "ModMainOnderhoud.h"

#include "FrmOnderhoud.h"
#include "FrmOnderhoudVraag.h"
#include "core/CommandChannel.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/Wire.h"

namespace tk {

ModMainOnderhoud::ModMainOnderhoud(Programma& p) : p(p) {}

bool ModMainOnderhoud::ControleerAanwezigOnderhoudsmodule(bool stil) {
    return Procedure<bool>(p, "modMain.ControleerAanwezigOnderhoudsmodule", true, [&] {
        ModMain& m = p.modMain;
        if (!p.kanaal || !m.Verbonden())
            return true;
        m.AntwoordOntvangen = false;
        p.kanaal->WS_Versturen(QString(wire::INFOND), false);
        if (p.wacht.Tot([&m] { return m.AntwoordOntvangen; }) != Wacht::Uitkomst::Voldaan)
            return true;
        const bool binnen = m.Antwoord == wire::ja;
        if (stil || !binnen)
            return binnen;
        p.kanaal->WS_Versturen(QString(wire::INFONA), false);
        if (!p.frmOnderhoudVraag)
            p.maak(p.frmOnderhoudVraag, p);
        return !p.frmOnderhoudVraag->Openen(1);
    });
}

void ModMainOnderhoud::OnderhoudGevraagd() {
    Procedure(p, "frmMain.WS_DataArrival", [&] {
        if (!p.frmOnderhoudVraag)
            p.maak(p.frmOnderhoudVraag, p);
        if (p.frmOnderhoudVraag->Open)
            return; // a question is already on the screen
        if (p.frmOnderhoudVraag->Openen(0)) {
            // Log off or silence: the stay ends, an edit in progress is lost.
            if (p.frmOnderhoud && p.frmOnderhoud->Zichtbaar) {
                p.frmOnderhoud->BewerkModus = false;
                if (p.frmOnderhoud->Beperkt)
                    p.frmOnderhoud->Afmelden2();
                else
                    p.frmOnderhoud->Afmelden();
            }
        } else if (p.kanaal) {
            p.kanaal->WS_Versturen(QString(wire::INFONC), false);
        }
    });
}

void ModMainOnderhoud::OnderhoudVraagIngetrokken() {
    if (!p.frmOnderhoudVraag)
        p.maak(p.frmOnderhoudVraag, p);
    p.frmOnderhoudVraag->geweigerd = true;
}

} // namespace tk
