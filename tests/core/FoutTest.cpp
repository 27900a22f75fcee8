#include "core/Fout.h"
#include "core/FrmFoutrapportage.h"
#include "core/Procedure.h"
#include "tests/support/Werkplek.h"

#include <QDir>
#include <QFile>
#include <QTimer>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::Werkplek;

namespace {

const QString rapporten = "\\Data\\Foutrapportage.ini";

// A fresh workstation, its log book of today and its stored reports.
struct FoutWerkplek : testing::Test {
    Werkplek w;
    QString logboek() { return QString::fromUtf8(w.lees("Logboek/9-3-2026.txt")); }
    QString rapport(const char* sectie, const char* sleutel) {
        return w.p.modMain.LeesIni(QString::fromLatin1(sectie), QString::fromLatin1(sleutel),
                                   rapporten);
    }
    // The report window is closed without sending.
    void nietVersturen() {
        w.dialogen.opModaal = [](Form& f) {
            static_cast<FrmFoutrapportage&>(f).cmdNietVersturen_Click();
        };
    }
};
using LogboekTest = FoutWerkplek;
using FoutrapportTest = FoutWerkplek;
using ProcedureTest = FoutWerkplek;
using WachtTest = FoutWerkplek;

} // namespace

TEST_F(LogboekTest, TwoFaultsOfOneDayStandInOneFileEachBetweenItsOwnLines) {
    w.p.modMain.SchrijfLogboek("Eerste fout", "Foutrapportage", "modMain.LaadTaal", "12");
    w.platform.fakeClock().advance(61 * 1000);
    w.p.modMain.SchrijfLogboek("regel een|regel twee", "Naam", QString(), "-");
    const QString streep = QString(82, QLatin1Char('-'));
    const QString verwacht = streep + "\r\n" +
                             QStringLiteral("Date:             9-3-2026\r\n"
                                            "Time:              8:30:00\r\n"
                                            "Name:              Foutrapportage\r\n"
                                            "Description:      Eerste fout\r\n"
                                            "Procedure:         modMain.LaadTaal\r\n"
                                            "Line:         12\r\n") +
                             streep + "\r\n" + streep + "\r\n" +
                             QStringLiteral("Date:             9-3-2026\r\n"
                                            "Time:              8:31:01\r\n"
                                            "Name:              Naam\r\n"
                                            "Description:      regel een\r\n"
                                            "\t\t   regel twee\r\n") +
                             streep + "\r\n";
    EXPECT_EQ(logboek(), verwacht);
    // The folder removed, or made again in another spelling, between two faults: the next fault
    // still lands, in the folder as it is now.
    struct Case {
        const char* madeBySomeoneElse;
        const char* found;
    };
    for (const Case& c : {Case{nullptr, "Logboek"}, Case{"LOGBOEK", "LOGBOEK"}}) {
        SCOPED_TRACE(c.found);
        for (const char* weg : {"Logboek", "LOGBOEK"})
            QDir(w.map() + QLatin1Char('/') + QString::fromLatin1(weg)).removeRecursively();
        if (c.madeBySomeoneElse) {
            ASSERT_TRUE(QDir(w.map()).mkdir(QString::fromLatin1(c.madeBySomeoneElse)));
        }
        w.p.modMain.SchrijfLogboek("Na het opruimen", "Naam", QString(), "-");
        EXPECT_TRUE(QString::fromUtf8(w.lees(QString::fromLatin1(c.found) + "/9-3-2026.txt"))
                        .contains("Na het opruimen"));
    }
}

TEST_F(FoutrapportTest, ACrLfIsSplitInTheLogAndStaysOnOneLineInTheReports) {
    nietVersturen();
    w.p.modMain.Foutmelding("boven\r\nonder", "Foutrapportage", "frmMain.WS_DataArrival", "40");
    EXPECT_TRUE(logboek().contains("boven\r\n\t\t   onder\r\n"));
    EXPECT_EQ(rapport("ID=1", "Omschrijving"), "boven|onder");
    EXPECT_EQ(w.dialogen.getoond, QStringList{"frmFoutrapportage"});
    const auto lees = [&](const char* sleutel) { return rapport("ID=1", sleutel); };
    EXPECT_EQ(lees("Datum"), "9-3-2026");
    EXPECT_EQ(lees("Tijd"), "8:30:00");
    EXPECT_EQ(lees("Computernaam"), "LOKAAL-12");
    EXPECT_EQ(lees("Windows"), "Windows XP");
    EXPECT_EQ(lees("Module"), "Foutrapportage");
    EXPECT_EQ(lees("Procedure"), "frmMain.WS_DataArrival");
    EXPECT_EQ(lees("Lijn"), "40");
    EXPECT_EQ(lees("Fout negeren"), "Nee");
    EXPECT_EQ(lees("Verstuurd"), "Nee");
    EXPECT_EQ(rapport("Foutrapportage", "Aantal"), "1");
}

TEST_F(FoutrapportTest, AnIgnoredFaultShowsOnceAndOnlyTheSameFourFieldsAreIgnored) {
    w.dialogen.opModaal = [](Form& f) {
        auto& form = static_cast<FrmFoutrapportage&>(f);
        form.chkNegeren = true;
        form.cmdNietVersturen_Click();
    };
    auto meld = [&](const char* omschrijving, const char* lijn) {
        w.p.modMain.Foutmelding(QString::fromLatin1(omschrijving), "Foutrapportage",
                                "modData.LaadKlassen", QString::fromLatin1(lijn));
    };
    meld("Subscript out of range", "7");
    meld("Subscript out of range", "7");
    meld("SUBSCRIPT OUT OF RANGE", "7"); // compared in lower case
    EXPECT_EQ(w.dialogen.getoond.size(), 1);
    meld("Subscript out of range", "8");
    meld("Type mismatch", "7");
    EXPECT_EQ(w.dialogen.getoond.size(), 3);
    // The log book has all five.
    EXPECT_EQ(logboek().count("Procedure:"), 5);
    // A stored "ja" in any case counts; "Nee" does not.
    w.p.modMain.SchrijfIni("JA", "ID=3", "Fout negeren", rapporten);
    meld("Type mismatch", "7");
    EXPECT_EQ(w.dialogen.getoond.size(), 3);
}

TEST_F(FoutrapportTest, SendingGoesAsAProblemCallWhenConnected) {
    test::OpnameKanaal& kanaal = w.kanaal;
    w.p.kanaal = &kanaal;
    kanaal.voorvoegsels.insert("HLPOPS", QString());
    w.p.modMain.Locatie = "Groep 3 (id 4)";
    w.dialogen.opModaal = [](Form& f) { static_cast<FrmFoutrapportage&>(f).cmdVersturen_Click(); };
    w.p.modMain.Foutmelding("Kapot", "Foutrapportage", "frmBureaublad.LaadBureaublad", "3");
    ASSERT_EQ(kanaal.verstuurd.size(), 1);
    EXPECT_EQ(kanaal.verstuurd[0],
              QStringLiteral("HLPOPS9-3-2026;<>;8:30:00;<>;LOKAAL-12;<>;Groep 3 (id 4);<>;"
                             "Foutrapportage;<>;Tafelkrater ") +
                  ModMain::ProgrammaVersie() +
                  QStringLiteral(";<>;frmBureaublad.LaadBureaublad in lijn 3|Kapot;<>;Nee;<>;"
                                 "9-3-2026 8:30:00;<>;Error report"));
    EXPECT_TRUE(w.p.modMain.AntwoordOntvangen);
    EXPECT_EQ(rapport("ID=1", "Verstuurd"), "Ja");

    // Not connected: stored, not sent, and the user is told (string 1114).
    kanaal.verbonden = false;
    w.p.modMain.Foutmelding("Weer", "Foutrapportage", QString(), QString());
    EXPECT_EQ(kanaal.verstuurd.size(), 1);
    ASSERT_EQ(w.dialogen.gesteld.size(), 1);
    EXPECT_EQ(w.dialogen.gesteld[0].tekst, w.p.modTaal.LaadTekst(1114));
    EXPECT_EQ(w.dialogen.gesteld[0].stijl, "-");
    EXPECT_EQ(rapport("ID=2", "Procedure"), "-");
    EXPECT_EQ(rapport("ID=2", "Verstuurd"), "Nee");
}

TEST_F(ProcedureTest, AFaultIsReportedWithTheProceduresNameAndLineAndGoesNoFurther) {
    nietVersturen();
    QList<int> tabel(21);
    int lijn = 0;
    const int gevonden = Procedure(w.p, "modData.LaadKlassen", -1, [&] {
        lijn = __LINE__ + 1;
        controleerIndex(21, tabel.size());
        return 5;
    });
    EXPECT_EQ(gevonden, -1);
    EXPECT_EQ(rapport("ID=1", "Procedure"), "modData.LaadKlassen");
    EXPECT_EQ(rapport("ID=1", "Lijn"), QString::number(lijn));
    EXPECT_TRUE(rapport("ID=1", "Omschrijving").startsWith("Subscript out of range"));

    EXPECT_TRUE(Procedure(w.p, "modMain.Iets", [] {}));
    EXPECT_FALSE(Procedure(
        w.p, "modMain.Stil", [] { throw std::runtime_error("kapot"); }, true));
    EXPECT_EQ(w.dialogen.getoond.size(), 1); // the quiet one only logs
    EXPECT_TRUE(logboek().contains("modMain.Stil"));
    EXPECT_TRUE(logboek().contains("kapot"));
}

TEST_F(ProcedureTest, AFaultWhileAReportIsOnScreenIsOnlyLogged) {
    int getoond = 0;
    w.dialogen.opModaal = [&](Form& f) {
        ++getoond;
        Procedure(w.p, "frmFoutrapportage.Form_Load", [] { throw Fout("binnen"); });
        static_cast<FrmFoutrapportage&>(f).cmdNietVersturen_Click();
    };
    Procedure(w.p, "modMain.Buiten", [] { throw Fout("buiten"); });
    EXPECT_EQ(getoond, 1);
    EXPECT_TRUE(logboek().contains("frmFoutrapportage.Form_Load"));
}

TEST_F(WachtTest, EndsOnTheConditionTheDeadlineOrTheLossOfTheLink) {
    bool klaar = false;
    QTimer::singleShot(0, [&] { klaar = true; });
    EXPECT_EQ(w.p.wacht.Tot([&] { return klaar; }), Wacht::Uitkomst::Voldaan);

    w.platform.fakeClock().setStepPerRead(100);
    const qint64 deadline = w.platform.fakeClock().msecsSinceStart() + 5000;
    EXPECT_EQ(w.p.wacht.Tot([] { return false; }, deadline), Wacht::Uitkomst::Verlopen);
    EXPECT_GE(w.platform.fakeClock().msecsSinceStart(), deadline);

    QTimer::singleShot(0, [&] { w.p.wacht.VerbindingVerloren(); });
    EXPECT_EQ(w.p.wacht.Tot([] { return false; }), Wacht::Uitkomst::VerbindingVerloren);

    // A wait that does not stop on loss (the connect itself) goes on to its deadline.
    QTimer::singleShot(0, [&] { w.p.wacht.VerbindingVerloren(); });
    const qint64 later = w.platform.fakeClock().msecsSinceStart() + 1000;
    EXPECT_EQ(w.p.wacht.Tot([] { return false; }, later, false), Wacht::Uitkomst::Verlopen);
}
