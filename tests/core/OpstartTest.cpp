#include "core/FrmVersie.h"
#include "core/ModMainOpstart.h"
#include "core/UnbuiltStartSteps.h"
#include "tests/support/Werkplek.h"

#include "core/ClsRC4.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::Werkplek;

namespace {

// Records every step the start-up asks of the layers above, and answers as configured.
class OpnameStappen : public UnbuiltStartSteps {
public:
    using UnbuiltStartSteps::UnbuiltStartSteps;
    bool VeiligeModus() override { return veiligeModus; }
    bool BureaubladAanwezig() override { return bureaublad; }
    void StartVerkenner() override { log << "StartVerkenner"; }
    void ComputerHerstarten() override { log << "ComputerHerstarten"; }
    bool StuurOpstartCommando(const QString& woord) override {
        log << "launcher:" + woord;
        return true;
    }
    void StartServer(bool firewall) override { log << QString("StartServer(%1)").arg(firewall); }
    void ControleerUpdate(bool f) override { log << QString("ControleerUpdate(%1)").arg(f); }
    void LaadThema() override { log << "LaadThema"; }
    bool frmActiveren(bool, bool, bool, FrmInitialiseren*) override {
        log << "frmActiveren";
        return activerenVerder;
    }
    void WijzigOpstarten() override { log << "WijzigOpstarten"; }
    void BewaarOpstartinstellingen() override { log << "BewaarOpstartinstellingen"; }
    void TafelkraterAccountVerwijderen() override { log << "AccountVerwijderen"; }
    void TafelkraterDeactiverenSetup() override { log << "DeactiverenSetup"; }
    void Afmelden() override { log << "Afmelden"; }
    void ZetBureaubladachtergrond(bool, bool) override { log << "Achtergrond"; }
    void ZetBrowserbeperkingen(bool) override { log << "Browserbeperkingen"; }
    void SchermbeveiligingUit() override { log << "SchermbeveiligingUit"; }
    QSize Schermgrootte() override { return scherm; }
    bool ZetResolutie(bool vlag) override {
        log << QString("ZetResolutie(%1)").arg(vlag);
        return resolutieLukt;
    }
    void OpenTaakbalk1() override { log << "OpenTaakbalk1"; }
    void StartVerbinding(bool opnieuw) override {
        log << QString("StartVerbinding(%1)").arg(opnieuw);
    }

    QStringList log;
    bool veiligeModus = false;
    bool bureaublad = false;
    bool activerenVerder = true;
    bool resolutieLukt = false;
    QSize scherm{1024, 768};
};

struct Opstart {
    explicit Opstart(const char* modus = "2", bool shellOvergenomen = true) {
        // The pauses of the check window pass on the fake clock.
        w.platform.fakeClock().setStepPerRead(50);
        if (*modus)
            zetRegister("SOFTWARE\\Tafelkrater", "Modus", QString::fromLatin1(modus));
        if (shellOvergenomen)
            zetRegister(QString::fromLatin1(ModMainOpstart::Winlogon), "Shell",
                        "/opt/tafelkrater/tafelkrater");
    }
    void zetRegister(const QString& sleutel, const QString& naam, const QString& waarde) {
        w.platform.registry().write(RegistryRoot::LocalMachine, sleutel, naam,
                                    RegistryValue::string(waarde));
    }
    QString register_(const QString& sleutel, const QString& naam) {
        return w.p.modRegistry.LeesWaarde(RegistryRoot::LocalMachine, sleutel, naam);
    }
    QStringList getoondeTeksten() const {
        QStringList teksten;
        for (const auto& v : w.dialogen.gesteld)
            teksten << v.tekst;
        return teksten;
    }
    Werkplek w;
    OpnameStappen stappen{w.p};
    ModMainOpstart opstart{w.p, stappen};
};

} // namespace

TEST(OpstartTest, TheModeAndTheTakeOverDecideTheStepsAndTheirOrder) {
    struct Case {
        const char* modus;
        bool overgenomen;
        const char* stappen;
    };
    const Case cases[] = {
        {"2", true,
         "LaadThema frmActiveren Achtergrond Browserbeperkingen SchermbeveiligingUit "
         "OpenTaakbalk1 StartVerbinding(0)"},
        // A management workstation skips the workstation checks.
        {"0", false, "LaadThema OpenTaakbalk1 StartVerbinding(0)"},
        // Not yet taken over: the checks are shown, then the take-over.
        {"2", false, "LaadThema BewaarOpstartinstellingen frmActiveren WijzigOpstarten"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.modus) + (c.overgenomen ? " taken over" : ""));
        Opstart o(c.modus, c.overgenomen);
        o.opstart.Main("STARTUP");
        EXPECT_FALSE(o.w.p.beeindigd);
        EXPECT_EQ(o.stappen.log, QString::fromLatin1(c.stappen).split(u' '));
        EXPECT_EQ(o.w.p.modMain.ModusNetwerk, *c.modus == '2');
        EXPECT_TRUE(o.w.dialogen.gesteld.isEmpty());
        EXPECT_EQ(o.w.p.modMain.LeesIni("Algemeen", "Resolutie", "\\Data\\Instellingen.ini"),
                  QString());
        if (!c.overgenomen && *c.modus == '2') {
            const auto& rijen = o.opstart.frmInitialiseren.lblItem;
            for (int i = 0; i < 3; ++i)
                EXPECT_EQ(rijen[i].lblCheck, "a") << i;
            EXPECT_FALSE(rijen[3].zichtbaar);
        }
    }
}

TEST(OpstartTest, AnUnsetModeAsksAndStoresTheAnswerNotTheOptionIndex) {
    struct Case {
        int optie;
        const char* opgeslagen;
    };
    for (const Case c : {Case{0, "1"}, Case{1, "2"}, Case{2, "0"}}) {
        SCOPED_TRACE(c.optie);
        Opstart o("", true); // the shell is taken over, and still the question comes
        o.w.dialogen.opModaal = [&](Form& f) {
            auto& versie = static_cast<FrmVersie&>(f);
            versie.Gekozen = c.optie;
            versie.cmdOK_Click();
        };
        o.opstart.LaadModus();
        EXPECT_EQ(o.w.dialogen.getoond, QStringList{"frmVersie"});
        EXPECT_EQ(o.register_("SOFTWARE\\Tafelkrater", "Modus"), QString::fromLatin1(c.opgeslagen));
    }
    Opstart gesloten("", true);
    gesloten.w.dialogen.opModaal = [](Form& f) { static_cast<FrmVersie&>(f).cmdSluiten_Click(); };
    gesloten.opstart.Main("STARTUP");
    EXPECT_TRUE(gesloten.w.p.beeindigd);
    EXPECT_TRUE(gesloten.stappen.log.isEmpty());
}

TEST(OpstartTest, TheVersionWindowOffersOnlyWhatTheMachineCanBe) {
    Opstart o("");
    FrmVersie& v = o.opstart.frmVersie;
    v.Vraag("Windows XP");
    EXPECT_FALSE(v.optEnabled[0]); // no server installed
    EXPECT_EQ(v.Gekozen, 1);
    o.w.schrijf("tafelkrater-server", "#!/bin/sh\n");
    o.zetRegister("SOFTWARE\\Tafelkrater", "Locatie server", "\\tafelkrater-server");
    v.Vraag("Windows XP");
    EXPECT_TRUE(v.optEnabled[0]);
    EXPECT_EQ(v.Gekozen, 0);
    v.Vraag("Windows 2003");
    EXPECT_FALSE(v.optEnabled[0]);
    EXPECT_FALSE(v.optEnabled[1]);
    EXPECT_EQ(v.Gekozen, 2);
    o.w.platform.fakeEnvironment().playWindows98();
    v.Vraag("Windows 98");
    EXPECT_FALSE(v.optEnabled[0]);
    EXPECT_EQ(v.optCaptions.size(), 3);
}

TEST(OpstartTest, TheSystemVersionDecidesWhetherTheProgramMayRun) {
    struct Case {
        OsVersion versie;
        const char* modus;
        bool verder;
        bool beheer;
    };
    const Case cases[] = {
        {{1, 4, 0}, "2", false, false}, // Windows 95
        {{1, 4, 10}, "2", true, false}, // Windows 98
        {{2, 5, 2}, "2", true, true},   // Windows 2003: management as well, and accepted
        {{2, 4, 0}, "2", false, false}, // unknown
        {{2, 4, 0}, "0", true, true},   // a management workstation runs anywhere
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.versie.platformId) + "." + std::to_string(c.versie.minor));
        Opstart o(c.modus);
        o.w.platform.fakeEnvironment().setOsVersion(c.versie);
        o.opstart.Main("STARTUP");
        EXPECT_EQ(!o.w.p.beeindigd, c.verder);
        EXPECT_EQ(o.w.p.modMain.ModusBeheer, c.beheer);
        if (!c.verder) {
            EXPECT_EQ(o.getoondeTeksten(), QStringList{o.w.p.modTaal.LaadTekst(2955)});
        }
    }
}

TEST(OpstartTest, AfterACrashTheMessageShowsAndTheServerIsNotStartedAgain) {
    for (const char* regel : {"startupfout", "STARTUPFOUT juf", ""}) {
        SCOPED_TRACE(regel);
        const bool fout = *regel;
        Opstart o("1");
        o.w.p.modMain.MaakMappen("\\Data");
        o.w.p.modMain.SchrijfIni("Ja", "Algemeen", "Geactiveerd", "\\Data\\Instellingen.ini");
        o.w.platform.fakeEnvironment().setVariable("USERNAME",
                                                   fout ? "Tafelkrater" : "tafelkrater");
        o.opstart.Main(QString::fromLatin1(regel));
        EXPECT_EQ(o.getoondeTeksten().value(0), fout ? o.w.p.modTaal.LaadTekst(2905) : QString());
        EXPECT_EQ(o.stappen.log.value(0) == u"StartServer(0)", !fout);
        EXPECT_EQ(o.stappen.log.contains("StartServer(0)"), !fout);
    }
}

TEST(OpstartTest, WithoutTheLauncherWordTheLauncherTakesOver) {
    struct Case {
        const char* regel;
        bool overgedragen;
    };
    for (const Case c : {Case{"", true}, Case{"STARTUP", false}, Case{"STARTUP-ANYTHING", false},
                         Case{"juf", true}}) {
        SCOPED_TRACE(c.regel);
        Opstart o;
        o.w.schrijf("tafelkrater-startup", "#!/bin/sh\n");
        o.opstart.Main(QString::fromLatin1(c.regel));
        EXPECT_EQ(o.w.platform.fakeProcesses().started.size(), c.overgedragen ? 1 : 0);
        EXPECT_EQ(o.w.p.beeindigd, c.overgedragen);
        if (c.overgedragen) {
            EXPECT_TRUE(
                o.w.platform.fakeProcesses().started[0].startsWith(o.w.pad("tafelkrater-startup")));
        }
    }
}

// The client the launcher started holds the program folder too, so that a second start by
// hand while it runs ends silently; it goes on itself when another holds it.
TEST(OpstartTest, ASecondStartWithoutTheLauncherEndsSilently) {
    for (const char* regel : {"", "STARTUP"}) {
        SCOPED_TRACE(regel);
        Opstart o;
        o.w.platform.fakeProcesses().anotherInstance = true;
        o.opstart.Main(QString::fromLatin1(regel));
        EXPECT_EQ(o.w.platform.fakeProcesses().claimed, QStringList(o.w.map()));
        EXPECT_EQ(o.w.p.beeindigd, !*regel);
        if (!*regel) {
            EXPECT_TRUE(o.w.dialogen.gesteld.isEmpty());
            EXPECT_TRUE(o.stappen.log.isEmpty());
        }
    }
}

TEST(OpstartTest, AnAccountWithoutRightsIsToldAndLoggedOff) {
    Opstart o("2", true);
    o.w.platform.fakeRegistry().setWritable(false);
    o.stappen.activerenVerder = false;
    o.opstart.Main("STARTUP");
    EXPECT_TRUE(o.w.p.beeindigd);
    EXPECT_EQ(o.stappen.log.last(), "Afmelden");
    const QString verwacht = o.w.p.modTaal.LaadTekst(2907)
                                 .replace("%account%", "SCHOOL\\leerling")
                                 .replace("%domein%", "SCHOOL");
    EXPECT_EQ(o.getoondeTeksten(), QStringList{verwacht});
    EXPECT_EQ(o.w.p.modMain.LeesIni("leerling", "Administratorrechten", "\\Data\\Instellingen.ini"),
              "Nee");
}

TEST(OpstartTest, AScreenThatCannotBeSetTo1024By768EndsTheRun) {
    Opstart o;
    o.stappen.scherm = QSize(1280, 1024);
    o.opstart.Main("STARTUP");
    EXPECT_EQ(o.w.p.modMain.LeesIni("Algemeen", "Resolutie", "\\Data\\Instellingen.ini"),
              "1280x1024x32");
    EXPECT_TRUE(o.stappen.log.contains("ZetResolutie(0)"));
    EXPECT_TRUE(o.stappen.log.contains("ZetResolutie(1)"));
    EXPECT_EQ(o.stappen.log.mid(o.stappen.log.size() - 2),
              (QStringList{"StartVerkenner", "launcher:afsluiten"}));
    EXPECT_EQ(o.getoondeTeksten(), QStringList{o.w.p.modTaal.LaadTekst(2909)});

    Opstart gezet;
    gezet.stappen.scherm = QSize(800, 600);
    gezet.stappen.resolutieLukt = true;
    gezet.opstart.Main("STARTUP");
    EXPECT_EQ(gezet.stappen.log.last(), "launcher:resolutie");
    EXPECT_TRUE(gezet.w.p.beeindigd);
}

TEST(OpstartTest, SafeModeWithTheSystemShellWarnsAndGoesOn) {
    Opstart o("2", false);
    o.zetRegister(QString::fromLatin1(ModMainOpstart::Winlogon), "Shell", "Explorer.exe");
    o.stappen.veiligeModus = true;
    EXPECT_TRUE(o.opstart.ControleerVeiligeModus());
    EXPECT_EQ(o.getoondeTeksten(), QStringList{o.w.p.modTaal.LaadTekst(2951)});
}

TEST(OpstartTest, SafeModeWithOurShellAsksForTheMaintenancePassword) {
    auto t = [](Opstart& o, int id) { return o.w.p.modTaal.LaadTekst(id); };
    { // Keeps it: no desktop, so the computer restarts.
        Opstart o;
        o.stappen.veiligeModus = true;
        o.w.dialogen.antwoorden = {"nee"};
        EXPECT_FALSE(o.opstart.ControleerVeiligeModus());
        EXPECT_EQ(o.getoondeTeksten(), (QStringList{t(o, 2946), t(o, 2950)}));
        EXPECT_EQ(o.stappen.log, QStringList{"ComputerHerstarten"});
    }
    { // A wrong password, then the fixed service password: deactivated.
        Opstart o;
        o.stappen.veiligeModus = true;
        o.w.dialogen.antwoorden = {"ja", "fout", QString(), "ja", "Tafelkrater93"};
        EXPECT_FALSE(o.opstart.ControleerVeiligeModus());
        EXPECT_EQ(o.getoondeTeksten(),
                  (QStringList{t(o, 2946), t(o, 2947), t(o, 2949), t(o, 2946), t(o, 2947)}));
        EXPECT_EQ(o.stappen.log, QStringList{"DeactiverenSetup"});
    }
    { // The maintenance password from the cache, and no plain cache file left behind.
        Opstart o;
        o.stappen.veiligeModus = true;
        o.w.schrijf("Data/Tijdelijk.ini", "[Algemeen]\r\nWachtwoorden=leraren;|;beheer123\r\n");
        ClsRC4 rc4;
        rc4.EncryptFile(o.w.pad("Data/Tijdelijk.ini"), o.w.pad("Data/data.tijdelijk"),
                        "Tafelkrater_VQXZ");
        QFile::remove(o.w.pad("Data/Tijdelijk.ini"));
        o.w.dialogen.antwoorden = {"ja", "beheer123"};
        EXPECT_FALSE(o.opstart.ControleerVeiligeModus());
        EXPECT_EQ(o.stappen.log, QStringList{"DeactiverenSetup"});
        EXPECT_FALSE(QFile::exists(o.w.pad("Data/Tijdelijk.ini")));
    }
    { // An empty password refuses; a desktop present means no explorer start.
        Opstart o;
        o.stappen.veiligeModus = true;
        o.stappen.bureaublad = true;
        o.w.dialogen.antwoorden = {"ja", QString()};
        EXPECT_FALSE(o.opstart.ControleerVeiligeModus());
        EXPECT_EQ(o.getoondeTeksten().last(), t(o, 2948));
        EXPECT_TRUE(o.stappen.log.isEmpty());
    }
}
