#pragma once

#include "screens/common/DialogFrame.h"

class QLineEdit;

namespace tk {

class FrmVraag;

// The question window on the screen: the icon, the question, the text box (masked for a
// password) or the option buttons, and OK / Cancel or Yes / No.
class FrmVraagView : public DialogFrame {
    Q_OBJECT
public:
    explicit FrmVraagView(FrmVraag& model, QWidget* ouder = nullptr);
    QLineEdit* tekstvak() const { return m_tekst; }

protected:
    void bijwerken() override;
    void tekenInhoud(QPainter& p) override;
    void voegTekstenToe(QList<PaintedControl>& lijst) const override;
    void annuleren() override;
    bool klaar() const override;
    void keyPressEvent(QKeyEvent*) override;

private:
    FrmVraag& m;
    QLineEdit* m_tekst;
};

} // namespace tk
