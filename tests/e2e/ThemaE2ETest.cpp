// Themes come from the real server as packages over the file transfer.
#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "tests/e2e/ServerProces.h"
#include "tests/e2e/Werkstation.h"
#include "tests/support/OpnameSchermen.h"
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
using tk::test::Werkstation;

TEST(ThemaE2ETest, ANewWorkstationFetchesTheSchoolsThemeAndUnpacksIt) {
    ServerProces server({QStringLiteral("--theme"), QStringLiteral(TK_DEFAULT_THEME_DIR)});
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
    Werkstation ws(server.poort(), false);
    Werkplek& w = ws.w;
    ASSERT_TRUE(ws.verbind());

    // The start screen's loading bar goes to its place and follows the package as it comes.
    OpnameStartscherm startscherm;
    w.p.startScreenEvents = &startscherm;
    ModDataThemas themas(w.p);
    themas.LaadThemas(true);
    ASSERT_GE(startscherm.log.size(), 2);
    EXPECT_EQ(startscherm.log.first(), QStringLiteral("LaadLaadbalkLaden"));
    const QStringList laatste = startscherm.log.last().mid(10).split(QLatin1Char('/'));
    EXPECT_TRUE(startscherm.log.last().startsWith(QStringLiteral("ontvangst ")));
    EXPECT_EQ(laatste.value(0), laatste.value(1)); // the whole package arrived

    const QString register_ = QStringLiteral("\\Data\\Thema.ini");
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Aantal"), register_),
              QStringLiteral("1"))
        << server.uitvoer().toStdString();
    const QString id =
        w.p.modMain.LeesIni(QStringLiteral("themaID"), QStringLiteral("1"), register_);
    ASSERT_FALSE(id.isEmpty());
    const QString versie =
        w.p.modMain.LeesIni(QStringLiteral("Versie"), QStringLiteral("1"), register_);
    EXPECT_EQ(versie,
              w.p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Versie"),
                                  QStringLiteral(TK_DEFAULT_THEME_DIR "/Instellingen.ini")));
    // The unpacked folder is the theme, picture for picture.
    QFile origineel(QStringLiteral(TK_DEFAULT_THEME_DIR "/Instellingen.ini"));
    QFile kopie(w.pad(QStringLiteral("Afbeeldingen/Skins/%1/Instellingen.ini").arg(id)));
    ASSERT_TRUE(origineel.open(QIODevice::ReadOnly));
    ASSERT_TRUE(kopie.open(QIODevice::ReadOnly));
    EXPECT_EQ(kopie.readAll(), origineel.readAll());
    EXPECT_TRUE(
        QFile::exists(w.pad(QStringLiteral("Afbeeldingen/Skins/Pakketten/%1.thema").arg(id))));

    // A second load finds everything current and fetches nothing.
    QFile::remove(w.pad(QStringLiteral("Afbeeldingen/Skins/Pakketten/%1.thema").arg(id)));
    themas.LaadThemas(false);
    EXPECT_FALSE(
        QFile::exists(w.pad(QStringLiteral("Afbeeldingen/Skins/Pakketten/%1.thema").arg(id))));
}

TEST(ThemaE2ETest, ANewMachineFetchesTheIconsOfEveryKindThatTheServerHas) {
    ServerProces server;
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
    Werkstation ws(server.poort(), false);
    Werkplek& w = ws.w;
    ASSERT_TRUE(ws.verbind());
    // An icon for application 1 of each kind, as the maintenance module sends one; bytes that a
    // text path would spoil.
    const QByteArray algemeen("icoon\0met nul\xff", 14);
    ASSERT_TRUE(ws.stuurIcoon(QStringLiteral("a"), QStringLiteral("1"), algemeen));
    ASSERT_TRUE(ws.stuurIcoon(QStringLiteral("k"), QStringLiteral("1"), "klas-icoon"));
    ASSERT_TRUE(ws.stuurIcoon(QStringLiteral("l"), QStringLiteral("1"), "leraar-icoon"));
    QDir(w.pad(QStringLiteral("Tijdelijk"))).removeRecursively();

    OpnameStartscherm startscherm;
    w.p.startScreenEvents = &startscherm;
    ModDataPictogrammen store(w.p);
    ASSERT_TRUE(store.LaadPictogrammen()) << server.uitvoer().toStdString();
    ASSERT_GE(startscherm.log.size(), 2);
    EXPECT_EQ(startscherm.log.first(), QStringLiteral("LaadLaadbalkUpdate"));
    EXPECT_TRUE(startscherm.log.last().startsWith(QStringLiteral("ontvangst ")));
    struct Verwacht {
        const char* map;
        QByteArray inhoud;
    };
    for (const Verwacht& v : {Verwacht{"Algemeen", algemeen}, Verwacht{"Groepen", "klas-icoon"},
                              Verwacht{"Leerkrachten", "leraar-icoon"}}) {
        SCOPED_TRACE(v.map);
        QFile icoon(w.pad(QStringLiteral("Afbeeldingen/Pictogrammen/Applicaties/%1/1.pic")
                              .arg(QLatin1String(v.map))));
        ASSERT_TRUE(icoon.open(QIODevice::ReadOnly));
        EXPECT_EQ(icoon.readAll(), v.inhoud);
    }
    const QString reg = QStringLiteral("\\Data\\Pictogrammen.ini");
    // The group that changed on the server has the server's moment now.
    EXPECT_FALSE(w.p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Wijziging"), reg)
                     .isEmpty());
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("1"), reg),
              QStringLiteral("1"));
    EXPECT_FALSE(QDir(w.pad(QStringLiteral("Tijdelijk"))).exists());
    // A second run has nothing to fetch for the groups.
    QFile::remove(w.pad(QStringLiteral("Afbeeldingen/Pictogrammen/Applicaties/Algemeen/1.pic")));
    EXPECT_TRUE(store.LaadPictogrammen());
}
