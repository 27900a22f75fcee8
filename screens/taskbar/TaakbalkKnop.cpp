#include "TaakbalkKnop.h"

#include "controls/AccessibleName.h"

#include "core/Procedure.h"
#include "theme/ThemeKeys.h"

namespace tk {

void TaakbalkKnop::LaadThema(Programma& p, const ThemeKeys& k, const QString& beeldSleutel,
                             const QString& sectie, const QString& kleurWoord,
                             const char* procedure) {
    const QString pad = k.pictureIfExists(QStringLiteral("Taakbalk"), beeldSleutel);
    beeld = pad.isEmpty() ? QImage() : QImage(pad);
    if (kleurWoord.isEmpty())
        return;
    Procedure(
        p, procedure,
        [&] {
            const auto paar = k.colourPair(sectie, kleurWoord);
            tekstKleur = QColor(paar.first.r, paar.first.g, paar.first.b);
            hoverKleur = QColor(paar.second.r, paar.second.g, paar.second.b);
        },
        true);
}

int TaakbalkKnop::breedte(int beeldMaat, int tekstBreedte) const {
    return tekst.isEmpty() ? beeldMaat : beeldMaat + Tussenruimte + tekstBreedte;
}

QString TaakbalkKnop::toegankelijkeNaam() const {
    return AccessibleName::maak(tekst, AccessibleName::maak(hint, naam));
}

} // namespace tk
