#include "session/ModMainAccounts.h"
#include "session/SystemTool.h"

#include "tests/session/SessieWerkplek.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace tk;
using namespace tk::test;

namespace {

const QString ini = "\\Data\\Instellingen.ini";
const QString batch = "\\batchfile.bat";

struct Rekening : SessieWerkplek {
    Rekening() { platform.fakeClock().setNow(QDateTime(QDate(2026, 3, 4), QTime(9, 5, 7))); }
    ModMainAccounts accounts{p, systeem};
};

TEST(ModMainAccountsTest, ScriptAndOutputHaveTheirExactFormAndNumbersRestartOnlyWithTheFile) {
    Rekening r;
    r.schrijf("uitvoer.txt", "oud\n");
    r.p.modMain.SchrijfIni("geen getal", "Algemeen", "Opdrachtregel", ini);
    EXPECT_EQ(1, r.accounts.BatchFile(batch, true, "net user a /delete"));
    EXPECT_FALSE(QFile::exists(r.pad("uitvoer.txt")))
        << "a restart of the numbering removes the old output";
    EXPECT_EQ(2,
              r.accounts.BatchFile(batch, false, "net localgroup Administrators \"S\\b c\" /add"));
    const QString u = r.pad("uitvoer.txt");
    const QString d(63, QLatin1Char('-'));
    EXPECT_EQ(
        QStringLiteral("echo %1  >> %2 2>&1\n"
                       "echo 1 [9:05:07 - 4-3-2026] Opdrachtregel: net user a /delete  >> %2 2>&1\n"
                       "net user a /delete  >> %2 2>&1\n"
                       "echo %1  >> %2 2>&1\n"
                       "echo .>> %2 2>&1\n")
            .arg(d, u),
        QString::fromLocal8Bit(r.lees("batchfile.bat")).section(u'\n', 0, 4) + QLatin1Char('\n'));

    r.systeem.outputs.insert("net", "De opdracht is voltooid.");
    r.accounts.ShellWait(batch, 0, 0, true);
    EXPECT_FALSE(QFile::exists(r.pad("batchfile.bat")));
    EXPECT_EQ((QStringList{"net user a /delete", "net localgroup Administrators S\\b c /add"}),
              r.systeem.actions);
    EXPECT_EQ(QStringLiteral("%1\n1 [9:05:07 - 4-3-2026] Opdrachtregel: net user a /delete\n"
                             "De opdracht is voltooid.\n%1\n.\n"
                             "%1\n2 [9:05:07 - 4-3-2026] Opdrachtregel: net localgroup "
                             "Administrators \"S\\b c\" /add\nDe opdracht is voltooid.\n%1\n.\n")
                  .arg(d),
              QString::fromLocal8Bit(r.lees("uitvoer.txt")));
    // The next batch, started afresh, numbers on.
    EXPECT_EQ(3, r.accounts.BatchFile(batch, true, "net user b /delete"));
    EXPECT_TRUE(r.accounts.ControleerAdministratorRechten(2));
}

TEST(ModMainAccountsTest, AnOutputFileInAFolderWithABlankIsWrittenWhole) {
    Rekening r;
    ASSERT_TRUE(QDir(r.pad("")).mkpath("Tafel krater"));
    const QString doel = r.pad("Tafel krater/uitvoer.txt");
    r.schrijf(
        "batchfile.bat",
        ("echo 1  >> " + doel + " 2>&1\nnet user a /delete  >> " + doel + " 2>&1\n").toLocal8Bit());
    r.systeem.outputs.insert("net", "klaar");
    r.accounts.ShellWait(batch, 0, 0, true);
    QFile uit(doel);
    ASSERT_TRUE(uit.open(QIODevice::ReadOnly));
    EXPECT_EQ("1\nklaar", QString::fromLocal8Bit(uit.readAll()).trimmed());
    EXPECT_FALSE(QFile::exists(r.pad("Tafel")));
}

TEST(ModMainAccountsTest, SuccessTestReadsOnlyTheBlockOfItsNumberAndMatchesWholeLines) {
    struct Rij {
        int n;
        const char* uitvoer; // the block's output; nullptr: no block of that number
        bool geslaagd;
    };
    const Rij rijen[] = {
        {1, "System error 5.\n", false},
        {2, "The command completed successfully.\n", true},
        {12, "THE COMMAND COMPLETED SUCCESSFULLY.\n", true},
        {13, "De opdracht is voltooid.\r\n", true},
        {14, "x\nDe opgegeven accountnaam is al lid van de lokale groep.\n", true},
        {15, "The specified account name is already a member of the local group.\n", true},
        {16, "Note: The command completed successfully.\n", false},
        {17, "Der Befehl wurde erfolgreich ausgef\xc3\xbchrt.\n", false},
        {18, "", false},
        {3, nullptr, false},
        {0, nullptr, false},
    };
    const QString d(63, QLatin1Char('-'));
    QString bestand;
    for (const Rij& rij : rijen)
        if (rij.uitvoer)
            bestand += d + QString("\n%1 [x] Opdrachtregel: c\n").arg(rij.n) +
                       QString::fromUtf8(rij.uitvoer) + d + "\n.\n";
    Rekening r;
    r.schrijf("uitvoer.txt", bestand.toLocal8Bit());
    for (const Rij& rij : rijen) {
        SCOPED_TRACE(rij.n);
        EXPECT_EQ(rij.geslaagd, r.accounts.ControleerAdministratorRechten(rij.n));
    }
    QFile::remove(r.pad("uitvoer.txt"));
    EXPECT_FALSE(r.accounts.ControleerAdministratorRechten(2));
}

TEST(ModMainAccountsTest, TeachersRightsAreGrantedOnceAndNotedPerAccountUnderGlobalOnly) {
    for (const char* gebruiker : {"GLOBAL", "leerling"}) {
        SCOPED_TRACE(gebruiker);
        Rekening r;
        r.stappen.accounts = {"KLAS|klas3a|1", "LERAAR|Jansen|2", "KLAS|KLAS3A|3",
                              "LERAAR|pieters|4"};
        r.platform.fakeEnvironment().setVariable("USERNAME", QString::fromLatin1(gebruiker));
        r.p.modMain.SchrijfIni("ja", "PIETERS", "Administratorrechten", ini);
        // One call for the whole batch; its answer is split per account, and a line that names
        // no account belongs to all.
        r.systeem.outputs.insert("net",
                                 QStringLiteral("SCHOOL\\KLAS3A: System error 1378 has occurred.\n"
                                                "SCHOOL\\JANSEN: The command completed "
                                                "successfully.\nnet: a warning\n"));
        r.accounts.ControleerLerarenRechten();
        const bool global = qstrcmp(gebruiker, "GLOBAL") == 0;
        EXPECT_EQ(global ? QStringList{QStringLiteral(
                               "net localgroup Administrators SCHOOL\\KLAS3A SCHOOL\\JANSEN /add")}
                         : QStringList{},
                  r.systeem.actions);
        const auto rechten = [&](const char* account) {
            return r.p.modMain.LeesIni(QString::fromLatin1(account), "Administratorrechten", ini);
        };
        EXPECT_EQ(global ? "Nee" : QString(), rechten("KLAS3A"));
        EXPECT_EQ(global ? "Ja" : QString(), rechten("JANSEN"));
        EXPECT_EQ(u"ja", rechten("PIETERS"));
        if (global) {
            EXPECT_TRUE(QString::fromLocal8Bit(r.lees("uitvoer.txt"))
                            .contains(u"JANSEN\" /add\nThe command completed successfully.\n"
                                      u"net: a warning\n"));
        }
    }
}

// The privileged program with the real account tools under a temporary system root: the
// take-over's account, the network's grants, the hand-back's removal, and the lines each prints
// read by the success test.
TEST(ModMainAccountsTest, AccountsAreMadeGrantedAndRemovedByTheRealProgramAndItsLinesPass) {
    if (geteuid() != 0)
        GTEST_SKIP() << "useradd --prefix needs root; CI runs the tests as root";
    QTemporaryDir root;
    kaleRoot(root.path());
    QFile hostPasswd("/etc/passwd");
    ASSERT_TRUE(hostPasswd.open(QIODevice::ReadOnly));
    const QByteArray host = hostPasswd.readAll();
    const auto lees = [&](const char* pad) {
        QFile f(root.filePath(QString::fromLatin1(pad)));
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    };
    SessieWerkplek w(Familie::Nt, Modus::Standalone);
    EchtProgramma echt(root.path());
    ModMainSessie sessie(w.p, echt);
    EXPECT_TRUE(sessie.TafelkraterAccountAanmaken());
    EXPECT_TRUE(lees("etc/shadow").contains(u"\ntafelkrater:$6$"));
    // The first command's failure (no account to delete) stands in the output, unchecked.
    const QString uit = QString::fromLocal8Bit(w.lees("uitvoer.txt"));
    EXPECT_TRUE(uit.contains(u"the account tafelkrater does not exist"));
    EXPECT_EQ(3, uit.count(u"Opdrachtregel: net"));
    EXPECT_FALSE(echt.run("net", {"user", "Tafelkrater", "x", "/add"}, QString(), nullptr))
        << "an account that exists is not made again";

    // The network's grants in one call of the tool: a member already, an account to add, one
    // that does not exist and a name Linux does not take, each noted on its own.
    ASSERT_TRUE(echt.run("net", {"user", "jansen", "pw", "/add"}, QString(), nullptr));
    w.stappen.accounts = {"KLAS|Tafelkrater|1", "LERAAR|jansen|2", "LERAAR|niemand|3",
                          "KLAS|klas 3a|4"};
    w.zetModus(Modus::Netwerk);
    w.platform.fakeEnvironment().setVariable("USERNAME", "GLOBAL");
    sessie.ControleerLerarenRechten();
    for (const auto& [account, rechten] :
         {std::pair{"TAFELKRATER", "Ja"}, std::pair{"JANSEN", "Ja"}, std::pair{"NIEMAND", "Nee"},
          std::pair{"KLAS 3A", "Nee"}})
        EXPECT_EQ(QString::fromLatin1(rechten), w.ini(account, "Administratorrechten")) << account;
    EXPECT_TRUE(lees("etc/group").contains(u"tafelkrater-beheer:x:1000:tafelkrater,jansen\n"));

    // The hand-back removes the account with its home folder; the machine's own stay. The note
    // that it must go goes only with it: a removal that fails is tried again at the next start.
    w.p.modMain.SchrijfIni("Ja", "Algemeen", "Account verwijderen", "\\Data\\Instellingen.ini");
    sessie.TafelkraterAccountVerwijderen();
    EXPECT_FALSE(w.logboek().contains(u"refused")) << w.logboek().toStdString();
    EXPECT_EQ(w.ini("Algemeen", "Account verwijderen"), "");
    w.p.modMain.SchrijfIni("Ja", "Algemeen", "Account verwijderen", "\\Data\\Instellingen.ini");
    sessie.TafelkraterAccountVerwijderen(); // no account, none the tool made: it fails
    EXPECT_EQ(w.ini("Algemeen", "Account verwijderen"), "Ja");
    // One the tool made that went by other means counts as removed.
    QFile lijst(root.filePath(SystemTool::AccountsPath));
    ASSERT_TRUE(lijst.open(QIODevice::WriteOnly) && lijst.write("tafelkrater\n") > 0);
    lijst.close();
    sessie.TafelkraterAccountVerwijderen();
    EXPECT_EQ(w.ini("Algemeen", "Account verwijderen"), "");
    EXPECT_FALSE(lees("etc/passwd").contains(u"tafelkrater:"));
    EXPECT_TRUE(lees("etc/passwd").contains(u"jansen:"));
    EXPECT_FALSE(QFileInfo::exists(root.filePath("home/tafelkrater")));
    hostPasswd.seek(0);
    EXPECT_EQ(host, hostPasswd.readAll()) << "the machine's own accounts are untouched";
}

} // namespace
