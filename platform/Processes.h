#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace tk {

// What came of starting a program. code follows the numbering of ShellExecute: above 32 is a
// start; 2 file not found, 3 path not found (the working folder), 5 access denied (not
// executable), 31 no application for the file, 8 out of resources.
struct StartResult {
    int code = 0;
    qint64 pid = 0;
    bool started() const { return code > 32; }
};

// Starting other programs (the role of ShellExecute) and following them: the launcher, the
// local server, the programs of a desktop.
class Processes {
public:
    virtual ~Processes() = default;
    // Starts a program without waiting for it; false when it could not be started.
    virtual bool startDetached(const QString& program, const QStringList& arguments,
                               const QString& workingFolder) = 0;
    // Starts a program and tells what came of it, with the process id to follow it by.
    virtual StartResult start(const QString& program, const QStringList& arguments,
                              const QString& workingFolder) = 0;
    // The web proxy ("host:port") of every program start() and startDetached() start from now on:
    // http_proxy and its companions in the program's environment, localhost excepted. Empty: the
    // programs get this process's own environment again. This process's own environment never
    // changes, so a client the launcher starts again has none of it.
    virtual void setWebProxy(const QString& hostPort) = 0;
    // This process's id.
    virtual qint64 ownPid() = 0;
    // The full path of a program found on the PATH, empty when there is none.
    virtual QString findExecutable(const QString& name) = 0;
    // Makes this process the one client of the program folder for as long as it runs; false when
    // another process of the folder already is.
    virtual bool claimSingleInstance(const QString& programFolder) = 0;
    // True while the process exists (and has not ended as a zombie).
    virtual bool isRunning(qint64 pid) = 0;
    // Every living process of the start that gave pid: the process itself, what it started, and
    // what those left behind when they ended (a wrapper shell or opener that starts the real
    // program and exits at once). Empty when all of it has ended.
    virtual QList<qint64> processesOfStart(qint64 pid) = 0;
    // Ends every process of the start that gave pid; false when there was nothing to end.
    virtual bool kill(qint64 pid) = 0;
};

} // namespace tk
