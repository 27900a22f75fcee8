#pragma once

#include "screens/common/DialogFrame.h"

namespace tk {

class FrmVersie;

// The first-run window that asks for the workstation's mode: three option buttons, of which
// those the machine cannot be are greyed, OK and Close.
class FrmVersieView : public DialogFrame {
    Q_OBJECT
public:
    explicit FrmVersieView(FrmVersie& model, QWidget* ouder = nullptr);

    static constexpr int Breedte = 380;
    static QRect optieVak(int i) { return QRect(30, 44 + i * 24, Breedte - 60, 22); }

protected:
    void bijwerken() override;
    void tekenInhoud(QPainter& p) override;
    void annuleren() override;

private:
    FrmVersie& m;
};

} // namespace tk
