#include "FrmAanmelden.h"

#include "core/Procedure.h"
#include "core/Programma.h"
#include "screens/common/ThemePicture.h"
#include "screens/taskbar/FrmTaakbalk1.h"
#include "theme/ModThema.h"

namespace tk {

FrmAanmelden::FrmAanmelden(Programma& p) : LoadingBarWindow(p) {
    ladenFont = QFont(QStringLiteral("Verdana"), 9, QFont::Bold);
}

QString FrmAanmelden::balkTekst() const {
    return p.modTaal.LaadTekst(201);
}

void FrmAanmelden::Openen() {
    Procedure(p, "frmAanmelden.Form_Load", [&] {
        Caption = p.modTaal.LaadTekst(200);
        const QSize maat(400, 40);
        picLaden.plek = QRect(
            QPoint((Breedte - maat.width()) / 2, (SchermHoogte - Laadbalk::BalkHoogte) / 2), maat);
        LaadVormgeving();
        startSpringen();
    });
}

void FrmAanmelden::LaadVormgeving() {
    if (!p.modThema)
        return;
    const ThemeKeys k = p.modThema->keys();
    // Each part on its own: a short colour or a missing picture is reported and the rest of the
    // window still gets its look.
    leesBalkKleuren("frmAanmelden.LaadVormgeving");
    if (p.frmTaakbalk1)
        KleurTaakbalk = p.frmTaakbalk1->achtergrondKleur;
    Procedure(p, "frmAanmelden.LaadVormgeving", [&] {
        achtergrond = QImage();
        achtergrond =
            laadBeeld(k.picture(QStringLiteral("Achtergronden"), QStringLiteral("Startscherm")));
    });
    Procedure(p, "frmAanmelden.LaadVormgeving", [&] {
        taakbalk = QImage();
        taakbalk = laadBeeld(
            k.picture(QStringLiteral("Achtergronden"), QStringLiteral("Taakbalk - Startscherm")));
    });
}

void FrmAanmelden::TekenLaadbalk() {
    picLaden.TijdLadenEx2(100, picLaden.teller, balkTekst());
    hertekenen();
}

} // namespace tk
