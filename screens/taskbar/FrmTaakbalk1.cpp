#include "FrmTaakbalk1.h"

#include "controls/TextScale.h"

#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/ScreenSwitches.h"
#include "core/StartScreenEvents.h"
#include "link/ModMainVerbinding.h"
#include "platform/Environment.h"
#include "screens/common/ThemePicture.h"
#include "screens/taskbar/ModMainAfsluiten.h"
#include "theme/ModThema.h"

#include <QFontMetrics>

namespace tk {

namespace {
struct Woord {
    const char* naam;
    bool links;
    const char* beeldSleutel; // [Taakbalk]
    int tekst;                // string id of the caption
    const char* kleurWoord;   // the colour pair of the bar's section
};
// The fixed buttons by action word.
const Woord woordenLijst[] = {
    {"afmelden", true, "Afmelden", 2104, "Afmelden"},
    {"afmelden_main", true, "Afmelden", 2105, "Afmelden"},
    {"afmelden onderhoud", true, "Afmelden", 2106, "Afmelden"},
    {"terug naar bureaublad_onderhoud", true, "Bureaublad", 2107, "Bureaublad"},
    {"onderhoud", true, "Onderhoudsmodule", 2108, "Afmelden"},
    {"groeperen_onderhoud", true, "Onderhoudsmodule", 2106, "Groeperen"},
    {"windowsomgeving", true, "Windowsomgeving", 2116, "Windows"},
    {"help", false, "Help", 2112, "Help"},
    {"uitschakelen", true, "Afsluiten", 2111, "Uitschakelen"},
    {"uitschakelen_onderhoud", true, "Afsluiten", 2111, "Uitschakelen"},
    {"uitschakelen_nietaangemeld", true, "Afsluiten", 2111, "Uitschakelen"},
    {"opnieuw verbinding maken", false, "Opnieuw verbinding maken", 2113, "Opnieuw verbinden"},
    {"serverlocatie", true, "Serverlocatie wijzigen", 2114, "Serverlocatie"},
};
const Woord* zoekWoord(const QString& naam) {
    for (const Woord& w : woordenLijst)
        if (naam == QLatin1String(w.naam))
            return &w;
    return nullptr;
}
constexpr int beeldMaat = 40;
} // namespace

FrmTaakbalk1::FrmTaakbalk1(Programma& p) : p(p) {
    // The larger text the workstation asks for.
    const double schaal =
        TextScale::factor(p.platform.environment().variable(QStringLiteral("TK_TEKSTSCHAAL")));
    knopFont = TextScale::schaal(QFont(QStringLiteral("Verdana"), 9, QFont::Bold), schaal);
    for (int i = 0; i < 3; ++i) {
        Account[i].Font =
            TextScale::schaal(QFont(QStringLiteral("Verdana"), 10, QFont::Bold), schaal);
        Account[i].Hoogte = 32;
        Account[i].Visible = false;
        Account[i].Click = [this, i] { Account_Click(i); };
    }
}

bool FrmTaakbalk1::onderhoud() const {
    return Hoofdvenster == u"frmOnderhoud";
}

QStringList FrmTaakbalk1::woorden() const {
    QStringList uit;
    if (onderhoud()) {
        uit << QStringLiteral("afmelden onderhoud") << QStringLiteral("uitschakelen_onderhoud")
            << QStringLiteral("windowsomgeving");
    } else if (Hoofdvenster == u"frmGroeperen") {
        uit << QStringLiteral("afmelden onderhoud");
    } else {
        uit << QStringLiteral("uitschakelen_nietaangemeld");
        // Without a connection the user may name another server or try again.
        if (ZonderVerbinding) {
            if (!p.modMain.ModusStandalone)
                uit << QStringLiteral("serverlocatie");
            uit << QStringLiteral("opnieuw verbinding maken");
        }
    }
    uit << QStringLiteral("help");
    return uit;
}

void FrmTaakbalk1::Form_Activate() {
    Procedure(p, "frmTaakbalk1.Form_Activate", [&] {
        const ThemeKeys* k = nullptr;
        std::optional<ThemeKeys> sleutels;
        if (p.modThema) {
            sleutels.emplace(p.modThema->keys());
            k = &*sleutels;
        }
        const QString sectie = onderhoud() ? QStringLiteral("Kleuren - Taakbalk - Onderhoudsmodule")
                                           : QStringLiteral("Kleuren - Taakbalk - Startscherm");
        QList<Knop> nieuw;
        const QFontMetrics fm(knopFont);
        int links = 12, rechts = Breedte - 12;
        for (const QString& naam : woorden()) {
            const Woord* w = zoekWoord(naam);
            if (!w)
                continue;
            Knop knop;
            knop.naam = naam;
            knop.links = w->links;
            knop.tekst = p.modTaal.LaadTekst(w->tekst);
            if (k)
                knop.LaadThema(p, *k, QString::fromLatin1(w->beeldSleutel), sectie,
                               QString::fromLatin1(w->kleurWoord), "frmTaakbalk1.LaadKleuren");
            const int breedte = knop.breedte(beeldMaat, fm.horizontalAdvance(knop.tekst));
            const int top = (Hoogte - beeldMaat) / 2;
            if (knop.links) {
                knop.plek = QRect(links, top, breedte, beeldMaat);
                links += breedte + 16;
            } else {
                rechts -= breedte;
                knop.plek = QRect(rechts, top, breedte, beeldMaat);
                rechts -= 16;
            }
            nieuw << knop;
        }
        knoppen = nieuw;
        for (int i = 0; i < knoppen.size(); ++i)
            knoppen[i].focus = i == m_focus;
        plaatsAccounts();
    });
}

void FrmTaakbalk1::plaatsAccounts() {
    // The account buttons stand together in the middle of the bar.
    int totaal = 0;
    for (const Accounts& a : Account)
        totaal += a.Wijdte() + 12;
    int x = (Breedte - totaal) / 2;
    for (Accounts& a : Account) {
        a.X = qint16(x);
        a.Y = qint16((Hoogte - a.Hoogte) / 2);
        x += a.Wijdte() + 12;
    }
}

void FrmTaakbalk1::LadenVormgeving() {
    Procedure(p, "frmTaakbalk1.LadenVormgeving", [&] {
        for (int i = 0; i < 3; ++i)
            Account[i].Tekst = p.modTaal.LaadTekst(2101 + i);
        if (p.modThema) {
            const ThemeKeys k = p.modThema->keys();
            const QString naam =
                onderhoud() ? QStringLiteral("Onderhoudsmodule") : QStringLiteral("Startscherm");
            achtergrondKleur = kleur(k.colour(QStringLiteral("Kleuren"),
                                              QStringLiteral("Achtergrond taakbalk - ") + naam));
            const QString pad = k.pictureIfExists(QStringLiteral("Achtergronden"),
                                                  QStringLiteral("Taakbalk - ") + naam);
            achtergrond = pad.isEmpty() ? QImage() : QImage(pad);
            const QColor acc = kleur(k.colour(QStringLiteral("Kleuren"),
                                              QStringLiteral("Taakbalk accounts achtergrond")));
            const QColor tekst = kleur(
                k.colour(QStringLiteral("Kleuren"), QStringLiteral("Taakbalk accounts tekst")));
            const QColor gekozen = kleur(k.colour(
                QStringLiteral("Kleuren"), QStringLiteral("Taakbalk accounts tekst geselecteerd")));
            for (Accounts& a : Account) {
                a.Achtergrondkleur = acc;
                a.Normale_kleur = tekst;
                a.Hoverkleur = gekozen;
                a.Teksthover = gekozen;
                a.lhDC = &achtergrond;
                a.Transparant = !achtergrond.isNull();
            }
        }
    });
    Form_Activate();
    TekenKnop();
}

const FrmTaakbalk1::Knop* FrmTaakbalk1::zoek(const QString& naam) const {
    for (const Knop& k : knoppen)
        if (k.naam == naam)
            return &k;
    return nullptr;
}

void FrmTaakbalk1::TekenKnop(const QString& naam, bool hover) {
    for (Knop& k : knoppen)
        if (naam.isEmpty() || k.naam == naam)
            k.hover = naam.isEmpty() ? false : hover;
    if (onChanged)
        onChanged();
}

void FrmTaakbalk1::ToonAccounts() {
    AccountsZichtbaar = true;
    for (Accounts& a : Account)
        a.Visible = true;
    plaatsAccounts();
}

void FrmTaakbalk1::VerbergAccounts() {
    AccountsZichtbaar = false;
    for (Accounts& a : Account) {
        a.Visible = false;
        a.Geselecteerd = false;
    }
}

void FrmTaakbalk1::ZetAccountsZonderVerbinding(bool zonder) {
    ZonderVerbinding = zonder;
    // Without the server nobody can check a teacher's or the module's password.
    Account[1].Enabled = !zonder;
    Account[2].Enabled = !zonder;
    Form_Activate();
}

void FrmTaakbalk1::Account_Click(int index) {
    Procedure(p, "frmTaakbalk1.Account_Click", [&] {
        for (int i = 0; i < 3; ++i)
            Account[i].Geselecteerd = i == index;
        if (p.startScreenEvents)
            p.startScreenEvents->AccountKlik(index);
        TekenKnop();
    });
}

void FrmTaakbalk1::KnopActie(const QString& naam) {
    Procedure(p, "frmTaakbalk1.KnopActie", [&] {
        if (naam.startsWith(QStringLiteral("uitschakelen"))) {
            if (p.modMainAfsluiten)
                p.modMainAfsluiten->VerwerkAfsluitkeuze();
        } else if (naam == u"opnieuw verbinding maken") {
            if (p.modMainVerbinding)
                p.modMainVerbinding->StartVerbinding(false);
        } else if (naam == u"serverlocatie") {
            if (p.modMainVerbinding)
                p.modMainVerbinding->StartVerbinding(true);
        } else if (naam == u"afmelden_main") {
            if (p.startScreenEvents)
                p.startScreenEvents->OpenGlobal(false);
        } else if (naam == u"windowsomgeving" && p.modMainAfsluiten) {
            p.modMainAfsluiten->NaarWindowsOmgeving(ModMain::GlobaalAccount(),
                                                    ModMain::IngebouwdWachtwoord());
        } else if (!p.schermen || !p.schermen->openElders(naam)) {
            p.modMain.SchrijfLogboek(
                QStringLiteral("The bar's button '%1' opens a screen that is not on this "
                               "workstation yet")
                    .arg(naam),
                QStringLiteral("Taakbalk"), QStringLiteral("frmTaakbalk1.KnopActie"),
                QStringLiteral("-"));
        }
    });
}

QList<QRect> FrmTaakbalk1::focusPlekken() const {
    QList<QRect> plekken;
    for (const Knop& k : knoppen)
        plekken.append(Zichtbaar ? k.plek : QRect());
    for (const Accounts& a : Account)
        plekken.append(Zichtbaar && AccountsZichtbaar && a.Visible && a.Enabled
                           ? QRect(QPoint(a.X, a.Y), a.Grootte())
                           : QRect());
    return plekken;
}

void FrmTaakbalk1::zetFocus(int plek) {
    m_focus = plek;
    for (int i = 0; i < knoppen.size(); ++i)
        knoppen[i].focus = i == plek;
    for (int i = 0; i < 3; ++i) {
        Account[i].focus = int(knoppen.size()) + i == plek;
        Account[i].focusKleur = Account[i].Teksthover;
    }
    if (onChanged)
        onChanged();
}

void FrmTaakbalk1::drukFocus(int plek) {
    if (plek >= 0 && plek < knoppen.size()) {
        const QString naam = knoppen[plek].naam;
        KnopActie(naam);
    } else if (plek >= knoppen.size() && plek < knoppen.size() + 3) {
        Account[plek - knoppen.size()].UserControl_Click();
    }
}

QList<PaintedControl> FrmTaakbalk1::bedieningen() const {
    QList<PaintedControl> lijst;
    if (!Zichtbaar)
        return lijst;
    for (int i = 0; i < knoppen.size(); ++i) {
        const Knop& k = knoppen[i];
        if (k.plek.isNull())
            continue;
        PaintedControl c;
        c.stop = i;
        c.naam = k.toegankelijkeNaam();
        c.beschrijving = k.hint;
        c.plek = k.plek;
        c.focus = k.focus;
        lijst.append(c);
    }
    return lijst;
}

bool FrmTaakbalk1::Form_KeyDown(int KeyCode, bool vast) {
    return vast && p.modMainAfsluiten && p.modMainAfsluiten->FunctieToets(KeyCode);
}

} // namespace tk
