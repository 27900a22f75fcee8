#include "TaakbalkKnopView.h"

#include "TaakbalkKnop.h"
#include "controls/FocusRing.h"

#include <QFontMetrics>
#include <QPainter>

namespace tk {

void TaakbalkKnopView::teken(QPainter& painter, const TaakbalkKnop& knop, const QFont& font,
                             int beeldMaat) {
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
    painter.setPen(knop.hover ? knop.hoverKleur : knop.tekstKleur);
    painter.drawText(plek.left() + beeldMaat + TaakbalkKnop::Tussenruimte,
                     plek.top() + (plek.height() - fm.height()) / 2 + fm.ascent(), knop.tekst);
}

} // namespace tk
