#pragma once

#include "AddressVerdict.h"
#include "FilterList.h"
#include "FilterSettings.h"
#include "PageVerdict.h"
#include "WordMatcher.h"

#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace tk {

// The checks of the browser's filter as functions of text and lists: the address check before a
// navigation and the page check of a loaded page's title and body. Made once per login from
// `VerbodenWoorden` and `ToegestaneSites`, so that the word lists are taken apart and their
// matchers built once; the owner's settings come with each check.
//
// All comparisons are in lower case, over Windows-1252 bytes. Words are found with a boundary
// test whose "letters" differ on purpose: on a page they are B to Z ("A" is none), in an address
// A to Z.
class PageFilter {
public:
    // The address shown for a blocked page; always allowed.
    static constexpr QStringView GeblokkeerdAdres = u"http://internetfilter:niet toegestaan/";
    // The filter's local pages, under the program folder.
    static constexpr QStringView NietGoedgekeurdPagina = u"\\Internetfilter\\niet goedgekeurd.html";
    static constexpr QStringView NietGevondenPagina = u"\\Internetfilter\\niet gevonden.html";
    // A host that is refused whether the filter is on or off. It cannot exist (the top-level
    // domain is reserved), so it blocks nothing real; an administrator's test of the refusal
    // path, and a fixed point for tests.
    static constexpr QStringView VasteBlokkade = u"geblokkeerd.tafelkrater.invalid";
    // The caption while an address is checked and loaded, and of the filter's local pages.
    static constexpr QStringView LadenTitel = u"Laden...";
    static constexpr QStringView FilterTitel = u"Internetfilter";

    // String table ids of the filter's messages.
    static constexpr int TekstNietGevonden = 725; // caption after a navigation error
    static constexpr int TekstGeenTitel = 726;    // caption of a page without title
    static constexpr int TekstControleren = 730;  // status while a page is checked
    static constexpr int TekstNietGoedgekeurd = 731;
    static constexpr int TekstGoedgekeurd = 732;

    // The lowest "letter" of the boundary tests.
    static constexpr int LaagsteLetterPagina = 66;
    static constexpr int LaagsteLetterAdres = 65;

    PageFilter() = default;
    PageFilter(const QString& verbodenWoorden, const QString& toegestaneSites);

    // The check before a navigation to `adres`, in the browser's order (`BeforeNavigate2`).
    AddressVerdict checkAddress(const QString& adres, const FilterSettings& settings) const;
    // The item of VerbodenWoorden that refuses `adres`, or -1: an "url>" item found anywhere in
    // it, or a word with the address boundary test.
    int InternetFilterURL(const QString& adres) const;

    // The check of a loaded page: its address, title, document domain and body text.
    PageVerdict checkPage(const QString& adres, const QString& titel, const QString& domein,
                          const QString& tekst, const FilterSettings& settings) const;
    // The same with title and body as Windows-1252 bytes.
    PageVerdict checkPageBytes(const QString& adres, QByteArrayView titel, const QString& domein,
                               QByteArrayView tekst, const FilterSettings& settings) const;
    // The first item of VerbodenWoorden that hits in a title or body text, or -1.
    int firstWordIn(QByteArrayView tekst) const { return m_woorden.firstHit(tekst); }

    // An address whose page (before any "?" or "#") ends in one of the local pages' names:
    // never examined.
    static bool isLocalPage(const QString& adres);

    const FilterList& woorden() const { return m_lijst; }
    // What the two matchers hold (the lists themselves not counted).
    std::size_t matcherBytes() const { return m_woorden.memoryBytes() + m_urls.memoryBytes(); }
    const WordMatcher& pageMatcher() const { return m_woorden; }
    // The words (bounded) and the "url>" items (free) of a list, ids being list indexes.
    static QList<WordMatcher::Pattern> pagePatterns(const FilterList& lijst);
    static QList<WordMatcher::Pattern> urlPatterns(const FilterList& lijst);

private:
    FilterList m_lijst;
    FilterList m_sites;
    WordMatcher m_woorden; // the words: page passes, and the address check with more letters
    WordMatcher m_urls;    // the "url>" items of the address check
};

} // namespace tk
