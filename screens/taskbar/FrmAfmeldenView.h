#pragma once

#include <QWidget>

namespace tk {

class FrmAfmelden;

// The log-off window on the screen: small, in the middle, on top, while the model is shown.
class FrmAfmeldenView : public QWidget {
    Q_OBJECT
public:
    explicit FrmAfmeldenView(FrmAfmelden& model, QWidget* ouder = nullptr);
    ~FrmAfmeldenView() override;
    void bijwerken();

protected:
    void paintEvent(QPaintEvent*) override;

private:
    FrmAfmelden& m;
};

} // namespace tk
