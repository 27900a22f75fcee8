#pragma once

#include <QColor>
#include <QDateTime>
#include <QImage>
#include <QObject>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <functional>

namespace tk {

class DesktopTaskbar;

class Programma;

// The launcher part of the desktop frmBureaublad, which the desktop's model derives from: it
// turns a click on an icon into a running program. It drops a second click while a program
// starts, changes the display mode a program demands (and hides the taskbar when asked), keeps
// the desktop's picture under a grey overlay while the program runs, and puts the display and
// the desktop back when the program ends or the user closes it with cmdShellWait.
//
// Everything here is state for the desktop's view to paint: the overlay picDisable with its label
// lblDisable and the button cmdShellWait. What the launcher needs of the window itself comes
// through the hooks below, which the desktop and its view fill in.
class FrmBureaubladStarter : public QObject {
    Q_OBJECT
public:
    explicit FrmBureaubladStarter(Programma& p);
    ~FrmBureaubladStarter() override;

    // The desktop is laid out for 1024 by 768.
    static constexpr int SchermBreedte = 1024;
    static constexpr int SchermHoogte = 768;
    // Two starts less than this many whole seconds apart: the second is dropped.
    static constexpr qint64 StartBeveiliging = 2;

    // --- the procedures
    // Starts a program: opdracht (program, command line, .desktop entry or file), its
    // parameters, its working folder (empty: the command's own folder), the display demand
    // "<width>x<height>x<depth>x<hide taskbar JA/NEE>" and the name for messages.
    void StartApplicatie(const QString& opdracht, const QString& parameters, const QString& map,
                         const QString& beeldscherm, const QString& naam);
    // A click on an application icon (the start steps of Form_MouseUp): the application in row
    // `rij` of the table of kind `soort` (0 class, 1 teacher, 2 general) on the desktop of the
    // class or teacher `eigenaarID`. Counts the start on the server ("OPSTEL"), refuses this
    // program itself and a command that cannot be found, and starts it.
    void StartApplicatieRij(int soort, int rij, const QString& eigenaarID);
    // A click on the "cdrom" item: opens the drive (a mount point; empty or no longer mounted:
    // the first of LaadSchijven) in the file manager, titled "CD/DVD-rom - " and the drive. With
    // no medium at all it says so and writes it to the log book.
    void StartSchijf(const QString& schijf);
    // True while a click would be dropped: the last start was less than StartBeveiliging
    // seconds ago (Form_MouseUp tests it before it does anything), or a started program is
    // waited for under the overlay.
    bool StartGeblokkeerd();
    // "Close Program": ends the program by force and puts everything back.
    void cmdShellWait_Click();
    // The desktop is left: stops following a started program and puts the display back,
    // without showing anything of the desktop again.
    void StopWachten();

    // --- the timers, each with its tick procedure (a test calls a tick directly)
    // Follows the started program; when it is gone, puts display and desktop back.
    QTimer tmrShellWait;
    void tmrShellWait_Timer();
    // Keeps the overlay on screen while it stands, through the switch of the display.
    QTimer tmrDisable;
    void tmrDisable_Timer();
    // Keeps the taskbar on top in normal use; stopped while a program hides the taskbar.
    QTimer tmrTaakbalk;
    void tmrTaakbalk_Timer();

    // --- the state of the launcher
    QDateTime LaatsteStart; // the last accepted start; invalid before the first
    bool TaakbalkVerbergen = false;
    QString OudeWeergave; // "1024x768x<depth at the start>"
    int BreedteNu = SchermBreedte;
    int HoogteNu = SchermHoogte;
    QString ShellWachtStand = QStringLiteral("0"); // "1": a display change must be undone
    qint64 ShellProces = 0;                        // the process tmrShellWait follows
    bool TaakbalkVerborgen = false;                // the strip is away for the program

    // --- the overlay
    // picDisable: over the whole window, grey, with the screen as it was captured.
    bool picDisableZichtbaar = false;
    QRect picDisable{0, 0, SchermBreedte, SchermHoogte};
    QColor picDisableKleur{0x40, 0x40, 0x40};
    QImage picDisableBeeld;
    // lblDisable: string 747; its text stands at the top of its box, centred across it.
    bool lblDisableZichtbaar = false;
    QString lblDisableTekst;
    QRect lblDisable{312, 304, 400, 160};
    // cmdShellWait: "Close Program" (string 746).
    bool cmdShellWaitZichtbaar = false;
    QString cmdShellWaitTekst;
    QRect cmdShellWait{432, 368, 160, 33};

    // --- what the desktop and its view fill in
    // The window's handle on the platform (0 while it has none).
    std::function<quint64()> VensterHandle;
    // A picture of the screen as it is now (clsCapture).
    std::function<QImage()> Schermopname;
    // The state changed: paint again. The desktop's own redraw uses the same hook.
    std::function<void()> onChanged;
    // Show the window again (after a program ran).
    std::function<void()> Tonen;
    // The desktop's taskbar (frmTaakbalk2), once it has hung itself here.
    DesktopTaskbar* taakbalk = nullptr;

Q_SIGNALS:
    // The launcher's state changed (with every call of onChanged): the overlay's view paints
    // anew from it.
    void gewijzigd();

protected:
    Programma& p;

private:
    bool moetWeergaveWijzigen(const QStringList& eis);
    void toonOverlay();
    void verbergOverlay();
    void centreer();
    void herstellen(const char* procedure);
    void zetWeergaveTerug();
    void startFout(int resultaat, const QString& naam, const QString& opdracht);
    void formOnTop(bool boven);
    void melding(const QString& tekst);
    void hertekenen();
};

} // namespace tk
