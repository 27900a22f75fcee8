#pragma once

#include "screens/common/PaintedControls.h"

#include <QWidget>

namespace tk {

class SkinnedButtonView;
class FrmTaakbalk1;

// The start-screen taskbar on the screen: background, fixed buttons, the account buttons.
class FrmTaakbalk1View : public QWidget, public PaintedControls {
    Q_OBJECT
public:
    FrmTaakbalk1View(FrmTaakbalk1& model, QWidget* ouder);
    ~FrmTaakbalk1View() override;
    void bijwerken();

    // PaintedControls: the fixed buttons (the account buttons are widgets).
    QList<PaintedControl> maakGeschilderd() const override;
    void druk(const PaintedControl& control) override;

protected:
    void paintEvent(QPaintEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void leaveEvent(QEvent*) override;

private:
    FrmTaakbalk1& m;
    SkinnedButtonView* m_accounts[3];
    int m_focusGemeld = -1;
};

} // namespace tk
