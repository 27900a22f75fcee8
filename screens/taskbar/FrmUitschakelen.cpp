#include "FrmUitschakelen.h"

#include "core/DialogService.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "data/ModData.h"

namespace tk {

QStringList FrmUitschakelen::antwoordWoorden() {
    return {QStringLiteral("afmelden"),     QStringLiteral("opnieuwopstarten"),
            QStringLiteral("uitschakelen"), QStringLiteral("sluiten"),
            QStringLiteral("deactiveren"),  QStringLiteral("aanmelden")};
}

void FrmUitschakelen::LaadTaal() {
    auto t = [&](int id) { return p.modTaal.LaadTekst(id); };
    Caption = t(2400);
    lblKies = t(2401);
    lblAanmelden = t(2402);
    lblGroep = t(2403);
    lblAccount = t(2404);
    cmdOK = t(2410);
    cmdAnnuleren = t(2411);
    optCaptions = {t(2405), t(2406), t(2407), t(2408), t(2409), t(2402)};
    cmbGroep = {t(2414), t(2415), t(2416)};
}

void FrmUitschakelen::cmbGroep_Click(int index) {
    Procedure(p, "frmUitschakelen.cmbGroep_Click", [&] {
        cmbGroepIndex = index;
        cmbGebruiker.clear();
        cmbGebruikerIndex = -1;
        if (!p.modData || index == 0)
            return;
        if (index == 1) {
            const FixedTable& k = p.modData->Klassen;
            for (int i = 0; i < k.rijen() && !k.vrij(i); ++i)
                cmbGebruiker << Gebruiker{k(i, 0), k(i, 6)};
            if (cmbGebruiker.isEmpty())
                cmbGebruiker << Gebruiker{p.modTaal.LaadTekst(2412), QString()};
        } else if (index == 2) {
            const FixedTable& l = p.modData->Leraren;
            for (int i = 0; i < l.rijen() && !l.vrij(i); ++i) {
                QString naam = l(i, 0);
                if (!l(i, 6).isEmpty())
                    naam += QStringLiteral(", ") + l(i, 6);
                cmbGebruiker << Gebruiker{naam, l(i, 5)};
            }
            if (cmbGebruiker.isEmpty())
                cmbGebruiker << Gebruiker{p.modTaal.LaadTekst(2413), QString()};
        }
        if (!cmbGebruiker.isEmpty())
            cmbGebruikerIndex = 0;
    });
}

bool FrmUitschakelen::Controleren() const {
    if (optAntwoord != 5)
        return true;
    if (cmbGroepIndex == 0)
        return true;
    if (cmbGebruikerIndex < 0 || cmbGebruikerIndex >= cmbGebruiker.size())
        return false;
    const QString naam = cmbGebruiker[cmbGebruikerIndex].naam;
    if (naam == p.modTaal.LaadTekst(2412) || naam == p.modTaal.LaadTekst(2413))
        return true;
    return !cmbGebruiker[cmbGebruikerIndex].id.isEmpty();
}

void FrmUitschakelen::cmdOK_Click() {
    if (!Controleren())
        return;
    const QStringList woorden = antwoordWoorden();
    if (optAntwoord < 0 || optAntwoord >= woorden.size()) {
        Antwoord.clear();
        return;
    }
    if (optAntwoord != 5) {
        Antwoord = woorden[optAntwoord];
        return;
    }
    const Gebruiker g = cmbGebruikerIndex >= 0 && cmbGebruikerIndex < cmbGebruiker.size()
                            ? cmbGebruiker[cmbGebruikerIndex]
                            : Gebruiker{};
    Antwoord = QStringLiteral("aanmelden|") + cmbGroep.value(cmbGroepIndex) + QLatin1Char('|') +
               g.naam + QLatin1Char('|') + g.id;
}

void FrmUitschakelen::cmdAnnuleren_Click() {
    Antwoord.clear();
}

QString FrmUitschakelen::Vraag(QString& antwoord) {
    LaadTaal();
    Antwoord.clear();
    optAntwoord = 0;
    cmbGroep_Click(0);
    if (p.dialogen)
        p.dialogen->toonModaal(*this);
    antwoord = Antwoord;
    return Antwoord;
}

} // namespace tk
