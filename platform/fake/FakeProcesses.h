#pragma once

#include "platform/Processes.h"

#include <QHash>
#include <QSet>

namespace tk {

// Records every start as "program arg1 arg2 (in folder)". A start answers `result` (by default
// a start with the next free pid, which then runs until the test ends it); children of a pid are
// what the test says they are.
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
        if (failWith != 0)
            return StartResult{failWith, 0};
        const qint64 pid = nextPid++;
        running.insert(pid);
        return StartResult{42, pid};
    }
    qint64 ownPid() override { return 100; }
    bool isRunning(qint64 pid) override { return running.contains(pid); }
    QList<qint64> descendants(qint64 pid) override {
        QList<qint64> uit;
        for (qint64 kind : children.value(pid))
            if (running.contains(kind)) {
                uit.append(kind);
                uit.append(descendants(kind));
            }
        return uit;
    }
    bool kill(qint64 pid) override {
        killed.append(pid);
        for (qint64 kind : descendants(pid))
            running.remove(kind);
        return running.remove(pid);
    }

    QStringList started;
    bool succeeds = true;
    int failWith = 0; // a ShellExecute code (32 or below) that every start() answers
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
