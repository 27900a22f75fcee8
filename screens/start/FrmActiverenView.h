#pragma once

#include "screens/common/DialogFrame.h"
#include "screens/common/PaintedControls.h"

namespace tk {

class FrmActiveren;

// The take-over wizard on the screen: the three rows with their Yes and No buttons (they show
// what was tested and cannot be changed by hand), their explanations, and the four buttons. Tab
// and Shift+Tab walk the live buttons, Space or Enter presses the one with the focus; a screen
// reader sees every row and button by name.
class FrmActiverenView : public DialogFrame, public PaintedControls {
    Q_OBJECT
public:
    explicit FrmActiverenView(FrmActiveren& model, QWidget* ouder = nullptr);
    ~FrmActiverenView() override;

    static constexpr int Breedte = 520;
    void druk(const PaintedControl& control) override;
    // The index in `vlakken` of the button with the keyboard focus, or -1.
    int focusVlak() const { return m_focus; }

protected:
    void bijwerken() override;
    void tekenInhoud(QPainter& p) override;
    void annuleren() override;
    bool klaar() const override;
    void keyPressEvent(QKeyEvent*) override;
    void paintEvent(QPaintEvent*) override;
    QList<PaintedControl> maakGeschilderd() const override;

private:
    void volgendeFocus(int stap);
    FrmActiveren& m;
    int m_focus = -1;
    int m_hoogte = 0;
};

} // namespace tk
