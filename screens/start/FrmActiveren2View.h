#pragma once

#include "screens/common/DialogFrame.h"

namespace tk {

class FrmActiveren2;

// The window that asks the user to wait while the take-over is carried out; it stands while the
// model is shown and has no buttons.
class FrmActiveren2View : public DialogFrame {
    Q_OBJECT
public:
    explicit FrmActiveren2View(FrmActiveren2& model, QWidget* ouder = nullptr);
    ~FrmActiveren2View() override;
    void bijwerken() override;

protected:
    void tekenInhoud(QPainter& p) override;
    void annuleren() override {}
    bool klaar() const override { return false; }

private:
    FrmActiveren2& m;
};

} // namespace tk
