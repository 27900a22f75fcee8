// The default theme that the build draws: every key of a theme is filled, readable in its form,
// and every picture it names exists and loads.
#include "tests/support/Werkplek.h"
#include "theme/ModThema.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <gtest/gtest.h>

using tk::ModThema;
using tk::ThemeKeys;

namespace {

TEST(StandaardThemaTest, EveryKeyIsFilledAndReadableAndEveryPictureItNamesLoads) {
    tk::test::Werkplek w;
    ModThema m{w.p};
    ASSERT_TRUE(QFile::exists(TK_DEFAULT_THEME_DIR "/Instellingen.ini"));
    w.kopieer(TK_DEFAULT_THEME_DIR, "Afbeeldingen/Skins/1/");
    m.LaadThema();
    ASSERT_EQ("1", m.huidigThema);
    const auto maat = [](const QString& pad) { return QImageReader(pad).size(); };
    const ThemeKeys k = m.keys();
    EXPECT_EQ("Standaard", m.themaNaam);
    // Each picture key as "section/key".
    const QStringList sleutels =
        QString("Algemeen/Screenshot|Algemeen/Lijstweergave|Algemeen/Poppetjes|Algemeen/Wolk|"
                "Algemeen/Wolk (mask)|Achtergronden/Startscherm|Achtergronden/Onderhoudsmodule|"
                "Achtergronden/Taakbalk - Startscherm|Achtergronden/Taakbalk - Onderhoudsmodule|"
                "Achtergronden/Taakbalk - Bureaublad|Achtergronden/Wallpaper|Taakbalk/Afsluiten|"
                "Taakbalk/Onderhoudsmodule|Taakbalk/Opnieuw verbinding maken|"
                "Taakbalk/Serverlocatie wijzigen|Taakbalk/Windowsomgeving|Taakbalk/Afmelden|"
                "Taakbalk/Help|Taakbalk/Bureaublad|Taakbalk/Internet")
            .split('|');
    for (const QString& s : sleutels)
        EXPECT_TRUE(QImageReader(k.picture(s.section('/', 0, 0), s.section('/', 1))).canRead())
            << s.toStdString();
    for (int item = 0; item < 7; ++item)
        EXPECT_EQ(k.picture("Onderhoudsmodule", ThemeKeys::maintenanceMenuKeys().at(item)),
                  k.maintenanceMenuPicture(item));
    for (const QString& s : ThemeKeys::toolbarKeys())
        EXPECT_TRUE(QImageReader(k.toolbarPicture(s)).canRead()) << s.toStdString();
    EXPECT_FALSE(k.wallpaper().isEmpty());

    EXPECT_EQ(QSize(1024, 685), maat(k.picture("Achtergronden", "Startscherm")));
    EXPECT_EQ(QSize(1024, 768), maat(k.wallpaper()));
    EXPECT_EQ(maat(k.picture("Algemeen", "Wolk")), maat(k.picture("Algemeen", "Wolk (mask)")));
    EXPECT_TRUE(QImageReader(k.desktopBackground("")).canRead());
    const QStringList achtergronden =
        QDir(k.file("Achtergronden")).entryList({"*.jpg"}, QDir::Files);
    for (const QString& a : achtergronden)
        EXPECT_TRUE(QFile::exists(k.file("Achtergronden\\Thumbs\\" + a))) << a.toStdString();

    // Eight or more named class button colours, each with its hover picture.
    const QStringList namen = k.buttonColourNames();
    EXPECT_GE(namen.size(), 8);
    for (int n = 1; n <= namen.size(); ++n) {
        const auto [normaal, hover] = k.classButtonPictures(QString("%1a.jpg").arg(n));
        EXPECT_TRUE(normaal.endsWith(QString("/%1a.jpg").arg(n)));
        EXPECT_TRUE(hover.endsWith(QString("/%1b.jpg").arg(n)));
        EXPECT_EQ(maat(normaal), maat(hover));
    }

    const QStringList kleuren =
        QString("Laden|Laadbalk rand|Laadbalk status|Laadbalk streep|Koptekst|Aanmeldentekst|"
                "Laadbalk wachten streep|Laadbalk wachten rand|Bureaublad kop|"
                "Bureaublad Icoon Achtergrond Hover|Bureaublad Icoon Achtergrond Normaal|"
                "Bureaublad Icoon Tekst|Bureaublad Icoon Schaduw|Onderhoudsmodule Menu help|"
                "Onderhoudsmodule Laden|Onderhoudsmodule Menu|Onderhoudsmodule Menu sub|"
                "Onderhoudsmodule Menu hover|Onderhoudsmodule Menu geselecteerd|"
                "Onderhoudsmodule Menu lijn|Taakbalk accounts achtergrond|Taakbalk accounts tekst|"
                "Taakbalk accounts tekst geselecteerd|Achtergrond taakbalk - Startscherm|"
                "Achtergrond taakbalk - Onderhoudsmodule|Achtergrond taakbalk - Bureaublad|"
                "Taakbalk taken tekst|Taakbalk taken tekst hover|Taakbalk taken hover|"
                "Taakbalk taken rand|Taakbalk taken geselecteerd|Taakbalk taken tekst geselecteerd")
            .split('|');
    for (const QString& s : kleuren)
        EXPECT_NO_THROW(k.colour("Kleuren", s)) << s.toStdString();
    const struct {
        const char* sectie;
        QStringList woorden;
    } balken[] = {
        {"Kleuren - Taakbalk - Startscherm",
         {"Help", "Afmelden", "Uitschakelen", "Groeperen", "Opnieuw verbinden", "Serverlocatie"}},
        {"Kleuren - Taakbalk - Onderhoudsmodule",
         {"Help", "Afmelden", "Uitschakelen", "Bureaublad", "Windows"}},
        {"Kleuren - Taakbalk - Bureaublad", {"Afmelden", "Help"}},
    };
    for (const auto& b : balken) {
        EXPECT_NO_THROW(k.colour(b.sectie, "Tekst"));
        EXPECT_NO_THROW(k.colour(b.sectie, "Hover"));
        for (const QString& woord : b.woorden)
            EXPECT_NO_THROW(k.colourPair(b.sectie, woord)) << woord.toStdString();
    }
    for (const char* s :
         {"Aanmelden", "Laden normaal", "Laden fout", "Laden update", "Laden tekst",
          "Bureaublad kop", "Onderhoudsmodule Menu help", "Onderhoudsmodule Laden tekst"}) {
        const QPoint punt = k.position("Positie", s);
        EXPECT_TRUE(QRect(0, 0, 1024, 685).contains(punt)) << s;
    }
    EXPECT_NO_THROW(k.position("Ballon", "Startscherm"));
    EXPECT_NO_THROW(k.position("Ballon", "Bureaublad"));
    EXPECT_TRUE(k.yes("Ballon", "Startscherm weergeven"));
    EXPECT_TRUE(k.yes("Ballon", "Bureaublad weergeven"));
    EXPECT_TRUE(k.notNo("Algemeen", "Icoon achtergrond"));
    EXPECT_FALSE(k.text("Algemeen", "Omschrijving").isEmpty());
    EXPECT_EQ("1.0.0", k.text("Algemeen", "Versie"));
}

} // namespace
