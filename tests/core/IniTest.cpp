#include "core/IniDocument.h"
#include "tests/support/Werkplek.h"

#include <QFile>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace tk;
using tk::test::Werkplek;

namespace {
const QString ini = "\\Data\\Instellingen.ini";

// A fresh workstation, and the profile functions with plain texts.
struct IniTest : testing::Test {
    Werkplek w;
    QString lees(const char* sectie, const char* sleutel, const QString& bestand = ini) {
        return w.p.modMain.LeesIni(QString::fromUtf8(sectie), QString::fromUtf8(sleutel), bestand);
    }
    void schrijf(const QString& waarde, const char* sectie, const char* sleutel) {
        w.p.modMain.SchrijfIni(waarde, QString::fromUtf8(sectie), QString::fromUtf8(sleutel), ini);
    }
};
} // namespace

TEST_F(IniTest, ReadsLikeTheProfileFunctions) {
    w.schrijf("Data/Instellingen.ini", "; commentaar\r\n"
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
        EXPECT_EQ(lees(c.sectie, c.sleutel), QString::fromUtf8(c.waarde));
    }
    EXPECT_EQ(lees("Algemeen", "Wachttijd", "\\Data\\Bestaat.ini"), QString());
}

TEST_F(IniTest, AWriteCreatesTheFileButNotItsFolderAndALongValueComesBackCutAt4999) {
    schrijf("1", "A", "b");
    EXPECT_FALSE(QFile::exists(w.pad("Data/Instellingen.ini")));
    w.p.modMain.MaakMappen("\\Data");
    schrijf("1", "A", "b");
    EXPECT_EQ(w.lees("Data/Instellingen.ini"), QByteArray("[A]\r\nb=1\r\n"));
    schrijf(QString(6000, u'x'), "Algemeen", "Lang");
    EXPECT_EQ(lees("Algemeen", "Lang"), QString(4999, u'x'));
    schrijf(QString(4999, u'y'), "Algemeen", "Precies");
    EXPECT_EQ(lees("Algemeen", "Precies"), QString(4999, u'y'));
}

TEST_F(IniTest, AWriteChangesOnlyItsOwnLineAndKeepsComments) {
    w.schrijf("Data/Instellingen.ini", "; kop\n"
                                       "[Algemeen]\n"
                                       "Wachttijd=500\n"
                                       "; over verbinden\n"
                                       "Verbinden=0\n"
                                       "\n"
                                       "[Instellingen]\n"
                                       "Thema=1\n");
    schrijf("900", "algemeen", "WACHTTIJD");
    schrijf("Ja", "Algemeen", "Geactiveerd");
    schrijf("server:4000", "Instellingen", "Serverlocatie");
    schrijf("2.0.1", "Update", "Huidige client");
    EXPECT_EQ(w.lees("Data/Instellingen.ini"), QByteArray("; kop\n"
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

TEST_F(IniTest, ADamagedFileIsReadAsFarAsSensibleAndAWriteLosesNoOtherKey) {
    QByteArray rommel("[Algemeen]\nGoed=1\n\x01\x02\xff\xfe binair\n[[kapot\n=zonder sleutel\n"
                      "Ook=goed\n");
    rommel.append('\0');
    rommel.append("na nul\n[Tweede]\nX=\xe9\xe9n\n"); // Windows-1252 bytes, not UTF-8
    w.schrijf("Data/Instellingen.ini", rommel);
    EXPECT_EQ(lees("Algemeen", "Ook"), "goed");
    EXPECT_EQ(lees("Tweede", "X"), "één");
    schrijf("2", "Algemeen", "Nieuw");
    EXPECT_EQ(lees("Algemeen", "Goed"), "1");
    EXPECT_EQ(lees("Algemeen", "Ook"), "goed");
    EXPECT_EQ(lees("Tweede", "X"), "één");
    EXPECT_EQ(lees("Algemeen", "Nieuw"), "2");
}

TEST_F(IniTest, AFileThatCannotBeReadIsNotWrittenOver) {
    if (geteuid() == 0)
        GTEST_SKIP() << "root reads everything";
    w.schrijf("Data/Instellingen.ini", "[A]\nx=1\n");
    QFile::setPermissions(w.pad("Data/Instellingen.ini"), QFile::WriteOwner);
    schrijf("2", "A", "y");
    QFile::setPermissions(w.pad("Data/Instellingen.ini"), QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(lees("A", "x"), "1");
}

TEST_F(IniTest, AChangeOnDiskByAnotherWriterIsSeen) {
    w.schrijf("Data/Instellingen.ini", "[A]\nx=1\n");
    EXPECT_EQ(lees("A", "x"), "1");
    w.schrijf("Data/Instellingen.ini", "[A]\nx=22\n");
    EXPECT_EQ(lees("A", "x"), "22");
    QFile::remove(w.pad("Data/Instellingen.ini"));
    EXPECT_EQ(lees("A", "x"), QString());
}

TEST(IniDocumentTest, RemovesKeysAndSectionsAndListsThem) {
    IniDocument doc = IniDocument::parse("[A]\nx=1\ny=2\n[B]\nz=3\n[C]\nw=4\n");
    EXPECT_EQ(doc.sections(), (QStringList{"A", "B", "C"}));
    EXPECT_EQ(doc.keys("a"), (QStringList{"x", "y"}));
    doc.removeKey("A", "X");
    doc.removeKey("A", "nergens"); // a missing key takes nothing
    doc.removeSection("b");
    EXPECT_EQ(doc.text(), "[A]\ny=2\n[C]\nw=4\n");
    EXPECT_EQ(doc.value("C", "v"), std::nullopt);

    // A line without a key before "=", a commented one and one that starts with NUL hold no key.
    doc = IniDocument::parse(QString("[A]\n=1\n;k=2\n") + QChar(0) + "n=3\nk=4\n");
    EXPECT_EQ(doc.keys("A"), QStringList{"k"});
    EXPECT_EQ(doc.value("A", QString()), std::nullopt);
}

// Changes keep the document's index in step with its lines: after each row's writes and
// removals, the document reads exactly as its own text read afresh, including writes whose line
// reads as something else.
TEST(IniDocumentTest, AfterChangesTheDocumentReadsLikeItsTextReadAfresh) {
    struct Write {
        const char* section;
        const char* key;   // null: the section is removed
        const char* value; // null: the key is removed
    };
    struct Case {
        const char* text;
        std::vector<Write> writes;
        const char* expected;
    };
    const Case cases[] = {
        {"[A]\nx=1\n\n[B]\ny=2\n",
         {{"a", "z", "3"}, {"A", "w", "4"}, {"b", "Y", "5"}, {"B", "v", "6"}},
         "[A]\nx=1\nz=3\nw=4\n\n[B]\ny=5\nv=6\n"},
        // The first of two sections of one name takes new keys; the later one moves down.
        {"[A]\nx=1\n[A]\nq=0\n[C]\nc=1\n",
         {{"A", "y", "2"}, {"A", "q", "3"}, {"c", "d", "4"}},
         "[A]\nx=1\ny=2\nq=3\n[A]\nq=0\n[C]\nc=1\nd=4\n"},
        // A new section, then keys into it and into the one before.
        {"k=v\n[A]\n",
         {{"N", "a", "1"}, {"A", "b", "2"}, {"n", "c", "3"}},
         "k=v\n[A]\nb=2\n[N]\na=1\nc=3\n"},
        // A written line that reads as a header, a comment or a cut name.
        {"[A]\nx=1\n[B]\n",
         {{"A", "[y", "]"}, {"B", ";c", "1"}, {"B", "z", "2"}, {"A", "x", "a=b"}},
         "[A]\nx=a=b\n[y=]\n[B]\n;c=1\nz=2\n"},
        {"[A]\nx=1\n", {{"[B", "k", "1"}, {"A", "y", "2"}}, "[A]\nx=1\ny=2\n[[B]\nk=1\n"},
        // Removals: a new key still lands after the section's last key, before its blank line.
        {"[A]\nx=1\ny=2\n\n[B]\nz=3\n",
         {{"A", "x", nullptr},
          {"A", "w", "4"},
          {"a", "W", nullptr},
          {"A", "v", "5"},
          {"B", "z", nullptr},
          {"b", "q", "6"}},
         "[A]\ny=2\nv=5\n\n[B]\nq=6\n"},
        {"[A]\nx=1\n;c\n\n[B]\n", {{"A", "x", nullptr}, {"A", "y", "2"}}, "[A]\n;c\ny=2\n\n[B]\n"},
        {"[A]\nx=1\n\ny=2\n[B]\n",
         {{"A", "y", nullptr}, {"nergens", "x", nullptr}, {"A", "z", "3"}},
         "[A]\nx=1\nz=3\n\n[B]\n"},
        // A key written twice: removing the first uncovers the second.
        {"[A]\nx=1\nX=2\ny=3\n", {{"A", "x", nullptr}, {"A", "z", "4"}}, "[A]\nX=2\ny=3\nz=4\n"},
        // A later section of the same name takes the place of a removed one.
        {"[A]\nx=1\n[B]\nb=1\n[a]\ny=2\n[C]\nc=1\n",
         {{"A", nullptr, nullptr},
          {"A", "z", "3"},
          {"c", nullptr, nullptr},
          {"C", "d", "4"},
          {"B", "b", nullptr},
          {"nergens", nullptr, nullptr}},
         "[B]\n[a]\ny=2\nz=3\n[C]\nd=4\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        IniDocument doc = IniDocument::parse(QString::fromLatin1(c.text));
        for (const Write& w : c.writes) {
            const QString section = QString::fromLatin1(w.section);
            if (!w.key)
                doc.removeSection(section);
            else if (!w.value)
                doc.removeKey(section, QString::fromLatin1(w.key));
            else
                doc.setValue(section, QString::fromLatin1(w.key), QString::fromLatin1(w.value));
        }
        EXPECT_EQ(doc.text(), QString::fromLatin1(c.expected));
        const IniDocument afresh = IniDocument::parse(doc.text());
        ASSERT_EQ(doc.sections(), afresh.sections());
        for (const QString& section : afresh.sections()) {
            ASSERT_EQ(doc.keys(section), afresh.keys(section)) << section.toStdString();
            for (const QString& key : afresh.keys(section))
                EXPECT_EQ(doc.value(section, key), afresh.value(section, key))
                    << section.toStdString() << "/" << key.toStdString();
        }
    }
}
