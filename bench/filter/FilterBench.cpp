// The page check with a list of 1,000 and 30,000 words over pages of 100 KB and 10 MB, of
// ordinary text and of text dense with near-misses (prefixes of listed words, words one letter
// off), the one-pass matcher beside the word-by-word loop (on a 1 MB slice of the big pages);
// the matcher's build time and size; the editor's lists opened and an update of as many words
// merged into them.
//
// Goals at 30,000 words: 1,000 MB/s on ordinary text, 300 MB/s on near-miss text, built in
// 50 ms, at most 8 MB.
#include "filter/DownloadedList.h"
#include "filter/FilterList.h"
#include "filter/FilterLists.h"
#include "filter/PageFilter.h"
#include "filter/WordLoop.h"
#include "filter/WordMatcher.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <map>
#include <random>
#include <set>
#include <tuple>

using namespace tk;

namespace {

// Made-up words of 4 to 10 letters, with the letter frequencies of Dutch prose.
class Woordmaker {
public:
    explicit Woordmaker(unsigned zaad) : m_rng(zaad) {}
    QByteArray woord() {
        const char* letters = "eeeeeeeeennnnnnaaaaaaatttttiiiiiirrrrrooooodddddsssslllggvvhhkk"
                              "mmuubppwjzcfy";
        const int lengte = kies(4, 10);
        QByteArray w;
        for (int i = 0; i < lengte; ++i)
            w.append(letters[kies(0, int(std::strlen(letters)) - 1)]);
        return w;
    }
    int kies(int van, int tot) { return std::uniform_int_distribution<int>(van, tot)(m_rng); }

private:
    std::mt19937 m_rng;
};

// Everyday words of the ordinary text.
const char* const gewoneWoorden[] = {
    "de",       "het",    "een",     "en",     "van",   "ik",     "te",     "dat",    "die",
    "in",       "is",     "niet",    "op",     "aan",   "met",    "als",    "voor",   "zijn",
    "er",       "maar",   "om",      "hem",    "dan",   "zou",    "wat",    "mijn",   "men",
    "dit",      "zo",     "door",    "over",   "ze",    "zich",   "bij",    "ook",    "tot",
    "je",       "mij",    "uit",     "der",    "daar",  "haar",   "naar",   "heb",    "hoe",
    "heeft",    "hebben", "deze",    "school", "klas",  "leraar", "les",    "boek",   "lezen",
    "rekenen",  "pauze",  "fiets",   "huis",   "stad",  "water",  "zomer",  "winter", "vakantie",
    "computer", "the",    "and",     "of",     "to",    "page",   "search", "news",   "weather",
    "home",     "about",  "contact", "menu",   "photo", "video",  "2024",   "12:30",
};

// The list: made-up words, none of which hits in an everyday word.
const QString& lijst(int aantal) {
    static std::map<int, QString> lijsten;
    QString& l = lijsten[aantal];
    if (l.isEmpty()) {
        Woordmaker maker(7);
        std::set<QByteArray> gezien;
        QStringList items;
        while (int(items.size()) < aantal) {
            const QByteArray w = maker.woord();
            if (!gezien.insert(w).second)
                continue;
            const WordMatcher m({{w, 0, true}}, PageFilter::LaagsteLetterPagina);
            const bool inGewoon =
                std::any_of(std::begin(gewoneWoorden), std::end(gewoneWoorden),
                            [&m](const char* g) { return m.firstHit(QByteArrayView(g)) >= 0; });
            if (!inGewoon)
                items.append(QString::fromLatin1(w));
        }
        l = items.join(QLatin1Char('|'));
    }
    return l;
}

const PageFilter& filter(int aantal) {
    static std::map<int, PageFilter> filters;
    auto it = filters.find(aantal);
    if (it == filters.end())
        it = filters.emplace(aantal, PageFilter(lijst(aantal), QString())).first;
    return it->second;
}

// Ordinary text: sentences of everyday words, none of them listed.
QByteArray gewoneTekst(std::size_t grootte) {
    Woordmaker maker(11);
    QByteArray t;
    t.reserve(qsizetype(grootte + 64));
    bool nieuweZin = true;
    while (std::size_t(t.size()) < grootte) {
        QByteArray w = gewoneWoorden[maker.kies(0, int(std::size(gewoneWoorden)) - 1)];
        if (nieuweZin)
            w[0] = char(std::toupper(std::uint8_t(w[0])));
        t.append(w);
        nieuweZin = maker.kies(0, 11) == 0;
        t.append(nieuweZin ? ". " : maker.kies(0, 15) == 0 ? ", " : " ");
    }
    t.truncate(qsizetype(grootte));
    return t;
}

// Near-miss text: each word a listed word cut short by one to three letters, or with one letter
// changed or added; any that would still hit is left out.
QByteArray bijnaTekst(std::size_t grootte, int aantal) {
    const FilterList& l = filter(aantal).woorden();
    const WordMatcher& m = filter(aantal).pageMatcher();
    Woordmaker maker(13);
    QByteArray t;
    t.reserve(qsizetype(grootte + 64));
    while (std::size_t(t.size()) < grootte) {
        QByteArray w = l.item(maker.kies(0, int(l.items().size()) - 1)).woord;
        switch (maker.kies(0, 2)) {
        case 0:
            w.chop(maker.kies(1, 3));
            break;
        case 1:
            w[maker.kies(0, int(w.size()) - 1)] = char('a' + maker.kies(0, 25));
            break;
        default:
            w.append(char('a' + maker.kies(0, 25)));
        }
        if (m.firstHit(w) >= 0)
            continue;
        t.append(w);
        t.append(' ');
    }
    t.truncate(qsizetype(grootte));
    return t;
}

const QByteArray& pagina(std::size_t grootte, bool bijna, int aantal) {
    static std::map<std::tuple<std::size_t, bool, int>, QByteArray> paginas;
    QByteArray& p = paginas[{grootte, bijna, bijna ? aantal : 0}];
    if (p.isEmpty())
        p = bijna ? bijnaTekst(grootte, aantal) : gewoneTekst(grootte);
    return p;
}

constexpr std::size_t KB = 1000;
constexpr std::size_t MB = 1000 * KB;

// Arguments: words, page size, near-miss (0 or 1).
void BM_Matcher(benchmark::State& state) {
    const int aantal = int(state.range(0));
    const QByteArray& tekst = pagina(std::size_t(state.range(1)), state.range(2) != 0, aantal);
    const PageFilter& f = filter(aantal);
    int treffer = 0;
    for (auto _ : state) {
        treffer = f.firstWordIn(tekst);
        benchmark::DoNotOptimize(treffer);
    }
    if (treffer >= 0)
        state.SkipWithError("the page holds a listed word");
    state.SetBytesProcessed(std::int64_t(state.iterations()) * tekst.size());
}

// The same pages through the word-by-word loop, over at most 1 MB of them (cut behind a blank,
// so that no near-miss is cut into a listed word); its answer must be the matcher's.
void BM_WordLoop(benchmark::State& state) {
    const int aantal = int(state.range(0));
    const QByteArray& tekst = pagina(std::size_t(state.range(1)), state.range(2) != 0, aantal);
    QByteArrayView stuk(tekst);
    if (stuk.size() > qsizetype(MB))
        stuk = stuk.first(QByteArrayView(tekst).first(MB).lastIndexOf(' ') + 1);
    const QList<WordMatcher::Pattern> woorden = PageFilter::pagePatterns(filter(aantal).woorden());
    int treffer = 0;
    for (auto _ : state) {
        treffer = WordLoop::firstHit(woorden, stuk, PageFilter::LaagsteLetterPagina);
        benchmark::DoNotOptimize(treffer);
    }
    if (treffer != filter(aantal).firstWordIn(stuk))
        state.SkipWithError("the loop and the matcher differ");
    else if (treffer >= 0)
        state.SkipWithError("the page holds a listed word");
    state.SetBytesProcessed(std::int64_t(state.iterations()) * stuk.size());
}

void paginaArgumenten(benchmark::internal::Benchmark* b) {
    for (const int aantal : {1000, 30000})
        for (const std::int64_t grootte : {100 * KB, 10 * MB})
            for (const int bijna : {0, 1})
                b->Args({aantal, grootte, bijna});
}
BENCHMARK(BM_Matcher)->Apply(paginaArgumenten)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_WordLoop)->Apply(paginaArgumenten)->Unit(benchmark::kMillisecond)->Iterations(1);

// Pages of 50 MB that a hostile site could send: near-misses throughout, and one run of a word
// that overlaps itself ("haha" after a B, which the loop's chain must follow to the end).
void BM_HostilePage(benchmark::State& state) {
    const bool overlap = state.range(0) != 0;
    static const QByteArray bijna = bijnaTekst(50 * MB, 30000);
    static const QByteArray haha = "B" + QByteArray("ha").repeated(25 * MB) + " ";
    static const PageFilter metHaha(lijst(30000) + QStringLiteral("|haha"), QString());
    const QByteArray& tekst = overlap ? haha : bijna;
    const PageFilter& f = overlap ? metHaha : filter(30000);
    int treffer = 0;
    for (auto _ : state) {
        treffer = f.firstWordIn(tekst);
        benchmark::DoNotOptimize(treffer);
    }
    if (treffer != (overlap ? 30000 : -1))
        state.SkipWithError("unexpected verdict");
    state.SetBytesProcessed(std::int64_t(state.iterations()) * tekst.size());
}
BENCHMARK(BM_HostilePage)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// The page matcher alone, from the list's items, and the whole filter of a login (the list taken
// apart, the page and the address matchers); the matcher's size as counters.
void BM_MatcherBuild(benchmark::State& state) {
    const QList<WordMatcher::Pattern> woorden =
        PageFilter::pagePatterns(FilterList::verbodenWoorden(lijst(int(state.range(0)))));
    std::size_t bytes = 0;
    int knopen = 0;
    for (auto _ : state) {
        const WordMatcher m(woorden, PageFilter::LaagsteLetterPagina);
        bytes = m.memoryBytes();
        knopen = m.nodeCount();
        benchmark::DoNotOptimize(bytes);
    }
    state.counters["bytes"] = double(bytes);
    state.counters["nodes"] = knopen;
}
BENCHMARK(BM_MatcherBuild)->Arg(1000)->Arg(30000)->Unit(benchmark::kMillisecond);

void BM_PageFilterBuild(benchmark::State& state) {
    const QString& l = lijst(int(state.range(0)));
    std::size_t bytes = 0;
    for (auto _ : state) {
        const PageFilter f(l, QString());
        bytes = f.matcherBytes();
        benchmark::DoNotOptimize(bytes);
    }
    state.counters["bytes"] = double(bytes);
}
BENCHMARK(BM_PageFilterBuild)->Arg(1000)->Arg(30000)->Unit(benchmark::kMillisecond);

// The editor of the lists: the stored list of N words opened, and a downloaded list of N lines
// (CR LF, every second word already listed in other case) read and merged into it.
void BM_ListUpdate(benchmark::State& state) {
    const QString& opgeslagen = lijst(int(state.range(0)));
    const QStringList woorden = opgeslagen.split(QLatin1Char('|'));
    QByteArray download;
    for (qsizetype i = 0; i < woorden.size(); ++i)
        download +=
            (i % 2 ? woorden[i].toUpper().toLatin1() : "nieuw" + woorden[i].toLatin1()) + "\r\n";
    int nieuw = 0;
    for (auto _ : state) {
        FilterLists f = FilterLists::uit(opgeslagen, QString());
        nieuw = f.samenvoegen(FilterLists::Woorden, DownloadedList::lees(download).items);
        benchmark::DoNotOptimize(f);
    }
    state.counters["nieuw"] = nieuw;
    state.counters["bytes"] = double(download.size());
}
BENCHMARK(BM_ListUpdate)->Arg(1000)->Arg(30000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
