#pragma once

#include <QWidget>

class QPushButton;

namespace tk {

class FrmWindows;

// The drifting window over the system's desktop: the product's name and the two buttons, real
// push buttons, so that the keyboard and a screen reader reach them as any other. It stands on
// top, follows the model's place, and is shown while the model is.
class FrmWindowsView : public QWidget {
    Q_OBJECT
public:
    explicit FrmWindowsView(FrmWindows& model, QWidget* ouder = nullptr);
    ~FrmWindowsView() override;
    void bijwerken();
    QPushButton* knop(int index) const { return m_knop[index]; }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    FrmWindows& m;
    QPushButton* m_knop[2];
};

} // namespace tk
