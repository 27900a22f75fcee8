// Files to and from the server over the two socket pairs, against a peer on loopback that plays
// the server's side.
#include "link/BinaryReceiver.h"
#include "link/BinarySender.h"
#include "tests/link/TransferPeer.h"
#include "tests/support/Werkplek.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTimer>
#include <gtest/gtest.h>
#include <utility>

using namespace tk;
using tk::test::TransferPeer;
using tk::test::Werkplek;

namespace {

constexpr qint64 blok = 8192;
constexpr qint64 vijftigMB = 50LL * 1024 * 1024;

// Waits with the pump running until the condition holds; false after `ms` of real time, so that
// a transfer that would hang fails instead. The longest step, 50 MB on loopback, takes about a
// second even under the sanitizers.
bool wachtOp(Programma& p, const std::function<bool()>& voorwaarde, qint64 ms = 10000) {
    QElapsedTimer klok;
    klok.start();
    p.wacht.Tot([&] { return voorwaarde() || klok.hasExpired(ms); }, std::nullopt, false);
    return voorwaarde();
}

// Bytes in which a lost, doubled or shifted block shows.
QByteArray inhoud(qint64 n, quint32 zaad = 1) {
    QByteArray b(n, Qt::Uninitialized);
    quint32 x = zaad * 2654435761u + 12345u;
    for (qint64 i = 0; i < n; ++i) {
        x = x * 1664525u + 1013904223u;
        b[i] = char(x >> 24);
    }
    return b;
}

// Compares without printing megabytes on a failure.
::testing::AssertionResult zelfdeBytes(const QByteArray& verwacht, const QByteArray& gekregen) {
    if (verwacht == gekregen)
        return ::testing::AssertionSuccess();
    qsizetype i = 0;
    while (i < verwacht.size() && i < gekregen.size() && verwacht[i] == gekregen[i])
        ++i;
    return ::testing::AssertionFailure() << "expected " << verwacht.size() << " bytes, got "
                                         << gekregen.size() << ", first difference at " << i;
}

QStringList bestandenOnder(const QString& map) {
    QStringList namen;
    QDirIterator it(map, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext())
        namen.append(QDir(map).relativeFilePath(it.next()));
    namen.sort();
    return namen;
}

// A receiver on a fresh workstation, listening on free ports, with the server connected to it.
struct Download {
    Werkplek w;
    BinaryReceiver receiver{w.p};
    TransferPeer server;
    int vragen = 0;
    int klaar = 0;
    int verbonden = 0;
    QStringList fouten;
    QList<std::pair<qint64, qint64>> voortgang;
    bool luistert = false;

    Download() {
        receiver.onSendRequest = [this] { ++vragen; };
        receiver.onReceiveComplete = [this] { ++klaar; };
        receiver.onConnected = [this] { ++verbonden; };
        receiver.onError = [this](const QString& f) { fouten.append(f); };
        receiver.onReceiveProgress = [this](qint64 a, qint64 b) { voortgang.append({a, b}); };
        receiver.setLocalPortInfo(0);
        receiver.setLocalPortBinary(0);
        herstart();
    }
    // The caller starts again the usual way: Reset, Listen (on the ports of before); the server
    // connects anew.
    void herstart() {
        receiver.Reset();
        verbonden = 0;
        server.infoOntvangen.clear();
        luistert = receiver.Listen();
        server.verbindMet(quint16(receiver.localPortInfo()), quint16(receiver.localPortBinary()));
    }
    bool opgezet() {
        return luistert && wachtOp(w.p, [&] {
                   return verbonden == 1 && server.verbonden() &&
                          server.infoOntvangen.contains("CNT");
               });
    }
    bool bied(const QByteArray& aanbod) {
        const int voor = vragen;
        server.stuurInfo(aanbod);
        return wachtOp(w.p, [&] { return vragen > voor; });
    }
    bool laatste(const QByteArray& bericht) {
        return wachtOp(w.p, [&] {
            return !server.infoOntvangen.isEmpty() && server.infoOntvangen.last() == bericht;
        });
    }
    // Sends a message the client answers nothing to, and lets the client read it before the next
    // one, so that the two do not merge into one read.
    bool stuurLos(const QByteArray& bericht) {
        server.stuurInfo(bericht);
        if (!wachtOp(w.p, [&] { return server.geleegd(); }))
            return false;
        w.p.wacht.Pomp();
        w.p.wacht.Pomp();
        return true;
    }
    bool accepteer(const QString& pad) {
        receiver.AcceptSendRequest(pad);
        return laatste("ACP");
    }
    // Offers, accepts into `doel` and sends the bytes; true once the client said "RFC".
    bool haal(const QByteArray& aanbod, const QString& doel, const QByteArray& bytes) {
        if (!bied(aanbod) || !accepteer(doel))
            return false;
        server.stuurBinair(bytes);
        return laatste("RFC");
    }
    QStringList tijdelijk() const { return bestandenOnder(receiver.temporaryFolder()); }
};

// A sender on a fresh workstation and a server listening on free ports; the events are handled
// as frmMain handles them (SendFile at once on acceptance, ResetFile and Reset on completion).
struct Upload {
    Werkplek w;
    BinarySender sender{w.p};
    TransferPeer server;
    int verbonden = 0;
    int geaccepteerd = 0;
    int geweigerd = 0;
    int klaar = 0;
    int sendFileTerug = 0;
    QStringList fouten;
    QList<std::pair<qint64, qint64>> voortgang;

    Upload() {
        server.luister();
        sender.onConnected = [this] { ++verbonden; };
        sender.onCommandAccepted = [this] {
            ++geaccepteerd;
            sender.SendFile();
            ++sendFileTerug;
        };
        sender.onCommandRefused = [this] { ++geweigerd; };
        sender.onSendProgress = [this](qint64 a, qint64 b) { voortgang.append({a, b}); };
        sender.onSendComplete = [this] {
            ++klaar;
            sender.ResetFile();
            sender.Reset();
        };
        sender.onSendError = [this](const QString& f) { fouten.append(f); };
    }
    // The way frmHelp sends: Reset, host, ports, Source; Connect; wait; SendInfo.
    bool biedAan(const QString& bron) {
        sender.Reset();
        sender.setRemoteHost("127.0.0.1");
        sender.setRemotePortInfo(server.infoPoort());
        sender.setRemotePortBinary(server.binairPoort());
        if (!sender.setSource(bron))
            return false;
        const int voor = verbonden;
        sender.Connect();
        if (!wachtOp(w.p, [&] { return verbonden > voor; }))
            return false;
        sender.SendInfo();
        return true;
    }
};

} // namespace

TEST(FileOfferTest, SizeNumberAndNameAreTakenAndABadSizeIsNoOffer) {
    struct Case {
        const char* bericht;
        bool geldig;
        qint64 grootte;
        qint64 nummer;
        const char* naam;
    };
    const Case cases[] = {
        {"FIS12|0@foto.jpg", true, 12, 0, "foto.jpg"},
        {"FIS12|@foto.jpg", true, 12, 0, "foto.jpg"}, // no number
        {"FIS0|0@leeg", true, 0, 0, "leeg"},
        {"FIS12|0", true, 12, 0, ""},        // no "@": an empty name
        {"FIS12|7abc", true, 12, 7, ""},     // the number is all that follows
        {"FIS12|3@a@b", true, 12, 3, "a@b"}, // the first "@" ends the number
        {"FIS5|0@../../etc/passwd", true, 5, 0, "../../etc/passwd"}, // a name is only a name
        {"FIS12|0@na|am", true, 12, 0, "na|am"},
        {"FIS|0@x", false, 0, 0, ""},    // no size
        {"FIS-5|0@x", false, 0, 0, ""},  // negative
        {"FIS1e3|0@x", false, 0, 0, ""}, // not decimal digits
        {"FIS 12|0@x", false, 0, 0, ""},
        {"FISabc|0@x", false, 0, 0, ""},
        {"FIS12", false, 0, 0, ""}, // no "|"
        {"FIS", false, 0, 0, ""},
        {"FIS9999999999999999999|0@x", false, 0, 0, ""}, // too big for any file
        {"FSC", false, 0, 0, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bericht);
        const auto aanbod = BinaryReceiver::parseFileOffer(QString::fromLatin1(c.bericht));
        EXPECT_EQ(aanbod.geldig, c.geldig);
        EXPECT_EQ(aanbod.fout.isEmpty(), c.geldig);
        if (!c.geldig)
            continue;
        EXPECT_EQ(aanbod.grootte, c.grootte);
        EXPECT_EQ(aanbod.nummer, c.nummer);
        EXPECT_EQ(aanbod.naam, QString::fromLatin1(c.naam));
    }
    // What the sender offers is the name behind the last separator of either kind.
    const std::pair<const char*, const char*> paden[] = {
        {"C:\\Tafelkrater\\Tijdelijk\\scherm.jpg", "scherm.jpg"},
        {"/opt/tafelkrater/Data/fout.txt", "fout.txt"},
        {"\\Data\\sub/mix\\laatste.bin", "laatste.bin"},
        {"naam.txt", "naam.txt"},
        {"\\Tijdelijk\\", ""},
    };
    for (const auto& [pad, naam] : paden)
        EXPECT_EQ(BinarySender::StripPath(QString::fromLatin1(pad)), QString::fromLatin1(naam))
            << pad;
}

TEST(DownloadTest, FilesOfOneByteABlockABlockAndOneAndFiftyMegabytesArriveWholeOnOneConnection) {
    Download d;
    ASSERT_TRUE(d.opgezet());
    qint64 totaal = 0;
    for (const qint64 grootte : {qint64(1), blok, blok + 1, vijftigMB}) {
        SCOPED_TRACE(grootte);
        const QByteArray bytes = inhoud(grootte, quint32(grootte));
        // No ResetFile in between: an accepted file starts its own count.
        ASSERT_TRUE(d.haal(QByteArrayLiteral("FIS") + QByteArray::number(grootte) + "|0@doel.bin",
                           QString("\\Tijdelijk\\doel%1.bin").arg(grootte), bytes));
        totaal += grootte;
        EXPECT_TRUE(zelfdeBytes(bytes, d.w.lees(QString("Tijdelijk/doel%1.bin").arg(grootte))));
        EXPECT_EQ(d.tijdelijk(), QStringList());
        EXPECT_EQ(d.receiver.ontvangen(), grootte);
        EXPECT_EQ(d.receiver.totaal(), totaal);
        ASSERT_FALSE(d.voortgang.isEmpty());
        EXPECT_EQ(d.voortgang.last(), std::make_pair(totaal, grootte));
        EXPECT_FALSE(d.receiver.speedTimerActive());
    }
    EXPECT_EQ(d.klaar, 4);
    EXPECT_TRUE(d.fouten.isEmpty()) << d.fouten.join(u'\n').toStdString();
    EXPECT_TRUE(d.w.dialogen.getoond.isEmpty());
}

TEST(UploadTest, FilesOfOneByteABlockABlockAndOneAndFiftyMegabytesArriveWhole) {
    Upload u;
    // 270341 bytes: blocks across the stretches read from disk, and an odd rest.
    for (const qint64 grootte : {qint64(1), blok, blok + 1, qint64(270341), vijftigMB}) {
        SCOPED_TRACE(grootte);
        const QByteArray bytes = inhoud(grootte, quint32(grootte) + 7);
        u.w.schrijf("Tijdelijk/scherm.bin", bytes);
        u.server.infoOntvangen.clear();
        u.server.binairOntvangen.clear();
        u.server.binairAantal = 0;
        u.voortgang.clear();
        const int klaarVoor = u.klaar;
        ASSERT_TRUE(u.biedAan("\\Tijdelijk\\scherm.bin"));
        ASSERT_TRUE(wachtOp(u.w.p, [&] { return u.klaar > klaarVoor; }));
        ASSERT_FALSE(u.server.infoOntvangen.isEmpty());
        EXPECT_EQ(u.server.infoOntvangen.first(),
                  QByteArrayLiteral("FIS") + QByteArray::number(grootte) + "|0@scherm.bin");
        EXPECT_TRUE(zelfdeBytes(bytes, u.server.binairOntvangen));
        ASSERT_FALSE(u.voortgang.isEmpty());
        EXPECT_EQ(u.voortgang.last(), std::make_pair(grootte, grootte));
        EXPECT_EQ(u.sendFileTerug, u.geaccepteerd);
        // frmMain's Reset on completion closed both sockets.
        EXPECT_FALSE(u.sender.Connected());
        EXPECT_EQ(u.sender.verzonden(), 0);
    }
    // The original file is only read.
    EXPECT_EQ(u.w.lees("Tijdelijk/scherm.bin").size(), vijftigMB);
    EXPECT_TRUE(u.fouten.isEmpty()) << u.fouten.join(u'\n').toStdString();
    EXPECT_TRUE(u.w.dialogen.getoond.isEmpty());
}

TEST(TransferTest, AnEmptyFileMovesNoByteAndEndsOnlyWhenTheServerSaysSo) {
    Download d;
    ASSERT_TRUE(d.opgezet());
    d.w.schrijf("Tijdelijk/leeg.bin", "oud");
    ASSERT_TRUE(d.bied("FIS0|0@leeg.bin"));
    ASSERT_TRUE(d.accepteer("\\Tijdelijk\\leeg.bin"));
    // Completion is tested only when bytes arrive; an empty file brings none.
    d.w.p.wacht.Pomp();
    EXPECT_EQ(d.klaar, 0);
    EXPECT_FALSE(d.server.infoOntvangen.contains("RFC"));
    EXPECT_EQ(d.w.lees("Tijdelijk/leeg.bin"), QByteArray("oud"));
    // The server's "FSC" is the only way a caller learns the transfer is over (FramingTest).

    Upload u;
    u.w.schrijf("Tijdelijk/leeg.bin", QByteArray());
    ASSERT_TRUE(u.biedAan("\\Tijdelijk\\leeg.bin"));
    ASSERT_TRUE(wachtOp(u.w.p, [&] { return u.sendFileTerug == 1; }));
    EXPECT_EQ(u.server.infoOntvangen.first(), QByteArray("FIS0|0@leeg.bin"));
    EXPECT_FALSE(u.sender.speedTimerActive());
    u.w.p.wacht.Pomp();
    EXPECT_EQ(u.server.binairAantal, 0);
    EXPECT_TRUE(u.voortgang.isEmpty());
    EXPECT_EQ(u.klaar, 0);
}

TEST(DownloadTest, BadOffersAreRefusedAndAnOfferBeforeTheEndOverwritesTheAnnouncedOne) {
    struct Case {
        QByteArray bericht;
        bool geweigerd;
    };
    const Case cases[] = {
        // One bad size stands for the offers the parser refuses (its own table has them all).
        {"FIS-5|0@x", true}, {"XYZ", false},
        {"fis5|0@x", false}, // commands are case-sensitive
        {"ACP", false},      {QByteArrayLiteral("\xff\x00\x01"), false},
        {"FI", false},       {"RFC", false},
        {"CNT", false},
    };
    Download d;
    ASSERT_TRUE(d.opgezet());
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bericht.toHex().toStdString());
        const qsizetype foutenVoor = d.fouten.size();
        const qsizetype berichtenVoor = d.server.infoOntvangen.size();
        if (c.geweigerd) {
            d.server.stuurInfo(c.bericht);
            EXPECT_TRUE(
                wachtOp(d.w.p, [&] { return d.server.infoOntvangen.size() == berichtenVoor + 1; }));
            EXPECT_EQ(d.server.infoOntvangen.last(), QByteArray("RFS"));
            EXPECT_EQ(d.fouten.size(), foutenVoor + 1);
        } else {
            // A valid offer after it proves the garbage was read and dropped.
            ASSERT_TRUE(d.stuurLos(c.bericht));
            ASSERT_TRUE(d.bied("FIS7|0@daarna"));
            EXPECT_EQ(d.server.infoOntvangen.size(), berichtenVoor);
            EXPECT_EQ(d.fouten.size(), foutenVoor);
        }
    }
    // Each valid offer raised the request; no bad one did.
    EXPECT_EQ(d.vragen, 7);
    EXPECT_EQ(d.klaar, 0);
    EXPECT_EQ(bestandenOnder(d.w.map()), QStringList());
    EXPECT_TRUE(d.w.dialogen.getoond.isEmpty());

    // A refusal says "RFS" and keeps the connection for the next offer.
    ASSERT_TRUE(d.bied("FIS5|0@nee"));
    d.receiver.RefuseSendRequest();
    ASSERT_TRUE(d.laatste("RFS"));
    EXPECT_EQ(d.tijdelijk(), QStringList());
    // A second offer halfway a file: its size, number and name count from then on.
    const QByteArray bytes = inhoud(100);
    ASSERT_TRUE(d.bied("FIS100|0@eerste.bin"));
    ASSERT_TRUE(d.accepteer("\\Tijdelijk\\doel.bin"));
    d.server.stuurBinair(bytes.left(10));
    ASSERT_TRUE(wachtOp(d.w.p, [&] { return d.receiver.ontvangen() == 10; }));
    ASSERT_TRUE(d.bied("FIS20|4@tweede.bin"));
    EXPECT_EQ(d.receiver.currentFileSize(), 20);
    EXPECT_EQ(d.receiver.currentFileName(), "tweede.bin");
    EXPECT_EQ(d.receiver.currentFileNumber(), 4);
    d.server.stuurBinair(bytes.mid(10, 10));
    ASSERT_TRUE(d.laatste("RFC"));
    EXPECT_EQ(d.w.lees("Tijdelijk/doel.bin"), bytes.left(20));
    EXPECT_EQ(d.klaar, 1);
}

TEST(DownloadTest, OfferedNamesWithPathsWriteOnlyToTheCallersTarget) {
    Download d;
    ASSERT_TRUE(d.opgezet());
    d.w.schrijf("Pakket/lees.mij", "blijft");
    for (const char* naam : {"../../etc/passwd", "a\\..\\b", "..\\..\\..\\Data\\Instellingen.ini",
                             "/etc/passwd", "..", "C:\\Windows\\win.ini", "Tijdelijk/../../x"}) {
        SCOPED_TRACE(naam);
        // Where the name would land if anything built a path from it.
        QStringList verboden;
        for (const QString& map : {d.w.map(), d.receiver.temporaryFolder()}) {
            const QString plek =
                QDir::cleanPath(map + u'/' + QString::fromLatin1(naam).replace(u'\\', u'/'));
            if (!QFileInfo::exists(plek))
                verboden.append(plek);
        }
        const QByteArray bytes = inhoud(3000);
        ASSERT_TRUE(d.haal(QByteArrayLiteral("FIS3000|0@") + naam, "\\Pakket\\doel.dat", bytes));
        EXPECT_EQ(d.receiver.currentFileName(), QString::fromLatin1(naam));
        EXPECT_TRUE(zelfdeBytes(bytes, d.w.lees("Pakket/doel.dat")));
        EXPECT_EQ(d.w.lees("Pakket/lees.mij"), QByteArray("blijft"));
        EXPECT_EQ(bestandenOnder(d.w.map()), (QStringList{"Pakket/doel.dat", "Pakket/lees.mij"}));
        for (const QString& plek : verboden)
            EXPECT_FALSE(QFileInfo(plek).isFile()) << plek.toStdString();
    }
}

TEST(DownloadTest, BytesBeyondTheAnnouncedSizeOrWithoutAnAcceptedFileNeverReachAFile) {
    Download d;
    ASSERT_TRUE(d.opgezet());
    // Before any acceptance.
    d.server.stuurBinair("vroeg");
    ASSERT_TRUE(wachtOp(d.w.p, [&] { return d.fouten.size() == 1; }));
    EXPECT_EQ(bestandenOnder(d.w.map()), QStringList());

    const QByteArray bytes = inhoud(15);
    ASSERT_TRUE(d.haal("FIS10|0@tien", "\\Tijdelijk\\tien.bin", bytes));
    EXPECT_EQ(d.w.lees("Tijdelijk/tien.bin"), bytes.left(10));
    EXPECT_EQ(d.receiver.ontvangen(), 10);
    EXPECT_EQ(d.fouten.size(), 2);
    // After the end.
    d.server.stuurBinair("laat");
    ASSERT_TRUE(wachtOp(d.w.p, [&] { return d.fouten.size() == 3; }));
    EXPECT_EQ(d.w.lees("Tijdelijk/tien.bin"), bytes.left(10));
    EXPECT_EQ(d.klaar, 1);
    EXPECT_EQ(d.server.infoOntvangen.count("RFC"), 1);
}

TEST(DownloadTest, ADisconnectMidFileLeavesTheTargetUntouchedAndNoTemporaryFilesPileUp) {
    Download d;
    ASSERT_TRUE(d.opgezet());
    const QByteArray oud("het vorige thema");
    d.w.schrijf("Tijdelijk/thema.bin", oud);
    ASSERT_TRUE(d.bied("FIS100000|3@thema.bin"));
    ASSERT_TRUE(d.accepteer("\\Tijdelijk\\thema.bin"));
    d.server.stuurBinair(inhoud(40000));
    ASSERT_TRUE(wachtOp(d.w.p, [&] { return d.receiver.ontvangen() == 40000; }));
    d.server.sluit();
    ASSERT_TRUE(wachtOp(d.w.p, [&] { return !d.fouten.isEmpty(); }));
    EXPECT_EQ(d.klaar, 0);
    EXPECT_EQ(d.w.lees("Tijdelijk/thema.bin"), oud);
    // The broken transfer leaves its temporary file, and only that one, until the caller drops it.
    EXPECT_EQ(d.tijdelijk().size(), 1);
    EXPECT_TRUE(d.receiver.speedTimerActive());
    d.receiver.ResetFile();
    EXPECT_EQ(std::pair(d.receiver.speedTimerActive(), d.receiver.ontvangen()),
              std::pair(false, qint64(0)));
    EXPECT_EQ(d.tijdelijk(), QStringList());
    d.herstart();
    EXPECT_EQ(std::tuple(d.receiver.currentFileSize(), d.receiver.currentFileName(),
                         d.receiver.currentFileNumber(), d.receiver.ontvangen()),
              std::tuple(qint64(0), QString(), qint64(0), qint64(0)));
    ASSERT_TRUE(d.opgezet());
    const QByteArray nieuw = inhoud(100000, 9);
    ASSERT_TRUE(d.haal("FIS100000|0@thema.bin", "\\Tijdelijk\\thema.bin", nieuw));
    EXPECT_TRUE(zelfdeBytes(nieuw, d.w.lees("Tijdelijk/thema.bin")));
    EXPECT_EQ(d.tijdelijk(), QStringList());

    // A missing target folder is a reported fault that leaves no file behind.
    ASSERT_TRUE(d.bied("FIS4|0@x"));
    ASSERT_TRUE(d.accepteer("\\Bestaat\\Niet\\x.bin"));
    d.server.stuurBinair("abcd");
    ASSERT_TRUE(wachtOp(d.w.p, [&] { return !d.w.dialogen.getoond.isEmpty(); }));
    EXPECT_EQ(d.klaar, 1);
    EXPECT_EQ(d.server.infoOntvangen.count("RFC"), 1);
    EXPECT_EQ(d.tijdelijk(), QStringList());
    EXPECT_FALSE(QFileInfo::exists(d.w.pad("Bestaat")));
}

TEST(UploadTest, RefusedCutOffOrSourcelessUploadsEndWithoutCompletion) {
    Upload u;
    u.server.opAanbod = TransferPeer::Antwoord::Weigeren;
    u.w.schrijf("Tijdelijk/x.bin", inhoud(5000));
    ASSERT_TRUE(u.biedAan("\\Tijdelijk\\x.bin"));
    ASSERT_TRUE(wachtOp(u.w.p, [&] { return u.geweigerd == 1; }));
    u.w.p.wacht.Pomp();
    EXPECT_EQ(u.geaccepteerd, 0);
    EXPECT_EQ(u.server.binairAantal, 0);

    // A server that disconnects mid-file ends SendFile with a send error.
    u.server.opAanbod = TransferPeer::Antwoord::Accepteren;
    u.server.sluitNa = 100000;
    u.server.bewaarBytes = false;
    u.w.schrijf("Tijdelijk/groot.bin", inhoud(20 * 1024 * 1024));
    ASSERT_TRUE(u.biedAan("\\Tijdelijk\\groot.bin"));
    ASSERT_TRUE(wachtOp(u.w.p, [&] { return u.sendFileTerug == 1; }));
    EXPECT_FALSE(u.fouten.isEmpty());
    EXPECT_LT(u.sender.verzonden(), 20 * 1024 * 1024);
    EXPECT_EQ(u.klaar, 0);
    EXPECT_TRUE(u.w.dialogen.getoond.isEmpty());

    // A missing source, and sends without a connection, are reported faults.
    Upload zonder;
    EXPECT_FALSE(zonder.sender.setSource("\\Tijdelijk\\bestaat-niet.bin"));
    EXPECT_EQ(zonder.sender.currentFileName(), "bestaat-niet.bin");
    EXPECT_EQ(zonder.sender.currentFileSize(), 0);
    zonder.sender.SendInfo();
    zonder.sender.SendFile();
    EXPECT_EQ(zonder.w.dialogen.getoond.size(), 3);
    EXPECT_EQ(zonder.server.binairAantal, 0);
}

TEST(FramingTest, AnOfferSplitOverTwoReadsIsAnOfferWithoutANameAndTwoInOneReadTheFirstOnly) {
    Download d;
    ASSERT_TRUE(d.opgezet());
    ASSERT_TRUE(d.bied("FIS12|0"));
    EXPECT_EQ(d.receiver.currentFileSize(), 12);
    EXPECT_EQ(d.receiver.currentFileName(), QString());
    // The rest matches no command and is dropped.
    ASSERT_TRUE(d.stuurLos("@naam.bin"));
    d.server.stuurInfo("FSCFIS5|0@x");
    ASSERT_TRUE(wachtOp(d.w.p, [&] { return d.klaar == 1; }));
    ASSERT_TRUE(d.bied("FIS1|0@y"));
    EXPECT_EQ(d.vragen, 2);
    EXPECT_EQ(d.receiver.currentFileName(), "y");
    EXPECT_TRUE(d.fouten.isEmpty());

    // "ACP" and "RFC" together: the file goes, but completion is never told.
    Upload u;
    u.server.opAanbod = TransferPeer::Antwoord::Stil;
    u.w.schrijf("Tijdelijk/x.bin", "abc");
    ASSERT_TRUE(u.biedAan("\\Tijdelijk\\x.bin"));
    ASSERT_TRUE(wachtOp(u.w.p, [&] { return !u.server.infoOntvangen.isEmpty(); }));
    u.server.aangekondigd = -1;
    u.server.stuurInfo("ACPRFC");
    ASSERT_TRUE(wachtOp(u.w.p, [&] { return u.server.binairAantal == 3; }));
    EXPECT_EQ(u.geaccepteerd, 1);
    EXPECT_EQ(u.klaar, 0);
}

// The test ticks the speed timer itself: the real half-second timer would take bytes in between.
void tikZelf(QObject& overdracht) {
    QTimer* tmr = overdracht.findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_NE(tmr, nullptr);
    EXPECT_EQ(tmr->interval(), 500);
    tmr->setInterval(std::chrono::hours(1));
}

TEST(SpeedTest, EachTickReportsTheBytesOfTheLastHalfSecondInKilobytesPerSecond) {
    Download d;
    ASSERT_TRUE(d.opgezet());
    tikZelf(d.receiver);
    QList<qint64> snelheden;
    d.receiver.onSpeedRecord = [&](qint64 kbps) { snelheden.append(kbps); };
    ASSERT_TRUE(d.bied("FIS30720|0@s"));
    ASSERT_TRUE(d.accepteer("\\Tijdelijk\\s.bin"));
    d.server.stuurBinair(inhoud(10240));
    ASSERT_TRUE(wachtOp(d.w.p, [&] { return d.receiver.ontvangen() == 10240; }));
    EXPECT_TRUE(d.receiver.speedTimerActive());
    d.receiver.tmrDownloadSpeed_Timer(); // 10 KB in half a second
    d.receiver.tmrDownloadSpeed_Timer(); // nothing since
    d.server.stuurBinair(inhoud(20480));
    ASSERT_TRUE(d.laatste("RFC"));
    d.receiver.tmrDownloadSpeed_Timer();
    EXPECT_EQ(snelheden, (QList<qint64>{20, 0, 40}));

    Upload u;
    tikZelf(u.sender);
    QList<qint64> uit;
    u.sender.onSpeedRecord = [&](qint64 kbps) { uit.append(kbps); };
    u.sender.onSendComplete = [&] { ++u.klaar; };
    u.w.schrijf("Tijdelijk/x.bin", inhoud(51200));
    ASSERT_TRUE(u.biedAan("\\Tijdelijk\\x.bin"));
    ASSERT_TRUE(wachtOp(u.w.p, [&] { return u.klaar == 1; }));
    u.sender.tmrUploadSpeed_Timer();
    u.sender.tmrUploadSpeed_Timer();
    EXPECT_EQ(uit, (QList<qint64>{100, 0}));
    // Here no Reset follows completion, so that ResetFile alone shows it clears the counters.
    u.sender.ResetFile();
    EXPECT_EQ(std::pair(u.sender.verzonden(), u.sender.gelezen()), std::pair(qint64(0), qint64(0)));
}

TEST(DownloadTest, ListenTakesTheSamePortsAgainRefusesATakenOneAndClearsStaleTemporaryFiles) {
    Download d;
    ASSERT_TRUE(d.opgezet());
    const qint64 info = d.receiver.localPortInfo();
    const qint64 binair = d.receiver.localPortBinary();
    ASSERT_TRUE(d.haal("FIS3|0@a", "\\Tijdelijk\\a.bin", "abc"));

    d.receiver.Reset();
    ASSERT_TRUE(d.receiver.Listen());
    EXPECT_EQ(d.receiver.localPortInfo(), info);
    EXPECT_EQ(d.receiver.localPortBinary(), binair);

    // A second receiver cannot take ports that are in use.
    BinaryReceiver tweede(d.w.p);
    QStringList fouten;
    tweede.onError = [&](const QString& f) { fouten.append(f); };
    tweede.setLocalPortInfo(info);
    tweede.setLocalPortBinary(binair);
    EXPECT_FALSE(tweede.Listen());
    EXPECT_EQ(fouten.size(), 1);
    tweede.setLocalPortBinary(0); // so that only the info port decides
    for (const qint64 poort : {qint64(-1), qint64(65536)}) {
        tweede.setLocalPortInfo(poort);
        EXPECT_FALSE(tweede.Listen()) << poort;
    }

    // A temporary file left by a run that ended mid-file goes at Listen; nothing else does.
    d.w.schrijf("Tijdelijk/Ontvangst/TMPab12cd", "rest van een vorige keer");
    d.herstart();
    EXPECT_EQ(bestandenOnder(d.w.pad("Tijdelijk")), QStringList{"a.bin"});
    ASSERT_TRUE(d.opgezet());
    ASSERT_TRUE(d.haal("FIS2|0@b", "\\Tijdelijk\\b.bin", "de"));
    EXPECT_EQ(d.w.lees("Tijdelijk/b.bin"), QByteArray("de"));
}
