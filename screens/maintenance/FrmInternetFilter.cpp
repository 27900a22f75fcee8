#include "FrmInternetFilter.h"

#include "core/DialogService.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "data/ModData.h"
#include "filter/DownloadedList.h"
#include "link/ModInternet.h"
#include "link/WebFetch.h"

namespace tk {

namespace {

constexpr int TekstAantal = 9600, TekstDubbel = 9601, TekstScheidingsteken = 9602, TekstPlus = 9603,
              TekstTeLang = 9604, TekstGeenTekst = 9605, TekstGeenWebadres = 9606,
              TekstNietOpgehaald = 9607, TekstGeenLijst = 9608, TekstTeGroot = 9609,
              TekstOvergeslagen = 9610, TekstAdres = 9611;

} // namespace

FrmInternetFilter::FrmInternetFilter(Programma& p) : p(p) {
    LaadTaal();
}

QString FrmInternetFilter::tekst(int id) const {
    return p.modTaal.LaadTekst(id);
}

void FrmInternetFilter::LaadTaal() {
    Caption = tekst(1400);
    tabCaption = {tekst(1401), tekst(1403), tekst(1402)};
    lblCaption = {tekst(1408), tekst(1404), tekst(1404)};
    for (int l = 0; l < FilterLists::Aantal; ++l) {
        cmdKnopCaption[size_t(2 * l)] = tekst(1405);
        cmdKnopCaption[size_t(2 * l + 1)] = tekst(1406);
    }
    cmdUpdatenCaption = tekst(1409);
    cmdOpslaanCaption = tekst(1407);
    cmdAnnulerenCaption = tekst(1410);
    bijwerken();
}

QString FrmInternetFilter::lblAantal(int lijst) const {
    return tekst(TekstAantal)
        .replace(QStringLiteral("%aantal%"), QString::number(lijsten.lijst(Lijst(lijst)).size()));
}

bool FrmInternetFilter::Openen() {
    Procedure(p, "frmInternetFilter.Openen", [&] {
        Form_Load();
        Open = true;
        Opgeslagen = false;
        if (p.dialogen)
            p.dialogen->toonModaal(*this);
    });
    Open = false;
    return Opgeslagen;
}

void FrmInternetFilter::Form_Load() {
    Procedure(p, "frmInternetFilter.Form_Load", [&] {
        lijsten = FilterLists::uit(p.modData->VerbodenWoorden, p.modData->ToegestaneSites);
        if (lijsten.overgeslagen() > 0)
            p.modMain.SchrijfLogboek(
                QStringLiteral("%1 items of the stored lists are left out (empty, doubled or "
                               "longer than a piece of the word list may be)")
                    .arg(lijsten.overgeslagen()),
                QStringLiteral("Internetfilter"), QString(), QString());
        Tab = 0;
        txt = {};
        geselecteerd = {-1, -1, -1};
        lblStatus.clear();
        picStatusZichtbaar = false;
        pbStatus = 0;
        bijwerken();
    });
}

void FrmInternetFilter::bijwerken() {
    for (int l = 0; l < FilterLists::Aantal; ++l) {
        cmdKnopEnabled[size_t(2 * l)] = !Bezig && !txt[size_t(l)].trimmed().isEmpty();
        cmdKnopEnabled[size_t(2 * l + 1)] = !Bezig && geselecteerd[size_t(l)] >= 0;
    }
    // The web offers words and blocked sites; allowed sites are the school's own.
    cmdUpdatenEnabled = !Bezig && Tab != FilterLists::Sites;
    if (onChanged)
        onChanged();
}

void FrmInternetFilter::meld(const QString& tekst) {
    p.modMain.ToonVraag(Caption, tekst, QStringLiteral("-"));
}

void FrmInternetFilter::Tabstrip_Click(int tab) {
    if (Bezig || tab < 0 || tab >= FilterLists::Aantal)
        return;
    Tab = tab;
    lblStatus.clear();
    bijwerken();
}

void FrmInternetFilter::txt_Change(int lijst, const QString& tekst) {
    if (lijst < 0 || lijst >= FilterLists::Aantal)
        return;
    txt[size_t(lijst)] = tekst;
    bijwerken();
}

void FrmInternetFilter::txt_Enter(int lijst) {
    cmdKnop_Click(2 * lijst); // which tests its range and whether it is enabled
}

void FrmInternetFilter::lst_Click(int lijst, int index) {
    if (lijst < 0 || lijst >= FilterLists::Aantal)
        return;
    const int aantal = int(lijsten.lijst(Lijst(lijst)).size());
    geselecteerd[size_t(lijst)] = index >= 0 && index < aantal ? index : -1;
    bijwerken();
}

void FrmInternetFilter::cmdKnop_Click(int index) {
    Procedure(p, "frmInternetFilter.cmdKnop_Click", [&] {
        const int lijst = index / 2;
        if (Bezig || index < 0 || lijst >= FilterLists::Aantal || !cmdKnopEnabled[size_t(index)])
            return;
        const Lijst l = Lijst(lijst);
        if (index % 2 == 1) {
            lijsten.verwijderen(l, geselecteerd[size_t(lijst)]);
            geselecteerd[size_t(lijst)] = -1;
            lblStatus.clear();
            bijwerken();
            return;
        }
        const QString woord = txt[size_t(lijst)].trimmed();
        switch (lijsten.toevoegen(l, woord)) {
        case FilterLists::Keuring::Goed:
            txt[size_t(lijst)].clear();
            lblStatus.clear();
            break;
        case FilterLists::Keuring::Dubbel:
            lblStatus = tekst(TekstDubbel).replace(QStringLiteral("%woord%"), woord);
            break;
        case FilterLists::Keuring::Scheidingsteken:
            lblStatus = tekst(TekstScheidingsteken);
            break;
        case FilterLists::Keuring::Plus:
            lblStatus = tekst(TekstPlus);
            break;
        case FilterLists::Keuring::Adres:
            lblStatus = tekst(TekstAdres).replace(QStringLiteral("%tab%"), tabCaption[2]);
            break;
        case FilterLists::Keuring::TeLang:
            lblStatus = tekst(TekstTeLang)
                            .replace(QStringLiteral("%aantal%"),
                                     QString::number(FilterLists::LangsteItem -
                                                     (l == FilterLists::GSites ? 4 : 0)));
            break;
        case FilterLists::Keuring::GeenTekst:
            lblStatus = tekst(TekstGeenTekst);
            break;
        case FilterLists::Keuring::Leeg:
            break;
        }
        bijwerken();
    });
}

QUrl FrmInternetFilter::lijstAdres(const QString& webadres, bool sites) {
    QUrl adres = QUrl::fromUserInput(webadres.trimmed());
    if (adres.host().isEmpty())
        return {};
    QString pad = adres.path();
    while (pad.endsWith(QLatin1Char('/')))
        pad.chop(1);
    adres.setPath(pad + (sites ? QStringLiteral("/applicatie/geblokkeerdesites.txt")
                               : QStringLiteral("/applicatie/verbodenwoorden.txt")));
    adres.setQuery(QString());
    adres.setFragment(QString());
    return adres;
}

void FrmInternetFilter::cmdUpdaten_Click() {
    if (!cmdUpdatenEnabled)
        return;
    VerbodenWoordenUpdaten(Tab == FilterLists::GSites);
}

int FrmInternetFilter::VerbodenWoordenUpdaten(bool sites) {
    Bezig = true;
    bijwerken();
    const int nieuw = Procedure(p, "modMain.VerbodenWoordenUpdaten", -1, [&] {
        const QUrl adres =
            lijstAdres(p.modMain.LeesIni(QStringLiteral("Instellingen"), QStringLiteral("Webadres"),
                                         QString::fromLatin1(ModMain::Instellingen)),
                       sites);
        if (adres.isEmpty()) {
            meld(tekst(TekstGeenWebadres));
            return -1;
        }
        if (!ModInternet(p).ControleerInternet(5)) {
            meld(tekst(2933));
            return -1;
        }
        picStatusZichtbaar = true;
        pbStatus = StapOphalen;
        lblStatus = tekst(sites ? 2935 : 2934);
        bijwerken();
        // The answer is held in memory, not in a file: nothing is left behind to delete.
        const WebFetch::Resultaat antwoord =
            WebFetch::haal(p.wacht, adres, DownloadedList::GrootsteLijst);
        if (antwoord.uitkomst == WebFetch::Resultaat::Uitkomst::Gestopt)
            return -1;
        const QString mb = QString::number(DownloadedList::GrootsteLijst / (1024 * 1024));
        if (antwoord.uitkomst == WebFetch::Resultaat::Uitkomst::TeGroot) {
            meld(tekst(TekstTeGroot).replace(QStringLiteral("%aantal%"), mb));
            return -1;
        }
        if (antwoord.uitkomst != WebFetch::Resultaat::Uitkomst::Gelukt) {
            p.modMain.SchrijfLogboek(
                QStringLiteral("%1: %2").arg(adres.toDisplayString(), antwoord.fout),
                QStringLiteral("Internetfilter"), QString(), QString());
            meld(tekst(TekstNietOpgehaald)
                     .replace(QStringLiteral("%adres%"), adres.toDisplayString())
                     .replace(QStringLiteral("%fout%"), antwoord.fout));
            return -1;
        }
        lblStatus = tekst(2936);
        pbStatus = StapVerwerken;
        bijwerken();
        const DownloadedList::Resultaat lijst =
            DownloadedList::lees(antwoord.inhoud, antwoord.contentType);
        if (lijst.uitkomst == DownloadedList::Uitkomst::TeGroot) {
            meld(tekst(TekstTeGroot).replace(QStringLiteral("%aantal%"), mb));
            return -1;
        }
        if (lijst.uitkomst != DownloadedList::Uitkomst::Lijst) {
            const QString soort = antwoord.contentType.isEmpty()
                                      ? QStringLiteral("?")
                                      : QString::fromLatin1(antwoord.contentType);
            meld(tekst(TekstGeenLijst).replace(QStringLiteral("%soort%"), soort));
            return -1;
        }
        int geweigerd = 0;
        const int aantal = lijsten.samenvoegen(sites ? FilterLists::GSites : FilterLists::Woorden,
                                               lijst.items, &geweigerd);
        pbStatus = StapKlaar;
        QString klaar = tekst(2937).replace(QStringLiteral("%aantal%"), QString::number(aantal));
        if (geweigerd > 0)
            klaar += QStringLiteral("\r\n") +
                     tekst(TekstOvergeslagen)
                         .replace(QStringLiteral("%aantal%"), QString::number(geweigerd));
        lblStatus = klaar;
        bijwerken();
        meld(klaar);
        return aantal;
    });
    Bezig = false;
    picStatusZichtbaar = false;
    pbStatus = 0;
    bijwerken();
    return nieuw;
}

void FrmInternetFilter::cmdOpslaan_Click() {
    if (Bezig)
        return;
    Bezig = true;
    bijwerken();
    const bool gelukt = Procedure(p, "frmInternetFilter.cmdOpslaan_Click", false, [&] {
        ModData& d = *p.modData;
        // What the server refused stays as the server has it.
        const QString woorden = d.VerbodenWoorden, sites = d.ToegestaneSites;
        d.VerbodenWoorden = lijsten.verbodenWoorden();
        d.ToegestaneSites = lijsten.toegestaneSites();
        const bool woordenOk = d.OpslaanVerbodenWoorden();
        if (!woordenOk)
            d.VerbodenWoorden = woorden;
        const bool sitesOk = d.OpslaanToegestaneSites();
        if (!sitesOk)
            d.ToegestaneSites = sites;
        return woordenOk && sitesOk;
    });
    Bezig = false;
    if (gelukt) {
        Opgeslagen = true;
        Open = false;
    } else {
        meld(tekst(3311));
    }
    bijwerken();
}

void FrmInternetFilter::cmdAnnuleren_Click() {
    if (Bezig)
        return;
    Open = false;
    bijwerken();
}

} // namespace tk
