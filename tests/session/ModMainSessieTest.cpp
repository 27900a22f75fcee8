#include "session/ModMainSessie.h"

#include "core/OpstartStappen.h"
#include "platform/ContainedSystemActions.h"
#include "platform/fake/FakeSystemActions.h"
#include "tests/support/Werkplek.h"

#include <QDir>
#include <gtest/gtest.h>
#include <map>

using namespace tk;
using tk::test::Werkplek;

namespace {

enum class Familie { Nt, W98 };
enum class Modus { Standalone, Netwerk, Beheer };

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
    return {r, pad, naam, t, -1};
}
Waarde D(RegistryRoot r, const char* pad, const char* naam, long d) {
    return {r, pad, naam, nullptr, d};
}
Waarde Weg(RegistryRoot r, const char* pad, const char* naam) {
    return {r, pad, naam, nullptr, -1};
}

// The whole store as "ROOT\key\name" -> "s:text" / "d:n", keys in lower case.
using Beeld = std::map<QString, QString>;
QString sleutel(RegistryRoot root, const QString& pad, const QString& naam) {
    return (QString::number(int(root)) + QLatin1Char('\\') + pad + QLatin1Char('\\') + naam)
        .toLower();
}
QString tekstVan(const RegistryValue& v) {
    if (v.type == RegistryValue::Type::Dword)
        return QStringLiteral("d:") + QString::number(v.dword);
    return (v.type == RegistryValue::Type::String ? QStringLiteral("s:") : QStringLiteral("o:")) +
           v.text;
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
        b[k] = QStringLiteral("s:") + QString::fromUtf8(w.tekst);
    else if (w.dword >= 0)
        b[k] = QStringLiteral("d:") + QString::number(w.dword);
    else
        b.erase(k);
}

// The launcher's word is all the session asks of the start-up steps here.
class Stappen : public UnbuiltStartSteps {
public:
    using UnbuiltStartSteps::UnbuiltStartSteps;
    bool StuurOpstartCommando(const QString& woord) override {
        woorden << woord;
        return true;
    }
    QStringList woorden;
};

struct Werkstation : Werkplek {
    Werkstation(Familie familie, Modus modus) : stappen(p), sessie(p, systeem) {
        p.opstartStappen = &stappen;
        p.modMain.MaakMappen(QStringLiteral("\\Data"));
        p.modMain.IsWindows98 = familie == Familie::W98;
        if (p.modMain.IsWindows98)
            platform.fakeEnvironment().playWindows98();
        p.modMain.ModusStandalone = modus == Modus::Standalone;
        p.modMain.ModusNetwerk = modus == Modus::Netwerk;
        p.modMain.ModusBeheer = modus == Modus::Beheer;
        platform.fakeEnvironment().setVariable(QStringLiteral("WINDIR"), QStringLiteral("\\W"));
        schrijf(QStringLiteral("W/system.ini"), "[boot]\r\nshell=Explorer.exe\r\n");
    }
    void zetIni(const char* sectie, const char* sleutel, const char* waarde) {
        p.modMain.SchrijfIni(QString::fromUtf8(waarde), QString::fromLatin1(sectie),
                             QString::fromLatin1(sleutel),
                             QStringLiteral("\\Data\\Instellingen.ini"));
    }
    QString ini(const char* sectie, const char* sleutel,
                const QString& bestand = QStringLiteral("\\Data\\Instellingen.ini")) {
        return p.modMain.LeesIni(QString::fromLatin1(sectie), QString::fromLatin1(sleutel),
                                 bestand);
    }
    void vul(const QList<Waarde>& waarden) {
        for (const Waarde& w : waarden) {
            const QString pad = QString::fromLatin1(w.pad), naam = QString::fromLatin1(w.naam);
            if (w.tekst)
                platform.registry().write(w.root, pad, naam,
                                          RegistryValue::string(QString::fromUtf8(w.tekst)));
            else if (w.dword >= 0)
                platform.registry().write(w.root, pad, naam, RegistryValue::number(w.dword));
        }
    }
    // What the start-up and the session do between the take-over and the hand-back.
    void overnameEnTerug() {
        sessie.BewaarOpstartinstellingen();
        sessie.WijzigOpstarten();
        sessie.ZetBureaubladachtergrond(true, true);
        sessie.ZetBrowserbeperkingen(true);
        sessie.ZetSysteembeperkingen(false, false);
        sessie.TafelkraterDeactiveren(true);
    }

    Stappen stappen;
    FakeSystemActions systeem;
    ModMainSessie sessie;
};

TEST(ModMainSessieTest, TakeOverAndHandBackLeaveTheStoreAsItWasButForItsKnownQuirks) {
    struct Rij {
        const char* naam;
        Familie familie;
        Modus modus;
        const char* gebruiker; // [Standalone] Gebruikersnaam / Wachtwoord
        const char* wachtwoord;
        QList<Waarde> voor;
        QList<Waarde> verschil; // how the store after differs from the store before
    };
    const QList<Waarde> browser = {D(CU, ModMainSessie::Browserbeleid, "NoFileOpen", 0),
                                   D(CU, ModMainSessie::Browserbeleid, "NoFileNew", 0),
                                   D(CU, ModMainSessie::Browserbeleid, "NoBrowserOptions", 0),
                                   D(CU, ModMainSessie::Browserbeleid, "NoTheaterMode", 0),
                                   D(CU, ModMainSessie::Browserbeleid, "NoFindFiles", 0),
                                   D(CU, ModMainSessie::Zone3, "1601", 1)};
    const Rij rijen[] = {
        {"nt network: a saved proxy address comes back as the word Ja, a 0 logon flag goes",
         Familie::Nt,
         Modus::Netwerk,
         "",
         "",
         {S(LM, NT, "Shell", "explorer.exe"), S(LM, NT, "AutoAdminLogon", "0"),
          S(LM, NT, "DefaultUserName", "jan"), S(LM, NT, "DefaultPassword", "geheim"),
          S(LM, NT, "DefaultDomainName", "OUD"), D(LM, NT, "DisableCAD", 0),
          D(CU, INET, "ProxyEnable", 1), S(CU, INET, "ProxyServer", "proxy.school:3128"),
          S(CU, "Software\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon", "Shell", "mijn")},
         {Weg(LM, NT, "AutoAdminLogon"), Weg(LM, NT, "DisableCAD"),
          S(CU, INET, "ProxyServer", "Ja"),
          Weg(CU, "Software\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon", "Shell")}},
        {"nt network: force 2 comes back as 1, CAD and the logon type come back typed",
         Familie::Nt,
         Modus::Netwerk,
         "",
         "",
         {S(LM, NT, "Shell", "explorer.exe"), S(LM, NT, "AutoAdminLogon", "1"),
          S(LM, NT, "ForceAutoLogon", "2"), D(LM, NT, "DisableCAD", 1), D(LM, NT, "Logontype", 1),
          S(LM, NT, "DefaultDomain", "D2"), D(CU, INET, "ProxyEnable", 0)},
         {S(LM, NT, "ForceAutoLogon", "1"), Weg(LM, NT, "DefaultUsername"),
          Weg(LM, NT, "DefaultPassword"), Weg(LM, NT, "DefaultDomainName"),
          Weg(CU, INET, "ProxyEnable")}},
        {"nt standalone: the shell stays ours, an empty name also drops altDefaultUsername",
         Familie::Nt,
         Modus::Standalone,
         "Tafelkrater",
         "",
         {S(LM, NT, "Shell", "explorer.exe"), S(LM, NT, "altDefaultUsername", "oud"),
          S(LM, NT, "DefaultPassword", "pw"), S(LM, NT, "DefaultDomain", "D")},
         {S(LM, NT, "Shell", "/PROG/tafelkrater"), Weg(LM, NT, "altDefaultUsername")}},
        {"98 standalone: the password comes back as the name, the caching flag stays set",
         Familie::W98,
         Modus::Standalone,
         "Tafelkrater",
         "Sleutelwrk42",
         {S(LM, W98, "DefaultUserName", "piet"), S(LM, W98, "DefaultPassword", "pw"),
          S(LM, W98, "AutoAdminLogon", "0")},
         {S(LM, W98, "DefaultPassword", "piet"), S(LM, NET, "DisablePwdCaching", "1")}},
        {"98 network: a saved caching flag returns to the network policies",
         Familie::W98,
         Modus::Netwerk,
         "",
         "",
         {S(LM, W98, "DefaultUserName", "piet"), S(LM, NET, "DisablePwdCaching", "0"),
          S(LM, W98, "DontDisplayLastUserName", "0"), S(LM, W98, "DefaultDomain", "OUD"),
          D(CU, INET, "ProxyEnable", 1), S(CU, INET, "ProxyServer", "p:80")},
         {S(LM, W98, "DefaultPassword", "piet"), S(LM, W98, "DefaultDomainName", "SCHOOL"),
          S(LM, "Network\\Logon", "username", "GLOBAL"),
          S(LM, "System\\CurrentControlSet\\Control", "Current User", "GLOBAL"),
          S(CU, INET, "ProxyServer", "Ja")}},
    };
    for (const Rij& rij : rijen) {
        SCOPED_TRACE(rij.naam);
        Werkstation w(rij.familie, rij.modus);
        w.zetIni("Standalone", "Gebruikersnaam", rij.gebruiker);
        w.zetIni("Standalone", "Wachtwoord", rij.wachtwoord);
        w.zetIni("Netwerk", "Domein", "SCHOOL");
        w.vul(rij.voor);
        Beeld verwacht = beeld(w.platform.fakeRegistry());
        for (const Waarde& b : browser)
            zet(verwacht, b);
        for (const Waarde& v : rij.verschil) {
            Waarde echt = v;
            // The program's own path stands in for the placeholder.
            static QByteArray eigen;
            if (v.tekst && qstrcmp(v.tekst, "/PROG/tafelkrater") == 0) {
                eigen = w.platform.programFile().toUtf8();
                echt.tekst = eigen.constData();
            }
            zet(verwacht, echt);
        }
        // The wallpaper values go back under both desktop keys, as empty strings when none were.
        for (auto [root, pad] : {std::pair{CU, ModMainSessie::Bureaublad},
                                 std::pair{US, ModMainSessie::StandaardBureaublad}})
            for (const char* naam : {"Wallpaper", "WallpaperStyle", "TileWallpaper"})
                zet(verwacht, S(root, pad, naam, ""));

        w.overnameEnTerug();

        EXPECT_EQ(verwacht, beeld(w.platform.fakeRegistry()));
        EXPECT_EQ(u"Nee", w.ini("Algemeen", "Geactiveerd"));
        const bool standaloneNt = rij.familie == Familie::Nt && rij.modus == Modus::Standalone;
        EXPECT_EQ(standaloneNt ? u"Ja" : u"", w.ini("Algemeen", "Account verwijderen"));
        if (rij.familie == Familie::W98) {
            EXPECT_EQ(u"explorer.exe",
                      w.ini("boot", "shell", w.pad(QStringLiteral("W/system.ini"))));
            // The copy kept before the take-over is the machine's own file.
            EXPECT_EQ(u"Explorer.exe", w.ini("boot", "shell", QStringLiteral("\\backup.ini")));
        }
        EXPECT_EQ(QStringList{QStringLiteral("Afsluiten")},
                  w.stappen.woorden.mid(0, 1)); // told before the session went
        EXPECT_TRUE(w.p.beeindigd);
    }
}

TEST(ModMainSessieTest, TakeOverWritesTheLogonOfEachFamilyAndMode) {
    struct Rij {
        const char* naam;
        Familie familie;
        Modus modus;
        const char* gebruiker;
        const char* wachtwoord;
        QList<Waarde> na;
        QList<const char*> acties;
    };
    const Rij rijen[] = {
        {"nt standalone with an empty password deletes password and domains",
         Familie::Nt,
         Modus::Standalone,
         "Tafelkrater",
         "",
         {S(LM, NT, "ForceAutoLogon", "1"), S(LM, NT, "AutoAdminLogon", "1"),
          D(LM, NT, "DisableCAD", 1), S(LM, NT, "DefaultUsername", "Tafelkrater"),
          Weg(LM, NT, "DefaultPassword"), Weg(LM, NT, "DefaultDomainName"),
          Weg(LM, NT, "DefaultDomain")},
         {"session-install", "autologon-set tafelkrater", "logoff"}},
        {"nt standalone without a name: no automatic logon",
         Familie::Nt,
         Modus::Standalone,
         "",
         "",
         {Weg(LM, NT, "AutoAdminLogon"), Weg(LM, NT, "DefaultUsername")},
         {"session-install", "logoff"}},
        {"nt network logs on as GLOBAL with the fixed password and the domain",
         Familie::Nt,
         Modus::Netwerk,
         "",
         "",
         {S(LM, NT, "DefaultUserName", "GLOBAL"), S(LM, NT, "DefaultPassword", "Sleutelwrk42"),
          S(LM, NT, "DefaultDomainName", "SCHOOL"), S(LM, NT, "DefaultDomain", "SCHOOL")},
         {"session-install", "autologon-set global", "logoff"}},
        {"98 standalone writes the logon strings and the real-mode autologon",
         Familie::W98,
         Modus::Standalone,
         "Tafelkrater",
         "Sleutelwrk42",
         {S(LM, W98, "DontDisplayLastUserName", "1"), S(LM, W98, "AutoAdminLogon", "1"),
          S(LM, W98, "DefaultUserName", "Tafelkrater"),
          S(LM, W98, "DefaultPassword", "Sleutelwrk42"), S(LM, W98, "DefaultDomain", ""),
          S(LM, NET, "DisablePwdCaching", "1")},
         {"session-install", "autologon-set tafelkrater", "keys-on", "logoff"}},
    };
    for (const Rij& rij : rijen) {
        SCOPED_TRACE(rij.naam);
        Werkstation w(rij.familie, rij.modus);
        w.zetIni("Standalone", "Gebruikersnaam", rij.gebruiker);
        w.zetIni("Standalone", "Wachtwoord", rij.wachtwoord);
        w.zetIni("Netwerk", "Domein", "SCHOOL");
        w.sessie.WijzigOpstarten();
        Beeld na = beeld(w.platform.fakeRegistry());
        Beeld verwacht = na;
        for (const Waarde& v : rij.na)
            zet(verwacht, v);
        EXPECT_EQ(verwacht, na);
        EXPECT_TRUE(w.sessie.IsShellIngesteld());
        QStringList acties;
        for (const char* a : rij.acties)
            acties << QString::fromLatin1(a);
        EXPECT_EQ(acties, w.systeem.actions);
        if (rij.familie == Familie::W98) {
            const auto autologon = w.platform.registry().read(
                LM, QString::fromLatin1(ModMainSessie::RealModeNet), QStringLiteral("Autologon"));
            ASSERT_TRUE(autologon.has_value());
            EXPECT_EQ(RegistryValue::other(QStringLiteral("hex:00")), *autologon);
        }
    }
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
        Werkstation w(Familie::Nt, rij.modus);
        w.platform.fakeEnvironment().setVariable(QStringLiteral("USERNAME"),
                                                 QString::fromLatin1(rij.account));
        w.sessie.ZetSysteembeperkingen(false, rij.metTaakbeheer);
        w.sessie.ZetBrowserbeperkingen(true);
        auto lees = [&](const char* pad, const char* naam) {
            return w.platform.registry().read(CU, QString::fromLatin1(pad),
                                              QString::fromLatin1(naam));
        };
        const auto lock = lees(ModMainSessie::Systeembeleid, "DisableLockWorkstation");
        EXPECT_EQ(rij.beperkt, lock.has_value());
        if (rij.beperkt) {
            EXPECT_EQ(RegistryValue::string(QStringLiteral("1")), *lock);
            EXPECT_EQ(RegistryValue::string(QStringLiteral("1")),
                      *lees(ModMainSessie::Verkennerbeleid, "NoClose"));
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
        Werkstation w(Familie::Nt, Modus::Netwerk);
        w.zetIni("Oude opstartinstellingen", "Proxy", rij.proxy);
        w.zetIni("Oude opstartinstellingen", "ProxyServer", rij.server);
        w.platform.fakeProcesses().webProxy = QStringLiteral("vooraf");
        w.sessie.ZetProxy(rij.aan);
        EXPECT_TRUE(w.systeem.actions.isEmpty()) << "not in use: nothing changes";
        EXPECT_EQ(w.platform.fakeProcesses().webProxy, QStringLiteral("vooraf"));
        w.sessie.proxyInGebruik = true;
        w.sessie.ZetProxy(rij.aan);
        const QString pad = QString::fromLatin1(INET);
        EXPECT_EQ(RegistryValue::number(quint32(rij.enable)),
                  w.platform.registry().read(CU, pad, QStringLiteral("ProxyEnable")));
        const auto server = w.platform.registry().read(CU, pad, QStringLiteral("ProxyServer"));
        EXPECT_EQ(rij.resultaat != nullptr, server.has_value());
        if (rij.resultaat && server) {
            EXPECT_EQ(QString::fromLatin1(rij.resultaat), server->text);
        }
        EXPECT_EQ(QStringList{QString::fromLatin1(rij.actie)}, w.systeem.actions);
        EXPECT_EQ(QString::fromLatin1(rij.gestart), w.platform.fakeProcesses().webProxy);
    }
}

TEST(ModMainSessieTest, TheHandBackGivesTheDisplayModeTheStartUpKeptBack) {
    struct Rij {
        const char* resolutie;
        QList<DisplayMode> gevraagd;
    };
    const Rij rijen[] = {
        {"800x600x16", {{800, 600, 16}}},
        {"", {}},
        {"800x600", {}},      // too few parts
        {"800xbreedx32", {}}, // no number
        {"0x600x32", {}},     // no size
    };
    for (const Rij& r : rijen) {
        SCOPED_TRACE(r.resolutie);
        Werkstation w(Familie::Nt, Modus::Netwerk);
        w.zetIni("Algemeen", "Resolutie", r.resolutie);
        w.sessie.TafelkraterDeactiveren(true);
        EXPECT_EQ(r.gevraagd, w.platform.fakeDisplay().asked);
    }
}

TEST(ModMainSessieTest, RegistryWriteTestLeavesNothingBehindAndFailsOnAReadOnlyStore) {
    Werkstation w(Familie::Nt, Modus::Netwerk);
    EXPECT_TRUE(w.sessie.ControleerRegisterSchrijfbaar());
    EXPECT_TRUE(beeld(w.platform.fakeRegistry()).empty());
    w.platform.fakeRegistry().setWritable(false);
    EXPECT_FALSE(w.sessie.ControleerRegisterSchrijfbaar());
}

TEST(ModMainSessieTest, SessionActionsLiftTheLimitsTellTheLauncherThenEndTheClient) {
    struct Rij {
        const char* actie;
        QStringList acties;
        bool uitgevoerd;
        int meldingen;
    };
    const Rij rijen[] = {
        {"afmelden", {QStringLiteral("logoff")}, true, 0},
        {"opnieuwopstarten", {QStringLiteral("reboot")}, true, 0},
        {"uitschakelen", {QStringLiteral("poweroff")}, true, 0},
        {"deactiveren", {QStringLiteral("autologon-remove"), QStringLiteral("logoff")}, true, 1},
        {"aanmeldenalsaccount|KLAS3A|pw|x",
         {QStringLiteral("autologon-set klas3a"), QStringLiteral("logoff")},
         true,
         0},
        {"sluiten|a|b", {}, false, 0},
    };
    for (const Rij& rij : rijen) {
        SCOPED_TRACE(rij.actie);
        Werkstation w(Familie::Nt, Modus::Netwerk);
        w.sessie.ZetBrowserbeperkingen(true);
        w.systeem.refused << QStringLiteral("reboot"); // a refused restart still ends the client
        EXPECT_EQ(rij.uitgevoerd, w.sessie.SessieActie(QString::fromLatin1(rij.actie)));
        EXPECT_EQ(rij.acties, w.systeem.actions);
        EXPECT_EQ(rij.uitgevoerd, w.p.beeindigd);
        EXPECT_EQ(rij.uitgevoerd ? QStringList{QStringLiteral("Afsluiten")} : QStringList{},
                  w.stappen.woorden);
        EXPECT_EQ(rij.meldingen, w.dialogen.gesteld.size());
        // A log off takes the browser's limits off first.
        const bool uit = rij.acties.contains(QStringLiteral("logoff"));
        EXPECT_EQ(RegistryValue::number(uit ? 0 : 1),
                  *w.platform.registry().read(CU, QString::fromLatin1(ModMainSessie::Browserbeleid),
                                              QStringLiteral("NoFileOpen")));
    }
}

TEST(ModMainSessieTest, LogonAsAnotherAccountWritesTheFamilysValuesWithTheProgramsDomain) {
    struct Rij {
        Familie familie;
        const char* wachtwoord;
        QList<Waarde> na;
    };
    const Rij rijen[] = {
        {Familie::Nt,
         "pw",
         {S(LM, NT, "ForceAutoLogon", "1"), S(LM, NT, "AutoAdminLogon", "1"),
          D(LM, NT, "DisableCAD", 1), S(LM, NT, "DefaultUserName", "global"),
          S(LM, NT, "DefaultPassword", "pw"), S(LM, NT, "DefaultDomain", "SCHOOL"),
          S(LM, NT, "DefaultDomainName", "SCHOOL")}},
        {Familie::Nt,
         "",
         {S(LM, NT, "ForceAutoLogon", "1"), S(LM, NT, "AutoAdminLogon", "1"),
          D(LM, NT, "DisableCAD", 1), S(LM, NT, "DefaultUserName", "global"),
          S(LM, NT, "DefaultDomain", "SCHOOL"), S(LM, NT, "DefaultDomainName", "SCHOOL")}},
        {Familie::W98,
         "pw",
         {S(LM, W98, "DefaultUserName", "global"), S(LM, W98, "DefaultPassword", "pw"),
          S(LM, W98, "DefaultDomainName", "SCHOOL"), S(LM, W98, "DefaultDomain", "SCHOOL"),
          S(LM, "Network\\Logon", "username", "global"),
          S(LM, "System\\CurrentControlSet\\Control", "Current User", "global")}},
    };
    for (const Rij& rij : rijen) {
        SCOPED_TRACE(int(rij.familie));
        Werkstation w(rij.familie, Modus::Netwerk);
        w.zetIni("Netwerk", "Domein", "SCHOOL");
        w.vul({S(LM, NT, "DefaultPassword", "oud")});
        w.sessie.AanmeldenAlsAccount(QStringLiteral("global"), QString::fromLatin1(rij.wachtwoord),
                                     QStringLiteral("ANDER"), false);
        Beeld verwacht;
        for (const Waarde& v : rij.na)
            zet(verwacht, v);
        if (rij.familie == Familie::W98)
            zet(verwacht, S(LM, NT, "DefaultPassword", "oud"));
        EXPECT_EQ(verwacht, beeld(w.platform.fakeRegistry()));
        EXPECT_EQ(QStringList{QStringLiteral("autologon-set global")}, w.systeem.actions);
        EXPECT_FALSE(w.p.beeindigd);
    }
}

TEST(ModMainSessieTest, ContainedSettingRecordsEachActionAsOneLineAndChangesNothingElse) {
    Werkstation w(Familie::Nt, Modus::Standalone);
    w.platform.fakeClock().setNow(QDateTime(QDate(2026, 11, 25), QTime(9, 41, 7)));
    ContainedSystemActions afgeschermd(w.map(), w.platform.clock());
    ModMainSessie sessie(w.p, afgeschermd);
    w.zetIni("Standalone", "Gebruikersnaam", "Tafelkrater");
    sessie.proxyInGebruik = true;
    sessie.BewaarOpstartinstellingen();
    sessie.WijzigOpstarten();
    sessie.ZetProxy(true);
    QString uit;
    afgeschermd.run(QStringLiteral("net"), {QStringLiteral("user"), QStringLiteral("a b")},
                    QStringLiteral("geheim"), &uit);
    sessie.TafelkraterDeactiveren(true);
    EXPECT_EQ(u"The command completed successfully.\n", uit);
    const QString log = QString::fromUtf8(w.lees(QStringLiteral("Logboek/systeem.log")));
    EXPECT_EQ(
        QStringLiteral("2026-11-25 09:41:07 session-install\n"
                       "2026-11-25 09:41:07 autologon-set tafelkrater\n"
                       "2026-11-25 09:41:07 proxy-clear\n"
                       "2026-11-25 09:41:07 logoff\n"
                       "2026-11-25 09:41:07 proxy-set tafelkrater-internetfilter.invalid:8080\n"
                       "2026-11-25 09:41:07 net user \"a b\"\n"
                       "2026-11-25 09:41:07 autologon-remove\n"
                       "2026-11-25 09:41:07 proxy-clear\n"
                       "2026-11-25 09:41:07 proxy-clear\n"
                       "2026-11-25 09:41:07 logoff\n"),
        log);
    EXPECT_FALSE(log.contains(u"geheim"));
    QStringList bestanden = QDir(w.map()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    bestanden.sort();
    EXPECT_EQ((QStringList{QStringLiteral("Data"), QStringLiteral("Logboek"), QStringLiteral("W")}),
              bestanden);
}

TEST(ModMainSessieTest, SessionSettingIsContainedUnlessItSaysSysteem) {
    const char* waarden[] = {"", "afgeschermd", "Systeem", "systemen"};
    const bool systeem[] = {false, false, true, false};
    for (int i = 0; i < 4; ++i) {
        SCOPED_TRACE(waarden[i]);
        Werkstation w(Familie::Nt, Modus::Netwerk);
        w.zetIni("Instellingen", "Sessie", waarden[i]);
        EXPECT_EQ(systeem[i], ModMainSessie::SysteemInstelling(w.p));
    }
    EXPECT_EQ(u"global", ModMainSessie::LinuxAccount(QStringLiteral("SCHOOL\\GLOBAL")));
}

} // namespace
