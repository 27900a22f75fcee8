// The client's parts against the real server: that they are wired to it. What the server does with
// each request is its own tests' business; what the client does with each reply, the scripted
// peer's.
#include "core/Ansi.h"
#include "core/IniDocument.h"
#include "core/UnbuiltStartSteps.h"
#include "data/SealedCache.h"
#include "tests/e2e/ServerProces.h"
#include "tests/support/Werkplek.h"
#include "theme/ModDataPictogrammen.h"
#include "theme/ModDataThemas.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::OpnameStartscherm;
using tk::test::ServerProces;
using tk::test::Werkplek;

namespace {

class Stappen : public UnbuiltStartSteps {
public:
    explicit Stappen(Programma& p) : UnbuiltStartSteps(p) {}
    // The language is the first thing the load asks of the server.
    void Laden() override { p.modMain.LaadTaal(); }
    void OpenGlobal(bool) override { geopend = QStringLiteral("GLOBAL"); }
    void OpenOnderhoud() override { geopend = QStringLiteral("ONDERHOUD"); }
    QString geopend;
};

QByteArray bestand(const QString& pad) {
    QFile f(pad);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(missing)");
}

} // namespace

TEST(WerkstationE2ETest, AManagementWorkstationStartsUpOnTheServersPortsAndLanguage) {
    ServerProces server;
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
    Werkplek w;
    FrmMainLink& f = w.verbinding(server.poort(), Werkplek::Rol::Beheer, 10);
    Stappen stappen(w.p);
    w.p.opstartStappen = &stappen;

    w.p.modMainVerbinding->StartVerbinding(false);

    EXPECT_TRUE(f.isConnected());
    EXPECT_EQ(QList<quint16>({quint16(f.ReceiverPortBinary), quint16(f.ReceiverPortInfo),
                              quint16(f.SenderPortBinary), quint16(f.SenderPortInfo)}),
              server.overdrachtPoorten());
    EXPECT_EQ(w.p.modTaal.Taal, 1043); // the demo school speaks Dutch
    EXPECT_EQ(stappen.geopend, QStringLiteral("ONDERHOUD"));
    w.p.modMainVerbinding->GeefLocatieDoor(QStringLiteral("ONDERHOUD"));
    EXPECT_TRUE(f.BevestigdBericht);
}

TEST(WerkstationE2ETest, FilesTravelBothWaysAndThemesAndIconsArriveUnpacked) {
    ServerProces server({QStringLiteral("--theme"), QStringLiteral(TK_DEFAULT_THEME_DIR)});
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
    Werkplek w;
    FrmMainLink& f = w.verbinding(server.poort(), Werkplek::Rol::Netwerk, 10);
    ASSERT_TRUE(w.identificeer());

    // A problem call's screenshot up and back: bytes that a text path would spoil.
    QByteArray jpeg("\xff\xd8\xff\xe0\0", 5);
    for (int i = 0; i < 30000; ++i)
        jpeg.append(char(i * 7));
    w.schrijf(QStringLiteral("Tijdelijk/screenshot17.jpg"), jpeg);
    const QString sep = QStringLiteral(";<>;");
    w.vraag(QStringLiteral("HLPOPSManual;<>;LOKAAL-12;<>;Juf Anna;<>;Bureaublad;<>;Tekenen;<>;"
                           "Start niet;<>;Ja;<>;9-3-2026 8:30:00"));
    ASSERT_TRUE(f.VerstuurBestand(w.pad(QStringLiteral("Tijdelijk/screenshot17.jpg"))));
    const QString id = w.vraag(QStringLiteral("HLPLDN1")).section(sep, 0, 0);
    ASSERT_TRUE(f.OntvangBestand(QStringLiteral("HLPSCR") + id,
                                 QStringLiteral("\\Data\\Help\\") + id + QStringLiteral(".jpg")));
    EXPECT_EQ(w.lees(QStringLiteral("Data/Help/") + id + QStringLiteral(".jpg")), jpeg);

    // The school's theme comes as a package and is unpacked picture for picture.
    OpnameStartscherm startscherm;
    w.p.startScreenEvents = &startscherm;
    ModDataThemas(w.p).LaadThemas(true);
    const QString themaId = w.p.modMain.LeesIni(QStringLiteral("themaID"), QStringLiteral("1"),
                                                QStringLiteral("\\Data\\Thema.ini"));
    EXPECT_EQ(bestand(w.pad(QStringLiteral("Afbeeldingen/Skins/%1/Instellingen.ini").arg(themaId))),
              bestand(QStringLiteral(TK_DEFAULT_THEME_DIR "/Instellingen.ini")))
        << server.uitvoer().toStdString();

    // An icon of each kind, sent as the maintenance module sends one, comes to its own folder.
    const QStringList soorten{QStringLiteral("a"), QStringLiteral("k"), QStringLiteral("l")};
    const QStringList mappen{QStringLiteral("Algemeen"), QStringLiteral("Groepen"),
                             QStringLiteral("Leerkrachten")};
    auto icoon = [](const QString& soort) {
        return QByteArray("icoon\0\xff", 7) + soort.toLatin1();
    };
    for (const QString& soort : soorten) {
        w.schrijf(QStringLiteral("Tijdelijk/1.pic"), icoon(soort));
        ASSERT_EQ(w.vraag(QStringLiteral("OPSAP2") + soort + QStringLiteral("|1.pic")), u"OK");
        ASSERT_TRUE(f.VerstuurBestand(w.pad(QStringLiteral("Tijdelijk/1.pic"))));
    }
    QDir(w.pad(QStringLiteral("Tijdelijk"))).removeRecursively();
    ASSERT_TRUE(ModDataPictogrammen(w.p).LaadPictogrammen()) << server.uitvoer().toStdString();
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(
            w.lees(QStringLiteral("Afbeeldingen/Pictogrammen/Applicaties/%1/1.pic").arg(mappen[i])),
            icoon(soorten[i]));
}

// The demo school loads whole, and the sealed cache holds the server's answers as it gave them
// (which answer goes under which key, and the offline start from it, are LadenTest's).
TEST(WerkstationE2ETest, TheOnlineLoadTakesTheWholeSchoolAndSealsTheServersAnswers) {
    ServerProces server;
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
    Werkplek online(Werkplek::gegevens, server.poort());
    online.laadOnline();
    EXPECT_TRUE(online.rapporten.isEmpty())
        << online.rapporten.join(QStringLiteral(", ")).toStdString();
    ModData& d = online.d();
    EXPECT_GT(d.Klassen.gebruikt(), 0);
    EXPECT_GT(d.Leraren.gebruikt(), 0);
    EXPECT_FALSE(d.Applicaties[0].vrij(0));
    const IniDocument cache =
        IniDocument::parse(Ansi::naarTekst(SealedCache::decipher(online.cache())));
    EXPECT_EQ(cache.value(QStringLiteral("Groepen"), QStringLiteral("Info")),
              online.vraag(QStringLiteral("LDNKLSSNC")));
    EXPECT_FALSE(QFileInfo::exists(online.pad(QStringLiteral("Data/Tijdelijk.ini"))));
}
