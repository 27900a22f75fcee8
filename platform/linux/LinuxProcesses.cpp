#include "LinuxProcesses.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QStandardPaths>

#include <csignal>
#include <unistd.h>

namespace tk {

namespace {

// The state letter and parent of a process from /proc/<pid>/stat; false when it is gone. The
// command name in brackets may hold blanks and brackets, so the fields are read after the last ')'.
bool leesStat(qint64 pid, char& toestand, qint64& ouder) {
    QFile f(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!f.open(QIODevice::ReadOnly))
        return false;
    const QByteArray regel = f.readAll();
    const int haak = regel.lastIndexOf(')');
    if (haak < 0)
        return false;
    const QList<QByteArray> velden = regel.mid(haak + 2).split(' ');
    if (velden.size() < 2 || velden[0].isEmpty())
        return false;
    toestand = velden[0].at(0);
    ouder = velden[1].toLongLong();
    return true;
}

QHash<qint64, QList<qint64>> kinderenPerOuder() {
    QHash<qint64, QList<qint64>> kinderen;
    const QStringList namen = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString& naam : namen) {
        bool getal = false;
        const qint64 pid = naam.toLongLong(&getal);
        char toestand = 0;
        qint64 ouder = 0;
        if (getal && leesStat(pid, toestand, ouder) && toestand != 'Z' && toestand != 'X')
            kinderen[ouder].append(pid);
    }
    return kinderen;
}

// The program as it will be run: a path as given, a bare name through PATH.
QString vindProgramma(const QString& program) {
    if (program.contains(QLatin1Char('/')))
        return program;
    return QStandardPaths::findExecutable(program);
}

} // namespace

bool LinuxProcesses::startDetached(const QString& program, const QStringList& arguments,
                                   const QString& workingFolder) {
    return QProcess::startDetached(program, arguments, workingFolder);
}

StartResult LinuxProcesses::start(const QString& program, const QStringList& arguments,
                                  const QString& workingFolder) {
    if (!workingFolder.isEmpty() && !QFileInfo(workingFolder).isDir())
        return StartResult{3, 0};
    const QString pad = vindProgramma(program);
    const QFileInfo info(pad);
    if (pad.isEmpty() || !info.exists())
        return StartResult{2, 0};
    if (info.isDir() || !info.isExecutable())
        return StartResult{5, 0};
    qint64 pid = 0;
    if (!QProcess::startDetached(pad, arguments, workingFolder, &pid) || pid <= 0)
        return StartResult{8, 0};
    return StartResult{42, pid};
}

qint64 LinuxProcesses::ownPid() {
    return static_cast<qint64>(::getpid());
}

bool LinuxProcesses::isRunning(qint64 pid) {
    char toestand = 0;
    qint64 ouder = 0;
    return pid > 0 && leesStat(pid, toestand, ouder) && toestand != 'Z' && toestand != 'X';
}

QList<qint64> LinuxProcesses::descendants(qint64 pid) {
    const QHash<qint64, QList<qint64>> kinderen = kinderenPerOuder();
    QList<qint64> uit;
    QList<qint64> rij{pid};
    for (int i = 0; i < rij.size(); ++i)
        for (qint64 kind : kinderen.value(rij[i]))
            if (!uit.contains(kind)) {
                uit.append(kind);
                rij.append(kind);
            }
    return uit;
}

bool LinuxProcesses::kill(qint64 pid) {
    if (pid <= 0 || pid == ownPid())
        return false;
    // The children first, so that none is left to its grandparent.
    const QList<qint64> onder = descendants(pid);
    bool iets = false;
    for (auto it = onder.crbegin(); it != onder.crend(); ++it)
        iets = ::kill(static_cast<pid_t>(*it), SIGKILL) == 0 || iets;
    return ::kill(static_cast<pid_t>(pid), SIGKILL) == 0 || iets;
}

} // namespace tk
