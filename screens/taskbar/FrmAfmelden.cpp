#include "FrmAfmelden.h"

#include "core/Procedure.h"
#include "core/Programma.h"
#include "screens/common/ThemePicture.h"
#include "theme/ModThema.h"

namespace tk {

FrmAfmelden::FrmAfmelden(Programma& p) : p(p) {
    tekstFont = QFont(QStringLiteral("Verdana"), 12, QFont::Bold);
    picLaden.plek = QRect(20, 62, Breedte - 40, 40);
    m_tmrLaden.setInterval(30);
    QObject::connect(&m_tmrLaden, &QTimer::timeout, [this] { tmrLaden_Timer(); });
}

void FrmAfmelden::hertekenen() {
    if (onChanged)
        onChanged();
}

void FrmAfmelden::LaadVormgeving() {
    Procedure(p, "frmAfmelden.LaadVormgeving", [&] {
        if (!p.modThema)
            return;
        const ThemeKeys k = p.modThema->keys();
        const QString kl = QStringLiteral("Kleuren");
        KleurRand = kleur(k.colour(kl, QStringLiteral("Laadbalk rand")));
        KleurStatus = kleur(k.colour(kl, QStringLiteral("Laadbalk status")));
        KleurStreep = kleur(k.colour(kl, QStringLiteral("Laadbalk streep")));
    });
}

void FrmAfmelden::Openen() {
    Procedure(p, "frmAfmelden.Openen", [&] {
        lblAfmelden = p.modTaal.LaadTekst(716);
        LaadVormgeving();
        picLaden.teller = 0;
        picLaden.omlaag = false;
        picLaden.TijdLadenEx2(100, 0, QString());
        m_tmrLaden.start();
        Zichtbaar = true;
        hertekenen();
    });
}

void FrmAfmelden::Sluiten() {
    m_tmrLaden.stop();
    Zichtbaar = false;
    hertekenen();
}

void FrmAfmelden::tmrLaden_Timer() {
    if (!Zichtbaar)
        return;
    picLaden.tik(QString());
    hertekenen();
}

} // namespace tk
