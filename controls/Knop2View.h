#pragma once

#include <QTimer>
#include <QWidget>

namespace tk {

class Knop2;

// Shows a Knop2 at its place on the parent, runs its hover timer and forwards the mouse.
class Knop2View : public QWidget {
    Q_OBJECT
public:
    Knop2View(Knop2& knop, QWidget* ouder);
    Knop2& knop() { return m_knop; }
    // Takes the model's size, place, tooltip and visibility and paints it anew.
    void bijwerken();
    QTimer tmrHover;

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseDoubleClickEvent(QMouseEvent*) override;

private:
    Knop2& m_knop;
};

} // namespace tk
