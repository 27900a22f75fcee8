#pragma once

#include <QDateTime>
#include <QFile>
#include <QList>
#include <QLocalServer>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTimer>

namespace tk {

// The heart of tafelkrater-startup: keeps the client running. It starts the client with
// "STARTUP", starts it again with "STARTUPFOUT" when it dies of a crash, and takes the client's
// words over a local socket named after the program folder: "afsluiten" (the client ends and the
// launcher with it), "resolutie" and "UPDATE" (the client ends to come back: after a change of
// the display mode, after an update). A client that does not end within a grace period after
// such a word is ended by force. Every event goes to a small log in the program folder.
class ClientWatcher : public QObject {
    Q_OBJECT
public:
    // More crashes than this within a minute and the launcher gives up.
    static constexpr int MaxCrashesPerMinute = 5;
    // How long a client may take to end after it said it would, before it is ended by force.
    static constexpr int GraceMs = 10000;
    // The log is cut back to its newer half when it grows past this.
    static constexpr qint64 MaxLogBytes = 64 * 1024;

    ClientWatcher(const QString& programFolder, const QString& client, const QStringList& extra);
    ~ClientWatcher() override;

    // Listens for the client's words and starts the client; false (with a log line) when the
    // client cannot be found or the socket cannot be opened.
    bool start();
    // Ends the client (asked first, then by force) and the launcher with it.
    void stop();
    // The launcher ends with this code (through QCoreApplication::exit).
    int exitCode() const { return m_exitCode; }

    static QString logFileName() { return QStringLiteral("startup.log"); }

private:
    enum class Next { Nothing, Stop, Restart, Update };

    void launch(const QString& word);
    void takeWord(const QString& word);
    void clientFinished(int code, QProcess::ExitStatus status);
    void graceOver();
    void log(const QString& text);
    void finish(int code);

    QString m_folder;
    QString m_client;
    QStringList m_extra;
    QLocalServer m_words;
    QProcess m_process;
    QTimer m_grace;
    Next m_next = Next::Nothing;
    QList<QDateTime> m_crashes;
    QFile m_log;
    int m_exitCode = 0;
};

} // namespace tk
