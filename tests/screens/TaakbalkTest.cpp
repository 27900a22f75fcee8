#include "tests/support/Werkplek.h"

#include <gtest/gtest.h>

using namespace tk;
using tk::test::OpnameSchermen;
using tk::test::Werkplek;

TEST(TaakbalkTest, ButtonsPerState) {
    struct Case {
        const char* hoofdvenster;
        bool zonderVerbinding;
        bool standalone;
        QStringList woorden;
    };
    const Case cases[] = {
        {"frmMain", false, true, {"uitschakelen_nietaangemeld", "help"}},
        {"frmMain", true, true, {"uitschakelen_nietaangemeld", "opnieuw verbinding maken", "help"}},
        {"frmMain",
         true,
         false,
         {"uitschakelen_nietaangemeld", "serverlocatie", "opnieuw verbinding maken", "help"}},
        {"frmOnderhoud",
         false,
         false,
         {"afmelden onderhoud", "uitschakelen_onderhoud", "windowsomgeving", "help"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.hoofdvenster);
        Werkplek w(Werkplek::startscherm);
        w.p.modMain.ModusStandalone = c.standalone;
        w.balk1().Hoofdvenster = c.hoofdvenster;
        w.balk1().ZetAccountsZonderVerbinding(c.zonderVerbinding);
        w.balk1().LadenVormgeving();
        EXPECT_EQ(c.woorden, w.balk1().woorden());
        ASSERT_EQ(c.woorden.size(), w.balk1().knoppen.size());
        // Left ones from the left edge, right ones from the right, none over the accounts.
        for (const auto& k : w.balk1().knoppen) {
            EXPECT_FALSE(k.beeld.isNull()) << qPrintable(k.naam);
            EXPECT_GE(k.plek.left(), 0);
            EXPECT_LE(k.plek.right(), FrmTaakbalk1::Breedte);
        }
        EXPECT_EQ(c.zonderVerbinding, !w.balk1().Account[1].Enabled);
    }
}

TEST(TaakbalkTest, AccountButtonOpensThePanelWithItsCaption) {
    Werkplek w(Werkplek::startscherm);
    w.p.modTaal.Taal = 1043;
    w.balk1().LadenVormgeving();
    w.balk1().ToonAccounts();
    w.balk1().Account[2].UserControl_Click();
    EXPECT_TRUE(w.balk1().Account[2].Geselecteerd);
    EXPECT_EQ("Onderhoudsmodule", w.f().lblGebruiker);
    EXPECT_TRUE(w.f().picAanmeldenZichtbaar);
}

TEST(TaakbalkTest, CloseOptionsPerMode) {
    struct Case {
        bool standalone, netwerk;
        const char* antwoord;
        bool einde;
        int vragen;
    };
    const Case cases[] = {
        {true, false, "sluiten", true, 0},
        {true, false, "opnieuwopstarten", true, 1}, // confirmed (718)
        {false, false, "uitschakelen", true, 2},    // a management workstation says so after
        {false, true, "afmelden", true, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.antwoord);
        Werkplek w(Werkplek::startscherm);
        w.dialogen.antwoorden << "ja";
        w.p.modMain.ModusStandalone = c.standalone;
        w.p.modMain.ModusNetwerk = c.netwerk;
        w.p.modMainAfsluiten->VoerUit(c.antwoord);
        EXPECT_EQ(c.einde, w.p.beeindigd);
        EXPECT_EQ(c.vragen, w.dialogen.gesteld.size());
        EXPECT_TRUE(w.p.modMainAfsluiten->uitgevoerd.value(0).startsWith(c.antwoord));
    }
}

TEST(TaakbalkTest, ClosingCountsTheProgramsStillOpen) {
    const auto venster = [](quint64 handle, const char* titel) {
        return WindowInfo{.handle = handle, .title = QString::fromLatin1(titel)};
    };
    struct Case {
        const char* antwoord;
        QList<WindowInfo> vensters;
        const char* antwoordOpVraag;
        QString vraag; // empty: nobody is asked and the answer is carried out
        bool uitgevoerd;
    };
    const QString twee = "There are still 2 programs open.\r\n\r\nAre you sure you want to shut "
                         "down the computer ?";
    const Case cases[] = {
        // One program uses the singular, the shell's own window never counts.
        {"uitschakelen",
         {venster(7, "Rekenen"), venster(8, "TAFELKRATER taakbalk")},
         "nee",
         "There are still 1 program open.\r\n\r\nAre you sure you want to shut down the "
         "computer ?",
         false},
        {"opnieuwopstarten", {venster(7, "Rekenen"), venster(9, "Taal")}, "ja", twee, true},
        {"uitschakelen", {}, "ja", "Are you sure you want to shut down the computer ?", true},
        {"uitschakelen", {}, "nee", "Are you sure you want to shut down the computer ?", false},
        // A log-off of the machine waits until the programs are closed.
        {"afmelden",
         {venster(7, "Rekenen"), venster(9, "Taal")},
         "",
         "There are still 2 programs open. Close these first before you log off.",
         false},
        {"afmelden", {}, "", "", true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.antwoord) + " " + std::to_string(c.vensters.size()));
        Werkplek w(Werkplek::startscherm);
        w.p.modMain.ModusStandalone = true;
        w.platform.fakeWindows().windows = c.vensters;
        w.dialogen.antwoorden << c.antwoordOpVraag;
        w.p.modMainAfsluiten->VoerUit(c.antwoord);
        QStringList gesteld;
        for (const auto& v : w.dialogen.gesteld)
            gesteld << v.tekst;
        EXPECT_EQ(c.vraag.isEmpty() ? QStringList() : QStringList{c.vraag}, gesteld);
        EXPECT_EQ(c.uitgevoerd, !w.p.modMainAfsluiten->uitgevoerd.isEmpty());
        EXPECT_EQ(c.uitgevoerd, w.p.beeindigd);
    }
}

TEST(TaakbalkTest, LogOnAsAClassOutsideNetworkModeOpensItsDesktop) {
    Werkplek w(Werkplek::startscherm);
    w.p.modMain.ModusStandalone = true;
    w.startKlas(0, "Groep 1", "1");
    OpnameSchermen schermen;
    w.p.schermen = &schermen;
    FrmUitschakelen& u = w.p.modMainAfsluiten->frmUitschakelen;
    w.dialogen.opModaal = [&](Form&) {
        u.optAntwoord = 5;
        u.cmbGroep_Click(1);
        u.cmdOK_Click();
    };
    w.p.modMainAfsluiten->VerwerkAfsluitkeuze();
    EXPECT_EQ("aanmelden|Classes|Groep 1|100", u.Antwoord);
    EXPECT_EQ(QStringList{"bureaublad 0:100"}, schermen.log);
    EXPECT_FALSE(w.p.beeindigd);
}
