#pragma once

#include "OnderhoudPaneel.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>

namespace tk {

class Programma;

// The edit pattern of the maintenance module, written once. A record panel (classes, teachers,
// applications, ...) derives from it and supplies four things: its records, how a record fills
// the fields, how the fields are saved, and its texts. A settings panel uses the live form: no
// list and no Change button, every field editable at once.
//
// The pattern, step by step (the names are the procedures below):
//  list     LaadLijst: one item per record, key "<soort> <slot>"; no record gives the item
//           "leeg" with the panel's empty text, every button but New disabled, fields "-".
//  show     Weergeven(key): the item in bold, the fields filled and each stored value kept in
//           its tag. Read-only until Change.
//  change   Change (button 0): the shell's menu goes dead and grey; list, New, Change and
//           Delete are disabled; Save, Cancel and Restore changes stand.
//  new      New (button 1): an item "nieuw" in bold, "leeg" gone, the fields emptied.
//  edit     ZetVeld: a new record enables Save once its mandatory fields are filled
//           (ControleerNieuw); an existing one enables Save and Restore changes when any field
//           differs from its tag (ControleerWijziging).
//  restore  Restore changes (5): the tags back into the fields, both buttons off again.
//  cancel   Cancel (4): edit mode off, the record restored unless the list is "leeg", the menu
//           alive again.
//  save     Save (3): the three buttons off, the wait window with the panel's text (only with
//           the Active Directory module), OpslaanRecord, edit mode off, the menu reloaded. A
//           failure tells string 3332 and keeps the edit (fields as typed, still in edit
//           mode, Save ready for another try). A link lost during the save ends the program
//           (the link's own message); nothing more is told.
//
// The waits: VraagA sends a message of class A and pumps until the dispatcher raises
// AntwoordOntvangen; VraagB does the same for class B (saves and deletes,
// AntwoordOpslaanOntvangen). There is no time-out; only a lost link ends a wait, and then they
// give no answer. Questions go through ToonVraag (the program's question service).
//
// Plugging in: FrmOnderhoud::plaatsPaneel(number, panel) and, for the window,
// FrmOnderhoudView::plaatsPaneelView(number, new BewerkPaneelView(panel)).
class BewerkPaneel : public OnderhoudPaneel {
public:
    enum Vorm { Lijst, Live };
    // The command array of a panel, by index.
    enum Knop {
        Wijzigen = 0,
        Nieuw = 1,
        Verwijderen = 2,
        Opslaan = 3,
        Annuleren = 4,
        Herstellen = 5
    };
    struct Item {
        QString sleutel, tekst;
        bool vet = false;
    };
    struct Veld {
        QString naam;                    // the control's name, also its accessible name's fall-back
        QString caption;                 // the label in front of it
        QString waarde = {};             // what the field shows now
        QString tag = {};                // the stored value
        bool verplicht = false;          // must be filled in for a new record
        bool zonderHoofdletters = false; // compared case-insensitively (Active Directory)
        bool wachtwoord = false;         // shown masked
        QStringList keuzes = {};         // a combo box: its items; empty for a text box
    };
    struct KnopStaat {
        QString tekst;
        bool zichtbaar = false, ingeschakeld = false;
    };

    BewerkPaneel(Programma& p, Vorm vorm);

    // --- the pattern (what the view's events call)
    void Tonen(int rij) override; // the menu chose the panel: LaadLijst and show the current
    void LaadTaal() override;     // the button captions anew
    void LaadLijst();
    void Weergeven(const QString& sleutel);
    void cmd_Click(int knop);
    // A field's Change or Click event; ignored (false) while the field is read-only.
    bool ZetVeld(int veld, const QString& waarde);
    void EditModus(bool aan, bool nieuw);
    void ControleerNieuw();
    void ControleerWijziging();
    void HerstellenWijziging();
    bool bewerkbaar() const { return vorm == Live || bewerken; }

    // --- the waits and the questions
    std::optional<QString> VraagA(const QString& bericht) { return wachtA(p, bericht); }
    std::optional<QString> VraagB(const QString& bericht) { return wachtB(p, bericht); }
    // The same for code outside a panel (the shell's loaders).
    static std::optional<QString> wachtA(Programma& p, const QString& bericht);
    static std::optional<QString> wachtB(Programma& p, const QString& bericht);
    QString ToonVraag(const QString& tekst, const QString& soort);

    // --- state the view shows
    const Vorm vorm;
    QList<Item> lijst;
    QString huidig; // key of the item shown
    bool lijstIngeschakeld = true;
    std::array<KnopStaat, 6> knoppen;
    QList<Veld> velden;
    bool bewerken = false, nieuw = false;

protected:
    // The panel's records, in list order.
    virtual QList<Item> Records() = 0;
    // Fills velden[i].waarde from the record of `sleutel` (the pattern copies them to the tags).
    virtual void VulVelden(const QString& sleutel) = 0;
    // Writes the fields into the data set and sends the panel's messages, one at a time through
    // VraagA/VraagB. False on failure. For a new record set `huidig` to the new key.
    virtual bool OpslaanRecord(bool nieuwRecord) = 0;
    // Delete (button 2): the panel's own question and messages.
    virtual void VerwijderRecord() {}
    // Save is possible for a new record: by default every mandatory field is filled in.
    virtual bool NieuwCompleet() const;
    // Texts: the empty list's item (3298), the new item (3387), the save's wait window (3331; 0
    // for none), the failed save (3332).
    virtual int leegTekst() const { return 0; }
    virtual int nieuwTekst() const { return 0; }
    virtual int wachtTekst() const { return 0; }
    virtual int foutTekst() const { return 3332; }
    // The button captions by index (0 for a button the panel lacks).
    virtual std::array<int, 6> knopTeksten() const { return {3170, 0, 0, 3167, 3168, 3169}; }

    Programma& p;

private:
    bool verschilt(const Veld& v) const;
    void zetKnop(int knop, bool zichtbaar, bool ingeschakeld);
    void knoppenBlader();
    void leesKnopTeksten();
};

} // namespace tk
