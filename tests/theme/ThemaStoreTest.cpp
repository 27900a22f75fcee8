#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "tests/support/ScriptedPeer.h"
#include "tests/support/Werkplek.h"
#include "theme/ModDataThemas.h"
#include "theme/ModThema.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::ScriptedPeer;
using tk::test::Werkplek;

namespace {

const QString reg = QStringLiteral("\\Data\\Thema.ini");

struct Store {
    explicit Store(ScriptedPeer& peer) {
        w.p.maak(w.p.frmMain, w.p);
        w.p.maak(w.p.modMainVerbinding, w.p);
        w.p.modMain.ModusNetwerk = true;
        w.platform.fakeClock().setStepPerRead(100);
        w.p.modMain.MaakMappen(QStringLiteral("\\Data"));
        w.p.modMain.SchrijfIni(QStringLiteral("127.0.0.1:%1").arg(peer.poort()),
                               QStringLiteral("Instellingen"), QStringLiteral("Serverlocatie"),
                               QStringLiteral("\\Data\\Instellingen.ini"));
        peer.op(QStringLiteral("TST"), QStringLiteral("TST"));
    }
    bool verbind() {
        return w.p.modMainVerbinding->BepaalServerlocatie() && w.p.frmMain->ServerVerbinden(true);
    }
    void thema(const char* id, const char* versie) {
        w.schrijf(QStringLiteral("Afbeeldingen/Skins/%1/Instellingen.ini").arg(QLatin1String(id)),
                  QByteArray("[Algemeen]\nNaam=Thema\nVersie=") + versie + "\n");
    }
    QString lees(const char* sectie, const char* sleutel) {
        return w.p.modMain.LeesIni(QString::fromLatin1(sectie), QString::fromLatin1(sleutel), reg);
    }
    Werkplek w;
};

} // namespace

TEST(ThemaStoreTest, TheFirstRunSeedsTheRegisterAndFetchesNothingThatIsCurrent) {
    ScriptedPeer peer;
    Store s(peer);
    peer.op(QStringLiteral("LDNTHE"), QStringLiteral("LDNTHE1|1.0.0|JA"));
    s.thema("1", "1.0.0");
    ASSERT_TRUE(s.verbind());
    ModDataThemas themas(s.w.p);
    themas.LaadThemas(false);
    EXPECT_TRUE(peer.klaar());
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join(u'\n').toStdString();
    EXPECT_EQ(s.lees("Algemeen", "Aantal"), QStringLiteral("1"));
    EXPECT_EQ(s.lees("themaID", "1"), QStringLiteral("1"));
    EXPECT_EQ(s.lees("Versie", "1"), QStringLiteral("1.0.0"));
    // The school's default overrides the local choice.
    EXPECT_EQ(s.w.p.modMain.LeesIni(QStringLiteral("Instellingen"), QStringLiteral("Thema"),
                                    QStringLiteral("\\Data\\Instellingen.ini")),
              QStringLiteral("1"));
}

TEST(ThemaStoreTest, ADroppedThemeIsRemovedAndALowerVersionIsLeftAlone) {
    ScriptedPeer peer;
    Store s(peer);
    peer.op(QStringLiteral("LDNTHE"), QStringLiteral("LDNTHE1|0.9.0|NEE><../../x|9.0.0|NEE"));
    s.thema("1", "1.0.0");
    s.thema("8", "1.0.0");
    s.w.schrijf(QStringLiteral("Afbeeldingen/Skins/Pakketten/8.thema"), "pakket");
    s.w.schrijf(QStringLiteral("Data/Thema.ini"),
                "[Algemeen]\nAantal=2\n[themaID]\n1=1\n2=8\n[Versie]\n1=1.0.0\n2=1.0.0\n");
    s.w.p.modMain.SchrijfIni(QStringLiteral("8"), QStringLiteral("Instellingen"),
                             QStringLiteral("Thema"), QStringLiteral("\\Data\\Instellingen.ini"));
    ASSERT_TRUE(s.verbind());
    ModDataThemas themas(s.w.p);
    s.w.p.maak(s.w.p.modThema, s.w.p);
    s.w.p.modThema->huidigThema = QStringLiteral("8");
    themas.LaadThemas(false);
    EXPECT_TRUE(peer.klaar());
    // Theme 8 is gone: row cleared, folder and package removed, the count unchanged.
    EXPECT_EQ(s.lees("Algemeen", "Aantal"), QStringLiteral("2"));
    EXPECT_EQ(s.lees("themaID", "2"), QString());
    EXPECT_EQ(s.lees("Versie", "2"), QString());
    EXPECT_FALSE(QDir(s.w.pad(QStringLiteral("Afbeeldingen/Skins/8"))).exists());
    EXPECT_FALSE(QFile::exists(s.w.pad(QStringLiteral("Afbeeldingen/Skins/Pakketten/8.thema"))));
    // Theme 1 stays as it is; no default was marked, so the hand-made choice stays too.
    EXPECT_EQ(s.lees("Versie", "1"), QStringLiteral("1.0.0"));
    EXPECT_TRUE(QFile::exists(s.w.pad(QStringLiteral("Afbeeldingen/Skins/1/Instellingen.ini"))));
    EXPECT_EQ(s.w.p.modMain.LeesIni(QStringLiteral("Instellingen"), QStringLiteral("Thema"),
                                    QStringLiteral("\\Data\\Instellingen.ini")),
              QStringLiteral("8"));
    // The windows take the theme again: theme 8 is gone, so theme 1.
    EXPECT_EQ(s.w.p.modThema->huidigThema, QStringLiteral("1"));
    // The server's id that would escape the skins folder was never asked for.
    EXPECT_FALSE(peer.ontvangen.join(u' ').contains(QStringLiteral("..")));
}

TEST(ThemaStoreTest, WithoutALinkNothingIsAskedOrChanged) {
    ScriptedPeer peer;
    Store s(peer);
    s.thema("1", "1.0.0");
    ModDataThemas themas(s.w.p);
    themas.LaadThemas(false);
    EXPECT_FALSE(QFile::exists(s.w.pad(QStringLiteral("Data/Thema.ini"))));
}
