#include "screens/browser/BrowserTabs.h"
#include "screens/browser/BrowserFavorieten.h"

#include <gtest/gtest.h>

namespace tk {
namespace {

using Knop = BrowserTabs::Knop;

TEST(BrowserTabs, FortyTabsTakeTheFirstFreeSlotAndTheFortyFirstIsRefused) {
    BrowserTabs t;
    for (int i = 0; i < BrowserTabs::MaxTabs; ++i)
        ASSERT_EQ(t.NieuwTabblad("t"), i);
    EXPECT_EQ(t.NieuwTabblad("t"), -1);
    EXPECT_EQ(t.aantal(), 40);
    EXPECT_EQ(t.TabIndex(), 39);
    // A closed slot in the middle is the next one taken, with a clean record, at the end of the
    // strip.
    t.zetAdres(7, "http://oud/");
    t.zetGeladen(7, true);
    ASSERT_TRUE(t.Sluiten(7));
    EXPECT_EQ(t.NieuwTabblad("nieuw"), 7);
    EXPECT_EQ(t.strip().last(), 7);
    EXPECT_EQ(t.tab(7).Titel, "nieuw");
    EXPECT_TRUE(t.tab(7).Adres.isEmpty());
    EXPECT_FALSE(t.tab(7).Geladen);
}

TEST(BrowserTabs, ClosingShowsTheTabToTheLeftAndKeepsTheLast) {
    struct Geval {
        QList<int> sluiten; // slots closed in turn, from a strip 0 1 2 3 with 3 active
        int actiefVooraf;
        QList<int> strip;
        int actief;
    };
    const Geval gevallen[] = {
        {{3}, 3, {0, 1, 2}, 2},    // the active one: the left neighbour comes
        {{1}, 3, {0, 2, 3}, 3},    // another one: the active one stays
        {{0}, 0, {1, 2, 3}, 1},    // the first and active: the new first comes
        {{0, 1, 2, 3}, 3, {3}, 3}, // the last tab is never removed
        {{2, 2}, 2, {0, 1, 3}, 1}, // a slot closed twice is closed once
    };
    for (const Geval& g : gevallen) {
        BrowserTabs t;
        for (int i = 0; i < 4; ++i)
            t.NieuwTabblad({});
        ASSERT_TRUE(t.WijzigTab(g.actiefVooraf));
        for (int slot : g.sluiten)
            t.Sluiten(slot);
        EXPECT_EQ(t.strip(), g.strip) << g.sluiten.first();
        EXPECT_EQ(t.TabIndex(), g.actief) << g.sluiten.first();
        for (int slot = 0; slot < 4; ++slot)
            EXPECT_EQ(t.tab(slot).InGebruik, g.strip.contains(slot));
    }
}

TEST(BrowserTabs, InternetSluitenFreesAllButTheFirstLastFirst) {
    BrowserTabs t;
    for (int i = 0; i < 4; ++i)
        t.NieuwTabblad({});
    t.Sluiten(0);
    EXPECT_EQ(t.InternetSluiten(), (QList<int>{3, 2}));
    EXPECT_EQ(t.strip(), QList<int>{1});
    EXPECT_EQ(t.TabIndex(), 1);
    EXPECT_TRUE(t.InternetSluiten().isEmpty());
    EXPECT_FALSE(t.WijzigTab(3));
    EXPECT_EQ(t.NieuwTabblad({}), 0);
}

TEST(BrowserTabs, ALateCheckOfAnOlderNavigationOrAClosedTabIsDropped) {
    BrowserTabs t;
    t.NieuwTabblad({});
    t.NieuwTabblad({});
    const quint64 eerste = t.nieuweNavigatie(1);
    EXPECT_TRUE(t.actueel(1, eerste));
    const quint64 tweede = t.nieuweNavigatie(1);
    EXPECT_FALSE(t.actueel(1, eerste));
    EXPECT_TRUE(t.actueel(1, tweede));
    // Closed and opened again in the same slot: the check of the old tab is not the new one's.
    t.Sluiten(1);
    EXPECT_FALSE(t.actueel(1, tweede));
    ASSERT_EQ(t.NieuwTabblad({}), 1);
    EXPECT_FALSE(t.actueel(1, tweede));
    EXPECT_TRUE(t.actueel(1, t.tab(1).navigatie));
    EXPECT_FALSE(t.actueel(5, t.tab(5).navigatie));
}

TEST(BrowserTabs, EachTabKeepsItsOwnRecordAndOnlyTheActiveOneIsShown) {
    BrowserTabs t;
    t.NieuwTabblad({});
    t.NieuwTabblad({});
    // Slot 1 is active.
    EXPECT_FALSE(t.zetAdres(0, "http://a/"));
    EXPECT_FALSE(t.zetStatus(0, "bezig a"));
    EXPECT_FALSE(t.zetVoortgang(0, 40, 200));
    EXPECT_TRUE(t.zetAdres(1, "http://b/"));
    EXPECT_TRUE(t.zetTitel(1, "B"));
    EXPECT_TRUE(t.zetGeladen(1, true));
    EXPECT_FALSE(t.zetStatus(9, "vrij slot"));
    EXPECT_FALSE(t.zetTitel(9, "vrij slot"));
    EXPECT_FALSE(t.zetGeladen(9, true));
    EXPECT_FALSE(t.zetAdres(-1, "buiten"));
    EXPECT_EQ(t.nieuweNavigatie(BrowserTabs::MaxTabs), 0u);
    EXPECT_EQ(t.nieuweNavigatie(-1), 0u);
    EXPECT_EQ(t.tab(0).Adres, "http://a/");
    EXPECT_EQ(t.tab(0).Status, "bezig a");
    EXPECT_EQ(t.tab(0).Voortgang, 40);
    EXPECT_EQ(t.tab(0).Maximum, 200);
    EXPECT_FALSE(t.tab(0).Geladen);
    EXPECT_EQ(t.tab(1).Adres, "http://b/");
    EXPECT_TRUE(t.tab(1).Geladen);
    EXPECT_TRUE(t.tab(9).Status.isEmpty());
    ASSERT_TRUE(t.WijzigTab(0));
    EXPECT_TRUE(t.zetStatus(0, "klaar"));
}

TEST(BrowserTabs, ToolbarButtonsByIndex) {
    const std::pair<int, std::optional<Knop>> rijen[] = {
        {0, Knop::Terug},     {1, Knop::Vooruit}, {2, Knop::Stop},       {3, Knop::Vernieuwen},
        {4, Knop::Thuis},     {5, std::nullopt},  {6, Knop::Favorieten}, {7, std::nullopt},
        {8, Knop::Afdrukken}, {9, std::nullopt},  {-1, std::nullopt},
    };
    for (const auto& [index, knop] : rijen)
        EXPECT_EQ(BrowserTabs::knop(index), knop) << index;
}

TEST(BrowserTabs, TheViewStandsBesideTheFavouritesPanelOrTakesTheWholeWidth) {
    struct Geval {
        bool paneel;
        int breedte, hoogte;
        QRect weergave;
    };
    const Geval gevallen[] = {
        {false, 1004, 600, {2, 2, 1000, 596}}, // the design width: 1000 wide
        {true, 1004, 600, {216, 2, 786, 596}},
        {true, 1920, 1000, {216, 2, 1702, 996}},
        {true, 100, 3, {216, 2, 0, 0}}, // too small: nothing, never less
    };
    for (const Geval& g : gevallen) {
        EXPECT_EQ(BrowserTabs::weergave(g.paneel, g.breedte, g.hoogte), g.weergave)
            << g.paneel << " " << g.breedte;
    }
    EXPECT_EQ(BrowserTabs::favorietenPaneel(600), QRect(2, 2, 212, 596));
}

TEST(BrowserFavorieten, TheHeaderSetsTheFilterTheProxyAndTheActiveFavouritesTheTreeAndHomePage) {
    struct Geval {
        const char* antwoord;
        const char* verwacht; // filter, mode, proxy, home page
        QStringList adressen;
    };
    const Geval gevallen[] = {
        {"1|Ja|ja|Nee;<>;http://a/|A||Ja><http://b/|B||Nee><http://c/|C||JA",
         "1 1 0 http://a/",
         {"http://a/", "http://c/"}},
        // The first favourite marked as start page wins; an inactive mark counts for nothing.
        {"0|Ja|Nee|Ja;<>;http://a/|A||Ja><http://b/|B|Ja|Nee><http://c/|C| ja "
         "|Ja><http://d/|D|Ja|Ja",
         "0 0 1 http://c/",
         {"http://a/", "http://c/", "http://d/"}},
        // Without the flag, or without a favourite, the school's default start page.
        {"0|Nee|Nee|nee;<>;http://a/|A|Ja|Ja", "0 0 0 http://school/", {"http://a/"}},
        {"0|Ja|Nee|Nee;<>;http://b/|B||Nee", "0 0 0 http://school/", {}},
        {" 1 |Ja| Ja | JA ;<>;", "1 1 1 http://school/", {}},
        // No answer and no cache, or a header that cannot be read: the filter stays on.
        {"", "1 0 0 http://school/", {}},
        {"0|Ja|misschien", "1 0 0 http://school/", {}},
    };
    for (const Geval& g : gevallen) {
        SCOPED_TRACE(g.antwoord);
        const BrowserFavorieten b = BrowserFavorieten::uit(
            Favorieten::uitAntwoord(QString::fromLatin1(g.antwoord)), " http://school/ ");
        EXPECT_EQ(QString("%1 %2 %3 %4")
                      .arg(int(b.instellingen.Filteren))
                      .arg(b.instellingen.Internetmodus)
                      .arg(int(b.proxy))
                      .arg(b.thuispagina),
                  g.verwacht);
        EXPECT_EQ(b.instellingen.Favorieten, g.adressen);
        ASSERT_EQ(b.lijst.size(), g.adressen.size());
        if (!b.lijst.isEmpty()) {
            EXPECT_EQ(b.lijst.first().value(1), "A");
        }
    }
    EXPECT_TRUE(
        BrowserFavorieten::uit(Favorieten::uitAntwoord("0|Nee|Nee|Nee;<>;")).thuispagina.isEmpty());
}

} // namespace
} // namespace tk
