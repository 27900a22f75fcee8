#pragma once

#include <QString>

namespace tk {

class Programma;
class SystemActions;

// modMain's account commands: a numbered script of commands (\batchfile.bat), its run with the
// collected output in \uitvoer.txt, and the test of that output for success. The script is the
// program's own, so its run reads it line by line: an echo line appends its text, a command line
// goes to SystemActions (the net verbs of the privileged program, or only recorded in the
// contained setting) and appends what it printed. Nothing else is ever run.
class ModMainAccounts {
public:
    ModMainAccounts(Programma& p, SystemActions& systeem);

    // Adds `opdracht` to the script `bestand` and returns its number. With `aanvullen` false the
    // script's content is kept and the new lines come after it; with it true the script starts
    // afresh. A missing or non-numeric [Algemeen] Opdrachtregel restarts the numbering at 1 and
    // deletes the old output.
    int BatchFile(const QString& bestand, bool aanvullen, const QString& opdracht);
    // Runs the script and waits for its end; deletes it afterwards when `verwijderen`.
    void ShellWait(const QString& opdracht, int stijl, int timeOut, bool verwijderen);
    // Whether the block of command `n` in \uitvoer.txt holds a line of success.
    bool ControleerAdministratorRechten(int n);
    // Gives the accounts of the classes and teachers the administrators' group, once each, and
    // notes per account whether that worked. Only for GLOBAL on a network workstation.
    void ControleerLerarenRechten();

    static constexpr const char* Streep =
        "---------------------------------------------------------------";

private:
    QString uitvoer() const;
    Programma& p;
    SystemActions& m_systeem;
};

} // namespace tk
