#include "core/Procedure.h"
#include "tests/support/Werkplek.h"
#include "theme/ModThema.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

using tk::ModThema;
using tk::RgbColour;
using tk::ThemeKeys;

namespace {

class ThemaTest : public ::testing::Test {
protected:
    // A theme folder with its settings file ("" makes the folder only).
    void thema(const QString& id, const QByteArray& ini) {
        if (ini.isEmpty())
            QDir().mkpath(w.pad("Afbeeldingen/Skins/" + id));
        else
            w.schrijf("Afbeeldingen/Skins/" + id + "/Instellingen.ini", ini);
        // The settings cache knows a file by its size and time: each rewrite gets its own time.
        QFile f(w.pad("Afbeeldingen/Skins/" + id + "/Instellingen.ini"));
        if (f.open(QIODevice::ReadWrite))
            f.setFileTime(QDateTime::currentDateTime().addSecs(++m_keer),
                          QFileDevice::FileModificationTime);
    }
    int m_keer = 0;
    void bestand(const QString& id, const QString& relatief) {
        w.schrijf("Afbeeldingen/Skins/" + id + "/" + relatief, "x");
    }
    void kiesThema(const QString& waarde) {
        w.schrijf("Data/Instellingen.ini", "[Instellingen]\r\nThema=" + waarde.toUtf8() + "\r\n");
    }
    QString skin(const QString& relatief) { return w.pad("Afbeeldingen/Skins/" + relatief); }

    tk::test::Werkplek w;
    ModThema m{w.p};
};

TEST_F(ThemaTest, StartUpFallsBackToOneThenStandaard) {
    struct Case {
        const char* thema;  // [Instellingen] Thema
        QStringList metIni; // themes whose Instellingen.ini exists (or the file named)
        const char* gekozen;
        const char* naam;
    };
    const Case cases[] = {
        {"8", {"1", "8"}, "8", "Thema 8"},
        {"", {"1", "8"}, "1", "Thema 1"},
        {"12", {"1", "Standaard"}, "1", "Thema 1"},          // removed theme
        {"", {"Standaard"}, "Standaard", "Thema Standaard"}, // 1 missing as well
        {"8", {"Standaard"}, "Standaard", "Thema Standaard"},
        {"..", {"1"}, "1", "Thema 1"}, // not a folder of its own
        {"8\\..\\..\\Data", {"1"}, "1", "Thema 1"},
        {"8", {}, "Standaard", ""},                         // no further fallback
        {"3", {"1", "3/instellingen.INI"}, "3", "Thema 3"}, // the file in either spelling
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.thema);
        tk::test::Werkplek werkplek;
        for (const QString& ini : c.metIni)
            werkplek.schrijf(
                "Afbeeldingen/Skins/" + (ini.contains('/') ? ini : ini + "/Instellingen.ini"),
                "[Algemeen]\r\nNaam=Thema " + ini.section('/', 0, 0).toUtf8() + "\r\n");
        QDir().mkpath(werkplek.pad("Afbeeldingen/Skins/12")); // a folder without settings
        werkplek.schrijf("Data/Instellingen.ini",
                         QByteArray("[Instellingen]\r\nThema=") + c.thema + "\r\n");
        ModThema modThema(werkplek.p);
        modThema.LaadThema();
        EXPECT_EQ(c.gekozen, modThema.huidigThema);
        EXPECT_EQ(QString("\\Afbeeldingen\\Skins\\") + c.gekozen + "\\", modThema.themaMap);
        EXPECT_EQ(c.naam, modThema.themaNaam);
        // The choice is made in memory only: the setting keeps its value.
        EXPECT_EQ(c.thema,
                  werkplek.p.modMain.LeesIni("Instellingen", "Thema", "\\Data\\Instellingen.ini"));
    }
}

TEST_F(ThemaTest, UserThemeFallsBackInTheReverseOrder) {
    thema("1", "[Algemeen]\r\nNaam=Een\r\n");
    thema("8", "[Algemeen]\r\nNaam=Acht\r\n");
    thema("Standaard", "[Algemeen]\r\nNaam=Standaard\r\n");
    thema("5", ""); // a folder is enough here
    kiesThema("8");
    m.LaadThema();
    ASSERT_EQ("8", m.huidigThema);

    struct Case {
        const char* veld;
        const char* gekozen;
    };
    const Case cases[] = {
        {"", "Standaard"}, // an empty field: Standaard, even though the school's theme is 8
        {"12", "1"},       // a theme that no longer exists
        {"5", "5"},        {"8", "8"}, {"..", "1"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.veld);
        m.chooseUserTheme(c.veld);
        EXPECT_EQ(c.gekozen, m.huidigThema);
        EXPECT_EQ(QString("\\Afbeeldingen\\Skins\\") + c.gekozen + "\\", m.themaMap);
    }
    // Standaard gone: the empty field ends at 1.
    QDir(skin("Standaard")).removeRecursively();
    m.chooseUserTheme("");
    EXPECT_EQ("1", m.huidigThema);
}

TEST_F(ThemaTest, WaitBarColoursHangOnThemeEight) {
    struct Case {
        const char* id;
        const char* waarde; // nullptr: key absent
        RgbColour kleur;
    };
    const RgbColour blauw{112, 148, 241}, groen{10, 112, 0};
    const Case cases[] = {
        {"8", nullptr, blauw},     {"3", nullptr, groen},           {"1", nullptr, groen},
        {"8", "1,2", blauw},       {"3", "1,2,3,4", groen},         {"8", "", blauw},
        {"8", "5,6,7", {5, 6, 7}}, {"3", "300, 0 ,9", {255, 0, 9}},
    };
    EXPECT_EQ(15832176u, blauw.packed());
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.id) + " " + (c.waarde ? c.waarde : "(absent)"));
        QByteArray ini = "[Kleuren]\r\n";
        if (c.waarde)
            ini += QByteArray("Laadbalk wachten rand=") + c.waarde + "\r\n";
        thema(c.id, ini);
        m.chooseUserTheme(c.id);
        EXPECT_EQ(c.kleur, m.waitBarColour("Laadbalk wachten rand"));
        EXPECT_EQ(c.id == std::string("8") ? blauw : groen,
                  m.waitBarColour("Laadbalk wachten streep"));
    }
}

TEST_F(ThemaTest, YesIsOnlyJaAndNoIsOnlyNee) {
    struct Case {
        const char* waarde;
        bool ja;      // Startscherm weergeven draws the cloud
        bool nietNee; // Icoon achtergrond keeps the box
    };
    const Case cases[] = {
        {"ja", true, true},    {"JA", true, true},   {"Ja", true, true},     {"Yes", false, true},
        {"1", false, true},    {"jaa", false, true}, {"nee", false, false},  {"NEE", false, false},
        {"Nee", false, false}, {"no", false, true},  {nullptr, false, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.waarde ? c.waarde : "(absent)");
        QByteArray ini = "[Ballon]\r\n";
        if (c.waarde)
            ini += QByteArray("Startscherm weergeven=") + c.waarde +
                   "\r\n[Algemeen]\r\nIcoon achtergrond=" + c.waarde + "\r\n";
        thema("1", ini);
        const ThemeKeys k(w.p, ModThema::folderOf("1"));
        EXPECT_EQ(c.ja, k.yes("Ballon", "Startscherm weergeven"));
        EXPECT_EQ(c.nietNee, k.notNo("Algemeen", "Icoon achtergrond"));
    }
}

TEST_F(ThemaTest, ColoursAndPositionsReadOrFaultAtTheScreenThatReadsThem) {
    struct Case {
        const char* waarde;
        std::optional<RgbColour> kleur; // nothing: a fault
        const char* fout;
    };
    const Case cases[] = {
        {"12,34,56", RgbColour{12, 34, 56}, nullptr},
        {" 12 , 34 , 56 ", RgbColour{12, 34, 56}, nullptr},
        {"1,2,3,4", RgbColour{1, 2, 3}, nullptr},           // extra parts ignored
        {"300,256,255", RgbColour{255, 255, 255}, nullptr}, // above 255 counts as 255
        {"34.5,35.5,0.49", RgbColour{34, 36, 0}, nullptr},  // half to even
        {"", std::nullopt, "Subscript out of range"},
        {"1,2", std::nullopt, "Subscript out of range"},
        {"rood,0,0", std::nullopt, "Type mismatch"},
        {"1,,3", std::nullopt, "Type mismatch"},
        {"70000,0,0", std::nullopt, "Overflow"},
        {"-1,0,0", std::nullopt, "Invalid procedure call"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.waarde);
        thema("1", QByteArray("[Kleuren]\r\nLaden=") + c.waarde + "\r\n");
        const ThemeKeys k(w.p, ModThema::folderOf("1"));
        RgbColour gelezen;
        const bool gelukt = tk::Procedure(w.p, "frmMain.LadenVormgeving",
                                          [&] { gelezen = k.colour("Kleuren", "Laden"); });
        EXPECT_EQ(c.kleur.has_value(), gelukt);
        if (c.kleur) {
            EXPECT_EQ(*c.kleur, gelezen);
        } else {
            EXPECT_EQ("frmMain.LadenVormgeving", w.p.frmFoutrapportage.Procedure);
            EXPECT_TRUE(w.p.frmFoutrapportage.Omschrijving.startsWith(c.fout))
                << w.p.frmFoutrapportage.Omschrijving.toStdString();
            EXPECT_TRUE(w.p.frmFoutrapportage.Omschrijving.contains("[Kleuren] Laden"));
        }
    }

    thema("1", "[Positie]\r\nAanmelden=412,-20\r\nLaden normaal=10\r\nLaden fout=a,b\r\n"
               "Laden tekst=32767,-32767\r\nBureaublad kop=2147483647,0\r\n"
               "Onderhoudsmodule Menu help=0,-32768\r\n"
               "[Kleuren]\r\nBureaublad Icoon Schaduw=1,2\r\nAfmelden tekst=1,2,3\r\n"
               "Afmelden hover=4,5,6\r\n");
    const ThemeKeys k(w.p, ModThema::folderOf("1"));
    EXPECT_EQ(QPoint(412, -20), k.position("Positie", "Aanmelden"));
    EXPECT_THROW(k.position("Positie", "Laden normaal"), tk::Fout);
    EXPECT_THROW(k.position("Positie", "Laden fout"), tk::Fout);
    EXPECT_THROW(k.position("Positie", "Laden update"), tk::Fout);
    // Far outside any screen: an overflow, before the place is added to a size.
    EXPECT_EQ(QPoint(32767, -32767), k.position("Positie", "Laden tekst"));
    EXPECT_THROW(k.position("Positie", "Bureaublad kop"), tk::Fout);
    EXPECT_THROW(k.position("Positie", "Onderhoudsmodule Menu help"), tk::Fout);
    EXPECT_EQ((RgbColour{255, 0, 255}), k.iconShadowColour());
    EXPECT_EQ((std::pair<RgbColour, RgbColour>{{1, 2, 3}, {4, 5, 6}}),
              k.colourPair("Kleuren", "Afmelden"));
    EXPECT_THROW(k.colourPair("Kleuren", "Help"), tk::Fout);
}

TEST_F(ThemaTest, ClassButtonsTakeTheHoverPictureFromTheBFile) {
    thema("1", "[Algemeen]\r\n");
    for (const char* f : {"Knoppen/1a.jpg", "Knoppen/1b.jpg", "Knoppen/2a.jpg", "Knoppen/2b.jpg",
                          "Knoppen/ab.jpg", "Knoppen/bb.jpg", "Knoppen/3a.jpg"})
        bestand("1", f);
    const ThemeKeys k(w.p, ModThema::folderOf("1"));
    struct Case {
        const char* veld;
        const char* normaal;
        const char* hover;
    };
    const Case cases[] = {
        {"2a.jpg", "2a.jpg", "2b.jpg"}, {"ab.jpg", "ab.jpg", "bb.jpg"}, // every a becomes b
        {"3a.jpg", "1a.jpg", "1b.jpg"}, // hover missing: both fall back
        {"9a.jpg", "1a.jpg", "1b.jpg"}, {"", "1a.jpg", "1b.jpg"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.veld);
        const auto [normaal, hover] = k.classButtonPictures(c.veld);
        EXPECT_EQ(skin(QString("1/Knoppen/") + c.normaal), normaal);
        EXPECT_EQ(skin(QString("1/Knoppen/") + c.hover), hover);
    }
    EXPECT_EQ("bb.jpg", ThemeKeys::hoverField("ab.jpg"));
}

TEST_F(ThemaTest, ButtonColourNamesStopAtTheFilesOrTheFirstGap) {
    for (int n = 1; n <= 4; ++n) {
        bestand("1", QString("Knoppen/%1a.jpg").arg(n));
        bestand("1", QString("Knoppen/%1b.jpg").arg(n));
    }
    thema("1", "[Knoppen]\r\n1=Rood\r\n2=Blauw\r\n4=Geel\r\n");
    EXPECT_EQ(QStringList({"Rood", "Blauw"}),
              ThemeKeys(w.p, ModThema::folderOf("1")).buttonColourNames());
    thema("1", "[Knoppen]\r\n1=Rood\r\n2=Blauw\r\n3=Groen\r\n4=Geel\r\n5=Paars\r\n");
    EXPECT_EQ(QStringList({"Rood", "Blauw", "Groen", "Geel"}),
              ThemeKeys(w.p, ModThema::folderOf("1")).buttonColourNames());
}

TEST_F(ThemaTest, PictureKeysWithTheirOwnRules) {
    thema("1", "[Onderhoudsmodule]\r\nAccounts beheren=m0.jpg\r\nDesktop beheren=m2.jpg\r\n"
               "Overzichten=m3.jpg\r\nThema's=weg.jpg\r\n"
               "[Desktop - Internet Toolbar]\r\nBack=back.GIF\r\nNext=next.jpg\r\nStop=weg.jpg\r\n"
               "[Achtergronden]\r\nStartscherm=weg.jpg\r\nOnderhoudsmodule=m0.jpg\r\n"
               "Wallpaper=wall.jpg\r\n");
    for (const char* f : {"m0.jpg", "m2.jpg", "m3.jpg", "back.GIF", "next.jpg", "wall.jpg", "W.JPG",
                          "wall.png", "Achtergronden/Bureaublad.jpg", "Achtergronden/Zee.jpg"})
        bestand("1", f);
    const ThemeKeys k(w.p, ModThema::folderOf("1"));

    EXPECT_EQ(skin("1/m0.jpg"), k.maintenanceMenuPicture(0));
    EXPECT_EQ("", k.maintenanceMenuPicture(1));
    EXPECT_EQ(skin("1/m2.jpg"), k.maintenanceMenuPicture(5)); // Thema's missing: item 2
    EXPECT_EQ(skin("1/m3.jpg"), k.maintenanceMenuPicture(6)); // Management tools: item 3
    EXPECT_THROW(k.maintenanceMenuPicture(7), tk::Fout);

    bool groen = false;
    EXPECT_EQ(skin("1/back.GIF"), k.toolbarPicture("Back", &groen));
    EXPECT_TRUE(groen);
    EXPECT_EQ(skin("1/next.jpg"), k.toolbarPicture("Next", &groen));
    EXPECT_FALSE(groen);
    EXPECT_EQ("", k.toolbarPicture("Stop")); // the form keeps its own picture

    EXPECT_THROW(k.picture("Achtergronden", "Startscherm"), tk::Fout);
    EXPECT_EQ(skin("1/m0.jpg"), k.picture("Achtergronden", "Onderhoudsmodule"));

    struct Wallpaper {
        const char* waarde;
        const char* pad;
    };
    const Wallpaper wallpapers[] = {
        {"wall.jpg", "1/wall.jpg"},
        {"W.JPG", "1/W.JPG"},
        {"wall.png", ""},
        {"weg.jpg", ""},
        {"", ""},
    };
    for (const Wallpaper& c : wallpapers) {
        SCOPED_TRACE(c.waarde);
        thema("1", QByteArray("[Achtergronden]\r\nWallpaper=") + c.waarde + "\r\n");
        EXPECT_EQ(*c.pad ? skin(c.pad) : QString(), k.wallpaper());
    }

    EXPECT_EQ(skin("1/Achtergronden/Zee.jpg"), k.desktopBackground("zee.JPG"));
    EXPECT_EQ(skin("1/Achtergronden/Bureaublad.jpg"), k.desktopBackground("Weg.jpg"));
    EXPECT_EQ(skin("1/Achtergronden/Bureaublad.jpg"), k.desktopBackground(""));
    EXPECT_EQ("", k.desktopBackground("Geen"));
}

} // namespace
