#pragma once

#include "screens/common/Laadbalk.h"

#include <QColor>
#include <QFont>
#include <QStringList>
#include <QTimer>
#include <functional>

namespace tk {

class Programma;

// The wait window of the maintenance module's saves and deletes: a text of one or more lines
// centred over a loading bar. With a maximum the bar follows Waarde; without one the block
// bounces on tmrLaden. FrmWachtenView paints it.
class FrmWachten {
public:
    explicit FrmWachten(Programma& p);

    void Openen(const QString& tekst, int maximum);
    void Waarde(int waarde);
    void Sluiten();
    // Paints the bar as frmMain.TijdLadenEx does: `huidig` of `totaal`, and a text under it.
    void Wachten(int totaal, int huidig, const QString& tekst);
    // The bar's colours: "Laadbalk wachten streep" and "... rand", with their fall-backs.
    void LaadThema();
    void tmrLaden_Timer();
    bool tmrLadenActief() const { return m_tmrLaden.isActive(); }

    static constexpr int MinBreedte = 400;
    static constexpr int Marge = 20;

    // The layout the view paints, set by Openen.
    int Breedte = MinBreedte;
    int Hoogte = 100;
    QStringList regels; // the text, line by line, each centred
    int regelHoogte = 16;
    int regelsBoven = Marge; // top of the first line
    Laadbalk picLaden;
    int Maximum = 0;
    bool Zichtbaar = false;

    QColor KleurStreep{10, 112, 0}, KleurRand{10, 112, 0}, KleurStatus{255, 255, 255};
    QColor KleurTekst{0, 0, 0};
    QFont tekstFont;

    std::function<void()> onChanged;

private:
    void hertekenen();
    int hoogteVoor(const QString& tekstOnderBalk) const;
    Programma& p;
    QTimer m_tmrLaden;
};

} // namespace tk
