#include "Contrast.h"

#include <QPainter>
#include <QtMath>

namespace tk {

namespace {
double lineair(int kanaal) {
    const double c = kanaal / 255.0;
    return c <= 0.04045 ? c / 12.92 : qPow((c + 0.055) / 1.055, 2.4);
}
} // namespace

double Contrast::luminantie(const QColor& kleur) {
    const QColor c = kleur.toRgb();
    return 0.2126 * lineair(c.red()) + 0.7152 * lineair(c.green()) + 0.0722 * lineair(c.blue());
}

double Contrast::verhouding(const QColor& a, const QColor& b) {
    const double la = luminantie(a), lb = luminantie(b);
    return (qMax(la, lb) + 0.05) / (qMin(la, lb) + 0.05);
}

QColor Contrast::tegenkleur(const QColor& achter) {
    return verhouding(achter, Qt::black) >= verhouding(achter, Qt::white) ? QColor(Qt::black)
                                                                          : QColor(Qt::white);
}

double Contrast::slechtste(const QColor& tekst, const QImage& achter, const QRect& vak) {
    const QRect binnen = vak.intersected(achter.rect());
    if (binnen.isEmpty())
        return 21.0;
    double laag = 2.0, hoog = -1.0;
    QRgb donker = 0, licht = 0;
    for (int y = binnen.top(); y <= binnen.bottom(); ++y)
        for (int x = binnen.left(); x <= binnen.right(); ++x) {
            const QRgb px = achter.pixel(x, y);
            const double l = luminantie(QColor(px));
            if (l < laag) {
                laag = l;
                donker = px;
            }
            if (l > hoog) {
                hoog = l;
                licht = px;
            }
        }
    return qMin(verhouding(tekst, QColor(donker)), verhouding(tekst, QColor(licht)));
}

bool Contrast::randNodig(const QColor& tekst, const QImage& achter, const QRect& vak) {
    return slechtste(tekst, achter, vak) < Minimum;
}

void Contrast::schrijf(QPainter& p, const QPoint& basis, const QString& tekst, const QColor& kleur,
                       bool rand) {
    if (rand) {
        p.setPen(tegenkleur(kleur));
        for (int dx = -1; dx <= 1; ++dx)
            for (int dy = -1; dy <= 1; ++dy)
                if (dx || dy)
                    p.drawText(basis + QPoint(dx, dy), tekst);
    }
    p.setPen(kleur);
    p.drawText(basis, tekst);
}

} // namespace tk
