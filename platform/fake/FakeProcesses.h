#pragma once

#include "platform/Processes.h"

#include <QHash>
#include <QSet>
#include <QStandardPaths>

namespace tk {

// Records every start as "program arg1 arg2 (in folder)". A start answers `failWith` when set
// (0 or more), else a start with the next free pid, which then runs until the test ends it. What
// a start started is what the test puts in `children`; like a session, the processes below a pid
// stay part of its start after the ones between them ended.
class FakeProcesses : public Processes {
public:
    bool startDetached(const QString& program, const QStringList& arguments,
                       const QString& workingFolder) override {
        record(program, arguments, workingFolder);
        return succeeds;
    }
    StartResult start(const QString& program, const QStringList& arguments,
                      const QString& workingFolder) override {
        record(program, arguments, workingFolder);
        if (failWith >= 0)
            return StartResult{failWith, 0};
        const qint64 pid = nextPid++;
        running.insert(pid);
        return StartResult{42, pid};
    }
    void setWebProxy(const QString& hostPort) override { webProxy = hostPort; }
    qint64 ownPid() override { return 100; }
    // Programs are looked for on the real PATH, so that a test can name one that is there.
    QString findExecutable(const QString& name) override {
        return QStandardPaths::findExecutable(name);
    }
    bool claimSingleInstance(const QString& folder) override {
        claimed << folder;
        return !anotherInstance;
    }
    bool anotherInstance = false; // another client holds the program folder
    QStringList claimed;
    bool isRunning(qint64 pid) override { return running.contains(pid); }
    QList<qint64> processesOfStart(qint64 pid) override {
        QList<qint64> alle{pid};
        for (qsizetype i = 0; i < alle.size(); ++i)
            for (qint64 kind : children.value(alle[i]))
                if (!alle.contains(kind))
                    alle.append(kind);
        QList<qint64> uit;
        for (qint64 p : alle)
            if (running.contains(p))
                uit.append(p);
        return uit;
    }
    bool kill(qint64 pid) override {
        killed.append(pid);
        bool iets = false;
        for (qint64 p : processesOfStart(pid))
            iets = running.remove(p) || iets;
        return iets;
    }

    QStringList started;
    QString webProxy; // the proxy of the programs started from now on
    bool succeeds = true;
    int failWith = -1; // a ShellExecute code (32 or below) that every start() answers
    qint64 nextPid = 1000;
    QSet<qint64> running;
    QHash<qint64, QList<qint64>> children;
    QList<qint64> killed;

private:
    void record(const QString& program, const QStringList& arguments, const QString& folder) {
        started.append(program +
                       (arguments.isEmpty() ? QString()
                                            : QLatin1Char(' ') + arguments.join(QLatin1Char(' '))) +
                       QStringLiteral(" (in ") + folder + QLatin1Char(')'));
    }
};

} // namespace tk
