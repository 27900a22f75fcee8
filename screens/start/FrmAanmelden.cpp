#include "FrmAanmelden.h"

#include "core/Procedure.h"
#include "core/Programma.h"
#include "screens/common/ThemePicture.h"
#include "screens/taskbar/FrmTaakbalk1.h"
#include "theme/ModThema.h"

namespace tk {

FrmAanmelden::FrmAanmelden(Programma& p) : p(p) {
    ladenFont = QFont(QStringLiteral("Verdana"), 9, QFont::Bold);
    m_tmrLaden.setInterval(30);
    QObject::connect(&m_tmrLaden, &QTimer::timeout, [this] { tmrLaden_Timer(); });
}

void FrmAanmelden::hertekenen() {
    if (onChanged)
        onChanged();
}

void FrmAanmelden::Openen() {
    Procedure(p, "frmAanmelden.Form_Load", [&] {
        Caption = p.modTaal.LaadTekst(200);
        const QSize maat(400, 40);
        picLaden.plek = QRect(
            QPoint((Breedte - maat.width()) / 2, (SchermHoogte - Laadbalk::BalkHoogte) / 2), maat);
        picLaden.teller = 0;
        picLaden.omlaag = false;
        LaadVormgeving();
        TekenLaadbalk();
        m_tmrLaden.start();
        Zichtbaar = true;
        hertekenen();
    });
}

void FrmAanmelden::Sluiten() {
    m_tmrLaden.stop();
    Zichtbaar = false;
    hertekenen();
}

void FrmAanmelden::LaadVormgeving() {
    if (!p.modThema)
        return;
    const ThemeKeys k = p.modThema->keys();
    const QString kl = QStringLiteral("Kleuren");
    // Each part on its own: a short colour or a missing picture is reported and the rest of the
    // window still gets its look.
    Procedure(p, "frmAanmelden.LaadVormgeving", [&] {
        KleurRand = kleur(k.colour(kl, QStringLiteral("Laadbalk rand")));
        KleurStatus = kleur(k.colour(kl, QStringLiteral("Laadbalk status")));
        KleurStreep = kleur(k.colour(kl, QStringLiteral("Laadbalk streep")));
    });
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
    picLaden.TijdLadenEx2(100, picLaden.teller, p.modTaal.LaadTekst(201));
    hertekenen();
}

void FrmAanmelden::tmrLaden_Timer() {
    if (!Zichtbaar)
        return;
    picLaden.tik(p.modTaal.LaadTekst(201));
    hertekenen();
}

} // namespace tk
