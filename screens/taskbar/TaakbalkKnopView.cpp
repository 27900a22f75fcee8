#include "TaakbalkKnopView.h"

#include "TaakbalkKnop.h"
#include "controls/Contrast.h"
#include "controls/FocusRing.h"
#include "controls/Ondergrond.h"

#include <QFontMetrics>
#include <QPainter>

namespace tk {

QRect TaakbalkKnopView::tekstVak(const TaakbalkKnop& knop, const QFont& font, int beeldMaat) {
    const QFontMetrics fm(font);
    const QRect& plek = knop.plek;
    return QRect(plek.left() + beeldMaat + TaakbalkKnop::Tussenruimte,
                 plek.top() + (plek.height() - fm.height()) / 2, fm.horizontalAdvance(knop.tekst),
                 fm.height());
}

void TaakbalkKnopView::teken(QPainter& painter, const TaakbalkKnop& knop, const QFont& font,
                             int beeldMaat, const Ondergrond& onder) {
    if (knop.plek.isNull())
        return;
    const QRect& plek = knop.plek;
    if (knop.focus)
        FocusRing::teken(painter, plek.adjusted(-3, -2, 3, 2), knop.hoverKleur);
    if (!knop.beeld.isNull())
        painter.drawImage(plek.left(), plek.top() + (plek.height() - knop.beeld.height()) / 2,
                          knop.beeld);
    if (knop.tekst.isEmpty())
        return;
    const QFontMetrics fm(font);
    painter.setFont(font);
    const QColor kleur = knop.hover ? knop.hoverKleur : knop.tekstKleur;
    const QRect vak = tekstVak(knop, font, beeldMaat);
    Contrast::schrijf(painter, QPoint(vak.left(), vak.top() + fm.ascent()), knop.tekst, kleur,
                      onder.randNodig(kleur, vak));
}

} // namespace tk
