#include "OnderhoudInstellingen.h"

#include "FrmOnderhoud.h"
#include "InstellingenTeksten.h"
#include "core/Form.h"
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

OnderhoudInstellingen::OnderhoudInstellingen(Programma& p) : BewerkPaneel(p, Live) {
    velden = {{.naam = QStringLiteral("txtInstellingen_wachtwoord(0)"), .wachtwoord = true},
              {.naam = QStringLiteral("txtInstellingen_wachtwoord(1)"), .wachtwoord = true},
              {.naam = QStringLiteral("txtInstellingen_Internet")},
              {.naam = QStringLiteral("txtInstellingen_Email(0)")},
              {.naam = QStringLiteral("txtInstellingen_Email(1)")},
              {.naam = QStringLiteral("txtInstellingen_Email(2)")},
              {.naam = QStringLiteral("cmbInstellingen_Thema"), .keuzelijst = true},
              {.naam = QStringLiteral("cmbInstellingen_Taal"), .keuzelijst = true}};
    LaadTaal();
}

QString OnderhoudInstellingen::titel() const {
    return p.modTaal.LaadTekst(3372);
}

void OnderhoudInstellingen::LaadTaal() {
    auto t = [&](int id) { return p.modTaal.LaadTekst(id); };
    // Caption, frame, and the text above the field, by field.
    const struct {
        int caption, groep, uitleg;
    } teksten[] = {{3267, 3266, 0}, {3268, 3266, 0}, {3270, 3269, 0}, {3273, 3271, 3272},
                   {3274, 3271, 0}, {3275, 3271, 0}, {3276, 3438, 0}, {3439, 3438, 0}};
    for (int i = 0; i < velden.size(); ++i) {
        velden[i].caption = t(teksten[i].caption);
        velden[i].groep = t(teksten[i].groep).trimmed();
        velden[i].uitleg = teksten[i].uitleg ? t(teksten[i].uitleg) : QString();
    }
    wachtwoordenTonenTekst = t(9547);
    BewerkPaneel::LaadTaal();
}

void OnderhoudInstellingen::VulVelden(const QString&) {
    QStringList wachtwoorden, overige;
    if (p.modData) {
        wachtwoorden = p.modData->Wachtwoorden;
        overige = p.modData->Overige;
    }
    velden[WachtwoordLeraren].waarde = wachtwoorden.value(0);
    velden[WachtwoordBeheer].waarde = wachtwoorden.value(1);
    for (int i = Startpagina; i <= EmailAfzender; ++i)
        velden[i].waarde = overige.value(i - Startpagina);
    LaadThemas();
    LaadTalen();
}

void OnderhoudInstellingen::LaadTalen() {
    QStringList rijen;
    for (int id = InstellingenTeksten::EersteTaalRij; id <= InstellingenTeksten::LaatsteTaalRij;
         ++id)
        rijen << p.modTaal.LaadTekst(id, int(p.modTaal.Taal), true);
    velden[Taal].keuzes = InstellingenTeksten::taalLijst(rijen);
    velden[Taal].waarde = QString::number(p.modTaal.Taal);
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
    QList<Keuze>& lijst = velden[Thema].keuzes;
    lijst.clear();
    for (const QString& map : mappen) {
        const QString ini = ModThema::folderOf(map) + QStringLiteral("Instellingen.ini");
        if (!m.BestandBestaat(ini))
            continue;
        const QString naam = m.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Naam"), ini);
        lijst.append({naam.isEmpty() ? map : naam, map});
    }
    QString thema =
        m.LeesIni(QStringLiteral("Instellingen"), QStringLiteral("Thema"), instellingenIni);
    if (thema.isEmpty())
        thema = p.modData ? p.modData->Overige.value(4) : QString();
    if (thema.isEmpty())
        thema = QStringLiteral("1");
    // A stored theme whose folder is gone still stands, so that it is not changed unasked.
    if (std::none_of(lijst.cbegin(), lijst.cend(), [&](const Keuze& k) { return k.data == thema; }))
        lijst.append({thema, thema});
    velden[Thema].waarde = thema;
}

bool OnderhoudInstellingen::MagOpslaan() {
    QStringList alle;
    for (const Veld& v : velden)
        alle.append(v.waarde);
    if (wire::splitsBack(alle.mid(WachtwoordLeraren, 2), wire::recordSep) &&
        wire::splitsBack(alle, wire::fieldSep))
        return true;
    ToonVraag(p.modTaal.LaadTekst(9612), QStringLiteral("-"));
    return false;
}

bool OnderhoudInstellingen::OpslaanRecord(bool) {
    ModMain& m = p.modMain;
    auto waarde = [&](int veld) { return velden[veld].waarde; };
    const QString thema = waarde(Thema), taal = waarde(Taal), taalNu = velden[Taal].tag;
    const QStringList wachtwoorden{waarde(WachtwoordLeraren), waarde(WachtwoordBeheer)};
    const QStringList overige{waarde(Startpagina),
                              waarde(EmailAan),
                              waarde(EmailSchool),
                              waarde(EmailAfzender),
                              thema,
                              taal.isEmpty() ? taalNu : taal};
    if (!p.modData)
        return false;
    // A row without data changes no language.
    const QString stond =
        m.LeesIni(QStringLiteral("Instellingen"), QStringLiteral("Language"), instellingenIni);
    const bool taalAnders = !taal.isEmpty() && taal != taalNu;
    if (!taal.isEmpty() && taal != stond)
        m.SchrijfIni(taal, QStringLiteral("Instellingen"), QStringLiteral("Language"),
                     instellingenIni);
    m.SchrijfIni(thema, QStringLiteral("Instellingen"), QStringLiteral("Thema"), instellingenIni);
    // The theme path follows the file, with its fall-backs.
    if (p.modThema)
        p.modThema->LaadThema();
    if (!p.modData->Opslaan_Instellingen((wachtwoorden + overige).join(wire::fieldSep)))
        return false;
    // Only what the server stored: the data set is what the next load brings.
    p.modData->Wachtwoorden = wachtwoorden;
    p.modData->Overige = overige;
    if (taalAnders) {
        ModTaal& t = p.modTaal;
        t.Taal = taal.toLong();
        t.ProductTitel = t.LaadTekst(3, int(t.Taal), true);
        // Every open form from the last to the first; a form may close meanwhile.
        const QList<Form*> formulieren = p.formulieren;
        for (auto it = formulieren.crbegin(); it != formulieren.crend(); ++it)
            if (p.formulieren.contains(*it))
                (*it)->LaadTaal();
        if (FrmOnderhoud* f = p.frmOnderhoud) {
            f->LaadMenu();
            f->LaadVormgeving();
            f->Tekenmenu();
        }
    }
    // The list again, with the language in use chosen (a row without data changed none).
    LaadTalen();
    return true;
}

} // namespace tk
