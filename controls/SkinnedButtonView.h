#pragma once

#include <QTimer>
#include <QWidget>

namespace tk {

class SkinnedButton;

// Shows a picture-drawn button (Knop2 or Accounts) at its place on the parent: runs its hover
// timer, forwards the mouse, paints its picture and, while the button has the keyboard focus, a
// focus ring. The keys themselves go to the screen, which moves the focus between its buttons.
class SkinnedButtonView : public QWidget {
    Q_OBJECT
public:
    SkinnedButtonView(SkinnedButton& knop, QWidget* ouder);
    SkinnedButton& knop() { return m_knop; }
    const SkinnedButton& knop() const { return m_knop; }
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
    SkinnedButton& m_knop;
    bool m_focusGetekend = false;
};

} // namespace tk
