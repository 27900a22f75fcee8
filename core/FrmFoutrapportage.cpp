#include "FrmFoutrapportage.h"

#include "core/CommandChannel.h"
#include "core/DialogService.h"
#include "core/Programma.h"
#include "core/Wire.h"
#include "platform/Clock.h"
#include "platform/Environment.h"

#include <QLocale>

namespace tk {

namespace {
const QString bestand() {
    return QString::fromLatin1(FrmFoutrapportage::Bestand);
}
const QString kop() {
    return QStringLiteral("Foutrapportage");
}
} // namespace

FrmFoutrapportage::FrmFoutrapportage(Programma& p) : p(p) {}

QString FrmFoutrapportage::lees(const QString& sectie, const QString& sleutel) {
    return p.modMain.LeesIni(sectie, sleutel, bestand());
}

void FrmFoutrapportage::schrijf(const QString& waarde, const QString& sectie,
                                const QString& sleutel) {
    p.modMain.SchrijfIni(waarde, sectie, sleutel, bestand());
}

void FrmFoutrapportage::LaadTaal() {
    auto t = [&](int id) { return p.modTaal.LaadTekst(id); };
    Caption = t(1100);
    lblUitleg = t(1101);
    fraGegevens = t(1102);
    lblCaptions.clear();
    for (int id = 1103; id <= 1110; ++id)
        lblCaptions.append(t(id));
    cmdVersturenCaption = t(1111);
    cmdNietVersturenCaption = t(1112);
    chkNegerenCaption = t(1113);
}

void FrmFoutrapportage::Tonen(const QString& procedure, const QString& lijn,
                              const QString& omschrijving, const QString& naam) {
    LaadTaal();
    const QDateTime nu = p.platform.clock().now();
    Datum = nu.date().toString(QStringLiteral("d-M-yyyy"));
    Tijd = nu.time().toString(QStringLiteral("H:mm:ss"));
    Rapporteur = p.modMain.Locatie;
    Computernaam = p.platform.environment().computerName();
    Windows = p.modMain.WindowsNaam();
    Applicatie = QStringLiteral("Tafelkrater ") + ModMain::ProgrammaVersie();
    Module = naam;
    Procedure = procedure.isEmpty() ? QStringLiteral("-") : procedure;
    Lijn = lijn.isEmpty() ? QStringLiteral("-") : lijn;
    Omschrijving = omschrijving;

    const QLocale taal(p.modTaal.Taal == 1043 ? QLocale::Dutch : QLocale::English);
    lblDatum = taal.toString(nu.date(), QStringLiteral("dddd d MMMM yyyy"));
    lblTijd = Tijd;
    lblComputernaam = Computernaam;
    lblWindows = Windows;
    lblApplicatie = Applicatie;
    lblModule = Module;
    lblProcedure =
        Procedure == u"-" ? QStringLiteral("-") : Procedure + QStringLiteral(" in lijn ") + Lijn;
    lblOmschrijving = QString(Omschrijving).replace(QLatin1Char('|'), QLatin1Char('\n'));

    if (IsGenegeerd(Applicatie, Procedure, Lijn, Omschrijving))
        return;
    chkNegeren = false;
    Zichtbaar = true;
    if (p.dialogen)
        p.dialogen->toonModaal(*this);
    else
        Opslaan();
    Zichtbaar = false;
}

bool FrmFoutrapportage::IsGenegeerd(const QString& applicatie, const QString& procedure,
                                    const QString& lijn, const QString& omschrijving) {
    // Asked at every fault: one look at the file for the whole list of stored reports, not five
    // per report.
    const IniDocument* lijst = p.iniFiles.document(p.modMain.Pad(bestand()));
    if (!lijst)
        return false;
    auto lees = [lijst](const QString& sectie, const QString& sleutel) {
        return lijst->value(sectie, sleutel).value_or(QString()).left(ModMain::IniWaardeMax);
    };
    const int laatste = lees(kop(), QStringLiteral("Laatste ID")).toInt();
    for (int id = 1; id <= laatste; ++id) {
        const QString sectie = QStringLiteral("ID=%1").arg(id);
        if (lees(sectie, QStringLiteral("Fout negeren")).toLower() != u"ja")
            continue;
        if (lees(sectie, QStringLiteral("Applicatie")).toLower() == applicatie.toLower() &&
            lees(sectie, QStringLiteral("Procedure")).toLower() == procedure.toLower() &&
            lees(sectie, QStringLiteral("Lijn")).toLower() == lijn.toLower() &&
            lees(sectie, QStringLiteral("Omschrijving")).toLower() == omschrijving.toLower())
            return true;
    }
    return false;
}

void FrmFoutrapportage::Opslaan() {
    p.modMain.MaakMappen(QStringLiteral("\\Data"));
    const int id = lees(kop(), QStringLiteral("Laatste ID")).toInt() + 1;
    const int aantal = lees(kop(), QStringLiteral("Aantal")).toInt() + 1;
    schrijf(QString::number(id), kop(), QStringLiteral("Laatste ID"));
    schrijf(QString::number(aantal), kop(), QStringLiteral("Aantal"));
    const QString sectie = QStringLiteral("ID=%1").arg(id);
    schrijf(Datum, sectie, QStringLiteral("Datum"));
    schrijf(Tijd, sectie, QStringLiteral("Tijd"));
    schrijf(Rapporteur, sectie, QStringLiteral("Rapporteur"));
    schrijf(Computernaam, sectie, QStringLiteral("Computernaam"));
    schrijf(Windows, sectie, QStringLiteral("Windows"));
    schrijf(Applicatie, sectie, QStringLiteral("Applicatie"));
    schrijf(Module, sectie, QStringLiteral("Module"));
    schrijf(Procedure, sectie, QStringLiteral("Procedure"));
    schrijf(Lijn, sectie, QStringLiteral("Lijn"));
    schrijf(Omschrijving, sectie, QStringLiteral("Omschrijving"));
    schrijf(chkNegeren ? QStringLiteral("Ja") : QStringLiteral("Nee"), sectie,
            QStringLiteral("Fout negeren"));
    schrijf(p.modMain.Verbonden() ? QStringLiteral("Ja") : QStringLiteral("Nee"), sectie,
            QStringLiteral("Verstuurd"));
}

QString FrmFoutrapportage::HlpopsRecord() const {
    QString blok = Omschrijving;
    if (Procedure != u"-")
        blok = Procedure + QStringLiteral(" in lijn ") + Lijn + QLatin1Char('|') + Omschrijving;
    const QStringList velden = {Datum,
                                Tijd,
                                Computernaam,
                                Rapporteur,
                                Module,
                                Applicatie,
                                blok,
                                QStringLiteral("Nee"),
                                Datum + QLatin1Char(' ') + Tijd,
                                QStringLiteral("Error report")};
    return velden.join(wire::fieldSep);
}

void FrmFoutrapportage::cmdNietVersturen_Click() {
    Opslaan();
    Zichtbaar = false;
}

void FrmFoutrapportage::cmdVersturen_Click() {
    Opslaan();
    Zichtbaar = false;
    if (p.modMain.Verbonden()) {
        p.modMain.AntwoordOntvangen = false;
        p.kanaal->WS_Versturen(wire::HLPOPS + HlpopsRecord(), false);
        p.wacht.Tot([this] { return p.modMain.AntwoordOntvangen; });
    } else {
        p.modMain.ToonVraag(p.modTaal.LaadTekst(3), p.modTaal.LaadTekst(1114), QStringLiteral("-"));
    }
}

} // namespace tk
