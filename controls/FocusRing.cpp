#include "FocusRing.h"

#include "Contrast.h"

#include <QPainter>

namespace tk {

void FocusRing::teken(QPainter& p, const QRect& vak, const QColor& kleur) {
    if (vak.width() < 6 || vak.height() < 6)
        return;
    p.save();
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(kleur, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    p.drawRect(QRectF(vak).adjusted(1, 1, -1, -1));
    p.setPen(QPen(Contrast::tegenkleur(kleur), 1, Qt::DotLine));
    p.drawRect(vak.adjusted(2, 2, -3, -3));
    p.restore();
}

} // namespace tk
