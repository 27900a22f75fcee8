#pragma once

#include "screens/common/DialogFrame.h"

class QLineEdit;

namespace tk {

class FrmNetwerk;

// The window in which the user names the server: the explanation, the box for "host" or
// "host:port", OK (only with text) and Cancel. The network neighbourhood is not browsed here.
class FrmNetwerkView : public DialogFrame {
    Q_OBJECT
public:
    explicit FrmNetwerkView(FrmNetwerk& model, QWidget* ouder = nullptr);
    QLineEdit* tekstvak() const { return m_naam; }

    static constexpr int Breedte = 440;

protected:
    void bijwerken() override;
    void tekenInhoud(QPainter& p) override;
    void voegTekstenToe(QList<PaintedControl>& lijst) const override;
    void annuleren() override;

private:
    FrmNetwerk& m;
    QLineEdit* m_naam;
    QRect m_uitleg, m_label;
    int m_knoppenBoven = 0;
};

} // namespace tk
