#pragma once

#include "platform/Processes.h"

namespace tk {

// Programs started with QProcess; followed through /proc (a process's parent is the fourth
// field of /proc/<pid>/stat).
class LinuxProcesses : public Processes {
public:
    bool startDetached(const QString& program, const QStringList& arguments,
                       const QString& workingFolder) override;
    StartResult start(const QString& program, const QStringList& arguments,
                      const QString& workingFolder) override;
    qint64 ownPid() override;
    bool isRunning(qint64 pid) override;
    QList<qint64> descendants(qint64 pid) override;
    bool kill(qint64 pid) override;
};

} // namespace tk
