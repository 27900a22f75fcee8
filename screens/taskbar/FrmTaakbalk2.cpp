#include "FrmTaakbalk2.h"

#include "controls/AccessibleName.h"
#include "controls/TextScale.h"
#include "screens/common/FocusOrder.h"

#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/ScreenSwitches.h"
#include "platform/Environment.h"
#include "screens/common/ThemePicture.h"
#include "screens/desktop/FrmBureaublad.h"
#include "screens/taskbar/ModMainAfsluiten.h"
#include "theme/ModThema.h"

#include <QFontMetrics>

#include <algorithm>

namespace tk {

namespace {
// The fixed buttons, each side from the bar's end inwards: action word, side, picture of
// [Taakbalk], caption as a string id (negative: a picture alone, and this is its hint), and where
// its colour pair stands. The maintenance buttons take the start screen's "Groeperen" pair, as
// themes for this bar are made.
struct Vast {
    const char* naam;
    bool links;
    const char* beeld;
    int tekst;
    const char* sectie;
    const char* kleurWoord;
};
const char* const eigenSectie = "Kleuren - Taakbalk - Bureaublad";
const Vast vasteLijst[] = {
    {"afmelden", true, "Afmelden", 2201, eigenSectie, "Afmelden"},
    {"bureaublad", true, "Bureaublad", -2107, eigenSectie, ""},
    {"help", false, "Help", 2202, eigenSectie, "Help"},
    {"onderhoud", false, "Onderhoudsmodule", -2203, "Kleuren - Taakbalk - Startscherm",
     "Groeperen"},
    {"bureaubladpictogrammen_onderhoud", false, "Onderhoudsmodule", -800,
     "Kleuren - Taakbalk - Startscherm", "Groeperen"},
};
constexpr int rand = 12;        // from the bar's ends to the first fixed button
constexpr int knopAfstand = 8;  // between two fixed buttons
constexpr int tekenAfstand = 6; // between the last task and the first fixed button on the right

} // namespace

FrmTaakbalk2::FrmTaakbalk2(Programma& p) : taken(p), modTaakbalk(p), p(p) {
    // The larger text the workstation asks for.
    const double schaal =
        TextScale::factor(p.platform.environment().variable(QStringLiteral("TK_TEKSTSCHAAL")));
    knopFont = TextScale::schaal(QFont(QStringLiteral("Verdana"), 9, QFont::Bold), schaal);
    takenFont = TextScale::schaal(QFont(QStringLiteral("Verdana"), 8), schaal);
    tmrTaken.setInterval(500);
    tmrMuis.setInterval(100);
    connect(&tmrTaken, &QTimer::timeout, this, &FrmTaakbalk2::tmrTaken_Timer);
    connect(&tmrMuis, &QTimer::timeout, this, &FrmTaakbalk2::tmrMuis_Timer);
    maakVasteKnoppen();
}

FrmTaakbalk2::~FrmTaakbalk2() {
    if (m_bureaublad && m_bureaublad->taakbalk == this)
        m_bureaublad->taakbalk = nullptr;
}

quint64 FrmTaakbalk2::venster() const {
    return VensterHandle ? VensterHandle() : 0;
}

void FrmTaakbalk2::hertekenen() {
    if (onChanged)
        onChanged();
}

void FrmTaakbalk2::Form_Load() {
    Procedure(p, "frmTaakbalk2.Form_Load", [&] {
        Geladen = true;
        LadenVormgeving();
        VensterPositie(SchermHoogte, BalkBreedte);
        tmrTaken.start();
        tmrMuis.start();
    });
    tmrTaken_Timer();
}

void FrmTaakbalk2::Form_Unload() {
    Procedure(p, "frmTaakbalk2.Form_Unload", [&] {
        tmrTaken.stop();
        tmrMuis.stop();
        if (Geladen)
            modTaakbalk.SetSysWorkArea(venster(), 0, 0, BalkBreedte, SchermHoogte);
        Geladen = false;
        Weggestopt = false;
        lstTaken.clear();
        lstTaken2.clear();
        Knoppen.leegmaken();
        AantalKnoppen = 0;
        ActieveKnop = HoverKnop = IngedruktKnop = -1;
    });
}

void FrmTaakbalk2::Ontladen() {
    if (!Geladen)
        return;
    if (VensterVerbergen)
        VensterVerbergen();
    else
        Form_Unload();
}

void FrmTaakbalk2::maakVasteKnoppen() {
    vasteKnoppen.clear();
    for (const Vast& v : vasteLijst) {
        TaakbalkKnop k;
        k.naam = QString::fromLatin1(v.naam);
        k.links = v.links;
        if (v.tekst > 0)
            k.tekst = p.modTaal.LaadTekst(v.tekst);
        else
            k.hint = p.modTaal.LaadTekst(-v.tekst);
        vasteKnoppen << k;
    }
}

void FrmTaakbalk2::LadenVormgeving() {
    Procedure(p, "frmTaakbalk2.LadenVormgeving", [&] {
        maakVasteKnoppen();
        achtergrond = QImage();
        internetIcoon = QImage();
        Hoogte = StandaardHoogte;
        m_thema.clear();
        if (p.modThema) {
            m_thema = p.modThema->themaMap;
            const ThemeKeys k = p.modThema->keys();
            const QString kleuren = QStringLiteral("Kleuren");
            // Each colour on its own: a theme that lacks one keeps the default of that one.
            const auto lees = [&](const char* sleutel, QColor& doel) {
                Procedure(
                    p, "frmTaakbalk2.LadenVormgeving",
                    [&] { doel = kleur(k.colour(kleuren, QString::fromLatin1(sleutel))); }, true);
            };
            lees("Achtergrond taakbalk - Bureaublad", achtergrondKleur);
            lees("Taakbalk taken tekst", takenTekst);
            lees("Taakbalk taken tekst hover", takenTekstHover);
            lees("Taakbalk taken hover", takenHover);
            lees("Taakbalk taken rand", takenRand);
            lees("Taakbalk taken geselecteerd", takenGeselecteerd);
            lees("Taakbalk taken tekst geselecteerd", takenTekstGeselecteerd);
            const QString pad = k.pictureIfExists(QStringLiteral("Achtergronden"),
                                                  QStringLiteral("Taakbalk - Bureaublad"));
            if (!pad.isEmpty())
                achtergrond = QImage(pad);
            // The strip is as high as its picture, within what a bar can sensibly be.
            if (!achtergrond.isNull())
                Hoogte = qBound(24, achtergrond.height(), 120);
            const QString internet =
                k.pictureIfExists(QStringLiteral("Taakbalk"), QStringLiteral("Internet"));
            if (!internet.isEmpty())
                internetIcoon = QImage(internet).scaled(IcoonMaat, IcoonMaat, Qt::IgnoreAspectRatio,
                                                        Qt::SmoothTransformation);
            for (qsizetype i = 0; i < vasteKnoppen.size(); ++i) {
                const Vast& v = vasteLijst[i];
                vasteKnoppen[i].LaadThema(
                    p, k, QString::fromLatin1(v.beeld), QString::fromLatin1(v.sectie),
                    QString::fromLatin1(v.kleurWoord), "frmTaakbalk2.LaadKleuren");
            }
        }
        plaatsVasteKnoppen();
    });
    hertekenen();
}

const TaakbalkKnop* FrmTaakbalk2::zoek(const QString& naam) const {
    for (const TaakbalkKnop& k : vasteKnoppen)
        if (k.naam == naam && !k.plek.isNull())
            return &k;
    return nullptr;
}

void FrmTaakbalk2::plaatsVasteKnoppen() {
    const QFontMetrics fm(knopFont);
    int links = rand;
    int rechts = BalkBreedte - rand;
    const int top = (Hoogte - BeeldMaat) / 2;
    for (TaakbalkKnop& k : vasteKnoppen) {
        bool zichtbaar = true;
        if (k.naam == u"bureaublad")
            zichtbaar = p.InternetOpen == InternetActief;
        else if (k.naam == u"onderhoud")
            zichtbaar = OnderhoudZichtbaar;
        else if (k.naam == u"bureaubladpictogrammen_onderhoud")
            zichtbaar = PictogrammenZichtbaar;
        if (!zichtbaar) {
            k.plek = QRect();
            k.hover = false;
            continue;
        }
        const int breedte = k.breedte(BeeldMaat, fm.horizontalAdvance(k.tekst));
        if (k.links) {
            k.plek = QRect(links, top, breedte, BeeldMaat);
            links += breedte + knopAfstand;
        } else {
            rechts -= breedte;
            k.plek = QRect(rechts, top, breedte, BeeldMaat);
            rechts -= knopAfstand;
        }
    }
}

int FrmTaakbalk2::takenGrens() const {
    int grens = BalkBreedte;
    for (const TaakbalkKnop& k : vasteKnoppen)
        if (!k.links && !k.plek.isNull())
            grens = qMin(grens, k.plek.left() - tekenAfstand);
    return grens;
}

void FrmTaakbalk2::VensterPositie(int schermHoogte, int schermBreedte) {
    Procedure(p, "frmTaakbalk2.VensterPositie", [&] {
        if (schermBreedte > 0)
            BalkBreedte = schermBreedte;
        SchermHoogte = schermHoogte;
        Plek = QRect(0, schermHoogte - Hoogte, BalkBreedte, Hoogte);
        plaatsVasteKnoppen();
        if (Plaatsen)
            Plaatsen(Plek);
        const quint64 v = venster();
        modTaakbalk.FormOnTop(v, true);
        modTaakbalk.SetSysWorkArea(v, 0, 0, BalkBreedte, schermHoogte - Hoogte);
    });
    hertekenen();
}

bool FrmTaakbalk2::verborgen(const QString& titel) {
    // The shell's own windows never get a button, however their titles are written.
    return Takenlijst::IsEigenVenster(titel);
}

void FrmTaakbalk2::tmrTaken_Timer() {
    Procedure(p, "frmTaakbalk2.tmrTaken_Timer", [&] {
        if (!Geladen)
            return;
        // The desktop was left: the bar goes with it.
        if (!p.BureaubladOpen) {
            Ontladen();
            return;
        }
        const FixedTable oud = Knoppen;
        const int oudActief = ActieveKnop;
        const int oudAantal = AantalKnoppen;
        const bool gewijzigd = taken.Bijwerken();
        vulKnoppen();
        // One paint for the tick, and none when nothing on the bar changed.
        if (gewijzigd || oud != Knoppen || oudActief != ActieveKnop || oudAantal != AantalKnoppen)
            hertekenen();
    });
}

void FrmTaakbalk2::ZetZichtbaar(bool zichtbaar) {
    Procedure(p, "frmTaakbalk2.ZetZichtbaar", [&] {
        if (!Geladen || zichtbaar != Weggestopt)
            return;
        Weggestopt = !zichtbaar;
        if (Weggestopt) {
            // The program has the whole screen, maximised windows included.
            modTaakbalk.FormOnTop(venster(), false);
            modTaakbalk.SetSysWorkArea(venster(), 0, 0, BalkBreedte, SchermHoogte);
        }
        if (VensterZichtbaar)
            VensterZichtbaar(zichtbaar);
        if (zichtbaar)
            VensterPositie(SchermHoogte, BalkBreedte);
    });
}

void FrmTaakbalk2::TekenKnop() {
    if (!p.BureaubladOpen)
        return;
    vulKnoppen();
    hertekenen();
}

void FrmTaakbalk2::vulKnoppen() {
    if (p.BureaubladOpen)
        Procedure(
            p, "frmTaakbalk2.TekenKnop", [&] { tekenTaken(); }, true);
}

void FrmTaakbalk2::tekenTaken() {
    Knoppen.leegmaken();
    AantalKnoppen = 0;
    plaatsVasteKnoppen();
    const bool internet = p.InternetOpen == InternetActief;

    // The tasks that get a button, in the kept order.
    QList<const Taak*> zichtbaar;
    zichtbaar.reserve(lstTaken2.size());
    for (const Taak& t : std::as_const(lstTaken2))
        if (!verborgen(t.titel))
            zichtbaar.append(&t);

    // Which button is pressed: the one of the window in front; with no program in front, the
    // internet pane when it stands.
    ActieveKnop = -1;
    const quint64 voor = p.platform.windows().activeWindow();
    for (qsizetype i = 0; i < zichtbaar.size() && voor != 0; ++i)
        if (zichtbaar[i]->handle == voor) {
            ActieveKnop = int(i) + (internet ? 1 : 0);
            break;
        }
    if (internet && ActieveKnop < 0)
        ActieveKnop = 0;

    const qsizetype aantal = zichtbaar.size() + (internet ? 1 : 0);
    const int breedte = aantal > 0 ? TakenRuimte / int(aantal) : 0;

    int rij = 0;
    int links = TakenLinks;
    if (internet) {
        const QString tekst = p.modTaal.LaadTekst(745);
        const int rechts = TakenLinks + QFontMetrics(takenFont).horizontalAdvance(tekst);
        Knoppen(0, Actie) = QStringLiteral("internet");
        Knoppen(0, Links) = QString::number(TakenLinks);
        Knoppen(0, Rechts) = QString::number(rechts);
        Knoppen(0, Titel) = tekst;
        Knoppen(0, KaderLinks) = QString::number(InternetIcoonLinks - 2);
        Knoppen(0, KaderRechts) = QString::number(rechts + TitelInspringing);
        links = rechts + TitelInspringing;
        rij = AantalKnoppen = 1;
    }
    for (const Taak* t : std::as_const(zichtbaar)) {
        if (rij >= MaxKnoppen) {
            // One report for as long as there are too many, not one every tick.
            if (m_teveelGemeld)
                return;
            m_teveelGemeld = true;
        }
        const int rechts = links + breedte;
        Knoppen(rij, Actie) = QString::number(t->handle); // past the last row: the fault
        Knoppen(rij, Links) = QString::number(links);
        Knoppen(rij, Rechts) = QString::number(rechts);
        Knoppen(rij, Titel) = t->titel;
        Knoppen(rij, KaderLinks) = QString::number(links);
        Knoppen(rij, KaderRechts) = QString::number(rechts + TitelInspringing);
        links = rechts + TitelInspringing;
        AantalKnoppen = ++rij;
    }
    m_teveelGemeld = false;
}

int FrmTaakbalk2::AantalTaken() const {
    return taken.AantalProgrammas();
}

int FrmTaakbalk2::knopOp(QPoint punt) const {
    if (punt.y() < 0 || punt.y() >= Hoogte || punt.x() >= takenGrens())
        return -1;
    for (int i = 0; i < AantalKnoppen; ++i)
        if (punt.x() >= Knoppen(i, KaderLinks).toInt() &&
            punt.x() < Knoppen(i, KaderRechts).toInt())
            return i;
    return -1;
}

quint64 FrmTaakbalk2::handleVan(int rij) const {
    if (rij < 0 || rij >= AantalKnoppen)
        return 0;
    return Knoppen(rij, Actie).toULongLong();
}

void FrmTaakbalk2::Form_MouseMove(QPoint punt) {
    Procedure(p, "frmTaakbalk2.Form_MouseMove", [&] {
        bool gewijzigd = false;
        for (TaakbalkKnop& k : vasteKnoppen) {
            const bool erboven = !k.plek.isNull() && k.plek.contains(punt);
            gewijzigd |= erboven != k.hover;
            k.hover = erboven;
        }
        int hover = knopOp(punt);
        if (hover >= 0 && Knoppen(hover, Titel).contains(u"Overige vensters..."))
            hover = -1;
        gewijzigd |= hover != HoverKnop;
        HoverKnop = hover;
        if (gewijzigd)
            hertekenen();
    });
}

void FrmTaakbalk2::tmrMuis_Timer() {
    if (MuisPositie)
        Form_MouseMove(MuisPositie());
}

void FrmTaakbalk2::Form_MouseDown(QPoint punt) {
    IngedruktKnop = knopOp(punt);
    if (IngedruktKnop >= 0)
        hertekenen();
}

void FrmTaakbalk2::Form_MouseUp(QPoint punt) {
    Procedure(p, "frmTaakbalk2.Form_MouseUp", [&] {
        IngedruktKnop = -1;
        for (const TaakbalkKnop& k : vasteKnoppen)
            if (!k.plek.isNull() && k.plek.contains(punt)) {
                const QString naam = k.naam;
                KnopActie(naam);
                return;
            }
        const int rij = knopOp(punt);
        if (rij < 0) {
            hertekenen();
            return;
        }
        drukTaak(rij);
    });
}

void FrmTaakbalk2::drukTaak(int rij) {
    const QString actie = Knoppen(rij, Actie);
    if (actie == u"internet") {
        Q_EMIT internetGevraagd();
    } else if (actie == u"bureaublad") {
        Q_EMIT bureaubladGevraagd();
    } else if (taken.modTaken.pSetForegroundWindow(actie.toULongLong())) {
        // Pressed at once; the next tick confirms it from the manager.
        ActieveKnop = rij;
    }
    hertekenen();
}

void FrmTaakbalk2::KnopActie(const QString& naam) {
    Procedure(p, "frmTaakbalk2.KnopActie", [&] {
        if (naam == u"afmelden") {
            afmelden();
        } else if (naam == u"bureaublad") {
            Q_EMIT bureaubladGevraagd();
        } else if (naam == u"onderhoud") {
            Q_EMIT onderhoudGevraagd();
        } else if (p.schermen && p.schermen->openElders(naam)) {
            return;
        } else if (naam == u"help") {
            nietBeschikbaar(naam, 9542);
        } else if (naam == u"bureaubladpictogrammen_onderhoud") {
            nietBeschikbaar(naam, 9543);
        }
    });
}

void FrmTaakbalk2::afmelden() {
    // Programs still open are named before the user leaves them behind.
    const int aantal = AantalTaken();
    if (aantal > 0) {
        const QString tekst = ModMainAfsluiten::TakenTekst(p.modTaal, 712, aantal);
        if (p.modMain.ToonVraag(p.modTaal.LaadTekst(3), tekst, QStringLiteral("?")) != u"ja")
            return;
    }
    Q_EMIT afmeldenGevraagd();
}

void FrmTaakbalk2::nietBeschikbaar(const QString& woord, int tekst) {
    p.modMain.SchrijfLogboek(
        QStringLiteral("The taskbar's button '%1' was pressed, but this workstation has no such "
                       "screen")
            .arg(woord),
        QStringLiteral("Taakbalk"), QStringLiteral("frmTaakbalk2.KnopActie"), QStringLiteral("-"));
    p.modMain.ToonVraag(p.modTaal.LaadTekst(3), p.modTaal.LaadTekst(tekst), QStringLiteral("-"));
}

void FrmTaakbalk2::tekenKnoppen() {
    if (!m_bureaublad)
        return;
    const FrmBureaublad& b = *m_bureaublad;
    const bool leraar = b.Weergave == 1 && b.Eigenaar >= 0;
    if (leraar != OnderhoudZichtbaar) {
        OnderhoudZichtbaar = leraar;
        plaatsVasteKnoppen();
    }
    if (p.BureaubladOpen && !Geladen) {
        if (VensterTonen)
            VensterTonen();
        else
            Form_Load();
    } else if (Geladen && p.modThema && p.modThema->themaMap != m_thema) {
        // A teacher who logs in on the desktop brings a theme of their own.
        LadenVormgeving();
        VensterPositie(SchermHoogte, BalkBreedte);
    }
    TekenKnop();
}

void FrmTaakbalk2::plaatsVoorScherm(int hoogte) {
    // The window system knows the screen's real size; the launcher only the height it set.
    const QSize scherm = SchermGrootte ? SchermGrootte() : QSize();
    if (scherm.isValid())
        VensterPositie(scherm.height(), scherm.width());
    else
        VensterPositie(hoogte);
}

void FrmTaakbalk2::houdBoven() {
    if (Geladen && !Weggestopt)
        modTaakbalk.FormOnTop(venster(), true);
}

void FrmTaakbalk2::strookTonen(bool zichtbaar) {
    ZetZichtbaar(zichtbaar);
}

void FrmTaakbalk2::KoppelBureaublad(FrmBureaublad& bureaublad) {
    FrmBureaublad* b = &bureaublad;
    m_bureaublad = b;
    b->taakbalk = this;
    const auto naarVoren = [b] {
        if (b->Tonen)
            b->Tonen();
    };
    connect(this, &FrmTaakbalk2::internetGevraagd, b, [b, naarVoren] {
        naarVoren();
        b->InternetWeergeven();
    });
    connect(this, &FrmTaakbalk2::bureaubladGevraagd, b, [b, naarVoren] {
        naarVoren();
        b->BureaubladWeergeven();
    });
    connect(this, &FrmTaakbalk2::afmeldenGevraagd, b, [b] { b->Afmelden(); });
    connect(this, &FrmTaakbalk2::onderhoudGevraagd, b, [b] { b->Onderhoud(); });
}

QString FrmTaakbalk2::Tekentekst(const QString& titel, const QFontMetrics& fm, int breedte) {
    if (breedte <= 0)
        return {};
    if (fm.horizontalAdvance(titel) <= breedte)
        return titel;
    const QString punten = QStringLiteral("...");
    const int ruimte = breedte - fm.horizontalAdvance(punten);
    if (ruimte < 0)
        return {};
    // The longest beginning that fits with the dots behind it.
    qsizetype laag = 0, hoog = titel.size();
    while (laag < hoog) {
        const qsizetype midden = (laag + hoog + 1) / 2;
        if (fm.horizontalAdvance(titel.left(midden)) <= ruimte)
            laag = midden;
        else
            hoog = midden - 1;
    }
    if (laag > 0 && titel.at(laag - 1).isHighSurrogate())
        --laag;
    // No blanks between the last word and the dots.
    while (laag > 0 && titel.at(laag - 1).isSpace())
        --laag;
    return titel.left(laag) + punten;
}

QList<QRect> FrmTaakbalk2::focusPlekken() const {
    QList<QRect> plekken;
    const int grens = takenGrens();
    for (int i = 0; i < AantalKnoppen; ++i) {
        const int links = Knoppen(i, KaderLinks).toInt();
        const int rechts = qMin(Knoppen(i, KaderRechts).toInt(), grens);
        plekken.append(Geladen && rechts > links ? QRect(links, 4, rechts - links - 2, Hoogte - 8)
                                                 : QRect());
    }
    for (const TaakbalkKnop& k : vasteKnoppen)
        plekken.append(Geladen ? k.plek : QRect());
    return plekken;
}

void FrmTaakbalk2::zetFocus(int plek) {
    focusPlek = plek;
    for (int i = 0; i < vasteKnoppen.size(); ++i)
        vasteKnoppen[i].focus = AantalKnoppen + i == plek;
    hertekenen();
}

void FrmTaakbalk2::drukFocus(int plek) {
    Procedure(p, "frmTaakbalk2.drukFocus", [&] {
        if (plek >= 0 && plek < AantalKnoppen) {
            drukTaak(plek);
        } else if (plek >= AantalKnoppen && plek < AantalKnoppen + vasteKnoppen.size()) {
            const QString naam = vasteKnoppen[plek - AantalKnoppen].naam;
            KnopActie(naam);
        }
    });
}

bool FrmTaakbalk2::neemFocus(bool vooraan) {
    const int naar = FocusOrder::volgende(
        focusPlekken(), -1, vooraan ? FocusOrder::Stap::Volgende : FocusOrder::Stap::Vorige);
    zetFocus(naar);
    return naar >= 0;
}

bool FrmTaakbalk2::focusToets(int toets, bool shift) {
    if (focusPlek < 0)
        return false;
    if (toets == Qt::Key_Escape) {
        zetFocus(-1);
        return false;
    }
    if (FocusOrder::isDrukken(toets)) {
        drukFocus(focusPlek);
        return true;
    }
    const auto stap = FocusOrder::stapVoor(toets, shift);
    if (!stap)
        return true;
    zetFocus(FocusOrder::volgende(focusPlekken(), focusPlek, *stap));
    return focusPlek >= 0;
}

QList<PaintedControl> FrmTaakbalk2::bedieningen() const {
    QList<PaintedControl> lijst;
    const QList<QRect> plekken = focusPlekken();
    for (int i = 0; i < AantalKnoppen; ++i) {
        PaintedControl c;
        c.naam = AccessibleName::maak(
            Knoppen(i, Titel),
            p.modTaal.LaadTekst(9562).replace(QStringLiteral("%nummer%"), QString::number(i + 1)));
        c.beschrijving =
            Knoppen(i, Titel).size() > AccessibleName::Langste ? QString() : Knoppen(i, Titel);
        c.plek = plekken.value(i);
        c.focus = focusPlek == i;
        c.ingedrukt = IngedruktKnop == i;
        c.aanvinkbaar = true;
        c.aangevinkt = ActieveKnop == i;
        c.stop = i;
        lijst.append(c);
    }
    for (int i = 0; i < vasteKnoppen.size(); ++i) {
        const TaakbalkKnop& k = vasteKnoppen[i];
        if (k.plek.isNull())
            continue;
        PaintedControl c;
        c.stop = AantalKnoppen + i;
        c.naam = k.toegankelijkeNaam();
        c.beschrijving = k.hint;
        c.plek = plekken.value(AantalKnoppen + i);
        c.focus = k.focus;
        lijst.append(c);
    }
    return lijst;
}

bool FrmTaakbalk2::Form_KeyDown(int KeyCode, bool vast) {
    return vast && p.modMainAfsluiten && p.modMainAfsluiten->FunctieToets(KeyCode);
}

} // namespace tk
