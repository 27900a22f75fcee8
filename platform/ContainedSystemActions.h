#pragma once

#include "platform/SystemActions.h"

namespace tk {

class Clock;

// The contained setting: every action is one readable line in Logboek/systeem.log of the program
// folder ("2026-11-25 09:41:07 autologon-set tafelkrater"), and nothing else changes. The `net`
// verb answers as a successful command would, so that what reads its output goes on.
class ContainedSystemActions : public SystemActions {
public:
    ContainedSystemActions(const QString& programFolder, Clock& clock);
    bool run(const QString& verb, const QStringList& arguments, const QString& input,
             QString* output) override;

    // The log's path.
    QString logFile() const;
    // One argument as it stands in the log: quoted when empty or holding blanks or quotes.
    static QString quoted(const QString& argument);

private:
    QString m_programFolder;
    Clock& m_clock;
};

} // namespace tk
