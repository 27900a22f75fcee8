#include "FrmVraag.h"

#include "core/DialogService.h"
#include "core/Procedure.h"
#include "core/Programma.h"

#include <QFontMetrics>

namespace tk {

namespace {
constexpr int knopHoogte = 26;
constexpr int tekstvakHoogte = 24;
constexpr int ruimte = 12;
// Beyond this many rows of question text the window takes a wider body.
constexpr int maxRegelsSmal = 8;
constexpr int breedteBreed = 520;
} // namespace

FrmVraag::FrmVraag(Programma& p) : p(p) {
    font = QFont(QStringLiteral("Verdana"), 9);
}

void FrmVraag::LaadTaal() {
    auto t = [&](int id) { return p.modTaal.LaadTekst(id); };
    const bool jaNee = soort == Soort::JaNee;
    cmdOKCaption = jaNee ? t(2703) : t(2701);
    cmdAnnulerenCaption = jaNee ? t(2704) : t(2702);
}

FrmVraag::Soort FrmVraag::soortVan(const QString& s) {
    if (s == u"-")
        return Soort::Melding;
    if (s == u":")
        return Soort::OkAnnuleren;
    if (s == u"?")
        return Soort::JaNee;
    if (s == u"*")
        return Soort::Wachtwoord;
    if (s.contains(QLatin1Char('|')))
        return Soort::Keuze;
    return Soort::Tekst;
}

void FrmVraag::Laden(const QString& titel, const QString& vraag, const QString& VraagSoort,
                     int icoonKeuze) {
    Procedure(p, "frmVraag.Vraag", [&] {
        soort = soortVan(VraagSoort);
        Caption = titel;
        lblVraag = vraag;
        lblVraag.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        icoon = icoonKeuze == Vraagteken || icoonKeuze == Informatie ? icoonKeuze : Geen;
        LaadTaal();
        Klaar = OKGekozen = false;
        gekozen = -1;
        optKeuze.clear();
        txtTekst.clear();
        txtTekstZichtbaar = soort == Soort::Wachtwoord || soort == Soort::Tekst;
        wachtwoordTeken = soort == Soort::Wachtwoord;
        if (soort == Soort::Tekst)
            txtTekst = VraagSoort;
        if (soort == Soort::Keuze)
            optKeuze = VraagSoort.split(QLatin1Char('|'));
        cmdAnnulerenZichtbaar = soort != Soort::Melding;
        controleerOK();
        schikken();
    });
}

void FrmVraag::schikken() {
    const QFontMetrics fm(font);
    const int links = icoon == Geen ? Marge : IcoonPlek.x() + IcoonMaat + ruimte;
    auto tekstMaat = [&](int b) {
        return fm.boundingRect(QRect(0, 0, b - links - Marge, 10000), Qt::TextWordWrap, lblVraag);
    };
    breedte = Breedte;
    QRect maat = tekstMaat(breedte);
    if (maat.height() > maxRegelsSmal * fm.lineSpacing()) {
        breedte = breedteBreed;
        maat = tekstMaat(breedte);
    }
    const int vraagHoogte = qMax(icoon == Geen ? fm.height() : IcoonMaat, maat.height());
    vraagVak = QRect(links, IcoonPlek.y() + 2, breedte - links - Marge, vraagHoogte);
    int y = vraagVak.bottom() + 1 + ruimte;
    txtTekstVak = QRect();
    optKeuzeVakken.clear();
    if (txtTekstZichtbaar) {
        txtTekstVak = QRect(Marge, y, breedte - 2 * Marge, tekstvakHoogte);
        y += tekstvakHoogte + ruimte;
    }
    for (int i = 0; i < optKeuze.size(); ++i)
        optKeuzeVakken << QRect(Marge + 12, y + i * OptieHoogte, breedte - 2 * Marge - 12,
                                OptieHoogte);
    if (!optKeuze.isEmpty())
        y += int(optKeuze.size()) * OptieHoogte + ruimte / 2;
    const int knoppenBreedte = breedte - 2 * Marge;
    if (cmdAnnulerenZichtbaar) {
        const int b = (knoppenBreedte - ruimte) / 2;
        cmdOKVak = QRect(Marge, y, b, knopHoogte);
        cmdAnnulerenVak = QRect(breedte - Marge - b, y, b, knopHoogte);
    } else {
        cmdOKVak = QRect(Marge, y, knoppenBreedte, knopHoogte);
        cmdAnnulerenVak = QRect();
    }
    Hoogte = y + knopHoogte + Marge - 4;
}

void FrmVraag::controleerOK() {
    switch (soort) {
    case Soort::Wachtwoord:
    case Soort::Tekst:
    case Soort::Keuze:
        cmdOKEnabled = !txtTekst.isEmpty();
        break;
    default:
        cmdOKEnabled = true;
    }
}

void FrmVraag::txtTekst_Change(const QString& tekst) {
    txtTekst = tekst;
    controleerOK();
}

void FrmVraag::txtTekst_KeyPress(int toets) {
    if (toets == 13 && cmdOKEnabled)
        cmdOK_Click();
    else if (toets == 27)
        soort == Soort::Melding ? cmdOK_Click() : cmdAnnuleren_Click();
}

void FrmVraag::optKeuze_Click(int index) {
    if (index < 0 || index >= optKeuze.size())
        return;
    gekozen = index;
    txtTekst_Change(optKeuze[index]);
}

void FrmVraag::cmdOK_Click() {
    if (!cmdOKEnabled)
        return;
    OKGekozen = true;
    Klaar = true;
}

void FrmVraag::cmdAnnuleren_Click() {
    OKGekozen = false;
    Klaar = true;
}

QString FrmVraag::Antwoord() const {
    switch (soort) {
    case Soort::Melding:
        return QString();
    case Soort::OkAnnuleren:
    case Soort::JaNee:
        return OKGekozen ? QStringLiteral("ja") : QStringLiteral("nee");
    default:
        return OKGekozen ? txtTekst : QString();
    }
}

QString FrmVraag::Vraag(const QString& titel, const QString& vraag, const QString& VraagSoort,
                        int icoonKeuze) {
    Laden(titel, vraag, VraagSoort, icoonKeuze);
    if (p.dialogen)
        p.dialogen->toonModaal(*this);
    return Antwoord();
}

} // namespace tk
