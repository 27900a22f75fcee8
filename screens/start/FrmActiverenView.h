#pragma once

#include "screens/common/DialogFrame.h"

namespace tk {

class FrmActiveren;

// The take-over wizard on the screen: the three rows with their Yes and No buttons (they show
// what was tested and cannot be changed by hand), their explanations, and the four buttons. Tab
// and Shift+Tab walk the live buttons, Space or Enter presses the one with the focus; a screen
// reader sees every row and button by name.
class FrmActiverenView : public DialogFrame {
    Q_OBJECT
public:
    explicit FrmActiverenView(FrmActiveren& model, QWidget* ouder = nullptr);
    ~FrmActiverenView() override;

    static constexpr int Breedte = 520;

protected:
    void bijwerken() override;
    void tekenInhoud(QPainter& p) override;
    void annuleren() override;
    bool klaar() const override;
    QList<PaintedControl> maakGeschilderd() const override;

private:
    FrmActiveren& m;
    int m_hoogte = 0;
};

} // namespace tk
