// The edit pattern of the maintenance panels, proved with a classes panel in small: the steps
// from list to save as the model walks them, and a save against a peer that answers, refuses
// ("FOUT"), sends its answer in pieces or goes away; and the window that shows such a panel.
#include "screens/maintenance/BewerkPaneel.h"
#include "screens/maintenance/BewerkPaneelView.h"
#include "tests/maintenance/OnderhoudWerkplek.h"
#include "tests/support/ScriptedPeer.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::knoppen;
using tk::test::OnderhoudPlek;
using tk::test::ScriptedPeer;
using tk::test::waarden;
using Levering = ScriptedPeer::Levering;

namespace {

// Full name and short name (both mandatory) and the Windows account (compared without case),
// saved with the class message of the data set.
struct KlassenProef : BewerkPaneel {
    explicit KlassenProef(Programma& p) : BewerkPaneel(p, Lijst) {
        velden = {{.naam = "txtNaam", .caption = "Full name:", .verplicht = true},
                  {.naam = "txtKort", .caption = "Short name:", .verplicht = true},
                  {.naam = "cmbAccount", .caption = "Account:", .zonderHoofdletters = true}};
    }
    QString titel() const override { return "Classes"; }
    FixedTable& k() { return p.modData->Klassen; }
    QList<Item> Records() override {
        QList<Item> uit;
        for (int r = 0; r < k().rijen() && !k()(r, 0).isEmpty(); ++r)
            uit.append({"klas " + QString::number(r), k()(r, 0)});
        return uit;
    }
    void VulVelden(const QString& sleutel) override {
        if (sleutel == "nieuw")
            return;
        const int r = sleutel.mid(5).toInt();
        for (int i : {0, 1})
            velden[i].waarde = k()(r, i);
        velden[2].waarde = k()(r, 4);
    }
    bool OpslaanRecord(bool nieuwRecord) override {
        int r = huidig.mid(5).toInt();
        if (nieuwRecord)
            for (r = 0; !k()(r, 0).isEmpty();)
                ++r;
        for (int i : {0, 1})
            k()(r, i) = velden[i].waarde;
        k()(r, 4) = velden[2].waarde;
        if (nieuwRecord)
            k()(r, 6) = "0";
        const auto antwoord = VraagB(p.modData->KlasBericht(r));
        if (!antwoord || *antwoord == "FOUT")
            return false;
        if (nieuwRecord) {
            k()(r, 6) = *antwoord;
            huidig = "klas " + QString::number(r);
        }
        return true;
    }
    int leegTekst() const override { return 3298; }
    int nieuwTekst() const override { return 3387; }
    std::array<int, 6> knopTeksten() const override { return {3170, 3179, 3180, 3167, 3168, 3169}; }
};

QStringList items(const BewerkPaneel& b) {
    QStringList uit;
    for (const auto& item : b.lijst)
        uit << item.sleutel + (item.vet ? "*" : "");
    return uit;
}

// One workstation inside the module with the classes panel plugged in as panel 0.
struct InDeModule {
    explicit InDeModule(quint16 poort) : plek(poort), paneel(plek.p()) {}
    bool binnen() {
        if (!plek.betreed())
            return false;
        plek.f().plaatsPaneel(FrmOnderhoud::PKlassen, &paneel);
        plek.f().OpenGroep(0);
        plek.f().Kies(1); // the classes row
        return plek.f().ZichtbaarPaneel == FrmOnderhoud::PKlassen;
    }
    OnderhoudPlek plek;
    KlassenProef paneel;
};

} // namespace

TEST(BewerkPaneelTest, ListShowChangeRestoreCancelAndNewWithTheMenuDeadMeanwhile) {
    InDeModule m(0); // no link: the check lets the administrator in
    KlassenProef& b = m.paneel;
    ASSERT_TRUE(m.binnen());
    FrmOnderhoud& f = m.plek.f();
    // No class: one item "leeg", only New, the fields say "-".
    EXPECT_EQ(items(b), QStringList({"leeg"}));
    EXPECT_EQ(b.lijst[0].tekst, m.plek.p().modTaal.LaadTekst(3298));
    EXPECT_EQ(knoppen(b), ".N....");
    EXPECT_EQ(waarden(b), QStringList({"-", "-", "-"}));
    b.cmd_Click(BewerkPaneel::Wijzigen); // off: nothing happens
    EXPECT_FALSE(f.BewerkModus);

    FixedTable& k = b.k();
    k(0, 0) = "Groep 1", k(0, 1) = "1", k(0, 4) = "GROEP1";
    k(1, 0) = "Groep 2", k(1, 1) = "2", k(1, 4) = "GROEP2";
    b.LaadLijst();
    EXPECT_EQ(items(b), QStringList({"klas 0*", "klas 1"}));
    b.Weergeven("klas 1");
    EXPECT_EQ(items(b), QStringList({"klas 0", "klas 1*"}));
    EXPECT_EQ(waarden(b), QStringList({"Groep 2", "2", "GROEP2"}));
    EXPECT_EQ(knoppen(b), "CND...");
    EXPECT_FALSE(b.ZetVeld(0, "x")) << "read-only until Change";
    b.bezig = true; // a click on the list while the server is asked (a delete) is refused
    b.Weergeven("klas 0");
    EXPECT_EQ(b.huidig, "klas 1");
    b.bezig = false;

    b.cmd_Click(BewerkPaneel::Wijzigen);
    EXPECT_TRUE(f.BewerkModus);
    EXPECT_FALSE(b.lijstIngeschakeld);
    EXPECT_EQ(knoppen(b), "....c.");
    for (const auto& knop : b.knoppen) // New, Change and Delete stand disabled
        EXPECT_TRUE(knop.zichtbaar) << knop.tekst.toStdString();
    EXPECT_FALSE(b.ZetVeld(3, "x")) << "no such field";
    b.Weergeven("klas 0"); // the list is dead too
    EXPECT_EQ(b.huidig, "klas 1");
    // The change test: each field against its stored value, the account without case.
    struct Stap {
        int veld;
        const char* waarde;
        const char* knoppen;
    };
    const Stap stappen[] = {
        {2, "groep2", "....c."},
        {1, "2b", "...ScR"},
        {1, "2", "....c."},
        {0, "Groep 2 ", "...ScR"},
    };
    for (const Stap& s : stappen) {
        SCOPED_TRACE(s.waarde);
        EXPECT_TRUE(b.ZetVeld(s.veld, s.waarde));
        EXPECT_EQ(knoppen(b), s.knoppen);
    }
    b.cmd_Click(BewerkPaneel::Herstellen);
    EXPECT_EQ(waarden(b), QStringList({"Groep 2", "2", "GROEP2"}));
    EXPECT_EQ(knoppen(b), "....c.");
    b.ZetVeld(0, "Anders");
    b.cmd_Click(BewerkPaneel::Annuleren);
    EXPECT_EQ(waarden(b), QStringList({"Groep 2", "2", "GROEP2"}));
    EXPECT_FALSE(f.BewerkModus);
    EXPECT_EQ(knoppen(b), "CND...");
    EXPECT_EQ(k(1, 0), "Groep 2") << "nothing was written";

    // New: its own bold item, empty fields; Save once both names are there.
    b.cmd_Click(BewerkPaneel::Nieuw);
    EXPECT_TRUE(f.BewerkModus);
    EXPECT_EQ(items(b), QStringList({"klas 0", "klas 1", "nieuw*"}));
    EXPECT_EQ(b.lijst.last().tekst, m.plek.p().modTaal.LaadTekst(3387));
    EXPECT_EQ(waarden(b), QStringList({"", "", ""}));
    b.ZetVeld(0, "Groep 3");
    EXPECT_EQ(knoppen(b), "....c.");
    b.ZetVeld(1, " ");
    EXPECT_EQ(knoppen(b), "....c.") << "blank is not filled in";
    b.ZetVeld(1, "3");
    EXPECT_EQ(knoppen(b), "...Sc.");
    b.cmd_Click(BewerkPaneel::Annuleren);
    EXPECT_EQ(items(b), QStringList({"klas 0", "klas 1*"}));
    EXPECT_FALSE(f.BewerkModus);
    // New on an empty list replaces its "leeg" item; Cancel brings it back.
    k(0, 0).clear();
    k(1, 0).clear();
    b.LaadLijst();
    b.cmd_Click(BewerkPaneel::Nieuw);
    EXPECT_EQ(items(b), QStringList({"nieuw*"}));
    b.cmd_Click(BewerkPaneel::Annuleren);
    EXPECT_EQ(items(b), QStringList({"leeg"}));
    EXPECT_TRUE(m.plek.ws.meldingen().isEmpty());
    // A forced log-off in the middle of an edit: the next stay shows the panel browsing.
    b.cmd_Click(BewerkPaneel::Nieuw);
    f.Afmelden();
    m.plek.router.openOnderhoudsmodule(-1, {});
    f.OpenGroep(0);
    f.Kies(1);
    EXPECT_FALSE(b.bewerken);
    EXPECT_EQ(knoppen(b), ".N....");
}

TEST(BewerkPaneelTest, TheLiveFormEditsAtOnceAndTheMenuIsDeadOnlyWhileItSaves) {
    struct Instellingen : BewerkPaneel {
        explicit Instellingen(Programma& p) : BewerkPaneel(p, Live) {
            velden = {{.naam = "txtWachtwoord", .caption = "Password:", .wachtwoord = true}};
        }
        QString titel() const override { return "Settings"; }
        QList<Item> Records() override { return {}; }
        void VulVelden(const QString&) override { velden[0].waarde = opgeslagen; }
        bool OpslaanRecord(bool) override {
            opgeslagen = velden[0].waarde;
            menuDood = p.frmOnderhoud->BewerkModus;
            tussendoor = ZetVeld(0, "tussendoor") ? "taken" : velden[0].waarde;
            // Save stands, switched off, while it saves.
            tussendoor += knoppen[Opslaan].zichtbaar && !knoppen[Opslaan].ingeschakeld ? "/S" : "";
            return true;
        }
        QString opgeslagen = "geheim", tussendoor;
        bool menuDood = false;
    };
    OnderhoudPlek plek(0);
    ASSERT_TRUE(plek.betreed());
    Instellingen b(plek.p());
    b.Tonen(0);
    EXPECT_EQ(knoppen(b), "......");
    EXPECT_TRUE(b.knoppen[BewerkPaneel::Opslaan].zichtbaar);
    EXPECT_FALSE(b.knoppen[BewerkPaneel::Wijzigen].zichtbaar);
    EXPECT_TRUE(b.ZetVeld(0, "nieuw"));
    EXPECT_EQ(knoppen(b), "...S.R");
    EXPECT_FALSE(plek.f().BewerkModus);
    b.cmd_Click(BewerkPaneel::Opslaan);
    EXPECT_EQ(b.opgeslagen, "nieuw");
    EXPECT_TRUE(b.menuDood);
    EXPECT_EQ(b.tussendoor, "nieuw/S") << "no input while the server is asked";
    EXPECT_FALSE(plek.f().BewerkModus);
    EXPECT_EQ(waarden(b), QStringList({"nieuw"}));
    EXPECT_EQ(knoppen(b), "......");
    b.ZetVeld(0, "weer anders");
    b.cmd_Click(BewerkPaneel::Herstellen);
    EXPECT_EQ(waarden(b), QStringList({"nieuw"}));
}

// A save against the peer: its answer whole, refused, in pieces, merged with a keep-alive, or
// the link gone instead. What the user sees, what stays of the edit, and the menu.
TEST(BewerkPaneelTest, ASaveThatTheServerRefusesOrLosesKeepsTheEditOrRestarts) {
    struct Case {
        const char* wat;
        const char* antwoord;
        Levering levering;
        bool sluitErna; // the peer goes after its answer
        int melding;    // what the user is told (0 nothing)
        bool bewerken;  // still in edit mode afterwards
        bool einde;     // the program ends for its restart
    };
    const Case cases[] = {
        {"stored", "OPSKLZ7", Levering::Heel, false, 0, false, false},
        {"refused", "OPSKLZFOUT", Levering::Heel, false, 3332, true, false},
        {"a reply that never comes whole", "OPSKLZ7", Levering::Gesplitst, true, 1619, true, true},
        {"merged with a keep-alive", "OPSKLZ7", Levering::Samengevoegd, false, 0, false, false},
        {"the link goes", "", Levering::Sluiten, false, 1619, true, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.wat);
        ScriptedPeer peer;
        tk::test::binnenkomst(peer);
        peer.op("OPSKLZ*", c.antwoord, c.levering);
        if (c.levering == Levering::Samengevoegd)
            peer.zelf("PIN");
        if (c.sluitErna)
            peer.zelf("", Levering::Sluiten);
        InDeModule m(peer.poort());
        ASSERT_TRUE(m.plek.verbindKaal());
        ASSERT_TRUE(m.binnen());
        KlassenProef& b = m.paneel;
        b.cmd_Click(BewerkPaneel::Nieuw);
        b.ZetVeld(0, "Groep 1");
        b.ZetVeld(1, "1");
        b.cmd_Click(BewerkPaneel::Opslaan);
        EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();
        EXPECT_EQ(m.plek.ws.meldingen(),
                  c.melding ? QStringList(m.plek.p().modTaal.LaadTekst(c.melding)) : QStringList());
        EXPECT_EQ(m.plek.p().beeindigd, c.einde);
        EXPECT_EQ(b.bewerken, c.bewerken);
        EXPECT_EQ(m.plek.f().BewerkModus, c.bewerken);
        if (c.bewerken) {
            // The edit stays as typed, ready for another try or Cancel.
            EXPECT_EQ(waarden(b), QStringList({"Groep 1", "1", ""}));
            EXPECT_EQ(knoppen(b), c.einde ? "......" : "...Sc.");
        } else {
            EXPECT_EQ(items(b), QStringList({"klas 0*"}));
            EXPECT_EQ(b.k()(0, 6).left(1), "7") << "the new class took the server's id";
            EXPECT_EQ(knoppen(b), "CND...");
        }
    }
}

TEST(BewerkPaneelTest, ALinkLostInTheMiddleOfAnEditRestartsTheClientWithItsMessage) {
    ScriptedPeer peer;
    tk::test::binnenkomst(peer);
    InDeModule m(peer.poort());
    ASSERT_TRUE(m.plek.verbindKaal());
    ASSERT_TRUE(m.binnen());
    m.paneel.cmd_Click(BewerkPaneel::Nieuw);
    m.paneel.ZetVeld(0, "Groep 1");
    peer.sluit();
    Programma& p = m.plek.p();
    p.wacht.Tot([&] { return p.beeindigd; }, p.platform.clock().msecsSinceStart() + 60'000, false);
    EXPECT_TRUE(p.beeindigd);
    EXPECT_EQ(m.plek.ws.meldingen(), QStringList(m.plek.p().modTaal.LaadTekst(1619)));
    EXPECT_TRUE(m.paneel.k()(0, 0).isEmpty()) << "nothing of the edit was stored";
}

TEST(BewerkPaneelTest, TheWindowNamesEveryControlAndHandsEditsToThePattern) {
    InDeModule m(0);
    ASSERT_TRUE(m.binnen());
    KlassenProef& b = m.paneel;
    b.k()(0, 0) = "Groep 1", b.k()(0, 1) = "1";
    b.LaadLijst();
    BewerkPaneelView view(b);
    EXPECT_EQ(view.lijst()->accessibleName(), "Classes");
    EXPECT_EQ(view.lijst()->count(), 1);
    auto* naam = qobject_cast<QLineEdit*>(view.veld(0));
    ASSERT_TRUE(naam);
    EXPECT_EQ(naam->accessibleName(), "Full name");
    EXPECT_EQ(naam->text(), "Groep 1");
    EXPECT_FALSE(naam->isEnabled()) << "read-only until Change";
    EXPECT_EQ(view.knop(BewerkPaneel::Wijzigen)->accessibleName(),
              m.plek.p().modTaal.LaadTekst(3170));
    view.knop(BewerkPaneel::Wijzigen)->click();
    EXPECT_TRUE(naam->isEnabled());
    EXPECT_FALSE(view.lijst()->isEnabled());
    QTest::keyClicks(naam, "x");
    EXPECT_EQ(b.velden[0].waarde, "Groep 1x");
    EXPECT_TRUE(view.knop(BewerkPaneel::Opslaan)->isEnabled());
    view.knop(BewerkPaneel::Annuleren)->click();
    EXPECT_EQ(naam->text(), "Groep 1");
}
