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

// A workstation in the maintenance module, its link pointed at a scripted server, with stored
// settings and a second theme installed besides the default one.
struct Plek : tk::test::OnderhoudPlek {
    explicit Plek(ScriptedPeer* peer = nullptr) : OnderhoudPlek(peer ? peer->poort() : 0) {
        Programma& p = this->p();
        p.modMain.SchrijfIni("1033", "Instellingen", "Language", ini);
        ws.kopieer(TK_DEFAULT_THEME, "Afbeeldingen/Skins/2/");
        p.modMain.SchrijfIni("Blauw", "Algemeen", "Naam",
                             "\\Afbeeldingen\\Skins\\2\\Instellingen.ini");
        p.modData->Wachtwoorden = QStringList{"leraar", "beheer"};
        p.modData->Overige = QStringList{"http://school.example",
                                         "aan@school.example",
                                         "De Klimop",
                                         "van@school.example",
                                         "1",
                                         "1033"};
        if (peer)
            verbindKaal();
        router.openOnderhoudsmodule(-1, {});
    }
    // The settings heading, or the Server entry under it, as the user clicks it.
    void kies(int rij) {
        f().Kies(400);
        if (rij)
            f().Kies(400 + rij);
    }
    QString leesIni(const char* sleutel) {
        return p().modMain.LeesIni("Instellingen", QLatin1String(sleutel), ini);
    }
    QString tekst(int id) { return p().modTaal.LaadTekst(id); }
    // The messages and questions shown, each as its kind and its text, against string ids: the
    // import question asks "?", the beta password "*", every other is a message "-".
    void gemeld(const QList<int>& ids) {
        QStringList gesteld, verwacht;
        for (const auto& v : ws.dialogen.gesteld)
            gesteld << v.stijl + " " + v.tekst;
        for (int id : ids)
            verwacht << QString(id == 3324 ? "? " : id == 3340 ? "* " : "- ") + tekst(id);
        EXPECT_EQ(gesteld, verwacht);
    }
    // The client ends for a restart exactly when the launcher was told a word.
    void herstart(const char* woord) {
        EXPECT_EQ(p().beeindigd, *woord != 0);
        if (*woord) {
            EXPECT_TRUE(waitUntil([&] { return launcher.woord == woord; }));
        }
    }
    Launcher launcher{ws.map()};
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

    // The answer to LDNSIN as "version/automatic/beta/store".
    const std::pair<const char*, const char*> servers[] = {
        {"2.0.1;<>;JA;<>;NEE;<>;SQLite", "2.0.1/1/0/sqlite"},
        {"2.0.1;<>;nee;<>;ja", "2.0.1/0/1/"}, // an older server has three fields
        {"3;<>;Ja;<>;JA;<>;x;<>;PostgreSQL", "3/1/1/postgresql"},
        {"", "/0/0/"},
        {";<>;;<>;;<>;", "/0/0/"},
    };
    for (const auto& [antwoord, verwacht] : servers) {
        const auto s = InstellingenTeksten::serverInstellingen(antwoord);
        EXPECT_EQ(QString("%1/%2/%3/%4").arg(s.versie).arg(s.automatisch).arg(s.beta).arg(s.module),
                  verwacht);
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
    const auto& aan = m.velden[I::EmailAan]; // the one field with a text above it
    EXPECT_EQ(QStringList({aan.groep, aan.caption, aan.uitleg}),
              QStringList({plek.tekst(3271).trimmed(), plek.tekst(3273), plek.tekst(3272)}));
    // Shown again, the lists are read anew: the theme in use is the one of the settings file, or
    // without one the school's; one whose folder is gone still stands, so that it is not changed
    // unasked.
    plek.p().modData->Overige[4] = "2";
    for (const QString thema : {"", "2", "7"}) {
        plek.p().modMain.SchrijfIni(thema, "Instellingen", "Thema", ini);
        m.Tonen(0);
        EXPECT_EQ(m.velden[I::Thema].waarde, thema.isEmpty() ? "2" : thema);
        EXPECT_EQ(m.velden[I::Thema].keuzes.last().data, thema.isEmpty() ? "2" : thema);
        EXPECT_EQ(knoppen(m), "......");
    }
    EXPECT_TRUE(plek.ws.meldingen().isEmpty());
}

TEST(InstellingenTest, SaveStoresTheSettingsAndAChangedLanguageRecaptionsEveryForm) {
    using I = OnderhoudInstellingen;
    struct Case {
        const char* wat;
        const char *thema, *taal; // chosen; "" is a language row without data
        const char* beheer;       // the maintenance password typed
        const char* antwoord;     // the server's reply to OPSINS; nullptr: refused unsent
        const char* themaTaal;    // the last two fields sent
        int iniTaal, taalNa;      // Language in the file, and the language in use, afterwards
    };
    const Case cases[] = {
        {"theme alone", "2", "1033", "nieuw", "OK", "2;<>;1033", 1033, 1033},
        {"language", "1", "1043", "nieuw", "OK", "1;<>;1043", 1043, 1043},
        {"a language row without data", "1", "", "nieuw", "OK", "1;<>;1033", 1033, 1033},
        {"the server refuses", "1", "1043", "nieuw", "FOUT", "1;<>;1043", 1043, 1033},
        // The two passwords are stored as one text joined by ";|;".
        {"a password holding the separator", "2", "1043", "a;|;b", nullptr, "", 1033, 1033},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.wat);
        ScriptedPeer peer;
        begin(peer);
        if (c.antwoord)
            peer.op("OPSINS*", QString("OPSINS") + c.antwoord);
        const bool mislukt = QString(c.antwoord) != "OK";
        Plek plek(&peer);
        QStringList log;
        OpnameForm eerste(plek.p(), log, "eerste"), laatste(plek.p(), log, "laatste");
        plek.kies(0);
        OnderhoudInstellingen& m = plek.inst();
        m.ZetVeld(I::WachtwoordBeheer, c.beheer);
        m.ZetVeld(I::Thema, c.thema);
        m.ZetVeld(I::Taal, c.taal);
        const QStringList getypt = waarden(m);
        log.clear();
        m.cmd_Click(BewerkPaneel::Opslaan);
        EXPECT_FALSE(plek.f().BewerkModus);
        ASSERT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();
        const QString verstuurd = QString("OPSINSleraar;<>;") + c.beheer +
                                  ";<>;http://school.example;<>;aan@school.example;<>;"
                                  "De Klimop;<>;van@school.example;<>;" +
                                  c.themaTaal;
        EXPECT_EQ(peer.ontvangen.filter("OPSINS"),
                  c.antwoord ? QStringList(verstuurd) : QStringList());
        EXPECT_EQ(plek.leesIni("Thema"), c.antwoord ? c.thema : "");
        EXPECT_EQ(plek.leesIni("Language"), QString::number(c.iniTaal));
        EXPECT_EQ(plek.p().modTaal.Taal, c.taalNa);
        EXPECT_EQ(plek.p().modData->Wachtwoorden.value(1), mislukt ? "beheer" : "nieuw")
            << "only what the server stored";
        plek.gemeld(mislukt ? QList<int>{c.antwoord ? 3332 : 9612} : QList<int>());
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
                  plek.p().modTaal.LaadTekst(3372, c.taalNa));
        EXPECT_EQ(m.velden[I::Taal].caption, plek.p().modTaal.LaadTekst(3439, c.taalNa));
        EXPECT_EQ(plek.server().cmdBackup[1], plek.p().modTaal.LaadTekst(3194, c.taalNa));
        EXPECT_EQ(plek.server().cmbBackup, QStringList(plek.p().modTaal.LaadTekst(3429, c.taalNa)))
            << "the note of an empty list too";
        EXPECT_EQ(plek.f().ZichtbaarPaneel, FrmOnderhoud::PInstellingen);
    }
}

// The server panel reads its settings from LDNSIN; Save asks the beta password only when beta is
// switched on, sends OPSSIN, and a moved server restarts the client (through the launcher, or on
// a Network workstation through a new logon as the maintenance account).
TEST(InstellingenTest, TheServerPanelSavesAsksTheBetaPasswordAndRestartsForAMovedServer) {
    struct Case {
        const char* wat;
        bool automatisch, beta; // chosen before Save (the server said: no, no)
        const char* wachtwoord; // typed at the question, nullptr: no question
        const char* locatie;    // chosen through Browse, nullptr: not pressed, "": Cancel
        bool netwerk, verstuurd;
        QList<int> meldingen;
        const char *woord, *aanmelding; // told to the launcher; the new logon
    };
    // clang-format off
    const Case cases[] = {
        {"beta unchanged", true, false, nullptr, nullptr, false, true, {}, "", ""},
        {"beta on, no password typed", true, true, "", nullptr, false, false, {3340}, "", ""},
        {"beta on, a wrong password", true, true, "toetsvee", nullptr, false, false, {3340, 3341}, "", ""},
        {"beta on, the password", false, true, "toetsveer", nullptr, false, true, {3340}, "", ""},
        {"a new location", false, false, nullptr, "elders:4000", false, true, {3342}, "resolutie", ""},
        {"a new location on a Network workstation", false, false, nullptr, "elders", true, true, {3342}, "",
         "ONDERHOUD/Sleutelwrk42/afmelden"},
        {"Browse, then Cancel: nothing to save", false, false, nullptr, "", false, false, {}, "", ""},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.wat);
        ScriptedPeer peer;
        begin(peer).op("LDNSIN", "LDNSIN2.0.1;<>;NEE;<>;NEE;<>;SQLite");
        if (c.verstuurd)
            peer.op("OPSSIN*", "OPSSIN");
        Plek plek(&peer);
        test::AanmeldStappen stappen(plek.p());
        plek.p().opstartStappen = &stappen;
        plek.p().modMain.ModusNetwerk = c.netwerk;
        plek.kies(1);
        OnderhoudServer& s = plek.server();
        EXPECT_EQ(s.lblServerversieWaarde, "2.0.1 (sqlite)");
        EXPECT_EQ(s.lblClientversieWaarde, ModMain::ProgrammaVersie());
        EXPECT_EQ(waarden(s),
                  QStringList({QString("127.0.0.1:%1").arg(peer.poort()), "Nee", "Nee"}));
        EXPECT_EQ(knoppen(s), "......");
        EXPECT_FALSE(plek.f().BewerkModus) << "the menu lives again after the question";
        s.cmbServer_Click(1, c.automatisch);
        s.cmbServer_Click(2, c.beta);
        if (c.locatie) {
            plek.ws.dialogen.opModaal = [&](Form& f) {
                if (auto* n = dynamic_cast<FrmNetwerk*>(&f)) {
                    n->txtNaam_Change(c.locatie);
                    *c.locatie ? n->cmdOK_Click() : n->cmdAnnuleren_Click();
                }
            };
            s.cmdServer_Click(1);
        }
        if (c.wachtwoord)
            plek.ws.dialogen.antwoorden << c.wachtwoord;
        s.cmdServer_Click(3);
        EXPECT_TRUE(peer.klaar());
        EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();
        plek.gemeld(c.meldingen);
        EXPECT_EQ(peer.ontvangen.last(),
                  c.verstuurd ? "OPSSIN" + InstellingenTeksten::opslaanServer(c.automatisch, c.beta)
                              : QString("LDNSIN"));
        if (c.locatie && *c.locatie && !c.netwerk) {
            EXPECT_EQ(plek.leesIni("Serverlocatie"), c.locatie);
        }
        EXPECT_EQ(stappen.aanmelding, c.aanmelding);
        plek.p().opstartStappen = &plek.p().unbuiltSteps;
        // Once stored, nothing differs; a stopped save keeps the choice for another try.
        const bool anders = c.automatisch || c.beta;
        EXPECT_EQ(knoppen(s), !c.verstuurd && anders ? "...S.R" : "......");
        plek.herstart(c.woord);
    }
    // Restore reads the server's settings anew.
    ScriptedPeer peer;
    begin(peer).op("LDNSIN", "LDNSIN2;<>;NEE;<>;NEE").op("LDNSIN", "LDNSIN2;<>;JA;<>;NEE");
    Plek plek(&peer);
    plek.kies(1);
    plek.server().cmbServer_Click(2, true);
    plek.server().cmdServer_Click(4);
    EXPECT_TRUE(peer.klaar());
    EXPECT_EQ(waarden(plek.server()).mid(1), QStringList({"Ja", "Nee"}));
    EXPECT_EQ(knoppen(plek.server()), "......");
}

TEST(InstellingenTest, TheCheckForUpdatesAndTheChangeLog) {
    struct Case {
        const char *wat, *updcon, *webadres; // the server's offer; the configured web site
        int knop;
        const char *woord, *adres; // told to the launcher; the change log's page
        int melding;
    };
    const QString versie = ModMain::ProgrammaVersie();
    // clang-format off
    const Case cases[] = {
        {"no newer version", "", "", 2, "", "", 3339},
        {"another version on offer", "99.0.0", "", 2, "UPDATE", "", 0},
        {"change log without a web site", "", "", 5, "", "", 9549},
        {"change log", "", "http://web.example/", 5, "", "http://web.example/applicatie/download_changelog.php4?versie=", 0},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.wat);
        ScriptedPeer peer;
        begin(peer).op("LDNSIN", "LDNSIN2.0.1;<>;JA;<>;NEE");
        if (c.knop == 2)
            peer.op("UPDCON", "UPDCON" + (*c.updcon ? QString(c.updcon) : versie));
        Plek plek(&peer);
        plek.p().modMain.SchrijfIni(c.webadres, "Instellingen", "Webadres", ini);
        plek.kies(1);
        QString adres;
        plek.server().toonChangelog = [&](const QString& a) { adres = a; };
        bool getekendBezig = false; // how the panel was drawn last
        plek.server().onChanged = [&] { getekendBezig = plek.server().bezig; };
        plek.server().cmdServer_Click(c.knop);
        EXPECT_FALSE(getekendBezig) << "the panel is drawn usable again after the wait";
        EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();
        plek.gemeld(c.melding ? QList<int>{c.melding} : QList<int>());
        EXPECT_EQ(adres, *c.adres ? c.adres + versie : QString());
        plek.herstart(c.woord);
    }
}

TEST(InstellingenTest, TheBackupBoxListsExportsAndImportsTheServersBackups) {
    using Stappen = QList<std::pair<QString, QString>>; // after the load and LDNSIN
    struct Case {
        const char* wat;
        const char* lijst; // the BCKLST answer of the module's load, after "BCK"
        int gekozen, knop; // the backup chosen (-1 as shown) and the button pressed
        const char* vraag; // the answer to the import question
        Stappen stappen;   // the server's part after the press; "" the server's own message
        const char *getoond, *knoppen; // the list afterwards; I(mport) E(xport) enabled
        QList<int> meldingen;
        const char* woord; // told to the launcher
    };
    // clang-format off
    const Case cases[] = {
        {"no backups", "", -1, 0, "ja", {}, "No backups available", ".E", {}, ""},
        {"export", "1.1.backup", -1, 1, "", {{"BCKMKB", "BCK2.2.backup"}, {"BCKLST", "BCK1.1.backup|2.2.backup"}},
         "1:1|2:2", "IE", {3327}, ""},
        {"export refused", "", -1, 1, "", {{"BCKMKB", "BCKFOUT"}}, "No backups available", ".E", {3328}, ""},
        // The keep-alive merged into the answer leaves it no "FOUT".
        {"import", "1.1.backup|2.2.backup", 0, 0, "ja", {{"BCKRST1.1.backup", "BCKOK"}, {"", "PIN"}},
         "1:1|2:2", "..", {3324, 3325}, "resolutie"},
        {"import refused", "1.1.backup", -1, 0, "ja", {{"BCKRST1.1.backup", "BCKFOUT"}}, "1:1", "IE", {3324, 3326}, ""},
        {"import not wanted", "1.1.backup", -1, 0, "nee", {}, "1:1", "IE", {3324}, ""},
        {"odd names", "||x.backup|  |a.b|", -1, -1, "", {}, "x|a:b", "IE", {}, ""},
    };
    // clang-format on
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
        plek.kies(1);
        OnderhoudServer& s = plek.server();
        s.cmbBackup_Click(c.gekozen);
        plek.ws.dialogen.antwoorden << c.vraag;
        // A moment into a wait for the server, the menu is dead.
        bool menuDood = false;
        QObject peiler; // goes before the workstation it looks at
        QTimer::singleShot(0, &peiler, [&] { menuDood = plek.f().BewerkModus; });
        s.cmdBackup_Click(c.knop);
        EXPECT_EQ(menuDood, !c.stappen.isEmpty());
        EXPECT_TRUE(peer.klaar());
        EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();
        const QStringList getoond = QString(c.getoond).split('|');
        EXPECT_EQ(s.cmbBackup, getoond);
        EXPECT_EQ(s.backupIndex, c.gekozen >= 0 ? c.gekozen : getoond.size() - 1)
            << "the newest stands chosen";
        EXPECT_EQ(s.fraBackupEnabled, getoond.value(0) != "No backups available");
        EXPECT_EQ(QString(s.cmdBackupEnabled[0] ? "I" : ".") + (s.cmdBackupEnabled[1] ? "E" : "."),
                  c.knoppen);
        plek.gemeld(c.meldingen);
        plek.herstart(c.woord);
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
    plek.p().frmMain->Berichten.setQuietMs(500);
    plek.server().LaadBackups(true);
    EXPECT_EQ(plek.server().cmbBackup, leesbaar);
}

// Another workstation took the module while the import question was open: the stay ends, the
// question closes, and the Yes it still returns restores nothing.
TEST(InstellingenTest, AQuestionOpenWhenTheStayEndsNoLongerActs) {
    ScriptedPeer peer;
    begin(peer, "BCK1.1.backup").op("LDNSIN", "LDNSIN2.0.1;<>;JA;<>;NEE");
    peer.op("BCKRST*", "BCKFOUT"); // answered, should it be asked after all
    Plek plek(&peer);
    plek.kies(1);
    auto& dialogen = plek.ws.dialogen;
    dialogen.antwoorden << "ja";
    dialogen.tijdensVraag = [&] { plek.f().Afmelden2(); };
    plek.server().cmdBackup_Click(0);
    EXPECT_EQ(dialogen.gesloten, 1);
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join("\n").toStdString();
    EXPECT_TRUE(peer.ontvangen.filter("BCKRST").isEmpty());
    plek.gemeld({3324});
    plek.herstart("");
}

TEST(InstellingenTest, ThePanelsPaintTheirFieldsAndNameEveryControl) {
    ScriptedPeer peer;
    begin(peer, "BCK5-3-2024 14.07.09.backup|6-3-2024 9.00.00.backup")
        .op("LDNSIN", "LDNSIN2.0.1;<>;JA;<>;NEE;<>;SQLite");
    Plek plek(&peer);
    using I = OnderhoudInstellingen;
    // The window stands before the panel is first shown, as in the client.
    BewerkPaneelView inst(plek.inst());
    inst.resize(plek.f().paneelVak().size());
    plek.kies(0);
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

    // The next stay, maybe somebody else's, shows the passwords masked again (either way of
    // leaving tells the panels).
    ASSERT_TRUE(plek.inst().wachtwoordenTonen);
    plek.f().Afmelden2();
    EXPECT_FALSE(plek.inst().wachtwoordenTonen);
}
