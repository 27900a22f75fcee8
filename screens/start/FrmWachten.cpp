#include "FrmWachten.h"

#include "core/Procedure.h"
#include "core/Programma.h"
#include "screens/common/ThemePicture.h"
#include "theme/ModThema.h"

#include <QFontMetrics>

namespace tk {

FrmWachten::FrmWachten(Programma& p) : LoadingBarWindow(p) {
    tekstFont = QFont(QStringLiteral("Verdana"), 9, QFont::Bold);
    // The wait bar's own green until a theme says otherwise.
    KleurStreep = KleurRand = QColor(10, 112, 0);
}

int FrmWachten::hoogteVoor(const QString& tekstOnderBalk) const {
    // The bar alone, or the bar with its text under it.
    if (tekstOnderBalk.isEmpty())
        return picLaden.plek.top() + Laadbalk::BalkHoogte + 2 * Laadbalk::BalkBoven + Marge;
    return picLaden.plek.bottom() + 1 + Marge / 2;
}

void FrmWachten::LaadThema() {
    Procedure(p, "frmWachten.LaadThema", [&] {
        if (!p.modThema)
            return;
        KleurStreep = kleur(p.modThema->waitBarColour(QStringLiteral("Laadbalk wachten streep")));
        KleurRand = kleur(p.modThema->waitBarColour(QStringLiteral("Laadbalk wachten rand")));
    });
}

void FrmWachten::Openen(const QString& tekst, int maximum) {
    Procedure(p, "frmWachten.Openen", [&] {
        LaadThema();
        QString t = tekst;
        t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        regels = t.isEmpty() ? QStringList() : t.split(QLatin1Char('\n'));
        const QFontMetrics fm(tekstFont);
        int breedste = 0;
        for (const QString& r : regels)
            breedste = qMax(breedste, fm.horizontalAdvance(r));
        Breedte = qMax(MinBreedte, breedste + 2 * Marge);
        regelHoogte = fm.height();
        regelsBoven = Marge;
        const int balkBoven = regelsBoven + regelHoogte * int(regels.size()) + 10;
        picLaden.plek = QRect(Marge, balkBoven, Breedte - 2 * Marge, 40);
        Hoogte = hoogteVoor(QString());
        Maximum = qMax(0, maximum);
        if (Maximum == 0) {
            startSpringen();
            return;
        }
        stopTimer();
        Wachten(Maximum, 0, QString());
        Zichtbaar = true;
        hertekenen();
    });
}

void FrmWachten::Waarde(int waarde) {
    Procedure(p, "frmWachten.Waarde", [&] {
        if (Maximum > 0)
            Wachten(Maximum, waarde, QString());
    });
}

void FrmWachten::Wachten(int totaal, int huidig, const QString& tekst) {
    Procedure(p, "frmWachten.Wachten", [&] {
        picLaden.TijdLadenEx(totaal, huidig, tekst);
        Hoogte = hoogteVoor(tekst);
        hertekenen();
    });
}

} // namespace tk
