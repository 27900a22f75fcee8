#pragma once

#include <QWidget>

namespace tk {

class FrmWachten;

// The wait window on the screen: a small framed window in the middle of the screen, on top,
// shown and hidden as the model says.
class FrmWachtenView : public QWidget {
    Q_OBJECT
public:
    explicit FrmWachtenView(FrmWachten& model, QWidget* ouder = nullptr);
    ~FrmWachtenView() override;
    void bijwerken();

protected:
    void paintEvent(QPaintEvent*) override;

private:
    FrmWachten& m;
};

} // namespace tk
