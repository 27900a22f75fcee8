#include "link/FrmMainLink.h"
#include "platform/ContainedSystemActions.h"
#include "tests/session/SessieWerkplek.h"

#include <QDir>
#include <gtest/gtest.h>
#include <map>

using namespace tk;
using namespace tk::test;

namespace {

constexpr auto LM = RegistryRoot::LocalMachine;
constexpr auto CU = RegistryRoot::CurrentUser;
constexpr auto US = RegistryRoot::Users;
const char* const NT = ModMainSessie::WinlogonNT;
const char* const W98 = ModMainSessie::Winlogon98;
const char* const NET = ModMainSessie::Netwerkbeleid;
const char* const INET = ModMainSessie::Internetinstellingen;

// One registry value in a row: a string, a DWORD, or absent (nullptr text, dword -1).
struct Waarde {
    RegistryRoot root;
    const char* pad;
    const char* naam;
    const char* tekst = nullptr;
    long dword = -1;
};
Waarde S(RegistryRoot r, const char* pad, const char* naam, const char* t) {
    return {r, pad, naam, t};
}
Waarde D(RegistryRoot r, const char* pad, const char* naam, long d) {
    return {r, pad, naam, {}, d};
}
Waarde Weg(RegistryRoot r, const char* pad, const char* naam) {
    return {r, pad, naam};
}

// The whole store as "ROOT\key\name" -> "s:text" / "d:n", keys in lower case.
using Beeld = std::map<QString, QString>;
QString sleutel(RegistryRoot root, const QString& pad, const QString& naam) {
    return (QString::number(int(root)) + QLatin1Char('\\') + pad + QLatin1Char('\\') + naam)
        .toLower();
}
QString tekstVan(const RegistryValue& v) {
    if (v.type == RegistryValue::Type::Dword)
        return "d:" + QString::number(v.dword);
    return (v.type == RegistryValue::Type::String ? "s:" : "o:") + v.text;
}
Beeld beeld(FakeRegistry& reg) {
    Beeld uit;
    for (auto root : {LM, CU, US})
        for (const auto& key : reg.hive(root).keys())
            for (const auto& v : key.values)
                uit[sleutel(root, key.path, v.name)] = tekstVan(v.value);
    return uit;
}
void zet(Beeld& b, const Waarde& w) {
    const QString k = sleutel(w.root, QString::fromLatin1(w.pad), QString::fromLatin1(w.naam));
    if (w.tekst)
        b[k] = "s:" + QString::fromUtf8(w.tekst);
    else if (w.dword >= 0)
        b[k] = "d:" + QString::number(w.dword);
    else
        b.erase(k);
}

void vul(SessieWerkplek& w, const QList<Waarde>& waarden) {
    for (const Waarde& v : waarden) {
        const QString pad = QString::fromLatin1(v.pad), naam = QString::fromLatin1(v.naam);
        if (v.tekst)
            w.platform.registry().write(v.root, pad, naam,
                                        RegistryValue::string(QString::fromUtf8(v.tekst)));
        else if (v.dword >= 0)
            w.platform.registry().write(v.root, pad, naam, RegistryValue::number(v.dword));
    }
}

TEST(ModMainSessieTest, TakeOverWritesTheLogonOfItsFamilyAndHandBackLeavesTheStoreAsItWas) {
    struct Rij {
        const char* naam;
        Familie familie;
        Modus modus;
        const char* gebruiker; // [Standalone] Gebruikersnaam / Wachtwoord
        const char* wachtwoord;
        QList<Waarde> voor;
        QList<Waarde> overgenomen;   // what the take-over wrote (or deleted)
        const char* acties;          // what it asked of the machine
        QList<Waarde> verschil;      // how the store after the hand-back differs from before
        const char* resolutie;       // the display mode the start-up kept
        QList<DisplayMode> gevraagd; // and the one the hand-back asks for
    };
    const QList<Waarde> browser = {D(CU, ModMainSessie::Browserbeleid, "NoFileOpen", 0),
                                   D(CU, ModMainSessie::Browserbeleid, "NoFileNew", 0),
                                   D(CU, ModMainSessie::Browserbeleid, "NoBrowserOptions", 0),
                                   D(CU, ModMainSessie::Browserbeleid, "NoTheaterMode", 0),
                                   D(CU, ModMainSessie::Browserbeleid, "NoFindFiles", 0),
                                   D(CU, ModMainSessie::Zone3, "1601", 1)};
    const char* const cuNT = "Software\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon";
    // clang-format off
    const Rij rijen[] = {
        {"nt network: a saved proxy address comes back as the word Ja, a 0 logon flag goes",
         Familie::Nt, Modus::Netwerk, "", "",
         {S(LM, NT, "Shell", "explorer.exe"), S(LM, NT, "AutoAdminLogon", "0"),
          S(LM, NT, "DefaultUserName", "jan"), S(LM, NT, "DefaultPassword", "geheim"),
          S(LM, NT, "DefaultDomainName", "OUD"), D(LM, NT, "DisableCAD", 0),
          D(CU, INET, "ProxyEnable", 1), S(CU, INET, "ProxyServer", "proxy.school:3128"),
          S(CU, cuNT, "Shell", "mijn")},
         {S(LM, NT, "DefaultUserName", "GLOBAL"), S(LM, NT, "DefaultPassword", "Sleutelwrk42"),
          S(LM, NT, "DefaultDomainName", "SCHOOL"), S(LM, NT, "DefaultDomain", "SCHOOL"),
          Weg(CU, cuNT, "Shell")},
         "session-install,autologon-set global,logoff",
         {Weg(LM, NT, "AutoAdminLogon"), Weg(LM, NT, "DisableCAD"),
          S(CU, INET, "ProxyServer", "Ja"), Weg(CU, cuNT, "Shell")},
         "800x600x16", {{800, 600, 16}}},
        {"nt network: force 2 comes back as 1, CAD and the logon type come back typed",
         Familie::Nt, Modus::Netwerk, "", "",
         {S(LM, NT, "Shell", "explorer.exe"), S(LM, NT, "AutoAdminLogon", "1"),
          S(LM, NT, "ForceAutoLogon", "2"), D(LM, NT, "DisableCAD", 1), D(LM, NT, "Logontype", 1),
          S(LM, NT, "DefaultDomain", "D2"), D(CU, INET, "ProxyEnable", 0)},
         {}, "session-install,autologon-set global,logoff",
         {S(LM, NT, "ForceAutoLogon", "1"), Weg(LM, NT, "DefaultUsername"),
          Weg(LM, NT, "DefaultPassword"), Weg(LM, NT, "DefaultDomainName"),
          Weg(CU, INET, "ProxyEnable")},
         "", {}},
        {"nt standalone: an empty password deletes password and domains, the shell stays ours",
         Familie::Nt, Modus::Standalone, "Tafelkrater", "",
         {S(LM, NT, "Shell", "explorer.exe"), S(LM, NT, "altDefaultUsername", "oud"),
          S(LM, NT, "DefaultPassword", "pw"), S(LM, NT, "DefaultDomain", "D")},
         {S(LM, NT, "ForceAutoLogon", "1"), S(LM, NT, "AutoAdminLogon", "1"),
          D(LM, NT, "DisableCAD", 1), S(LM, NT, "DefaultUsername", "Tafelkrater"),
          Weg(LM, NT, "DefaultPassword"), Weg(LM, NT, "DefaultDomainName"),
          Weg(LM, NT, "DefaultDomain")},
         "session-install,autologon-set tafelkrater,logoff",
         {S(LM, NT, "Shell", "/PROG/tafelkrater"), Weg(LM, NT, "altDefaultUsername")},
         "800x600", {}}, // too few parts
        {"nt standalone without a name: no automatic logon",
         Familie::Nt, Modus::Standalone, "", "",
         {S(LM, NT, "Shell", "explorer.exe")},
         {Weg(LM, NT, "AutoAdminLogon"), Weg(LM, NT, "DefaultUsername")},
         "session-install,logoff",
         {S(LM, NT, "Shell", "/PROG/tafelkrater")},
         "0x600x32", {}}, // no size
        {"98 standalone: the password comes back as the name, the caching flag stays set",
         Familie::W98, Modus::Standalone, "Tafelkrater", "Sleutelwrk42",
         {S(LM, W98, "DefaultUserName", "piet"), S(LM, W98, "DefaultPassword", "pw"),
          S(LM, W98, "AutoAdminLogon", "0")},
         {S(LM, W98, "DontDisplayLastUserName", "1"), S(LM, W98, "AutoAdminLogon", "1"),
          S(LM, W98, "DefaultUserName", "Tafelkrater"),
          S(LM, W98, "DefaultPassword", "Sleutelwrk42"), S(LM, W98, "DefaultDomain", ""),
          S(LM, NET, "DisablePwdCaching", "1")},
         "session-install,autologon-set tafelkrater,keys-on,logoff",
         {S(LM, W98, "DefaultPassword", "piet"), S(LM, NET, "DisablePwdCaching", "1")},
         "800xbreedx32", {}}, // no number
        {"98 network: a saved caching flag returns to the network policies",
         Familie::W98, Modus::Netwerk, "", "",
         {S(LM, W98, "DefaultUserName", "piet"), S(LM, NET, "DisablePwdCaching", "0"),
          S(LM, W98, "DontDisplayLastUserName", "0"), S(LM, W98, "DefaultDomain", "OUD"),
          D(CU, INET, "ProxyEnable", 1), S(CU, INET, "ProxyServer", "p:80")},
         {}, "session-install,autologon-set global,keys-on,logoff",
         {S(LM, W98, "DefaultPassword", "piet"), S(LM, W98, "DefaultDomainName", "SCHOOL"),
          S(LM, "Network\\Logon", "username", "GLOBAL"),
          S(LM, "System\\CurrentControlSet\\Control", "Current User", "GLOBAL"),
          S(CU, INET, "ProxyServer", "Ja")},
         "1024x768x32", {{1024, 768, 32}}},
    };
    // clang-format on
    for (const Rij& rij : rijen) {
        SCOPED_TRACE(rij.naam);
        SessieWerkplek w(rij.familie, rij.modus);
        w.zetIni("Standalone", "Gebruikersnaam", rij.gebruiker);
        w.zetIni("Standalone", "Wachtwoord", rij.wachtwoord);
        w.zetIni("Netwerk", "Domein", "SCHOOL");
        w.zetIni("Algemeen", "Resolutie", rij.resolutie);
        vul(w, rij.voor);
        const Beeld voor = beeld(w.platform.fakeRegistry());
        // The program's own path stands in for its placeholder.
        const QByteArray eigen = w.platform.programFile().toUtf8();
        const auto echt = [&](Waarde v) {
            if (v.tekst && qstrcmp(v.tekst, "/PROG/tafelkrater") == 0)
                v.tekst = eigen.constData();
            return v;
        };

        w.sessie.BewaarOpstartinstellingen();
        w.sessie.WijzigOpstarten();
        Beeld verwacht = beeld(w.platform.fakeRegistry());
        const Beeld overgenomen = verwacht;
        for (const Waarde& v : rij.overgenomen)
            zet(verwacht, v);
        EXPECT_EQ(verwacht, overgenomen);
        EXPECT_TRUE(w.sessie.IsShellIngesteld());
        EXPECT_EQ(QString::fromLatin1(rij.acties), w.systeem.actions.join(u','));
        // The session ends with a note of its mode under the program's title.
        ASSERT_EQ(1, w.dialogen.gesteld.size());
        EXPECT_EQ(w.p.modTaal.LaadTekst(3), w.dialogen.gesteld[0].titel);
        EXPECT_EQ(w.p.modTaal.LaadTekst(rij.modus == Modus::Standalone ? 2921 : 2922),
                  w.dialogen.gesteld[0].tekst);
        if (rij.familie == Familie::W98) {
            EXPECT_EQ(RegistryValue::other("hex:00"),
                      w.platform.registry().read(
                          LM, QString::fromLatin1(ModMainSessie::RealModeNet), "Autologon"));
        }

        // What the start-up and the session do between the take-over and the hand-back.
        w.sessie.ZetBureaubladachtergrond(true, true);
        w.sessie.ZetBrowserbeperkingen(true);
        w.sessie.ZetSysteembeperkingen(false, false);
        w.p.maak(w.p.frmMain, w.p);
        w.sessie.TafelkraterDeactiveren(true);
        EXPECT_TRUE(w.p.frmMain->VerliesVerwacht) << "the connection goes with the session";
        verwacht = voor;
        for (const Waarde& b : browser)
            zet(verwacht, b);
        for (const Waarde& v : rij.verschil)
            zet(verwacht, echt(v));
        // The wallpaper values go back under both desktop keys, as empty strings when none were.
        for (auto [root, pad] : {std::pair{CU, ModMainSessie::Bureaublad},
                                 std::pair{US, ModMainSessie::StandaardBureaublad}})
            for (const char* naam : {"Wallpaper", "WallpaperStyle", "TileWallpaper"})
                zet(verwacht, S(root, pad, naam, ""));
        EXPECT_EQ(verwacht, beeld(w.platform.fakeRegistry()));
        EXPECT_EQ(rij.gevraagd, w.platform.fakeDisplay().asked);
        EXPECT_EQ(u"Nee", w.ini("Algemeen", "Geactiveerd"));
        const bool standaloneNt = rij.familie == Familie::Nt && rij.modus == Modus::Standalone;
        EXPECT_EQ(standaloneNt ? u"Ja" : u"", w.ini("Algemeen", "Account verwijderen"));
        if (rij.familie == Familie::W98) {
            EXPECT_EQ(u"explorer.exe", w.ini("boot", "shell", w.pad("W/system.ini")));
            // The copy kept before the take-over is the machine's own file.
            EXPECT_EQ(u"Explorer.exe", w.ini("boot", "shell", "\\backup.ini"));
        }
        EXPECT_EQ(QStringList{"Afsluiten"},
                  w.stappen.woorden.mid(0, 1)); // told before the session went
        EXPECT_TRUE(w.p.beeindigd);
    }
}

// Logon values that do not reach the store leave no automatic logon behind: the machine would
// log the account on into a session that refuses, ends, and is logged on again.
TEST(ModMainSessieTest, ATakeOverWhoseStoreCannotBeWrittenTakesItsLogonBack) {
    SessieWerkplek w(Familie::Nt, Modus::Standalone);
    w.zetIni("Standalone", "Gebruikersnaam", "Tafelkrater");
    w.platform.fakeRegistry().setWritable(false);
    EXPECT_FALSE(w.sessie.WijzigOpstarten());
    EXPECT_EQ(w.systeem.actions.join(u','),
              "session-install,autologon-set tafelkrater,autologon-remove,session-remove");
    EXPECT_EQ(w.ini("Algemeen", "Geactiveerd"), "Nee");
    EXPECT_EQ(w.meldingen(), QStringList{w.p.modTaal.LaadTekst(415)});
    EXPECT_FALSE(w.p.beeindigd);
}

TEST(ModMainSessieTest, PoliciesAreStringsTaskManagerFollowsTheAccountAndMaintenanceIsLeftAlone) {
    struct Rij {
        const char* naam;
        Modus modus;
        const char* account;
        bool metTaakbeheer;
        bool taakbeheerUit; // DisableTaskMgr present
        bool beperkt;       // anything written at all
    };
    const Rij rijen[] = {
        {"a pupil", Modus::Netwerk, "leerling", false, true, true},
        {"maintenance account", Modus::Netwerk, "Onderhoud", false, false, true},
        {"with the task manager", Modus::Standalone, "leerling", true, false, true},
        {"maintenance mode", Modus::Beheer, "leerling", false, false, false},
    };
    for (const Rij& rij : rijen) {
        SCOPED_TRACE(rij.naam);
        SessieWerkplek w(Familie::Nt, rij.modus);
        w.platform.fakeEnvironment().setVariable("USERNAME", QString::fromLatin1(rij.account));
        w.sessie.ZetSysteembeperkingen(false, rij.metTaakbeheer);
        w.sessie.ZetBrowserbeperkingen(true);
        auto lees = [&](const char* pad, const char* naam) {
            return w.platform.registry().read(CU, QString::fromLatin1(pad),
                                              QString::fromLatin1(naam));
        };
        const auto lock = lees(ModMainSessie::Systeembeleid, "DisableLockWorkstation");
        EXPECT_EQ(rij.beperkt, lock.has_value());
        if (rij.beperkt) {
            EXPECT_EQ(RegistryValue::string("1"), *lock);
            EXPECT_EQ(RegistryValue::string("1"), *lees(ModMainSessie::Verkennerbeleid, "NoClose"));
            EXPECT_EQ(RegistryValue::number(1), *lees(ModMainSessie::Browserbeleid, "NoFileOpen"));
            EXPECT_EQ(RegistryValue::number(0), *lees(ModMainSessie::Zone3, "1601"));
        }
        EXPECT_EQ(rij.taakbeheerUit,
                  lees(ModMainSessie::Systeembeleid, "DisableTaskMgr").has_value());
        w.sessie.ZetSysteembeperkingen(true, false);
        EXPECT_FALSE(lees(ModMainSessie::Verkennerbeleid, "NoLogoff").has_value());
    }
}

TEST(ModMainSessieTest, ProxyFollowsTheSavedStateAndNeverTakesOverTheFilter) {
    struct Rij {
        const char* naam;
        bool aan;
        const char* proxy;
        const char* server;
        long enable;
        const char* resultaat; // nullptr: deleted
        const char* actie;
        const char* gestart; // the proxy of the programs the desktop starts from now on
    };
    const Rij rijen[] = {
        {"on", true, "Nee", "", 1, "Tafelkrater internetfilter:8080",
         "proxy-set tafelkrater-internetfilter.invalid:8080",
         "tafelkrater-internetfilter.invalid:8080"},
        {"off, saved server", false, "ja", "p:3128", 1, "p:3128", "proxy-set p:3128", "p:3128"},
        {"off, nothing saved", false, "Nee", " ", 0, nullptr, "proxy-clear", ""},
        {"off, our own filter saved", false, "Ja", "Tafelkrater internetfilter:8080", 1, nullptr,
         "proxy-clear", ""},
    };
    for (const Rij& rij : rijen) {
        SCOPED_TRACE(rij.naam);
        SessieWerkplek w(Familie::Nt, Modus::Netwerk);
        w.zetIni("Oude opstartinstellingen", "Proxy", rij.proxy);
        w.zetIni("Oude opstartinstellingen", "ProxyServer", rij.server);
        w.platform.fakeProcesses().webProxy = "vooraf";
        w.sessie.ZetProxy(rij.aan);
        EXPECT_TRUE(w.systeem.actions.isEmpty()) << "not in use: nothing changes";
        EXPECT_EQ(w.platform.fakeProcesses().webProxy, "vooraf");
        w.sessie.proxyInGebruik = true;
        w.sessie.ZetProxy(rij.aan);
        const QString pad = QString::fromLatin1(INET);
        EXPECT_EQ(RegistryValue::number(quint32(rij.enable)),
                  w.platform.registry().read(CU, pad, "ProxyEnable"));
        const auto server = w.platform.registry().read(CU, pad, "ProxyServer");
        EXPECT_EQ(rij.resultaat != nullptr, server.has_value());
        if (rij.resultaat && server) {
            EXPECT_EQ(QString::fromLatin1(rij.resultaat), server->text);
        }
        EXPECT_EQ(QStringList{QString::fromLatin1(rij.actie)}, w.systeem.actions);
        EXPECT_EQ(QString::fromLatin1(rij.gestart), w.platform.fakeProcesses().webProxy);
    }
}

TEST(ModMainSessieTest, SessionActionsLiftTheLimitsTellTheLauncherThenEndTheClient) {
    struct Rij {
        const char* actie;
        QStringList acties;
        bool uitgevoerd;
        int meldingen;
    };
    const Rij rijen[] = {
        {"afmelden", {"logoff"}, true, 0},
        {"opnieuwopstarten", {"reboot"}, true, 0},
        {"uitschakelen", {"poweroff"}, true, 0},
        // The proxy file goes although this run never used the proxy.
        {"deactiveren", {"autologon-remove", "session-remove", "proxy-clear", "logoff"}, true, 1},
        {"aanmeldenalsaccount|KLAS3A|pw|x", {"autologon-set klas3a", "logoff"}, true, 0},
        {"sluiten|a|b", {}, false, 0},
    };
    for (const Rij& rij : rijen) {
        SCOPED_TRACE(rij.actie);
        SessieWerkplek w(Familie::Nt, Modus::Netwerk);
        w.sessie.ZetBrowserbeperkingen(true);
        w.systeem.refused << "reboot"; // a refused restart still ends the client
        EXPECT_EQ(rij.uitgevoerd, w.sessie.SessieActie(QString::fromLatin1(rij.actie)));
        EXPECT_EQ(rij.acties, w.systeem.actions);
        EXPECT_EQ(rij.uitgevoerd, w.p.beeindigd);
        EXPECT_EQ(rij.uitgevoerd ? QStringList{"Afsluiten"} : QStringList{}, w.stappen.woorden);
        EXPECT_EQ(rij.meldingen, w.dialogen.gesteld.size());
        // A log off takes the browser's limits off first.
        const bool uit = rij.acties.contains("logoff");
        EXPECT_EQ(RegistryValue::number(uit ? 0 : 1),
                  *w.platform.registry().read(CU, QString::fromLatin1(ModMainSessie::Browserbeleid),
                                              "NoFileOpen"));
    }
}

TEST(ModMainSessieTest, LogonAsAnotherAccountWritesTheFamilysValuesWithTheProgramsDomain) {
    struct Rij {
        Familie familie;
        const char* wachtwoord;
        QList<Waarde> na;
    };
    // clang-format off
    const Rij rijen[] = {
        {Familie::Nt, "pw",
         {S(LM, NT, "ForceAutoLogon", "1"), S(LM, NT, "AutoAdminLogon", "1"), D(LM, NT, "DisableCAD", 1),
          S(LM, NT, "DefaultUserName", "global"), S(LM, NT, "DefaultPassword", "pw"),
          S(LM, NT, "DefaultDomain", "SCHOOL"), S(LM, NT, "DefaultDomainName", "SCHOOL")}},
        {Familie::Nt, "",
         {S(LM, NT, "ForceAutoLogon", "1"), S(LM, NT, "AutoAdminLogon", "1"), D(LM, NT, "DisableCAD", 1),
          S(LM, NT, "DefaultUserName", "global"), S(LM, NT, "DefaultDomain", "SCHOOL"),
          S(LM, NT, "DefaultDomainName", "SCHOOL")}},
        {Familie::W98, "pw",
         {S(LM, W98, "DefaultUserName", "global"), S(LM, W98, "DefaultPassword", "pw"),
          S(LM, W98, "DefaultDomainName", "SCHOOL"), S(LM, W98, "DefaultDomain", "SCHOOL"),
          S(LM, "Network\\Logon", "username", "global"),
          S(LM, "System\\CurrentControlSet\\Control", "Current User", "global")}},
    };
    // clang-format on
    for (const Rij& rij : rijen) {
        SCOPED_TRACE(int(rij.familie));
        SessieWerkplek w(rij.familie, Modus::Netwerk);
        w.zetIni("Netwerk", "Domein", "SCHOOL");
        vul(w, {S(LM, NT, "DefaultPassword", "oud")});
        w.sessie.AanmeldenAlsAccount("global", QString::fromLatin1(rij.wachtwoord), "ANDER", false);
        Beeld verwacht;
        for (const Waarde& v : rij.na)
            zet(verwacht, v);
        if (rij.familie == Familie::W98)
            zet(verwacht, S(LM, NT, "DefaultPassword", "oud"));
        EXPECT_EQ(verwacht, beeld(w.platform.fakeRegistry()));
        EXPECT_EQ(QStringList{"autologon-set global"}, w.systeem.actions);
        EXPECT_FALSE(w.p.beeindigd);
    }
}

TEST(ModMainSessieTest, ContainedSettingRecordsEachActionAsOneLineAndChangesNothingElse) {
    SessieWerkplek w(Familie::Nt, Modus::Standalone);
    w.platform.fakeClock().setNow(QDateTime(QDate(2026, 11, 25), QTime(9, 41, 7)));
    ContainedSystemActions afgeschermd(w.map(), w.platform.clock());
    ModMainSessie sessie(w.p, afgeschermd);
    w.zetIni("Standalone", "Gebruikersnaam", "Tafelkrater");
    sessie.proxyInGebruik = true;
    sessie.BewaarOpstartinstellingen();
    sessie.WijzigOpstarten();
    sessie.ZetProxy(true);
    QString uit;
    afgeschermd.run("net", {"user", "a b"}, "geheim", &uit);
    sessie.TafelkraterDeactiveren(true);
    EXPECT_EQ(u"The command completed successfully.\n", uit);
    const QString log = QString::fromUtf8(w.lees("Logboek/systeem.log"));
    EXPECT_EQ(
        QStringLiteral("2026-11-25 09:41:07 session-install\n"
                       "2026-11-25 09:41:07 autologon-set tafelkrater\n"
                       "2026-11-25 09:41:07 proxy-clear\n"
                       "2026-11-25 09:41:07 logoff\n"
                       "2026-11-25 09:41:07 proxy-set tafelkrater-internetfilter.invalid:8080\n"
                       "2026-11-25 09:41:07 net user \"a b\"\n"
                       "2026-11-25 09:41:07 autologon-remove\n"
                       "2026-11-25 09:41:07 session-remove\n"
                       "2026-11-25 09:41:07 proxy-clear\n"
                       "2026-11-25 09:41:07 proxy-clear\n"
                       "2026-11-25 09:41:07 proxy-clear\n"
                       "2026-11-25 09:41:07 logoff\n"),
        log);
    EXPECT_FALSE(log.contains(u"geheim"));
    QStringList bestanden = QDir(w.map()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    bestanden.sort();
    EXPECT_EQ((QStringList{"Data", "Logboek", "W"}), bestanden);
}

TEST(ModMainSessieTest, SessionSettingIsContainedUnlessItSaysSysteemAndTheStoreIsTestedClean) {
    for (const auto& [waarde, systeem] :
         {std::pair{"", false}, {"afgeschermd", false}, {"Systeem", true}, {"systemen", false}}) {
        SCOPED_TRACE(waarde);
        SessieWerkplek w(Familie::Nt, Modus::Netwerk);
        w.zetIni("Instellingen", "Sessie", waarde);
        EXPECT_EQ(systeem, ModMainSessie::SysteemInstelling(w.p));
    }
    EXPECT_EQ(u"global", ModMainSessie::LinuxAccount("SCHOOL\\GLOBAL"));
    // The registry's write test leaves nothing behind and fails on a read-only store.
    SessieWerkplek w(Familie::Nt, Modus::Netwerk);
    EXPECT_TRUE(w.sessie.ControleerRegisterSchrijfbaar());
    EXPECT_TRUE(beeld(w.platform.fakeRegistry()).empty());
    w.platform.fakeRegistry().setWritable(false);
    EXPECT_FALSE(w.sessie.ControleerRegisterSchrijfbaar());
}

} // namespace
