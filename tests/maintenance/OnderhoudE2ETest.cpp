// Exclusive access between two workstations through the real server: the one inside refuses,
// or stays silent and is logged off after 30 seconds of its clock while the newcomer enters at
// its next poll. The question windows' timers tick on every turn of the event loop; what they
// decide follows from each workstation's injected clock.
#include "tests/maintenance/OnderhoudWerkplek.h"

using namespace tk;
using OnderhoudE2ETest = tk::test::OnderhoudServerTest;

TEST_F(OnderhoudE2ETest, ARefusalShowsItsNoteAndTheNewcomerStaysOutside) {
    bool gevraagd = false;
    binnen->vraag().tonen = [&](bool aan) {
        if (aan) {
            gevraagd = true;
            binnen->vraag().cmdAnnuleren_Click();
        }
    };
    QString notitie;
    nieuw->vraag().onChanged = [&] {
        if (nieuw->vraag().Modus == -1 && notitie.isEmpty()) {
            notitie = nieuw->vraag().lblVraag;
            nieuw->klok().advance(FrmOnderhoudVraag::NotitieTijd);
        }
    };
    EXPECT_TRUE(nieuw->router.ControleerAanwezigOnderhoudsmodule(false));
    EXPECT_TRUE(gevraagd) << server.uitvoer().toStdString();
    EXPECT_EQ(notitie, nieuw->p().modTaal.LaadTekst(1807));
    EXPECT_FALSE(nieuw->p().frmOnderhoud) << "the newcomer never entered";
    EXPECT_TRUE(binnen->p().frmOnderhoud->Zichtbaar);
    EXPECT_EQ(nieuw->ws.vraag(QStringLiteral("INFOND")), QStringLiteral("JA"));
}

TEST_F(OnderhoudE2ETest, ASilentInsiderIsLoggedOffAndTheNewcomerEntersAtTheNextPoll) {
    binnen->p().frmOnderhoud->ZetBewerkModus(true); // an edit in progress is lost
    binnen->vraag().tonen = [&](bool aan) {
        if (aan)
            binnen->klok().advance(FrmOnderhoudVraag::WachttijdBinnen + 1);
    };
    // Once the one inside has left (and told the server so), a second passes for the newcomer.
    binnen->p().frmOnderhoud->verlaten = [&] { nieuw->klok().advance(1000); };
    const qint64 begin = nieuw->klok().msecsSinceStart();
    EXPECT_FALSE(nieuw->router.ControleerAanwezigOnderhoudsmodule(false));
    EXPECT_LT(nieuw->klok().msecsSinceStart() - begin, FrmOnderhoudVraag::WachttijdNieuw);
    EXPECT_FALSE(binnen->p().frmOnderhoud->Zichtbaar);
    EXPECT_TRUE(binnen->p().startScreen->Zichtbaar);
}

TEST_F(OnderhoudE2ETest, ANewcomerWhoGivesUpLeavesTheInsiderANote) {
    QString notitie;
    binnen->vraag().onChanged = [&] {
        if (binnen->vraag().Modus == -1 && notitie.isEmpty()) {
            notitie = binnen->vraag().lblVraag;
            binnen->vraag().cmdAnnuleren_Click();
        }
    };
    // Once the one inside is asked, the newcomer presses Cancel and its caller gives up. (The
    // wire has no framing: the give-up must not follow the request within one read.)
    binnen->vraag().tonen = [&](bool aan) {
        if (!aan)
            return;
        nieuw->vraag().cmdAnnuleren_Click();
        nieuw->p().frmMain->WS_Versturen(QStringLiteral("INFONB"), false);
    };
    EXPECT_TRUE(nieuw->router.ControleerAanwezigOnderhoudsmodule(false));
    EXPECT_EQ(notitie, binnen->p().modTaal.LaadTekst(1808));
    EXPECT_TRUE(binnen->p().frmOnderhoud->Zichtbaar);
    EXPECT_FALSE(nieuw->p().frmOnderhoud);
}
