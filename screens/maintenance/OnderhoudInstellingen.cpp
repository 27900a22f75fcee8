#include "OnderhoudInstellingen.h"

#include "FrmOnderhoud.h"
#include "core/Form.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/Wire.h"
#include "data/ModData.h"
#include "theme/ModThema.h"

#include <QDir>
#include <algorithm>

namespace tk {

namespace {

const QString instellingenIni = QString::fromLatin1(ModMain::Instellingen);

} // namespace

OnderhoudInstellingen::OnderhoudInstellingen(Programma& p) : p(p) {
    LaadTaal();
}

QString OnderhoudInstellingen::titel() const {
    return p.modTaal.LaadTekst(3372);
}

void OnderhoudInstellingen::LaadTaal() {
    auto t = [&](int id) { return p.modTaal.LaadTekst(id); };
    fraWachtwoorden = t(3266).trimmed();
    lblWachtwoord = {t(3267), t(3268)};
    fraInternet = t(3269).trimmed();
    lblInternet = t(3270);
    fraEmail = t(3271).trimmed();
    lblEmailUitleg = t(3272);
    lblEmail = {t(3273), t(3274), t(3275)};
    lblThema = t(3276);
    fraTaal = t(3438).trimmed();
    lblTaal = t(3439);
    cmdInstellingen = {t(3277), t(3278)};
    chckWachtwoordCaption = t(9547);
    hertekenen();
}

void OnderhoudInstellingen::Tonen(int) {
    Procedure(p, "frmOnderhoud.MenuActie", [&] {
        QStringList wachtwoorden, overige;
        if (p.modData) {
            wachtwoorden = p.modData->Wachtwoorden;
            overige = p.modData->Overige;
        }
        for (int i = 0; i < 2; ++i)
            txtInstellingen_wachtwoord[size_t(i)] = {wachtwoorden.value(i), wachtwoorden.value(i)};
        txtInstellingen_Internet = {overige.value(0), overige.value(0)};
        for (int i = 0; i < 3; ++i)
            txtInstellingen_Email[size_t(i)] = {overige.value(i + 1), overige.value(i + 1)};
        LaadThemas();
        LaadTalen();
        bezig = false;
        WijzigingInstellingen();
    });
}

void OnderhoudInstellingen::LaadTalen() {
    QStringList rijen;
    for (int id = InstellingenTeksten::EersteTaalRij; id <= InstellingenTeksten::LaatsteTaalRij;
         ++id)
        rijen << p.modTaal.LaadTekst(id, int(p.modTaal.Taal), true);
    cmbInstellingen_Taal = InstellingenTeksten::taalLijst(rijen);
    taalTag = QString::number(p.modTaal.Taal);
    taalIndex = -1;
    for (int i = 0; i < cmbInstellingen_Taal.size(); ++i)
        if (cmbInstellingen_Taal[i].data == taalTag)
            taalIndex = i;
}

void OnderhoudInstellingen::LaadThemas() {
    ModMain& m = p.modMain;
    const QString skins = QString::fromLatin1(ModThema::Skins);
    QStringList mappen = QDir(m.Pad(skins)).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    // Numbered themes in their order, named ones after them.
    std::sort(mappen.begin(), mappen.end(), [](const QString& a, const QString& b) {
        bool ga = false, gb = false;
        const long na = a.toLong(&ga), nb = b.toLong(&gb);
        if (ga != gb)
            return ga;
        return ga ? na < nb : a < b;
    });
    cmbInstellingen_Thema.clear();
    for (const QString& map : mappen) {
        const QString ini = ModThema::folderOf(map) + QStringLiteral("Instellingen.ini");
        if (!m.BestandBestaat(ini))
            continue;
        const QString naam = m.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Naam"), ini);
        cmbInstellingen_Thema.append({naam.isEmpty() ? map : naam, map});
    }
    themaTag = m.LeesIni(QStringLiteral("Instellingen"), QStringLiteral("Thema"), instellingenIni);
    if (themaTag.isEmpty())
        themaTag = p.modData ? p.modData->Overige.value(4) : QString();
    if (themaTag.isEmpty())
        themaTag = QStringLiteral("1");
    themaIndex = -1;
    for (int i = 0; i < cmbInstellingen_Thema.size(); ++i)
        if (cmbInstellingen_Thema[i].data == themaTag)
            themaIndex = i;
    // A stored theme whose folder is gone still stands, so that it is not changed unasked.
    if (themaIndex < 0) {
        cmbInstellingen_Thema.append({themaTag, themaTag});
        themaIndex = int(cmbInstellingen_Thema.size()) - 1;
    }
}

QString OnderhoudInstellingen::gekozen(const QList<Keuze>& lijst, int index) const {
    return index >= 0 && index < lijst.size() ? lijst[index].data : QString();
}

void OnderhoudInstellingen::WijzigingInstellingen() {
    bool anders = gekozen(cmbInstellingen_Thema, themaIndex) != themaTag ||
                  gekozen(cmbInstellingen_Taal, taalIndex) != taalTag ||
                  txtInstellingen_Internet.tekst != txtInstellingen_Internet.tag;
    for (const Veld& v : txtInstellingen_wachtwoord)
        anders = anders || v.tekst != v.tag;
    for (const Veld& v : txtInstellingen_Email)
        anders = anders || v.tekst != v.tag;
    cmdInstellingenEnabled = {anders && !bezig, anders && !bezig};
    hertekenen();
}

void OnderhoudInstellingen::txtInstellingen_wachtwoord_Change(int index, const QString& tekst) {
    if (index < 0 || index > 1 || bezig)
        return;
    txtInstellingen_wachtwoord[size_t(index)].tekst = tekst;
    WijzigingInstellingen();
}

void OnderhoudInstellingen::txtInstellingen_Internet_Change(const QString& tekst) {
    if (bezig)
        return;
    txtInstellingen_Internet.tekst = tekst;
    WijzigingInstellingen();
}

void OnderhoudInstellingen::txtInstellingen_Email_Change(int index, const QString& tekst) {
    if (index < 0 || index > 2 || bezig)
        return;
    txtInstellingen_Email[size_t(index)].tekst = tekst;
    WijzigingInstellingen();
}

void OnderhoudInstellingen::cmbInstellingen_Thema_Click(int index) {
    if (index < 0 || index >= cmbInstellingen_Thema.size() || bezig)
        return;
    themaIndex = index;
    WijzigingInstellingen();
}

void OnderhoudInstellingen::cmbInstellingen_Taal_Click(int index) {
    if (index < 0 || index >= cmbInstellingen_Taal.size() || bezig)
        return;
    taalIndex = index;
    WijzigingInstellingen();
}

void OnderhoudInstellingen::chckInstellingen_Wachtwoord_Click(bool tonen) {
    chckInstellingen_Wachtwoord = tonen;
    hertekenen();
}

void OnderhoudInstellingen::cmdInstellingen_Click(int index) {
    if (index < 0 || index > 1 || !cmdInstellingenEnabled[size_t(index)])
        return;
    if (index == 0)
        opslaan();
    else
        herstellen();
}

void OnderhoudInstellingen::herstellen() {
    for (Veld& v : txtInstellingen_wachtwoord)
        v.tekst = v.tag;
    txtInstellingen_Internet.tekst = txtInstellingen_Internet.tag;
    for (Veld& v : txtInstellingen_Email)
        v.tekst = v.tag;
    for (int i = 0; i < cmbInstellingen_Thema.size(); ++i)
        if (cmbInstellingen_Thema[i].data == themaTag)
            themaIndex = i;
    for (int i = 0; i < cmbInstellingen_Taal.size(); ++i)
        if (cmbInstellingen_Taal[i].data == taalTag)
            taalIndex = i;
    WijzigingInstellingen();
}

void OnderhoudInstellingen::opslaan() {
    Procedure(p, "frmOnderhoud.cmdInstellingen_Click", [&] {
        cmdInstellingenEnabled[0] = false;
        bezig = true;
        hertekenen();
        ModMain& m = p.modMain;
        const QString thema = gekozen(cmbInstellingen_Thema, themaIndex);
        const QString taal = gekozen(cmbInstellingen_Taal, taalIndex);
        const QStringList wachtwoorden{txtInstellingen_wachtwoord[0].tekst,
                                       txtInstellingen_wachtwoord[1].tekst};
        const QStringList overige{txtInstellingen_Internet.tekst,
                                  txtInstellingen_Email[0].tekst,
                                  txtInstellingen_Email[1].tekst,
                                  txtInstellingen_Email[2].tekst,
                                  thema,
                                  taal.isEmpty() ? taalTag : taal};
        if (p.modData) {
            p.modData->Wachtwoorden = wachtwoorden;
            p.modData->Overige = overige;
        }
        // A row without data changes no language.
        const QString stond =
            m.LeesIni(QStringLiteral("Instellingen"), QStringLiteral("Language"), instellingenIni);
        const bool taalAnders = !taal.isEmpty() && taal != taalTag;
        if (!taal.isEmpty() && taal != stond)
            m.SchrijfIni(taal, QStringLiteral("Instellingen"), QStringLiteral("Language"),
                         instellingenIni);
        m.SchrijfIni(thema, QStringLiteral("Instellingen"), QStringLiteral("Thema"),
                     instellingenIni);
        // The theme path follows the file, with its fall-backs.
        if (p.modThema)
            p.modThema->LaadThema();
        // The menu is dead while the server is asked, as the panel is.
        FrmOnderhoud* f = p.frmOnderhoud;
        if (f)
            f->ZetBewerkModus(true);
        const bool opgeslagen = p.modData && p.modData->Opslaan_Instellingen(
                                                 (wachtwoorden + overige).join(wire::fieldSep));
        if (f)
            f->ZetBewerkModus(false);
        bezig = false;
        if (!opgeslagen) {
            // The fields keep what was typed, so that Save can be pressed again.
            m.ToonVraag(p.modTaal.LaadTekst(3372), p.modTaal.LaadTekst(3332), QStringLiteral("-"));
            WijzigingInstellingen();
            return;
        }
        for (Veld& v : txtInstellingen_wachtwoord)
            v.tag = v.tekst;
        txtInstellingen_Internet.tag = txtInstellingen_Internet.tekst;
        for (Veld& v : txtInstellingen_Email)
            v.tag = v.tekst;
        themaTag = thema;
        if (taalAnders) {
            taalTag = taal;
            ModTaal& t = p.modTaal;
            t.Taal = taal.toLong();
            t.ProductTitel = t.LaadTekst(3, int(t.Taal), true);
            // Every open form from the last to the first; a form may close meanwhile.
            const QList<Form*> formulieren = p.formulieren;
            for (auto it = formulieren.crbegin(); it != formulieren.crend(); ++it)
                if (p.formulieren.contains(*it))
                    (*it)->LaadTaal();
            if (f) {
                f->LaadMenu();
                f->LaadVormgeving();
                f->Tekenmenu();
                if (f->onChanged)
                    f->onChanged();
            }
        }
        // The list again, with the language in use chosen (a row without data changed none).
        LaadTalen();
        WijzigingInstellingen();
    });
}

} // namespace tk
