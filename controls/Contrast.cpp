#include "Contrast.h"

#include <QPainter>
#include <QtMath>

#include <array>

namespace tk {

namespace {
double lineair(int kanaal) {
    const double c = kanaal / 255.0;
    return c <= 0.04045 ? c / 12.92 : qPow((c + 0.055) / 1.055, 2.4);
}

// The linear value of each of the 256 channel values, worked out once: the worst pixel under a
// caption is looked for on every paint of a button, over thousands of pixels.
const std::array<double, 256>& lineaireWaarden() {
    static const std::array<double, 256> tabel = [] {
        std::array<double, 256> t{};
        for (size_t i = 0; i < t.size(); ++i)
            t[i] = lineair(int(i));
        return t;
    }();
    return tabel;
}

double luminantieVan(QRgb px) {
    const std::array<double, 256>& l = lineaireWaarden();
    return 0.2126 * l[size_t(qRed(px))] + 0.7152 * l[size_t(qGreen(px))] +
           0.0722 * l[size_t(qBlue(px))];
}
} // namespace

double Contrast::luminantie(const QColor& kleur) {
    return luminantieVan(kleur.toRgb().rgb());
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
    const bool direct = achter.format() == QImage::Format_RGB32 ||
                        achter.format() == QImage::Format_ARGB32 ||
                        achter.format() == QImage::Format_ARGB32_Premultiplied;
    double laag = 2.0, hoog = -1.0;
    QRgb donker = 0, licht = 0;
    for (int y = binnen.top(); y <= binnen.bottom(); ++y) {
        const auto* rij = reinterpret_cast<const QRgb*>(achter.constScanLine(y));
        for (int x = binnen.left(); x <= binnen.right(); ++x) {
            const QRgb px = direct ? rij[x] : achter.pixel(x, y);
            const double l = luminantieVan(px);
            if (l < laag) {
                laag = l;
                donker = px;
            }
            if (l > hoog) {
                hoog = l;
                licht = px;
            }
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
