#pragma once

#include "core/Form.h"
#include "filter/FilterLists.h"

#include <QString>
#include <QUrl>
#include <array>
#include <functional>

namespace tk {

class Programma;

// frmInternetFilter, the editor of the filter's lists: three tabs (forbidden words, allowed
// sites, blocked sites), each with its list, its field and its add and remove buttons; the
// update of the words or the blocked sites from the web address of the settings; Save, which
// stores both strings on the server, and Cancel. The rules of the lists are FilterLists'.
class FrmInternetFilter : public Form {
public:
    using Lijst = FilterLists::Lijst;
    // The progress bar's steps of an update.
    static constexpr int StapOphalen = 10, StapVerwerken = 60, StapKlaar = 100;

    explicit FrmInternetFilter(Programma& p);
    QString formNaam() const override { return QStringLiteral("frmInternetFilter"); }
    void LaadTaal() override;

    // Shows the form modally; true when the lists were saved.
    bool Openen();
    // Fills the lists from `VerbodenWoorden` and `ToegestaneSites`.
    void Form_Load();

    void Tabstrip_Click(int tab);
    // Typing in the field of a list (txtWoord, txtDomein, txtGDomein).
    void txt_Change(int lijst, const QString& tekst);
    // Enter in a field acts as its add button.
    void txt_Enter(int lijst);
    // Selecting an entry (-1: none).
    void lst_Click(int lijst, int index);
    // The control array of the add and remove buttons: 2 * list adds, 2 * list + 1 removes.
    void cmdKnop_Click(int index);
    // Updates the list of the open tab (words or blocked sites) from the web.
    void cmdUpdaten_Click();
    void cmdOpslaan_Click();
    void cmdAnnuleren_Click();

    // modMain.VerbodenWoordenUpdaten: fetches the word list (or, with `sites`, the blocked
    // sites), merges what is new and tells how many. The number of new items, -1 on failure.
    int VerbodenWoordenUpdaten(bool sites);
    // The address of a list below the configured web address.
    static QUrl lijstAdres(const QString& webadres, bool sites);

    // --- state
    FilterLists lijsten;
    int Tab = 0;
    std::array<QString, FilterLists::Aantal> txt;
    std::array<int, FilterLists::Aantal> geselecteerd{-1, -1, -1};
    std::array<bool, 2 * FilterLists::Aantal> cmdKnopEnabled{};
    bool cmdUpdatenEnabled = true;
    bool Bezig = false; // an update or a save runs: the other controls wait
    bool Open = false;
    bool Opgeslagen = false;
    QString lblStatus;
    bool picStatusZichtbaar = false;
    int pbStatus = 0;

    // --- captions
    QString Caption, cmdUpdatenCaption, cmdOpslaanCaption, cmdAnnulerenCaption;
    std::array<QString, FilterLists::Aantal> tabCaption, lblCaption;
    std::array<QString, 2 * FilterLists::Aantal> cmdKnopCaption;
    // The count under a list ("Items in this list: 12").
    QString lblAantal(int lijst) const;

    // The view repaints when anything changed, and closes when the form is done.
    std::function<void()> onChanged;

private:
    void bijwerken();
    void meld(const QString& tekst);
    QString tekst(int id) const;
    Programma& p;
};

} // namespace tk
