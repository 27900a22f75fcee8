#include "FrmInitialiseren.h"

#include "core/Fout.h"
#include "core/Programma.h"

namespace tk {

void FrmInitialiseren::LaadTaal() {
    auto t = [&](int id) { return p.modTaal.LaadTekst(id); };
    Caption = t(100);
    lblInfo = t(101);
    if (lblItem.isEmpty())
        lblItem.resize(6);
    if (lblSubItem.isEmpty())
        lblSubItem.resize(2);
    for (int i = 0; i < 6; ++i)
        lblItem[i].tekst = t(102 + i);
    lblSubItem[0].tekst = t(108);
    lblSubItem[1].tekst = t(109);
}

void FrmInitialiseren::Instelling(int rij, bool geslaagd, bool subrij) {
    if (lblItem.isEmpty())
        LaadTaal();
    QList<Rij>& rijen = subrij ? lblSubItem : lblItem;
    controleerIndex(rij, rijen.size());
    rijen[rij].zichtbaar = true;
    rijen[rij].lblCheck = geslaagd ? QStringLiteral("a") : QStringLiteral("r");
    if (onChanged)
        onChanged();
}

void FrmInitialiseren::Tonen() {
    Zichtbaar = true;
    if (onChanged)
        onChanged();
}

void FrmInitialiseren::Verbergen() {
    Zichtbaar = false;
    if (onChanged)
        onChanged();
}

} // namespace tk
