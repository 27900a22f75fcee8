// The field mappings of the loaders, their edge cases, and bad input from the server and from
// the cache.
#include "core/Ansi.h"
#include "data/SealedCache.h"
#include "tests/support/OpnameSchermen.h"
#include "tests/support/ScriptedPeer.h"
#include "tests/support/Werkplek.h"

#include <gtest/gtest.h>

using namespace tk;
using tk::test::OpnameStartscherm;
using tk::test::ScriptedPeer;
using tk::test::Werkplek;

namespace {

QString velden(int aantal, const char* voorvoegsel = "f") {
    QStringList v;
    for (int i = 0; i < aantal; ++i)
        v.append(QString("%1%2").arg(QString::fromLatin1(voorvoegsel)).arg(i));
    return v.join(";<>;");
}
QString metVeld(QString record, int veld, const QString& waarde) {
    QStringList v = record.split(";<>;");
    v[veld] = waarde;
    return v.join(";<>;");
}

} // namespace

TEST(VeldenTest, ClassAndTeacherRecordsMapTheirFieldsWithTheirEdgeCases) {
    ScriptedPeer peer;
    peer.op("TST", "TST")
        .op("LDNKLSSNC", "LDNKLSSNC0|")
        .op("LDNKLSDA0", "LDNKLSDA0|" + velden(12, "a") + ";|;" +
                             metVeld(velden(13, "b"), 11, QString()) + ";|;" + velden(14, "c"))
        .op("LDNLRNSNC", "LDNLRNSNC0|3")
        .op("LDNLRNDA0", "LDNLRNDA0|" + velden(15, "d") + ";|;" + velden(16, "e"));
    Werkplek dw(Werkplek::gegevens, peer.poort());
    ASSERT_TRUE(dw.verbind());
    ModData& d = dw.d();
    // What stood there before: a load writes over it, column by column.
    d.Klassen(0, 11) = "5,5";
    d.Klassen(0, 12) = "oud";
    for (int rij = 0; rij < 3; ++rij) {
        d.Klassen(rij, 13) = "extra";
        d.Leraren(rij, 16) = "extra";
    }
    d.Klassen(3, 0) = "blijft";
    d.LaadKlassen();
    d.LaadLeraren();

    struct Case {
        const FixedTable& tabel;
        int rij, kolom;
        const char* waarde;
    };
    const Case cases[] = {
        {d.Klassen, 0, 0, "a1"},                  // field 0 is dropped
        {d.Klassen, 0, 9, "a10"},                 // Reserve is loaded
        {d.Klassen, 0, 10, "a11"},                // Thema
        {d.Klassen, 0, 11, "5,5"},                // 12 fields: Positie untouched
        {d.Klassen, 0, 12, "oud"},                // and Categorieen
        {d.Klassen, 1, 10, "Standaard"},          // an empty theme
        {d.Klassen, 1, 11, "b12"},                // 13 fields: Positie
        {d.Klassen, 1, 12, ""},                   // 13 fields: Categorieen not yet
        {d.Klassen, 2, 12, "c13"},                // 14 fields
        {d.Klassen, 2, 13, ""},                   // AccountExtra is never loaded
        {d.Klassen, 3, 0, "blijft"},              // rows past the load keep their contents
        {d.Leraren, 0, 13, "d13"},                // Reserve
        {d.Leraren, 0, 15, "d14"},                // field 14 is the categories
        {d.Leraren, 0, 14, "Jungle (standaard)"}, // 15 fields: no theme
        {d.Leraren, 1, 14, "e15"},                // field 15 is the theme
        {d.Leraren, 1, 15, "e14"},
        {d.Leraren, 1, 16, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(QString("row %1 column %2").arg(c.rij).arg(c.kolom).toStdString());
        EXPECT_EQ(c.tabel(c.rij, c.kolom), QString(c.waarde));
    }
    // An empty last ID becomes 1.
    EXPECT_EQ(d.LaatsteKlasID, "1");
    EXPECT_EQ(d.LaatsteLeraarID, "3");
    EXPECT_TRUE(dw.rapporten.isEmpty());
}

TEST(VeldenTest, EmptyCountsAndAnswersLoadNothingAndKeepTheLastIDs) {
    ScriptedPeer peer;
    peer.op("TST", "TST")
        .op("LDNAPKSNC", "LDNAPKSNC0|5")
        .op("LDNCAK", "LDNCAK7")
        .op("LDNKLSSNC", "LDNKLSSNC0|")
        .op("LDNKLSDA0", "LDNKLSDA0|")
        .op("LDNIVWINF", "LDNIVWINF0");
    Werkplek dw(Werkplek::gegevens, peer.poort());
    ASSERT_TRUE(dw.verbind());
    ModData& d = dw.d();
    int balk = 0;
    OpnameStartscherm startscherm;
    dw.p.startScreenEvents = &startscherm;
    startscherm.bijLaadbalk = [&] { balk += d.laadbalk.zichtbaar; };
    d.Applicaties[0](0, 0) = "oud";
    d.Categorien[0](0, 0) = "oud";
    d.VerbodenWoorden = "oud";

    d.LaadApplicaties(0);
    d.LaadCategorien(0);
    d.LaadKlassen();
    d.LaadVerbodenWoorden();

    // A count of 0 asks no record and shows no bar; the table was cleared all the same.
    EXPECT_EQ(d.LaatsteApplicatieID[0], "5");
    EXPECT_TRUE(d.Applicaties[0].vrij(0));
    EXPECT_EQ(balk, 0);
    // Only the last ID: an empty category table.
    EXPECT_EQ(d.LaatsteCategorieID[0], "7");
    EXPECT_TRUE(d.Categorien[0].vrij(0));
    // Last block 0 and no ID: one block, and ID 1; an empty block stores no row.
    EXPECT_EQ(d.LaatsteKlasID, "1");
    EXPECT_TRUE(d.Klassen.vrij(0));
    EXPECT_EQ(d.VerbodenWoorden, QString());
    EXPECT_TRUE(peer.klaar());
    EXPECT_TRUE(dw.rapporten.isEmpty());
}

TEST(VeldenTest, TheWordListShowsItsBarAboveFivePagesAndDropsThePageMarks) {
    for (const int paginas : {5, 6}) {
        SCOPED_TRACE(paginas);
        ScriptedPeer peer;
        peer.op("TST", "TST").op("LDNIVWINF", "LDNIVWINF" + QString::number(paginas));
        QStringList verwacht;
        for (int i = 1; i <= paginas; ++i) {
            peer.op(QString("LDNIVWPA%1").arg(i), QString("LDNIVWPA%1w%1|xPA%1y").arg(i));
            verwacht.append(QString("w%1|xy").arg(i));
        }
        Werkplek dw(Werkplek::gegevens, peer.poort());
        ASSERT_TRUE(dw.verbind());
        ModData& d = dw.d();
        int hoogste = 0;
        OpnameStartscherm startscherm;
        dw.p.startScreenEvents = &startscherm;
        startscherm.bijLaadbalk = [&] {
            if (d.laadbalk.zichtbaar)
                hoogste = std::max(hoogste, d.laadbalk.maximum);
        };
        d.LaadVerbodenWoorden();
        EXPECT_EQ(d.VerbodenWoorden, verwacht.join(QLatin1Char('|')));
        EXPECT_EQ(hoogste, paginas > 5 ? paginas : 0);
        EXPECT_FALSE(d.laadbalk.zichtbaar);
    }
}

// Bad answers from the server: each gives a report with the loader's name, and what was
// stored before the fault stays.
TEST(VeldenTest, BadRecordsAreReportedByTheirLoaderAndKeepWhatWasStored) {
    QString eenentwintig;
    for (int i = 0; i < 21; ++i)
        eenentwintig += (i ? ";|;" : QString()) + velden(14);
    QString twintigCategorien = "20";
    for (int i = 1; i <= 21; ++i)
        twintigCategorien += QString(";<>;%1|Cat").arg(i);
    const QString app = "1><A><1><x><><standaard|1><><1024x768x32xNEE";

    struct Case {
        const char* naam;
        QList<QPair<QString, QString>> script;
        std::function<void(ModData&)> laad;
        const char* procedure;
        std::function<void(ModData&)> controle;
    };
    const QList<Case> cases = {
        {"a 22nd class",
         {{"LDNKLSSNC", "LDNKLSSNC1|30"},
          {"LDNKLSDA0", "LDNKLSDA0|" + eenentwintig},
          {"LDNKLSDA1", "LDNKLSDA1|" + velden(14, "x")}},
         [](ModData& d) { d.LaadKlassen(); },
         "modData.LaadKlassen",
         [](ModData& d) {
             EXPECT_EQ(d.Klassen.gebruikt(), 21);
             EXPECT_EQ(d.Klassen(20, 0), "f1");
         }},
        {"a class record of too few fields",
         {{"LDNKLSSNC", "LDNKLSSNC0|2"},
          {"LDNKLSDA0", "LDNKLSDA0|" + velden(14, "n") + ";|;" + velden(11, "k")}},
         [](ModData& d) { d.LaadKlassen(); },
         "modData.LaadKlassen",
         [](ModData& d) {
             EXPECT_EQ(d.Klassen(0, 0), "n1");
             EXPECT_EQ(d.Klassen(1, 0), "oud"); // the short record stored nothing
         }},
        {"a non-numeric block count",
         {{"LDNKLSSNC", "LDNKLSSNCx|2"}},
         [](ModData& d) { d.LaadKlassen(); },
         "modData.LaadKlassen",
         [](ModData& d) { EXPECT_EQ(d.Klassen(0, 0), "oud"); }},
        {"a teacher record of 14 fields",
         {{"LDNLRNSNC", "LDNLRNSNC0|2"},
          {"LDNLRNDA0", "LDNLRNDA0|" + velden(15, "t") + ";|;" + velden(14, "u")}},
         [](ModData& d) { d.LaadLeraren(); },
         "modData.LaadLeraren",
         [](ModData& d) {
             EXPECT_EQ(d.Leraren(0, 0), "t0");
             EXPECT_EQ(d.Leraren(1, 0), "oud");
         }},
        {"a non-numeric application count",
         {{"LDNAPASNC", "LDNAPASNCabc|2"}},
         [](ModData& d) { d.LaadApplicaties(2); },
         "modData.LaadApplicaties",
         [](ModData& d) { EXPECT_TRUE(d.Applicaties[2].vrij(0)); }},
        {"an application record of 7 fields",
         {{"LDNAPLSNC", "LDNAPLSNC2|2"},
          {"LDNAPLDAT1", "LDNAPLDAT" + app},
          {"LDNAPLDAT2", "LDNAPLDAT2><B><1><x><><><"}},
         [](ModData& d) { d.LaadApplicaties(1); },
         "modData.LaadApplicaties",
         [](ModData& d) {
             EXPECT_EQ(d.Applicaties[1](0, 8), "1024x768x32xNEE");
             EXPECT_TRUE(d.Applicaties[1].vrij(1));
             EXPECT_FALSE(d.laadbalk.zichtbaar);
         }},
        {"a 21st category",
         {{"LDNCAA", "LDNCAA" + twintigCategorien}},
         [](ModData& d) { d.LaadCategorien(2); },
         "modData.LaadCategorien",
         [](ModData& d) { EXPECT_EQ(d.Categorien[2](19, 0), "20"); }},
        {"a category without its name",
         {{"LDNCAK", "LDNCAK2;<>;1|Een;<>;2"}},
         [](ModData& d) { d.LaadCategorien(0); },
         "modData.LaadCategorien",
         [](ModData& d) { EXPECT_EQ(d.Categorien[0](0, 1), "Een"); }},
        {"a non-numeric page count",
         {{"LDNIVWINF", "LDNIVWINFzz"}},
         [](ModData& d) { d.LaadVerbodenWoorden(); },
         "modData.LaadVerbodenWoorden",
         [](ModData& d) { EXPECT_EQ(d.VerbodenWoorden, "oud"); }},
        {"an unknown kind",
         {},
         [](ModData& d) { d.LaadApplicaties(3); },
         "modData.LaadApplicaties",
         [](ModData&) {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.naam);
        ScriptedPeer peer;
        peer.op("TST", "TST");
        for (const auto& [verwacht, antwoord] : c.script)
            peer.op(verwacht, antwoord);
        Werkplek dw(Werkplek::gegevens, peer.poort());
        ASSERT_TRUE(dw.verbind());
        ModData& d = dw.d();
        d.Klassen(0, 0) = d.Klassen(1, 0) = "oud";
        d.Leraren(0, 0) = d.Leraren(1, 0) = "oud";
        d.VerbodenWoorden = "oud";
        c.laad(d);
        EXPECT_EQ(dw.rapporten, QStringList{QString(c.procedure)});
        EXPECT_TRUE(peer.klaar());
        c.controle(d);
    }
}
