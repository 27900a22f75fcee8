#include "FilterLists.h"

#include "ByteCase.h"
#include "core/Ansi.h"

namespace tk {

namespace {

const QString url = QStringLiteral("url>");

} // namespace

QString FilterLists::klein(const QString& tekst) {
    QByteArray bytes = Ansi::naarBytes(tekst);
    for (char& c : bytes)
        c = char(ByteCase::lower(std::uint8_t(c)));
    return Ansi::naarTekst(bytes);
}

bool FilterLists::isAnsiTekst(const QString& tekst) {
    for (const QChar c : tekst) {
        const char16_t u = c.unicode();
        // Below a blank, DEL, and 0x80-0x9F: control characters, and the five bytes that
        // Windows-1252 leaves undefined read back as these.
        if (u < 0x20 || (u >= 0x7F && u < 0xA0))
            return false;
    }
    return Ansi::naarTekst(Ansi::naarBytes(tekst)) == tekst;
}

FilterLists FilterLists::uit(const QString& verbodenWoorden, const QString& toegestaneSites) {
    FilterLists uit;
    // Items are trimmed as a typed one is, so that every item in a list passes keur as it stands.
    auto neem = [&](Lijst l, const QString& item) {
        if (uit.toevoegen(l, item) != Keuring::Goed)
            ++uit.m_overgeslagen;
    };
    if (!verbodenWoorden.isEmpty())
        for (const QString& deel : verbodenWoorden.split(QLatin1Char('|'))) {
            const QString item = deel.trimmed();
            if (item.left(4).compare(url, Qt::CaseInsensitive) == 0)
                neem(GSites, item.mid(4));
            else
                neem(Woorden, item);
        }
    if (!toegestaneSites.isEmpty())
        for (const QString& item : toegestaneSites.split(QLatin1Char('|')))
            neem(Sites, item);
    return uit;
}

QString FilterLists::verbodenWoorden() const {
    QStringList items = lijst(Woorden);
    for (const QString& site : lijst(GSites))
        items.append(url + site);
    return items.join(QLatin1Char('|'));
}

QString FilterLists::toegestaneSites() const {
    return lijst(Sites).join(QLatin1Char('|'));
}

FilterLists::Keuring FilterLists::keur(Lijst l, const QString& tekst) const {
    if (tekst.trimmed().isEmpty())
        return Keuring::Leeg;
    if (tekst.contains(QLatin1Char('|')))
        return Keuring::Scheidingsteken;
    // The server takes a piece of the word list that begins with "+" as the next piece of the
    // one before. The first piece begins with the first word, and the wire has no escape: a
    // first word "+x" would append the whole list to the stored one. So no word begins so.
    if (l == Woorden && tekst.startsWith(QLatin1Char('+')))
        return Keuring::Plus;
    if (l == Woorden && tekst.left(4).compare(url, Qt::CaseInsensitive) == 0)
        return Keuring::Adres;
    if (tekst.size() + (l == GSites ? url.size() : 0) > LangsteItem)
        return Keuring::TeLang;
    if (!isAnsiTekst(tekst))
        return Keuring::GeenTekst;
    // A blocked site is compared with the other blocked sites only: a word and a site of the
    // same text are different items ("kat" in pages, "url>kat" in addresses).
    return m_klein[size_t(l)].contains(klein(tekst)) ? Keuring::Dubbel : Keuring::Goed;
}

FilterLists::Keuring FilterLists::toevoegen(Lijst l, const QString& tekst) {
    const QString item = tekst.trimmed();
    const Keuring k = keur(l, item);
    if (k == Keuring::Goed)
        voegToe(l, item);
    return k;
}

void FilterLists::voegToe(Lijst l, const QString& item) {
    m_lijsten[size_t(l)].append(item);
    m_klein[size_t(l)].insert(klein(item));
}

bool FilterLists::verwijderen(Lijst l, int index) {
    QStringList& lijst = m_lijsten[size_t(l)];
    if (index < 0 || index >= lijst.size())
        return false;
    m_klein[size_t(l)].remove(klein(lijst.takeAt(index)));
    return true;
}

int FilterLists::samenvoegen(Lijst l, const QStringList& items, int* geweigerd) {
    int nieuw = 0;
    for (const QString& item : items) {
        const Keuring k = toevoegen(l, item);
        if (k == Keuring::Goed)
            ++nieuw;
        else if (geweigerd && k != Keuring::Dubbel)
            ++*geweigerd;
    }
    return nieuw;
}

} // namespace tk
