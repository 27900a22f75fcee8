// The settings and server panels of the maintenance module: the texts they read from outside,
// the live change tests, the saves and the backup box against a scripted server on loopback,
// the restarts through the launcher's words, and pictures of both panels.
#include "core/Form.h"
#include "core/UnbuiltStartSteps.h"
#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "screens/ScreenRouter.h"
#include "screens/maintenance/BewerkPaneelView.h"
#include "screens/maintenance/FrmOnderhoud.h"
#include "screens/maintenance/FrmOnderhoudView.h"
#include "screens/maintenance/InstellingenTeksten.h"
#include "screens/maintenance/OnderhoudInstellingen.h"
#include "screens/maintenance/OnderhoudServer.h"
#include "screens/maintenance/OnderhoudServerView.h"
#include "tests/maintenance/OnderhoudWerkplek.h"
#include "tests/screens/PngBewaren.h"
#include "tests/support/ScriptedPeer.h"
#include "tests/support/WaitUntil.h"
#include "tests/support/Werkplek.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QLocalServer>
#include <QLocalSocket>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::knoppen;
using tk::test::ScriptedPeer;
using tk::test::waarden;
using tk::test::waitUntil;
using tk::test::Werkplek;
using Levering = ScriptedPeer::Levering;
using Keuze = InstellingenTeksten::Keuze;

namespace {

const QString ini = QString::fromLatin1(ModMain::Instellingen);

// A form that notes when its captions are loaded and in which language.
struct OpnameForm : Form {
    OpnameForm(Programma& p, QStringList& log, const QString& naam) : p(p), log(log), naam(naam) {
        p.formulieren.append(this);
    }
    ~OpnameForm() override { p.formulieren.removeAll(this); }
    QString formNaam() const override { return naam; }
    void LaadTaal() override { log << naam + QString::number(p.modTaal.Taal); }
    Programma& p;
    QStringList& log;
    QString naam;
};

// The launcher of the workstation's program folder: the words the client tells it.
struct Launcher {
    explicit Launcher(const QString& map) {
        server.listen(ModMainVerbinding::launcherNaam(map));
        QObject::connect(&server, &QLocalServer::newConnection, [this] {
            QLocalSocket* s = server.nextPendingConnection();
            QObject::connect(s, &QLocalSocket::readyRead,
                             [this, s] { woord += QString::fromUtf8(s->readAll()); });
        });
    }
    QLocalServer server;
    QString woord;
};

// A workstation in the maintenance module, its link pointed at a scripted server, with a second
// theme installed besides the default one.
struct Plek {
    explicit Plek(ScriptedPeer* peer = nullptr) : router(w.p) {
        Programma& p = w.p;
        p.schermen = &router;
        p.maak(p.modMainVerbinding, p);
        p.modMain.MaakMappen(QStringLiteral("\\Data"));
        p.modMain.SchrijfIni(QStringLiteral("1033"), QStringLiteral("Instellingen"),
                             QStringLiteral("Language"), ini);
        w.kopieer(QStringLiteral(TK_DEFAULT_THEME), QStringLiteral("Afbeeldingen/Skins/2/"));
        p.modMain.SchrijfIni(QStringLiteral("Blauw"), QStringLiteral("Algemeen"),
                             QStringLiteral("Naam"),
                             QStringLiteral("\\Afbeeldingen\\Skins\\2\\Instellingen.ini"));
        p.modData->Wachtwoorden = QStringList{QStringLiteral("leraar"), QStringLiteral("beheer")};
        p.modData->Overige = QStringList{QStringLiteral("http://school.example"),
                                         QStringLiteral("aan@school.example"),
                                         QStringLiteral("De Klimop"),
                                         QStringLiteral("van@school.example"),
                                         QStringLiteral("1"),
                                         QStringLiteral("1033")};
        if (peer) {
            p.modMain.SchrijfIni(QStringLiteral("127.0.0.1:%1").arg(peer->poort()),
                                 QStringLiteral("Instellingen"), QStringLiteral("Serverlocatie"),
                                 ini);
            p.modMainVerbinding->BepaalServerlocatie();
            p.frmMain->ServerVerbinden(true);
        }
        router.openOnderhoudsmodule(-1, {});
    }
    FrmOnderhoud& f() { return *w.p.frmOnderhoud; }
    OnderhoudInstellingen& inst() {
        return dynamic_cast<OnderhoudInstellingen&>(*f().paneel(FrmOnderhoud::PInstellingen));
    }
    OnderhoudServer& server() {
        return dynamic_cast<OnderhoudServer&>(*f().paneel(FrmOnderhoud::PServer));
    }
    // The settings heading, or the Server entry under it, as the user clicks it.
    void kies(int rij) {
        f().Kies(400);
        if (rij)
            f().Kies(400 + rij);
    }
    QString leesIni(const char* sleutel) {
        return w.p.modMain.LeesIni(QStringLiteral("Instellingen"), QLatin1String(sleutel), ini);
    }
    QString tekst(int id) { return w.p.modTaal.LaadTekst(id); }

    Werkplek w{Werkplek::startscherm};
    ScreenRouter router;
};

// The link test and the lists the module reads when it is made.
ScriptedPeer& begin(ScriptedPeer& peer, const QString& backups = "BCK") {
    return tk::test::eersteLading(peer.op(QStringLiteral("TST"), QStringLiteral("TST")), backups);
}

} // namespace

TEST(InstellingenTekstenTest, TheTextsFromOutsideAreReadAsThePanelsShowThem) {
    struct TaalCase {
        QStringList rijen;
        QList<Keuze> lijst;
    };
    const TaalCase talen[] = {
        {{"1043|Nederlands", "1033|English"}, {{"Nederlands", "1043"}, {"English", "1033"}}},
        {{"Frysk|1049"}, {{"Frysk", "1049"}}}, // the id may stand second
        {{"Deutsch", "1033|English"}, {{"Deutsch", ""}, {"English", "1033"}}}, // no "|": no data
        {{"1043|Nederlands", "  ", "1033|English"}, {{"Nederlands", "1043"}}}, // a blank row ends
        {{"", "1033|English"}, {}},
        {{"a|b|c", "|1033"}, {{"a", "b|c"}, {"", "1033"}}},
    };
    for (const TaalCase& c : talen) {
        SCOPED_TRACE(c.rijen.join("/").toStdString());
        EXPECT_EQ(InstellingenTeksten::taalLijst(c.rijen), c.lijst);
    }

    struct ServerCase {
        const char* antwoord;
        const char* versie;
        bool automatisch, beta;
        const char* module;
    };
    const ServerCase servers[] = {
        {"2.0.1;<>;JA;<>;NEE;<>;SQLite", "2.0.1", true, false, "sqlite"},
        {"2.0.1;<>;nee;<>;ja", "2.0.1", false, true, ""}, // an older server has three fields
        {"3;<>;Ja;<>;JA;<>;x;<>;PostgreSQL", "3", true, true, "postgresql"},
        {"", "", false, false, ""},
        {";<>;;<>;;<>;", "", false, false, ""},
    };
    for (const ServerCase& c : servers) {
        SCOPED_TRACE(c.antwoord);
        const auto s = InstellingenTeksten::serverInstellingen(c.antwoord);
        EXPECT_EQ(s.versie, c.versie);
        EXPECT_EQ(s.automatisch, c.automatisch);
        EXPECT_EQ(s.beta, c.beta);
        EXPECT_EQ(s.module, c.module);
    }
    EXPECT_EQ(InstellingenTeksten::opslaanServer(true, false), "6;<>;Ja;<>;Nee;<>;Nee");
    EXPECT_EQ(InstellingenTeksten::opslaanServer(false, true), "6;<>;Nee;<>;Ja;<>;Nee");

    // Backup names, the odd ones included; what is shown goes back to the server's name.
    EXPECT_EQ(InstellingenTeksten::backups(
                  "5-3-2024 14.07.09.backup||  |zonder extensie|x.BACKUP|a:b.backup| .backup|"),
              QStringList({"5-3-2024 14:07:09", "zonder extensie", "x", "a:b"}));
    EXPECT_TRUE(InstellingenTeksten::backups("").isEmpty());
    EXPECT_EQ(InstellingenTeksten::bestandsnaam("5-3-2024 14:07:09"), "5-3-2024 14.07.09.backup");
}

// The change test, Save and Restore are the edit pattern's; what is the panel's own is which
// stored value stands in which field and what the two lists offer.
TEST(InstellingenTest, TheFieldsShowTheStoredSettingsTheInstalledThemesAndTheLanguages) {
    Plek plek;
    plek.kies(0);
    ASSERT_EQ(plek.f().ZichtbaarPaneel, FrmOnderhoud::PInstellingen);
    OnderhoudInstellingen& m = plek.inst();
    EXPECT_EQ(waarden(m),
              QStringList({"leraar", "beheer", "http://school.example", "aan@school.example",
                           "De Klimop", "van@school.example", "1", "1033"}));
    using I = OnderhoudInstellingen;
    EXPECT_EQ(m.velden[I::Thema].keuzes, QList<Keuze>({{"Standaard", "1"}, {"Blauw", "2"}}));
    EXPECT_EQ(m.velden[I::Taal].keuzes,
              QList<Keuze>({{"Nederlands", "1043"}, {"English", "1033"}}));
    EXPECT_EQ(knoppen(m), "......");
    EXPECT_TRUE(m.velden[I::WachtwoordBeheer].wachtwoord);
    EXPECT_EQ(m.velden[I::EmailAan].groep, plek.tekst(3271).trimmed());
    // Shown again, the lists are read anew: the theme in use is the one of the settings file,
    // and one whose folder is gone still stands, so that it is not changed unasked.
    for (const char* thema : {"2", "7"}) {
        plek.w.p.modMain.SchrijfIni(thema, "Instellingen", "Thema", ini);
        m.Tonen(0);
        EXPECT_EQ(m.velden[I::Thema].waarde, thema);
        EXPECT_EQ(m.velden[I::Thema].keuzes.last().data, thema);
        EXPECT_EQ(knoppen(m), "......");
    }
    EXPECT_TRUE(plek.w.meldingen().isEmpty());
}

TEST(InstellingenTest, SaveStoresTheSettingsAndAChangedLanguageRecaptionsEveryForm) {
    using I = OnderhoudInstellingen;
    struct Case {
        const char* wat;
        const char *thema, *taal; // chosen; "" is a language row without data
        const char* antwoord;     // the server's reply to OPSINS
        const char* themaTaal;    // the last two fields sent
        int iniTaal, taalNa;      // Language in the file, and the language in use, afterwards
    };
    const Case cases[] = {
        {"theme alone", "2", "1033", "OK", "2;<>;1033", 1033, 1033},
        {"language", "1", "1043", "OK", "1;<>;1043", 1043, 1043},
        {"a language row without data", "1", "", "OK", "1;<>;1033", 1033, 1033},
        {"the server refuses", "1", "1043", "FOUT", "1;<>;1043", 1043, 1033},
    };
    const QString vast = "OPSINSleraar;<>;nieuw;<>;http://school.example;<>;aan@school.example;<>;"
                         "De Klimop;<>;van@school.example;<>;";
    for (const Case& c : cases) {
        SCOPED_TRACE(c.wat);
        ScriptedPeer peer;
        begin(peer).op("OPSINS*", QString("OPSINS") + c.antwoord);
        const bool mislukt = QString(c.antwoord) == "FOUT";
        Plek plek(&peer);
        QStringList log;
        OpnameForm eerste(plek.w.p, log, "eerste"), laatste(plek.w.p, log, "laatste");
        plek.kies(0);
        OnderhoudInstellingen& m = plek.inst();
        m.ZetVeld(I::WachtwoordBeheer, "nieuw");
        m.ZetVeld(I::Thema, c.thema);
        m.ZetVeld(I::Taal, c.taal);
        const QStringList getypt = waarden(m);
        log.clear();
        m.cmd_Click(BewerkPaneel::Opslaan);
        EXPECT_FALSE(plek.f().BewerkModus);
        ASSERT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();
        EXPECT_EQ(peer.ontvangen.last(), vast + c.themaTaal);
        EXPECT_EQ(plek.leesIni("Thema"), c.thema);
        EXPECT_EQ(plek.leesIni("Language"), QString::number(c.iniTaal));
        EXPECT_EQ(plek.w.p.modTaal.Taal, c.taalNa);
        EXPECT_EQ(plek.w.p.modData->Wachtwoorden.value(1), "nieuw");
        EXPECT_EQ(plek.w.meldingen(), mislukt ? QStringList(plek.tekst(3332)) : QStringList());
        // A refused save keeps what was typed, so that Save can be pressed again; a stored one
        // shows the language in use.
        EXPECT_EQ(knoppen(m), mislukt ? "...S.R" : "......");
        EXPECT_EQ(m.velden[I::Taal].waarde, mislukt ? c.taal : QString::number(c.taalNa));
        if (mislukt) {
            EXPECT_EQ(waarden(m), getypt);
        }
        const bool nieuweTaal = c.taalNa != 1033;
        EXPECT_EQ(log, nieuweTaal ? QStringList({"laatste1043", "eerste1043"}) : QStringList());
        // The module's menu and both panels speak the language now.
        EXPECT_EQ(plek.f().cel(4, 0, FrmOnderhoud::Tekst),
                  plek.w.p.modTaal.LaadTekst(3372, c.taalNa));
        EXPECT_EQ(m.velden[I::Taal].caption, plek.w.p.modTaal.LaadTekst(3439, c.taalNa));
        EXPECT_EQ(plek.server().cmdBackup[1], plek.w.p.modTaal.LaadTekst(3194, c.taalNa));
        EXPECT_EQ(plek.f().ZichtbaarPaneel, FrmOnderhoud::PInstellingen);
    }
}

TEST(InstellingenTest, TheServerPanelReadsTheSettingsAndAsksTheBetaPasswordOnlyWhenSwitchedOn) {
    struct Case {
        const char* wat;
        bool automatisch, beta; // chosen before Save
        const char* wachtwoord; // typed at the question, nullptr: no question
        bool verstuurd;
        int melding;
    };
    const Case cases[] = {
        {"beta unchanged", false, false, nullptr, true, 0},
        {"beta on, no password typed", true, true, "", false, 0},
        {"beta on, a wrong password", true, true, "toetsvee", false, 3341},
        {"beta on, the password", true, true, "toetsveer", true, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.wat);
        ScriptedPeer peer;
        begin(peer).op("LDNSIN", "LDNSIN2.0.1;<>;NEE;<>;NEE;<>;SQLite");
        if (c.verstuurd)
            peer.op("OPSSIN*", "OPSSIN");
        Plek plek(&peer);
        plek.kies(1);
        OnderhoudServer& s = plek.server();
        EXPECT_EQ(s.lblServerversieWaarde, "2.0.1 (sqlite)");
        EXPECT_EQ(s.lblClientversieWaarde, ModMain::ProgrammaVersie());
        EXPECT_EQ(s.velden[OnderhoudServer::Locatie].waarde,
                  QString("127.0.0.1:%1").arg(peer.poort()));
        EXPECT_EQ(knoppen(s), "......");
        EXPECT_FALSE(s.bezig);
        EXPECT_FALSE(plek.f().BewerkModus) << "the menu lives again after the question";
        s.cmbServer_Click(1, true);
        s.cmbServer_Click(1, c.automatisch);
        s.cmbServer_Click(2, c.beta);
        if (!c.automatisch && !c.beta)
            s.cmbServer_Click(1, true); // something must differ for Save
        ASSERT_EQ(knoppen(s), "...S.R");
        if (c.wachtwoord)
            plek.w.dialogen.antwoorden << c.wachtwoord;
        plek.w.dialogen.gesteld.clear();
        s.cmdServer_Click(3);
        ASSERT_TRUE(waitUntil([&] { return peer.klaar(); }));
        EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();
        QStringList gevraagd;
        for (const auto& v : plek.w.dialogen.gesteld)
            gevraagd << v.tekst;
        QStringList verwacht;
        if (c.wachtwoord)
            verwacht << plek.tekst(3340);
        if (c.melding)
            verwacht << plek.tekst(c.melding);
        EXPECT_EQ(gevraagd, verwacht);
        EXPECT_EQ(peer.ontvangen.last(), c.verstuurd
                                             ? "OPSSIN" + InstellingenTeksten::opslaanServer(
                                                              c.automatisch || !c.beta, c.beta)
                                             : QString("LDNSIN"));
        // Once stored, nothing differs; a stopped save keeps the choice for another try.
        EXPECT_EQ(knoppen(s), c.verstuurd ? "......" : "...S.R");
        EXPECT_FALSE(plek.w.p.beeindigd);
    }
}

TEST(InstellingenTest, UpdatesAndAMovedServerRestartTheClientThroughTheLauncher) {
    struct Case {
        const char* wat;
        std::function<void(Plek&, ScriptedPeer&)> doe;
        const char* woord; // told to the launcher, "" none
        int melding;
    };
    const Case cases[] = {
        {"no newer version",
         [](Plek& plek, ScriptedPeer& peer) {
             peer.op("UPDCON", "UPDCON" + ModMain::ProgrammaVersie());
             plek.server().cmdServer_Click(2);
         },
         "", 3339},
        {"another version on offer",
         [](Plek& plek, ScriptedPeer& peer) {
             peer.op("UPDCON", "UPDCON99.0.0");
             plek.server().cmdServer_Click(2);
         },
         "UPDATE", 0},
        {"a new location",
         [](Plek& plek, ScriptedPeer& peer) {
             peer.op("OPSSIN*", "OPSSIN");
             plek.w.dialogen.opModaal = [&](Form& f) {
                 if (auto* n = dynamic_cast<FrmNetwerk*>(&f)) {
                     n->txtNaam_Change("elders:4000");
                     n->cmdOK_Click();
                 }
             };
             plek.server().cmdServer_Click(1);
             plek.server().cmdServer_Click(3);
             EXPECT_EQ(plek.leesIni("Serverlocatie"), "elders:4000");
         },
         "resolutie", 3342},
        {"change log without a web site",
         [](Plek& plek, ScriptedPeer&) { plek.server().cmdServer_Click(5); }, "", 9549},
        {"change log",
         [](Plek& plek, ScriptedPeer&) {
             plek.w.p.modMain.SchrijfIni("http://web.example/", "Instellingen", "Webadres", ini);
             QString adres;
             plek.server().toonChangelog = [&](const QString& a) { adres = a; };
             plek.server().cmdServer_Click(5);
             EXPECT_EQ(adres, "http://web.example/applicatie/download_changelog.php4?versie=" +
                                  ModMain::ProgrammaVersie());
         },
         "", 0},
        {"a new location on a Network workstation",
         [](Plek& plek, ScriptedPeer& peer) {
             struct Stappen : UnbuiltStartSteps {
                 using UnbuiltStartSteps::UnbuiltStartSteps;
                 void ZetAutomatischeAanmelding(const QString& a, const QString& w, const QString&,
                                                bool afmelden) override {
                     aanmelding = a + "/" + w + (afmelden ? "/afmelden" : "");
                 }
                 QString aanmelding;
             } stappen(plek.w.p);
             plek.w.p.opstartStappen = &stappen;
             plek.w.p.modMain.ModusNetwerk = true;
             peer.op("OPSSIN*", "OPSSIN");
             plek.w.dialogen.opModaal = [](Form& f) {
                 if (auto* n = dynamic_cast<FrmNetwerk*>(&f)) {
                     n->txtNaam_Change("elders");
                     n->cmdOK_Click();
                 }
             };
             plek.server().cmdServer_Click(1);
             plek.server().cmdServer_Click(3);
             plek.w.p.opstartStappen = &plek.w.p.unbuiltSteps;
             EXPECT_EQ(stappen.aanmelding, "ONDERHOUD/Sleutelwrk42/afmelden");
         },
         "", 3342},
        {"Browse, then Cancel",
         [](Plek& plek, ScriptedPeer&) {
             plek.w.dialogen.opModaal = [](Form& f) {
                 if (auto* n = dynamic_cast<FrmNetwerk*>(&f))
                     n->cmdAnnuleren_Click();
             };
             plek.server().cmdServer_Click(1);
             EXPECT_EQ(knoppen(plek.server()), "......");
         },
         "", 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.wat);
        ScriptedPeer peer;
        begin(peer).op("LDNSIN", "LDNSIN2.0.1;<>;JA;<>;NEE");
        Plek plek(&peer);
        Launcher launcher(plek.w.map());
        plek.kies(1);
        c.doe(plek, peer);
        EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();
        EXPECT_EQ(plek.w.meldingen(),
                  c.melding ? QStringList(plek.tekst(c.melding)) : QStringList());
        EXPECT_EQ(plek.w.p.beeindigd, *c.woord != 0);
        if (*c.woord) {
            EXPECT_TRUE(waitUntil([&] { return launcher.woord == c.woord; }))
                << launcher.woord.toStdString();
        }
    }
}

TEST(InstellingenTest, TheBackupBoxListsExportsAndImportsTheServersBackups) {
    using Stappen = QList<std::pair<QString, QString>>; // after the load and LDNSIN
    struct Case {
        const char* wat;
        const char* lijst;           // the BCKLST answer of the module's load, after "BCK"
        int gekozen, knop;           // the backup chosen (-1 as shown) and the button pressed
        const char* vraag;           // the answer to the import question
        Stappen stappen;             // the server's part after the press
        QStringList getoond;         // the list afterwards
        std::array<bool, 2> knoppen; // Import, Export enabled afterwards
        QList<int> meldingen;
        const char* woord; // told to the launcher
    };
    const QString eerste = "5-3-2024 14.07.09.backup", nieuwe = "7-3-2024 8.15.00.backup";
    const Case cases[] = {
        {"no backups", "", -1, 0, "ja", {}, {"No backups available"}, {false, true}, {}, ""},
        {"export",
         "5-3-2024 14.07.09.backup",
         -1,
         1,
         "",
         {{"BCKMKB", "BCK" + nieuwe}, {"BCKLST", "BCK" + eerste + "|" + nieuwe}},
         {"5-3-2024 14:07:09", "7-3-2024 8:15:00"},
         {true, true},
         {3327},
         ""},
        {"export refused",
         "",
         -1,
         1,
         "",
         {{"BCKMKB", "BCKFOUT"}},
         {"No backups available"},
         {false, true},
         {3328},
         ""},
        // The keep-alive merged into the answer leaves it no "FOUT".
        {"import",
         "5-3-2024 14.07.09.backup|6-3-2024 9.00.00.backup",
         0,
         0,
         "ja",
         {{"BCKRST" + eerste, "BCKOK"}, {"", "PIN"}},
         {"5-3-2024 14:07:09", "6-3-2024 9:00:00"},
         {false, false},
         {3324, 3325},
         "resolutie"},
        {"import refused",
         "5-3-2024 14.07.09.backup",
         -1,
         0,
         "ja",
         {{"BCKRST" + eerste, "BCKFOUT"}},
         {"5-3-2024 14:07:09"},
         {true, true},
         {3324, 3326},
         ""},
        {"import not wanted",
         "5-3-2024 14.07.09.backup",
         -1,
         0,
         "nee",
         {},
         {"5-3-2024 14:07:09"},
         {true, true},
         {3324},
         ""},
        {"odd names", "||x.backup|  |a.b|", -1, -1, "", {}, {"x", "a:b"}, {true, true}, {}, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.wat);
        ScriptedPeer peer;
        begin(peer, QString("BCK") + c.lijst).op("LDNSIN", "LDNSIN2.0.1;<>;JA;<>;NEE");
        for (const auto& [verwacht, antwoord] : c.stappen) {
            if (verwacht.isEmpty())
                peer.zelf(antwoord);
            else
                peer.op(verwacht, antwoord,
                        c.stappen.size() > 1 && c.stappen.last().first.isEmpty()
                            ? Levering::Samengevoegd
                            : Levering::Heel);
        }
        Plek plek(&peer);
        Launcher launcher(plek.w.map());
        plek.kies(1);
        OnderhoudServer& s = plek.server();
        s.cmbBackup_Click(c.gekozen);
        plek.w.dialogen.antwoorden << c.vraag;
        // A moment into a wait for the server, the menu is dead.
        bool menuDood = false;
        QObject peiler; // goes before the workstation it looks at
        QTimer::singleShot(0, &peiler, [&] { menuDood = plek.f().BewerkModus; });
        s.cmdBackup_Click(c.knop);
        EXPECT_EQ(menuDood, !c.stappen.isEmpty());
        EXPECT_TRUE(peer.klaar());
        EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();
        EXPECT_EQ(s.cmbBackup, c.getoond);
        EXPECT_EQ(s.backupIndex, c.gekozen >= 0 ? c.gekozen : c.getoond.size() - 1)
            << "the newest stands chosen";
        EXPECT_EQ(s.fraBackupEnabled, c.getoond.value(0) != "No backups available");
        EXPECT_EQ(s.cmdBackupEnabled, c.knoppen);
        QStringList meldingen;
        for (int id : c.meldingen)
            meldingen << plek.tekst(id);
        EXPECT_EQ(plek.w.meldingen(), meldingen);
        if (*c.woord) {
            EXPECT_TRUE(waitUntil([&] { return launcher.woord == c.woord; }));
        }
        EXPECT_EQ(plek.w.p.beeindigd, *c.woord != 0);
    }

    // A long list arrives in two reads and is read whole.
    QStringList namen, leesbaar;
    for (int i = 1; i <= 150; ++i) {
        namen << QString("%1-3-2024 14.07.09.backup").arg(i);
        leesbaar << QString("%1-3-2024 14:07:09").arg(i);
    }
    ScriptedPeer peer;
    begin(peer).op("BCKLST", "BCK" + namen.join('|'), Levering::Gesplitst);
    Plek plek(&peer);
    // The halves come 50 ms apart; the pieces of a long read may be that far apart.
    plek.w.p.frmMain->Berichten.setQuietMs(500);
    plek.server().LaadBackups(true);
    EXPECT_EQ(plek.server().cmbBackup, leesbaar);
}

TEST(InstellingenTest, ThePanelsPaintTheirFieldsAndNameEveryControl) {
    ScriptedPeer peer;
    begin(peer, "BCK5-3-2024 14.07.09.backup|6-3-2024 9.00.00.backup")
        .op("LDNSIN", "LDNSIN2.0.1;<>;JA;<>;NEE;<>;SQLite");
    Plek plek(&peer);
    plek.kies(0);
    using I = OnderhoudInstellingen;
    BewerkPaneelView inst(plek.inst());
    inst.resize(plek.f().paneelVak().size());
    // The fields in their frames; the lists show the item of the stored data.
    auto* wachtwoord = qobject_cast<QLineEdit*>(inst.veld(I::WachtwoordLeraren));
    ASSERT_TRUE(wachtwoord);
    auto* frame = qobject_cast<QGroupBox*>(wachtwoord->parentWidget());
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->title(), plek.tekst(3266).trimmed());
    EXPECT_EQ(inst.veld(I::EmailAfzender)->parentWidget(), inst.veld(I::EmailAan)->parentWidget());
    EXPECT_EQ(qobject_cast<QComboBox*>(inst.veld(I::Taal))->currentText(), "English");
    EXPECT_EQ(qobject_cast<QComboBox*>(inst.veld(I::Thema))->currentText(), "Standaard");
    EXPECT_EQ(wachtwoord->echoMode(), QLineEdit::Password);
    ASSERT_TRUE(inst.wachtwoordenTonen());
    inst.wachtwoordenTonen()->click();
    EXPECT_EQ(wachtwoord->echoMode(), QLineEdit::Normal);
    qobject_cast<QComboBox*>(inst.veld(I::Thema))->setCurrentIndex(1);
    Q_EMIT qobject_cast<QComboBox*>(inst.veld(I::Thema))->activated(1);
    EXPECT_EQ(plek.inst().velden[I::Thema].waarde, "2") << "a list hands the item's data on";
    EXPECT_TRUE(inst.knop(BewerkPaneel::Opslaan)->isEnabled());
    tk::test::bewaarPng(inst.grab().toImage(), "instellingen");

    plek.kies(1);
    OnderhoudServerView server(plek.server());
    server.resize(plek.f().paneelVak().size());
    EXPECT_EQ(server.cmbServer[1]->currentText(), "Yes");
    EXPECT_EQ(server.cmbServer[2]->currentText(), "No");
    EXPECT_EQ(server.cmbBackup->currentText(), "6-3-2024 9:00:00");
    EXPECT_FALSE(server.cmdServer[3]->isEnabled());
    server.cmbServer[2]->setCurrentIndex(0);
    Q_EMIT server.cmbServer[2]->activated(0);
    EXPECT_TRUE(plek.server().ja(OnderhoudServer::Beta));
    EXPECT_TRUE(server.cmdServer[3]->isEnabled());
    tk::test::bewaarPng(server.grab().toImage(), "server");

    // Every control a user can reach carries a name, and no two share one.
    for (QWidget* paneel : {static_cast<QWidget*>(&inst), static_cast<QWidget*>(&server)}) {
        QStringList namen;
        for (QWidget* w : paneel->findChildren<QWidget*>()) {
            if ((!qobject_cast<QLineEdit*>(w) && !qobject_cast<QComboBox*>(w) &&
                 !qobject_cast<QAbstractButton*>(w)) ||
                !w->isVisibleTo(paneel))
                continue;
            SCOPED_TRACE(w->metaObject()->className());
            EXPECT_FALSE(w->accessibleName().isEmpty());
            EXPECT_FALSE(namen.contains(w->accessibleName())) << w->accessibleName().toStdString();
            namen << w->accessibleName();
        }
        EXPECT_GE(namen.size(), 8);
    }

    // In the module's window the panel stands on the right, over the theme's background.
    FrmOnderhoudView venster(plek.f());
    auto* inVenster = new OnderhoudServerView(plek.server());
    venster.plaatsPaneelView(FrmOnderhoud::PServer, inVenster);
    venster.bijwerken();
    EXPECT_TRUE(inVenster->isVisibleTo(&venster));
    EXPECT_EQ(inVenster->geometry(), plek.f().paneelVak());
    tk::test::bewaarPng(venster.grab().toImage(), "onderhoud-server");
}
