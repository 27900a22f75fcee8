#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace tk {

// A "|"-joined list of the filter (`VerbodenWoorden`, `ToegestaneSites`, the favourites'
// addresses) taken apart once per login, each item also as the Windows-1252 bytes the checks
// compare.
class FilterList {
public:
    struct Item {
        QString tekst;    // the item as the list holds it
        QByteArray woord; // what is searched: Windows-1252 bytes, without an "url>" prefix
        bool url = false; // an "url>" item: addresses only, found anywhere, no boundary test
        // Blank after trimming (spaces, tabs, line ends): no check uses it. An empty search text
        // would be found at every position and, for a site, allow every address; so an empty
        // item from a doubled "|" is passed over, as a blank word is in the page passes.
        bool blanco = false;
    };

    // `VerbodenWoorden`: an item beginning with "url>" (in any case) is an address item.
    static FilterList verbodenWoorden(const QString& lijst);
    // `ToegestaneSites` or favourites: every item is an address part, none has a prefix.
    static FilterList sites(const QString& lijst);
    static FilterList sites(const QStringList& items);

    const QList<Item>& items() const { return m_items; }
    const Item& item(int index) const { return m_items[index]; }
    // The index of the first usable item that occurs in `tekst` (both lower-cased), or -1.
    int eersteIn(const QString& tekst) const;

private:
    QList<Item> m_items;
};

} // namespace tk
