#include "LoadingBarPainter.h"

#include "Laadbalk.h"
#include "LoadingBarWindow.h"

#include <QFontMetrics>
#include <QPainter>

namespace tk {

void LoadingBarPainter::teken(QPainter& p, const QRect& r, const QList<QRect>& blokken,
                              const QString& tekst, const QPoint& tekstMidden) const {
    const QRect balk(2, Laadbalk::BalkBoven, r.width() - 4, Laadbalk::BalkHoogte);
    p.save();
    p.translate(r.topLeft());
    p.setPen(Qt::NoPen);
    p.setBrush(rand);
    p.drawRect(0, 0, r.width(), Laadbalk::BalkHoogte + 2 * Laadbalk::BalkBoven);
    p.setBrush(status);
    p.drawRect(balk);
    p.setBrush(streep);
    for (const QRect& b : blokken)
        p.drawRect(b.intersected(balk));
    if (!tekst.isEmpty()) {
        p.setFont(font);
        p.setPen(tekstKleur);
        const QFontMetrics fm(font);
        p.drawText(tekstMidden.x() - fm.horizontalAdvance(tekst) / 2,
                   tekstMidden.y() + fm.ascent() - fm.height() / 2, tekst);
    }
    p.restore();
}

void LoadingBarPainter::teken(QPainter& p, const Laadbalk& balk) const {
    teken(p, balk.plek, balk.blokkenNu, balk.tekst, balk.tekstMidden);
}

LoadingBarPainter LoadingBarPainter::van(const LoadingBarWindow& venster, const QColor& tekstKleur,
                                         const QFont& font) {
    return {venster.KleurRand, venster.KleurStatus, venster.KleurStreep, tekstKleur, font};
}

} // namespace tk
