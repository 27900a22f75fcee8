#pragma once

#include "core/Programma.h"
#include "data/FixedTable.h"
#include "data/ModData.h"
#include "data/ModMainLaden.h"
#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "platform/fake/FakePlatform.h"
#include "screens/desktop/FrmBureaublad.h"
#include "screens/desktop/FrmBureaubladStarter.h"
#include "screens/desktop/ModMainStarten.h"
#include "screens/start/FrmMain.h"
#include "screens/taskbar/FrmTaakbalk1.h"
#include "screens/taskbar/FrmTaakbalk2.h"
#include "screens/taskbar/ModMainAfsluiten.h"
#include "tests/support/OpnameKanaal.h"
#include "tests/support/OpnameSchermen.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/WaitUntil.h"
#include "theme/ModThema.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace tk::test {

// The default theme and the standard icon library as the build makes them, for the test binaries
// that depend on them; empty elsewhere.
#ifdef TK_DEFAULT_THEME
constexpr char StandaardThema[] = TK_DEFAULT_THEME;
#else
constexpr char StandaardThema[] = "";
#endif
#ifdef TK_STANDARD_ICL
constexpr char StandaardIcl[] = TK_STANDARD_ICL;
#else
constexpr char StandaardIcl[] = "";
#endif

// A fresh workstation for one test: an empty program folder in a temporary folder, the fake
// platform, scripted dialogs and a Programma over them. The parts of the client a test uses are
// made on their first use, with what they need before them, as the client makes them: the
// default theme as theme "1", the data tables, the link to a server, the start screen, the
// desktop, its launcher and its taskbar. Only the parts a test uses are linked into it.
class Werkplek {
public:
    Werkplek();
    // A workstation on a platform of the test's making over the program folder: the fake one
    // with a real window system, for a test on an X server.
    using MaakPlatform = std::function<std::unique_ptr<FakePlatform>(const QString& map)>;
    explicit Werkplek(const MaakPlatform& maak);
    // A workstation with the link in a role, pointed at `poort` (see verbinding()).
    enum class Rol { Netwerk, Beheer };
    Werkplek(quint16 poort, Rol rol, int stap = 100) : Werkplek() { verbinding(poort, rol, stap); }
    // A workstation with a part made at once: Werkplek w(Werkplek::bureaublad).
    struct Starter {};
    static constexpr Starter starter{};
    explicit Werkplek(Starter) : Werkplek() { s(); }
    struct Gegevens {};
    static constexpr Gegevens gegevens{};
    explicit Werkplek(Gegevens, quint16 poort = 0) : Werkplek() {
        verbinding(poort);
        laden();
    }
    struct Startscherm {};
    static constexpr Startscherm startscherm{};
    struct Bureaublad {};
    static constexpr Bureaublad bureaublad{};
    struct Taakbalk {};
    static constexpr Taakbalk taakbalk{};
    explicit Werkplek(Startscherm) : Werkplek() { f(); }
    explicit Werkplek(Bureaublad) : Werkplek() { b(); }
    explicit Werkplek(Taakbalk) : Werkplek() { balk2(); }
    QString map() const { return m_map.path(); }
    // Native path of a file below the program folder ("Data/Instellingen.ini").
    QString pad(const QString& relatief) const { return m_map.filePath(relatief); }
    QByteArray lees(const QString& relatief) const;
    void schrijf(const QString& relatief, const QByteArray& inhoud) const;
    // Copies the files below a folder to a folder below the program folder ("Afbeeldingen/").
    void kopieer(const QString& bron, const QString& doelMap) const;
    // The texts of the messages shown so far.
    QStringList meldingen() const { return dialogen.teksten(); }
    // Everything the log book holds.
    QString logboek() const;

    // --- The parts, made on first use.
    ModData& d() {
        if (!p.modData)
            p.maak(p.modData, p);
        return *p.modData;
    }
    void kopieerThema() {
        kopieer(QString::fromUtf8(StandaardThema), QStringLiteral("Afbeeldingen/Skins/1/"));
    }
    ModThema& thema() {
        if (!p.modThema) {
            kopieerThema();
            p.maak(p.modThema, p);
            p.modThema->LaadThema();
        }
        return *p.modThema;
    }
    // The start screen and its taskbar over the data tables. Every read of the clock moves it
    // on, so that the short pauses of the slides end.
    FrmMain& f() {
        if (!p.startScreen) {
            platform.fakeClock().setStepPerRead(5);
            d();
            thema();
            if (!p.frmMain)
                p.maak(p.frmMain, p);
            p.maak(p.startScreen, p, *p.frmMain);
            p.startScreenEvents = p.startScreen;
            p.maak(p.frmTaakbalk1, p);
            p.maak(p.modMainAfsluiten, p);
        }
        return *p.startScreen;
    }
    FrmTaakbalk1& balk1() {
        f();
        return *p.frmTaakbalk1;
    }
    // The desktop over the data tables and the standard icon library, connected through the
    // answering channel, loaded.
    FrmBureaublad& b() {
        if (!p.frmBureaublad) {
            thema();
            QDir().mkpath(pad(QStringLiteral("Afbeeldingen/Pictogrammen")));
            QFile::copy(QString::fromUtf8(StandaardIcl),
                        pad(QStringLiteral("Afbeeldingen/Pictogrammen/standaard.icl")));
            p.kanaal = &kanaal;
            d();
            p.maak(p.frmBureaublad, p);
            p.frmBureaublad->onChanged = [this] { ++hertekend; };
            p.frmBureaublad->Form_Load();
        }
        return *p.frmBureaublad;
    }
    // The desktop's taskbar over the fake window system, the desktop up; its window is handle 5,
    // its timers are ticked by hand, the ways it asks for are recorded in `acties`.
    FrmTaakbalk2& balk2() {
        if (!p.frmTaakbalk2) {
            thema();
            p.maak(p.frmTaakbalk2, p);
            FrmTaakbalk2& balk = *p.frmTaakbalk2;
            p.BureaubladOpen = true;
            balk.VensterHandle = [] { return quint64(5); };
            balk.onChanged = [this] { ++hertekend; };
            p.schermen = &schermen;
            const auto noteer = [this](const char* actie) {
                return [this, actie] { acties << QString::fromLatin1(actie); };
            };
            QObject::connect(&balk, &FrmTaakbalk2::internetGevraagd, noteer("InternetWeergeven"));
            QObject::connect(&balk, &FrmTaakbalk2::bureaubladGevraagd,
                             noteer("BureaubladWeergeven"));
            QObject::connect(&balk, &FrmTaakbalk2::afmeldenGevraagd, noteer("Afmelden"));
            QObject::connect(&balk, &FrmTaakbalk2::onderhoudGevraagd, noteer("Onderhoud"));
            balk.Form_Load();
            balk.tmrTaken.stop();
            balk.tmrMuis.stop();
            platform.fakeWindows().log.clear();
        }
        return *p.frmTaakbalk2;
    }
    void tik() { balk2().tmrTaken_Timer(); }
    // The titles of the task buttons in their order.
    QStringList knopTitels() {
        QStringList uit;
        for (int i = 0; i < balk2().AantalKnoppen; ++i)
            uit << balk2().Knoppen(i, FrmTaakbalk2::Titel);
        return uit;
    }
    int kolom(int rij, FrmTaakbalk2::Kolom k) { return balk2().Knoppen(rij, k).toInt(); }
    // The middle of task button `rij`.
    QPoint midden(int rij) {
        return QPoint(
            (kolom(rij, FrmTaakbalk2::KaderLinks) + kolom(rij, FrmTaakbalk2::KaderRechts)) / 2,
            balk2().Hoogte / 2);
    }
    FakeWindows& vensters() { return platform.fakeWindows(); }
    // An ordinary program window, and one on the screen.
    static WindowInfo venster(quint64 handle, const QString& titel) {
        WindowInfo w;
        w.handle = handle;
        w.title = titel;
        return w;
    }
    void programma(quint64 handle, const QString& titel) {
        vensters().windows.append(venster(handle, titel));
    }
    // The desktop's launcher over the data tables, connected through the recording channel; its
    // taskbar is the recording one.
    FrmBureaubladStarter& s() {
        if (!m_starter) {
            p.kanaal = &kanaal;
            d();
            m_starter = new FrmBureaubladStarter(p);
            m_starterEigen = std::unique_ptr<void, void (*)(void*)>(
                m_starter, [](void* o) { delete static_cast<FrmBureaubladStarter*>(o); });
            m_starter->VensterHandle = [] { return quint64(77); };
            m_starter->onChanged = [this] { ++hertekend; };
            m_starter->Tonen = [this] { ++getoond; };
            m_starter->taakbalk = &opnameBalk;
        }
        return *m_starter;
    }
    // Ends the launcher, as a log-off does.
    void starterWeg() {
        m_starterEigen.reset();
        m_starter = nullptr;
    }
    ModMainStarten& starten() {
        s();
        return *p.modMainStarten;
    }
    // Moves the clock past the guard between two starts.
    void later(qint64 seconden = 3) { platform.fakeClock().advance(seconden * 1000); }

    // The link in a mode, the server location in the settings pointing at `poort` on this
    // machine when one is given, the loaders of the data tables over it. Every read of the clock
    // moves it on by `stap` ms, so that deadlines pass quickly.
    FrmMainLink& verbinding(quint16 poort = 0, Rol rol = Rol::Netwerk, int stap = 100) {
        if (!p.frmMain)
            p.maak(p.frmMain, p);
        if (!p.modMainVerbinding)
            p.maak(p.modMainVerbinding, p);
        p.modMain.ModusNetwerk = rol == Rol::Netwerk;
        p.modMain.ModusBeheer = rol == Rol::Beheer;
        p.modMain.MaakMappen(QStringLiteral("\\Data"));
        if (poort)
            p.modMain.SchrijfIni(QStringLiteral("127.0.0.1:%1").arg(poort),
                                 QStringLiteral("Instellingen"), QStringLiteral("Serverlocatie"),
                                 QString::fromLatin1(ModMain::Instellingen));
        platform.fakeClock().setStepPerRead(stap);
        return *p.frmMain;
    }
    // Finds the server and connects.
    bool verbind() {
        return p.modMainVerbinding->BepaalServerlocatie() && p.frmMain->ServerVerbinden(true);
    }
    // Connects and identifies the client.
    bool identificeer() {
        if (!verbind())
            return false;
        p.modMainVerbinding->IdentificeerClient();
        return p.frmMain->isConnected();
    }
    // A request of class A and its answer.
    QString vraag(const QString& bericht) {
        p.modMain.AntwoordOntvangen = false;
        p.frmMain->WS_Versturen(bericht, false);
        p.wacht.Tot([this] { return p.modMain.AntwoordOntvangen; });
        return p.modMain.Antwoord;
    }
    // The loaders of the data tables over the link.
    ModMainLaden& laden() {
        if (!p.modMainLaden) {
            d();
            p.maak(p.modMainLaden, p);
            p.modMainVerbinding->namen = p.modData;
        }
        return *p.modMainLaden;
    }
    // Connects, identifies the client and runs the whole load.
    void laadOnline() {
        laden();
        if (verbind())
            p.modMainVerbinding->IdentificeerClient();
        p.modMainLaden->Laden();
    }
    QByteArray cache() const { return lees(QStringLiteral("Data/data.tijdelijk")); }
    // Everything the loaders filled, as lines of text, so that two loads compare with a readable
    // diff.
    static QStringList alleGegevens(ModData& g) {
        QStringList uit;
        auto tabel = [&](const QString& naam, const FixedTable& t) {
            for (int r = 0; r < t.rijen(); ++r)
                if (!t.rij(r).join(QString()).isEmpty())
                    uit.append(naam + QStringLiteral("[%1] ").arg(r) +
                               t.rij(r).join(QStringLiteral("~")));
        };
        tabel(QStringLiteral("Klassen"), g.Klassen);
        tabel(QStringLiteral("Leraren"), g.Leraren);
        for (int s = 0; s < 3; ++s) {
            tabel(QStringLiteral("Categorien%1").arg(s), g.Categorien[s]);
            tabel(QStringLiteral("Applicaties%1").arg(s), g.Applicaties[s]);
            uit.append(QStringLiteral("LaatsteCategorieID%1 ").arg(s) + g.LaatsteCategorieID[s]);
            uit.append(QStringLiteral("LaatsteApplicatieID%1 ").arg(s) + g.LaatsteApplicatieID[s]);
        }
        uit.append(QStringLiteral("LaatsteKlasID ") + g.LaatsteKlasID);
        uit.append(QStringLiteral("LaatsteLeraarID ") + g.LaatsteLeraarID);
        uit.append(QStringLiteral("Accounts ") + g.Accounts.join(QStringLiteral("~")));
        uit.append(QStringLiteral("Wachtwoorden ") + g.Wachtwoorden.join(QStringLiteral("~")));
        uit.append(QStringLiteral("Overige ") + g.Overige.join(QStringLiteral("~")));
        uit.append(
            QStringLiteral("Modules %1 %2 ").arg(g.Printermodule).arg(g.ActiveDirectoryModule) +
            g.Printers);
        uit.append(QStringLiteral("VerbodenWoorden ") + g.VerbodenWoorden);
        uit.append(QStringLiteral("ToegestaneSites ") + g.ToegestaneSites);
        return uit;
    }

    // --- Table rows.
    // A class: name, ID, desktop, internet, background.
    void klas(int rij, const QString& naam, const QString& id,
              const QString& applicaties = QString(),
              const QString& internet = QStringLiteral("Ja"),
              const QString& achtergrond = QStringLiteral("Bureaublad.jpg")) {
        FixedTable& k = d().Klassen;
        k(rij, 0) = naam;
        k(rij, 1) = naam.left(2);
        k(rij, 3) = achtergrond;
        k(rij, 4) = QStringLiteral("klas") + id;
        k(rij, 5) = QStringLiteral("geheim");
        k(rij, 6) = id;
        k(rij, 7) = applicaties;
        k(rij, 8) = internet;
        k(rij, 10) = QStringLiteral("1");
    }
    // A class as the start screen shows it: name, short name, picture, place; its account and
    // password follow the row, its ID is 100 after the row.
    void startKlas(int rij, const QString& naam, const QString& kort,
                   const QString& beeld = QStringLiteral("1a.jpg"),
                   const QString& plek = QStringLiteral("0,0")) {
        FixedTable& k = d().Klassen;
        k(rij, 0) = naam;
        k(rij, 1) = kort;
        k(rij, 2) = beeld;
        k(rij, 4) = QStringLiteral("acc") + QString::number(rij);
        k(rij, 5) = QStringLiteral("pw") + QString::number(rij);
        k(rij, 6) = QString::number(100 + rij);
        k(rij, 11) = plek;
    }
    // A teacher: last, first and middle name, ID, password, desktop.
    void leraar(int rij, const QString& achternaam, const QString& voornaam,
                const QString& tussenvoegsel, const QString& id, const QString& wachtwoord,
                const QString& applicaties = QString(), const QString& account = QString()) {
        FixedTable& l = d().Leraren;
        l(rij, 0) = achternaam;
        l(rij, 1) = QStringLiteral("standaard|pictogram 3");
        l(rij, 2) = QStringLiteral("Geen");
        l(rij, 3) = account.isEmpty() ? achternaam.toLower() : account;
        l(rij, 4) = wachtwoord;
        l(rij, 5) = id;
        l(rij, 6) = voornaam;
        l(rij, 7) = tussenvoegsel;
        l(rij, 8) = applicaties;
        l(rij, 9) = QStringLiteral("Nee");
        l(rij, 14) = QStringLiteral("1");
    }
    // An application of a kind (0 a class's, 1 a teacher's, 2 everyone's).
    void applicatie(int soort, int rij, const QString& id, const QString& naam,
                    const QString& pictogram = QStringLiteral("standaard|3"),
                    const QString& opdracht = QStringLiteral("/bin/true"),
                    const QString& omschrijving = QStringLiteral("-"),
                    const QString& categorie = QString(), const QString& parameter = QString(),
                    const QString& beeldscherm = QStringLiteral("1024x768x32xNEE")) {
        FixedTable& t = d().Applicaties[soort];
        t(rij, 0) = id;
        t(rij, 1) = naam;
        t(rij, 2) = categorie;
        t(rij, 3) = opdracht;
        t(rij, 4) = omschrijving;
        t(rij, 5) = pictogram;
        t(rij, 6) = parameter;
        t(rij, 8) = beeldscherm;
    }
    // The stored places of a class's or teacher's desktop, as the server gives them.
    void posities(const QString& eigenaar, const QString& tekst) {
        kanaal.antwoorden.insert(QStringLiteral("LDNAPPPOS") + eigenaar,
                                 QStringLiteral("POS") + tekst);
    }
    // The drawn desktop item of an Iconen row, or null, and its place.
    const FrmBureaublad::Icoon* icoon(int rij) {
        for (const auto& i : b().zichtbareIconen)
            if (i.rij == rij)
                return &i;
        return nullptr;
    }
    QPoint plek(int rij) {
        const auto* i = icoon(rij);
        return i ? i->beeld.topLeft() : QPoint(-1, -1);
    }

    QTemporaryDir m_map;
    std::unique_ptr<FakePlatform> m_platform;
    FakePlatform& platform;
    ScriptedDialogs dialogen;
    Programma p;
    OpnameKanaal kanaal{p};
    OpnameSchermen schermen;
    QStringList& acties = schermen.log;
    OpnameTaakbalk opnameBalk;
    // The procedures of the fault reports shown.
    QStringList rapporten;
    int hertekend = 0;
    int getoond = 0;

private:
    FrmBureaubladStarter* m_starter = nullptr;
    std::unique_ptr<void, void (*)(void*)> m_starterEigen{nullptr, [](void*) {}};
};

} // namespace tk::test
