#pragma once

#include "screens/taskbar/FrmUitschakelen.h"

#include <QString>
#include <functional>

namespace tk {

class Programma;

// The closing procedures of modMain that the start-screen taskbar reaches: the close options and
// what each answer does per mode. The machine's own actions (log off, restart, shut down, the
// Windows environment) go to `Sessie` when a session layer fills it; without one the client ends
// with a line that says what would have happened.
class ModMainAfsluiten {
public:
    explicit ModMainAfsluiten(Programma& p) : frmUitschakelen(p), p(p) {}

    void VerwerkAfsluitkeuze();
    // Carries out one answer of frmUitschakelen (the part after the question).
    void VoerUit(const QString& antwoord);
    void NaarWindowsOmgeving(const QString& account, const QString& wachtwoord);

    // "afmelden", "opnieuwopstarten", "uitschakelen", "sluiten", "deactiveren",
    // "aanmeldenalsaccount|<account>|<password>"; true when done.
    std::function<bool(const QString& actie)> Sessie;
    // What was carried out, for the log and the tests.
    QStringList uitgevoerd;

    FrmUitschakelen frmUitschakelen;

private:
    void sessieActie(const QString& actie);
    Programma& p;
};

} // namespace tk
