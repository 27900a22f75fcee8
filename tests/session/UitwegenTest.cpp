// The ways out of a running client: the stay on the system's desktop (what the way there changes
// and starts, what each button of frmWindows does) and the escapes of the held function keys.
#include "screens/taskbar/FrmTaakbalk1.h"
#include "screens/taskbar/FrmTaakbalk2.h"
#include "screens/taskbar/FrmWindowsView.h"
#include "screens/taskbar/ModMainAfsluiten.h"
#include "tests/session/SessieWerkplek.h"

#include <QPushButton>
#include <gtest/gtest.h>

using namespace tk;
using namespace tk::test;

namespace {

struct Omgeving : SessieWerkplek {
    explicit Omgeving(bool w98 = false, Modus modus = Modus::Standalone)
        : SessieWerkplek(w98 ? Familie::W98 : Familie::Nt, modus) {
        platform.fakeClock().setStepPerRead(50);
        p.schermen = &schermen;
        p.maak(p.modMainAfsluiten, p);
        schrijf("W/system.ini", "[boot]\r\nshell=/PROG/tafelkrater\r\n");
    }
    QString shell() {
        if (p.modMain.IsWindows98)
            return ini("boot", "shell", "\\W\\system.ini");
        return p.modRegistry.LeesWaarde(RegistryRoot::LocalMachine,
                                        QString::fromLatin1(ModMainSessie::WinlogonNT), "Shell");
    }
};

TEST(UitwegenTest, TheSystemsDesktopStartsFromItsSettingWhileTheShellStaysTheClients) {
    for (bool w98 : {false, true}) {
        SCOPED_TRACE(w98);
        Omgeving o(w98, Modus::Netwerk);
        o.sessie.proxyInGebruik = true;
        o.p.modMain.SchrijfIni("startxfce4 --replace", "Instellingen", "Systeembureaublad",
                               "\\Data\\Instellingen.ini");
        o.p.modMainAfsluiten->NaarWindowsOmgeving("GLOBAL", "pw");
        EXPECT_EQ(o.platform.fakeProcesses().started.size(), 1);
        EXPECT_TRUE(
            o.platform.fakeProcesses().started.value(0).startsWith(u"startxfce4 --replace (in "));
        EXPECT_EQ(o.shell(), o.platform.programFile());
        EXPECT_EQ(o.systeem.actions.value(0), "proxy-clear");
        EXPECT_EQ(o.schermen.log, QStringList{"vensters 0"});
        const FrmWindows& f = o.p.modMainAfsluiten->frmWindows;
        EXPECT_TRUE(f.Zichtbaar && f.Timer1.isActive());
        EXPECT_EQ(f.account, "GLOBAL");
        // The 98 family keeps the system file as it was before the shell was switched.
        EXPECT_EQ(w98, o.lees("backup.ini").contains("shell=/PROG/tafelkrater"));
        EXPECT_FALSE(o.p.beeindigd);
    }
}

TEST(UitwegenTest, EachButtonLogsOnAgainAsTheModesAccountOrAsksFirst) {
    constexpr auto Standalone = Modus::Standalone, Netwerk = Modus::Netwerk, Beheer = Modus::Beheer;
    struct Rij {
        const char* naam;
        Modus modus;
        bool w98;
        int knop;
        const char* antwoord;
        int vraag;             // 0: nobody is asked
        const char* aanmelden; // the account logged on automatically, "" none
        bool vensters;         // the client's windows came back
    };
    const Rij rijen[] = {
        {"back, network: the stored account", Netwerk, false, 0, "", 0, "klas3", false},
        {"back, standalone: its own account", Standalone, false, 0, "", 0, "tafelkrater", false},
        {"close, answered no: nothing", Netwerk, false, 1, "nee", 2802, "", false},
        {"close, network", Netwerk, false, 1, "ja", 2802, "global", false},
        {"close, 98 asks to restart", Standalone, true, 1, "ja", 2803, "tafelkrater", false},
        {"close, management: the windows come back", Beheer, false, 1, "ja", 2802, "", true},
    };
    for (const Rij& r : rijen) {
        SCOPED_TRACE(r.naam);
        Omgeving o(r.w98, r.modus);
        FrmWindows& f = o.p.modMainAfsluiten->frmWindows;
        f.Laden("KLAS3", "geheim");
        o.dialogen.antwoorden << QString::fromLatin1(r.antwoord);
        f.cmdKnop_Click(r.knop);
        EXPECT_EQ(o.meldingen(),
                  r.vraag ? QStringList{o.p.modTaal.LaadTekst(r.vraag)} : QStringList());
        const QString account = QString::fromLatin1(r.aanmelden);
        EXPECT_EQ(o.systeem.actions.contains("autologon-set " + account), !account.isEmpty())
            << o.systeem.actions.join(u',').toStdString();
        EXPECT_EQ(o.systeem.actions.contains(u"logoff"), !account.isEmpty());
        EXPECT_EQ(o.schermen.log.contains(u"vensters 1"), r.vensters);
        // The window stays and drifts on while the user stays on the system's desktop.
        const bool blijft = account.isEmpty() && !r.vensters;
        EXPECT_EQ(blijft, f.Timer1.isActive());
    }
}

TEST(UitwegenTest, TheWindowPaintsItsBandAndFrameAndDriftsWithinTheScreen) {
    Omgeving o;
    o.p.modTaal.ProductTitel = "Tafelkrater";
    FrmWindows& f = o.p.modMainAfsluiten->frmWindows;
    FrmWindowsView view(f);
    EXPECT_FALSE(view.isVisible());
    f.Laden("KLAS3", "geheim");
    f.Timer1.stop();
    EXPECT_TRUE(view.isVisible());
    const QImage beeld = view.grab().toImage();
    ASSERT_EQ(beeld.size(), QSize(FrmWindows::Breedte, FrmWindows::Hoogte));
    // A dark band of 22 pixels with the product's name in white, the light body below it, and a
    // dark frame round it all; the buttons stand in the body.
    const QColor donker(30, 58, 95), licht(244, 247, 251);
    int wit = 0;
    for (int x = 8; x < 100; ++x)
        for (int y = 0; y < 22; ++y)
            wit += qGray(beeld.pixel(x, y)) > 200;
    EXPECT_GT(wit, 20) << "the name in the band";
    const std::pair<QPoint, QColor> punten[] = {
        {{FrmWindows::Breedte - 4, 2}, donker},
        {{FrmWindows::Breedte - 4, 20}, donker},
        {{FrmWindows::Breedte - 4, 23}, licht},
        {{4, FrmWindows::Hoogte - 3}, licht},
        {{0, FrmWindows::Hoogte / 2}, donker},
        {{FrmWindows::Breedte - 1, 50}, donker},
        {{FrmWindows::Breedte / 2, FrmWindows::Hoogte - 1}, donker},
    };
    for (const auto& [punt, kleur] : punten)
        EXPECT_EQ(beeld.pixelColor(punt), kleur) << punt.x() << "," << punt.y();
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(view.knop(i)->text(), f.cmdKnop[i]);
        EXPECT_TRUE(f.cmdKnop[i].contains(u"Tafelkrater")) << f.cmdKnop[i].toStdString();
        EXPECT_TRUE(QRect(1, 23, FrmWindows::Breedte - 2, FrmWindows::Hoogte - 24)
                        .contains(view.knop(i)->geometry()));
    }
    EXPECT_FALSE(view.knop(0)->geometry().intersects(view.knop(1)->geometry()));
    // It drifts, turns at the edges of the screen, and the window follows.
    f.scherm = QRect(0, 0, 300, 120);
    const QPoint begin = f.positie;
    QRect gezien;
    for (int i = 0; i < 500; ++i) {
        f.Timer1_Timer();
        const QRect vak(f.positie, QSize(FrmWindows::Breedte, FrmWindows::Hoogte));
        ASSERT_TRUE(f.scherm.contains(vak)) << i;
        gezien |= vak;
    }
    EXPECT_NE(begin, f.positie);
    EXPECT_EQ(gezien, f.scherm); // it reached every edge
    EXPECT_EQ(view.pos(), f.positie);
    // Back to the program: the window goes with its model.
    o.zetModus(Modus::Beheer);
    f.cmdKnop_Click(0);
    EXPECT_FALSE(view.isVisible());
}

TEST(UitwegenTest, TheHeldFunctionKeysOfBothBarsLeaveTheClientTheirOwnWay) {
    struct Rij {
        const char* naam;
        int toets;
        bool vast;
        bool netwerk;
        const char* gestart;  // the program started, "" none
        const char* systeem;  // the machine's actions joined by ",", as far as they go
        const char* launcher; // the launcher's words
        bool einde;
    };
    const Rij rijen[] = {
        {"F8 hands back", 119, true, false, "", "autologon-remove", "Afsluiten", true},
        {"F9 a prompt", 120, true, false, "x-terminal-emulator", "", "", false},
        {"F10 the system's desktop", 121, true, false, "x-session-manager", "", "", false},
        {"F11 a prompt, the client ends", 122, true, false, "x-terminal-emulator", "", "afsluiten",
         true},
        {"S on a network workstation", 83, true, true, "", "autologon-set global,logoff",
         "Afsluiten", true},
        {"O on a network workstation", 79, true, true, "", "autologon-set onderhoud,logoff",
         "Afsluiten", true},
        {"S elsewhere does nothing", 83, true, false, "", "", "", false},
        {"F10 without the held keys", 121, false, false, "", "", "", false},
        {"another key", 118, true, false, "", "", "", false},
    };
    for (const Rij& r : rijen) {
        SCOPED_TRACE(r.naam);
        for (bool bureaublad : {false, true}) {
            Omgeving o(false, r.netwerk ? Modus::Netwerk : Modus::Standalone);
            bool gebruikt;
            if (bureaublad) {
                o.p.maak(o.p.frmTaakbalk2, o.p);
                gebruikt = o.p.frmTaakbalk2->Form_KeyDown(r.toets, r.vast);
            } else {
                o.p.maak(o.p.frmTaakbalk1, o.p);
                gebruikt = o.p.frmTaakbalk1->Form_KeyDown(r.toets, r.vast);
            }
            const QStringList& gestart = o.platform.fakeProcesses().started;
            EXPECT_EQ(gebruikt, r.vast && r.toets != 118);
            EXPECT_EQ(gestart.isEmpty() ? QString() : gestart.value(0).section(u' ', 0, 0),
                      QString::fromLatin1(r.gestart));
            const QString systeem = o.systeem.actions.join(u',');
            if (*r.systeem) {
                EXPECT_TRUE(systeem.contains(QString::fromLatin1(r.systeem)))
                    << systeem.toStdString();
            }
            EXPECT_EQ(*r.systeem == 0, systeem.isEmpty()) << systeem.toStdString();
            EXPECT_EQ(o.stappen.woorden.join(u','), QString::fromLatin1(r.launcher));
            EXPECT_EQ(o.p.beeindigd, r.einde);
        }
    }
}

} // namespace
