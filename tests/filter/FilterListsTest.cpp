// The editor's lists as text: how the stored strings come apart and go together again, which
// items may enter a list, and how a downloaded list is read (its merge is the editor's update).
#include "filter/FilterLists.h"
#include "filter/DownloadedList.h"

#include <gtest/gtest.h>

using namespace tk;
using K = FilterLists::Keuring;
using U = DownloadedList::Uitkomst;

namespace {

QString s(const char* tekst) {
    return QString::fromUtf8(tekst);
}
QStringList l(const char* tekst) {
    return tekst[0] ? s(tekst).split(QLatin1Char(',')) : QStringList();
}

} // namespace

TEST(FilterLists, TheStoredStringsComeApartAndGoTogetherAgain) {
    const QString lang(10'000, QLatin1Char('w'));
    const QString passend(FilterLists::LangsteItem, QLatin1Char('w'));
    const QString site(FilterLists::LangsteItem - 4, QLatin1Char('s'));
    struct Case {
        QString woorden, sites;
        const char *lstLijst, *lstSites, *lstGSites;
        int overgeslagen;
        QString woordenTerug, sitesTerug;
    };
    const Case cases[] = {
        {s("kat|URL>slecht.nl|hond"), s("a.nl|b.nl"), "kat,hond", "a.nl,b.nl", "slecht.nl", 0,
         s("kat|hond|url>slecht.nl"), s("a.nl|b.nl")},
        {QString(), QString(), "", "", "", 0, QString(), QString()},
        // Empty items of a doubled, leading or trailing "|" and doubles are left out.
        {s("|kat||Kat|url>|url>x.nl|URL>X.NL|"), s("||a.nl||"), "kat", "a.nl", "x.nl", 10,
         s("kat|url>x.nl"), s("a.nl")},
        // An item too long for a piece of the saved list is left out; the longest that fits stays.
        {lang + s("|kat|") + passend + s("|url>") + site + s("|url>x") + site, QString(), "", "",
         "", 2, s("kat|") + passend + s("|url>") + site, QString()},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.woorden.left(40).toStdString());
        const FilterLists f = FilterLists::uit(c.woorden, c.sites);
        if (c.woorden.size() < 1000) {
            EXPECT_EQ(f.lijst(FilterLists::Woorden), l(c.lstLijst));
            EXPECT_EQ(f.lijst(FilterLists::Sites), l(c.lstSites));
            EXPECT_EQ(f.lijst(FilterLists::GSites), l(c.lstGSites));
        }
        EXPECT_EQ(f.overgeslagen(), c.overgeslagen);
        EXPECT_EQ(f.verbodenWoorden(), c.woordenTerug);
        EXPECT_EQ(f.toegestaneSites(), c.sitesTerug);
    }
    // Removing the last item leaves an empty string, not a lone separator; it may come back.
    FilterLists f = FilterLists::uit(s("kat|url>x.nl"), QString());
    EXPECT_FALSE(f.verwijderen(FilterLists::Woorden, 1));
    EXPECT_TRUE(f.verwijderen(FilterLists::GSites, 0) && f.verwijderen(FilterLists::Woorden, 0));
    EXPECT_EQ(f.verbodenWoorden(), QString());
    EXPECT_EQ(f.toevoegen(FilterLists::Woorden, s("KAT")), K::Goed);
}

TEST(FilterLists, AnItemEntersAListOnceWhateverItsCase) {
    struct Case {
        FilterLists::Lijst lijst;
        QString tekst;
        K keuring;
    };
    const Case cases[] = {
        {FilterLists::Woorden, s("KAT"), K::Dubbel},
        {FilterLists::Woorden, s("  kat\t"), K::Dubbel},
        {FilterLists::Woorden, s("ÉÉN"), K::Dubbel}, // Windows-1252 letters have a case too
        {FilterLists::Woorden, s("ŠKODA"), K::Dubbel},
        {FilterLists::Woorden, s("katten"), K::Goed},
        {FilterLists::Woorden, s("twee woorden"), K::Goed},
        {FilterLists::GSites, s("kat"), K::Goed}, // a site is not a word
        {FilterLists::GSites, s("SLECHT.nl"), K::Dubbel},
        {FilterLists::Sites, s("slecht.nl"), K::Goed},
        {FilterLists::Woorden, s(""), K::Leeg},
        {FilterLists::Woorden, s(" \t "), K::Leeg},
        {FilterLists::Woorden, s("a|b"), K::Scheidingsteken},
        {FilterLists::Woorden, s("+18"), K::Plus},
        {FilterLists::GSites, s("+18.nl"), K::Goed},
        {FilterLists::Woorden, s("URL>kat"), K::Adres}, // it would read back as a site
        {FilterLists::GSites, s("url>kat"), K::Goed},
        {FilterLists::Woorden, s("€uro"), K::Goed},
        {FilterLists::Woorden, s("łódź"), K::GeenTekst},
        {FilterLists::Woorden, s("a\tb"), K::GeenTekst},
        {FilterLists::Woorden, QString(QChar(0x81)) + s("x"), K::GeenTekst},
        {FilterLists::Woorden, s("x\x7f"), K::GeenTekst},
        {FilterLists::Woorden, QString(FilterLists::LangsteItem + 1, QLatin1Char('w')), K::TeLang},
        {FilterLists::GSites, QString(FilterLists::LangsteItem - 3, QLatin1Char('s')), K::TeLang},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.tekst.left(40).toStdString());
        FilterLists f = FilterLists::uit(s("kat|één|škoda|url>slecht.nl"), QString());
        EXPECT_EQ(f.toevoegen(c.lijst, c.tekst), c.keuring);
        EXPECT_EQ(f.lijst(c.lijst).size(), (c.lijst == FilterLists::Woorden ? 3 : 1) -
                                               (c.lijst == FilterLists::Sites) +
                                               (c.keuring == K::Goed));
        if (c.keuring == K::Goed) {
            EXPECT_EQ(f.lijst(c.lijst).last(), c.tekst.trimmed());
        }
    }
}

TEST(DownloadedList, LinesInEveryEndingAndAnswersThatAreNoList) {
    struct Case {
        const char* naam;
        QByteArray inhoud;
        QByteArray soort;
        U uitkomst;
        QStringList items;
    };
    // clang-format off
    const Case cases[] = {
        {"CR LF", "kat\r\nhond\r\n", "text/plain", U::Lijst, {s("kat"), s("hond")}},
        {"LF", "kat\nhond", "", U::Lijst, {s("kat"), s("hond")}},
        {"CR", "kat\rhond\r", "", U::Lijst, {s("kat"), s("hond")}},
        {"empty lines and blanks", "\n\r\n  kat \n\t\n", "", U::Lijst, {s("kat")}},
        {"url> removed", "url>a.nl\r\nURL>b.nl", "", U::Lijst, {s("a.nl"), s("b.nl")}},
        {"| separates", "a|b||c|", "", U::Lijst, {s("a"), s("b"), s("c")}},
        {"nothing", "", "text/plain", U::Lijst, {}},
        {"UTF-8 with BOM", "\xEF\xBB\xBF" "caf\xC3\xA9", "", U::Lijst, {s("café")}},
        {"UTF-8", "caf\xC3\xA9\nna\xC3\xAF" "ef", "", U::Lijst, {s("café"), s("naïef")}},
        {"Windows-1252", "caf\xE9\n\x80uro", "", U::Lijst, {s("café"), s("€uro")}},
        {"charset named", "caf\xC3\xA9", "text/plain; charset=Windows-1252", U::Lijst, {s("cafÃ©")}},
        {"UTF-8 named, other bytes", "caf\xE9", "text/plain; charset=\"UTF-8\"", U::Lijst, {s("caf\uFFFD")}},
        {"undefined byte", "\x81x", "", U::Lijst, {QString(QChar(0x81)) + s("x")}},
        {"octet stream", "kat", "application/octet-stream", U::Lijst, {s("kat")}},
        {"a web page", "<html>kat</html>", "text/html; charset=utf-8", U::GeenTekst, {}},
        {"a picture", "kat", "image/png", U::GeenTekst, {}},
        {"a NUL byte", QByteArray("kat\0hond", 8), "text/plain", U::GeenTekst, {}},
        {"too large", QByteArray(DownloadedList::GrootsteLijst + 1, 'a'), "", U::TeGroot, {}},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.naam);
        const DownloadedList::Resultaat r = DownloadedList::lees(c.inhoud, c.soort);
        EXPECT_EQ(r.uitkomst, c.uitkomst);
        EXPECT_EQ(r.items, c.items);
    }
    // The largest list allowed is read.
    EXPECT_EQ(DownloadedList::lees(QByteArray(DownloadedList::GrootsteLijst, 'a')).items.size(), 1);
}
