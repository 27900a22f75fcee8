#include "ThemePainter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>
#include <QRandomGenerator>
#include <QtMath>
#include <cstdio>

namespace {

const QColor panel(244, 247, 251);
const QColor toolbarColour(238, 243, 248);

void verticalGradient(QPainter& p, const QRectF& r, QColor top, QColor bottom) {
    QLinearGradient g(r.topLeft(), r.bottomLeft());
    g.setColorAt(0, top);
    g.setColorAt(1, bottom);
    p.fillRect(r, g);
}

// A rolling hill: the area under a smooth wave from x 0 to width.
QPainterPath hill(double width, double height, double base, double amplitude, double waves,
                  double phase) {
    QPainterPath path(QPointF(0, height));
    for (int x = 0; x <= int(width); x += 8)
        path.lineTo(x, base - amplitude * std::sin(x / width * waves * 2 * M_PI + phase));
    path.lineTo(width, height);
    path.closeSubpath();
    return path;
}

void softCloud(QPainter& p, QPointF at, double scale, int alpha) {
    p.save();
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, alpha));
    QPainterPath c;
    c.addEllipse(at + QPointF(0, 0) * scale, 40 * scale, 26 * scale);
    c.addEllipse(at + QPointF(38, -14) * scale, 44 * scale, 34 * scale);
    c.addEllipse(at + QPointF(80, 2) * scale, 38 * scale, 24 * scale);
    c.addRect(QRectF(at + QPointF(0, 0) * scale, QSizeF(80, 24) * scale));
    c.setFillRule(Qt::WindingFill);
    p.drawPath(c.simplified());
    p.restore();
}

void sun(QPainter& p, QPointF c, double r) {
    p.save();
    p.setPen(QPen(QColor(255, 214, 80), r * 0.14, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i < 12; ++i) {
        const double a = i * M_PI / 6;
        p.drawLine(c + QPointF(std::cos(a), std::sin(a)) * r * 1.3,
                   c + QPointF(std::cos(a), std::sin(a)) * r * 1.75);
    }
    QRadialGradient g(c, r);
    g.setColorAt(0, QColor(255, 240, 120));
    g.setColorAt(1, QColor(255, 200, 50));
    p.setPen(Qt::NoPen);
    p.setBrush(g);
    p.drawEllipse(c, r, r);
    p.restore();
}

void tree(QPainter& p, QPointF foot, double size, QColor crown) {
    p.save();
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(133, 94, 66));
    p.drawRoundedRect(
        QRectF(foot.x() - size * 0.08, foot.y() - size * 0.55, size * 0.16, size * 0.55), 3, 3);
    p.setBrush(crown);
    p.drawEllipse(QPointF(foot.x(), foot.y() - size * 0.75), size * 0.36, size * 0.36);
    p.setBrush(crown.lighter(115));
    p.drawEllipse(QPointF(foot.x() - size * 0.12, foot.y() - size * 0.85), size * 0.16,
                  size * 0.14);
    p.restore();
}

void flower(QPainter& p, QPointF c, double r, QColor petals) {
    p.save();
    p.setPen(Qt::NoPen);
    p.setBrush(petals);
    for (int i = 0; i < 5; ++i) {
        const double a = i * 2 * M_PI / 5;
        p.drawEllipse(c + QPointF(std::cos(a), std::sin(a)) * r, r * 0.8, r * 0.8);
    }
    p.setBrush(QColor(255, 220, 70));
    p.drawEllipse(c, r * 0.7, r * 0.7);
    p.restore();
}

// The white pictogram of a button or menu item, drawn inside `r`.
void glyph(QPainter& p, const QString& name, const QRectF& r, QColor colour) {
    p.save();
    const double s = r.width();
    const double w = std::max(2.0, s * 0.1);
    QPen pen(colour, w, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
    const QPointF c = r.center();
    auto at = [&](double x, double y) { return QPointF(r.left() + x * s, r.top() + y * s); };
    if (name == "power") {
        p.drawArc(QRectF(at(0.18, 0.2), at(0.82, 0.84)), 120 * 16, 300 * 16);
        p.drawLine(at(0.5, 0.1), at(0.5, 0.48));
    } else if (name == "gear") {
        p.setBrush(colour);
        QPainterPath g;
        for (int i = 0; i < 8; ++i) {
            const double a = i * M_PI / 4;
            QTransform t;
            t.translate(c.x(), c.y());
            t.rotateRadians(a);
            QPainterPath tooth;
            tooth.addRoundedRect(QRectF(-s * 0.08, -s * 0.42, s * 0.16, s * 0.2), 1.5, 1.5);
            g.addPath(t.map(tooth));
        }
        g.addEllipse(c, s * 0.3, s * 0.3);
        g.setFillRule(Qt::WindingFill);
        QPainterPath hole;
        hole.addEllipse(c, s * 0.12, s * 0.12);
        p.setPen(Qt::NoPen);
        p.drawPath(g.simplified().subtracted(hole));
    } else if (name == "refresh") {
        p.drawArc(QRectF(at(0.2, 0.2), at(0.8, 0.8)), 30 * 16, 280 * 16);
        p.setBrush(colour);
        p.setPen(Qt::NoPen);
        QPolygonF head;
        head << at(0.62, 0.1) << at(0.9, 0.3) << at(0.6, 0.42);
        p.drawPolygon(head);
    } else if (name == "server") {
        for (int i = 0; i < 3; ++i) {
            const QRectF box(at(0.2, 0.14 + i * 0.26), QSizeF(s * 0.6, s * 0.2));
            p.drawRoundedRect(box, 2, 2);
            p.drawPoint(box.topLeft() + QPointF(s * 0.12, s * 0.1));
        }
    } else if (name == "window") {
        p.drawRoundedRect(QRectF(at(0.14, 0.2), at(0.86, 0.8)), 3, 3);
        p.drawLine(at(0.14, 0.36), at(0.86, 0.36));
    } else if (name == "door") {
        p.drawRoundedRect(QRectF(at(0.16, 0.14), at(0.52, 0.86)), 2, 2);
        p.drawLine(at(0.42, 0.5), at(0.88, 0.5));
        p.drawLine(at(0.74, 0.36), at(0.88, 0.5));
        p.drawLine(at(0.74, 0.64), at(0.88, 0.5));
    } else if (name == "help") {
        QFont f(QStringLiteral("DejaVu Sans"));
        f.setBold(true);
        f.setPixelSize(int(s * 0.78));
        p.setFont(f);
        p.drawText(r, Qt::AlignCenter, QStringLiteral("?"));
    } else if (name == "house") {
        QPolygonF roof;
        roof << at(0.12, 0.5) << at(0.5, 0.16) << at(0.88, 0.5);
        p.drawPolyline(roof);
        p.drawRect(QRectF(at(0.24, 0.46), at(0.76, 0.84)));
        p.drawLine(at(0.5, 0.84), at(0.5, 0.64));
    } else if (name == "globe") {
        p.drawEllipse(c, s * 0.36, s * 0.36);
        p.drawEllipse(c, s * 0.15, s * 0.36);
        p.drawLine(at(0.14, 0.5), at(0.86, 0.5));
    } else if (name == "left" || name == "right") {
        const double d = name == "left" ? -1 : 1;
        p.drawLine(c - QPointF(d * s * 0.3, 0), c + QPointF(d * s * 0.3, 0));
        p.drawLine(c + QPointF(d * s * 0.3, 0), c + QPointF(d * s * 0.05, -s * 0.25));
        p.drawLine(c + QPointF(d * s * 0.3, 0), c + QPointF(d * s * 0.05, s * 0.25));
    } else if (name == "stop") {
        p.drawLine(at(0.28, 0.28), at(0.72, 0.72));
        p.drawLine(at(0.72, 0.28), at(0.28, 0.72));
    } else if (name == "star") {
        QPolygonF star;
        for (int i = 0; i < 10; ++i) {
            const double a = -M_PI / 2 + i * M_PI / 5;
            const double rr = (i % 2 ? 0.17 : 0.38) * s;
            star << c + QPointF(std::cos(a), std::sin(a)) * rr;
        }
        p.setBrush(colour);
        p.drawPolygon(star);
    } else if (name == "print") {
        p.drawRect(QRectF(at(0.3, 0.14), at(0.7, 0.36)));
        p.drawRoundedRect(QRectF(at(0.14, 0.36), at(0.86, 0.68)), 2, 2);
        p.drawRect(QRectF(at(0.3, 0.58), at(0.7, 0.86)));
    } else if (name == "people") {
        p.setBrush(colour);
        p.setPen(Qt::NoPen);
        p.drawEllipse(at(0.36, 0.32), s * 0.12, s * 0.12);
        p.drawChord(QRectF(at(0.14, 0.5), at(0.58, 0.98)), 0, 180 * 16);
        p.setBrush(colour.darker(115));
        p.drawEllipse(at(0.66, 0.36), s * 0.1, s * 0.1);
        p.drawChord(QRectF(at(0.48, 0.54), at(0.86, 0.96)), 0, 180 * 16);
    } else if (name == "apps") {
        p.setBrush(colour);
        p.setPen(Qt::NoPen);
        for (int i = 0; i < 4; ++i)
            p.drawRoundedRect(QRectF(at(0.18 + (i % 2) * 0.34, 0.18 + (i / 2) * 0.34),
                                     QSizeF(s * 0.28, s * 0.28)),
                              3, 3);
    } else if (name == "monitor") {
        p.drawRoundedRect(QRectF(at(0.12, 0.18), at(0.88, 0.66)), 3, 3);
        p.drawLine(at(0.5, 0.66), at(0.5, 0.8));
        p.drawLine(at(0.32, 0.82), at(0.68, 0.82));
    } else if (name == "chart") {
        p.setBrush(colour);
        p.setPen(Qt::NoPen);
        const double hs[] = {0.3, 0.55, 0.42, 0.68};
        for (int i = 0; i < 4; ++i)
            p.drawRoundedRect(
                QRectF(at(0.16 + i * 0.18, 0.84 - hs[i]), QSizeF(s * 0.13, s * hs[i])), 2, 2);
    } else if (name == "palette") {
        p.setBrush(colour);
        p.setPen(Qt::NoPen);
        QPainterPath pal;
        pal.addEllipse(QRectF(at(0.12, 0.16), at(0.88, 0.84)));
        QPainterPath holes;
        holes.addEllipse(at(0.62, 0.62), s * 0.09, s * 0.09);
        p.drawPath(pal.subtracted(holes));
        const QColor dots[] = {QColor(255, 99, 99), QColor(255, 200, 60), QColor(90, 190, 110),
                               QColor(80, 150, 240)};
        const QPointF places[] = {at(0.32, 0.38), at(0.5, 0.28), at(0.68, 0.38), at(0.3, 0.6)};
        for (int i = 0; i < 4; ++i) {
            p.setBrush(dots[i]);
            p.drawEllipse(places[i], s * 0.07, s * 0.07);
        }
    } else if (name == "wrench") {
        p.setPen(QPen(colour, s * 0.16, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(at(0.26, 0.74), at(0.6, 0.4));
        p.setPen(Qt::NoPen);
        p.setBrush(colour);
        QPainterPath head;
        head.addEllipse(at(0.66, 0.34), s * 0.2, s * 0.2);
        QPainterPath notch;
        notch.addRect(QRectF(at(0.66, 0.1), QSizeF(s * 0.3, s * 0.22)));
        QTransform t;
        t.translate(at(0.66, 0.34).x(), at(0.66, 0.34).y());
        t.rotate(45);
        t.translate(-at(0.66, 0.34).x(), -at(0.66, 0.34).y());
        p.drawPath(head.subtracted(t.map(notch)));
    }
    p.restore();
}

void kid(QPainter& p, QPointF foot, double h, QColor skin, QColor shirt, QColor hair, bool longHair,
         double armUp) {
    p.save();
    p.setPen(Qt::NoPen);
    const double head = h * 0.17;
    const QPointF headAt(foot.x(), foot.y() - h + head);
    // legs
    p.setPen(QPen(QColor(60, 70, 110), h * 0.07, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(foot.x() - h * 0.07, foot.y() - h * 0.32),
               QPointF(foot.x() - h * 0.09, foot.y()));
    p.drawLine(QPointF(foot.x() + h * 0.07, foot.y() - h * 0.32),
               QPointF(foot.x() + h * 0.09, foot.y()));
    // arms
    p.setPen(QPen(skin, h * 0.06, Qt::SolidLine, Qt::RoundCap));
    const QPointF shoulder(foot.x(), foot.y() - h * 0.62);
    p.drawLine(shoulder + QPointF(-h * 0.1, 0),
               shoulder + QPointF(-h * 0.3, h * 0.16 - armUp * h * 0.35));
    p.drawLine(shoulder + QPointF(h * 0.1, 0),
               shoulder + QPointF(h * 0.3, h * 0.16 - armUp * h * 0.35));
    // body
    p.setPen(Qt::NoPen);
    p.setBrush(shirt);
    QPainterPath body;
    body.moveTo(foot.x() - h * 0.14, foot.y() - h * 0.28);
    body.lineTo(foot.x() + h * 0.14, foot.y() - h * 0.28);
    body.lineTo(foot.x() + h * 0.1, foot.y() - h * 0.66);
    body.quadTo(foot.x(), foot.y() - h * 0.7, foot.x() - h * 0.1, foot.y() - h * 0.66);
    body.closeSubpath();
    p.drawPath(body);
    // head and hair
    p.setBrush(hair);
    if (longHair)
        p.drawRoundedRect(
            QRectF(headAt.x() - head * 1.1, headAt.y() - head * 1.05, head * 2.2, head * 2.2), head,
            head);
    p.setBrush(skin);
    p.drawEllipse(headAt, head, head);
    p.setBrush(hair);
    p.drawChord(QRectF(headAt.x() - head * 1.05, headAt.y() - head * 1.1, head * 2.1, head * 1.7),
                0, 180 * 16);
    // face
    p.setBrush(QColor(40, 40, 60));
    p.drawEllipse(headAt + QPointF(-head * 0.38, head * 0.1), head * 0.11, head * 0.13);
    p.drawEllipse(headAt + QPointF(head * 0.38, head * 0.1), head * 0.11, head * 0.13);
    p.setPen(QPen(QColor(190, 70, 70), head * 0.12, Qt::SolidLine, Qt::RoundCap));
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(headAt.x() - head * 0.4, headAt.y() + head * 0.05, head * 0.8, head * 0.6),
              200 * 16, 140 * 16);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 140, 140, 110));
    p.drawEllipse(headAt + QPointF(-head * 0.62, head * 0.42), head * 0.18, head * 0.12);
    p.drawEllipse(headAt + QPointF(head * 0.62, head * 0.42), head * 0.18, head * 0.12);
    p.restore();
}

} // namespace

ThemePainter::ThemePainter(QString folder) : m_folder(std::move(folder)) {}

const QList<ThemePainter::ButtonColour>& ThemePainter::buttonColours() {
    static const QList<ButtonColour> colours = {
        {"Rood", QColor(255, 120, 117)},  {"Oranje", QColor(255, 173, 88)},
        {"Geel", QColor(255, 219, 77)},   {"Groen", QColor(140, 220, 118)},
        {"Blauw", QColor(116, 188, 252)}, {"Paars", QColor(192, 165, 255)},
        {"Roze", QColor(255, 164, 210)},  {"Turquoise", QColor(99, 224, 190)},
        {"Bruin", QColor(214, 170, 125)}, {"Grijs", QColor(200, 207, 214)},
    };
    return colours;
}

bool ThemePainter::save(const QImage& image, const QString& relative, const char* format) {
    const QString path = m_folder + QLatin1Char('/') + relative;
    QDir().mkpath(QFileInfo(path).path());
    const bool jpg = relative.endsWith(QStringLiteral(".jpg"));
    if (!image.save(path, format, jpg ? 92 : -1)) {
        std::fprintf(stderr, "tk_themamaker: cannot write %s\n", qPrintable(path));
        return false;
    }
    return true;
}

QImage ThemePainter::startScreen(int width, int height) const {
    QImage img(width, height, QImage::Format_RGB32);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    verticalGradient(p, img.rect(), QColor(92, 180, 238), QColor(206, 236, 255));
    sun(p, QPointF(width - 110, 95), 48);
    softCloud(p, QPointF(110, 120), 1.2, 200);
    softCloud(p, QPointF(620, 70), 0.9, 170);
    softCloud(p, QPointF(430, 190), 0.7, 140);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(160, 220, 130));
    p.drawPath(hill(width, height, height - 150, 30, 1.3, 0.6));
    p.setBrush(QColor(118, 196, 92));
    p.drawPath(hill(width, height, height - 95, 22, 1.8, 2.4));
    tree(p, QPointF(70, height - 100), 120, QColor(80, 170, 80));
    tree(p, QPointF(150, height - 92), 80, QColor(100, 185, 90));
    tree(p, QPointF(width - 90, height - 98), 110, QColor(80, 170, 80));
    QRandomGenerator rnd(7);
    const QColor petals[] = {QColor(255, 120, 150), QColor(255, 255, 255), QColor(190, 140, 255),
                             QColor(255, 170, 80)};
    for (int i = 0; i < 26; ++i)
        flower(p, QPointF(rnd.bounded(width), height - rnd.bounded(10, 70)), 4 + rnd.bounded(3),
               petals[i % 4]);
    return img;
}

QImage ThemePainter::meadow(int width, int height) const {
    QImage img(width, height, QImage::Format_RGB32);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    verticalGradient(p, img.rect(), QColor(170, 214, 245), QColor(232, 245, 255));
    softCloud(p, QPointF(140, 140), 1.0, 160);
    softCloud(p, QPointF(700, 90), 1.3, 150);
    sun(p, QPointF(width - 80, 70), 34);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(190, 230, 165));
    p.drawPath(hill(width, height, height - 90, 20, 1.2, 0.3));
    p.setBrush(QColor(160, 214, 130));
    p.drawPath(hill(width, height, height - 50, 14, 2.0, 1.9));
    return img;
}

QImage ThemePainter::sea(int width, int height) const {
    QImage img(width, height, QImage::Format_RGB32);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    verticalGradient(p, QRectF(0, 0, width, height * 0.55), QColor(150, 210, 250),
                     QColor(225, 244, 255));
    verticalGradient(p, QRectF(0, height * 0.55, width, height * 0.45), QColor(70, 160, 220),
                     QColor(40, 110, 190));
    sun(p, QPointF(200, 110), 40);
    softCloud(p, QPointF(600, 100), 1.1, 170);
    p.setPen(QPen(QColor(255, 255, 255, 120), 3, Qt::SolidLine, Qt::RoundCap));
    for (int row = 0; row < 6; ++row)
        for (int x = (row % 2) * 60; x < width; x += 130)
            p.drawArc(QRectF(x, height * 0.6 + row * 45, 50, 16), 20 * 16, 140 * 16);
    // a little sail boat
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(200, 90, 70));
    QPolygonF hull;
    hull << QPointF(760, height * 0.56) << QPointF(880, height * 0.56) << QPointF(860, height * 0.6)
         << QPointF(780, height * 0.6);
    p.drawPolygon(hull);
    p.setBrush(Qt::white);
    QPolygonF sail;
    sail << QPointF(818, height * 0.55) << QPointF(818, height * 0.38)
         << QPointF(870, height * 0.55);
    p.drawPolygon(sail);
    return img;
}

QImage ThemePainter::space(int width, int height) const {
    QImage img(width, height, QImage::Format_RGB32);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    verticalGradient(p, img.rect(), QColor(20, 28, 70), QColor(50, 40, 110));
    QRandomGenerator rnd(11);
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 160; ++i) {
        p.setBrush(QColor(255, 255, 255, rnd.bounded(90, 255)));
        const double r = rnd.bounded(10, 25) / 10.0;
        p.drawEllipse(QPointF(rnd.bounded(width), rnd.bounded(height)), r, r);
    }
    QRadialGradient planet(QPointF(800, 180), 110, QPointF(760, 140));
    planet.setColorAt(0, QColor(255, 190, 120));
    planet.setColorAt(1, QColor(220, 110, 70));
    p.setBrush(planet);
    p.drawEllipse(QPointF(820, 200), 90, 90);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(255, 230, 170, 200), 6));
    p.drawEllipse(QPointF(820, 200), 150, 30);
    p.setPen(Qt::NoPen);
    QRadialGradient moon(QPointF(180, 520), 60, QPointF(160, 500));
    moon.setColorAt(0, QColor(180, 230, 255));
    moon.setColorAt(1, QColor(90, 150, 230));
    p.setBrush(moon);
    p.drawEllipse(QPointF(180, 540), 55, 55);
    return img;
}

QImage ThemePainter::maintenanceBackground() const {
    QImage img(1024, 685, QImage::Format_RGB32);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    verticalGradient(p, img.rect(), QColor(255, 255, 255), QColor(228, 239, 249));
    verticalGradient(p, QRectF(0, 0, 1024, 70), QColor(58, 140, 200), QColor(40, 108, 170));
    p.fillRect(QRectF(0, 70, 240, 615), panel);
    verticalGradient(p, QRectF(240, 70, 6, 615), QColor(0, 0, 0, 30), QColor(0, 0, 0, 10));
    p.setPen(Qt::NoPen);
    p.setClipRect(QRectF(0, 0, 1024, 70));
    p.setBrush(QColor(255, 255, 255, 40));
    p.drawEllipse(QPointF(950, 10), 90, 90);
    p.drawEllipse(QPointF(860, 70), 50, 50);
    return img;
}

QImage ThemePainter::bar(int width, int height, QColor top, QColor bottom) const {
    QImage img(width, height, QImage::Format_RGB32);
    QPainter p(&img);
    verticalGradient(p, img.rect(), top, bottom);
    p.fillRect(QRect(0, 0, width, 2), top.lighter(140));
    return img;
}

QImage ThemePainter::figures() const {
    QImage img(280, 200, QImage::Format_RGB32);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    verticalGradient(p, img.rect(), QColor(255, 248, 225), QColor(255, 236, 190));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(150, 215, 120));
    p.drawEllipse(QRectF(-40, 160, 360, 100));
    p.setPen(QPen(QColor(255, 255, 255, 140), 2));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(1, 1, 278, 198));
    kid(p, QPointF(62, 182), 130, QColor(241, 194, 150), QColor(255, 110, 110), QColor(120, 70, 40),
        true, 0.9);
    kid(p, QPointF(140, 186), 150, QColor(150, 100, 70), QColor(90, 170, 250), QColor(40, 30, 30),
        false, 0.2);
    kid(p, QPointF(218, 182), 125, QColor(255, 220, 185), QColor(130, 210, 110),
        QColor(240, 190, 70), true, 0.9);
    return img;
}

QPainterPath ThemePainter::cloudPath(const QRectF& b) const {
    QPainterPath c;
    const double w = b.width(), h = b.height();
    auto e = [&](double x, double y, double rx, double ry) {
        c.addEllipse(QPointF(b.left() + x * w, b.top() + y * h), rx * w, ry * h);
    };
    e(0.5, 0.45, 0.36, 0.32);
    e(0.22, 0.5, 0.2, 0.24);
    e(0.78, 0.5, 0.2, 0.24);
    e(0.36, 0.26, 0.18, 0.2);
    e(0.64, 0.24, 0.2, 0.2);
    e(0.5, 0.62, 0.3, 0.2);
    QPainterPath tail;
    tail.moveTo(b.left() + 0.3 * w, b.top() + 0.6 * h);
    tail.lineTo(b.left() + 0.18 * w, b.top() + 0.98 * h);
    tail.lineTo(b.left() + 0.48 * w, b.top() + 0.66 * h);
    tail.closeSubpath();
    c.setFillRule(Qt::WindingFill);
    return c.simplified().united(tail);
}

QImage ThemePainter::classButton(QColor colour, bool hover) const {
    // The start screen places class buttons 100 pixels apart: 96 wide leaves a gap.
    const QRectF r(0, 0, 96, 48);
    QImage img(r.size().toSize(), QImage::Format_RGB32);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    const QColor base = hover ? colour.lighter(112) : colour;
    const QColor edge = colour.darker(135);
    p.fillRect(r, edge);
    QLinearGradient g(0, 0, 0, r.height());
    g.setColorAt(0, base.lighter(118));
    g.setColorAt(0.5, base);
    g.setColorAt(1, base.darker(108));
    p.setPen(Qt::NoPen);
    p.setBrush(g);
    p.drawRoundedRect(r.adjusted(2, 2, -2, -2), 8, 8);
    p.setBrush(QColor(255, 255, 255, 70));
    p.drawRoundedRect(QRectF(7, 5, r.width() - 14, 14), 6, 6);
    if (hover) {
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(QColor(255, 255, 255, 230), 3));
        p.drawRoundedRect(r.adjusted(4, 4, -4, -4), 7, 7);
    }
    return img;
}

QImage ThemePainter::tile(int size, QColor background, QColor tileColour, const QString& name,
                          bool round) const {
    QImage img(size, size, QImage::Format_RGB32);
    img.fill(background);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    QLinearGradient g(0, 0, 0, size);
    g.setColorAt(0, tileColour.lighter(115));
    g.setColorAt(1, tileColour.darker(108));
    p.setBrush(g);
    const QRectF box(2, 2, size - 4, size - 4);
    if (round)
        p.drawEllipse(box);
    else
        p.drawRoundedRect(box, size * 0.22, size * 0.22);
    glyph(p, name, box.adjusted(size * 0.14, size * 0.14, -size * 0.14, -size * 0.14), Qt::white);
    return img;
}

QImage ThemePainter::preview(int width, int height) const {
    QImage screen = startScreen(1024, 685);
    QPainter p(&screen);
    p.setRenderHint(QPainter::Antialiasing);
    const auto& colours = buttonColours();
    for (int i = 0; i < 8; ++i)
        p.drawImage(QPointF(180 + (i % 4) * 170, 300 + (i / 4) * 70),
                    classButton(colours.at(i).colour, false));
    p.drawImage(QPointF(40, 40), figures());
    return screen.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

bool ThemePainter::paintAll() {
    QDir().mkpath(m_folder);
    bool ok = true;
    ok &= save(startScreen(1024, 685), "Schermen/Startscherm.jpg");
    ok &= save(maintenanceBackground(), "Schermen/Onderhoudsmodule.jpg");

    const struct {
        const char* name;
        QImage image;
    } desktops[] = {
        {"Bureaublad.jpg", meadow(1024, 728)},
        {"Zee.jpg", sea(1024, 728)},
        {"Ruimte.jpg", space(1024, 728)},
        {"Heuvels.jpg", startScreen(1024, 728)},
    };
    for (const auto& d : desktops) {
        ok &= save(d.image, QStringLiteral("Achtergronden/") + QLatin1String(d.name));
        ok &= save(d.image.scaled(128, 91, Qt::IgnoreAspectRatio, Qt::SmoothTransformation),
                   QStringLiteral("Achtergronden/Thumbs/") + QLatin1String(d.name));
    }
    ok &= save(startScreen(1024, 768), "Wallpaper.jpg");

    ok &=
        save(bar(1024, 83, QColor(52, 110, 168), QColor(30, 70, 118)), "Taakbalk/Startscherm.jpg");
    ok &= save(bar(1024, 83, QColor(60, 140, 170), QColor(34, 96, 126)),
               "Taakbalk/Onderhoudsmodule.jpg");
    ok &= save(bar(1024, 40, QColor(52, 110, 168), QColor(30, 70, 118)), "Taakbalk/Bureaublad.jpg");

    ok &= save(figures(), "Poppetjes.jpg");
    const QRectF cloudBox(4, 4, 352, 212);
    QImage cloud(360, 220, QImage::Format_RGB32);
    cloud.fill(Qt::black);
    QImage mask(360, 220, QImage::Format_RGB32);
    mask.fill(Qt::white);
    {
        const QPainterPath shape = cloudPath(cloudBox);
        QPainter m(&mask);
        m.fillPath(shape, Qt::black);
        QPainter c(&cloud);
        c.fillPath(shape, Qt::white);
        c.setRenderHint(QPainter::Antialiasing);
        c.setClipPath(shape);
        c.setPen(QPen(QColor(120, 180, 230), 8));
        c.drawPath(shape);
        QLinearGradient shade(0, 0, 0, 220);
        shade.setColorAt(0, QColor(255, 255, 255, 0));
        shade.setColorAt(1, QColor(200, 225, 250, 120));
        c.fillPath(shape, shade);
    }
    ok &= save(cloud, "Wolk.bmp");
    ok &= save(mask, "Wolk mask.bmp");

    const auto& colours = buttonColours();
    for (int i = 0; i < colours.size(); ++i) {
        ok &= save(classButton(colours.at(i).colour, false),
                   QStringLiteral("Knoppen/%1a.jpg").arg(i + 1));
        ok &= save(classButton(colours.at(i).colour, true),
                   QStringLiteral("Knoppen/%1b.jpg").arg(i + 1));
    }

    const QColor barMid(41, 90, 143);
    const struct {
        const char* file;
        const char* glyph;
        QColor colour;
    } barButtons[] = {
        {"Afsluiten", "power", QColor(235, 87, 87)},
        {"Onderhoudsmodule", "gear", QColor(120, 135, 160)},
        {"Opnieuw", "refresh", QColor(76, 175, 80)},
        {"Server", "server", QColor(149, 117, 205)},
        {"Windowsomgeving", "window", QColor(66, 165, 245)},
        {"Afmelden", "door", QColor(255, 152, 0)},
        {"Help", "help", QColor(38, 166, 154)},
        {"Bureaublad", "house", QColor(255, 183, 77)},
        {"Internet", "globe", QColor(41, 182, 246)},
    };
    for (const auto& b : barButtons)
        ok &= save(tile(40, barMid, b.colour, QLatin1String(b.glyph), true),
                   QStringLiteral("Taakbalk/%1.bmp").arg(QLatin1String(b.file)));

    const struct {
        const char* file;
        const char* glyph;
        QColor colour;
    } menu[] = {
        {"Accounts", "people", QColor(66, 133, 244)},
        {"Applicaties", "apps", QColor(52, 168, 83)},
        {"Desktop", "monitor", QColor(255, 145, 0)},
        {"Overzichten", "chart", QColor(171, 71, 188)},
        {"Instellingen", "gear", QColor(96, 125, 139)},
        {"Themas", "palette", QColor(236, 64, 122)},
        {"Management", "wrench", QColor(0, 150, 136)},
    };
    for (const auto& m : menu)
        ok &= save(tile(48, panel, m.colour, QLatin1String(m.glyph), false),
                   QStringLiteral("Onderhoud/%1.bmp").arg(QLatin1String(m.file)));

    const struct {
        const char* file;
        const char* glyph;
        QColor colour;
    } toolbar[] = {
        {"Back", "left", QColor(66, 133, 244)},     {"Next", "right", QColor(66, 133, 244)},
        {"Stop", "stop", QColor(229, 57, 53)},      {"Refresh", "refresh", QColor(67, 160, 71)},
        {"Homepage", "house", QColor(251, 140, 0)}, {"Favorites", "star", QColor(253, 192, 0)},
        {"Print", "print", QColor(94, 109, 130)},
    };
    for (const auto& t : toolbar)
        ok &= save(tile(32, toolbarColour, t.colour, QLatin1String(t.glyph), false),
                   QStringLiteral("Toolbar/%1.bmp").arg(QLatin1String(t.file)));

    ok &= save(preview(400, 300), "Screenshot.jpg");
    ok &= save(preview(120, 90), "Lijstweergave.jpg");
    return ok && writeSettings();
}

bool ThemePainter::writeSettings() {
    QStringList l;
    auto section = [&](const char* name) {
        if (!l.isEmpty())
            l << QString();
        l << QStringLiteral("[%1]").arg(QLatin1String(name));
    };
    auto key = [&](const char* k, const QString& v) {
        l << QLatin1String(k) + QLatin1Char('=') + v;
    };
    auto rgb = [](int r, int g, int b) { return QStringLiteral("%1,%2,%3").arg(r).arg(g).arg(b); };
    const QString white = rgb(255, 255, 255), sunny = rgb(255, 221, 87), ink = rgb(30, 58, 95);

    section("Algemeen");
    key("Naam", "Standaard");
    key("Omschrijving", "Zonnige heuvels met vrolijke kleuren");
    key("Versie", "1.0.0");
    key("Screenshot", "Screenshot.jpg");
    key("Lijstweergave", "Lijstweergave.jpg");
    key("Poppetjes", "Poppetjes.jpg");
    key("Wolk", "Wolk.bmp");
    key("Wolk (mask)", "Wolk mask.bmp");
    key("Icoon achtergrond", "Ja");

    section("Achtergronden");
    key("Startscherm", "Schermen\\Startscherm.jpg");
    key("Onderhoudsmodule", "Schermen\\Onderhoudsmodule.jpg");
    key("Taakbalk - Startscherm", "Taakbalk\\Startscherm.jpg");
    key("Taakbalk - Onderhoudsmodule", "Taakbalk\\Onderhoudsmodule.jpg");
    key("Taakbalk - Bureaublad", "Taakbalk\\Bureaublad.jpg");
    key("Wallpaper", "Wallpaper.jpg");

    section("Kleuren");
    key("Laden", ink);
    key("Laadbalk rand", ink);
    key("Laadbalk status", white);
    key("Laadbalk streep", rgb(76, 175, 80));
    key("Koptekst", ink);
    key("Aanmeldentekst", ink);
    key("Laadbalk wachten streep", rgb(76, 175, 80));
    key("Laadbalk wachten rand", ink);
    key("Bureaublad kop", ink);
    key("Bureaublad Icoon Achtergrond Hover", rgb(255, 236, 160));
    key("Bureaublad Icoon Achtergrond Normaal", white);
    key("Bureaublad Icoon Tekst", ink);
    key("Bureaublad Icoon Schaduw", rgb(210, 225, 240));
    key("Onderhoudsmodule Menu help", rgb(70, 90, 120));
    key("Onderhoudsmodule Laden", ink);
    key("Onderhoudsmodule Menu", ink);
    key("Onderhoudsmodule Menu sub", rgb(70, 90, 120));
    key("Onderhoudsmodule Menu hover", rgb(230, 120, 20));
    key("Onderhoudsmodule Menu geselecteerd", rgb(40, 108, 170));
    key("Onderhoudsmodule Menu lijn", rgb(200, 212, 226));
    key("Taakbalk accounts achtergrond", rgb(41, 90, 143));
    key("Taakbalk accounts tekst", white);
    key("Taakbalk accounts tekst geselecteerd", sunny);
    key("Achtergrond taakbalk - Startscherm", rgb(41, 90, 143));
    key("Achtergrond taakbalk - Onderhoudsmodule", rgb(47, 118, 148));
    key("Achtergrond taakbalk - Bureaublad", rgb(41, 90, 143));
    key("Taakbalk taken tekst", white);
    key("Taakbalk taken tekst hover", ink);
    key("Taakbalk taken hover", rgb(190, 225, 255));
    key("Taakbalk taken rand", rgb(120, 170, 220));
    key("Taakbalk taken geselecteerd", rgb(255, 221, 87));
    key("Taakbalk taken tekst geselecteerd", ink);

    section("Positie");
    key("Aanmelden", "362,250");
    key("Laden normaal", "312,560");
    key("Laden fout", "312,560");
    key("Laden update", "312,560");
    key("Laden tekst", "512,535");
    key("Bureaublad kop", "20,12");
    key("Onderhoudsmodule Menu help", "16,600");
    key("Onderhoudsmodule Laden tekst", "632,640");

    section("Ballon");
    key("Startscherm", "40,24");
    key("Startscherm weergeven", "Ja");
    key("Bureaublad", "640,40");
    key("Bureaublad weergeven", "Ja");

    section("Taakbalk");
    key("Afsluiten", "Taakbalk\\Afsluiten.bmp");
    key("Onderhoudsmodule", "Taakbalk\\Onderhoudsmodule.bmp");
    key("Opnieuw verbinding maken", "Taakbalk\\Opnieuw.bmp");
    key("Serverlocatie wijzigen", "Taakbalk\\Server.bmp");
    key("Windowsomgeving", "Taakbalk\\Windowsomgeving.bmp");
    key("Afmelden", "Taakbalk\\Afmelden.bmp");
    key("Help", "Taakbalk\\Help.bmp");
    key("Bureaublad", "Taakbalk\\Bureaublad.bmp");
    key("Internet", "Taakbalk\\Internet.bmp");

    const struct {
        const char* name;
        QStringList words;
    } bars[] = {
        {"Kleuren - Taakbalk - Startscherm",
         {"Help", "Afmelden", "Uitschakelen", "Groeperen", "Opnieuw verbinden", "Serverlocatie"}},
        {"Kleuren - Taakbalk - Onderhoudsmodule",
         {"Help", "Afmelden", "Uitschakelen", "Bureaublad", "Windows"}},
        {"Kleuren - Taakbalk - Bureaublad", {"Afmelden", "Help"}},
    };
    for (const auto& b : bars) {
        section(b.name);
        key("Tekst", white);
        key("Hover", sunny);
        for (const QString& word : b.words) {
            l << word + QStringLiteral(" tekst=") + white;
            l << word + QStringLiteral(" hover=") + sunny;
        }
    }

    section("Onderhoudsmodule");
    key("Accounts beheren", "Onderhoud\\Accounts.bmp");
    key("Applicaties beheren", "Onderhoud\\Applicaties.bmp");
    key("Desktop beheren", "Onderhoud\\Desktop.bmp");
    key("Overzichten", "Onderhoud\\Overzichten.bmp");
    key("Instellingen", "Onderhoud\\Instellingen.bmp");
    key("Thema's", "Onderhoud\\Themas.bmp");
    key("Management tools", "Onderhoud\\Management.bmp");

    section("Desktop - Internet Toolbar");
    for (const char* k : {"Back", "Next", "Stop", "Refresh", "Homepage", "Favorites", "Print"})
        key(k, QStringLiteral("Toolbar\\%1.bmp").arg(QLatin1String(k)));

    section("Knoppen");
    const auto& colours = buttonColours();
    for (int i = 0; i < colours.size(); ++i)
        l << QStringLiteral("%1=%2").arg(i + 1).arg(QLatin1String(colours.at(i).name));

    QFile file(m_folder + QStringLiteral("/Instellingen.ini"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        std::fprintf(stderr, "tk_themamaker: cannot write %s\n", qPrintable(file.fileName()));
        return false;
    }
    file.write(l.join(QStringLiteral("\r\n")).toLatin1() + "\r\n");
    return file.error() == QFileDevice::NoError;
}
