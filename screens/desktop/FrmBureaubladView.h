#pragma once

#include "screens/common/KeyboardView.h"
#include "screens/desktop/FrmBureaubladCanvas.h"

namespace tk {

class FrmBureaublad;

// frmBureaublad on the screen: the canvas unscaled and centred on a black window of any size.
class FrmBureaubladView : public KeyboardView {
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
    bool toets(int toets, bool shift) override;

private:
    FrmBureaublad& m;
    FrmBureaubladCanvas* m_canvas;
};

} // namespace tk
