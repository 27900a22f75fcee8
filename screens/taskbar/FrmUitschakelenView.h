#pragma once

#include "screens/common/DialogFrame.h"

class QComboBox;

namespace tk {

class FrmUitschakelen;

// The close options on the screen: an option button per answer, the last one "Login as:" with
// the group and the user to log on as, OK (only when the choice holds) and Cancel.
class FrmUitschakelenView : public DialogFrame {
    Q_OBJECT
public:
    explicit FrmUitschakelenView(FrmUitschakelen& model, QWidget* ouder = nullptr);

    static constexpr int Breedte = 400;
    static QRect optieVak(int i) { return QRect(30, 38 + i * 24, Breedte - 60, 22); }
    QComboBox* groepen() const { return m_groep; }
    QComboBox* gebruikers() const { return m_gebruiker; }

protected:
    void bijwerken() override;
    void tekenInhoud(QPainter& p) override;
    void voegTekstenToe(QList<PaintedControl>& lijst) const override;
    void annuleren() override;

private:
    void vulGebruikers();
    FrmUitschakelen& m;
    QComboBox* m_groep;
    QComboBox* m_gebruiker;
    int m_knoppenBoven = 0;
};

} // namespace tk
