#pragma once

#include <QList>
#include <QRect>
#include <QString>

#include <array>
#include <optional>

namespace tk {

// The tabs of the desktop's internet pane as data: 40 slots, each with its record, the order of
// the tabs on the strip (by slot) and the active slot. The view keeps one browser view per slot
// and asks this model which slot a new tab takes, which one to show after a close, and whether a
// page check that comes back late still belongs to the page the tab shows.
class BrowserTabs {
public:
    static constexpr int MaxTabs = 40;
    static constexpr int TekstTeVeelTabs = 727; // "too many tabs"
    static constexpr int TekstGeenTitel = 726;  // the caption until the page gives one

    // The record of one slot.
    struct Tabblad {
        QString Titel;
        QString Adres;
        QString Status;
        int Voortgang = 0; // 0 when nothing loads: the progress bar is hidden
        int Maximum = 100;
        bool InGebruik = false;
        bool Geladen = false;
        // Counts the navigations of the slot, so that a check of an older one is dropped.
        quint64 navigatie = 0;
    };

    // The toolbar's buttons by their index; the gaps are separators.
    enum class Knop {
        Terug = 0,
        Vooruit = 1,
        Stop = 2,
        Vernieuwen = 3,
        Thuis = 4,
        Favorieten = 6,
        Afdrukken = 8
    };
    static std::optional<Knop> knop(int index);
    // The string that names a button, on its face for a screen reader and in its tooltip.
    static int knopTekst(Knop k);

    // Where a tab's view stands in the pane's page area of `breedte` by `hoogte`: two pixels in
    // from every edge, and with the favourites panel open from 216 on (the panel fills 2 to
    // 214). The view takes the rest of the width, 1000 at the area's design width of 1004.
    static constexpr int LinksMetPaneel = 216;
    static constexpr int Rand = 2;
    static QRect weergave(bool paneel, int breedte, int hoogte);
    static QRect favorietenPaneel(int hoogte);

    // NieuwTabblad: the first free slot, put at the end of the strip with `titel`, made active;
    // -1 when all 40 are in use.
    int NieuwTabblad(const QString& titel);
    // Closes the tab of `slot` and shows the one left of it; the last tab stays. Returns
    // whether the slot was freed.
    bool Sluiten(int slot);
    // InternetSluiten: all tabs but the first on the strip go; the slots freed, last first.
    QList<int> InternetSluiten();
    // WijzigTab: makes `slot` (in use) the active one.
    bool WijzigTab(int slot);

    int TabIndex() const { return m_actief; }
    const Tabblad& tab(int slot) const { return m_tabs.at(slot); }
    // The slots in use in the order of the strip.
    const QList<int>& strip() const { return m_strip; }
    int aantal() const { return int(m_strip.size()); }

    // A new navigation of `slot` began: the number that its page check carries.
    quint64 nieuweNavigatie(int slot);
    bool actueel(int slot, quint64 navigatie) const;

    // The events of a slot's page. Each stores into the record; the answer tells whether the
    // slot is the active one, so that the view shows it.
    bool zetTitel(int slot, const QString& titel);
    bool zetAdres(int slot, const QString& adres);
    bool zetStatus(int slot, const QString& status);
    bool zetVoortgang(int slot, int voortgang, int maximum = 100);
    bool zetGeladen(int slot, bool geladen);

private:
    bool geldig(int slot) const { return slot >= 0 && slot < MaxTabs && m_tabs[slot].InGebruik; }
    std::array<Tabblad, MaxTabs> m_tabs{};
    QList<int> m_strip;
    int m_actief = 0;
};

} // namespace tk
