// The offline cache: what it takes for its own text, its state from open to close, its bytes on
// disk, and a client killed while it seals leaves the cache it had, whole, one round's.
#include "data/SealedCache.h"
#include "core/Fout.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tk;

TEST(SealedCacheTest, OnlyAnIniTextThatBeginsWithASectionAndHoldsNoNulIsACache) {
    const std::pair<QString, bool> gevallen[] = {
        {"[A]\nx=1\n", true},
        {" \r\n\t[A]", true},
        {"x=1\n[A]", false},
        {"   \n ", false},
        {QString(), false},
        {QString("[A]\nx=") + QChar(0) + "\n", false},
        {QString("[A]\nx=") + QChar(1) + "\n", true},
    };
    for (const auto& [tekst, cache] : gevallen)
        EXPECT_EQ(SealedCache::isCacheText(tekst), cache) << tekst.toStdString();
}

TEST(SealedCacheTest, FromOpenToCloseReadsTheFreshDocumentThenTheOpenedOne) {
    QTemporaryDir map;
    const QString pad = map.filePath("data.tijdelijk");
    SealedCache c;
    EXPECT_FALSE(c.isOpen());
    c.open(pad); // no file yet: an empty cache
    EXPECT_TRUE(c.isOpen());
    EXPECT_FALSE(c.changed());
    c.write("A", "x", "1");
    c.write("A", "y", "2");
    EXPECT_TRUE(c.changed());
    c.seal(pad);

    c.close();
    EXPECT_FALSE(c.isOpen());
    EXPECT_FALSE(c.changed());
    EXPECT_EQ(c.read("A", "x"), QString());
    c.beginFresh();
    EXPECT_TRUE(c.isOpen());
    c.open(pad);
    c.beginFresh();
    c.write("A", "x", "nieuw");
    EXPECT_EQ(c.read("A", "x"), "nieuw");
    EXPECT_EQ(c.read("A", "y"), "2");
    c.seal(pad); // only the fresh document is sealed
    c.open(pad);
    EXPECT_EQ(c.read("A", "y"), QString());

    try {
        c.seal(map.filePath("geen/map/data.tijdelijk"));
        ADD_FAILURE() << "a seal into a missing folder";
    } catch (const Fout& f) {
        EXPECT_TRUE(f.omschrijving().contains("geen/map")) << f.omschrijving().toStdString();
    }
}

TEST(SealedCacheTest, AKillWhileSealingLeavesTheCacheOfOneWholeRound) {
    QTemporaryDir map;
    const QString pad = map.filePath("data.tijdelijk");
    QRandomGenerator random(QRandomGenerator::system()->generate());
    for (int kill = 0; kill < 10; ++kill) {
        SCOPED_TRACE(kill);
        QProcess loop;
        loop.start(QStringLiteral(TK_SEAL_LOOP), {pad});
        // At least one seal of this run, then a moment within the next ones.
        ASSERT_TRUE(loop.waitForReadyRead(30000));
        const int sealed = loop.readAllStandardOutput().count("sealed");
        loop.waitForFinished(random.bounded(5, 120));
        loop.kill();
        ASSERT_TRUE(loop.waitForFinished(10000));
        ASSERT_GE(sealed, 1);

        SealedCache cache;
        ASSERT_NO_THROW(cache.open(pad));
        const QString first = cache.read("Sectie0", "K0");
        ASSERT_TRUE(first.startsWith("ronde ")) << first.left(40).toStdString();
        EXPECT_EQ(first, cache.read("Sectie19", "K199"));
    }

    // What the killed seals left beside the cache goes at the next seal once it is old; a new
    // file of a seal that may be running now stays.
    QDir folder(map.path());
    QFile(pad + ".deadbeef.tmp").open(QIODevice::WriteOnly); // one at least
    const QStringList left = folder.entryList({"*.tmp"}, QDir::Files);
    for (const QString& name : left) {
        QFile copy(folder.filePath(name));
        ASSERT_TRUE(copy.open(QIODevice::ReadWrite));
        copy.setFileTime(QDateTime::currentDateTime().addSecs(-3600),
                         QFileDevice::FileModificationTime);
    }
    const QString running = pad + ".0badf00d.tmp";
    QFile(running).open(QIODevice::WriteOnly);
    SealedCache cache;
    cache.write("Laden", "Klaar", "1");
    cache.seal(pad);
    EXPECT_EQ(QStringList{QFileInfo(running).fileName()}, folder.entryList({"*.tmp"}, QDir::Files));
}

TEST(SealedCacheTest, TheFileIsTheTextUnderPlainRc4WithTheFixedKey) {
    // Computed apart from this program: RC4 with the key "Tafelkrater_VQXZ" over "[A]\r\nb=c\r\n".
    const QByteArray verzegeld("\x27\xb4\x7f\x0e\x78\x65\xe8\x51\xb7\xbf", 10);
    QTemporaryDir map;
    const QString pad = map.filePath("data.tijdelijk");
    SealedCache cache;
    cache.beginFresh();
    cache.write("A", "b", "c");
    cache.seal(pad);
    QFile bestand(pad);
    ASSERT_TRUE(bestand.open(QIODevice::ReadOnly));
    EXPECT_EQ(bestand.readAll(), verzegeld);
}
