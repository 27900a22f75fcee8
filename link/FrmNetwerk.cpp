#include "FrmNetwerk.h"

#include "core/DialogService.h"
#include "core/Programma.h"
#include "link/FrmMainLink.h"
#include "link/Serverlocatie.h"

namespace tk {

void FrmNetwerk::LaadTaal() {
    auto t = [&](int id) { return p.modTaal.LaadTekst(id); };
    Caption = t(1700);
    lblUitleg = t(1701);
    lblNaam = t(1702);
    cmdOK = t(1703);
    cmdAnnuleren = t(1704);
    wortelNode = t(1705);
    lblBezig = t(1706);
}

QString FrmNetwerk::Computernaam() {
    LaadTaal();
    QString tekst;
    if (p.frmMain) {
        tekst = p.frmMain->ServerHost;
        const long poort = p.frmMain->ServerPoort;
        if (poort != Serverlocatie::StandaardPoort && poort >= 1)
            tekst += QLatin1Char(':') + QString::number(poort);
    }
    txtNaam_Change(tekst);
    Antwoord.clear();
    if (p.dialogen)
        p.dialogen->toonModaal(*this);
    return Antwoord;
}

void FrmNetwerk::txtNaam_Change(const QString& tekst) {
    txtNaam = tekst;
    cmdOKEnabled = !txtNaam.isEmpty();
}

void FrmNetwerk::tvwNetwork_NodeClick(const QString& naam) {
    if (naam.startsWith(QStringLiteral("\\\\")))
        txtNaam_Change(naam.mid(2));
}

void FrmNetwerk::cmdOK_Click() {
    if (cmdOKEnabled)
        Antwoord = txtNaam;
}

void FrmNetwerk::cmdAnnuleren_Click() {
    Antwoord.clear();
}

} // namespace tk
