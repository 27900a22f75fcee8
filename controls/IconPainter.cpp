#include "IconPainter.h"

#include <QFont>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>

namespace tk {

QStringList IconPainter::names() {
    return {
        QStringLiteral("rekenen"),   QStringLiteral("taal"),       QStringLiteral("lezen"),
        QStringLiteral("tekenen"),   QStringLiteral("muziek"),     QStringLiteral("internet"),
        QStringLiteral("schrijven"), QStringLiteral("spelletjes"), QStringLiteral("wereld"),
        QStringLiteral("natuur"),    QStringLiteral("klok"),       QStringLiteral("typen"),
        QStringLiteral("printer"),   QStringLiteral("map"),        QStringLiteral("document"),
        QStringLiteral("foto"),      QStringLiteral("film"),       QStringLiteral("rekenmachine"),
        QStringLiteral("proefjes"),  QStringLiteral("robot"),      QStringLiteral("puzzel"),
        QStringLiteral("verkeer")};
}

namespace {

// A rounded tile with a soft gradient: the common ground of every icon.
void tile(QPainter& p, QColor c) {
    QLinearGradient g(0, 2, 0, 30);
    g.setColorAt(0, c.lighter(125));
    g.setColorAt(1, c.darker(110));
    p.setPen(QPen(c.darker(140), 1));
    p.setBrush(g);
    p.drawRoundedRect(QRectF(1.5, 1.5, 29, 29), 7, 7);
}

void text(QPainter& p, const QString& t, const QRectF& r, double size, QColor colour) {
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setBold(true);
    f.setPixelSize(int(size));
    p.setFont(f);
    p.setPen(colour);
    p.drawText(r, Qt::AlignCenter, t);
}

} // namespace

QImage IconPainter::paint(const QString& name, int side) {
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    p.scale(side / 32.0, side / 32.0);
    const QColor white(255, 255, 255);
    const QPen line(white, 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);

    if (name == u"rekenen") {
        tile(p, QColor(66, 133, 244));
        text(p, QStringLiteral("1+2"), QRectF(0, 0, 32, 32), 11, white);
    } else if (name == u"taal") {
        tile(p, QColor(234, 67, 53));
        text(p, QStringLiteral("Abc"), QRectF(0, 0, 32, 32), 11, white);
    } else if (name == u"lezen") {
        tile(p, QColor(251, 140, 0));
        p.setPen(QPen(QColor(160, 90, 0), 1));
        p.setBrush(white);
        QPainterPath left, right;
        left.moveTo(16, 10);
        left.quadTo(10, 7, 5, 9);
        left.lineTo(5, 24);
        left.quadTo(10, 22, 16, 25);
        left.closeSubpath();
        right.moveTo(16, 10);
        right.quadTo(22, 7, 27, 9);
        right.lineTo(27, 24);
        right.quadTo(22, 22, 16, 25);
        right.closeSubpath();
        p.drawPath(left);
        p.drawPath(right);
    } else if (name == u"tekenen") {
        tile(p, QColor(236, 64, 122));
        p.setPen(Qt::NoPen);
        p.setBrush(white);
        p.drawEllipse(QRectF(5, 6, 22, 20));
        const QColor dots[] = {QColor(66, 133, 244), QColor(52, 168, 83), QColor(251, 188, 5),
                               QColor(234, 67, 53)};
        const QPointF at[] = {{11, 12}, {16, 10}, {21, 12}, {11, 19}};
        for (int i = 0; i < 4; ++i) {
            p.setBrush(dots[i]);
            p.drawEllipse(at[i], 2.4, 2.4);
        }
        p.setBrush(QColor(236, 64, 122));
        p.drawEllipse(QPointF(20, 20), 2.6, 2.6);
    } else if (name == u"muziek") {
        tile(p, QColor(142, 36, 170));
        p.setPen(line);
        p.drawLine(QPointF(13, 22), QPointF(13, 8));
        p.drawLine(QPointF(23, 20), QPointF(23, 6));
        p.drawLine(QPointF(13, 8), QPointF(23, 6));
        p.setPen(Qt::NoPen);
        p.setBrush(white);
        p.drawEllipse(QPointF(10.5, 22.5), 3.2, 2.6);
        p.drawEllipse(QPointF(20.5, 20.5), 3.2, 2.6);
    } else if (name == u"internet") {
        tile(p, QColor(3, 155, 229));
        p.setPen(QPen(white, 1.8));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(QPointF(16, 16), 10, 10);
        p.drawEllipse(QPointF(16, 16), 4.5, 10);
        p.drawLine(QPointF(6, 16), QPointF(26, 16));
    } else if (name == u"schrijven") {
        tile(p, QColor(67, 160, 71));
        p.translate(16, 16);
        p.rotate(-45);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(255, 213, 79));
        p.drawRect(QRectF(-9, -3, 14, 6));
        p.setBrush(QColor(255, 138, 128));
        p.drawRoundedRect(QRectF(-12, -3, 4, 6), 1.5, 1.5);
        p.setBrush(QColor(255, 224, 178));
        QPolygonF tip;
        tip << QPointF(5, -3) << QPointF(11, 0) << QPointF(5, 3);
        p.drawPolygon(tip);
        p.resetTransform();
    } else if (name == u"spelletjes") {
        tile(p, QColor(94, 53, 177));
        p.setPen(Qt::NoPen);
        p.setBrush(white);
        p.drawRoundedRect(QRectF(5, 11, 22, 12), 6, 6);
        p.setBrush(QColor(94, 53, 177));
        p.drawRect(QRectF(9, 16, 6, 2));
        p.drawRect(QRectF(11, 14, 2, 6));
        p.setBrush(QColor(234, 67, 53));
        p.drawEllipse(QPointF(21, 15.5), 1.6, 1.6);
        p.setBrush(QColor(67, 160, 71));
        p.drawEllipse(QPointF(23.5, 18.5), 1.6, 1.6);
    } else if (name == u"wereld") {
        tile(p, QColor(0, 137, 123));
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(129, 212, 250));
        p.drawEllipse(QPointF(16, 16), 11, 11);
        p.setBrush(QColor(139, 195, 74));
        p.drawEllipse(QPointF(12, 12), 5, 4);
        p.drawEllipse(QPointF(20, 20), 4, 5);
        p.drawEllipse(QPointF(21, 10), 2.5, 2);
    } else if (name == u"natuur") {
        tile(p, QColor(124, 179, 66));
        p.setPen(Qt::NoPen);
        p.setBrush(white);
        QPainterPath leaf;
        leaf.moveTo(8, 25);
        leaf.cubicTo(6, 12, 16, 5, 26, 6);
        leaf.cubicTo(27, 16, 20, 26, 8, 25);
        p.drawPath(leaf);
        p.setPen(QPen(QColor(124, 179, 66), 1.6, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(9, 24), QPointF(22, 10));
    } else if (name == u"klok") {
        tile(p, QColor(255, 179, 0));
        p.setPen(QPen(QColor(120, 80, 0), 1.2));
        p.setBrush(white);
        p.drawEllipse(QPointF(16, 16), 11, 11);
        p.setPen(QPen(QColor(60, 60, 80), 2, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(16, 16), QPointF(16, 9));
        p.drawLine(QPointF(16, 16), QPointF(21, 18));
    } else if (name == u"typen") {
        tile(p, QColor(84, 110, 122));
        p.setPen(Qt::NoPen);
        p.setBrush(white);
        for (int row = 0; row < 3; ++row)
            for (int col = 0; col < 5; ++col)
                p.drawRoundedRect(QRectF(5 + col * 4.6, 9 + row * 4.4, 3.4, 3.2), 0.8, 0.8);
        p.drawRoundedRect(QRectF(9, 22.5, 14, 3), 1, 1);
    } else if (name == u"printer") {
        tile(p, QColor(96, 125, 139));
        p.setPen(Qt::NoPen);
        p.setBrush(white);
        p.drawRect(QRectF(10, 6, 12, 6));
        p.drawRoundedRect(QRectF(5, 12, 22, 10), 2, 2);
        p.setBrush(QColor(200, 220, 235));
        p.drawRect(QRectF(10, 19, 12, 8));
    } else if (name == u"map") {
        p.setPen(QPen(QColor(190, 140, 40), 1));
        p.setBrush(QColor(255, 206, 84));
        QPainterPath back;
        back.moveTo(2, 7);
        back.lineTo(12, 7);
        back.lineTo(15, 10);
        back.lineTo(30, 10);
        back.lineTo(30, 27);
        back.lineTo(2, 27);
        back.closeSubpath();
        p.drawPath(back);
        p.setBrush(QColor(255, 224, 130));
        p.drawRoundedRect(QRectF(2, 13, 28, 14), 1.5, 1.5);
    } else if (name == u"document") {
        p.setPen(QPen(QColor(120, 130, 150), 1));
        p.setBrush(white);
        QPainterPath page;
        page.moveTo(7, 2);
        page.lineTo(20, 2);
        page.lineTo(26, 8);
        page.lineTo(26, 30);
        page.lineTo(7, 30);
        page.closeSubpath();
        p.drawPath(page);
        p.setPen(QPen(QColor(66, 133, 244), 1.6));
        for (int y = 12; y <= 24; y += 4)
            p.drawLine(QPointF(10, y), QPointF(23, y));
    } else if (name == u"foto") {
        tile(p, QColor(38, 50, 56));
        p.setPen(Qt::NoPen);
        p.setBrush(white);
        p.drawRoundedRect(QRectF(5, 10, 22, 15), 3, 3);
        p.drawRect(QRectF(11, 7, 8, 4));
        p.setBrush(QColor(38, 50, 56));
        p.drawEllipse(QPointF(16, 17.5), 5, 5);
        p.setBrush(QColor(100, 181, 246));
        p.drawEllipse(QPointF(16, 17.5), 3.2, 3.2);
    } else if (name == u"film") {
        tile(p, QColor(229, 57, 53));
        p.setPen(Qt::NoPen);
        p.setBrush(white);
        QPolygonF play;
        play << QPointF(12, 9) << QPointF(24, 16) << QPointF(12, 23);
        p.drawPolygon(play);
    } else if (name == u"rekenmachine") {
        tile(p, QColor(69, 90, 100));
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(178, 235, 242));
        p.drawRoundedRect(QRectF(7, 5, 18, 6), 1.5, 1.5);
        p.setBrush(white);
        for (int row = 0; row < 3; ++row)
            for (int col = 0; col < 3; ++col)
                p.drawRoundedRect(QRectF(7 + col * 6.5, 13 + row * 5, 5, 3.6), 1, 1);
    } else if (name == u"proefjes") {
        tile(p, QColor(0, 172, 193));
        p.setPen(QPen(white, 1.6));
        p.setBrush(Qt::NoBrush);
        QPainterPath flask;
        flask.moveTo(13, 6);
        flask.lineTo(13, 13);
        flask.lineTo(7, 25);
        flask.lineTo(25, 25);
        flask.lineTo(19, 13);
        flask.lineTo(19, 6);
        p.drawPath(flask);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(255, 235, 59));
        QPolygonF liquid;
        liquid << QPointF(10, 19) << QPointF(22, 19) << QPointF(24.5, 24.5) << QPointF(7.5, 24.5);
        p.drawPolygon(liquid);
    } else if (name == u"robot") {
        tile(p, QColor(57, 73, 171));
        p.setPen(Qt::NoPen);
        p.setBrush(white);
        p.drawRoundedRect(QRectF(7, 10, 18, 14), 4, 4);
        p.drawRect(QRectF(15, 6, 2, 4));
        p.drawEllipse(QPointF(16, 6), 2, 2);
        p.setBrush(QColor(57, 73, 171));
        p.drawEllipse(QPointF(12, 16), 2.2, 2.2);
        p.drawEllipse(QPointF(20, 16), 2.2, 2.2);
        p.drawRoundedRect(QRectF(12, 20, 8, 1.8), 0.9, 0.9);
    } else if (name == u"puzzel") {
        tile(p, QColor(255, 112, 67));
        p.setPen(Qt::NoPen);
        p.setBrush(white);
        QPainterPath piece;
        piece.addRect(QRectF(8, 10, 14, 14));
        piece.addEllipse(QPointF(15, 9), 3.2, 3.2);
        piece.addEllipse(QPointF(23, 17), 3.2, 3.2);
        piece.setFillRule(Qt::WindingFill);
        p.drawPath(piece.simplified());
    } else if (name == u"verkeer") {
        tile(p, QColor(55, 71, 79));
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(33, 33, 33));
        p.drawRoundedRect(QRectF(11, 4, 10, 24), 3, 3);
        p.setBrush(QColor(244, 67, 54));
        p.drawEllipse(QPointF(16, 9), 2.8, 2.8);
        p.setBrush(QColor(255, 193, 7));
        p.drawEllipse(QPointF(16, 16), 2.8, 2.8);
        p.setBrush(QColor(76, 175, 80));
        p.drawEllipse(QPointF(16, 23), 2.8, 2.8);
    }
    return image;
}

} // namespace tk
