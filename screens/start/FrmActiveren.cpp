#include "FrmActiveren.h"

#include "core/DialogService.h"
#include "core/FrmInitialiseren.h"
#include "core/ModMain.h"
#include "core/OpstartStappen.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "link/ModInternet.h"
#include "link/ModMainVerbinding.h"
#include "platform/Environment.h"

namespace tk {

FrmActiveren::FrmActiveren(Programma& p, ModMainSessie& sessie) : frmActiveren2(p, sessie), p(p) {
    tmrFirewall.setInterval(5000);
    QObject::connect(&tmrFirewall, &QTimer::timeout, [this] { tmrFirewall_Timer(); });
}

void FrmActiveren::LaadTaal() {
    auto t = [&](int id) { return p.modTaal.LaadTekst(id); };
    Caption = t(400);
    lblJa = t(401);
    lblNee = t(402);
    optRegister.lblTekst = t(404);
    optRegister.lblUitleg = t(405);
    optResolutie.lblTekst = t(406);
    optResolutie.lblUitleg = t(407);
    optFirewall.lblTekst = t(408);
    optFirewall.lblUitleg = t(409);
    cmdFirewallCaption = t(410);
    cmdActiverenCaption = t(411);
    cmdSluitenCaption = t(412);
    cmdServerlocatieCaption = t(421);
}

void FrmActiveren::gewijzigd() {
    if (onChanged)
        onChanged();
}

static FrmActiveren::Keuze keuze(bool ja) {
    return ja ? FrmActiveren::Keuze::Ja : FrmActiveren::Keuze::Nee;
}

bool FrmActiveren::Openen(bool rechten, bool resolutie, bool shellIngesteld,
                          FrmInitialiseren* voortgang) {
    return Procedure(p, "frmActiveren.Openen", false, [&] {
        ModMain& m = p.modMain;
        LaadTaal();
        Klaar = false;
        Antwoord = false;
        optRegister.opt = keuze(rechten);
        optResolutie.opt = keuze(resolutie);
        if (shellIngesteld && rechten)
            return true;
        const qint64 pauze = m.StilActiveren ? 100 : 500;
        if (!shellIngesteld) {
            firewallTest(false);
            tmrFirewall.start();
            // The rows of the progress window that the take-over checks.
            const bool firewall = optFirewall.opt == Keuze::Ja;
            bool internet = false;
            if (voortgang) {
                voortgang->Instelling(3, firewall);
                m.Wacht(pauze);
                internet = ModInternet(p).ControleerInternet(2);
                voortgang->Instelling(4, internet);
                m.Wacht(pauze);
            }
            if (m.ModusStandalone && firewall && internet)
                p.opstartStappen->ControleerUpdate(false);
            if (voortgang)
                voortgang->Instelling(5, true);
        }
        m.Wacht(m.StilActiveren ? 500 : 1000);
        if (m.StilActiveren)
            cmdActiveren_Click();
        else if (p.dialogen)
            p.dialogen->toonModaal(*this);
        else
            cmdSluiten_Click();
        tmrFirewall.stop();
        return Antwoord;
    });
}

void FrmActiveren::firewallTest(bool kiesLocatie) {
    const bool gelukt = p.modMainVerbinding && p.modMainVerbinding->TestServerlocatie(kiesLocatie);
    optFirewall.opt = keuze(gelukt);
    gewijzigd();
}

void FrmActiveren::tmrFirewall_Timer() {
    cmdFirewallEnabled = optFirewall.opt == Keuze::Nee;
    cmdServerlocatieEnabled = true;
    tmrFirewall.stop();
    gewijzigd();
}

void FrmActiveren::weiger(int tekst) {
    p.modMain.ToonVraag(p.modTaal.LaadTekst(3), p.modTaal.LaadTekst(tekst), QStringLiteral("-"));
    cmdActiverenEnabled = true;
    cmdSluitenEnabled = true;
    gewijzigd();
}

void FrmActiveren::cmdActiveren_Click() {
    Procedure(p, "frmActiveren.cmdActiveren_Click", [&] {
        ModMain& m = p.modMain;
        cmdActiverenEnabled = false;
        cmdSluitenEnabled = false;
        gewijzigd();
        if (optRegister.opt == Keuze::Nee)
            return weiger(415);
        if (optFirewall.opt == Keuze::Nee)
            return weiger(m.ModusNetwerk ? 416 : 417);
        if (optResolutie.opt == Keuze::Nee)
            return weiger(418);
        if (m.ModusStandalone &&
            p.platform.environment().variable(QStringLiteral("USERNAME")).toUpper() ==
                u"TAFELKRATER")
            return weiger(419);
        Antwoord = frmActiveren2.Openen();
        Klaar = true;
        gewijzigd();
    });
}

void FrmActiveren::cmdSluiten_Click() {
    Antwoord = false;
    Klaar = true;
    tmrFirewall.stop();
    gewijzigd();
}

void FrmActiveren::cmdFirewall_Click() {
    Procedure(p, "frmActiveren.cmdFirewall_Click", [&] {
        cmdFirewallEnabled = false;
        gewijzigd();
        firewallTest(false);
        cmdFirewallEnabled = optFirewall.opt == Keuze::Nee;
        gewijzigd();
    });
}

void FrmActiveren::cmdServerlocatie_Click() {
    Procedure(p, "frmActiveren.cmdServerlocatie_Click", [&] {
        firewallTest(true);
        cmdFirewallEnabled = optFirewall.opt == Keuze::Nee;
        gewijzigd();
    });
}

} // namespace tk
