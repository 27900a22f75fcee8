#pragma once

#include "screens/common/DialogFrame.h"

namespace tk {

// A window that tells how far a long step is (the first checks, the take-over): it has no
// buttons, comes up without taking the focus from what the user works in, is shown and hidden
// with its model, and heads its lines in the dialogs' bold caption colour.
class VoortgangVenster : public DialogFrame {
    Q_OBJECT
public:
    explicit VoortgangVenster(QWidget* ouder = nullptr);

    // A bold heading line, left and centred in its height.
    static void tekenKop(QPainter& p, const QRect& vak, const QString& tekst);

protected:
    // Takes the model's caption and shows or hides the window with it.
    void volg(const QString& titel, bool zichtbaar);
    void annuleren() override {}
    bool klaar() const override { return false; }
};

} // namespace tk
