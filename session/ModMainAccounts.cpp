#include "ModMainAccounts.h"

#include "core/Ansi.h"
#include "core/ModMain.h"
#include "core/OpstartStappen.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "platform/Clock.h"
#include "platform/Environment.h"
#include "platform/SystemActions.h"
#include "session/ModMainSessie.h"

#include <QFile>
#include <QHash>
#include <QStringList>

namespace tk {

namespace {
const QString instellingen() {
    return QString::fromLatin1(ModMain::Instellingen);
}

// A command line in words: blanks separate, double quotes hold blanks together.
QStringList woorden(const QString& regel) {
    QStringList uit;
    QString woord;
    bool binnen = false, iets = false;
    for (const QChar c : regel) {
        if (c == QLatin1Char('"')) {
            binnen = !binnen;
            iets = true;
        } else if (c == QLatin1Char(' ') && !binnen) {
            if (iets)
                uit << woord;
            woord.clear();
            iets = false;
        } else {
            woord += c;
            iets = true;
        }
    }
    if (iets)
        uit << woord;
    return uit;
}

// The lines of a call for several accounts that belong to the account `namen[k]`: those that
// begin with its name (without that beginning), and those that begin with no account's name (a
// refusal of the whole call), which belong to all.
QString deelVan(const QString& uitvoer, const QStringList& namen, qsizetype k) {
    QString uit;
    const QStringList regels = uitvoer.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& regel : regels) {
        qsizetype van = -1;
        for (qsizetype i = 0; i < namen.size() && van < 0; ++i)
            if (regel.startsWith(namen[i] + QStringLiteral(": ")))
                van = i;
        if (van < 0)
            uit += regel + QLatin1Char('\n');
        else if (namen[van] == namen[k])
            uit += regel.mid(namen[k].size() + 2) + QLatin1Char('\n');
    }
    return uit;
}

void voegToe(const QString& pad, const QString& tekst) {
    QFile f(pad);
    if (f.open(QIODevice::Append))
        f.write(tekst.toLocal8Bit());
}
} // namespace

ModMainAccounts::ModMainAccounts(Programma& p, SystemActions& systeem) : p(p), m_systeem(systeem) {}

QString ModMainAccounts::uitvoer() const {
    return p.modMain.Pad(QStringLiteral("\\uitvoer.txt"));
}

int ModMainAccounts::BatchFile(const QString& bestand, bool aanvullen, const QString& opdracht) {
    return Procedure(p, "modMain.BatchFile", 0, [&] {
        const QString script = p.modMain.Pad(bestand);
        QByteArray bewaard;
        if (!aanvullen) {
            QFile oud(script);
            if (oud.open(QIODevice::ReadOnly))
                bewaard = oud.readAll();
        }
        bool getal = false;
        int n = p.modMain
                    .LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Opdrachtregel"),
                             instellingen())
                    .trimmed()
                    .toInt(&getal);
        if (getal) {
            ++n;
        } else {
            n = 1;
            QFile::remove(uitvoer());
        }
        p.modMain.SchrijfIni(QString::number(n), QStringLiteral("Algemeen"),
                             QStringLiteral("Opdrachtregel"), instellingen());
        const QString u = QStringLiteral("  >> ") + uitvoer() + QStringLiteral(" 2>&1");
        const QString tijd =
            p.platform.clock().now().toString(QStringLiteral("H:mm:ss - d-M-yyyy"));
        const QString streep = QString::fromLatin1(Streep);
        const QString regels =
            QStringLiteral("echo ") + streep + u + QLatin1Char('\n') +
            QStringLiteral("echo %1 [%2] Opdrachtregel: %3").arg(n).arg(tijd, opdracht) + u +
            QLatin1Char('\n') + opdracht + u + QLatin1Char('\n') + QStringLiteral("echo ") +
            streep + u + QLatin1Char('\n') + QStringLiteral("echo .>> ") + uitvoer() +
            QStringLiteral(" 2>&1\n");
        QFile uit(script);
        if (!uit.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return 0;
        uit.write(bewaard);
        uit.write(regels.toLocal8Bit());
        return n;
    });
}

void ModMainAccounts::ShellWait(const QString& opdracht, int, int, bool verwijderen) {
    Procedure(p, "modMain.ShellWait", [&] {
        const QString script = p.modMain.Pad(opdracht);
        QFile bestand(script);
        if (!bestand.open(QIODevice::ReadOnly))
            return;
        const QStringList regels =
            QString::fromLocal8Bit(bestand.readAll()).split(QLatin1Char('\n'));
        bestand.close();
        // Every line of our scripts sends its output to the output file.
        struct Stap {
            QString doel;
            QString echo;        // the text of an echo line
            QStringList woorden; // a command in words; empty for an echo line
        };
        QList<Stap> stappen;
        for (QString regel : regels) {
            const int pijl = regel.lastIndexOf(QStringLiteral(">> "));
            if (pijl < 0)
                continue;
            // The output file is all after the arrow but the error redirection: a program
            // folder may hold blanks.
            QString doel = regel.mid(pijl + 3).trimmed();
            if (doel.endsWith(QStringLiteral(" 2>&1")))
                doel = doel.chopped(5).trimmed();
            Stap stap{doel, {}, {}};
            regel = regel.left(pijl);
            if (regel.startsWith(QStringLiteral("echo ")))
                stap.echo = regel.mid(5).trimmed();
            else if ((stap.woorden = woorden(regel.trimmed())).isEmpty())
                continue;
            stappen << stap;
        }
        // "net localgroup GROUP NAME /add": a grant, which the tool takes for several at once.
        const auto groep = [](const QStringList& w) {
            const auto is = [&](int i, const char* woord) {
                return w.value(i).compare(QLatin1String(woord), Qt::CaseInsensitive) == 0;
            };
            return w.size() == 5 && is(0, "net") && is(1, "localgroup") && is(4, "/add")
                       ? w[2].toLower()
                       : QString();
        };
        QHash<qsizetype, QString> uitvoer; // per command step, what it printed
        for (qsizetype i = 0; i < stappen.size(); ++i) {
            const QStringList& w = stappen[i].woorden;
            if (w.isEmpty()) {
                voegToe(stappen[i].doel, stappen[i].echo + QLatin1Char('\n'));
                continue;
            }
            if (!uitvoer.contains(i)) {
                // The grants to one group that follow each other go to the tool as one call,
                // never one per account: each change of the group costs the tool its locks and
                // a full rewrite of the group files. Its answer is split again per account.
                QList<qsizetype> samen{i};
                for (qsizetype j = i + 1; !groep(w).isEmpty() && j < stappen.size(); ++j) {
                    if (stappen[j].woorden.isEmpty())
                        continue;
                    if (groep(stappen[j].woorden) != groep(w))
                        break;
                    samen << j;
                }
                QStringList namen;
                for (qsizetype k : samen)
                    namen << stappen[k].woorden[3];
                QString uit;
                if (w.first().compare(QStringLiteral("net"), Qt::CaseInsensitive) != 0)
                    uit = QStringLiteral("'%1' is not a command of this workstation\n")
                              .arg(w.first());
                else if (samen.size() == 1)
                    m_systeem.run(QStringLiteral("net"), w.mid(1), QString(), &uit);
                else
                    m_systeem.run(QStringLiteral("net"),
                                  QStringList{w[1], w[2]} + namen + QStringList{w[4]}, QString(),
                                  &uit);
                if (!uit.isEmpty() && !uit.endsWith(QLatin1Char('\n')))
                    uit += QLatin1Char('\n');
                for (qsizetype k = 0; k < samen.size(); ++k)
                    uitvoer.insert(samen[k], samen.size() == 1 ? uit : deelVan(uit, namen, k));
            }
            voegToe(stappen[i].doel, uitvoer.value(i));
        }
        if (verwijderen)
            QFile::remove(script);
    });
}

bool ModMainAccounts::ControleerAdministratorRechten(int n) {
    return Procedure(p, "modMain.ControleerAdministratorRechten", false, [&] {
        QFile bestand(uitvoer());
        if (!bestand.open(QIODevice::ReadOnly))
            return false;
        const QString nummer = QString::number(n);
        bool gevonden = false;
        while (!bestand.atEnd()) {
            const QString regel = QString::fromLocal8Bit(bestand.readLine());
            const int haak = regel.indexOf(QStringLiteral(" ["));
            if (haak >= 0 && regel.left(haak) == nummer) {
                gevonden = true;
                break;
            }
        }
        if (!gevonden)
            return false;
        QString blok;
        while (!bestand.atEnd()) {
            const QString regel = QString::fromLocal8Bit(bestand.readLine());
            if (regel.trimmed() == QLatin1String(Streep))
                break;
            blok += regel;
        }
        return ModMainSessie::Geslaagd(blok);
    });
}

void ModMainAccounts::ControleerLerarenRechten() {
    Procedure(p, "modMain.ControleerLerarenRechten", [&] {
        ModMain& m = p.modMain;
        const QString gebruiker =
            p.platform.environment().variable(QStringLiteral("USERNAME")).toUpper();
        if (!m.ModusNetwerk || gebruiker != u"GLOBAL")
            return;
        QStringList accounts;
        for (const QString& item : p.opstartStappen->Accounts()) {
            const QString account = item.section(QLatin1Char('|'), 1, 1).toUpper();
            if (!account.isEmpty() && !accounts.contains(account))
                accounts << account;
        }
        const QString domein = p.platform.environment().variable(QStringLiteral("USERDOMAIN"));
        const QString batch = QStringLiteral("\\batchfile.bat");
        QList<std::pair<QString, int>> nummers;
        for (const QString& account : accounts) {
            if (Ansi::hoofdletters(m.LeesIni(account, QStringLiteral("Administratorrechten"),
                                             instellingen())) == u"JA")
                continue;
            nummers.append(
                {account, BatchFile(batch, nummers.isEmpty(),
                                    QStringLiteral("net localgroup Administrators \"%1\\%2\" /add")
                                        .arg(domein, account))});
        }
        if (nummers.isEmpty())
            return;
        ShellWait(batch, 0, 0, true);
        for (const auto& [account, n] : nummers)
            m.SchrijfIni(ControleerAdministratorRechten(n) ? QStringLiteral("Ja")
                                                           : QStringLiteral("Nee"),
                         account, QStringLiteral("Administratorrechten"), instellingen());
    });
}

} // namespace tk
