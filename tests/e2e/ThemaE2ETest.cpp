// Themes come from the real server as packages over the file transfer.
#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "tests/e2e/ServerProces.h"
#include "tests/support/Werkplek.h"
#include "theme/ModDataThemas.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::ServerProces;
using tk::test::Werkplek;

TEST(ThemaE2ETest, ANewWorkstationFetchesTheSchoolsThemeAndUnpacksIt) {
    ServerProces server({QStringLiteral("--theme"), QStringLiteral(TK_DEFAULT_THEME_DIR)});
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
    Werkplek w;
    w.p.maak(w.p.frmMain, w.p);
    w.p.maak(w.p.modMainVerbinding, w.p);
    w.p.modMain.ModusNetwerk = true;
    w.p.modMain.MaakMappen(QStringLiteral("\\Data"));
    w.p.modMain.SchrijfIni(QStringLiteral("127.0.0.1:%1").arg(server.poort()),
                           QStringLiteral("Instellingen"), QStringLiteral("Serverlocatie"),
                           QStringLiteral("\\Data\\Instellingen.ini"));
    w.platform.fakeClock().setStepPerRead(10);
    ASSERT_TRUE(w.p.modMainVerbinding->BepaalServerlocatie());
    ASSERT_TRUE(w.p.frmMain->ServerVerbinden(true));
    w.p.modMainVerbinding->IdentificeerClient();

    ModDataThemas themas(w.p);
    themas.LaadThemas(false);

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
