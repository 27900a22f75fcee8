#pragma once

#include "BewerkPaneel.h"

namespace tk {

class Programma;

// The settings panel of the maintenance module (the heading "Settings"): the two passwords, the
// default start page, the e-mail of problem calls, the theme and the language, on the live form
// of the edit pattern. The controls of the system keep their names as the fields' names
// (txtInstellingen_wachtwoord(0) ...); its WijzigingInstellingen is the pattern's
// ControleerWijziging, and cmdInstellingen 0 and 1 are the pattern's Save and Restore changes.
class OnderhoudInstellingen : public BewerkPaneel {
public:
    // The fields, by their place in `velden`.
    enum VeldNummer {
        WachtwoordLeraren,
        WachtwoordBeheer,
        Startpagina,
        EmailAan,
        EmailSchool,
        EmailAfzender,
        Thema,
        Taal
    };

    explicit OnderhoudInstellingen(Programma& p);
    QString titel() const override;
    void LaadTaal() override;
    // The language list from the string table, the present language chosen.
    void LaadTalen();
    // The themes installed below \Afbeeldingen\Skins, by their names, the one in use chosen.
    void LaadThemas();

protected:
    QList<Item> Records() override { return {}; }
    // The stored values into the fields, the lists read anew.
    void VulVelden(const QString& sleutel) override;
    // The settings in the described order: the data set, the settings file, the theme, the
    // server, and on a changed language every open form re-captioned.
    bool OpslaanRecord(bool nieuwRecord) override;
    // Texts that would not come back apart from the stored settings (a password holding the
    // separator of the two) are told and not sent.
    bool MagOpslaan() override;
    std::array<int, 6> knopTeksten() const override { return {0, 0, 0, 3277, 0, 3278}; }
};

} // namespace tk
