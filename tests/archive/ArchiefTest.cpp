#include "archive/ArchiefFout.h"
#include "archive/ArchiveIndex.h"
#include "archive/UcArchief.h"
#include "core/Ansi.h"
#include "core/Procedure.h"
#include "tests/support/Werkplek.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtEndian>
#include <gtest/gtest.h>

#include <functional>

using tk::ArchiefFout;
using tk::ArchiveIndex;
using tk::UcArchief;

namespace {

void schrijf(const QString& pad, const QByteArray& inhoud) {
    QDir().mkpath(QFileInfo(pad).path());
    QFile f(pad);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(inhoud);
}

QByteArray lees(const QString& pad) {
    QFile f(pad);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray("<missing>");
    return f.readAll();
}

// Builds archive bytes entry by entry, as the layout prescribes.
class ArchiefBytes {
public:
    explicit ArchiefBytes(qint32 aantal) { getal(aantal); }
    ArchiefBytes& entry(const QByteArray& naam, const QByteArray& inhoud) {
        kort(qint16(naam.size()));
        m_bytes += naam;
        getal(qint32(inhoud.size()));
        m_bytes += inhoud;
        return *this;
    }
    ArchiefBytes& getal(qint32 w) {
        char b[4];
        qToLittleEndian(w, b);
        m_bytes.append(b, 4);
        return *this;
    }
    ArchiefBytes& kort(qint16 w) {
        char b[2];
        qToLittleEndian(w, b);
        m_bytes.append(b, 2);
        return *this;
    }
    QByteArray bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

const QByteArray metNul("a\0b\0\0c\r\n\xff", 9);

class ArchiefTest : public ::testing::Test {
protected:
    QString pad(const QString& relatief) const { return m_map.filePath(relatief); }
    QTemporaryDir m_map;
    UcArchief archief;
};

TEST_F(ArchiefTest, LayoutAndWalkOrderOfAPackedTree) {
    // Files of a folder before its sub-folders, each by name without regard to case.
    schrijf(pad("bron/b.txt"), "BB");
    schrijf(pad("bron/A.txt"), "a");
    schrijf(pad("bron/Knoppen/1a.jpg"), metNul);
    schrijf(pad("bron/Knoppen/diep/leeg.txt"), "");
    schrijf(pad("bron/achter/z"), "z");
    QDir().mkpath(pad("bron/lege map"));
    schrijf(pad("a.thema"), QByteArray(1000, 'x')); // an older, longer archive is replaced

    EXPECT_EQ(5, archief.SaveFilesToArchiv(pad("bron"), pad("a.thema"), false));
    const QByteArray verwacht = ArchiefBytes(5)
                                    .entry("A.txt", "a")
                                    .entry("b.txt", "BB")
                                    .entry("achter\\z", "z")
                                    .entry("Knoppen\\1a.jpg", metNul)
                                    .entry("Knoppen\\diep\\leeg.txt", "")
                                    .bytes();
    EXPECT_EQ(verwacht, lees(pad("a.thema")));

    // Folders without files: the entry count alone.
    QDir().mkpath(pad("leeg/sub/sub"));
    EXPECT_EQ(0, archief.SaveFilesToArchiv(pad("leeg"), pad("leeg.thema"), true));
    EXPECT_EQ(QByteArray(4, '\0'), lees(pad("leeg.thema")));
    EXPECT_EQ(0, archief.ExtractFilesFromArchiv(pad("leeg.thema"), pad("uit"), false));
}

TEST_F(ArchiefTest, RoundTripKeepsEveryByteAndCreatesFolders) {
    const QList<QPair<QString, QByteArray>> bestanden = {
        {"Instellingen.ini", "[Algemeen]\r\nNaam=Standaard\r\n"},
        {"Knoppen/1a.jpg", metNul},
        {"Knoppen/leeg.jpg", ""},
        {"Achtergronden/Thumbs/diep/nog dieper/x.bmp", QByteArray(70000, '\0') + "end"},
        {QString::fromUtf8("Achtergronden/caf\xc3\xa9.jpg"), "\xe9"},
    };
    for (const auto& [naam, inhoud] : bestanden)
        schrijf(pad("bron/" + naam), inhoud);

    for (bool viaTmp : {false, true}) {
        SCOPED_TRACE(viaTmp);
        const QString doel = pad(viaTmp ? "doel-tmp" : "doel");
        ASSERT_EQ(5, archief.SaveFilesToArchiv(pad("bron/"), pad("p.thema"), viaTmp));
        EXPECT_FALSE(QFileInfo::exists(pad("p.thema.tmp")));
        ASSERT_EQ(5, archief.ExtractFilesFromArchiv(pad("p.thema"), doel, viaTmp));
        EXPECT_FALSE(QFileInfo::exists(pad("p.thema.tmp")));
        for (const auto& [naam, inhoud] : bestanden)
            EXPECT_EQ(inhoud, lees(doel + "/" + naam)) << naam.toStdString();
        EXPECT_EQ(5, UcArchief::AllFilesInFolders(doel, true).size());
    }
}

TEST_F(ArchiefTest, ATargetFileIsReplacedInTheFolderThatIsThereWhateverItsCase) {
    schrijf(pad("doel/Knoppen/a.txt"), "oud en langer");
    schrijf(pad("k.thema"), ArchiefBytes(1).entry("KNOPPEN\\A.TXT", "nieuw").bytes());
    ASSERT_EQ(1, archief.ExtractFilesFromArchiv(pad("k.thema"), pad("doel"), false));
    EXPECT_EQ("nieuw", lees(pad("doel/Knoppen/a.txt")));
    EXPECT_EQ(QStringList{"Knoppen"},
              QDir(pad("doel")).entryList(QDir::Dirs | QDir::NoDotAndDotDot));
}

TEST_F(ArchiefTest, SourceFolderTextIsTakenOutWhereverItOccurs) {
    const QString bron = pad("s");
    // The source folder's own path occurs again deeper down.
    schrijf(bron + "/q" + bron + "/f.txt", "f");
    ASSERT_EQ(1, archief.SaveFilesToArchiv(bron, pad("p.thema"), false));
    EXPECT_EQ(ArchiefBytes(1).entry("qf.txt", "f").bytes(), lees(pad("p.thema")));
}

TEST_F(ArchiefTest, ExtractFileMatchesWithoutRegardToCase) {
    const QByteArray bytes = ArchiefBytes(3)
                                 .entry("Instellingen.ini", "ini")
                                 .entry("Knoppen\\1a.jpg", "knop")
                                 .entry("Knoppen\\1b.jpg", "hover")
                                 .bytes();
    schrijf(pad("p.thema"), bytes);

    EXPECT_TRUE(archief.ExtractFile(pad("p.thema"), "knoppen\\1A.JPG", pad("doel"), true));
    EXPECT_EQ("knop", lees(pad("doel/Knoppen/1a.jpg")));
    EXPECT_EQ(QStringList{"1a.jpg"}, QDir(pad("doel/Knoppen")).entryList(QDir::Files));
    EXPECT_FALSE(QFileInfo::exists(pad("doel/Instellingen.ini")));
    // Found: the method returned at once and left its copy of the archive.
    EXPECT_EQ(bytes, lees(pad("p.thema.tmp")));

    // Not found: nothing written, the copy cleared away.
    EXPECT_FALSE(archief.ExtractFile(pad("p.thema"), "Knoppen\\9a.jpg", pad("doel2"), true));
    EXPECT_FALSE(QFileInfo::exists(pad("doel2")));
    EXPECT_FALSE(QFileInfo::exists(pad("p.thema.tmp")));

    EXPECT_FALSE(archief.ExtractFile(pad("weg.thema"), "Instellingen.ini", pad("doel3"), false));
    EXPECT_EQ(0, archief.ExtractFilesFromArchiv(pad("weg.thema"), pad("doel3"), true));
}

TEST_F(ArchiefTest, EventsComeInOrderWithWholePercentages) {
    for (const char* naam : {"a", "b", "c"})
        schrijf(pad(QStringLiteral("bron/") + QLatin1String(naam)), naam);
    QStringList gebeurd;
    archief.Status = [&](const QString& t) { gebeurd << "status " + t.left(2); };
    archief.Bestand = [&](const QString& n, qint64 g) {
        gebeurd << QStringLiteral("bestand %1 %2").arg(n).arg(g);
    };
    archief.Voortgang = [&](int p) { gebeurd << QStringLiteral("voortgang %1").arg(p); };
    int pompen = 0;
    archief.Pomp = [&] { ++pompen; };

    archief.SaveFilesToArchiv(pad("bron"), pad("p.thema"), false);
    EXPECT_EQ(
        QStringList({"status 1.", "status 2.", "status 3.", "bestand a 1", "voortgang 33",
                     "bestand b 1", "voortgang 66", "bestand c 1", "voortgang 100", "status 4."}),
        gebeurd);
    EXPECT_EQ(3, pompen);

    gebeurd.clear();
    archief.ExtractFilesFromArchiv(pad("p.thema"), pad("doel"), false);
    EXPECT_EQ(QStringList({"status 1.", "status 2.", "bestand a 1", "voortgang 33", "bestand b 1",
                           "voortgang 66", "bestand c 1", "voortgang 100", "status 3."}),
              gebeurd);
}

TEST_F(ArchiefTest, NamesThatEscapeTheTargetRefuseTheWholeArchive) {
    const QByteArray namen[] = {"..\\buiten.txt",
                                "a\\..\\..\\buiten.txt",
                                "a/../../buiten.txt",
                                "\\buiten.txt",
                                "/tmp/buiten.txt",
                                "C:\\buiten.txt",
                                "c:buiten.txt",
                                "a\\b:c",
                                "",
                                "map\\",
                                "..",
                                "a\\..",
                                QByteArray("a\0b", 3)};
    for (const QByteArray& naam : namen) {
        SCOPED_TRACE(naam.toStdString());
        // A good entry first: it must not be written either.
        schrijf(pad("boos.thema"),
                ArchiefBytes(2).entry("goed.txt", "g").entry(naam, "boos").bytes());
        try {
            archief.ExtractFilesFromArchiv(pad("boos.thema"), pad("t/doel"), true);
            ADD_FAILURE() << "not refused";
        } catch (const ArchiefFout& f) {
            // The fault names the archive and the entry.
            EXPECT_TRUE(f.oorzaak().startsWith(pad("boos.thema") + ": entry \"" +
                                               tk::Ansi::naarTekst(naam) + "\" refused: "))
                << f.oorzaak().toStdString();
            EXPECT_EQ("Tafelkrater_SERVER.ucArchief.ExtractFilesFromArchiv", f.bron());
        }
        EXPECT_FALSE(QFileInfo::exists(pad("t/doel/goed.txt")));
        EXPECT_FALSE(QFileInfo::exists(pad("t/buiten.txt")));
        EXPECT_FALSE(QFileInfo::exists(pad("boos.thema.tmp")));
        EXPECT_THROW(
            archief.ExtractFile(pad("boos.thema"), tk::Ansi::naarTekst(naam), pad("t/doel"), false),
            ArchiefFout);
    }
}

TEST_F(ArchiefTest, EveryTruncationOfAnArchiveIsAFaultAndWritesNothing) {
    const QByteArray heel =
        ArchiefBytes(2).entry("a\\een.txt", "inhoud").entry("twee.txt", metNul).bytes();
    ASSERT_TRUE(ArchiveIndex::parse(heel).ok());
    for (qsizetype lengte = 0; lengte < heel.size(); ++lengte) {
        SCOPED_TRACE(lengte);
        EXPECT_FALSE(ArchiveIndex::parse(heel.left(lengte)).ok());
        schrijf(pad("kort.thema"), heel.left(lengte));
        EXPECT_THROW(archief.ExtractFilesFromArchiv(pad("kort.thema"), pad("doel"), false),
                     ArchiefFout);
        EXPECT_FALSE(QFileInfo::exists(pad("doel")));
    }
}

TEST_F(ArchiefTest, GarbageLengthsAreFaultsWithoutHugeAllocations) {
    const QByteArray een = ArchiefBytes(1).kort(1).bytes() + "a";
    const struct {
        QByteArray bytes;
        const char* fout;
    } gevallen[] = {
        {"abc", "archive of 3 bytes is too short for its entry count"},
        {ArchiefBytes(-1).bytes(), "negative entry count -1"},
        {ArchiefBytes(0x7fffffff).bytes() + "12345",
         "entry count 2147483647 does not fit in the 5 bytes that follow"},
        {ArchiefBytes(2).entry("a", "123456").bytes() + "x",
         "entry 2 of 2: truncated before its name length"},
        {ArchiefBytes(1).kort(-5).getal(0).bytes(), "entry 1 of 1: negative name length -5"},
        {ArchiefBytes(1).kort(0x7fff).bytes() + "abcd", "entry 1 of 1: truncated in its name"},
        {ArchiefBytes(1).kort(10).bytes() + "abcdefgh", "entry 1 of 1: truncated in its name"},
        {een + ArchiefBytes(-1).bytes(), "entry 1 of 1: negative content length -1"},
        {een + ArchiefBytes(0x7fffffff).bytes() + "x",
         "entry 1 of 1: content of 2147483647 bytes, only 1 left"},
    };
    for (const auto& g : gevallen) {
        SCOPED_TRACE(g.bytes.toHex().toStdString());
        const ArchiveIndex::Result r = ArchiveIndex::parse(g.bytes);
        EXPECT_EQ(g.fout, r.error);
        EXPECT_LT(r.entries.size(), 2);
    }
    // Bytes after the last entry are left alone, as the format has no end marker.
    EXPECT_TRUE(ArchiveIndex::parse(ArchiefBytes(0).bytes() + "rest").ok());
}

TEST_F(ArchiefTest, FaultReachesTheCallersReporterWithTheControlsText) {
    tk::test::Werkplek w;
    w.schrijf("Afbeeldingen/Skins/Pakketten/8.thema", ArchiefBytes(3).bytes());
    const bool gelukt = tk::Procedure(w.p, "modData.LaadThemas", [&] {
        archief.ExtractFilesFromArchiv(w.pad("Afbeeldingen/Skins/Pakketten/8.thema"),
                                       w.pad("Afbeeldingen/Skins/8"), false);
    });
    EXPECT_FALSE(gelukt);
    EXPECT_EQ("modData.LaadThemas", w.p.frmFoutrapportage.Procedure);
    EXPECT_TRUE(w.p.frmFoutrapportage.Omschrijving.startsWith(
        "ucArchief component failure|Tafelkrater_SERVER.ucArchief.ExtractFilesFromArchiv: "))
        << w.p.frmFoutrapportage.Omschrijving.toStdString();
    EXPECT_TRUE(w.p.frmFoutrapportage.Omschrijving.contains("entry count 3"));
}

TEST_F(ArchiefTest, ASourceThatCannotBePackedLeavesNoHalfArchive) {
    const struct {
        const char* naam;
        std::function<void()> bron; // adds a file that fails to bron/, which holds "a"
        const char* fout;
    } gevallen[] = {
        // A file that is gone by the time it is read (every account, root too, meets this).
        {"gone",
         [&] {
             schrijf(pad("bron/b.txt"), "b");
             archief.Pomp = [&] { QFile::remove(pad("bron/b.txt")); };
         },
         "cannot read "},
        {"name outside the code page", [&] { schrijf(pad("bron/\u0416.txt"), "zj"); },
         "has characters outside Windows-1252"},
        // A sparse file: 2 GB and one byte do not fit the 32-bit length.
        {"over 2 GB",
         [&] {
             schrijf(pad("bron/groot"), "");
             QFile(pad("bron/groot")).resize(0x80000000LL);
         },
         "groot is larger than 2 GB"},
    };
    for (const auto& g : gevallen)
        for (bool viaTmp : {false, true}) {
            SCOPED_TRACE(std::string(g.naam) + (viaTmp ? " via tmp" : ""));
            QDir(pad("bron")).removeRecursively();
            archief.Pomp = nullptr;
            schrijf(pad("bron/a.txt"), "a");
            g.bron();
            try {
                archief.SaveFilesToArchiv(pad("bron"), pad("p.thema"), viaTmp);
                ADD_FAILURE() << "packed";
            } catch (const ArchiefFout& f) {
                EXPECT_TRUE(f.oorzaak().contains(g.fout)) << f.oorzaak().toStdString();
            }
            EXPECT_FALSE(QFileInfo::exists(pad("p.thema")));
            EXPECT_FALSE(QFileInfo::exists(pad("p.thema.tmp")));
        }
}

TEST_F(ArchiefTest, AFileThatCannotBeWrittenIsAFaultThatNamesIt) {
    schrijf(pad("p.thema"), ArchiefBytes(1).entry("Knoppen\\1a.jpg", "knop").bytes());
    QDir().mkpath(pad("doel/Knoppen/1a.jpg")); // a folder where the file must go
    try {
        archief.ExtractFilesFromArchiv(pad("p.thema"), pad("doel"), false);
        ADD_FAILURE() << "written";
    } catch (const ArchiefFout& f) {
        // The path, then the system's reason.
        const QString doel = pad("doel/Knoppen/1a.jpg");
        EXPECT_TRUE(f.oorzaak().startsWith("cannot write " + doel + ": "))
            << f.oorzaak().toStdString();
        EXPECT_FALSE(f.oorzaak().endsWith(doel)) << f.oorzaak().toStdString();
    }
}

TEST(InStrRTest, LastOccurrenceCountedFromOne) {
    struct Case {
        const char* tekst;
        const char* woord;
        int positie;
    };
    const Case cases[] = {
        {"Knoppen\\diep\\1a.jpg", "\\", 13},
        {"1a.jpg", "\\", 0},
        {"abab", "ab", 3},
        {"", "a", 0},
        {"abc", "", 0},
        {"\\", "\\", 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.tekst);
        EXPECT_EQ(c.positie,
                  UcArchief::InStrR(QString::fromLatin1(c.tekst), QString::fromLatin1(c.woord)));
    }
}

} // namespace
