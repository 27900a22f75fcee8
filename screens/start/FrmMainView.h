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

// frmMain on the screen: the canvas unscaled and centred on a black window of any size; Shift
// held sets ShiftIngedrukt (start without the cache).
class FrmMainView : public QWidget {
    Q_OBJECT
public:
    explicit FrmMainView(FrmMain& model, QWidget* ouder = nullptr);
    // The model outlives its view: its redraw hook is let go with the view.
    ~FrmMainView() override;
    FrmMainCanvas* canvas() { return m_canvas; }

protected:
    void resizeEvent(QResizeEvent*) override;
    void paintEvent(QPaintEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    // Tab and Shift+Tab move the model's focus instead of Qt's.
    bool event(QEvent*) override;

private:
    FrmMain& m;
    FrmMainCanvas* m_canvas;
};

} // namespace tk
