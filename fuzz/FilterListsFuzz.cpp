// The filter's lists: the stored strings and a downloaded list. The input is the Content-Type of
// the answer, a line end, `VerbodenWoorden`, a line end, `ToegestaneSites`, a line end, and the
// answer's body. Whatever comes in, the lists hold only items their rule lets in, the strings
// they write read back as the same lists, and a merge grows a list by the count it reports.
#include "FuzzSupport.h"
#include "core/Ansi.h"
#include "filter/DownloadedList.h"
#include "filter/FilterLists.h"

using namespace tk;

namespace {

bool alleenGoed(const FilterLists& f) {
    for (int l = 0; l < FilterLists::Aantal; ++l) {
        FilterLists leeg;
        for (const QString& item : f.lijst(FilterLists::Lijst(l)))
            if (leeg.toevoegen(FilterLists::Lijst(l), item) != FilterLists::Keuring::Goed)
                return false;
    }
    return true;
}

bool zelfdeLijsten(const FilterLists& a, const FilterLists& b) {
    for (int l = 0; l < FilterLists::Aantal; ++l)
        if (a.lijst(FilterLists::Lijst(l)) != b.lijst(FilterLists::Lijst(l)))
            return false;
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray input = fuzz::bytes(data, size);
    QList<QByteArray> delen = input.split('\n');
    while (delen.size() < 4)
        delen.append(QByteArray());
    const QByteArray soort = delen[0];
    const QString woorden = Ansi::naarTekst(delen[1]);
    const QString sites = Ansi::naarTekst(delen[2]);
    const QByteArray inhoud = input.mid(delen[0].size() + delen[1].size() + delen[2].size() + 3);

    FilterLists f = FilterLists::uit(woorden, sites);
    fuzz::require(alleenGoed(f));
    const FilterLists terug = FilterLists::uit(f.verbodenWoorden(), f.toegestaneSites());
    fuzz::require(zelfdeLijsten(f, terug) && terug.overgeslagen() == 0);

    const DownloadedList::Resultaat lijst = DownloadedList::lees(inhoud, soort);
    fuzz::require(lijst.uitkomst == DownloadedList::Uitkomst::Lijst || lijst.items.isEmpty());
    for (const QString& item : lijst.items)
        fuzz::require(!item.isEmpty() && item == item.trimmed() && !item.contains(u'|') &&
                      !item.contains(u'\n') && !item.contains(u'\r'));
    for (const auto l : {FilterLists::Woorden, FilterLists::GSites}) {
        const qsizetype voor = f.lijst(l).size();
        int geweigerd = 0;
        const int nieuw = f.samenvoegen(l, lijst.items, &geweigerd);
        fuzz::require(f.lijst(l).size() == voor + nieuw);
        fuzz::require(nieuw + geweigerd <= lijst.items.size());
    }
    fuzz::require(alleenGoed(f));
    fuzz::require(zelfdeLijsten(f, FilterLists::uit(f.verbodenWoorden(), f.toegestaneSites())));
    // Every item of the word list fits in a piece of the save: with "+", under 2000 characters.
    for (const QString& item : f.verbodenWoorden().split(u'|'))
        fuzz::require(item.size() + 1 < 2000);
    return 0;
}
