#include "session/ModMainAccounts.h"

#include "core/UnbuiltStartSteps.h"
#include "platform/SystemActions.h"
#include "platform/fake/FakeSystemActions.h"
#include "session/ModMainSessie.h"
#include "tests/support/Werkplek.h"

#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace tk;
using tk::test::Werkplek;

namespace {

const QString ini = QStringLiteral("\\Data\\Instellingen.ini");
const QString batch = QStringLiteral("\\batchfile.bat");

struct Rekening : Werkplek {
    Rekening() : accounts(p, systeem) {
        p.modMain.MaakMappen(QStringLiteral("\\Data"));
        platform.fakeClock().setNow(QDateTime(QDate(2026, 3, 4), QTime(9, 5, 7)));
    }
    FakeSystemActions systeem;
    ModMainAccounts accounts;
};

TEST(ModMainAccountsTest, ScriptAndOutputHaveTheirExactFormAndNumbersRestartOnlyWithTheFile) {
    Rekening r;
    r.schrijf(QStringLiteral("uitvoer.txt"), "oud\n");
    r.p.modMain.SchrijfIni(QStringLiteral("geen getal"), QStringLiteral("Algemeen"),
                           QStringLiteral("Opdrachtregel"), ini);
    EXPECT_EQ(1, r.accounts.BatchFile(batch, true, QStringLiteral("net user a /delete")));
    EXPECT_FALSE(QFile::exists(r.pad(QStringLiteral("uitvoer.txt"))))
        << "a restart of the numbering removes the old output";
    EXPECT_EQ(
        2, r.accounts.BatchFile(batch, false,
                                QStringLiteral("net localgroup Administrators \"S\\b c\" /add")));
    const QString u = r.pad(QStringLiteral("uitvoer.txt"));
    const QString d(63, QLatin1Char('-'));
    EXPECT_EQ(
        QStringLiteral("echo %1  >> %2 2>&1\n"
                       "echo 1 [9:05:07 - 4-3-2026] Opdrachtregel: net user a /delete  >> %2 2>&1\n"
                       "net user a /delete  >> %2 2>&1\n"
                       "echo %1  >> %2 2>&1\n"
                       "echo .>> %2 2>&1\n")
            .arg(d, u),
        QString::fromLocal8Bit(r.lees(QStringLiteral("batchfile.bat"))).section(u'\n', 0, 4) +
            QLatin1Char('\n'));

    r.systeem.outputs.insert(QStringLiteral("net"), QStringLiteral("De opdracht is voltooid."));
    r.accounts.ShellWait(batch, 0, 0, true);
    EXPECT_FALSE(QFile::exists(r.pad(QStringLiteral("batchfile.bat"))));
    EXPECT_EQ((QStringList{QStringLiteral("net user a /delete"),
                           QStringLiteral("net localgroup Administrators S\\b c /add")}),
              r.systeem.actions);
    EXPECT_EQ(QStringLiteral("%1\n1 [9:05:07 - 4-3-2026] Opdrachtregel: net user a /delete\n"
                             "De opdracht is voltooid.\n%1\n.\n"
                             "%1\n2 [9:05:07 - 4-3-2026] Opdrachtregel: net localgroup "
                             "Administrators \"S\\b c\" /add\nDe opdracht is voltooid.\n%1\n.\n")
                  .arg(d),
              QString::fromLocal8Bit(r.lees(QStringLiteral("uitvoer.txt"))));
    // The next batch, started afresh, numbers on.
    EXPECT_EQ(3, r.accounts.BatchFile(batch, true, QStringLiteral("net user b /delete")));
    EXPECT_TRUE(r.accounts.ControleerAdministratorRechten(2));
}

TEST(ModMainAccountsTest, SuccessTestReadsOnlyTheBlockOfItsNumber) {
    const QString d(63, QLatin1Char('-'));
    const QString bestand = d + QStringLiteral("\n1 [x] Opdrachtregel: a\nSystem error 5.\n") + d +
                            QStringLiteral("\n.\n") + d +
                            QStringLiteral("\n2 [x] Opdrachtregel: b\nThe command completed "
                                           "successfully.\n") +
                            d + QStringLiteral("\n.\n") + d +
                            QStringLiteral("\n12 [x] Opdrachtregel: c\nTHE COMMAND COMPLETED "
                                           "SUCCESSFULLY.\n") +
                            d + QStringLiteral("\n.\n");
    struct Rij {
        int n;
        bool geslaagd;
    };
    const Rij rijen[] = {{1, false}, {2, true}, {12, true}, {3, false}, {0, false}};
    Rekening r;
    r.schrijf(QStringLiteral("uitvoer.txt"), bestand.toLocal8Bit());
    for (const Rij& rij : rijen) {
        SCOPED_TRACE(rij.n);
        EXPECT_EQ(rij.geslaagd, r.accounts.ControleerAdministratorRechten(rij.n));
    }
    QFile::remove(r.pad(QStringLiteral("uitvoer.txt")));
    EXPECT_FALSE(r.accounts.ControleerAdministratorRechten(2));
}

class KlassenEnLeraren : public UnbuiltStartSteps {
public:
    using UnbuiltStartSteps::UnbuiltStartSteps;
    QStringList Accounts() override { return accounts; }
    QStringList accounts{QStringLiteral("KLAS|klas3a|1"), QStringLiteral("LERAAR|Jansen|2"),
                         QStringLiteral("KLAS|KLAS3A|3"), QStringLiteral("LERAAR|pieters|4")};
};

TEST(ModMainAccountsTest, TeachersRightsAreGrantedOnceAndNotedPerAccountUnderGlobalOnly) {
    for (const char* gebruiker : {"GLOBAL", "leerling"}) {
        SCOPED_TRACE(gebruiker);
        Rekening r;
        KlassenEnLeraren stappen(r.p);
        r.p.opstartStappen = &stappen;
        r.p.modMain.ModusNetwerk = true;
        r.platform.fakeEnvironment().setVariable(QStringLiteral("USERNAME"),
                                                 QString::fromLatin1(gebruiker));
        r.p.modMain.SchrijfIni(QStringLiteral("ja"), QStringLiteral("PIETERS"),
                               QStringLiteral("Administratorrechten"), ini);
        // One call for the whole batch; its answer is split per account, and a line that names
        // no account belongs to all.
        r.systeem.outputs.insert(QStringLiteral("net"),
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
            return r.p.modMain.LeesIni(QString::fromLatin1(account),
                                       QStringLiteral("Administratorrechten"), ini);
        };
        EXPECT_EQ(global ? QStringLiteral("Nee") : QString(), rechten("KLAS3A"));
        EXPECT_EQ(global ? QStringLiteral("Ja") : QString(), rechten("JANSEN"));
        EXPECT_EQ(u"ja", rechten("PIETERS"));
        if (global) {
            EXPECT_TRUE(QString::fromLocal8Bit(r.lees(QStringLiteral("uitvoer.txt")))
                            .contains(u"JANSEN\" /add\nThe command completed successfully.\n"
                                      u"net: a warning\n"));
        }
    }
}

// The privileged program itself behind SystemActions, against a temporary system root.
class EchtProgramma : public SystemActions {
public:
    explicit EchtProgramma(const QString& root) : m_root(root) {}
    bool run(const QString& verb, const QStringList& args, const QString& input,
             QString* output) override {
        QProcess proces;
        proces.setProcessChannelMode(QProcess::MergedChannels);
        proces.start(QStringLiteral(TK_SYSTEEM_PAD),
                     QStringList{QStringLiteral("--root"), m_root, verb} + args);
        proces.write(input.toUtf8());
        proces.closeWriteChannel();
        proces.waitForFinished(60000);
        if (output)
            *output = QString::fromUtf8(proces.readAll());
        return proces.exitCode() == 0;
    }

private:
    QString m_root;
};

TEST(ModMainAccountsTest, TakeOverAccountIsMadeAndGroupedByTheRealProgramAndItsLinesPass) {
    if (geteuid() != 0)
        GTEST_SKIP() << "useradd --prefix needs root; CI runs the tests as root";
    QTemporaryDir root;
    QDir().mkpath(root.filePath(QStringLiteral("etc")));
    for (const auto& [naam, regel] :
         {std::pair{"etc/passwd", "root:x:0:0:root:/root:/bin/bash\n"},
          std::pair{"etc/group", "root:x:0:\n"}, std::pair{"etc/shadow", "root:*:1:0:9:7:::\n"},
          std::pair{"etc/gshadow", "root:*::\n"}}) {
        QFile f(root.filePath(QString::fromLatin1(naam)));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(regel);
    }
    Werkplek w;
    w.p.modMain.MaakMappen(QStringLiteral("\\Data"));
    w.p.modMain.ModusStandalone = true;
    EchtProgramma echt(root.path());
    ModMainSessie sessie(w.p, echt);
    EXPECT_TRUE(sessie.TafelkraterAccountAanmaken());
    // The first command's failure (no account to delete) stands in the output, unchecked.
    const QString uit = QString::fromLocal8Bit(w.lees(QStringLiteral("uitvoer.txt")));
    EXPECT_TRUE(uit.contains(u"the account tafelkrater does not exist"));
    EXPECT_EQ(3, uit.count(u"Opdrachtregel: net"));

    // The network's grants in one call of the tool: a member already, an account to add, one
    // that does not exist and a name Linux does not take, each noted on its own.
    ASSERT_TRUE(echt.run(QStringLiteral("net"),
                         {QStringLiteral("user"), QStringLiteral("jansen"), QStringLiteral("pw"),
                          QStringLiteral("/add")},
                         QString(), nullptr));
    KlassenEnLeraren stappen(w.p);
    stappen.accounts = {QStringLiteral("KLAS|Tafelkrater|1"), QStringLiteral("LERAAR|jansen|2"),
                        QStringLiteral("LERAAR|niemand|3"), QStringLiteral("KLAS|klas 3a|4")};
    w.p.opstartStappen = &stappen;
    w.p.modMain.ModusStandalone = false;
    w.p.modMain.ModusNetwerk = true;
    w.platform.fakeEnvironment().setVariable(QStringLiteral("USERNAME"), QStringLiteral("GLOBAL"));
    sessie.ControleerLerarenRechten();
    for (const auto& [account, rechten] :
         {std::pair{"TAFELKRATER", "Ja"}, std::pair{"JANSEN", "Ja"}, std::pair{"NIEMAND", "Nee"},
          std::pair{"KLAS 3A", "Nee"}})
        EXPECT_EQ(QString::fromLatin1(rechten),
                  w.p.modMain.LeesIni(QString::fromLatin1(account),
                                      QStringLiteral("Administratorrechten"), ini))
            << account;
    QFile group(root.filePath(QStringLiteral("etc/group")));
    ASSERT_TRUE(group.open(QIODevice::ReadOnly));
    EXPECT_TRUE(group.readAll().contains("tafelkrater-beheer:x:1000:tafelkrater,jansen\n"));
}

} // namespace
