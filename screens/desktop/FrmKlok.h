#pragma once

#include <QColor>
#include <QImage>
#include <QLineF>
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QString>
#include <QTime>
#include <QTimer>
#include <functional>

namespace tk {

class Programma;

// The small analogue clock that floats on the desktop: a borderless window in the shape of its
// face, always on top, dragged by imgVerslepen. The face is drawn once (Form_Load); Timer1 moves
// the hands and writes the time and date. Positions are in the face's own units: the minute
// marks lie on a circle of radius 50 around the centre (188, 188), and the window shows the
// square of the dial around that centre (naarVenster maps a face point to the window).
class FrmKlok : public QObject {
    Q_OBJECT
public:
    explicit FrmKlok(Programma& p);

    static constexpr double Midden = 188;
    static constexpr double Straal = 50;
    // The dial reaches this far beyond the marks; the window is the dial's square.
    static constexpr int Rand = 8;
    static constexpr int Zijde = int(2 * (Straal + Rand));
    // The key colour of the window's shape: this white is left out of the window.
    static constexpr QRgb Sleutelkleur = 0xFFFFFFFF;

    // The angle of minute mark (or minute value) i: i * 2 * pi / 60 - pi / 2, so that 0 points
    // up and the angles run clockwise on a screen.
    static double hoek(double i);
    // Minute mark i from its inner end to the circle: 4 units long for the thick marks (every
    // fifth), 3 for the thin ones.
    static QLineF Minuutstreep(int i);
    static bool DikkeStreep(int i) { return i % 5 == 0; }
    // The end of a hand of `lengte` pointing at minute value `waarde` (0 to 60).
    static QPointF Wijzerpunt(double waarde, double lengte);
    // A point of the face in the window's pixels.
    static QPointF naarVenster(QPointF punt);

    void Form_Load();
    void Timer1_Timer();
    // A press on imgVerslepen with the left button starts a drag of the window.
    void imgVerslepen_MouseDown(int knop, QPoint globaal);
    void Form_Unload();

    // The face as Form_Load drew it: the dial on the key colour, in window pixels.
    QImage picKlok;
    // The window's shape: set where the face is not the key colour.
    QImage Masker() const;
    // The hands as Timer1 computed them, in face units.
    QLineF uurwijzer, minuutwijzer, secondewijzer;
    QString lblTijd;  // "h:nn"
    QString lblDatum; // "d-m-yyyy"
    // The window's handle, set by the view before the window is shown.
    quint64 hWnd = 0;
    bool OpTop = false;
    bool Geladen = false;

    QColor KleurWijzers{30, 58, 95};
    QColor KleurSeconde{220, 60, 50};

    std::function<void()> onChanged;

private:
    Programma& p;
    QTimer m_timer1;
};

} // namespace tk
