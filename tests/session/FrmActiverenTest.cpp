// The take-over wizard: its tests in their order with the message of the first that fails, the
// firewall test over the wire, the pauses of the silent path, and what the carrying out writes.
#include "screens/start/FrmActiveren.h"

#include "core/FrmInitialiseren.h"
#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "platform/fake/FakeClock.h"
#include "tests/session/SessieWerkplek.h"
#include "tests/support/ScriptedPeer.h"

#include <gtest/gtest.h>

using namespace tk;
using namespace tk::test;

namespace {

using Keuze = FrmActiveren::Keuze;

// Every read of the clock moves it on by this many ms: the five-second silence of a firewall
// test passes in 50 turns of the event loop.
constexpr qint64 stap = 100;

// A workstation with a link whose firewall test reaches a scripted server that answers "FIR"
// (or keeps silent), and a session whose net verb succeeds (or is refused).
struct Wizard : SessieWerkplek {
    explicit Wizard(bool standalone, bool firewall = true, bool netGeweigerd = false)
        : SessieWerkplek(Familie::Nt, standalone ? Modus::Standalone : Modus::Netwerk) {
        p.maak(p.frmMain, p);
        p.maak(p.modMainVerbinding, p);
        platform.fakeClock().setStepPerRead(stap);
        peer.op("FIR", "FIRschool.local",
                firewall ? ScriptedPeer::Levering::Heel : ScriptedPeer::Levering::Stil);
        // The local server a standalone workstation starts for the test is the scripted one.
        p.modRegistry.SchrijfWaarde(RegistryRoot::LocalMachine, "SOFTWARE\\Tafelkrater",
                                    "Locatie server", "\\tafelkrater-server");
        zetIni("Instellingen", "Serverlocatie", QString("127.0.0.1:%1").arg(peer.poort()));
        if (!netGeweigerd)
            systeem.outputs.insert("net", "The command completed successfully.\n");
    }
    bool accountsGemaakt() const { return systeem.actions.join(u'\n').contains(u"net "); }

    ScriptedPeer peer;
};

TEST(FrmActiverenTest, ActivatingRunsItsTestsInOrderTheFirstFailureSaysWhyAndSuccessWritesTheMode) {
    struct Rij {
        const char* naam;
        bool standalone, rechten, resolutie, shell, firewall, netGeweigerd;
        const char* gebruiker;
        int melding; // 0: none
        bool antwoord;
    };
    const Rij rijen[] = {
        {"all pass, standalone", true, true, true, false, true, false, "jan", 0, true},
        {"all pass, network", false, true, true, false, true, false, "jan", 0, true},
        {"the registry is tested first", false, false, false, false, false, false, "jan", 415,
         false},
        {"firewall, network: the server", false, true, false, false, false, false, "jan", 416,
         false},
        {"firewall, standalone", true, true, false, false, false, false, "jan", 417, false},
        {"resolution", true, true, false, false, true, false, "jan", 418, false},
        {"standalone under its own account", true, true, true, false, true, false, "Tafelkrater",
         419, false},
        {"network under that name is allowed", false, true, true, false, true, false, "TAFELKRATER",
         0, true},
        {"accounts refused", true, true, true, false, true, true, "jan", 503, false},
        {"shell set and writable: no test at all", true, true, false, true, false, false, "jan", 0,
         true},
    };
    for (const Rij& r : rijen) {
        SCOPED_TRACE(r.naam);
        Wizard z(r.standalone, r.firewall, r.netGeweigerd);
        z.platform.fakeEnvironment().setVariable("USERNAME", QString::fromLatin1(r.gebruiker));
        z.p.modMain.StilActiveren = true; // activate as if clicked
        z.platform.fakeEnvironment().setVariable("USERDOMAIN", "WERKPLEK");
        z.platform.registry().write(RegistryRoot::Users,
                                    QString::fromLatin1(ModMainSessie::StandaardBureaublad),
                                    "Wallpaper", RegistryValue::string("oud.bmp"));
        FrmInitialiseren voortgang(z.p);
        FrmActiveren f(z.p, z.sessie);
        EXPECT_EQ(r.antwoord, f.Openen(r.rechten, r.resolutie, r.shell, &voortgang));
        const QStringList meldingen = z.meldingen();
        if (r.melding) {
            EXPECT_EQ(meldingen, QStringList{z.p.modTaal.LaadTekst(r.melding)});
        } else {
            EXPECT_TRUE(meldingen.isEmpty()) << meldingen.join(u'|').toStdString();
        }
        // A refusal before the accounts leaves the buttons live and nothing made or written.
        const bool voorAccounts = r.melding && r.melding != 503;
        EXPECT_EQ(f.Klaar, !r.shell && !voorAccounts); // the window closes with its answer
        if (!r.shell) {
            EXPECT_EQ(voorAccounts, f.cmdActiverenEnabled && f.cmdSluitenEnabled);
        }
        EXPECT_EQ(z.accountsGemaakt(), !r.shell && !voorAccounts);
        EXPECT_EQ(z.ini("Algemeen", "Geactiveerd"), r.antwoord && !r.shell ? "Ja" : QString());
        EXPECT_EQ(z.peer.ontvangen.contains(u"FIR"), !r.shell);
        if (!r.shell) {
            EXPECT_EQ(voortgang.lblItem.value(3).lblCheck, r.firewall ? "a" : "r");
        }
        // Carried out: the account of the mode, the domain the server told in its answer to the
        // firewall test, and the wallpaper kept.
        if (r.antwoord && !r.shell && !r.netGeweigerd) {
            EXPECT_EQ(z.ini("Standalone", "Gebruikersnaam"),
                      r.standalone ? "Tafelkrater" : QString());
            EXPECT_EQ(z.ini("Standalone", "Wachtwoord"), r.standalone ? "Sleutelwrk42" : QString());
            EXPECT_EQ(z.ini("Netwerk", "Domein"), r.standalone ? QString() : "school.local");
            EXPECT_EQ(z.ini("Wallpaper", "Achtergrond"), "oud.bmp");
            EXPECT_FALSE(f.frmActiveren2.Zichtbaar);
        }
    }
}

TEST(FrmActiverenTest, TheRowsAndButtonsCarryTheirTexts) {
    SessieWerkplek w;
    FrmActiveren f(w.p, w.sessie);
    f.LaadTaal();
    QStringList verwacht;
    for (int id : {400, 401, 402, 404, 405, 406, 407, 408, 409, 410, 411, 412, 421})
        verwacht << w.p.modTaal.LaadTekst(id);
    EXPECT_EQ(
        verwacht,
        QStringList({f.Caption, f.lblJa, f.lblNee, f.optRegister.lblTekst, f.optRegister.lblUitleg,
                     f.optResolutie.lblTekst, f.optResolutie.lblUitleg, f.optFirewall.lblTekst,
                     f.optFirewall.lblUitleg, f.cmdFirewallCaption, f.cmdActiverenCaption,
                     f.cmdSluitenCaption, f.cmdServerlocatieCaption}));
}

TEST(FrmActiverenTest, TheFormWaitsLongerThanTheSilentPathAndItsTimerFreesTheRetestButtons) {
    for (bool stil : {true, false}) {
        SCOPED_TRACE(stil);
        Wizard z(false, /*firewall*/ false);
        z.p.modMain.StilActiveren = stil;
        FrmActiveren f(z.p, z.sessie);
        // When the rows of the progress window came and when the wizard chose, by the clock
        // (read without moving it on).
        FakeClock& klok = z.platform.fakeClock();
        const QDateTime begin = klok.now();
        const auto nu = [&] { return begin.msecsTo(klok.now()); };
        FrmInitialiseren voortgang(z.p);
        QList<qint64> rijen;
        voortgang.onChanged = [&] {
            if (voortgang.lblItem.value(3 + int(rijen.size())).zichtbaar)
                rijen << nu();
        };
        int getoond = 0;
        qint64 gekozen = -1;
        z.dialogen.opModaal = [&](Form& form) {
            if (&form != &f)
                return; // the choice of another location is left unanswered
            gekozen = nu();
            ++getoond;
            EXPECT_EQ(f.optRegister.opt, Keuze::Ja);
            EXPECT_EQ(f.optResolutie.opt, Keuze::Nee);
            EXPECT_EQ(f.optFirewall.opt, Keuze::Nee);
            EXPECT_TRUE(f.tmrFirewall.isActive());
            EXPECT_FALSE(f.cmdFirewallEnabled || f.cmdServerlocatieEnabled);
            f.tmrFirewall_Timer();
            EXPECT_TRUE(f.cmdFirewallEnabled && f.cmdServerlocatieEnabled);
            EXPECT_FALSE(f.tmrFirewall.isActive());
            // Testing again against a server that now answers turns the row to Yes.
            z.peer.op("FIR", "FIR");
            f.cmdFirewall_Click();
            EXPECT_EQ(f.optFirewall.opt, Keuze::Ja);
            EXPECT_FALSE(f.cmdFirewallEnabled);
            f.cmdSluiten_Click();
            EXPECT_TRUE(f.Klaar);
        };
        EXPECT_FALSE(f.Openen(true, false, false, &voortgang));
        if (stil)
            gekozen = nu(); // the silent path activates as soon as its last pause ends
        EXPECT_EQ(getoond, stil ? 0 : 1);
        EXPECT_FALSE(z.accountsGemaakt());
        // The pauses between the rows, then before the choice: 100 and 500 silently, else 500
        // and 1000. A wait ends at the first read of the clock at or past its end, one step on.
        ASSERT_EQ(3, rijen.size());
        const qint64 rij = stil ? 100 : 500, laatste = stil ? 500 : 1000;
        EXPECT_EQ(rij + stap, rijen[1] - rijen[0]);
        EXPECT_EQ(rij + stap, rijen[2] - rijen[1]);
        EXPECT_EQ(laatste + stap, gekozen - rijen[2]);
    }
}

} // namespace
