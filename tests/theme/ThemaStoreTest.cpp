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

// A workstation on the network, its server the scripted peer.
struct Store {
    explicit Store(ScriptedPeer& peer) : w(peer.poort(), Werkplek::Rol::Netwerk) {
        peer.op("TST", "TST");
    }
    void thema(const char* id, const char* versie) {
        w.schrijf(QString("Afbeeldingen/Skins/%1/Instellingen.ini").arg(id),
                  QByteArray("[Algemeen]\nNaam=Thema\nVersie=") + versie + "\n");
    }
    QString lees(const char* sectie, const char* sleutel) {
        return w.p.modMain.LeesIni(sectie, sleutel, "\\Data\\Thema.ini");
    }
    QString gekozen() {
        return w.p.modMain.LeesIni("Instellingen", "Thema", "\\Data\\Instellingen.ini");
    }
    Werkplek w;
};

} // namespace

TEST(ThemaStoreTest, TheFirstRunWithALinkSeedsTheRegisterAndFetchesNothingThatIsCurrent) {
    ScriptedPeer peer;
    Store s(peer);
    peer.op("LDNTHE", "LDNTHE1|1.0.0|JA");
    s.thema("1", "1.0.0");
    ModDataThemas themas(s.w.p);
    themas.LaadThemas(false); // without a link nothing is asked or changed
    EXPECT_FALSE(QFile::exists(s.w.pad("Data/Thema.ini")));
    ASSERT_TRUE(s.w.verbind());
    themas.LaadThemas(false);
    EXPECT_TRUE(peer.klaar());
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join(u'\n').toStdString();
    EXPECT_EQ(s.lees("Algemeen", "Aantal"), "1");
    EXPECT_EQ(s.lees("themaID", "1"), "1");
    EXPECT_EQ(s.lees("Versie", "1"), "1.0.0");
    // The school's default overrides the local choice.
    EXPECT_EQ(s.gekozen(), "1");
}

TEST(ThemaStoreTest, ADroppedThemeIsRemovedAndALowerVersionIsLeftAlone) {
    ScriptedPeer peer;
    Store s(peer);
    peer.op("LDNTHE", "LDNTHE1|0.9.0|NEE><../../x|9.0.0|NEE");
    s.thema("1", "1.0.0");
    s.thema("8", "1.0.0");
    s.w.schrijf("Afbeeldingen/Skins/Pakketten/8.thema", "pakket");
    s.w.schrijf("Data/Thema.ini",
                "[Algemeen]\nAantal=2\n[themaID]\n1=1\n2=8\n[Versie]\n1=1.0.0\n2=1.0.0\n");
    s.w.p.modMain.SchrijfIni("8", "Instellingen", "Thema", "\\Data\\Instellingen.ini");
    ASSERT_TRUE(s.w.verbind());
    ModDataThemas themas(s.w.p);
    s.w.p.maak(s.w.p.modThema, s.w.p);
    s.w.p.modThema->huidigThema = "8";
    themas.LaadThemas(false);
    EXPECT_TRUE(peer.klaar());
    // Theme 8 is gone: row cleared, folder and package removed, the count unchanged.
    EXPECT_EQ(s.lees("Algemeen", "Aantal"), "2");
    EXPECT_EQ(s.lees("themaID", "2"), "");
    EXPECT_EQ(s.lees("Versie", "2"), "");
    EXPECT_FALSE(QDir(s.w.pad("Afbeeldingen/Skins/8")).exists());
    EXPECT_FALSE(QFile::exists(s.w.pad("Afbeeldingen/Skins/Pakketten/8.thema")));
    // Theme 1 stays as it is; no default was marked, so the hand-made choice stays too.
    EXPECT_EQ(s.lees("Versie", "1"), "1.0.0");
    EXPECT_TRUE(QFile::exists(s.w.pad("Afbeeldingen/Skins/1/Instellingen.ini")));
    EXPECT_EQ(s.gekozen(), "8");
    // The windows take the theme again: theme 8 is gone, so theme 1.
    EXPECT_EQ(s.w.p.modThema->huidigThema, "1");
    // The server's id that would escape the skins folder was never asked for.
    EXPECT_FALSE(peer.ontvangen.join(u' ').contains(".."));
}
