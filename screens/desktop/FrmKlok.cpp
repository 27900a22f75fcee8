#include "FrmKlok.h"

#include "core/Procedure.h"
#include "core/Programma.h"
#include "platform/Clock.h"
#include "platform/Windows.h"

#include <QPainter>
#include <QtMath>

namespace tk {

namespace {
constexpr double Pi = 3.141592654;
constexpr double HalfPi = 1.570796327;
// The hands' lengths in face units.
constexpr double Uurlengte = 27, Minuutlengte = 40, Secondelengte = 44;
} // namespace

FrmKlok::FrmKlok(Programma& p) : p(p) {
    m_timer1.setInterval(1000);
    connect(&m_timer1, &QTimer::timeout, this, [this] { Timer1_Timer(); });
}

double FrmKlok::hoek(double i) {
    return i * 2 * Pi / 60 - HalfPi;
}

QLineF FrmKlok::Minuutstreep(int i) {
    const double a = hoek(i);
    const double binnen = Straal - (DikkeStreep(i) ? 4 : 3);
    return QLineF(Midden + binnen * qCos(a), Midden + binnen * qSin(a), Midden + Straal * qCos(a),
                  Midden + Straal * qSin(a));
}

QPointF FrmKlok::Wijzerpunt(double waarde, double lengte) {
    const double a = hoek(waarde);
    return QPointF(Midden + lengte * qCos(a), Midden + lengte * qSin(a));
}

QPointF FrmKlok::naarVenster(QPointF punt) {
    const double half = Zijde / 2.0;
    return punt - QPointF(Midden - half, Midden - half);
}

void FrmKlok::Form_Load() {
    Procedure(p, "frmKlok.Form_Load", [&] {
        picKlok = QImage(Zijde, Zijde, QImage::Format_RGB32);
        picKlok.fill(Sleutelkleur);
        QPainter g(&picKlok);
        // The dial: no anti-aliasing at its edge, so that the shape is exactly the dial and no
        // half-white pixels stay around it.
        const QPointF m = naarVenster(QPointF(Midden, Midden));
        const double r = Straal + Rand - 1;
        g.setPen(QPen(QColor(41, 90, 143), 2));
        g.setBrush(QColor(250, 246, 232));
        g.drawEllipse(m, r, r);
        g.setRenderHint(QPainter::Antialiasing);
        for (int i = 0; i < 60; ++i) {
            const QLineF s = Minuutstreep(i);
            g.setPen(QPen(KleurWijzers, DikkeStreep(i) ? 2.5 : 1.0, Qt::SolidLine, Qt::FlatCap));
            g.drawLine(QLineF(naarVenster(s.p1()), naarVenster(s.p2())));
        }
        g.end();
        Geladen = true;
        // Always on top, once the view gave the window.
        if (hWnd) {
            p.platform.windows().setOnTop(hWnd, true);
            OpTop = true;
        }
        Timer1_Timer();
        m_timer1.start();
    });
}

QImage FrmKlok::Masker() const {
    if (picKlok.isNull())
        return QImage();
    // Set bits mark the window; the key colour is left out.
    QImage masker = picKlok.createMaskFromColor(Sleutelkleur, Qt::MaskOutColor);
    // Index 1 is the set colour of a bitmap: black.
    masker.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
    return masker;
}

void FrmKlok::Timer1_Timer() {
    Procedure(p, "frmKlok.Timer1_Timer", [&] {
        const QDateTime nu = p.platform.clock().now();
        const QTime t = nu.time();
        const QPointF m(Midden, Midden);
        const double minuten = t.minute() + t.second() / 60.0;
        uurwijzer = QLineF(m, Wijzerpunt((t.hour() % 12) * 5 + minuten / 12, Uurlengte));
        minuutwijzer = QLineF(m, Wijzerpunt(minuten, Minuutlengte));
        secondewijzer = QLineF(m, Wijzerpunt(t.second(), Secondelengte));
        lblTijd = t.toString(QStringLiteral("H:mm"));
        lblDatum = nu.date().toString(QStringLiteral("d-M-yyyy"));
        if (onChanged)
            onChanged();
    });
}

void FrmKlok::imgVerslepen_MouseDown(int knop, QPoint globaal) {
    if (knop != 1 || !hWnd)
        return;
    p.platform.windows().startMove(hWnd, globaal);
}

void FrmKlok::Form_Unload() {
    m_timer1.stop();
    Geladen = false;
}

} // namespace tk
