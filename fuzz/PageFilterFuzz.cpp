// The page filter: any word list, title and body (Windows-1252 bytes) get a verdict, and the
// one-pass matcher gives the word of the word-by-word loop, on pages and in addresses. The input
// is the list, a line end, the title, a line end and the body; the list also serves as the
// allowed sites.
#include "FuzzSupport.h"
#include "core/Ansi.h"
#include "filter/PageFilter.h"
#include "filter/WordLoop.h"

#include <algorithm>

using namespace tk;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray input = fuzz::bytes(data, size);
    const qsizetype eerste = input.indexOf('\n');
    const qsizetype tweede = eerste < 0 ? -1 : input.indexOf('\n', eerste + 1);
    const QByteArray lijst = input.left(eerste < 0 ? input.size() : eerste);
    const QByteArray titel = eerste < 0 ? QByteArray() : input.mid(eerste + 1, tweede - eerste - 1);
    const QByteArray tekst = tweede < 0 ? QByteArray() : input.mid(tweede + 1);

    const FilterList woorden = FilterList::verbodenWoorden(Ansi::naarTekst(lijst));
    fuzz::require(lijst.isEmpty() || woorden.items().size() == lijst.count('|') + 1);

    const PageFilter filter(Ansi::naarTekst(lijst), Ansi::naarTekst(lijst));
    const QList<WordMatcher::Pattern> pagina = PageFilter::pagePatterns(woorden);
    QList<WordMatcher::Pattern> adres = pagina + PageFilter::urlPatterns(woorden);
    std::sort(adres.begin(), adres.end(), [](const auto& a, const auto& b) { return a.id < b.id; });
    for (const QByteArray& t : {titel, tekst}) {
        fuzz::require(filter.firstWordIn(t) ==
                      WordLoop::firstHit(pagina, t, PageFilter::LaagsteLetterPagina));
        fuzz::require(filter.InternetFilterURL(Ansi::naarTekst(t)) ==
                      WordLoop::firstHit(adres, t, PageFilter::LaagsteLetterAdres));
    }

    FilterSettings settings;
    settings.Filteren = true;
    const PageVerdict v =
        filter.checkPageBytes(QStringLiteral("http://fuzz/"), titel, QString(), tekst, settings);
    fuzz::require(v.blocked() == (v.item >= 0));
    if (v.blocked()) {
        fuzz::require(v.item < woorden.items().size());
        fuzz::require(v.word == woorden.item(v.item).tekst);
        fuzz::require(!woorden.item(v.item).url && !woorden.item(v.item).blanco);
    }
    const QString url = QStringLiteral("http://") + Ansi::naarTekst(titel);
    const AddressVerdict a = filter.checkAddress(url, settings);
    fuzz::require(a.step != AddressVerdict::Step::ListedAddress ||
                  (a.item >= 0 && a.item < woorden.items().size() && !woorden.item(a.item).blanco));
    return 0;
}
