#pragma once

#include "platform/SystemActions.h"

namespace tk {

// The system setting: the machine's verbs go to our privileged program through
// "sudo -n <program folder>/tafelkrater-systeem VERB ARGS", so the client never runs as root; a
// missing sudo right fails at once instead of asking for a password. The end of the session goes
// to logind and systemd, which let the user of a seat log off, restart and shut down.
class PrivilegedSystemActions : public SystemActions {
public:
    explicit PrivilegedSystemActions(const QString& programFolder);
    bool run(const QString& verb, const QStringList& arguments, const QString& input,
             QString* output) override;

    // The command line an action runs, the program first; empty for an action with nothing to run.
    QStringList commandLine(const QString& verb, const QStringList& arguments) const;

private:
    QString m_programFolder;
};

} // namespace tk
