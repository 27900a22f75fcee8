#pragma once

#include "screens/common/PaintedControls.h"

#include <QWidget>

class QComboBox;
class QLineEdit;
class QPainter;
class QPushButton;

namespace tk {

class FrmBureaublad;
class StarterOverlayView;

// The desktop's 1024 by 768 canvas: background, header, icons with their names, the internet
// icon, the cloud, the teacher panel, the tooltip and the launcher's overlay. The mouse goes to
// the model's Form_MouseMove and Form_MouseUp.
class FrmBureaubladCanvas : public QWidget, public PaintedControls {
    Q_OBJECT
public:
    FrmBureaubladCanvas(FrmBureaublad& model, QWidget* ouder);
    // Brings the panel's controls in line with the model and paints anew.
    void bijwerken();

    // PaintedControls: the items, the header, the cloud.
    QList<PaintedControl> maakGeschilderd() const override;
    void druk(const PaintedControl& control) override;

protected:
    void paintEvent(QPaintEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void leaveEvent(QEvent*) override;

private:
    void tekenIconen(QPainter& g);
    void tekenAanmelden(QPainter& g);
    void tekenTooltip(QPainter& g);
    void tekenWolk(QPainter& g);
    FrmBureaublad& m;
    QComboBox* m_leraren;
    QLineEdit* m_wachtwoord;
    QPushButton* m_aanmelden;
    StarterOverlayView* m_overlay;
    int m_focusGemeld = -1;
};

// frmBureaublad on the screen: the canvas unscaled and centred on a black window of any size.
class FrmBureaubladView : public QWidget {
    Q_OBJECT
public:
    explicit FrmBureaubladView(FrmBureaublad& model, QWidget* ouder = nullptr);
    ~FrmBureaubladView() override;
    FrmBureaubladCanvas* canvas() { return m_canvas; }
    // Shows the desktop over the whole screen it stands on, as the screen's desktop window, with
    // the keyboard.
    void openen();

protected:
    void resizeEvent(QResizeEvent*) override;
    void paintEvent(QPaintEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    // Tab and Shift+Tab move the model's focus instead of Qt's.
    bool event(QEvent*) override;

private:
    FrmBureaublad& m;
    FrmBureaubladCanvas* m_canvas;
};

} // namespace tk
