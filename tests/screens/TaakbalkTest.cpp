#include "tests/support/Werkplek.h"

#include <gtest/gtest.h>

using namespace tk;
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

TEST(TaakbalkTest, CloseOptionsPerModeAskAndCountTheProgramsStillOpen) {
    const auto venster = [](quint64 handle, const char* titel) {
        return WindowInfo{.handle = handle, .title = QString::fromLatin1(titel)};
    };
    const QList<WindowInfo> twee = {venster(7, "Rekenen"), venster(9, "Taal")};
    const QString zeker = "Are you sure you want to shut down the computer ?";
    struct Case {
        bool standalone, netwerk;
        const char* antwoord;
        QList<WindowInfo> vensters;
        const char* antwoordOpVraag;
        int vragen;
        QString vraag; // the first question, when the row names it
        bool uitgevoerd;
    };
    const Case cases[] = {
        {true, false, "sluiten", {}, "ja", 0, "", true},
        {true, false, "opnieuwopstarten", {}, "ja", 1, "", true}, // confirmed (718)
        {false, false, "uitschakelen", {}, "ja", 2, "", true}, // a management workstation says so
        {false, true, "afmelden", {}, "ja", 0, "", true},
        // One program uses the singular, the shell's own window never counts.
        {true,
         false,
         "uitschakelen",
         {venster(7, "Rekenen"), venster(8, "TAFELKRATER taakbalk")},
         "nee",
         1,
         "There are still 1 program open.\r\n\r\n" + zeker,
         false},
        {true, false, "opnieuwopstarten", twee, "ja", 1,
         "There are still 2 programs open.\r\n\r\nAre you sure you want to shut down the "
         "computer ?",
         true},
        {true, false, "uitschakelen", {}, "ja", 1, zeker, true},
        {true, false, "uitschakelen", {}, "nee", 1, zeker, false},
        // A log-off of the machine waits until the programs are closed.
        {true, false, "afmelden", twee, "", 1,
         "There are still 2 programs open. Close these first before you log off.", false},
        {true, false, "afmelden", {}, "", 0, "", true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.antwoord) + " " + std::to_string(c.vensters.size()) + " " +
                     c.antwoordOpVraag);
        Werkplek w(Werkplek::startscherm);
        w.p.modMain.ModusStandalone = c.standalone;
        w.p.modMain.ModusNetwerk = c.netwerk;
        w.platform.fakeWindows().windows = c.vensters;
        w.dialogen.antwoorden << c.antwoordOpVraag;
        w.p.modMainAfsluiten->VoerUit(c.antwoord);
        ASSERT_EQ(c.vragen, w.dialogen.gesteld.size());
        if (!c.vraag.isEmpty()) {
            EXPECT_EQ(c.vraag, w.dialogen.gesteld[0].tekst);
        }
        EXPECT_EQ(c.uitgevoerd, w.p.beeindigd);
        EXPECT_EQ(c.uitgevoerd ? c.antwoord : "",
                  w.p.modMainAfsluiten->uitgevoerd.value(0).left(qstrlen(c.antwoord)));
    }
}
