#pragma once

#include "InstellingenTeksten.h"
#include "OnderhoudPaneel.h"

#include <QList>
#include <QString>
#include <array>

namespace tk {

class Programma;

// The settings panel of the maintenance module (the heading "Settings"): the two passwords,
// the default start page, the e-mail of problem calls, the theme and the language. Every field
// is live: a change compares all fields with their stored values (the tags) and enables Save
// and Restore while one differs.
class OnderhoudInstellingen : public OnderhoudPaneel {
public:
    using Keuze = InstellingenTeksten::Keuze;
    // A text box and the stored value it started from.
    struct Veld {
        QString tekst, tag;
    };

    explicit OnderhoudInstellingen(Programma& p);
    QString titel() const override;
    // The heading was chosen: the stored values go into the fields and their tags.
    void Tonen(int rij) override;
    void LaadTaal() override;

    // --- the events of the panel's controls
    void txtInstellingen_wachtwoord_Change(int index, const QString& tekst);
    void txtInstellingen_Internet_Change(const QString& tekst);
    void txtInstellingen_Email_Change(int index, const QString& tekst);
    void cmbInstellingen_Thema_Click(int index);
    void cmbInstellingen_Taal_Click(int index);
    void chckInstellingen_Wachtwoord_Click(bool tonen);
    // 0 Save changes, 1 Restore changes.
    void cmdInstellingen_Click(int index);

    void WijzigingInstellingen();
    // The language list from the string table, the present language selected.
    void LaadTalen();
    // The themes installed below \Afbeeldingen\Skins, by their names.
    void LaadThemas();

    // --- what the view shows
    std::array<Veld, 2> txtInstellingen_wachtwoord;
    Veld txtInstellingen_Internet;
    std::array<Veld, 3> txtInstellingen_Email;
    QList<Keuze> cmbInstellingen_Thema, cmbInstellingen_Taal;
    int themaIndex = -1, taalIndex = -1;
    QString themaTag, taalTag;
    bool chckInstellingen_Wachtwoord = false; // the passwords are shown as typed
    std::array<bool, 2> cmdInstellingenEnabled{false, false};
    bool bezig = false; // a save is on its way: the panel takes no input

    // Captions: frame and labels of the passwords, the internet and e-mail frames, theme,
    // language frame and label, the buttons and the check box.
    QString fraWachtwoorden, fraInternet, fraEmail, fraTaal, lblEmailUitleg, lblThema, lblTaal,
        lblInternet, chckWachtwoordCaption;
    std::array<QString, 2> lblWachtwoord, cmdInstellingen;
    std::array<QString, 3> lblEmail;

private:
    void opslaan();
    void herstellen();
    QString gekozen(const QList<Keuze>& lijst, int index) const;
    Programma& p;
};

} // namespace tk
