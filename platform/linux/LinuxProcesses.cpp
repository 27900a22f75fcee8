#include "LinuxProcesses.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

extern char** environ;

namespace tk {

namespace {

// The facts of a process that /proc/<pid>/stat gives. The command name in brackets may hold
// blanks and brackets, so the fields are read after the last ')'.
struct Stat {
    char state = 0;
    qint64 parent = 0;
    qint64 session = 0;
    bool alive() const { return state != 0 && state != 'Z' && state != 'X'; }
};

Stat readStat(qint64 pid) {
    QFile f(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!f.open(QIODevice::ReadOnly))
        return {};
    const QByteArray line = f.readAll();
    const qsizetype bracket = line.lastIndexOf(')');
    if (bracket < 0)
        return {};
    // state ppid pgrp session ...
    const QList<QByteArray> fields = line.mid(bracket + 2).split(' ');
    if (fields.size() < 4 || fields[0].isEmpty())
        return {};
    return Stat{fields[0].at(0), fields[1].toLongLong(), fields[3].toLongLong()};
}

// Every living process of the machine with its facts.
QHash<qint64, Stat> livingProcesses() {
    QHash<qint64, Stat> all;
    const QStringList names = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString& name : names) {
        bool number = false;
        const qint64 pid = name.toLongLong(&number);
        if (!number)
            continue;
        const Stat s = readStat(pid);
        if (s.alive())
            all.insert(pid, s);
    }
    return all;
}

// The program as it will be run: a path as given, a bare name through PATH.
QString findProgram(const QString& program) {
    if (program.contains(QLatin1Char('/')))
        return program;
    return QStandardPaths::findExecutable(program);
}

bool readAll(int fd, void* buffer, size_t size) {
    auto* at = static_cast<char*>(buffer);
    while (size > 0) {
        const ssize_t n = ::read(fd, at, size);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        at += n;
        size -= size_t(n);
    }
    return true;
}

void writeAll(int fd, const void* buffer, size_t size) {
    const auto* at = static_cast<const char*>(buffer);
    while (size > 0) {
        const ssize_t n = ::write(fd, at, size);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return;
        at += n;
        size -= size_t(n);
    }
}

// What came of a start in a session of its own.
struct Spawned {
    pid_t pid = 0;     // the program
    pid_t session = 0; // the session it runs in (the id of the short-lived middle process)
    int error = 0;     // errno of a failed start
};

// Starts a program detached from this one (a double fork, so that nobody has to wait for it),
// in a session of its own: everything it starts stays in that session after it ends, which is
// how a start is followed through wrappers that exit at once. Only async-signal-safe calls run
// between fork and exec; everything they need is prepared before.
Spawned spawnInSession(const QString& path, const QStringList& arguments, const QString& folder,
                       QList<QByteArray> environment) {
    const QByteArray file = QFile::encodeName(path);
    const QByteArray dir = QFile::encodeName(folder);
    std::vector<QByteArray> words{file};
    for (const QString& a : arguments)
        words.push_back(a.toLocal8Bit());
    std::vector<char*> argv;
    for (QByteArray& w : words)
        argv.push_back(w.data());
    argv.push_back(nullptr);
    std::vector<char*> envp;
    for (QByteArray& e : environment)
        envp.push_back(e.data());
    envp.push_back(nullptr);

    // The program reads nothing of ours: its input is empty.
    const int leeg = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    int channel[2];
    if (::pipe2(channel, O_CLOEXEC) != 0) {
        const int error = errno;
        if (leeg >= 0)
            ::close(leeg);
        return Spawned{0, 0, error};
    }
    const pid_t middle = ::fork();
    if (middle < 0) {
        const int error = errno;
        ::close(channel[0]);
        ::close(channel[1]);
        if (leeg >= 0)
            ::close(leeg);
        return Spawned{0, 0, error};
    }
    if (middle == 0) {
        ::close(channel[0]);
        ::setsid();
        const pid_t program = ::fork();
        if (program == 0) {
            // The signal mask and dispositions of a Qt program are not the program's business.
            sigset_t none;
            sigemptyset(&none);
            ::sigprocmask(SIG_SETMASK, &none, nullptr);
            ::signal(SIGPIPE, SIG_DFL);
            ::signal(SIGCHLD, SIG_DFL);
            if (leeg >= 0)
                ::dup2(leeg, STDIN_FILENO);
            if (!dir.isEmpty() && ::chdir(dir.constData()) != 0) {
                const int error = errno;
                writeAll(channel[1], &error, sizeof error);
                ::_exit(127);
            }
            ::execve(file.constData(), argv.data(), envp.data());
            const int error = errno;
            writeAll(channel[1], &error, sizeof error);
            ::_exit(127);
        }
        const qint64 told = program;
        writeAll(channel[1], &told, sizeof told);
        ::_exit(program < 0 ? 1 : 0);
    }
    ::close(channel[1]);
    if (leeg >= 0)
        ::close(leeg);
    Spawned s;
    s.session = middle;
    qint64 program = 0;
    if (!readAll(channel[0], &program, sizeof program) || program <= 0)
        s.error = EAGAIN;
    else
        s.pid = pid_t(program);
    // Nothing more to read means exec succeeded: the channel closes with it.
    int error = 0;
    if (s.error == 0 && readAll(channel[0], &error, sizeof error))
        s.error = error;
    ::close(channel[0]);
    int status = 0;
    while (::waitpid(middle, &status, 0) < 0 && errno == EINTR) {
    }
    return s;
}

// A failed exec in the numbering of StartResult.
int startCode(int error) {
    switch (error) {
    case ENOENT:
        return 2;
    case ENOTDIR:
        return 3;
    case EACCES:
    case EPERM:
        return 5;
    case ENOEXEC:
    case ELIBBAD:
        return 11;
    case ENOMEM:
    case EAGAIN:
        return 8;
    default:
        return 0;
    }
}

} // namespace

bool LinuxProcesses::startDetached(const QString& program, const QStringList& arguments,
                                   const QString& workingFolder) {
    QProcess proces;
    proces.setProgram(program);
    proces.setArguments(arguments);
    proces.setWorkingDirectory(workingFolder);
    if (!m_webProxy.isEmpty()) {
        QList<QByteArray> own;
        for (char** e = environ; e && *e; ++e)
            own.append(QByteArray(*e));
        QProcessEnvironment omgeving;
        for (const QByteArray& e : programEnvironment(own, m_webProxy)) {
            const qsizetype is = e.indexOf('=');
            if (is > 0)
                omgeving.insert(QString::fromLocal8Bit(e.left(is)),
                                QString::fromLocal8Bit(e.mid(is + 1)));
        }
        proces.setProcessEnvironment(omgeving);
    }
    return proces.startDetached();
}

StartResult LinuxProcesses::start(const QString& program, const QStringList& arguments,
                                  const QString& workingFolder) {
    if (!workingFolder.isEmpty() && !QFileInfo(workingFolder).isDir())
        return StartResult{3, 0};
    const QString path = findProgram(program);
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists())
        return StartResult{2, 0};
    if (info.isDir() || !info.isExecutable())
        return StartResult{5, 0};
    QList<QByteArray> own;
    for (char** e = environ; e && *e; ++e)
        own.append(QByteArray(*e));
    const Spawned s = spawnInSession(info.absoluteFilePath(), arguments, workingFolder,
                                     programEnvironment(own, m_webProxy));
    if (s.error != 0 || s.pid <= 0) {
        // A session that was opened may hold a half-started program: nothing of it stays.
        if (s.pid > 0)
            ::kill(s.pid, SIGKILL);
        return StartResult{startCode(s.error), 0};
    }
    m_sessions.insert(s.pid, s.session);
    return StartResult{42, s.pid};
}

void LinuxProcesses::setWebProxy(const QString& hostPort) {
    m_webProxy = hostPort.trimmed();
}

QList<QByteArray> LinuxProcesses::programEnvironment(const QList<QByteArray>& own,
                                                     const QString& proxy) {
    if (proxy.isEmpty())
        return own;
    // Programs differ in which spelling they read; a proxy of the user's own goes, so that
    // nothing reaches the web past ours.
    static const char* const names[] = {"http_proxy", "https_proxy", "ftp_proxy", "all_proxy",
                                        "HTTP_PROXY", "HTTPS_PROXY", "FTP_PROXY", "ALL_PROXY",
                                        "no_proxy",   "NO_PROXY"};
    QList<QByteArray> uit;
    for (const QByteArray& e : own) {
        const QByteArray name = e.left(e.indexOf('='));
        bool ours = false;
        for (const char* n : names)
            ours = ours || name == n;
        if (!ours)
            uit.append(e);
    }
    const QByteArray url = "http://" + proxy.toLocal8Bit() + '/';
    for (int i = 0; i < 8; ++i)
        uit.append(QByteArray(names[i]) + '=' + url);
    // The machine's own services stay reachable: a dead proxy holds the web, not localhost.
    uit.append("no_proxy=localhost,127.0.0.1,::1");
    uit.append("NO_PROXY=localhost,127.0.0.1,::1");
    return uit;
}

QString LinuxProcesses::findExecutable(const QString& name) {
    return QStandardPaths::findExecutable(name);
}

bool LinuxProcesses::claimSingleInstance(const QString& programFolder) {
    if (m_enigeClient)
        return true;
    auto slot = std::make_unique<QLockFile>(programFolder + QStringLiteral("/.tafelkrater.lock"));
    // A lock whose process is gone is taken over at once.
    slot->setStaleLockTime(0);
    if (!slot->tryLock(0))
        return false;
    m_enigeClient = std::move(slot);
    return true;
}

qint64 LinuxProcesses::ownPid() {
    return static_cast<qint64>(::getpid());
}

bool LinuxProcesses::isRunning(qint64 pid) {
    return pid > 0 && readStat(pid).alive();
}

QList<qint64> LinuxProcesses::processesOfStart(qint64 pid) {
    if (pid <= 0)
        return {};
    const QHash<qint64, Stat> all = livingProcesses();
    const qint64 session = m_sessions.value(pid, 0);
    QList<qint64> out;
    QSet<qint64> taken;
    auto take = [&](qint64 p) {
        if (!taken.contains(p) && p != ownPid()) {
            taken.insert(p);
            out.append(p);
        }
    };
    // The process itself is asked directly: a listing of /proc may lag behind a fresh start.
    if (all.contains(pid) || readStat(pid).alive())
        take(pid);
    if (session > 0)
        for (auto it = all.cbegin(); it != all.cend(); ++it)
            if (it->session == session)
                take(it.key());
    // What left the session (a program that starts a session of its own) is still below it.
    QHash<qint64, QList<qint64>> children;
    for (auto it = all.cbegin(); it != all.cend(); ++it)
        children[it->parent].append(it.key());
    for (qsizetype i = 0; i < out.size(); ++i)
        for (qint64 child : children.value(out[i]))
            take(child);
    return out;
}

bool LinuxProcesses::kill(qint64 pid) {
    if (pid <= 0 || pid == ownPid())
        return false;
    const QList<qint64> all = processesOfStart(pid);
    bool any = false;
    // The last found first: children before the parents that would notice them go.
    for (auto it = all.crbegin(); it != all.crend(); ++it)
        any = ::kill(static_cast<pid_t>(*it), SIGKILL) == 0 || any;
    return any;
}

} // namespace tk
