#include "BrowserTabs.h"

namespace tk {

std::optional<BrowserTabs::Knop> BrowserTabs::knop(int index) {
    switch (index) {
    case 0:
        return Knop::Terug;
    case 1:
        return Knop::Vooruit;
    case 2:
        return Knop::Stop;
    case 3:
        return Knop::Vernieuwen;
    case 4:
        return Knop::Thuis;
    case 6:
        return Knop::Favorieten;
    case 8:
        return Knop::Afdrukken;
    default:
        return std::nullopt;
    }
}

int BrowserTabs::knopTekst(Knop k) {
    switch (k) {
    case Knop::Terug:
        return 737;
    case Knop::Vooruit:
        return 738;
    case Knop::Stop:
        return 739;
    case Knop::Vernieuwen:
        return 740;
    case Knop::Thuis:
        return 741;
    case Knop::Favorieten:
        return 742;
    case Knop::Afdrukken:
        return 601;
    }
    return 0;
}

QRect BrowserTabs::weergave(bool paneel, int breedte, int hoogte) {
    const int links = paneel ? LinksMetPaneel : Rand;
    return QRect(links, Rand, qMax(0, breedte - links - Rand), qMax(0, hoogte - 2 * Rand));
}

QRect BrowserTabs::favorietenPaneel(int hoogte) {
    return QRect(Rand, Rand, LinksMetPaneel - 2 * Rand, qMax(0, hoogte - 2 * Rand));
}

int BrowserTabs::NieuwTabblad(const QString& titel) {
    for (int slot = 0; slot < MaxTabs; ++slot) {
        Tabblad& t = m_tabs[slot];
        if (t.InGebruik)
            continue;
        const quint64 navigatie = t.navigatie;
        t = Tabblad{};
        // The count goes on over the slot's lives: a late check of the tab that was closed
        // here must not pass for one of the new tab.
        t.navigatie = navigatie + 1;
        t.InGebruik = true;
        t.Titel = titel;
        m_strip.append(slot);
        m_actief = slot;
        return slot;
    }
    return -1;
}

bool BrowserTabs::Sluiten(int slot) {
    const qsizetype plaats = m_strip.indexOf(slot);
    if (plaats < 0 || m_strip.size() <= 1)
        return false;
    m_strip.removeAt(plaats);
    m_tabs[slot].InGebruik = false;
    ++m_tabs[slot].navigatie;
    if (m_actief == slot)
        m_actief = m_strip.at(plaats > 0 ? plaats - 1 : 0);
    return true;
}

QList<int> BrowserTabs::InternetSluiten() {
    QList<int> vrij;
    while (m_strip.size() > 1) {
        const int slot = m_strip.takeLast();
        m_tabs[slot].InGebruik = false;
        ++m_tabs[slot].navigatie;
        vrij.append(slot);
    }
    if (!m_strip.isEmpty())
        m_actief = m_strip.first();
    return vrij;
}

bool BrowserTabs::WijzigTab(int slot) {
    if (!geldig(slot))
        return false;
    m_actief = slot;
    return true;
}

quint64 BrowserTabs::nieuweNavigatie(int slot) {
    if (slot < 0 || slot >= MaxTabs)
        return 0;
    return ++m_tabs[slot].navigatie;
}

bool BrowserTabs::actueel(int slot, quint64 navigatie) const {
    return geldig(slot) && m_tabs[slot].navigatie == navigatie;
}

bool BrowserTabs::zetTitel(int slot, const QString& titel) {
    if (!geldig(slot))
        return false;
    m_tabs[slot].Titel = titel;
    return slot == m_actief;
}

bool BrowserTabs::zetAdres(int slot, const QString& adres) {
    if (!geldig(slot))
        return false;
    m_tabs[slot].Adres = adres;
    return slot == m_actief;
}

bool BrowserTabs::zetStatus(int slot, const QString& status) {
    if (!geldig(slot))
        return false;
    m_tabs[slot].Status = status;
    return slot == m_actief;
}

bool BrowserTabs::zetVoortgang(int slot, int voortgang, int maximum) {
    if (!geldig(slot))
        return false;
    m_tabs[slot].Voortgang = voortgang;
    m_tabs[slot].Maximum = maximum;
    return slot == m_actief;
}

bool BrowserTabs::zetGeladen(int slot, bool geladen) {
    if (!geldig(slot))
        return false;
    m_tabs[slot].Geladen = geladen;
    return slot == m_actief;
}

} // namespace tk
