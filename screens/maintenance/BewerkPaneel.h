#pragma once

#include "Keuze.h"
#include "OnderhoudPaneel.h"

#include <QList>
#include <QString>
#include <array>
#include <optional>

namespace tk {

class Programma;

// The edit pattern of the maintenance module, written once. A record panel (classes, teachers,
// applications, ...) derives from it and supplies four things: its records, how a record fills
// the fields, how the fields are saved, and its texts. The settings panels use the live form: no
// list and no Change button, every field editable at once, Save and Restore changes only.
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
//  save     Save (3): the panel's own questions first (MagOpslaan; a refusal stops quietly),
//           the three buttons off, the wait window with the panel's text (only with the
//           Active Directory module), OpslaanRecord, edit mode off, the menu reloaded. A
//           failure tells string 3332 and keeps the edit (fields as typed, still in edit
//           mode, Save ready for another try). A link lost during the save ends the program
//           (the link's own message); nothing more is told. In the live form the stored
//           values become the new tags and the panel stays as it is.
//
// The waits: VraagA and VraagB ask the server through modMain's one wait (class A or class B
// answers, see ModMain::Vraag: no time limit, only a lost link ends one). While a wait lasts the
// panel takes no input (`bezig`) and the shell's menu is dead, so that no click starts a second
// question. Questions to the user go through ToonVraag (the program's question service).
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
        QString caption = {};            // the label in front of it
        QString waarde = {};             // what the field shows now
        QString tag = {};                // the stored value
        bool verplicht = false;          // must be filled in for a new record
        bool zonderHoofdletters = false; // compared case-insensitively (Active Directory)
        bool wachtwoord = false;         // shown masked (unless wachtwoordenTonen)
        bool keuzelijst = false;         // a combo box rather than a text box
        QList<Keuze> keuzes = {};        // its items, `waarde` the chosen one's data
        QString groep = {};  // the caption of the frame it stands in (fields of one frame
                             // follow each other); empty for none
        QString uitleg = {}; // a text above the field, inside its frame
    };
    struct KnopStaat {
        QString tekst;
        bool zichtbaar = false, ingeschakeld = false;
    };

    BewerkPaneel(Programma& p, Vorm vorm);

    // --- the pattern (what the view's events call)
    void Tonen(int rij) override; // the menu chose the panel: LaadLijst and show the current
    void LaadTaal() override;     // the button captions anew
    void Verlaten() override { wachtwoordenTonen = false; } // passwords masked for the next
    void LaadLijst();
    void Weergeven(const QString& sleutel);
    void cmd_Click(int knop);
    // A field's Change or Click event; ignored (false) while the field is read-only.
    bool ZetVeld(int veld, const QString& waarde);
    void EditModus(bool aan, bool nieuw);
    void ControleerNieuw();
    void ControleerWijziging();
    // The stored values back in the fields (a panel may read them anew instead).
    virtual void HerstellenWijziging();
    bool bewerkbaar() const { return !bezig && (vorm == Live || bewerken); }
    // The check box that shows the password fields as typed.
    void chckWachtwoord_Click(bool tonen);

    // --- the waits and the questions
    std::optional<QString> VraagA(const QString& bericht);
    std::optional<QString> VraagB(const QString& bericht);
    QString ToonVraag(const QString& tekst, const QString& soort);

    // --- state the view shows
    const Vorm vorm;
    QList<Item> lijst;
    QString huidig; // key of the item shown
    bool lijstIngeschakeld = true;
    std::array<KnopStaat, 6> knoppen;
    QList<Veld> velden;
    bool bewerken = false, nieuw = false;
    bool bezig = false; // a wait for the server: no input
    // The password fields as typed; the check box's caption (empty: the panel has none).
    bool wachtwoordenTonen = false;
    QString wachtwoordenTonenTekst;

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
    // The panel's questions before a save; false stops it without a message, the edit kept.
    virtual bool MagOpslaan() { return true; }
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
    // A wait for the server, for as long as it lives: the panel takes no input and the shell's
    // menu is dead (unless it was already, as it is while a record is edited).
    class Wachten {
    public:
        explicit Wachten(BewerkPaneel& b);
        ~Wachten();

    private:
        BewerkPaneel& b;
        const bool wasBezig, menuLeefde;
    };
    bool verschilt(const Veld& v) const;
    void zetKnop(int knop, bool zichtbaar, bool ingeschakeld);
    void knoppenBlader();
    void leesKnopTeksten();
};

} // namespace tk
