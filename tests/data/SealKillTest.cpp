// A client killed while it seals its cache leaves the cache it had: whole, one round's.
#include "data/SealedCache.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using tk::SealedCache;

TEST(SealedCacheTest, AKillWhileSealingLeavesTheCacheOfOneWholeRound) {
    QTemporaryDir map;
    const QString pad = map.filePath(QStringLiteral("data.tijdelijk"));
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
        const QString first = cache.read(QStringLiteral("Sectie0"), QStringLiteral("K0"));
        ASSERT_TRUE(first.startsWith(QStringLiteral("ronde "))) << first.left(40).toStdString();
        EXPECT_EQ(first, cache.read(QStringLiteral("Sectie19"), QStringLiteral("K199")));
    }

    // What the killed seals left beside the cache goes at the next seal once it is old; a new
    // file of a seal that may be running now stays.
    QDir folder(map.path());
    QFile(pad + QStringLiteral(".deadbeef.tmp")).open(QIODevice::WriteOnly); // one at least
    const QStringList left = folder.entryList({QStringLiteral("*.tmp")}, QDir::Files);
    for (const QString& name : left) {
        QFile copy(folder.filePath(name));
        ASSERT_TRUE(copy.open(QIODevice::ReadWrite));
        copy.setFileTime(QDateTime::currentDateTime().addSecs(-3600),
                         QFileDevice::FileModificationTime);
    }
    const QString running = pad + QStringLiteral(".0badf00d.tmp");
    QFile(running).open(QIODevice::WriteOnly);
    SealedCache cache;
    cache.write(QStringLiteral("Laden"), QStringLiteral("Klaar"), QStringLiteral("1"));
    cache.seal(pad);
    EXPECT_EQ(QStringList{QFileInfo(running).fileName()},
              folder.entryList({QStringLiteral("*.tmp")}, QDir::Files));
}

TEST(SealedCacheTest, TheFileIsTheTextUnderPlainRc4WithTheFixedKey) {
    // Computed apart from this program: RC4 with the key "Tafelkrater_VQXZ" over "[A]\r\nb=c\r\n".
    const QByteArray verzegeld("\x27\xb4\x7f\x0e\x78\x65\xe8\x51\xb7\xbf", 10);
    EXPECT_STREQ(SealedCache::Sleutel, "Tafelkrater_VQXZ");
    QTemporaryDir map;
    const QString pad = map.filePath(QStringLiteral("data.tijdelijk"));
    SealedCache cache;
    cache.beginFresh();
    cache.write(QStringLiteral("A"), QStringLiteral("b"), QStringLiteral("c"));
    cache.seal(pad);
    QFile bestand(pad);
    ASSERT_TRUE(bestand.open(QIODevice::ReadOnly));
    EXPECT_EQ(bestand.readAll(), verzegeld);

    SealedCache terug;
    terug.open(pad);
    EXPECT_EQ(terug.read(QStringLiteral("A"), QStringLiteral("b")), QStringLiteral("c"));
}
