#include "core/Procedure.h"
#include "tests/support/Werkplek.h"

#include <QDir>
#include <QFile>
#include <QTimer>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::Werkplek;

namespace {
const QString ini = "\\Data\\Instellingen.ini";
}

// A link lost while the request went out (the send found the socket reset) ends the wait for
// an answer that will never come. The guard only stops a wait that would hang.
TEST(ModMainTest, ALinkLostWhileTheRequestGoesOutEndsItsWait) {
    Werkplek w;
    w.p.kanaal = &w.kanaal;
    bool gehangen = false;
    QTimer::singleShot(2000, [&] {
        gehangen = true;
        w.p.wacht.Stop();
    });
    EXPECT_EQ(std::nullopt, w.p.modMain.Vraag("LDNXYZ", ModMain::KlasseA,
                                              [&] { w.p.wacht.VerbindingVerloren(); }));
    EXPECT_FALSE(gehangen);
}

TEST(ModMainTest, WaitTimesAreReadAndAnEmptyWaitIsWrittenBackAs500) {
    Werkplek w; // no \Data folder yet: it is made before the write
    w.p.modMain.LaadWachttijden();
    EXPECT_EQ(w.p.modMain.Wachttijd, 500);
    EXPECT_EQ(w.p.modMain.LeesIni("Algemeen", "Wachttijd", ini), "500");
    struct Case {
        const char* verbinden;
        double verwacht;
    };
    const Case cases[] = {{"", 0}, {"abc", 0}, {"100", 100}, {"2.5", 2.5}, {" 40 ", 40}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.verbinden);
        w.p.modMain.SchrijfIni(QString::fromLatin1(c.verbinden), "Algemeen", "Verbinden", ini);
        w.p.modMain.SchrijfIni("1200", "Algemeen", "Wachttijd", ini);
        w.p.modMain.LaadWachttijden();
        EXPECT_EQ(w.p.modMain.Verbindingspauze, c.verwacht);
        EXPECT_EQ(w.p.modMain.Wachttijd, 1200);
    }
}

TEST(ModMainTest, FoldersCountAsExistingFilesAndPatternsToo) {
    Werkplek w;
    w.p.modMain.MaakMappen("\\Afbeeldingen\\Skins\\1");
    EXPECT_TRUE(QDir(w.pad("Afbeeldingen/Skins/1")).exists());
    w.p.modMain.MaakMappen("\\AFBEELDINGEN\\skins\\2");
    EXPECT_TRUE(QDir(w.pad("Afbeeldingen/Skins/2")).exists());
    EXPECT_FALSE(QDir(w.pad("AFBEELDINGEN")).exists());
    w.schrijf("Afbeeldingen/Skins/1/Instellingen.ini", "[A]\n");
    EXPECT_TRUE(w.p.modMain.BestandBestaat("\\Afbeeldingen\\Skins"));
    EXPECT_TRUE(w.p.modMain.BestandBestaat("\\afbeeldingen\\skins\\1\\instellingen.ini"));
    EXPECT_TRUE(w.p.modMain.BestandBestaat("\\Afbeeldingen\\Skins\\1\\*.ini"));
    EXPECT_FALSE(w.p.modMain.BestandBestaat("\\Afbeeldingen\\Skins\\2\\*.ini"));
    EXPECT_FALSE(w.p.modMain.BestandBestaat("\\Nergens"));
    EXPECT_FALSE(w.p.modMain.BestandBestaat(QString()));
    EXPECT_EQ(w.p.modMain.KortPad("\\afbeeldingen"), w.pad("Afbeeldingen"));
    EXPECT_EQ(w.p.modMain.KortPad("\\Nergens"), QString());
}

TEST(ModMainTest, DeletingRetriesTenTimesHalfASecondApart) {
    Werkplek w;
    w.platform.fakeClock().setStepPerRead(50);
    w.schrijf("Tijdelijk/weg.txt", "x");
    const qint64 start = w.platform.fakeClock().msecsSinceStart();
    w.p.modMain.VerwijderBestand("\\Tijdelijk\\weg.txt");
    EXPECT_FALSE(QFile::exists(w.pad("Tijdelijk/weg.txt")));
    EXPECT_LT(w.platform.fakeClock().msecsSinceStart() - start, 500);

    // A folder with something in it cannot be deleted as a file: every try fails.
    w.schrijf("Vast/binnen.txt", "x");
    const qint64 voor = w.platform.fakeClock().msecsSinceStart();
    w.p.modMain.VerwijderBestand("\\Vast");
    const qint64 duur = w.platform.fakeClock().msecsSinceStart() - voor;
    EXPECT_GE(duur, 10 * 500);
    EXPECT_LT(duur, 11 * 500 + 500);
    EXPECT_TRUE(QFile::exists(w.pad("Vast/binnen.txt")));
}

TEST(ModMainTest, NamesTheSystemFromItsVersion) {
    Werkplek w;
    struct Case {
        OsVersion versie;
        const char* naam;
    };
    const Case cases[] = {
        {{1, 4, 0}, "Windows 95"},
        {{1, 4, 10}, "Windows 98"},
        {{1, 4, 90}, "Windows 98"},
        {{2, 5, 0}, "Windows 2000"},
        {{2, 5, 1}, "Windows XP"},
        {{2, 5, 2}, "Windows 2003"},
        {{2, 6, 0}, "Windows Vista"},
        {{2, 6, 1}, "Windows Vista"},
        {{2, 4, 0}, "Unknown Windows Version"},
        {{2, 10, 0}, "Unknown Windows Version"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.naam);
        w.platform.fakeEnvironment().setOsVersion(c.versie);
        EXPECT_EQ(w.p.modMain.WindowsNaam(), QString::fromLatin1(c.naam));
    }
}

TEST(ModMainTest, LanguageComesFromTheRegistryThenTheSettingsAndFallsBackToEnglish) {
    struct Case {
        const char* register_;
        const char* instellingen;
        long taal;
    };
    const Case cases[] = {
        {"1043", "1033", 1043}, // the installer's value wins
        {"", "1043", 1043},     {"", "", 1033},       {"1036", "", 1033}, // no French table
        {"abc", "1043", 1033},  {"", " 1043 ", 1043},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.register_) + "/" + c.instellingen);
        Werkplek w;
        if (*c.register_)
            w.platform.registry().write(RegistryRoot::LocalMachine, "SOFTWARE\\TAFELKRATER",
                                        "language",
                                        RegistryValue::string(QString::fromLatin1(c.register_)));
        if (*c.instellingen)
            w.schrijf("Data/Instellingen.ini",
                      QByteArray("[Instellingen]\nLanguage=") + c.instellingen + "\n");
        w.p.modMain.LaadTaal();
        EXPECT_EQ(w.p.modTaal.Taal, c.taal);
        EXPECT_EQ(w.p.modMain.LeesIni("Instellingen", "Language", ini), QString::number(c.taal));
        EXPECT_EQ(w.p.modTaal.ProductTitel, "Tafelkrater");
    }
}

TEST(ModMainTest, TextsFillTheProductPlaceholdersAndMarkMissingEntries) {
    Werkplek w;
    w.p.modTaal.ProductTitel = " Tafelkrater ";
    EXPECT_EQ(w.p.modTaal.LaadTekst(101, 1033), "Tafelkrater is busy checking...");
    EXPECT_EQ(w.p.modTaal.LaadTekst(1610, 1033), "Tafelkrater IS LOADING...");
    EXPECT_EQ(w.p.modTaal.LaadTekst(9999, 1033), "[niet vertaald: 9999]");
    EXPECT_EQ(w.p.modTaal.LaadTekst(9999, 1033, true), QString());
    EXPECT_EQ(w.p.modTaal.LaadTekst(3, 1036, true), QString());
    EXPECT_TRUE(w.p.modTaal.LaadTekst(2908, 1043).contains("\r\n\r\n"));
    EXPECT_FALSE(w.p.modTaal.LaadTekst(2908, 1043).contains("%nieuwe_regel%"));
}

TEST(ModMainTest, VersionsAreComparedAsThreeNumbers) {
    struct Case {
        const char* nieuw;
        const char* oud;
        bool nieuwer;
    };
    const Case cases[] = {
        {"2.10.0", "2.9.9", true},   {"2.1", "2.0.0", false},       {"1.0.1", "1.0.0", true},
        {"1.0.0", "1.0.0", false},   {"1.0.0", "1.0.1", false},     {"3.0.0", "2.99.99", true},
        {"1.a.0", "1.0.0", false},   {"1.0.0", "", false},          {"", "1.0.0", false},
        {"1.0.0.0", "0.0.0", false}, {"40000.0.0", "1.0.0", false}, {" 1.0.2", "1.0.1", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.nieuw) + " > " + c.oud);
        EXPECT_EQ(ModMain::ControleerNieuwereVersie(QString::fromLatin1(c.nieuw),
                                                    QString::fromLatin1(c.oud)),
                  c.nieuwer);
    }
}

TEST(ModMainTest, IconNamesWrapAtTwelveCharacters) {
    struct Case {
        const char* tekst;
        bool afbreken;
        const char* verwacht;
    };
    const Case cases[] = {
        {"Rekenmachine", true, "Rekenmachine"},                 // exactly twelve: one line
        {"Digitale klok", true, "Digitale|klok"},               // the blank at the break goes
        {"Een klok om te leren", true, "Een klok om|te leren"}, // words fill a line
        {"Woordenboekspel", true, "Woordenboeks|pel"},          // a long word is cut
        {"Woordenboekspel", false, "Woordenboekspel"},          // or stands alone
        {"A  B", true, "A B"},                                  // runs of blanks are one
        {"", true, ""},
        {"Eerste\r\nTweede regel hier", true, "Eerste|Tweede regel|hier"},
        {"Verkeersregelsoefenprogramma", true, "Verkeersrege|lsoefenprogr|amma"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.tekst);
        EXPECT_EQ(QString::fromLatin1(c.verwacht),
                  ModMain::WordWrapped_String(QString::fromLatin1(c.tekst), 12, "|", c.afbreken));
    }
}
