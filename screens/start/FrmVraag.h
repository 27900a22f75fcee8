#pragma once

#include "core/Form.h"

#include <QFont>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>

namespace tk {

class Programma;

// The one modal question window. Its kind follows the style text: "-" a message with OK alone,
// ":" OK and Cancel, "?" Yes and No, "*" a masked entry, texts joined by "|" an option button per
// text, any other text a text entry with that text as its default. The model holds the window's
// layout in pixels and its answer; FrmVraagView paints it and forwards clicks and keys.
class FrmVraag : public Form {
public:
    enum class Soort { Melding, OkAnnuleren, JaNee, Wachtwoord, Tekst, Keuze };
    // The icon argument: 0 a question mark, 1 information, anything else none.
    enum Icoon { Vraagteken = 0, Informatie = 1, Geen = 2 };

    explicit FrmVraag(Programma& p);
    QString formNaam() const override { return QStringLiteral("frmVraag"); }
    void LaadTaal() override;

    // Fills the window for one question and lays it out; nothing is shown yet.
    void Laden(const QString& titel, const QString& vraag, const QString& VraagSoort, int icoon);
    // Laden, then the window modally; the answer: "ja" or "nee" for the yes/no kinds, the text
    // or the chosen caption for the others, empty on Cancel and for a message.
    QString Vraag(const QString& titel, const QString& vraag, const QString& VraagSoort, int icoon);
    static Soort soortVan(const QString& VraagSoort);

    // --- what the user does
    void txtTekst_Change(const QString& tekst);
    // Enter (13) acts as OK when OK is enabled; Escape (27) as Cancel.
    void txtTekst_KeyPress(int toets);
    void optKeuze_Click(int index);
    void cmdOK_Click();
    void cmdAnnuleren_Click();

    // The result as the wrapper gives it.
    QString Antwoord() const;
    // The window has its answer and closes.
    bool Klaar = false;

    // --- state of the controls
    Soort soort = Soort::Melding;
    QString Caption, lblVraag;
    int icoon = Geen;
    bool txtTekstZichtbaar = false;
    bool wachtwoordTeken = false; // the text box masks what is typed
    QString txtTekst;             // also the hidden box the option buttons fill
    QStringList optKeuze;
    int gekozen = -1;
    QString cmdOKCaption, cmdAnnulerenCaption;
    bool cmdOKEnabled = true;
    bool cmdAnnulerenZichtbaar = false;
    bool OKGekozen = false;

    // --- the layout, in pixels of the window's body
    static constexpr int Breedte = 340;
    static constexpr int Marge = 18;
    static constexpr int OptieHoogte = 20;
    static constexpr QPoint IcoonPlek{18, 12};
    static constexpr int IcoonMaat = 32;
    int breedte = Breedte;
    int Hoogte = 0;
    QRect vraagVak, txtTekstVak, cmdOKVak, cmdAnnulerenVak;
    QList<QRect> optKeuzeVakken;
    QFont font;

private:
    void schikken();
    void controleerOK();
    Programma& p;
};

} // namespace tk
