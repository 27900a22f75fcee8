#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <array>

namespace tk {

// The three lists of the filter's editor as pure text: forbidden words and blocked sites, which
// the program keeps together in `VerbodenWoorden` (a blocked site with "url>" before it), and the
// allowed sites of `ToegestaneSites`. Every item that enters a list passes one rule (keur), and
// two items that differ only in case are the same item.
class FilterLists {
public:
    // In the order of the editor's tabs.
    enum Lijst { Woorden = 0, Sites = 1, GSites = 2 };
    static constexpr int Aantal = 3;

    enum class Keuring {
        Goed,
        Leeg,            // blank after trimming: no check would use it
        Dubbel,          // the list holds it already (case aside)
        Scheidingsteken, // holds "|", which would split it into two items
        Plus,            // a word that begins with "+" (see keur)
        Adres,           // a word that begins with "url>": stored so, it reads back as a site
        TeLang,          // longer than LangsteItem as the list stores it
        GeenTekst        // a control character, or one that Windows-1252 cannot hold
    };

    // The longest item as `VerbodenWoorden` stores it (a blocked site with its "url>"). The word
    // list is saved in pieces under 2000 characters, a later piece starting with "+": an item
    // must fit in one piece, or no cut can keep the pieces under that size.
    static constexpr int LangsteItem = 1998;

    // Splits the two strings into the three lists, each item trimmed. An item that does not
    // pass keur (an empty one from a doubled "|", a doubled item, one too long to save) is left
    // out and counted: saving then writes the lists without it.
    static FilterLists uit(const QString& verbodenWoorden, const QString& toegestaneSites);

    // The words, then every blocked site as "url>" plus the site, joined by "|"; empty lists
    // give an empty string, never a lone separator.
    QString verbodenWoorden() const;
    QString toegestaneSites() const;

    const QStringList& lijst(Lijst l) const { return m_lijsten[size_t(l)]; }
    int overgeslagen() const { return m_overgeslagen; }

    // Whether `tekst` (already trimmed) may join list `l`.
    Keuring keur(Lijst l, const QString& tekst) const;
    // Trims `tekst` and appends it when it passes; the verdict either way.
    Keuring toevoegen(Lijst l, const QString& tekst);
    bool verwijderen(Lijst l, int index);
    // Appends every item that passes, in order; the number appended. `geweigerd` counts the
    // items refused for another reason than that the list holds them already.
    int samenvoegen(Lijst l, const QStringList& items, int* geweigerd = nullptr);

    // Lower case as the filter compares: Windows-1252 letters included.
    static QString klein(const QString& tekst);
    // True when every character is one Windows-1252 holds and none is a control character.
    static bool isAnsiTekst(const QString& tekst);

private:
    void voegToe(Lijst l, const QString& item);
    std::array<QStringList, Aantal> m_lijsten;
    // Each list's items in lower case, so that the duplicate test of a merge of thousands of
    // items stays one lookup per item.
    std::array<QSet<QString>, Aantal> m_klein;
    int m_overgeslagen = 0;
};

} // namespace tk
