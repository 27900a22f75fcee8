#include "FrmBureaubladBeelden.h"

#include <QPainter>
#include <QPainterPath>

namespace tk {

namespace {

QImage leeg(int breedte, int hoogte) {
    QImage beeld(breedte, hoogte, QImage::Format_ARGB32_Premultiplied);
    beeld.fill(Qt::transparent);
    return beeld;
}

// A globe: the internet picture when the library has none.
void tekenWereld(QPainter& p, const QRectF& vak) {
    p.setPen(QPen(QColor(20, 90, 160), 1.4));
    p.setBrush(QColor(66, 165, 245));
    p.drawEllipse(vak);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(230, 245, 255), 1.2));
    const QPointF m = vak.center();
    p.drawEllipse(QRectF(m.x() - vak.width() / 5, vak.top(), vak.width() * 2 / 5, vak.height()));
    p.drawLine(QPointF(vak.left(), m.y()), QPointF(vak.right(), m.y()));
    p.drawLine(QPointF(m.x(), vak.top()), QPointF(m.x(), vak.bottom()));
}

} // namespace

QImage FrmBureaubladBeelden::Geen() {
    QImage beeld = leeg(Maat, Maat);
    QPainter p(&beeld);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(140, 150, 165), 1.5, Qt::DashLine));
    p.setBrush(QColor(235, 238, 242));
    p.drawRoundedRect(QRectF(2, 2, 28, 28), 5, 5);
    p.setPen(QColor(120, 130, 145));
    QFont font(QStringLiteral("Verdana"));
    font.setPixelSize(18);
    font.setBold(true);
    p.setFont(font);
    p.drawText(QRect(0, 0, Maat, Maat), Qt::AlignCenter, QStringLiteral("?"));
    return beeld;
}

QImage FrmBureaubladBeelden::Schijf() {
    QImage beeld = leeg(Maat, Maat);
    QPainter p(&beeld);
    p.setRenderHint(QPainter::Antialiasing);
    QRadialGradient glans(QPointF(12, 12), 18);
    glans.setColorAt(0, QColor(250, 250, 255));
    glans.setColorAt(0.5, QColor(190, 205, 230));
    glans.setColorAt(1, QColor(150, 160, 200));
    p.setPen(QPen(QColor(100, 110, 140), 1));
    p.setBrush(glans);
    p.drawEllipse(QRectF(2, 2, 28, 28));
    p.setBrush(QColor(255, 255, 255));
    p.drawEllipse(QRectF(12, 12, 8, 8));
    p.setBrush(QColor(100, 110, 140));
    p.drawEllipse(QRectF(14.5, 14.5, 3, 3));
    return beeld;
}

QImage FrmBureaubladBeelden::Internet3(const QImage& wereld) {
    QImage strook = leeg(3 * InternetMaat, InternetMaat);
    QPainter p(&strook);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    for (int stand = 0; stand < 3; ++stand) {
        const QRectF vak(stand * InternetMaat + 1, 1, InternetMaat - 2, InternetMaat - 2);
        // The pressed state stands one pixel lower.
        const QRectF plek = stand == 1 ? vak.translated(1, 1) : vak;
        if (!wereld.isNull())
            p.drawImage(plek, wereld);
        else
            tekenWereld(p, plek.adjusted(2, 2, -2, -2));
    }
    return strook;
}

} // namespace tk
