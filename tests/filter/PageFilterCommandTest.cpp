// tafelkrater-pagefilter as a script runs it: files in, one line and an exit code out.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct Uitvoer {
    int code;
    QByteArray uit;
    QByteArray fout;
};

class PageFilterCommand : public ::testing::Test {
protected:
    QString bestand(const char* naam, const QByteArray& inhoud) {
        const QString pad = map.filePath(QString::fromLatin1(naam));
        QFile f(pad);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(inhoud);
        return pad;
    }
    Uitvoer draai(const QStringList& argumenten) {
        QProcess p;
        p.start(QString::fromUtf8(TK_PAGEFILTER_PAD), argumenten);
        EXPECT_TRUE(p.waitForFinished(30000));
        return {p.exitCode(), p.readAllStandardOutput(), p.readAllStandardError()};
    }
    QTemporaryDir map;
};

} // namespace

TEST_F(PageFilterCommand, PrintsTheVerdictAndTheItemThatBlocked) {
    const QString woorden = bestand("woorden", "hond|url>kat|caf\xe9\r\n");
    struct Case {
        QByteArray titel;
        QByteArray tekst;
        QByteArray regel;
    };
    const Case cases[] = {
        {"Dieren", "een hond", "blocked\tbody\thond\n"},
        {"CAF\xc9", "een hond", "blocked\ttitle\tcaf\xe9\n"}, // the item as its bytes
        {"kat", "honden", "approved\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.regel.toStdString());
        const Uitvoer u = draai({woorden, bestand("titel", c.titel), bestand("tekst", c.tekst)});
        EXPECT_EQ(0, u.code);
        EXPECT_EQ(c.regel, u.uit);
    }
    const Uitvoer keer = draai({QStringLiteral("--times"), QStringLiteral("3"), woorden,
                                bestand("titel", "x"), bestand("tekst", "een hond")});
    EXPECT_EQ(0, keer.code);
    EXPECT_EQ(QByteArray("blocked\tbody\thond\n"), keer.uit);
    EXPECT_TRUE(keer.fout.contains("build: ")) << keer.fout.toStdString();
    EXPECT_TRUE(keer.fout.contains("check: ")) << keer.fout.toStdString();
}

TEST_F(PageFilterCommand, BadInputIsRefusedWithAMessage) {
    const QString woorden = bestand("woorden", "kat");
    const QString titel = bestand("titel", "t");
    const QString map_ = map.path(); // a folder cannot be read as a file
    const QStringList cases[] = {
        {woorden, titel, map.filePath(QStringLiteral("ontbreekt"))},
        {woorden, titel, map_},
        {woorden, titel},
        {QStringLiteral("--times"), QStringLiteral("0"), woorden, titel, titel},
        {QStringLiteral("--times"), QStringLiteral("x"), woorden, titel, titel},
    };
    for (const QStringList& argumenten : cases) {
        SCOPED_TRACE(argumenten.join(QLatin1Char(' ')).toStdString());
        const Uitvoer u = draai(argumenten);
        EXPECT_EQ(2, u.code);
        EXPECT_TRUE(u.uit.isEmpty());
        EXPECT_FALSE(u.fout.isEmpty());
    }
}
