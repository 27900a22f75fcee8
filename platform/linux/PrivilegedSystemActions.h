#pragma once

#include "platform/SystemActions.h"

namespace tk {

// The system setting: the machine's verbs go to our privileged program through
// "sudo -n tafelkrater-systeem VERB ARGS", so the client never runs as root; a
// missing sudo right fails at once instead of asking for a password. The end of the session goes
// to logind and systemd, which let the user of a seat log off, restart and shut down. An action
// is waited for with the event loop running, so the client's windows stay live.
class PrivilegedSystemActions : public SystemActions {
public:
    // `timeoutMs`: how long one action may take before it is stopped and counts as failed.
    // `elevate` comes before the privileged program's path ("sudo -n"; a test runs it directly).
    explicit PrivilegedSystemActions(const QString& programFolder, int timeoutMs = 60000,
                                     QStringList elevate = {QStringLiteral("sudo"),
                                                            QStringLiteral("-n")});

    // Where the install for the machine puts the privileged program, apart from the program
    // folder, with the folder it serves named beside it ("programmamap").
    static constexpr const char* SystemCopy = "/usr/libexec/tafelkrater/tafelkrater-systeem";
    // The privileged program of `programFolder`: the machine's copy when it serves that folder,
    // else the one in the folder (a copy installed for a demo or a test).
    static QString programma(const QString& programFolder,
                             const QString& systemCopy = QString::fromLatin1(SystemCopy));
    bool run(const QString& verb, const QStringList& arguments, const QString& input,
             QString* output) override;

    // The command line an action runs, the program first; empty for an action with nothing to run.
    QStringList commandLine(const QString& verb, const QStringList& arguments) const;

private:
    QString m_programma;
    int m_timeoutMs;
    QStringList m_elevate;
};

} // namespace tk
