#pragma once

#include "screens/common/KeyboardView.h"
#include "screens/start/FrmMainCanvas.h"

namespace tk {

class FrmMain;

// frmMain on the screen: the canvas unscaled and centred on a black window of any size; Shift
// held sets ShiftIngedrukt (start without the cache), for as long as it is held.
class FrmMainView : public KeyboardView {
    Q_OBJECT
public:
    explicit FrmMainView(FrmMain& model, QWidget* ouder = nullptr);
    // The model outlives its view: its redraw hook is let go with the view.
    ~FrmMainView() override;
    FrmMainCanvas* canvas() { return m_canvas; }

protected:
    void resizeEvent(QResizeEvent*) override;
    void paintEvent(QPaintEvent*) override;
    bool toets(int toets, bool shift) override;
    void keyReleaseEvent(QKeyEvent* e) override;
    void focusOutEvent(QFocusEvent* e) override;

private:
    FrmMain& m;
    FrmMainCanvas* m_canvas;
};

} // namespace tk
