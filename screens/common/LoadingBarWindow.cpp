#include "LoadingBarWindow.h"

#include "core/Procedure.h"
#include "core/Programma.h"
#include "screens/common/ThemePicture.h"
#include "theme/ModThema.h"

namespace tk {

LoadingBarWindow::LoadingBarWindow(Programma& p) : p(p) {
    m_tmrLaden.setInterval(30);
    QObject::connect(&m_tmrLaden, &QTimer::timeout, [this] { tmrLaden_Timer(); });
}

void LoadingBarWindow::hertekenen() {
    if (onChanged)
        onChanged();
}

void LoadingBarWindow::leesBalkKleuren(const char* procedure) {
    Procedure(p, procedure, [&] {
        if (!p.modThema)
            return;
        const ThemeKeys k = p.modThema->keys();
        const QString kl = QStringLiteral("Kleuren");
        KleurRand = kleur(k.colour(kl, QStringLiteral("Laadbalk rand")));
        KleurStatus = kleur(k.colour(kl, QStringLiteral("Laadbalk status")));
        KleurStreep = kleur(k.colour(kl, QStringLiteral("Laadbalk streep")));
    });
}

void LoadingBarWindow::startSpringen() {
    picLaden.teller = 0;
    picLaden.omlaag = false;
    picLaden.TijdLadenEx2(100, 0, balkTekst());
    m_tmrLaden.start();
    Zichtbaar = true;
    hertekenen();
}

void LoadingBarWindow::Sluiten() {
    m_tmrLaden.stop();
    Zichtbaar = false;
    hertekenen();
}

void LoadingBarWindow::tmrLaden_Timer() {
    if (!Zichtbaar)
        return;
    picLaden.tik(balkTekst());
    hertekenen();
}

} // namespace tk
