#pragma once

#include "screens/common/DialogFrame.h"

namespace tk {

class FrmOnderhoudVraag;

// The window of frmOnderhoudVraag: the question, the countdown, Log off (the one inside only)
// and Cancel. It stands while the model's modal wait runs and goes when the model closes.
class FrmOnderhoudVraagView : public DialogFrame {
    Q_OBJECT
public:
    explicit FrmOnderhoudVraagView(FrmOnderhoudVraag& model, QWidget* ouder = nullptr);
    ~FrmOnderhoudVraagView() override;

    static constexpr int Breedte = 420;

protected:
    void bijwerken() override;
    void tekenInhoud(QPainter& p) override;
    void voegTekstenToe(QList<PaintedControl>& lijst) const override;
    void annuleren() override;
    bool klaar() const override;

private:
    FrmOnderhoudVraag& m;
};

} // namespace tk
