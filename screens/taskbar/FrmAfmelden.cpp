#include "FrmAfmelden.h"

#include "core/Procedure.h"
#include "core/Programma.h"

namespace tk {

FrmAfmelden::FrmAfmelden(Programma& p) : LoadingBarWindow(p) {
    tekstFont = QFont(QStringLiteral("Verdana"), 12, QFont::Bold);
    picLaden.plek = QRect(20, 62, Breedte - 40, 40);
}

void FrmAfmelden::LaadVormgeving() {
    leesBalkKleuren("frmAfmelden.LaadVormgeving");
}

void FrmAfmelden::Openen() {
    Procedure(p, "frmAfmelden.Openen", [&] {
        lblAfmelden = p.modTaal.LaadTekst(716);
        LaadVormgeving();
        startSpringen();
    });
}

} // namespace tk
