#pragma once

#include "core/Form.h"

#include <QString>
#include <QStringList>

namespace tk {

class Programma;

// The fault report window: shows what went wrong, stores every shown report in
// \Data\Foutrapportage.ini and, when asked, sends it to the server as a problem call.
class FrmFoutrapportage : public Form {
public:
    explicit FrmFoutrapportage(Programma& p);

    QString formNaam() const override { return QStringLiteral("frmFoutrapportage"); }
    void LaadTaal() override;

    // Fills the report and shows the window modally, unless the same fault was ignored before.
    void Tonen(const QString& procedure, const QString& lijn, const QString& omschrijving,
               const QString& naam);
    bool IsGenegeerd(const QString& applicatie, const QString& procedure, const QString& lijn,
                     const QString& omschrijving);
    void Opslaan();
    // "Send error report" and "Do not send error report".
    void cmdVersturen_Click();
    void cmdNietVersturen_Click();
    // The record of the problem call a fault report becomes on the wire (without "HLPOPS").
    QString HlpopsRecord() const;

    static constexpr const char* Bestand = "\\Data\\Foutrapportage.ini";

    // Captions
    QString Caption, lblUitleg, fraGegevens, cmdVersturenCaption, cmdNietVersturenCaption,
        chkNegerenCaption;
    QStringList lblCaptions; // the eight captions of the data lines
    // The data lines as shown
    QString lblDatum, lblTijd, lblComputernaam, lblWindows, lblApplicatie, lblModule, lblProcedure,
        lblOmschrijving;
    bool chkNegeren = false;
    bool Zichtbaar = false;

    // The report as stored
    QString Datum, Tijd, Rapporteur, Computernaam, Windows, Applicatie, Module, Procedure, Lijn,
        Omschrijving;

private:
    QString lees(const QString& sectie, const QString& sleutel);
    void schrijf(const QString& waarde, const QString& sectie, const QString& sleutel);
    Programma& p;
};

} // namespace tk
