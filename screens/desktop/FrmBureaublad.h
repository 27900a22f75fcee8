#pragma once

#include "data/FixedTable.h"
#include "screens/common/PaintedControl.h"
#include "screens/desktop/FrmBureaubladStarter.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <functional>

namespace tk {

// The desktop frmBureaublad of a class or a teacher: a background, a header with the owner's
// name, a grid of at most 45 application icons (or the places stored for them), the drive item,
// the internet icon, and the panel where a teacher picks a name and gives a password. The
// launcher part (starting programs, display modes, the overlay) is FrmBureaubladStarter.
//
// Everything is state at its pixel place on the 1024 by 768 window; FrmBureaubladView paints it
// and forwards the mouse to Form_MouseMove and Form_MouseUp.
//
// For the desktop's taskbar: BureaubladOpen and InternetOpen on Programma tell whether the
// desktop is up and which part is active; InternetWeergeven, BureaubladWeergeven, Onderhoud and
// Afmelden are what its buttons ask for, and its DesktopTaskbar (hung on the launcher part) is
// told whenever the desktop's state changes what the bar shows.
class FrmBureaublad : public FrmBureaubladStarter {
    Q_OBJECT
public:
    explicit FrmBureaublad(Programma& p);
    ~FrmBureaublad() override;

    static constexpr int Plaatsen = 45;
    static constexpr int IconenRijen = 200, IconenKolommen = 9;
    static constexpr int IcoonMaat = 32;
    // Names under the icons break at this many characters.
    static constexpr int NaamBreedte = 12;
    // The room a name has under its icon before the next column (98 apart) and the next row (78
    // apart, the name starting 36 below the icon's top): a larger text size gets fewer lines,
    // the last one cut with an ellipsis, and no line wider than the column.
    static constexpr int NaamRuimteBreedte = 92, NaamRuimteHoogte = 42;
    // The header band over the background.
    static constexpr int KopHoogte = 40;
    // The internet icon and its text.
    static constexpr QPoint InternetPlek{920, 248};
    static constexpr int InternetMaat = 31;
    static constexpr int InternetTekstMidden = 935, InternetTekstBoven = 284;

    // The place of grid number n (0..44): six columns of six, then three of three; any other
    // number has no place and gives 0,0.
    static QPoint RasterPlek(int n);

    // The columns of Iconen.
    enum IconenKolom : int {
        KolomHover = 0, // "ja", "nee", "oud" or empty
        KolomSleutel,   // ID, ID + "a" for a general application, "cdrom|<drive>", or string 745
        KolomLinks,
        KolomBoven,
        KolomTekstLinks,
        KolomTekstBoven,
        KolomTekstRechts,
        KolomTekstOnder,
        KolomReserve
    };

    // One stored place of an icon on this desktop (posApplicatie).
    struct PosApplicatie {
        QString Soort; // the kind of the application: "k", "l", "a" (or 0, 1, 2)
        qint32 ID = 0;
        qint32 X = 0;
        qint32 Y = 0;
    };

    // What the view paints of one item of the desktop: its row in Iconen, its picture and the
    // lines of its name.
    struct Icoon {
        int rij = 0;
        QRect beeld;
        QImage plaatje;
        QStringList regels;
        QRect tekst;
        QString naam; // the whole name, unbroken
    };

    // --- the procedures
    void Form_Load();
    // Applies the theme of the class (soort 0) or teacher (soort 1) in row `index` and reads the
    // desktop's keys; index -1 keeps the current theme and shows the start screen's picture.
    void LaadThemaBureaublad(int index, int soort);
    // Draws the desktop of owner row `rij` (below 0: the current owner). With `volledig` false
    // only the names and their hover highlights are drawn again.
    void LaadBureaublad(int rij, bool volledig);
    // Parses a position string ("<ID>|<Soort>|<X>x<Y>" items joined by "><") into
    // posApplicatie. Items that cannot be read are left out.
    void LaadPosities(const QString& tekst);
    void Form_MouseMove(int x, int y);
    void Form_MouseUp(int knop, int x, int y);
    void tmrTooltip_Timer();
    // The teacher panel: the list of names, a choice, the password test.
    void LadenLijstLeraren();
    void cmbAanmelden_Click(int index);
    void knopAanmelden_Click();
    void txtWachtwoord_KeyPress(int toets); // Enter acts as knopAanmelden
    // Opens the desktop of teacher row `rij` in this window.
    void Aanmelden(int rij);
    // Opens the maintenance module for the current teacher.
    void Onderhoud();
    // The header (the owner's name), the sub-header (the invitation to click) and the cloud
    // with a wait text (strings 708 and 710); an empty text takes the cloud away.
    void TekenKop(const QString& tekst);
    void TekenSubKop(const QString& tekst);
    void TekenBallon(const QString& tekst);
    // The internet pane on and off.
    void InternetWeergeven();
    // The owner of the favourites the internet pane loads ("Groep<id>", "Leraar<id>"), or empty.
    QString favorietenEigenaar() const;
    void BureaubladWeergeven();

    // --- the way in and out (what the start screen and the taskbar call)
    // Opens the desktop: soort 0 the class with `id`, 1 the teacher with `id`, 2 the teachers'
    // list (an empty desktop with the login panel).
    void Openen(int soort, const QString& id);
    // Leaves the desktop for the start screen.
    void Afmelden();
    // The window of the desktop on the platform: made known as the desktop before it is first
    // shown (the window manager keeps it under every program and under the taskbar), and
    // brought forward with the keyboard once shown (a manager does not focus a desktop itself).
    void MarkeerAlsBureaublad(quint64 venster);
    void Activeer(quint64 venster);

    // --- the timers
    QTimer tmrTooltip;

    // --- the state that selects what is shown
    int Weergave = -1; // 0 class, 1 teacher, others none
    int Eigenaar = -1; // row in Klassen or Leraren, or -1
    bool Internetstand = false;
    FixedTable Iconen{IconenRijen, IconenKolommen};
    QList<PosApplicatie> posApplicatie;
    // The items of the owner's desktop in list order.
    QStringList lijst;
    bool Zichtbaar = false;

    // --- what the view paints
    QImage achtergrond;      // the background, 1024 by 768 less the header band; null: none
    QImage startschermBeeld; // the start screen's picture, before anyone logged on
    QString kop, subKop;
    QPoint kopPlek{20, 12};
    QList<Icoon> zichtbareIconen;
    bool icoonAchtergrond = true;
    QColor KleurKop{30, 58, 95};
    QColor KleurIcoonTekst{30, 58, 95};
    QColor KleurIcoonSchaduw{255, 0, 255}; // magenta: no shadow
    QColor KleurIcoonHover{255, 236, 160};
    QColor KleurIcoonNormaal{255, 255, 255};
    QColor KleurAanmeldentekst{30, 58, 95};
    QFont kopFont, subKopFont, icoonFont, tooltipFont;

    // The cloud with the wait text (strings 708 and 710)
    QString ballonTekst;
    QPoint ballonPlek{640, 40};
    bool ballonWeergeven = true;
    QImage wolk, wolkMask;

    // picTooltip
    bool picTooltipZichtbaar = false;
    QStringList tooltipRegels;
    QPoint picTooltipPlek;
    int tooltipRij = -1; // the Iconen row the tooltip is for
    // The size of picTooltip for its lines (the name in bold).
    QSize TooltipMaat() const;

    // picAanmelden: the teacher panel
    bool picAanmeldenZichtbaar = false;
    QRect picAanmelden{362, 250, 300, 160};
    QStringList cmbAanmelden;     // names, or string 719 alone
    QList<int> cmbAanmeldenRijen; // the Leraren row of each name
    int cmbAanmeldenIndex = -1;
    QString lblAanmeldenTekst; // string 736
    QString txtWachtwoord;
    bool focusOpWachtwoord = false;
    QString knopAanmeldenTekst;
    QImage imgAanmelden; // the chosen teacher's icon
    QImage picIcoon;     // the theme's figures

    // The name of a teacher as shown: first name, middle name, last name, the middle name and
    // its blank left out when empty.
    static QString LeraarNaam(const QStringList& leraar);
    // The teacher as listed on the panel: "last, first middle".
    static QString LijstNaam(const QStringList& leraar);

    // The Iconen row under a point, or -1.
    int IcoonOp(QPoint punt) const;
    // What a click on the item of Iconen row `rij` does: starts its program, opens the drive or
    // the internet pane.
    void KlikIcoon(int rij);

    // --- the keyboard: Tab and the arrows move the focus through the shown items and, past the
    // last, on through the taskbar's buttons; Enter or Space presses; Escape closes the teacher
    // panel or brings the focus back from the bar. Returns whether the key was the desktop's.
    bool Toets(int toets, bool shift = false);
    int focusRij = -1;        // the Iconen row with the focus, -1: none
    bool focusOpBalk = false; // the focus is on the taskbar's buttons
    void zetFocus(int rij);
    // The items (and the header, the cloud and the tooltip as texts) as accessibility sees
    // them; an item's stop is its Iconen row.
    QList<PaintedControl> bedieningen() const;

private:
    void tekenIcoon(const QString& item, int rij, int& plaats);
    QPoint plekVan(const QString& soortLetter, int soortNummer, const QString& id, int& plaats);
    QImage applicatieBeeld(int soort, int rij);
    QImage geenPictogram(int soort, const QString& id);
    QImage standaardPictogram(int nummer);
    void zetNaam(int rij, const QString& naam, QPoint icoon);
    void tekenInternet();
    void tekenNamen();
    void laadStandaard();
    void teken();
    void meld(const QString& tekst);
    void geefLocatieDoor(const QString& plaats);
    QStringList eigenaarRij() const;
    QString eigenaarID() const;

    QList<QImage> m_standaard; // the standard library's icons, read once
    bool m_standaardGelezen = false;
    QImage m_picInternet3; // three states of the internet icon side by side
};

} // namespace tk
