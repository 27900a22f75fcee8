// The offline cache in memory: what it takes for its own text, and its state from open to close.
#include "data/SealedCache.h"
#include "core/Fout.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tk;

TEST(SealedCacheTest, OnlyAnIniTextThatBeginsWithASectionAndHoldsNoNulIsACache) {
    const std::pair<QString, bool> gevallen[] = {
        {QStringLiteral("[A]\nx=1\n"), true},
        {QStringLiteral(" \r\n\t[A]"), true},
        {QStringLiteral("x=1\n[A]"), false},
        {QStringLiteral("   \n "), false},
        {QString(), false},
        {QStringLiteral("[A]\nx=") + QChar(0) + QStringLiteral("\n"), false},
        {QStringLiteral("[A]\nx=") + QChar(1) + QStringLiteral("\n"), true},
    };
    for (const auto& [tekst, cache] : gevallen)
        EXPECT_EQ(SealedCache::isCacheText(tekst), cache) << tekst.toStdString();
}

TEST(SealedCacheTest, FromOpenToCloseReadsTheFreshDocumentThenTheOpenedOne) {
    QTemporaryDir map;
    const QString pad = map.filePath(QStringLiteral("data.tijdelijk"));
    SealedCache c;
    EXPECT_FALSE(c.isOpen());
    c.open(pad); // no file yet: an empty cache
    EXPECT_TRUE(c.isOpen());
    EXPECT_FALSE(c.changed());
    c.write(QStringLiteral("A"), QStringLiteral("x"), QStringLiteral("1"));
    c.write(QStringLiteral("A"), QStringLiteral("y"), QStringLiteral("2"));
    EXPECT_TRUE(c.changed());
    c.seal(pad);

    c.close();
    EXPECT_FALSE(c.isOpen());
    EXPECT_FALSE(c.changed());
    EXPECT_EQ(c.read(QStringLiteral("A"), QStringLiteral("x")), QString());
    c.beginFresh();
    EXPECT_TRUE(c.isOpen());
    c.open(pad);
    c.beginFresh();
    c.write(QStringLiteral("A"), QStringLiteral("x"), QStringLiteral("nieuw"));
    EXPECT_EQ(c.read(QStringLiteral("A"), QStringLiteral("x")), QStringLiteral("nieuw"));
    EXPECT_EQ(c.read(QStringLiteral("A"), QStringLiteral("y")), QStringLiteral("2"));
    c.seal(pad); // only the fresh document is sealed
    c.open(pad);
    EXPECT_EQ(c.read(QStringLiteral("A"), QStringLiteral("y")), QString());

    try {
        c.seal(map.filePath(QStringLiteral("geen/map/data.tijdelijk")));
        ADD_FAILURE() << "a seal into a missing folder";
    } catch (const Fout& f) {
        EXPECT_TRUE(f.omschrijving().contains(QStringLiteral("geen/map")))
            << f.omschrijving().toStdString();
    }
}
