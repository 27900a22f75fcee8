#include "core/IniDocument.h"
#include "tests/support/Werkplek.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::Werkplek;

namespace {
const QString ini = QStringLiteral("\\Data\\Instellingen.ini");
}

TEST(IniTest, ReadsLikeTheProfileFunctions) {
    Werkplek w;
    w.schrijf(QStringLiteral("Data/Instellingen.ini"), "; commentaar\r\n"
                                                       "los=voor elke sectie\r\n"
                                                       "[Algemeen]\r\n"
                                                       "  Wachttijd  =  750  \r\n"
                                                       "Leeg=\r\n"
                                                       "Aanhalingen=\"  met blanco's  \"\r\n"
                                                       "Half=\"open\r\n"
                                                       "regel zonder is-teken\r\n"
                                                       "Dubbel=eerste\r\n"
                                                       "dubbel=tweede\r\n"
                                                       "[ instellingen ]\r\n"
                                                       "Thema=3\r\n"
                                                       "[Algemeen]\r\n"
                                                       "Later=niet gezien\r\n");
    struct Case {
        const char* sectie;
        const char* sleutel;
        const char* waarde;
    };
    const Case cases[] = {
        {"Algemeen", "Wachttijd", "750"},
        {"ALGEMEEN", "wachttijd", "750"},
        {"Algemeen", "Leeg", ""},
        {"Algemeen", "Aanhalingen", "  met blanco's  "},
        {"Algemeen", "Half", "\"open"},
        {"Algemeen", "Dubbel", "eerste"},
        {"Algemeen", "regel zonder is-teken", ""},
        {"Instellingen", "Thema", "3"},
        {"Algemeen", "Later", ""}, // a second section of the same name is not read
        {"Algemeen", "los", ""},
        {"Bestaat niet", "Thema", ""},
        {"; commentaar", "x", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.sectie) + "/" + c.sleutel);
        EXPECT_EQ(
            w.p.modMain.LeesIni(QString::fromUtf8(c.sectie), QString::fromUtf8(c.sleutel), ini),
            QString::fromUtf8(c.waarde));
    }
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Wachttijd"),
                                  QStringLiteral("\\Data\\Bestaat.ini")),
              QString());
}

TEST(IniTest, ALongValueComesBackCutAt4999Characters) {
    Werkplek w;
    w.p.modMain.MaakMappen(QStringLiteral("\\Data"));
    const QString lang(6000, QLatin1Char('x'));
    w.p.modMain.SchrijfIni(lang, QStringLiteral("Algemeen"), QStringLiteral("Lang"), ini);
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Lang"), ini),
              QString(4999, QLatin1Char('x')));
    const QString precies(4999, QLatin1Char('y'));
    w.p.modMain.SchrijfIni(precies, QStringLiteral("Algemeen"), QStringLiteral("Precies"), ini);
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Precies"), ini),
              precies);
}

TEST(IniTest, AWriteChangesOnlyItsOwnLineAndKeepsComments) {
    Werkplek w;
    w.schrijf(QStringLiteral("Data/Instellingen.ini"), "; kop\n"
                                                       "[Algemeen]\n"
                                                       "Wachttijd=500\n"
                                                       "; over verbinden\n"
                                                       "Verbinden=0\n"
                                                       "\n"
                                                       "[Instellingen]\n"
                                                       "Thema=1\n");
    w.p.modMain.SchrijfIni(QStringLiteral("900"), QStringLiteral("algemeen"),
                           QStringLiteral("WACHTTIJD"), ini);
    w.p.modMain.SchrijfIni(QStringLiteral("Ja"), QStringLiteral("Algemeen"),
                           QStringLiteral("Geactiveerd"), ini);
    w.p.modMain.SchrijfIni(QStringLiteral("server:4000"), QStringLiteral("Instellingen"),
                           QStringLiteral("Serverlocatie"), ini);
    w.p.modMain.SchrijfIni(QStringLiteral("2.0.1"), QStringLiteral("Update"),
                           QStringLiteral("Huidige client"), ini);
    EXPECT_EQ(w.lees(QStringLiteral("Data/Instellingen.ini")),
              QByteArray("; kop\n"
                         "[Algemeen]\n"
                         "Wachttijd=900\n"
                         "; over verbinden\n"
                         "Verbinden=0\n"
                         "Geactiveerd=Ja\n"
                         "\n"
                         "[Instellingen]\n"
                         "Thema=1\n"
                         "Serverlocatie=server:4000\n"
                         "[Update]\n"
                         "Huidige client=2.0.1\n"));
}

TEST(IniTest, AWriteCreatesTheFileButNotItsFolder) {
    Werkplek w;
    w.p.modMain.SchrijfIni(QStringLiteral("1"), QStringLiteral("A"), QStringLiteral("b"), ini);
    EXPECT_FALSE(QFile::exists(w.pad(QStringLiteral("Data/Instellingen.ini"))));
    w.p.modMain.MaakMappen(QStringLiteral("\\Data"));
    w.p.modMain.SchrijfIni(QStringLiteral("1"), QStringLiteral("A"), QStringLiteral("b"), ini);
    EXPECT_EQ(w.lees(QStringLiteral("Data/Instellingen.ini")), QByteArray("[A]\r\nb=1\r\n"));
}

TEST(IniTest, ADamagedFileIsReadAsFarAsSensibleAndAWriteLosesNoOtherKey) {
    Werkplek w;
    QByteArray rommel("[Algemeen]\nGoed=1\n\x01\x02\xff\xfe binair\n[[kapot\n=zonder sleutel\n"
                      "Ook=goed\n");
    rommel.append('\0');
    rommel.append("na nul\n[Tweede]\nX=\xe9\xe9n\n"); // Windows-1252 bytes, not UTF-8
    w.schrijf(QStringLiteral("Data/Instellingen.ini"), rommel);
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Ook"), ini),
              QStringLiteral("goed"));
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("Tweede"), QStringLiteral("X"), ini),
              QStringLiteral("één"));
    w.p.modMain.SchrijfIni(QStringLiteral("2"), QStringLiteral("Algemeen"), QStringLiteral("Nieuw"),
                           ini);
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Goed"), ini),
              QStringLiteral("1"));
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Ook"), ini),
              QStringLiteral("goed"));
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("Tweede"), QStringLiteral("X"), ini),
              QStringLiteral("één"));
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Nieuw"), ini),
              QStringLiteral("2"));
}

TEST(IniTest, AChangeOnDiskByAnotherWriterIsSeen) {
    Werkplek w;
    w.schrijf(QStringLiteral("Data/Instellingen.ini"), "[A]\nx=1\n");
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("A"), QStringLiteral("x"), ini),
              QStringLiteral("1"));
    w.schrijf(QStringLiteral("Data/Instellingen.ini"), "[A]\nx=22\n");
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("A"), QStringLiteral("x"), ini),
              QStringLiteral("22"));
    QFile::remove(w.pad(QStringLiteral("Data/Instellingen.ini")));
    EXPECT_EQ(w.p.modMain.LeesIni(QStringLiteral("A"), QStringLiteral("x"), ini), QString());
}

TEST(IniDocumentTest, RemovesKeysAndSectionsAndListsThem) {
    IniDocument doc = IniDocument::parse(QStringLiteral("[A]\nx=1\ny=2\n[B]\nz=3\n[C]\nw=4\n"));
    EXPECT_EQ(doc.sections(),
              (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
    EXPECT_EQ(doc.keys(QStringLiteral("a")),
              (QStringList{QStringLiteral("x"), QStringLiteral("y")}));
    doc.removeKey(QStringLiteral("A"), QStringLiteral("X"));
    doc.removeKey(QStringLiteral("A"), QStringLiteral("nergens")); // a missing key takes nothing
    doc.removeSection(QStringLiteral("b"));
    EXPECT_EQ(doc.text(), QStringLiteral("[A]\ny=2\n[C]\nw=4\n"));
    EXPECT_EQ(doc.value(QStringLiteral("C"), QStringLiteral("v")), std::nullopt);

    // A line without a key before "=", a commented one and one that starts with NUL hold no key.
    doc = IniDocument::parse(QStringLiteral("[A]\n=1\n;k=2\n") + QChar(0) +
                             QStringLiteral("n=3\nk=4\n"));
    EXPECT_EQ(doc.keys(QStringLiteral("A")), QStringList{QStringLiteral("k")});
    EXPECT_EQ(doc.value(QStringLiteral("A"), QString()), std::nullopt);
}
