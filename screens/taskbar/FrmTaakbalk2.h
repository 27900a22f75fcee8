#pragma once

#include "data/FixedTable.h"
#include "screens/common/PaintedControl.h"
#include "screens/desktop/DesktopTaskbar.h"
#include "screens/taskbar/ModTaakbalk.h"
#include "screens/taskbar/TaakbalkKnop.h"
#include "screens/taskbar/Takenlijst.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QList>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <QTimer>
#include <functional>

class QFontMetrics;

namespace tk {

class FrmBureaublad;
class Programma;

// The taskbar of the desktop: a strip along the bottom of the screen with the fixed buttons
// (log off, help, maintenance, icon positions, back to the desktop) and a button for every
// running program. Which top-level windows are programs is found out on a timer (tmrTaken);
// the buttons are laid out in Knoppen for the view to paint, and clicks come back through
// Form_MouseUp.
class FrmTaakbalk2 : public QObject, public DesktopTaskbar {
    Q_OBJECT
public:
    explicit FrmTaakbalk2(Programma& p);
    ~FrmTaakbalk2() override;

    // The layout of the 1024-pixel bar.
    static constexpr int Breedte = 1024;
    static constexpr int StandaardHoogte = 40;  // without a background picture in the theme
    static constexpr int MaxKnoppen = 20;       // rows of Knoppen
    static constexpr int TakenLinks = 220;      // the first task button
    static constexpr int TakenRuimte = 368;     // what the task buttons share
    static constexpr int TitelInspringing = 30; // from a button's left to its title
    static constexpr int InternetIcoonLinks = 199;
    static constexpr int BeeldMaat = 40; // the fixed buttons' pictures
    static constexpr int IcoonMaat = 16;

    // The columns of a row of Knoppen.
    enum Kolom {
        Actie = 0, // "internet", "bureaublad" or the window handle as decimal text
        Links = 1, // the text share of the button: Links..Rechts
        Rechts = 2,
        Titel = 3,
        KaderLinks = 4, // the drawn frame, which also takes the clicks: KaderLinks..KaderRechts
        KaderRechts = 5,
    };

    // --- the procedures
    // Loads the look, places the strip at the bottom of the screen and starts the timers.
    void Form_Load();
    // Stops the timers and gives the screen's strip back.
    void Form_Unload();
    // Unloads the bar with its window (VensterVerbergen), or the model alone without one; a bar
    // that is not loaded stays as it is.
    void Ontladen();
    void LadenVormgeving();
    // Places the strip at the bottom of a screen of this height (and width, when given): on
    // top, with the strip kept free of maximised windows.
    void VensterPositie(int schermHoogte, int schermBreedte = -1);
    // The drawing routine of the task buttons: fills Knoppen from lstTaken2 and asks the view
    // to paint. A 21st task is a fault that ends the drawing of that tick.
    void TekenKnop();
    // The fixed buttons by action word: "afmelden" (asks first while programs are open),
    // "help", "bureaubladpictogrammen_onderhoud", "onderhoud" and "bureaublad".
    void KnopActie(const QString& naam);
    // A key pressed anywhere in the client while this bar stands; the escapes of the function
    // keys act only while the keys are held (`vast`). True when the key was used.
    bool Form_KeyDown(int KeyCode, bool vast);
    // The mouse over the bar, in the bar's pixels; outside the bar clears every hover.
    void Form_MouseMove(QPoint punt);
    void Form_MouseDown(QPoint punt);
    // Resets the press state and acts on the button under the mouse.
    void Form_MouseUp(QPoint punt);

    // A title cut with "..." to fit `breedte` pixels of `fm` (Tekentekst).
    static QString Tekentekst(const QString& titel, const QFontMetrics& fm, int breedte);

    // --- the timers (a test calls a tick directly)
    QTimer tmrTaken;
    void tmrTaken_Timer();
    QTimer tmrMuis;
    void tmrMuis_Timer();

    // --- the state
    Takenlijst taken; // lstTaken and lstTaken2
    QList<Taak>& lstTaken = taken.lstTaken;
    QList<Taak>& lstTaken2 = taken.lstTaken2;
    FixedTable Knoppen{MaxKnoppen, 6};
    int AantalKnoppen = 0;  // rows of Knoppen filled by the last draw
    int ActieveKnop = -1;   // the button shown pressed
    int HoverKnop = -1;     // the button under the mouse
    int IngedruktKnop = -1; // held down by the mouse
    QList<TaakbalkKnop> vasteKnoppen;
    bool Geladen = false;
    // Out of sight while a program that the desktop started demands a hidden taskbar.
    bool Weggestopt = false;
    bool OnderhoudZichtbaar = false;    // the maintenance button, on a teacher's desktop
    bool PictogrammenZichtbaar = false; // the icon positions button, when an editor is attached

    // The strip on the screen.
    int Hoogte = StandaardHoogte;
    int BalkBreedte = Breedte;
    int SchermHoogte = 768;
    QRect Plek{0, 768 - StandaardHoogte, Breedte, StandaardHoogte};

    // The look.
    QImage achtergrond;
    QColor achtergrondKleur{41, 90, 143};
    QFont knopFont;  // the captions of the fixed buttons
    QFont takenFont; // the titles of the tasks
    QImage internetIcoon;
    QColor takenTekst{Qt::white};
    QColor takenTekstHover{Qt::black};
    QColor takenHover{190, 225, 255};
    QColor takenRand{120, 170, 220};
    QColor takenGeselecteerd{255, 221, 87};
    QColor takenTekstGeselecteerd{Qt::black};

    // Where a fixed button stands; null when the bar does not show it.
    const TaakbalkKnop* zoek(const QString& naam) const;
    // The programs open now, as the bar shows them (what a log-off asks about).
    int AantalTaken() const;
    // A window of the shell itself, known by the words of its title: it never gets a button.
    static bool verborgen(const QString& titel);
    // The row of Knoppen under a point, -1 when none.
    int knopOp(QPoint punt) const;
    // Where task buttons may be drawn: up to the first fixed button on the right.
    int takenGrens() const;
    // The window handle of row `rij`, 0 for "internet" and "bureaublad".
    quint64 handleVan(int rij) const;

    // Hides the loaded bar and gives its strip and the top back, for a program that demands a
    // hidden taskbar (false); puts it back in its place (true).
    void ZetZichtbaar(bool zichtbaar);
    // Makes this the taskbar of `bureaublad`: the bar is loaded (through VensterTonen) when the
    // desktop opens, follows what it shows, keeps on top while its launcher asks, steps aside
    // for a program that demands it, and goes when the desktop is left; its buttons reach the
    // desktop.
    void KoppelBureaublad(FrmBureaublad& bureaublad);

    // --- what the desktop and the view fill in
    std::function<quint64()> VensterHandle; // the strip's window, 0 while it has none
    // Load the bar and show its window, and the reverse (the view's openen and sluiten); without
    // them Form_Load and Form_Unload alone.
    std::function<void()> VensterTonen;
    std::function<void()> VensterVerbergen;
    // Show or hide the loaded bar's window (for a program that demands a hidden taskbar).
    std::function<void(bool zichtbaar)> VensterZichtbaar;
    // The size of the screen the bar stands on, as the window system has it now.
    std::function<QSize()> SchermGrootte;
    std::function<void()> onChanged;
    std::function<void(const QRect&)> Plaatsen; // move the window to this place
    std::function<QPoint()> MuisPositie;        // the mouse in the bar's pixels
    ModTaakbalk modTaakbalk;

    // --- DesktopTaskbar: what the desktop and its launcher ask of their bar
    void tekenKnoppen() override;
    void plaatsVoorScherm(int hoogte) override;
    void houdBoven() override;
    void strookTonen(bool zichtbaar) override;
    bool neemFocus(bool vooraan) override;
    bool focusToets(int toets, bool shift) override;

    // --- the keyboard and accessibility: the task buttons by row, then the fixed buttons
    QList<QRect> focusPlekken() const;
    int focusPlek = -1; // -1: the focus is not on the bar
    void zetFocus(int plek);
    // Presses stop `plek` as a click would.
    void drukFocus(int plek);
    // The task and fixed buttons as accessibility sees them, in the order of focusPlekken.
    QList<PaintedControl> bedieningen() const;

Q_SIGNALS:
    // What the bar's buttons ask of the desktop: bring it forward with its icons or with its
    // internet pane, log off, open the maintenance module.
    void bureaubladGevraagd();
    void internetGevraagd();
    void afmeldenGevraagd();
    void onderhoudGevraagd();

private:
    void maakVasteKnoppen();
    void afmelden();
    void nietBeschikbaar(const QString& woord, int tekst);
    void plaatsVasteKnoppen();
    void vulKnoppen();
    void tekenTaken();
    quint64 venster() const;
    void hertekenen();
    // What a click on task row `rij` does: brings its window (or the internet pane, or the
    // desktop) forward.
    void drukTaak(int rij);
    Programma& p;
    FrmBureaublad* m_bureaublad = nullptr;
    bool m_teveelGemeld = false;
    QString m_thema; // the theme folder the look was loaded from
};

} // namespace tk
