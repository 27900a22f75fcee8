#pragma once

#include "core/FrmInitialiseren.h"
#include "core/FrmVersie.h"

#include <QString>
#include <memory>

namespace tk {

class OpstartStappen;
class Programma;

// The start-up of the program: Main and the checks it makes before the start screen opens. The
// steps that belong to the layers above (take-over, display, theme, taskbar, connection) are
// reached through OpstartStappen.
class ModMainOpstart {
public:
    ModMainOpstart(Programma& p, OpstartStappen& stappen);
    ~ModMainOpstart();

    // The one entry procedure. Leaves with the start screen open, or with p.beeindigd set.
    void Main(const QString& opdrachtregel);

    void LaadModus();
    // False when the process must end (the message has been shown).
    bool ControleerWindowsversie();
    // False when the process must end.
    bool ControleerVeiligeModus();
    void ControleerHulpbestanden();
    bool IsShellIngesteld();
    bool IsGeactiveerd();
    bool IsActief();
    bool ControleerRegisterSchrijfbaar();
    bool LeesActivatieWaarde();
    bool ControleerResolutie();
    // The shell value of the system: "shell" in [boot] of system.ini on the 98 family, else
    // "Shell" of the logon key.
    QString LeesShell();
    void SchrijfShell(const QString& waarde);
    // The launcher of this program folder (tafelkrater-startup).
    QString LauncherPad() const;

    QString Opdrachtregel; // upper-cased
    bool ShellOK = false;
    bool RegisterOK = false;
    bool ResolutieOK = false;
    FrmVersie frmVersie;
    FrmInitialiseren frmInitialiseren;

    static constexpr const char* Winlogon =
        "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon";

private:
    void einde(bool launcherStoppen);
    bool gestartDoorLauncher() const { return Opdrachtregel.left(7) == u"STARTUP"; }
    Programma& p;
    OpstartStappen& stappen;
};

} // namespace tk
