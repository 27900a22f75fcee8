#include "core/StringTable.h"
#include "tests/support/QtPrinters.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

#include <algorithm>

using namespace tk;

namespace {

QStringList placeholders(const QString& tekst) {
    static const QRegularExpression patroon("%[a-z_]+%");
    QStringList gevonden;
    for (auto it = patroon.globalMatch(tekst); it.hasNext();)
        gevonden.append(it.next().captured());
    std::sort(gevonden.begin(), gevonden.end());
    return gevonden;
}

} // namespace

TEST(StringTableTest, EveryIdHasATextInBothLanguagesWithTheSamePlaceholders) {
    const StringTable tabel = StringTable::builtIn();
    const QList<int> ids = tabel.ids();
    // The table as the program came with it; ids above 9000 are the team's own additions.
    ASSERT_EQ(std::count_if(ids.begin(), ids.end(), [](int id) { return id < 9000; }), 740);
    for (int id : ids) {
        SCOPED_TRACE(id);
        const QString en = tabel.text(id, 1033);
        const QString nl = tabel.text(id, 1043);
        EXPECT_FALSE(en.trimmed().isEmpty());
        EXPECT_FALSE(nl.trimmed().isEmpty());
        EXPECT_EQ(placeholders(en), placeholders(nl));
        EXPECT_EQ(en.startsWith(QLatin1Char(' ')), nl.startsWith(QLatin1Char(' ')));
    }
    // Every screen's group of ids is there, first and last.
    for (int id : {1,    3,    10,   11,   100,  110,  200,  201,  1100, 1114,
                   1601, 1622, 2101, 2119, 2600, 2606, 2900, 2962, 3101, 3439})
        EXPECT_TRUE(tabel.contains(id)) << id;
}

TEST(StringTableTest, TheRowsTheProgramComparesAgainstAreExact) {
    const StringTable tabel = StringTable::builtIn();
    struct Case {
        int id;
        int taal;
        const char* tekst;
    };
    const Case cases[] = {
        {1613, 1043, "KLIK OP JE GROEP"},
        {2101, 1043, " Kinderen"},
        {2102, 1043, " Leerkrachten"},
        {1601, 1043, "Onderhoudsmodule"},
        {1603, 1043, "Leerkrachten"},
        {3, 1033, "Tafelkrater"},
        {3, 1043, "Tafelkrater"},
        {10, 1033, "1043|Nederlands"},
        {11, 1043, "1033|English"},
        {2905, 1033, "An error occurred. %productnaam% will be restarted."},
        {2906, 1033, "%productnaam% is not active, do you want to restart %productnaam% ?"},
        {2910, 1033, "No %productnaam%-account"},
        {1610, 1033, "%productnaam% IS LOADING..."},
        {2956, 1033, "Date:"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.id);
        EXPECT_EQ(tabel.text(c.id, c.taal), QString::fromUtf8(c.tekst));
    }
    EXPECT_EQ(tabel.text(3, 1036), QString());
    EXPECT_EQ(tabel.text(4, 1033), QString());
}

TEST(StringTableTest, EveryTextFitsTheCodePageOfTheWire) {
    const StringTable tabel = StringTable::builtIn();
    for (int id : tabel.ids())
        for (int taal : {1033, 1043})
            for (QChar c : tabel.text(id, taal)) {
                const char16_t u = c.unicode();
                const bool latin1 = u < 0x80 || (u >= 0xA0 && u <= 0xFF);
                const bool extra = QString("€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ").contains(c);
                EXPECT_TRUE(latin1 || extra) << id << " " << taal << " U+" << std::hex << int(u);
            }
}

TEST(StringTableTest, TheFileFormSkipsLinesThatDoNotFit) {
    int overgeslagen = 0;
    const StringTable tabel = StringTable::parse(
        "id\t1033\t1043\n5\tFive\tVijf\nx\ty\tz\n6\tOnly two\n7\tSeven\tZeven\r\n", &overgeslagen);
    EXPECT_EQ(overgeslagen, 2);
    EXPECT_EQ(tabel.text(5, 1043), "Vijf");
    EXPECT_EQ(tabel.text(7, 1043), "Zeven");
    EXPECT_FALSE(tabel.contains(6));
}
