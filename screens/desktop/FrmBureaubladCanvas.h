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

} // namespace tk
