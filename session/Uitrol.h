#pragma once

#include <QString>
#include <QStringList>
#include <QTextStream>

namespace tk {

class ModMainSessie;
class Programma;

// The roll-out from a script: "tafelkrater --activeren" takes the workstation over without
// questions (the silent path of the wizard), "tafelkrater --deactiveren" hands it back. The mode
// and the server location come from "--modus standalone|netwerk" and "--server LOCATION" or from
// the settings already there; the take-over goes through the wizard's silent path
// (OpstartStappen::frmActiveren with StilActiveren). Each ends with an exit code and a line saying
// what came of it; the session is left running, so that the administrator chooses when to restart.
class Uitrol {
public:
    enum Code {
        Gelukt = 0,
        FouteOpdracht = 2,
        GeenModus = 3,
        RegisterNietSchrijfbaar = 4,
        Geweigerd = 5,
        MachineWeigert = 6
    };

    Uitrol(Programma& p, ModMainSessie& sessie, QTextStream& uit);
    // The options after --activeren or --deactiveren.
    int Activeren(const QStringList& opties);
    int Deactiveren(const QStringList& opties);
    // Whether the command line asks for one of the two.
    static bool Gevraagd(const QStringList& argumenten);
    // Runs the one the command line asks for.
    int Uitvoeren(const QStringList& argumenten);

private:
    // Reads --modus and --server into the store and the settings; the exit code when that
    // failed, else -1.
    int LeesOpties(const QStringList& opties);
    int klaar(int code, const QString& regel);

    Programma& p;
    ModMainSessie& m_sessie;
    QTextStream& m_uit;
};

} // namespace tk
