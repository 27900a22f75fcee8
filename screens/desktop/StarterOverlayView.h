#pragma once

#include <QWidget>

class QPushButton;

namespace tk {

class FrmBureaubladStarter;

// The launcher's overlay on the desktop's window while a program starts and runs: picDisable
// (the screen as it was captured, under grey), lblDisable and the button cmdShellWait. The
// desktop's view makes it a child of itself; it follows the launcher's state on its own, shows
// itself over its parent while the overlay stands and hides itself after.
class StarterOverlayView : public QWidget {
    Q_OBJECT
public:
    StarterOverlayView(FrmBureaubladStarter& model, QWidget* ouder);
    // Takes the model's state: visibility, places, texts.
    void bijwerken();
    QPushButton* cmdShellWait() const { return m_cmdShellWait; }

    // The grey of picDisable, and how much of it lies over the captured screen.
    static constexpr QRgb Grijs = 0xFF404040;
    static constexpr int Dekking = 170;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    FrmBureaubladStarter& m;
    QPushButton* m_cmdShellWait;
};

} // namespace tk
