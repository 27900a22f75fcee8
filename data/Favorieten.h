#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace tk {

// The favourites of one owner ("Groep<id>" or "Leraar<id>") as the server keeps them: a header
// of four values and a list of favourites of four values each (address, name, a third value,
// "Ja" when active). Parsed from and written to the wire form "header;<>;list".
class Favorieten {
public:
    // Splits an answer: element 0 the header ("|"-joined), element 1 the list ("><"-joined
    // favourites of "|"-joined values). A list without "><" holds one favourite or none.
    static Favorieten uitAntwoord(const QString& antwoord);
    // "header;<>;list", the form of the answer and of the save.
    QString alsTekst() const;
    // The wire has no escapes: a value holding "|", "<" or ">" would come back split, or joined
    // with its neighbour into one more favourite. Removes those characters from every value
    // (none belongs in an address, and a name loses little); gives how many values changed.
    int zonderScheidingstekens();

    // The header: the internet mode as a number (text), then "Ja" or "Nee" for the home page,
    // filtering, and blocking the internet outside the shell.
    QString Internetmodus;
    QString Thuispagina;
    QString Filteren;
    QString Blokkeren;
    // Each favourite as its four values (missing values are empty).
    QList<QStringList> Lijst;

    // The active favourites (fourth value "Ja" in any case), at most `maximum`.
    QList<QStringList> actieve(int maximum = 100) const;

    bool operator==(const Favorieten&) const = default;
};

} // namespace tk
