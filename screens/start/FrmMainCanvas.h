#pragma once

#include "screens/common/PaintedControls.h"

#include <QWidget>
#include <map>

class QLineEdit;
class QPushButton;

namespace tk {

class FrmMain;
class FrmTaakbalk1View;
class Knop2;
class SkinnedButtonView;

// The canvas of the start screen: 1024 by 768, the screen of 685 rows over the taskbar.
class FrmMainCanvas : public QWidget, public PaintedControls {
    Q_OBJECT
public:
    FrmMainCanvas(FrmMain& model, QWidget* ouder);
    // The buttons' clicks reach this canvas: they are let go with it.
    ~FrmMainCanvas() override;
    // Brings the child controls in line with the model and paints anew.
    void bijwerken();
    FrmTaakbalk1View* taakbalk = nullptr;

    // PaintedControls: the texts painted on the canvas (the class buttons are widgets).
    QList<PaintedControl> maakGeschilderd() const override;
    void druk(const PaintedControl&) override {}

protected:
    void paintEvent(QPaintEvent*) override;

private:
    void tekenLaadbalk(class QPainter& p);
    void tekenAanmelden(class QPainter& p);
    FrmMain& m;
    std::map<Knop2*, SkinnedButtonView*> m_knoppen;
    QLineEdit* m_wachtwoord;
    QPushButton* m_aanmelden;
    int m_focusGemeld = -1;
};

} // namespace tk
