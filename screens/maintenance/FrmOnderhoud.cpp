#include "FrmOnderhoud.h"

#include "OnderhoudPaneel.h"
#include "OnderhoudServer.h"
#include "controls/AccessibleName.h"
#include "controls/ModPictogrammen.h"
#include "core/Ansi.h"
#include "core/DialogService.h"
#include "core/OpstartStappen.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/Wire.h"
#include "data/ModData.h"
#include "link/ModMainVerbinding.h"
#include "platform/Clock.h"
#include "platform/Display.h"
#include "platform/Platform.h"
#include "screens/desktop/FrmBureaublad.h"
#include "screens/start/FrmMain.h"
#include "theme/ModDataPictogrammen.h"
#include "theme/ModThema.h"

#include <QDir>
#include <QFont>
#include <QFontMetrics>

namespace tk {

namespace {

const QString ja = QStringLiteral("ja");
const QString nee = QStringLiteral("nee");

QString kleurTekst(quint32 kleur) {
    return QString::number(kleur);
}

// The hover help of the entries, by kind and row (the info strip).
int helpTekst(FrmOnderhoud::Soort soort, int rij) {
    switch (soort) {
    case FrmOnderhoud::Accounts:
        return rij == 1 ? 3285 : rij == 2 ? 3286 : 0;
    case FrmOnderhoud::Applicaties:
        return rij == 1 ? 3289 : rij == 2 ? 3287 : rij == 3 ? 3288 : 0;
    case FrmOnderhoud::Desktops:
        return rij == 1 ? 3290 : rij == 2 ? 3291 : 0;
    default:
        return 0;
    }
}

} // namespace

FrmOnderhoud::FrmOnderhoud(Programma& p) : p(p) {
    tekstBreedte = [](const QString& tekst, int grootte, bool vet) {
        QFont font(QStringLiteral("Verdana"));
        font.setPixelSize(grootte + 3);
        font.setBold(vet);
        return QFontMetrics(font).horizontalAdvance(tekst);
    };
    p.formulieren.append(this);
}

FrmOnderhoud::~FrmOnderhoud() {
    p.formulieren.removeAll(this);
}

QString& FrmOnderhoud::cel(int groep, int rij, int kolom) {
    controleerIndex(groep, Groepen);
    controleerIndex(rij, Rijen);
    controleerIndex(kolom, Kolommen);
    return MenuTabel[size_t(groep)][size_t(rij)][size_t(kolom)];
}

const QString& FrmOnderhoud::cel(int groep, int rij, int kolom) const {
    return const_cast<FrmOnderhoud*>(this)->cel(groep, rij, kolom);
}

QRect FrmOnderhoud::rijVak(int groep, int rij) const {
    const int links = cel(groep, rij, Links).toInt(), rechts = cel(groep, rij, Rechts).toInt();
    const int boven = cel(groep, rij, Boven).toInt(), onder = cel(groep, rij, Onder).toInt();
    return QRect(QPoint(links, boven), QPoint(rechts, onder));
}

void FrmOnderhoud::plaatsPaneel(int nummer, OnderhoudPaneel* paneel) {
    m_panelen[nummer] = paneel;
}

OnderhoudPaneel* FrmOnderhoud::paneel(int nummer) const {
    const auto it = m_panelen.find(nummer);
    return it == m_panelen.end() ? nullptr : it->second;
}

void FrmOnderhoud::hertekenen() {
    if (onChanged)
        onChanged();
}

void FrmOnderhoud::meld(const QString& tekst) {
    meldingen << tekst;
    p.modMain.ToonVraag(p.modTaal.LaadTekst(3359), tekst, QStringLiteral("-"));
}

void FrmOnderhoud::nietHier(const QString& wat) {
    p.modMain.SchrijfLogboek(QStringLiteral("The maintenance panel \"%1\" was asked for, but this "
                                            "workstation does not have it yet")
                                 .arg(wat),
                             QStringLiteral("Onderhoudsmodule"),
                             QStringLiteral("frmOnderhoud.MenuActie"), QStringLiteral("-"));
    meld(p.modTaal.LaadTekst(9546));
}

// --- entry and exit

void FrmOnderhoud::LaadTaal() {
    Caption = p.modTaal.LaadTekst(3359);
    lblKop = Caption;
    lblMenuHelp = p.modTaal.LaadTekst(3360);
    lblAfmelden = p.modTaal.LaadTekst(1801);
    // Captions of the menu rows follow the language; their colours and marks stay.
    for (int g = 0; g < Groepen; ++g)
        for (int r = 0; r < Rijen; ++r) {
            const QString& id = cel(g, r, TekstId);
            if (!id.isEmpty()) {
                cel(g, r, Tekst) = p.modTaal.LaadTekst(id.toInt());
                cel(g, r, Tekenen) = ja;
            }
        }
    menuVerschoven = true;
    for (const auto& [nummer, paneel] : m_panelen)
        paneel->LaadTaal();
    hertekenen();
}

void FrmOnderhoud::Form_Load() {
    Procedure(p, "frmOnderhoud.Form_Load", [&] {
        LaadTaal();
        LaadWindowsAccounts(false);
        LaadPrinterLijst();
        LaadAanmeldscripts();
        if (auto* server = dynamic_cast<OnderhoudServer*>(paneel(PServer)))
            server->LaadBackups(true);
        LaadResolutie();
        Stationsletters.clear();
        for (char c = 'D'; c <= 'Z'; ++c)
            Stationsletters << QString(QLatin1Char(c)) + QLatin1Char(':');
        tijdMin1Uur = p.platform.clock().msecsSinceStart() - 3600 * 1000;
    });
}

void FrmOnderhoud::toonMenu() {
    Tekenmenu();
    BewerkModus = false;
    MenuItemsBoxenNietWeergeven(-1);
    lblLaden.clear();
    Zichtbaar = true;
    hertekenen();
}

void FrmOnderhoud::Openen() {
    Procedure(p, "frmOnderhoud.Openen", [&] {
        Beperkt = false;
        LaadVormgeving();
        LaadThema();
        LaadMenu();
        laadPictogrammen();
        toonMenu();
    });
}

void FrmOnderhoud::Aangepast(const QString& klassen, bool applicaties, bool leraren) {
    Procedure(p, "frmOnderhoud.Aangepast", [&] {
        Beperkt = true;
        Leraarklassen = klassen;
        LeraarApplicaties = applicaties;
        LeraarLeraren = leraren;
        LaadVormgeving();
        LaadThema();
        LaadAangepastMenu();
        laadPictogrammen();
        toonMenu();
    });
}

void FrmOnderhoud::laadPictogrammen() {
    Tekenmenu();
    if (!p.modPictogrammen)
        p.maak(p.modPictogrammen, p);
    p.modPictogrammen->ReadLibrary(Pictogrammen, PictogramLijst,
                                   QString::fromLatin1(ModPictogrammen::Standaard), true);
}

// --- the lists of the record panels

void FrmOnderhoud::LaadWindowsAccounts(bool alleenGroepen) {
    Procedure(p, "frmOnderhoud.LaadWindowsAccounts", [&] {
        if (!alleenGroepen) {
            WindowsAccounts.clear();
            const QString antwoord = p.modMain.Vraag(QString(wire::LDNWSA)).value_or(QString());
            for (const QString& naam : antwoord.split(wire::valueSep))
                if (!naam.trimmed().isEmpty())
                    WindowsAccounts << Ansi::hoofdletters(naam.trimmed());
        }
        WindowsGroepen.clear();
        for (const auto& [bericht, voor, soort] : {std::tuple{wire::LDNGRPGLB, "[GLOBAAL] ", "g"},
                                                   {wire::LDNGRPLKL, "[LOKAAL] ", "l"}}) {
            const QString antwoord = p.modMain.Vraag(QString(bericht)).value_or(QString());
            for (const QString& item : antwoord.split(wire::valueSep, Qt::SkipEmptyParts))
                WindowsGroepen.append({QLatin1String(voor) + item.section(QLatin1Char(':'), 0, 0),
                                       QLatin1String(soort)});
        }
        if (WindowsGroepen.isEmpty())
            WindowsGroepen.append({QStringLiteral("Geen groep beschikbaar"), QString()});
    });
}

void FrmOnderhoud::LaadPrinterLijst() {
    Procedure(p, "frmOnderhoud.LaadPrinterLijst", [&] {
        Printerlijst.clear();
        if (!p.modData)
            return;
        for (const QString& item :
             p.modData->Printers.split(QStringLiteral("><"), Qt::SkipEmptyParts))
            Printerlijst.append(
                {item.section(wire::valueSep, 0, 0), item.section(wire::valueSep, 1, 1)});
    });
}

void FrmOnderhoud::LaadAanmeldscripts() {
    Procedure(p, "frmOnderhoud.LaadAanmeldscripts", [&] {
        Aanmeldscripts.clear();
        const QString antwoord = p.modMain.Vraag(QString(wire::LDNACCLST)).value_or(QString());
        for (const QString& pad : antwoord.split(wire::valueSep, Qt::SkipEmptyParts))
            Aanmeldscripts << pad;
    });
}

void FrmOnderhoud::LaadResolutie() {
    Procedure(p, "frmOnderhoud.LaadResolutie", [&] {
        Resoluties = {QStringLiteral("640x480"),   QStringLiteral("800x600"),
                      QStringLiteral("1024x768"),  QStringLiteral("1152x864"),
                      QStringLiteral("1280x1024"), QStringLiteral("1600x1200")};
        const DisplayMode nu = p.platform.display().current();
        const QString eigen =
            QString::number(nu.width) + QLatin1Char('x') + QString::number(nu.height);
        if (nu.width > 0 && !Resoluties.contains(eigen))
            Resoluties << eigen;
        Kleurdiepten.clear();
        const int diepten[] = {4, 8, 16, 24, 32};
        for (int i = 0; i < 5; ++i)
            Kleurdiepten.append({p.modTaal.LaadTekst(3302 + i), diepten[i]});
    });
}

void FrmOnderhoud::LaadThema() {
    Procedure(p, "frmOnderhoud.LaadThema", [&] {
        ThemaLijst.clear();
        const QString skins = p.modMain.Pad(QString::fromLatin1(ModThema::Skins));
        QStringList mappen = QDir(skins).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        std::sort(mappen.begin(), mappen.end(), [](const QString& a, const QString& b) {
            bool ga = false, gb = false;
            const long na = a.toLong(&ga), nb = b.toLong(&gb);
            return ga != gb ? ga : ga ? na < nb : a < b;
        });
        for (const QString& map : std::as_const(mappen)) {
            QString naam = p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Naam"),
                                             QString::fromLatin1(ModThema::Skins) + map +
                                                 QStringLiteral("\\Instellingen.ini"));
            ThemaLijst.append({map, naam.isEmpty() ? map : naam});
        }
    });
}

// --- eight classes at once

void FrmOnderhoud::picMenuItem_DblClick(int nummer) {
    Procedure(p, "frmOnderhoud.picMenuItem_DblClick", [&] {
        if (nummer != PKlassen || BewerkModus)
            return;
        if (Vraag(p.modTaal.LaadTekst(3378), QStringLiteral("?")) != u"ja")
            return;
        for (int n = 1; n <= 8; ++n) {
            const QString nr = QString::number(n);
            OpslaanKlas(QStringLiteral("Groep ") + nr, nr, QStringLiteral("GROEP") + nr,
                        ModMain::IngebouwdWachtwoord(), QStringLiteral("Bureaublad.jpg"),
                        QStringLiteral("1.jpg"), nr + QStringLiteral("a.jpg"));
        }
        if (OnderhoudPaneel* klassen = paneel(PKlassen))
            klassen->Tonen(1);
    });
}

bool FrmOnderhoud::OpslaanKlas(const QString& naam, const QString& kort, const QString& account,
                               const QString& wachtwoord, const QString& achtergrond,
                               const QString& themaBeeld, const QString& knopBeeld) {
    return Procedure(p, "frmOnderhoud.OpslaanKlas", false, [&] {
        if (!p.modData)
            return false;
        FixedTable& k = p.modData->Klassen;
        // The first free slot; the limit of 21 is the New button's, not this procedure's.
        int rij = 0;
        while (!k(rij, 0).isEmpty())
            ++rij;
        for (int kolom = 0; kolom < k.kolommen(); ++kolom)
            k(rij, kolom).clear();
        k(rij, 0) = naam;
        k(rij, 1) = kort.left(2);
        k(rij, 2) = knopBeeld;
        k(rij, 3) = achtergrond;
        k(rij, 4) = account;
        k(rij, 5) = wachtwoord;
        k(rij, 6) = QStringLiteral("kopie");
        k(rij, 8) = QStringLiteral("Nee");
        k(rij, 10) = themaBeeld;
        k(rij, 11) = QStringLiteral("0,0");
        k(rij, 13) = QStringLiteral("||||NEE");
        const auto gestopt = [&] { return p.beeindigd; };
        if (!p.modMain.ModusStandalone) {
            const auto bestaat = p.modMain.Vraag(wire::ACDCON + account);
            if (gestopt())
                return false;
            if (bestaat != wire::ja) {
                const QString vraag =
                    p.modTaal.LaadTekst(3388).replace(QStringLiteral("%account%"), account);
                if (Vraag(vraag, QStringLiteral("?")) == u"ja") {
                    p.modMain.Vraag(wire::ACDNIE + account + wire::valueSep + wachtwoord +
                                    QStringLiteral("|1|") + naam);
                    LaadWindowsAccounts(false);
                }
            }
        }
        p.modMain.Vraag(wire::OPSWAG + account + QStringLiteral("><"), ModMain::KlasseB);
        const QString antwoord = p.modData->OpslaanKlasRecord(rij);
        return !antwoord.isEmpty() && antwoord != u"FOUT";
    });
}

void FrmOnderhoud::Afmelden() {
    Procedure(p, "frmOnderhoud.Afmelden", [&] {
        lblLaden = p.modTaal.LaadTekst(3434);
        MenuItemsBoxenNietWeergeven(-1);
        hertekenen();
        BewerkModus = false;
        Zichtbaar = false;
        leegMenu();
        panelenVerlaten();
        // The shortcuts the icon panel made for its pictures go with the stay.
        if (p.modDataPictogrammen)
            p.modDataPictogrammen->TijdelijkePictogrammenVerwijderen();
        // On a network workstation a full stay has a logon of its own (the maintenance account):
        // the machine logs on as Global again, whose start screen takes over in that logon. A
        // teacher's limited stay came from the teacher's desktop, in the teacher's logon.
        if (p.modMain.ModusNetwerk && !Beperkt) {
            p.opstartStappen->ZetAutomatischeAanmelding(
                ModMain::GlobaalAccount(), ModMain::IngebouwdWachtwoord(), QString(), true);
        } else {
            // The start screen takes over; its location report tells the server the stay ended.
            if (p.modThema)
                p.modThema->LaadThema();
            if (p.startScreen) {
                p.startScreen->LadenVormgeving();
                p.startScreen->OpenGlobal(true);
            }
        }
        if (verlaten)
            verlaten();
    });
}

void FrmOnderhoud::Afmelden2() {
    Procedure(p, "frmOnderhoud.Afmelden2", [&] {
        MenuItemsBoxenNietWeergeven(-1);
        BewerkModus = false;
        Zichtbaar = false;
        leegMenu();
        panelenVerlaten();
        // Back to the teacher's desktop, which stayed behind the module.
        if (p.frmBureaublad && p.modData && p.modMainVerbinding) {
            const int rij = p.frmBureaublad->Eigenaar;
            if (rij >= 0 && rij < ModData::LerarenRijen)
                p.modMainVerbinding->GeefLocatieDoor(QStringLiteral("LERAAR|") +
                                                     p.modData->Leraren(rij, 5) +
                                                     QStringLiteral("|bureaublad"));
        }
        if (verlaten)
            verlaten();
    });
}

void FrmOnderhoud::lblAfmelden_Click() {
    if (BewerkModus)
        return;
    if (Beperkt)
        Afmelden2();
    else
        Afmelden();
}

// --- the look

void FrmOnderhoud::LaadVormgeving() {
    Procedure(p, "frmOnderhoud.LaadVormgeving", [&] {
        lblKop = p.modTaal.LaadTekst(3359);
        lblMenuHelp = p.modTaal.LaadTekst(3360);
        if (!p.modThema)
            return;
        const ThemeKeys k = p.modThema->keys();
        const QString kleuren = QStringLiteral("Kleuren");
        const QString positie = QStringLiteral("Positie");
        achtergrond =
            k.pictureIfExists(QStringLiteral("Achtergronden"), QStringLiteral("Onderhoudsmodule"));
        auto kleur = [&](const char* sleutel, quint32 standaard) {
            return k.colourOr(kleuren, QLatin1String(sleutel), RgbColour::fromPacked(standaard))
                .packed();
        };
        kleurMenu = kleur("Onderhoudsmodule Menu", 0);
        kleurSub = kleur("Onderhoudsmodule Menu sub", 0x505050);
        kleurHover = kleur("Onderhoudsmodule Menu hover", 0x1478E6);
        kleurGeselecteerd = kleur("Onderhoudsmodule Menu geselecteerd", 0xAA6C28);
        kleurLijn = kleur("Onderhoudsmodule Menu lijn", LichtGrijs);
        kleurHelp = kleur("Onderhoudsmodule Menu help", 0);
        kleurLaden = kleur("Onderhoudsmodule Laden", 0);
        if (!k.text(positie, QStringLiteral("Onderhoudsmodule Menu help")).isEmpty())
            plekHelp = k.position(positie, QStringLiteral("Onderhoudsmodule Menu help"));
        if (!k.text(positie, QStringLiteral("Onderhoudsmodule Laden tekst")).isEmpty())
            plekLaden = k.position(positie, QStringLiteral("Onderhoudsmodule Laden tekst"));
        for (int i = 0; i < 7; ++i)
            groepBeeld[size_t(i)] = k.maintenanceMenuPicture(i);
    });
}

// --- the menu tables

void FrmOnderhoud::panelenVerlaten() {
    for (const auto& [nummer, paneel] : m_panelen)
        paneel->Verlaten();
    ++m_verblijfEinden;
    if (p.dialogen)
        p.dialogen->sluitVragen();
}

QString FrmOnderhoud::Vraag(const QString& tekst, const QString& soort) {
    const int einden = m_verblijfEinden;
    const QString antwoord = p.modMain.ToonVraag(p.modTaal.LaadTekst(3359), tekst, soort);
    return einden == m_verblijfEinden ? antwoord : QString();
}

void FrmOnderhoud::leegMenu() {
    for (auto& groep : MenuTabel)
        for (auto& rij : groep)
            rij.fill(QString());
    MenuGroep.fill(-1);
    MenuSleutel.clear();
    menuVerschoven = true;
}

void FrmOnderhoud::zetRij(int groep, int rij, const QString& tekst, bool kop, int paneel) {
    const int id = tekst.toInt();
    cel(groep, rij, Tekst) = p.modTaal.LaadTekst(id);
    cel(groep, rij, TekstId) = tekst;
    cel(groep, rij, Grootte) = kop ? QStringLiteral("13") : QStringLiteral("11");
    cel(groep, rij, Niveau) = kop ? QStringLiteral("0") : QStringLiteral("1");
    cel(groep, rij, Links) = kop ? QStringLiteral("80") : QStringLiteral("96");
    cel(groep, rij, Tussenruimte) =
        kop ? (groep == 0 ? QStringLiteral("9") : QStringLiteral("25")) : QStringLiteral("14");
    cel(groep, rij, Tekenen) = ja;
    cel(groep, rij, Rustkleur) = kleurTekst(kop ? Grijs : kleurSub);
    cel(groep, rij, Kleur) = cel(groep, rij, Rustkleur);
    cel(groep, rij, Getoond) = kop ? ja : nee;
    cel(groep, rij, Paneel) = paneel >= 0 ? QString::number(paneel) : QString();
    cel(groep, rij, Geselecteerd) = nee;
}

void FrmOnderhoud::LaadMenu() {
    Procedure(p, "frmOnderhoud.LaadMenu", [&] {
        leegMenu();
        struct Rij {
            int groep, rij, tekst, paneel;
        };
        static constexpr Rij menu[] = {
            {0, 0, 3361, -1},
            {0, 1, 3362, PKlassen},
            {0, 2, 3363, PLeraren},
            {1, 0, 3364, -1},
            {1, 1, 3365, PApplicaties},
            {1, 2, 3362, PApplicaties},
            {1, 3, 3363, PApplicaties},
            {2, 0, 3366, -1},
            {2, 1, 3362, PBureaublad},
            {2, 2, 3363, PBureaublad},
            {3, 0, 3367, -1},
            {3, 1, 3368, PGebruikers},
            {3, 2, 3369, POverzichtApplicaties},
            {3, 3, 3370, POverzichtBureaublad},
            {3, 4, 3371, PProbleemmeldingen},
            {4, 0, 3372, PInstellingen},
            {4, 1, 3373, PServer},
            {5, 0, 3374, -1},
            {5, 1, 3375, PThemas},
            {5, 2, 3376, -1},
            {6, 0, 3377, -1},
        };
        for (const Rij& r : menu)
            zetRij(r.groep, r.rij, QString::number(r.tekst), r.rij == 0, r.paneel);
        // The rows of the overviews stand closer together.
        for (int r = 1; r <= 4; ++r)
            cel(3, r, Tussenruimte) = QStringLiteral("9");
        for (int s = 0; s < 7; ++s)
            MenuGroep[size_t(s)] = s;
        menuVerschoven = true;
    });
}

void FrmOnderhoud::LaadAangepastMenu() {
    Procedure(p, "frmOnderhoud.LaadAangepastMenu", [&] {
        leegMenu();
        int groep = 0;
        if (LeraarApplicaties) {
            zetRij(groep, 0, QStringLiteral("3364"), true);
            zetRij(groep, 1, QStringLiteral("3365"), false, PApplicaties);
            zetRij(groep, 2, QStringLiteral("3362"), false, PApplicaties);
            zetRij(groep, 3, QStringLiteral("3363"), false, PApplicaties);
            for (int r = 1; r <= 3; ++r)
                cel(groep, r, Rustkleur) = cel(groep, r, Kleur) = kleurTekst(LichtGrijs);
            MenuGroep[Applicaties] = groep++;
        }
        const bool klassen = !Leraarklassen.split(QLatin1Char('|'), Qt::SkipEmptyParts).isEmpty();
        if (klassen || LeraarLeraren) {
            zetRij(groep, 0, QStringLiteral("3366"), true);
            int rij = 1;
            if (klassen)
                zetRij(groep, rij++, QStringLiteral("3362"), false, PBureaublad);
            if (LeraarLeraren)
                zetRij(groep, rij, QStringLiteral("3363"), false, PBureaublad);
            MenuGroep[Desktops] = groep++;
        }
        menuVerschoven = true;
    });
}

quint32 FrmOnderhoud::rustkleur(int groep, int rij) const {
    if (cel(groep, rij, Geselecteerd) == ja)
        return kleurGeselecteerd;
    return cel(groep, rij, Rustkleur).toUInt();
}

QList<std::pair<int, int>> FrmOnderhoud::Tekenmenu() {
    QList<std::pair<int, int>> rijen;
    Procedure(p, "frmOnderhoud.Tekenmenu", [&] {
        int boven = MenuBoven;
        for (int g = 0; g < Groepen && !cel(g, 0, Tekst).isEmpty(); ++g) {
            for (int r = 0; r < Rijen && !cel(g, r, Tekst).isEmpty(); ++r) {
                if (cel(g, r, Getoond) != ja)
                    continue;
                const int grootte = cel(g, r, Grootte).toInt();
                boven += cel(g, r, Tussenruimte).toInt();
                const int hoogte = grootte + 8;
                // A moved row is painted wherever it stood before.
                const QString nieuwBoven = QString::number(boven);
                if (cel(g, r, Boven) != nieuwBoven) {
                    cel(g, r, Tekenen) = ja;
                    menuVerschoven = true;
                }
                if (cel(g, r, Tekenen) == ja) {
                    cel(g, r, Boven) = nieuwBoven;
                    cel(g, r, Onder) = QString::number(boven + hoogte);
                    cel(g, r, Rechts) = QString::number(
                        cel(g, r, Links).toInt() + tekstBreedte(cel(g, r, Tekst), grootte, r == 0));
                    if (BewerkModus)
                        cel(g, r, Kleur) = kleurTekst(LichtGrijs);
                    cel(g, r, Tekenen) = nee;
                    rijen.append({g, r});
                }
                boven += hoogte;
            }
        }
    });
    return rijen;
}

// --- pointer and click

void FrmOnderhoud::Form_MouseMove(int x, int y) {
    if (BewerkModus)
        return;
    QString sleutel;
    for (int g = 0; g < Groepen && !cel(g, 0, Tekst).isEmpty(); ++g) {
        for (int r = 0; r < Rijen && !cel(g, r, Tekst).isEmpty(); ++r) {
            if (cel(g, r, Getoond) != ja)
                continue;
            const bool onder = x >= cel(g, r, Links).toInt() && x <= cel(g, r, Rechts).toInt() &&
                               y >= cel(g, r, Boven).toInt() && y <= cel(g, r, Onder).toInt();
            const QString kleur = kleurTekst(onder ? kleurHover : rustkleur(g, r));
            if (onder)
                sleutel = QString::number(g) + QLatin1Char('|') + QString::number(r);
            if (cel(g, r, Kleur) != kleur) {
                cel(g, r, Kleur) = kleur;
                cel(g, r, Tekenen) = ja;
            }
        }
    }
    MenuSleutel = sleutel;
    hertekenen();
}

void FrmOnderhoud::Form_MouseUp(int x, int y) {
    Form_MouseMove(x, y);
    if (!MenuSleutel.isEmpty() && !BewerkModus)
        MenuActie();
}

void FrmOnderhoud::OpenGroep(int groep) {
    for (int g = 0; g < Groepen && !cel(g, 0, Tekst).isEmpty(); ++g) {
        const bool open = g == groep;
        if (open) {
            cel(g, 0, Tussenruimte) = QStringLiteral("9");
            cel(g, 0, Rustkleur) = kleurTekst(Beperkt ? Grijs : kleurMenu);
        } else {
            cel(g, 0, Tussenruimte) = g == 0 ? QStringLiteral("9") : QStringLiteral("25");
            cel(g, 0, Rustkleur) = kleurTekst(Grijs);
        }
        cel(g, 0, Kleur) = kleurTekst(rustkleur(g, 0));
        for (int r = 0; r < Rijen && !cel(g, r, Tekst).isEmpty(); ++r) {
            if (r > 0)
                cel(g, r, Getoond) = open ? ja : nee;
            cel(g, r, Tekenen) = ja;
        }
    }
    menuVerschoven = true;
}

void FrmOnderhoud::ZetBewerkModus(bool aan) {
    BewerkModus = aan;
    for (int g = 0; g < Groepen && !cel(g, 0, Tekst).isEmpty(); ++g)
        for (int r = 0; r < Rijen && !cel(g, r, Tekst).isEmpty(); ++r) {
            cel(g, r, Kleur) = kleurTekst(aan ? LichtGrijs : rustkleur(g, r));
            cel(g, r, Tekenen) = ja;
        }
    if (aan)
        MenuSleutel.clear();
    hertekenen();
}

void FrmOnderhoud::NaOpslaan() {
    Procedure(p, "frmOnderhoud.NaOpslaan", [&] {
        int groep = -1, rij = -1;
        for (int g = 0; g < Groepen; ++g)
            for (int r = 0; r < Rijen; ++r)
                if (cel(g, r, Geselecteerd) == ja) {
                    groep = g;
                    rij = r;
                }
        BewerkModus = false;
        if (Beperkt)
            LaadAangepastMenu();
        else
            LaadMenu();
        if (groep >= 0 && !cel(groep, rij, Tekst).isEmpty()) {
            OpenGroep(groep);
            cel(groep, rij, Geselecteerd) = ja;
            cel(groep, rij, Kleur) = kleurTekst(kleurGeselecteerd);
        }
        hertekenen();
    });
}

bool FrmOnderhoud::toonPaneel(int nummer, int rij) {
    OnderhoudPaneel* gekozen = paneel(nummer);
    if (!gekozen) {
        nietHier(QString::number(nummer));
        return false;
    }
    gekozen->Tonen(rij);
    return true;
}

void FrmOnderhoud::MenuActie() {
    Procedure(p, "frmOnderhoud.MenuActie", [&] {
        const QStringList delen = MenuSleutel.split(QLatin1Char('|'));
        if (delen.size() != 2)
            return;
        const int g = delen[0].toInt(), r = delen[1].toInt();
        const bool warGeselecteerd = cel(g, r, Geselecteerd) == ja;
        for (int gg = 0; gg < Groepen; ++gg)
            for (int rr = 0; rr < Rijen; ++rr)
                if (cel(gg, rr, Geselecteerd) == ja) {
                    cel(gg, rr, Geselecteerd) = nee;
                    cel(gg, rr, Kleur) = kleurTekst(rustkleur(gg, rr));
                    cel(gg, rr, Tekenen) = ja;
                }
        picMenuInfoZichtbaar = false;

        int soort = -1;
        for (int s = 0; s < 7; ++s)
            if (MenuGroep[size_t(s)] == g)
                soort = s;
        if (r == 0 && soort != Management && soort != Instellingen) {
            // A heading opens its group; the panel on the right stays until a row is chosen.
            OpenGroep(g);
            hertekenen();
            return;
        }
        if (soort == Management) {
            meld(p.modTaal.LaadTekst(3353));
            hertekenen();
            return;
        }
        if (soort == Themas && r == 2) {
            meld(p.modTaal.LaadTekst(3352));
            hertekenen();
            return;
        }
        if (soort == Instellingen && r == 0)
            OpenGroep(g);

        bool getal = false;
        const int nummer = cel(g, r, Paneel).toInt(&getal);
        if (!getal || warGeselecteerd) {
            MenuItemsBoxenNietWeergeven(-1);
        } else if (toonPaneel(nummer, r)) {
            cel(g, r, Geselecteerd) = ja;
            cel(g, r, Kleur) = kleurTekst(kleurGeselecteerd);
            cel(g, r, Tekenen) = ja;
            MenuItemsBoxenNietWeergeven(nummer);
            if (const int help = helpTekst(Soort(soort), r)) {
                lblMenuInfo = p.modTaal.LaadTekst(help);
                picMenuInfoZichtbaar = true;
            }
        } else {
            MenuItemsBoxenNietWeergeven(-1);
        }
        hertekenen();
    });
}

void FrmOnderhoud::MenuItemsBoxenNietWeergeven(int nummer) {
    ZichtbaarPaneel = nummer < 0 ? -1 : nummer;
    picMenuInfoZichtbaar = false;
}

QList<PaintedControl> FrmOnderhoud::bedieningen() const {
    QList<PaintedControl> lijst;
    if (!Zichtbaar)
        return lijst;
    for (int g = 0; g < Groepen && !cel(g, 0, Tekst).isEmpty(); ++g)
        for (int r = 0; r < Rijen && !cel(g, r, Tekst).isEmpty(); ++r) {
            if (cel(g, r, Getoond) != ja)
                continue;
            PaintedControl c;
            c.rol = QAccessible::MenuItem;
            c.naam = AccessibleName::maak(cel(g, r, Tekst));
            c.plek = rijVak(g, r);
            c.uitgeschakeld = BewerkModus;
            c.aangevinkt = cel(g, r, Geselecteerd) == ja;
            c.aanvinkbaar = r > 0;
            c.stop = g * 100 + r;
            lijst << c;
        }
    PaintedControl afmelden;
    afmelden.naam = AccessibleName::maak(lblAfmelden);
    afmelden.plek = afmeldenVak();
    afmelden.uitgeschakeld = BewerkModus;
    afmelden.stop = 999;
    lijst << afmelden;
    if (picMenuInfoZichtbaar) {
        PaintedControl info;
        info.rol = QAccessible::StaticText;
        info.naam = AccessibleName::maak(lblMenuInfo);
        info.plek = infoVak();
        info.drukbaar = false;
        lijst << info;
    }
    return lijst;
}

void FrmOnderhoud::Kies(int stop) {
    if (BewerkModus)
        return;
    if (stop == 999) {
        lblAfmelden_Click();
        return;
    }
    const int g = stop / 100, r = stop % 100;
    if (g < 0 || g >= Groepen || r < 0 || r >= Rijen || cel(g, r, Getoond) != ja)
        return;
    MenuSleutel = QString::number(g) + QLatin1Char('|') + QString::number(r);
    MenuActie();
}

} // namespace tk
