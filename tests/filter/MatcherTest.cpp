// The boundary tests of pages and addresses, and the one-pass matcher against the word-by-word
// loop: every row and every generated case is answered by both.
#include "filter/PageFilter.h"
#include "filter/WordLoop.h"
#include "filter/WordMatcher.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace tk;

namespace {

QList<WordMatcher::Pattern> woorden(const QList<QByteArray>& lijst, bool bounded = true) {
    QList<WordMatcher::Pattern> uit;
    for (qsizetype i = 0; i < lijst.size(); ++i)
        uit.append({lijst[i], int(i), bounded});
    return uit;
}

// Both implementations, which must agree; the answer of the loop.
int eersteTreffer(const QList<WordMatcher::Pattern>& lijst, QByteArrayView tekst, int laagste) {
    const int loop = WordLoop::firstHit(lijst, tekst, laagste);
    EXPECT_EQ(loop, WordMatcher(lijst, laagste).firstHit(tekst)) << "matcher differs from loop";
    return loop;
}

bool treffer(const char* tekst, const char* woord, int laagste) {
    return eersteTreffer(woorden({QByteArray(woord)}), QByteArrayView(tekst), laagste) == 0;
}

} // namespace

TEST(BoundaryTest, NeighboursOnAPageAndInAnAddress) {
    struct Case {
        const char* tekst;
        const char* woord;
        bool pagina; // "A" is no letter on a page
        bool adres;  // but is one in an address
    };
    const Case cases[] = {
        {"een kat zit", "kat", true, true},
        {"akat", "kat", true, false},
        {"AkatA", "kat", true, false},
        {"bkat", "kat", false, false},
        {"Bkat", "kat", false, false},
        {"katz", "kat", false, false},
        {"katZ", "kat", false, false},
        {"Zkat", "kat", false, false},
        {"kata", "kat", true, false},
        {"1kat2", "kat", true, true},
        {"_kat-", "kat", true, true},
        {"[kat]", "kat", true, true}, // "[" and "]" lie just outside A-Z
        {"@kat`", "kat", true, true},
        {"\xe9kat\xe9", "kat", true, true}, // accented letters are above Z, upper case or not
        {"\xc9kat\xc9", "kat", true, true},
        {"\232kat\212", "kat", true, true}, // octal: lower and upper S with caron
        {"KAT", "kat", true, true},         // the whole text: no neighbour on either side
        {"kat is weg", "kat", true, true},
        {"weg is de kat", "kat", true, true},
        {"katten", "kat", false, false},
        {"dekat", "kat", false, false},
        {"kat", "kater", false, false},
        {"CAF\xc9 open", "caf\xe9", true, true}, // lower case of the code page on both sides
        {"\212ARLOTA", "\232arlota", true, true},
        {"de k4t", "k4t", true, true},
        {"", "kat", false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.tekst);
        EXPECT_EQ(c.pagina, treffer(c.tekst, c.woord, PageFilter::LaagsteLetterPagina));
        EXPECT_EQ(c.adres, treffer(c.tekst, c.woord, PageFilter::LaagsteLetterAdres));
    }
}

TEST(BoundaryTest, AnOccurrenceThatFailsHidesTheOnesOverlappingIt) {
    // The search goes on behind a failed occurrence, so an overlapping later one is never seen.
    struct Case {
        const char* tekst;
        const char* woord;
        bool hit;
    };
    const Case cases[] = {
        {"Baaa ", "aa", false},      // "aa" at 1 fails on B; the one at 2 is skipped
        {" aaa ", "aa", true},       // the first one has "a" behind it: no letter
        {"Baaaa ", "aa", true},      // 1 fails, 3 is next in the chain and passes
        {"Bhahaha ", "haha", false}, // 1 fails on B, 3 overlaps it; 5 has no room
        {"Bhahahaha ", "haha", true}, {"xhaha haha", "haha", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.tekst);
        EXPECT_EQ(c.hit, treffer(c.tekst, c.woord, PageFilter::LaagsteLetterPagina));
    }
}

TEST(BoundaryTest, TheFirstWordOfTheListThatHitsWins) {
    struct Case {
        QList<QByteArray> lijst;
        const char* tekst;
        int verwacht;
    };
    const Case cases[] = {
        {{"hond", "kat"}, "een kat en een hond", 0}, // list order, not text order
        {{"hond", "kat"}, "een kat en een honden", 1},
        {{"katten", "kat"}, "katten", 0},
        {{"kat", "katten"}, "katten", 1},
        {{"Kat", "kat"}, "KAT", 0},
        {{"", "kat"}, "kat", 1},
        {{"een kat", "kat"}, "een kat", 0}, // a blank inside an item is searched as it is
        {{"zebra", "ezel"}, "geen dieren", -1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.tekst);
        EXPECT_EQ(c.verwacht, eersteTreffer(woorden(c.lijst), QByteArrayView(c.tekst),
                                            PageFilter::LaagsteLetterPagina));
    }
}

TEST(BoundaryTest, FreeWordsHitAnywhereAndBoundedOnesNeedBoundaries) {
    QList<WordMatcher::Pattern> lijst = woorden({"kat", "slecht.nl"});
    lijst[1].bounded = false;
    EXPECT_EQ(1, eersteTreffer(lijst, "http://www.heelslecht.nl/", 65));
    EXPECT_EQ(0, eersteTreffer(lijst, "http://slecht.nl/kat", 65));
    EXPECT_EQ(-1, eersteTreffer(lijst, "http://katten.nl/", 65));
}

// Generated lists and texts from a few bytes: the matcher must give the loop's answer in every
// case, and the generator must make both outcomes often, or the comparison proves little.
class MatcherCrossCheck : public ::testing::Test {
protected:
    int kies(int van, int tot) { return std::uniform_int_distribution<int>(van, tot)(rng); }
    QByteArray maak(int lengte) {
        QByteArray uit;
        for (int i = 0; i < lengte; ++i)
            uit.append(tekens[kies(0, int(tekens.size()) - 1)]);
        return uit;
    }
    void vergelijk(const QList<WordMatcher::Pattern>& lijst, const QByteArray& tekst, int laagste) {
        const int verwacht = WordLoop::firstHit(lijst, tekst, laagste);
        treffers += verwacht >= 0;
        ++gevallen;
        // Both ways of reading: by the places behind non-letters, and every place (addresses).
        for (const bool kort : {false, true})
            if (verwacht != WordMatcher(lijst, laagste, kort).firstHit(tekst))
                ADD_FAILURE() << "matcher (short texts " << kort << ") differs from loop on \""
                              << tekst.toStdString() << "\"";
        // As the address check uses them: the bounded words built for pages, read with the
        // address's letters, and the free words apart.
        if (laagste == PageFilter::LaagsteLetterAdres) {
            QList<WordMatcher::Pattern> begrensd, vrij;
            for (const auto& p : lijst)
                (p.bounded ? begrensd : vrij).append(p);
            const int woord = WordMatcher(begrensd, PageFilter::LaagsteLetterPagina)
                                  .firstHit(tekst, PageFilter::LaagsteLetterAdres);
            const int url = WordMatcher(vrij, laagste, true).firstHit(tekst);
            const int samen = woord < 0 ? url : url < 0 ? woord : std::min(woord, url);
            if (verwacht != samen)
                ADD_FAILURE() << "split matchers differ from loop on \"" << tekst.toStdString()
                              << "\"";
        }
    }
    void TearDown() override {
        EXPECT_GT(treffers, gevallen / 5);
        EXPECT_LT(treffers, gevallen * 4 / 5);
    }

    std::mt19937 rng{20261125};
    QByteArray tekens;
    int treffers = 0;
    int gevallen = 0;
};

// Hits, near-misses, case pairs and words that overlap themselves.
TEST_F(MatcherCrossCheck, AgreesWithTheWordLoopOnGeneratedPagesAndLists) {
    tekens = QByteArray("aAbBkKzZbkz 1.-") + "\xe9\xc9\x8a\x9a";
    for (int geval = 0; geval < 8000 && !HasFailure(); ++geval) {
        // Half the cases: short texts and words of any length; the other half long texts (read
        // 64 bytes at a time) and words of four bytes or more (entered by their first four).
        const bool lang = geval % 4 >= 2;
        QList<WordMatcher::Pattern> lijst;
        const int aantal = kies(1, 12);
        for (int i = 0; i < aantal; ++i) {
            // Some words of one letter repeated or "ha" repeated, which overlap themselves.
            QByteArray woord = kies(0, 5) == 0 ? QByteArray(kies(1, 6), 'a') : maak(kies(2, 7));
            if (kies(0, 4) == 0)
                woord = QByteArray("ha").repeated(kies(1, 4));
            if (lang && woord.size() < 4)
                woord = maak(4) + woord;
            lijst.append({woord, i, kies(0, 5) != 0});
        }
        const bool adres = geval % 2 == 1;
        if (!adres)
            for (auto& p : lijst)
                p.bounded = true;
        QByteArray tekst = maak(lang ? kies(60, 400) : kies(0, 80));
        // Plant listed words, and copies with one byte changed, in the text.
        for (int i = kies(0, lang ? 3 : 2); i > 0; --i) {
            QByteArray woord = lijst[kies(0, aantal - 1)].bytes;
            if (kies(0, 2) == 0)
                woord[kies(0, int(woord.size()) - 1)] = tekens[kies(0, int(tekens.size()) - 1)];
            tekst.insert(kies(0, int(tekst.size())), woord);
        }
        vergelijk(lijst, tekst,
                  adres ? PageFilter::LaagsteLetterAdres : PageFilter::LaagsteLetterPagina);
    }
}

// Long pages are read in chunks of 8 KB, and words of 64 bytes or more take another way: words
// planted across the chunk borders and at the end, among near-misses of them. Each word begins
// with an "x" that the text has nowhere else.
TEST_F(MatcherCrossCheck, AgreesOnLongPagesAcrossChunkBorders) {
    tekens = "bkzBKZ aA.";
    for (int geval = 0; geval < 300 && !HasFailure(); ++geval) {
        QList<WordMatcher::Pattern> lijst;
        const bool heelLang = geval % 3 == 0;
        for (int i = 0; i < 6; ++i)
            lijst.append({"x" + maak(heelLang && i == 5 ? kies(62, 70) : kies(3, 12)), i, true});
        QByteArray tekst = maak(kies(8100, 17000));
        for (int i = 0; i < 6; ++i) {
            QByteArray woord = lijst[kies(0, 5)].bytes;
            if (kies(0, 1) == 0)
                woord[kies(0, int(woord.size()) - 1)] = 'q';
            const int plaats = std::clamp(kies(0, 2) * 8192 - kies(0, 80), 0, int(tekst.size()));
            tekst.replace(plaats, std::min(woord.size(), tekst.size() - plaats), woord);
        }
        if (kies(0, 3) == 0)
            tekst += " " + lijst[kies(0, 5)].bytes;
        vergelijk(lijst, tekst, PageFilter::LaagsteLetterPagina);
    }
}

// Many words over few letters: nodes with many branches, which are searched by halves.
TEST_F(MatcherCrossCheck, AgreesWithManyWordsOverFewLetters) {
    tekens = "bklmnprstBK ";
    for (int geval = 0; geval < 400 && !HasFailure(); ++geval) {
        QList<WordMatcher::Pattern> lijst;
        for (int i = 0; i < 60; ++i)
            lijst.append({maak(kies(3, 6)).trimmed(), i, geval % 2 == 0 || kies(0, 3) != 0});
        QByteArray tekst = maak(kies(0, 150));
        if (kies(0, 2) == 0)
            tekst.insert(kies(0, int(tekst.size())), " " + lijst[kies(0, 59)].bytes + " ");
        vergelijk(lijst, tekst,
                  geval % 2 == 0 ? PageFilter::LaagsteLetterPagina
                                 : PageFilter::LaagsteLetterAdres);
    }
}

TEST(MatcherBadInput, OddListsAndBytesGiveAnAnswer) {
    const QByteArray lang(10000, 'k');
    const QList<WordMatcher::Pattern> lijst =
        woorden({"", lang, QByteArray("\x00\x81\xff", 3), "\x7f", "kat"});
    const int laagste = PageFilter::LaagsteLetterPagina;
    EXPECT_EQ(1, eersteTreffer(lijst, " " + lang + " ", laagste));
    EXPECT_EQ(4, eersteTreffer(lijst, QByteArray(9999, 'k') + " kat", laagste));
    EXPECT_EQ(2, eersteTreffer(lijst, QByteArray("1\x00\x81\xff", 4), laagste));
    EXPECT_EQ(3, eersteTreffer(lijst, QByteArray("\x7f"), laagste));
    const QByteArray nul("\x00\x00kaz", 5);
    EXPECT_EQ(0, eersteTreffer(woorden({nul}), "--" + nul.repeated(20), laagste));
    EXPECT_EQ(-1, eersteTreffer(lijst, QByteArray(20000, '\x81'), laagste));
    EXPECT_EQ(-1, eersteTreffer({}, "kat", laagste));
    EXPECT_EQ(-1, WordMatcher().firstHit("kat"));
}
