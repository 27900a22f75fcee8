#pragma once

#include "screens/desktop/FrmBureaubladCanvas.h"

#include <QWidget>

namespace tk {

class FrmBureaublad;

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
