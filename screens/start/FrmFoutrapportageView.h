#pragma once

#include "screens/common/DialogFrame.h"

namespace tk {

class FrmFoutrapportage;

// The fault report window: the explanation, a frame with the report's eight lines (the
// description over as many rows as it has), the box "Ignore error next time" and the buttons
// to send the report or not. Closing the window counts as not sending: the report is stored.
class FrmFoutrapportageView : public DialogFrame {
    Q_OBJECT
public:
    explicit FrmFoutrapportageView(FrmFoutrapportage& model, QWidget* ouder = nullptr);

    static constexpr int Breedte = 540;
    // Where the data lines stand: captions left of `waardeLinks`, values right of it.
    static constexpr int waardeLinks = 190;
    QRect kader() const { return m_kader; }
    QRect regelVak(int i) const { return m_regels.value(i); }

protected:
    void bijwerken() override;
    void tekenInhoud(QPainter& p) override;
    void voegTekstenToe(QList<PaintedControl>& lijst) const override;
    void annuleren() override;

private:
    QStringList waarden() const;
    FrmFoutrapportage& m;
    QRect m_uitleg, m_kader;
    QList<QRect> m_regels;
    int m_onder = 0;
};

} // namespace tk
