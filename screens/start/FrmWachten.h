#pragma once

#include "screens/common/LoadingBarWindow.h"

#include <QFont>
#include <QStringList>

namespace tk {

// The wait window of the maintenance module's saves and deletes: a text of one or more lines
// centred over a loading bar. With a maximum the bar follows Waarde; without one the block
// bounces on tmrLaden. FrmWachtenView paints it.
class FrmWachten : public LoadingBarWindow {
public:
    explicit FrmWachten(Programma& p);

    void Openen(const QString& tekst, int maximum);
    void Waarde(int waarde);
    // Paints the bar as frmMain.TijdLadenEx does: `huidig` of `totaal`, and a text under it.
    void Wachten(int totaal, int huidig, const QString& tekst);
    // The bar's colours: "Laadbalk wachten streep" and "... rand", with their fall-backs.
    void LaadThema();

    static constexpr int MinBreedte = 400;
    static constexpr int Marge = 20;

    // The layout the view paints, set by Openen.
    int Breedte = MinBreedte;
    int Hoogte = 100;
    QStringList regels; // the text, line by line, each centred
    int regelHoogte = 16;
    int regelsBoven = Marge; // top of the first line
    int Maximum = 0;

    QColor KleurTekst{0, 0, 0};
    QFont tekstFont;

private:
    int hoogteVoor(const QString& tekstOnderBalk) const;
};

} // namespace tk
