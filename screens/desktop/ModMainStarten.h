#pragma once

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace tk {

class Programma;

// The procedures of modMain that start programs for the desktop: the start itself (the role of
// ShellExecute) with the way a start command is read on Linux, following what was started until
// it is gone, ending it by force, the display mode a program demands, and the drives of the
// desktop's "cdrom" item.
class ModMainStarten {
public:
    explicit ModMainStarten(Programma& p);

    // How a start command is run on this machine: the program, its arguments and its folder,
    // or the result code (numbered as the names below) that says why it cannot run.
    struct Opstart {
        QString programma;
        QStringList argumenten;
        QString map;
        QString bestand;   // the file the command names (the program, or the file opened)
        int resultaat = 0; // 0 when it can run, else a code named by FoutNaam
    };

    // What a start gave: Opgestart, else the reason; the process to follow.
    struct Gestart {
        int resultaat = 0;
        qint64 proces = 0;
        bool gelukt() const { return resultaat == Opgestart; }
    };

    // Starts a program and forgets it (ShellExecute with verb "open"). `opdracht` is a program
    // path, a command line, a .desktop entry or any other file; `parameters` are split as a
    // command line. The result is Opgestart on success, else the reason.
    int ShellExecute(const QString& opdracht, const QString& parameters, const QString& map);
    // Starts a program and gives the process to follow with ProcesLeeft and KillProcess. With
    // `maximaliseren` the program's first window is shown maximised: ProcesLeeft asks the window
    // manager for it when that window appears.
    Gestart ShellExecAndWait(const QString& opdracht, const QString& parameters, const QString& map,
                             bool maximaliseren = false);
    // True while the program that the start of `proces` gave is still there. Its processes are
    // the started one and what it left (a wrapper such as a shell or xdg-open may end at once and
    // leave the real program). Until a window of them has shown, the program lives while one of
    // them runs; from then on, while one of them has a window, and NawachtMs longer, so that a
    // program between its splash and its main window is not taken for gone, while a helper
    // that stays behind after the last window closed does not keep the desktop waiting. With
    // nothing of it left it is gone once that has held LeegMs.
    bool ProcesLeeft(qint64 proces);
    // Ends everything the start of `proces` gave.
    void KillProcess(qint64 proces);
    static constexpr qint64 NawachtMs = 5000;
    static constexpr qint64 LeegMs = 300;

    // The display change: width by height at a colour depth; true when the screen took it.
    bool WijzigWeergave(int breedte, int hoogte, int kleurdiepte);
    // The colour depth of the screen now, in bits per pixel.
    int Kleurdiepte();

    // The drives of the desktop's "cdrom" item: the mount points of removable and optical media.
    QStringList LaadSchijven();

    // How a start command would run (placeholders filled, program-relative "\" paths made
    // native, .desktop entries read). Changes nothing.
    Opstart LosOp(const QString& opdracht, const QString& parameters, const QString& map);
    // Whether the command names this program itself (its own file name, with or without
    // ".exe", in lower case; or the same file).
    bool IsEigenProgramma(const QString& opdracht);

    // The working folder when none is given: the command up to its last "\"; a command
    // without one keeps the folder as given. A Linux command takes its program (the first word of
    // a command line) up to its last "/".
    static QString WerkMap(const QString& opdracht, const QString& map);
    // The name of a start's result code.
    QString FoutNaam(int resultaat) const;
    // A code of the platform's start (the Processes numbering) in the numbering of the names.
    static int ResultaatVan(int platformCode);

    // The result codes, as named by FoutNaam. The names number the reasons of a failed start as
    // the desktop's table does, in which two reasons stand above 32; a start is Opgestart.
    enum Resultaat : int {
        Opgestart = 42,
        GeenBronnen = 0,
        BestandNietGevonden = 4,
        PadNietGevonden = 5,
        ToegangGeweigerd = 7,
        GeenGeheugen = 10,
        OngeldigProgramma = 13,
        OnvolledigeKoppeling = 29,
        GeenKoppeling = 33
    };

private:
    Opstart opstart(const QString& opdracht, const QString& parameters, const QString& map);
    QString vulIn(const QString& tekst);
    QString nativePad(const QString& pad) const;

    // What is known of a start that is followed.
    struct Gevolgd {
        bool vensterGezien = false; // one of its processes had a window
        bool maximaliseren = false; // its first window is still to be maximised
        QDateTime zonderVenster;    // since when none has, while some still run
        QDateTime leegSinds;        // since when none of its processes runs
    };

    Programma& p;
    QHash<qint64, Gevolgd> m_gevolgd;
};

} // namespace tk
