#pragma once

#include "screens/taskbar/FrmUitschakelen.h"
#include "screens/taskbar/FrmWindows.h"

#include <QString>
#include <functional>

namespace tk {

class ModTaal;
class Programma;

// The closing procedures of modMain that the start-screen taskbar reaches: the close options and
// what each answer does per mode. The machine's own actions (log off, restart, shut down, the
// Windows environment) go to `Sessie` when a session layer fills it; without one the client ends
// with a line that says what would have happened.
class ModMainAfsluiten {
public:
    explicit ModMainAfsluiten(Programma& p) : frmUitschakelen(p), frmWindows(p), p(p) {}

    void VerwerkAfsluitkeuze();
    // Carries out one answer of frmUitschakelen (the part after the question).
    void VoerUit(const QString& antwoord);
    void NaarWindowsOmgeving(const QString& account, const QString& wachtwoord);
    // The escapes of the taskbars' held keys, by key code: 119 (F8) the hand-back, 120 (F9) a
    // command prompt, 121 (F10) the system's desktop, 122 (F11) a command prompt and the client
    // ends; on a network workstation 83 (S) and 79 (O) log on as Global or Onderhoud. True when
    // the key is one of them.
    bool FunctieToets(int toets);
    // The command prompt F9 and F11 start: Opdrachtprompt in [Instellingen], else the system's
    // terminal.
    QString Opdrachtprompt();

    // The text of string `tekst` for `aantal` open programs: %aantal% the number, %programma%
    // "program" (713) for one and "programs" (714) for more.
    static QString TakenTekst(ModTaal& taal, int tekst, int aantal);
    // The programs open on this workstation now, counted as the taskbars count their tasks.
    int OpenProgrammas();

    // What was carried out, for the log and the tests.
    QStringList uitgevoerd;

    FrmUitschakelen frmUitschakelen;
    FrmWindows frmWindows;

private:
    void sessieActie(const QString& actie);
    // Before a shutdown or restart: true when the user confirms it, with the count of open
    // programs when there are any (717), else the plain question (718).
    bool bevestigUitschakelen();
    // Before a log-off of the machine: false, after saying so (715), while programs are open.
    bool programmasGesloten();
    Programma& p;
};

} // namespace tk
