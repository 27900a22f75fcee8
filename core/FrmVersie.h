#pragma once

#include "core/Form.h"

#include <QString>
#include <QStringList>

namespace tk {

class Programma;

// The first-run window that asks for the workstation's mode: Standalone, Network or
// Local / Management. The answer is not the option's index: 1, 2 and 0, as stored in "Modus".
class FrmVersie : public Form {
public:
    explicit FrmVersie(Programma& p) : p(p) {}
    QString formNaam() const override { return QStringLiteral("frmVersie"); }
    void LaadTaal() override;

    // Fills the captions, disables what this machine cannot be and preselects the first
    // enabled option; then shows the window modally. Returns 1, 2 or 0, or -1 for "Close".
    int Vraag(const QString& windowsNaam);
    void cmdOK_Click() { Antwoord = optWaarde(Gekozen); }
    void cmdSluiten_Click() { Antwoord = -1; }
    static int optWaarde(int optie) { return optie == 0 ? 1 : optie == 1 ? 2 : 0; }

    QString Caption, lblTekst, cmdOK, cmdSluiten;
    QStringList optCaptions;
    bool optEnabled[3] = {true, true, true};
    int Gekozen = 0;
    int Antwoord = -1;

private:
    Programma& p;
};

} // namespace tk
