#pragma once

#include "screens/common/PaintedControls.h"

#include <QWidget>

namespace tk {

class FrmTaakbalk2;
struct Ondergrond;

// The desktop's taskbar on the screen: a borderless bar window along the bottom of the screen,
// marked as a dock for the window manager, above all other windows and never taking the focus
// from the program in front. Paints the model's fixed buttons and task buttons from the theme and
// forwards the mouse.
class FrmTaakbalk2View : public QWidget, public PaintedControls {
    Q_OBJECT
public:
    explicit FrmTaakbalk2View(FrmTaakbalk2& model, QWidget* ouder = nullptr);
    ~FrmTaakbalk2View() override;
    // Marks the window, loads the bar for the screen it stands on and shows it.
    void openen();
    // Stops the bar and hides the window.
    void sluiten();

    // PaintedControls: the task buttons and the fixed buttons.
    QList<PaintedControl> maakGeschilderd() const override;
    void druk(const PaintedControl& control) override;

protected:
    void paintEvent(QPaintEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void leaveEvent(QEvent*) override;

private:
    void tekenTaken(QPainter& painter, const Ondergrond& balk);
    FrmTaakbalk2& m;
    int m_focusGemeld = -1;
};

} // namespace tk
