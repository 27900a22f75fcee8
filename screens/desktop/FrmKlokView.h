#pragma once

#include <QWidget>

namespace tk {

class FrmKlok;

// frmKlok on the screen: a borderless, always-on-top window cut to the shape of the dial. A
// press anywhere on the dial (imgVerslepen) lets the window manager move the window.
class FrmKlokView : public QWidget {
    Q_OBJECT
public:
    explicit FrmKlokView(FrmKlok& model, QWidget* ouder = nullptr);
    // The model outlives its view: its redraw hook is let go with the view.
    ~FrmKlokView() override;
    // Gives the model the window, loads the face, cuts the window to it and shows it.
    void openen();

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent*) override;

private:
    FrmKlok& m;
};

} // namespace tk
