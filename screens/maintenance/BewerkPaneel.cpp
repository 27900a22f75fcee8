#include "BewerkPaneel.h"

#include "FrmOnderhoud.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "data/ModData.h"
#include "screens/start/FrmWachten.h"

namespace tk {

namespace {

const QString leeg = QStringLiteral("leeg");
const QString nieuwSleutel = QStringLiteral("nieuw");

} // namespace

BewerkPaneel::BewerkPaneel(Programma& p, Vorm vorm) : vorm(vorm), p(p) {}

void BewerkPaneel::leesKnopTeksten() {
    const auto ids = knopTeksten();
    for (size_t i = 0; i < knoppen.size(); ++i)
        knoppen[i].tekst = ids[i] ? p.modTaal.LaadTekst(ids[i]) : QString();
}

void BewerkPaneel::zetKnop(int knop, bool zichtbaar, bool ingeschakeld) {
    KnopStaat& k = knoppen[size_t(knop)];
    k.zichtbaar = zichtbaar && !k.tekst.isEmpty();
    k.ingeschakeld = k.zichtbaar && ingeschakeld;
}

void BewerkPaneel::knoppenBlader() {
    const bool live = vorm == Live;
    const bool records = !lijst.isEmpty() && lijst.first().sleutel != leeg;
    zetKnop(Wijzigen, !live, records);
    zetKnop(Nieuw, !live, true);
    zetKnop(Verwijderen, !live, records);
    zetKnop(Opslaan, live, false);
    zetKnop(Annuleren, false, false);
    zetKnop(Herstellen, live, false);
}

void BewerkPaneel::Tonen(int) {
    Procedure(p, "frmOnderhoud.Tonen", [&] {
        leesKnopTeksten();
        if (bewerken) // an edit that ended with the stay (a forced log-off) is gone
            EditModus(false, false);
        LaadLijst();
    });
}

void BewerkPaneel::LaadTaal() {
    leesKnopTeksten();
    hertekenen();
}

void BewerkPaneel::LaadLijst() {
    Procedure(p, "frmOnderhoud.LaadLijst", [&] {
        if (knoppen[Opslaan].tekst.isEmpty())
            leesKnopTeksten();
        lijst.clear();
        if (vorm == Live) {
            Weergeven(QString());
            knoppenBlader();
            hertekenen();
            return;
        }
        lijst = Records();
        if (lijst.isEmpty()) {
            lijst.append({leeg, p.modTaal.LaadTekst(leegTekst()), false});
            huidig = leeg;
            for (Veld& v : velden)
                v.waarde = v.tag = QStringLiteral("-");
        } else {
            bool gevonden = false;
            for (const Item& item : std::as_const(lijst))
                gevonden = gevonden || item.sleutel == huidig;
            Weergeven(gevonden ? huidig : lijst.first().sleutel);
        }
        lijstIngeschakeld = true;
        knoppenBlader();
        hertekenen();
    });
}

void BewerkPaneel::Weergeven(const QString& sleutel) {
    Procedure(p, "frmOnderhoud.Weergeven", [&] {
        if (bewerken || bezig || sleutel == leeg)
            return;
        huidig = sleutel;
        for (Item& item : lijst)
            item.vet = item.sleutel == sleutel;
        VulVelden(sleutel);
        for (Veld& v : velden)
            v.tag = v.waarde;
        hertekenen();
    });
}

void BewerkPaneel::EditModus(bool aan, bool nieuwRecord) {
    Procedure(p, "frmOnderhoud.EditModus", [&] {
        bewerken = aan && vorm == Lijst;
        nieuw = bewerken && nieuwRecord;
        lijstIngeschakeld = !bewerken;
        if (!bewerken) {
            if (!lijst.isEmpty() && lijst.last().sleutel == nieuwSleutel)
                lijst.removeLast();
            knoppenBlader();
            hertekenen();
            return;
        }
        zetKnop(Wijzigen, true, false);
        zetKnop(Nieuw, true, false);
        zetKnop(Verwijderen, true, false);
        zetKnop(Opslaan, true, false);
        zetKnop(Annuleren, true, true);
        zetKnop(Herstellen, true, false);
        if (nieuw) {
            lijst.removeIf([](const Item& item) { return item.sleutel == leeg; });
            for (Item& item : lijst)
                item.vet = false;
            lijst.append({nieuwSleutel, p.modTaal.LaadTekst(nieuwTekst()), true});
            for (Veld& v : velden)
                v.waarde = v.tag = QString();
            // The panel may set the defaults of a new record (a colour button's prompt).
            VulVelden(nieuwSleutel);
        }
        hertekenen();
    });
}

bool BewerkPaneel::NieuwCompleet() const {
    for (const Veld& v : velden)
        if (v.verplicht && v.waarde.trimmed().isEmpty())
            return false;
    return true;
}

bool BewerkPaneel::verschilt(const Veld& v) const {
    if (v.zonderHoofdletters)
        return v.waarde.toLower() != v.tag.toLower();
    return v.waarde != v.tag;
}

void BewerkPaneel::ControleerNieuw() {
    zetKnop(Opslaan, true, NieuwCompleet());
    hertekenen();
}

void BewerkPaneel::ControleerWijziging() {
    bool anders = false;
    for (const Veld& v : std::as_const(velden))
        anders = anders || verschilt(v);
    zetKnop(Opslaan, true, anders);
    zetKnop(Herstellen, true, anders);
    hertekenen();
}

void BewerkPaneel::HerstellenWijziging() {
    for (Veld& v : velden)
        v.waarde = v.tag;
    hertekenen();
}

void BewerkPaneel::chckWachtwoord_Click(bool tonen) {
    wachtwoordenTonen = tonen;
    hertekenen();
}

bool BewerkPaneel::ZetVeld(int veld, const QString& waarde) {
    if (!bewerkbaar() || veld < 0 || veld >= velden.size())
        return false;
    velden[veld].waarde = waarde;
    if (nieuw)
        ControleerNieuw();
    else
        ControleerWijziging();
    return true;
}

void BewerkPaneel::cmd_Click(int knop) {
    Procedure(p, "frmOnderhoud.cmd_Click", [&] {
        if (bezig || knop < 0 || knop >= int(knoppen.size()) || !knoppen[size_t(knop)].ingeschakeld)
            return;
        FrmOnderhoud* shell = p.frmOnderhoud;
        switch (knop) {
        case Wijzigen:
        case Nieuw:
            if (shell)
                shell->ZetBewerkModus(true);
            EditModus(true, knop == Nieuw);
            break;
        case Verwijderen:
            VerwijderRecord();
            break;
        case Herstellen:
            HerstellenWijziging();
            ControleerWijziging();
            break;
        case Annuleren: {
            const bool wasNieuw = nieuw;
            EditModus(false, false);
            if (wasNieuw)
                LaadLijst();
            else if (huidig != leeg)
                HerstellenWijziging();
            if (shell)
                shell->ZetBewerkModus(false);
            break;
        }
        case Opslaan: {
            if (!MagOpslaan())
                return;
            zetKnop(Opslaan, true, false);
            zetKnop(Annuleren, vorm == Lijst, false);
            zetKnop(Herstellen, true, false);
            hertekenen();
            FrmWachten* wachten = p.frmWachten;
            const bool metVenster =
                wachtTekst() && wachten && p.modData && p.modData->ActiveDirectoryModule;
            if (metVenster)
                wachten->Openen(p.modTaal.LaadTekst(wachtTekst()), 0);
            bool gelukt = false;
            {
                const Wachten wachtend(*this);
                gelukt = Procedure<bool>(p, "frmOnderhoud.Opslaan", false,
                                         [&] { return OpslaanRecord(nieuw); });
            }
            if (metVenster)
                wachten->Sluiten();
            if (p.beeindigd)
                return; // the link went: the program restarts and has said so
            if (!gelukt) {
                ToonVraag(p.modTaal.LaadTekst(foutTekst()), QStringLiteral("-"));
                zetKnop(Annuleren, vorm == Lijst, true);
                if (nieuw)
                    ControleerNieuw();
                else
                    ControleerWijziging();
                return;
            }
            for (Veld& v : velden)
                v.tag = v.waarde;
            if (vorm == Live) {
                ControleerWijziging();
                return;
            }
            EditModus(false, false);
            if (shell)
                shell->NaOpslaan();
            LaadLijst();
            break;
        }
        default:
            break;
        }
    });
}

BewerkPaneel::Wachten::Wachten(BewerkPaneel& b)
    : b(b), wasBezig(b.bezig), menuLeefde(b.p.frmOnderhoud && !b.p.frmOnderhoud->BewerkModus) {
    b.bezig = true;
    if (menuLeefde)
        b.p.frmOnderhoud->ZetBewerkModus(true);
    b.hertekenen();
}

BewerkPaneel::Wachten::~Wachten() {
    b.bezig = wasBezig;
    if (menuLeefde && b.p.frmOnderhoud)
        b.p.frmOnderhoud->ZetBewerkModus(false);
    b.hertekenen();
}

std::optional<QString> BewerkPaneel::VraagA(const QString& bericht) {
    const Wachten wachtend(*this);
    return p.modMain.Vraag(bericht, ModMain::KlasseA);
}

std::optional<QString> BewerkPaneel::VraagB(const QString& bericht) {
    const Wachten wachtend(*this);
    return p.modMain.Vraag(bericht, ModMain::KlasseB);
}

QString BewerkPaneel::ToonVraag(const QString& tekst, const QString& soort) {
    if (p.frmOnderhoud)
        return p.frmOnderhoud->Vraag(tekst, soort);
    return p.modMain.ToonVraag(p.modTaal.LaadTekst(3359), tekst, soort);
}

} // namespace tk
