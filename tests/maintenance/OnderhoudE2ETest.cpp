// The module between two workstations and the real server. Exclusive access: the one inside
// refuses, or stays silent and is logged off after 30 seconds of its clock while the newcomer
// enters at its next poll (the question windows' timers tick on every turn of the event loop;
// what they decide follows from each workstation's injected clock). And what the panels store
// reaches the server: a new language, eight classes made by a double click.
#include "tests/maintenance/OnderhoudWerkplek.h"

#include <gtest/gtest.h>

using namespace tk;
using tk::test::OnderhoudPlek;
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

TEST_F(OnderhoudE2ETest, ANewLanguageReachesTheServerAndEveryCaption) {
    OnderhoudPlek& b = *binnen;
    b.p().modData->LaadWachtwoorden();
    b.p().modData->LaadOverigeInstellingen();
    // The demo school speaks Dutch; the administrator switches to English.
    b.p().modMain.LaadTaal();
    ASSERT_EQ(b.p().modTaal.Taal, 1043);
    b.f().Kies(400); // the settings heading
    using I = OnderhoudInstellingen;
    OnderhoudInstellingen& m = b.inst();
    m.ZetVeld(I::Taal, "1033");
    m.cmd_Click(BewerkPaneel::Opslaan);
    EXPECT_TRUE(b.ws.meldingen().isEmpty()) << b.ws.meldingen().join("\n").toStdString();
    EXPECT_EQ(b.p().modTaal.Taal, 1033);
    EXPECT_EQ(nieuw->ws.vraag("LDNTAA"), "1033");

    // Every row of the menu, and the captions of both panels, in English.
    const ModTaal& t = b.p().modTaal;
    int rijen = 0;
    for (int g = 0; g < FrmOnderhoud::Groepen; ++g)
        for (int r = 0; r < FrmOnderhoud::Rijen; ++r) {
            const QString id = b.f().cel(g, r, FrmOnderhoud::TekstId);
            if (id.isEmpty())
                continue;
            ++rijen;
            EXPECT_EQ(b.f().cel(g, r, FrmOnderhoud::Tekst), t.LaadTekst(id.toInt(), 1033));
        }
    EXPECT_EQ(rijen, 21);
    EXPECT_EQ(b.f().lblKop, t.LaadTekst(3359, 1033));
    EXPECT_EQ(b.f().lblMenuHelp, t.LaadTekst(3360, 1033));
    QStringList instellingen{m.knoppen[BewerkPaneel::Opslaan].tekst,
                             m.knoppen[BewerkPaneel::Herstellen].tekst};
    for (int veld : {I::WachtwoordBeheer, I::Startpagina, I::EmailAfzender, I::Thema})
        instellingen << m.velden[veld].groep << m.velden[veld].caption;
    QStringList verwacht{t.LaadTekst(3277, 1033), t.LaadTekst(3278, 1033)};
    for (auto [groep, caption] : {std::pair{3266, 3268}, {3269, 3270}, {3271, 3275}, {3438, 3276}})
        verwacht << t.LaadTekst(groep, 1033).trimmed() << t.LaadTekst(caption, 1033);
    EXPECT_EQ(instellingen, verwacht);
    const OnderhoudServer& s = b.server();
    EXPECT_EQ(
        QStringList({s.velden[OnderhoudServer::Locatie].caption, s.fraBackup, s.cmdServer[2],
                     s.cmdBackup[0], s.lblNoot}),
        QStringList({t.LaadTekst(3181, 1033), t.LaadTekst(3192, 1033).trimmed(),
                     t.LaadTekst(3190, 1033), t.LaadTekst(3193, 1033), t.LaadTekst(3191, 1033)}));
}

TEST_F(OnderhoudE2ETest, ADoubleClickOnTheClassesPanelMakesEightClassesOnTheServer) {
    Programma& p = binnen->p();
    FrmOnderhoud& f = binnen->f();
    auto& dialogen = binnen->ws.dialogen;
    // What a second workstation reads from the server (the demo school has eight groups too).
    ModData& d = *nieuw->p().modData;
    const auto groepen = [&] {
        d.LaadKlassen();
        QStringList uit;
        for (int r = 0; r < ModData::KlassenRijen && !d.Klassen(r, 0).isEmpty(); ++r)
            uit << d.Klassen(r, 0) + "/" + d.Klassen(r, 1) + "/" + d.Klassen(r, 2) + "/" +
                       d.Klassen(r, 4).toUpper(); // the server keeps accounts lower-cased
        return uit;
    };
    const QStringList voor = groepen();
    // Elsewhere than on the classes panel, or with "No", nothing happens.
    f.picMenuItem_DblClick(FrmOnderhoud::PLeraren);
    dialogen.antwoorden = {"nee"};
    f.picMenuItem_DblClick(FrmOnderhoud::PKlassen);
    EXPECT_TRUE(p.modData->Klassen(0, 0).isEmpty());
    // "Yes", and yes to each account the server does not know.
    dialogen.gesteld.clear();
    dialogen.antwoorden = QStringList(9, "ja");
    f.picMenuItem_DblClick(FrmOnderhoud::PKlassen);
    ASSERT_FALSE(dialogen.gesteld.isEmpty());
    EXPECT_EQ(dialogen.gesteld[0].tekst, p.modTaal.LaadTekst(3378));
    EXPECT_EQ(dialogen.gesteld[0].stijl, "?");

    const QStringList na = groepen();
    ASSERT_EQ(na.size(), voor.size() + 8) << na.join(", ").toStdString();
    EXPECT_EQ(na[voor.size()], "Groep 1/1/1a.jpg/GROEP1");
    EXPECT_EQ(na.last(), "Groep 8/8/8a.jpg/GROEP8");
    EXPECT_EQ(nieuw->ws.vraag("ACDCONGROEP8"), "JA") << "the account was made";
}
