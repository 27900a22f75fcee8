// The address check and the page check in the browser's order, with the lists as the server
// gives them.
#include "filter/PageFilter.h"
#include "core/StringTable.h"

#include <gtest/gtest.h>

using namespace tk;
using Outcome = AddressVerdict::Outcome;
using Step = AddressVerdict::Step;
using Pass = PageVerdict::Pass;

namespace {

QString s(const char* tekst) {
    return QString::fromUtf8(tekst);
}

FilterSettings instellingen(bool filteren, int modus = 0, QStringList favorieten = {}) {
    return FilterSettings{filteren, modus, std::move(favorieten)};
}

} // namespace

TEST(AddressCheck, FollowsTheBrowsersOrder) {
    const PageFilter filter(s("url>slecht.nl|kat|||url>|  "), s("school.nl||goed.nl"));
    const FilterSettings aan = instellingen(true);
    const FilterSettings uit = instellingen(false);
    const FilterSettings favorieten = instellingen(true, 1, {s("wiki.nl"), s("")});
    const QString vast = s("http://") + PageFilter::VasteBlokkade.toString() + s("/x");
    struct Case {
        QString adres;
        FilterSettings settings;
        Outcome outcome;
        Step step;
        int item;
    };
    const Case cases[] = {
        {s("javascript:void(0)"), favorieten, Outcome::Allow, Step::ScriptOrBlockedPage, -1},
        {PageFilter::GeblokkeerdAdres.toString(), favorieten, Outcome::Allow,
         Step::ScriptOrBlockedPage, -1},
        // An allowed site goes before the word list and the fixed block.
        {s("http://slecht.nl/school.nl"), aan, Outcome::Allow, Step::AllowedSite, 0},
        {vast + s("?GOED.NL"), aan, Outcome::Allow, Step::AllowedSite, 2},
        {s("about:blank"), favorieten, Outcome::Allow, Step::Blank, -1},
        {s("file:///etc/passwd"), uit, Outcome::RefuseSilently, Step::NotWeb, -1},
        // The name of a local page after a "#" or "?" makes no address one.
        {s("file:///etc/passwd#gevonden.html"), uit, Outcome::RefuseSilently, Step::NotWeb, -1},
        {s("file:///home/?goedgekeurd.html"), uit, Outcome::RefuseSilently, Step::NotWeb, -1},
        {s("data:text/html,kat"), uit, Outcome::RefuseSilently, Step::NotWeb, -1},
        {s("file:///opt/tk/Internetfilter/niet%20goedgekeurd.html"), favorieten, Outcome::Allow,
         Step::LocalPage, -1},
        {s("file:///opt/tk/Internetfilter/niet gevonden.HTML"), favorieten, Outcome::Allow,
         Step::LocalPage, -1},
        {s("HTTP://www.SLECHT.nl/"), aan, Outcome::Refuse, Step::ListedAddress, 0},
        {s("http://heelslecht.nl/"), aan, Outcome::Refuse, Step::ListedAddress, 0}, // anywhere
        {s("https://example.org/kat/"), aan, Outcome::Refuse, Step::ListedAddress, 1},
        {s("ftp://example.org/kat"), aan, Outcome::Refuse, Step::ListedAddress, 1},
        {s("https://kater.org/"), aan, Outcome::Allow, Step::Free, -1},
        // In an address "A" is a letter, on a page it is not.
        {s("https://example.org/AkatA"), aan, Outcome::Allow, Step::Free, -1},
        // The filter off: no word list, but the fixed block and favourites-only still apply.
        {s("http://www.slecht.nl/"), uit, Outcome::Allow, Step::Free, -1},
        {vast, uit, Outcome::Refuse, Step::FixedBlock, -1},
        {s("http://www.wiki.nl/kat"), instellingen(false, 1, {s("wiki.nl")}), Outcome::Allow,
         Step::Favourite, 0},
        {s("http://www.WIKI.nl/"), favorieten, Outcome::Allow, Step::Favourite, 0},
        // Empty items (a doubled "|", an empty favourite) allow nothing.
        {s("http://www.andere.nl/"), favorieten, Outcome::Refuse, Step::NoFavourite, -1},
        {s("http://www.andere.nl/"), aan, Outcome::Allow, Step::Free, -1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.adres.toStdString());
        const AddressVerdict v = filter.checkAddress(c.adres, c.settings);
        EXPECT_EQ(c.outcome, v.outcome);
        EXPECT_EQ(c.step, v.step);
        EXPECT_EQ(c.item, v.item);
    }
}

TEST(PageCheck, TitleBeforeBodyAndTheMessagesOfEachOutcome) {
    const PageFilter filter(s("hond|url>slecht|  |kat|ezel"), s("school.nl"));
    const FilterSettings aan = instellingen(true);
    const QString web = s("http://dieren.nl/");
    struct Case {
        const char* beschrijving;
        QString adres;
        QString titel;
        QString domein;
        QString tekst;
        FilterSettings settings;
        Pass pass;
        int item;
        int status;
    };
    const Case cases[] = {
        {"title pass first", web, s("Een ezel"), s("dieren.nl"), s("een hond"), aan, Pass::Title, 4,
         731},
        {"body in list order", web, s("Dieren"), s("dieren.nl"), s("ezel, kat en hond"), aan,
         Pass::Body, 0, 731},
        {"K before the word", web, s("Kkat"), s(""), s("Dieren"), aan, Pass::Approved, -1, 732},
        {"blank before the word", web, s(" kat"), s(""), s(""), aan, Pass::Title, 3, 731},
        {"between capital As", web, s("x"), s(""), s("AkatA"), aan, Pass::Body, 3, 731},
        {"url> items are not page words", web, s("slecht"), s(""), s("hondje"), aan, Pass::Approved,
         -1, 732},
        {"empty body", web, s("Dieren"), s(""), s(""), aan, Pass::Approved, -1, 732},
        {"allowed domain", web, s("kat"), s("www.School.nl"), s("kat"), aan, Pass::AllowedSite, -1,
         0},
        {"filter off", web, s("kat"), s(""), s("kat"), instellingen(false), Pass::NotExamined, -1,
         0},
        {"local page", s("http://elders.nl/goedgekeurd.html"), s("kat"), s(""), s("kat"), aan,
         Pass::NotExamined, -1, 0},
        {"local file", s("file:///opt/tk/Internetfilter/niet gevonden.html"), s("kat"), s(""),
         s("kat"), aan, Pass::NotExamined, -1, 0},
        {"a local page's name as the fragment", s("http://elders.nl/p#gevonden.html"), s(" kat"),
         s(""), s(""), aan, Pass::Title, 3, 731},
        {"accented letters", web, s("caf\u00e9"), s(""), s("\u00e9KAT\u00c9"), aan, Pass::Body, 3,
         731},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.beschrijving);
        const PageVerdict v = filter.checkPage(c.adres, c.titel, c.domein, c.tekst, c.settings);
        EXPECT_EQ(c.pass, v.pass);
        EXPECT_EQ(c.item, v.item);
        EXPECT_EQ(c.item >= 0 ? filter.woorden().item(c.item).tekst : QString(), v.word);
        EXPECT_EQ(c.status, v.statusText);
    }
}

TEST(PageCheck, CaptionIsTheTitleOrTheNoTitleText) {
    const PageFilter filter(s("kat"), QString());
    const PageVerdict zonder =
        filter.checkPage(s("http://a.nl/"), QString(), QString(), s("x"), instellingen(false));
    EXPECT_EQ(PageFilter::TekstGeenTitel, zonder.captionText);
    EXPECT_TRUE(zonder.caption.isEmpty());
    const PageVerdict met = filter.checkPage(s("http://a.nl/"), s("Caf\u00e9 kat"), QString(),
                                             QString(), instellingen(true));
    EXPECT_EQ(0, met.captionText);
    EXPECT_EQ(s("Caf\u00e9 kat"), met.caption);
    EXPECT_TRUE(met.blocked());
}

TEST(FilterLists, ItemsAsTheServerGivesThem) {
    const FilterList lijst = FilterList::verbodenWoorden(s("kat||URL>slecht.nl| \t|url>|url> ") +
                                                         QString(10000, QLatin1Char('x')));
    ASSERT_EQ(6, lijst.items().size());
    // Each item as "word/url/blank".
    QStringList items;
    for (int i = 0; i < 5; ++i)
        items << QString::fromLatin1(lijst.item(i).woord) +
                     QString("/%1/%2").arg(lijst.item(i).url).arg(lijst.item(i).blanco);
    EXPECT_EQ(items.join(QLatin1Char('|')), s("kat/0/0|/0/1|slecht.nl/1/0| \t/0/1|/1/1"));
    EXPECT_EQ(10001, lijst.item(5).woord.size());
    EXPECT_TRUE(FilterList::verbodenWoorden(QString()).items().isEmpty());
    EXPECT_TRUE(FilterList::sites(QString()).items().isEmpty());
    // An allowed site has no prefix: "url>" is part of it.
    EXPECT_EQ(QByteArray("url>a.nl"), FilterList::sites(s("url>a.nl")).item(0).woord);
    // A character outside the code page becomes "?" and is searched as that.
    EXPECT_EQ(QByteArray("?x"), FilterList::sites(s("\u0416x")).item(0).woord);
}

TEST(FilterMessages, EveryMessageIsInTheStringTableInBothLanguages) {
    const StringTable tabel = StringTable::builtIn();
    for (const int id :
         {PageFilter::TekstNietGevonden, PageFilter::TekstGeenTitel, PageFilter::TekstControleren,
          PageFilter::TekstNietGoedgekeurd, PageFilter::TekstGoedgekeurd}) {
        SCOPED_TRACE(id);
        EXPECT_FALSE(tabel.text(id, 1043).isEmpty());
        EXPECT_FALSE(tabel.text(id, 1033).isEmpty());
    }
    // The two outcomes must not read alike.
    EXPECT_NE(tabel.text(PageFilter::TekstGoedgekeurd, 1043),
              tabel.text(PageFilter::TekstNietGoedgekeurd, 1043));
}
