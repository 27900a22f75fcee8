#pragma once

#include "platform/Processes.h"

#include <QHash>
#include <QLockFile>
#include <memory>

namespace tk {

// Programs started in a session of their own and followed through /proc: the processes of a
// start are those of its session (the sixth field of /proc/<pid>/stat) and everything below
// them, so that a wrapper which starts the real program and exits at once leaves nothing
// unfollowed.
class LinuxProcesses : public Processes {
public:
    bool startDetached(const QString& program, const QStringList& arguments,
                       const QString& workingFolder) override;
    StartResult start(const QString& program, const QStringList& arguments,
                      const QString& workingFolder) override;
    void setWebProxy(const QString& hostPort) override;
    qint64 ownPid() override;
    QString findExecutable(const QString& name) override;
    bool claimSingleInstance(const QString& programFolder) override;
    bool isRunning(qint64 pid) override;
    QList<qint64> processesOfStart(qint64 pid) override;
    bool kill(qint64 pid) override;

    // The environment of a program started with `proxy` ("host:port", or empty for our own
    // environment unchanged) from `own` (NAME=value entries).
    static QList<QByteArray> programEnvironment(const QList<QByteArray>& own, const QString& proxy);

private:
    QString m_webProxy;
    // The session of each program this object started (kept for the run: a few bytes a start).
    QHash<qint64, qint64> m_sessions;
    // Held for the life of the process once claimed; the system drops it when the process dies.
    std::unique_ptr<QLockFile> m_enigeClient;
};

} // namespace tk
