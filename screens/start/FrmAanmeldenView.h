#pragma once

#include <QWidget>

namespace tk {

class FrmAanmelden;

// The logging-in window on the screen: full screen, the 1024 by 768 picture unscaled in its
// middle on black, shown and hidden as the model says.
class FrmAanmeldenView : public QWidget {
    Q_OBJECT
public:
    explicit FrmAanmeldenView(FrmAanmelden& model, QWidget* ouder = nullptr);
    ~FrmAanmeldenView() override;
    void bijwerken();
    // The top-left of the 1024 by 768 picture in the window.
    QPoint canvasPlek() const;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    FrmAanmelden& m;
};

} // namespace tk
