#pragma once

#include "screens/start/FrmMainCanvas.h"

#include <QWidget>

namespace tk {

class FrmMain;

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
