#pragma once

#include "controls/IconListItem.h"
#include "controls/ImageList.h"
#include "core/Form.h"
#include "screens/common/PaintedControl.h"

#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>
#include <array>
#include <functional>
#include <map>

namespace tk {

class OnderhoudPaneel;
class Programma;

// frmOnderhoud, the maintenance module: a menu on the left and one panel at a time on the
// right. The menu lives in MenuTabel (7 groups of 30 rows of 15 text columns, see the column
// constants); Tekenmenu lays out the rows that must be painted and the view paints exactly
// those. A panel is an OnderhoudPaneel plugged in under its number; an entry whose panel is not
// on this workstation tells the user so.
class FrmOnderhoud : public Form {
public:
    static constexpr int Groepen = 7, Rijen = 30, Kolommen = 15;
    // The columns of a menu row.
    enum Kolom {
        Tekst = 0,
        Kleur = 1, // the colour the row is painted in now (0xBBGGRR as decimal text)
        Grootte = 2,
        Niveau = 3,
        Links = 4,
        Tussenruimte = 5,
        Boven = 6,
        Onder = 7,
        Tekenen = 8, // "ja": must be painted
        Rechts = 9,
        Rustkleur = 10,
        Getoond = 11, // "ja": shown, "nee": folded away
        Paneel = 12,
        Geselecteerd = 13,
        TekstId = 14 // ours: the string of the caption, so that a new language re-captions it
    };
    // The groups of the full menu, by what they hold; MenuGroep maps them to this menu's number.
    enum Soort { Accounts, Applicaties, Desktops, Overzichten, Instellingen, Themas, Management };
    // The panels of the control array.
    enum PaneelNummer {
        PKlassen = 0,
        PLeraren = 1,
        PApplicaties = 2,
        PInstellingen = 3,
        PBureaublad = 4,
        PGebruikers = 5,
        POverzichtApplicaties = 6,
        POverzichtBureaublad = 7,
        PProbleemmeldingen = 8,
        PServer = 9,
        PThemas = 10
    };
    static constexpr int Breedte = 1024, Hoogte = 685;
    static constexpr int MenuBoven = 110; // top of the first menu row's gap

    explicit FrmOnderhoud(Programma& p);
    ~FrmOnderhoud() override;
    QString formNaam() const override { return QStringLiteral("frmOnderhoud"); }
    void LaadTaal() override;

    // --- entry and exit
    // In this order: the captions, LaadWindowsAccounts, LaadPrinterLijst, LaadAanmeldscripts,
    // the server panel's LaadBackups, LaadResolutie, the drive lists, the time less one hour.
    void Form_Load();
    void Openen();
    // A teacher's stay: `klassen` the class IDs joined by "|".
    void Aangepast(const QString& klassen, bool applicaties, bool leraren);
    void Afmelden();
    void Afmelden2();
    void lblAfmelden_Click();

    // --- the menu
    void LaadVormgeving();
    // --- the lists the record panels choose from, read once by Form_Load and Openen
    // LDNWSA (upper-cased, trimmed), then LDNGRPGLB and LDNGRPLKL as "[GLOBAAL] " / "[LOKAAL] "
    // with the data "g" / "l"; `alleenGroepen` keeps the accounts read before.
    void LaadWindowsAccounts(bool alleenGroepen);
    void LaadPrinterLijst();   // the stored printers, "name|share" items joined by "><"
    void LaadAanmeldscripts(); // LDNACCLST: the login scripts' paths
    void LaadResolutie();      // the screen sizes and colour depths of the application panel
    void LaadThema();          // the themes of the class and teacher panels: folder and name
    // The double click on a panel's background; on the classes panel it offers eight classes.
    void picMenuItem_DblClick(int paneel);
    // Saves a class with the given values in the first free slot, as the classes panel does
    // (the account steps unless Standalone, the groups, the record). False when the server
    // refused the record or the link went.
    bool OpslaanKlas(const QString& naam, const QString& kort, const QString& account,
                     const QString& wachtwoord, const QString& achtergrond,
                     const QString& themaBeeld, const QString& knopBeeld);
    void LaadMenu();
    void LaadAangepastMenu();
    // Lays out every row marked for painting, writes its box and clears the mark. Returns the
    // rows (group, row) that must be painted now; menuVerschoven is set when rows moved or
    // folded, so that the whole menu must be painted again.
    QList<std::pair<int, int>> Tekenmenu();
    void Form_MouseMove(int x, int y);
    void Form_MouseUp(int x, int y);
    void MenuActie();
    void MenuItemsBoxenNietWeergeven(int paneel);
    // Opens a group: its rows shown, every other group folded and its heading greyed.
    void OpenGroep(int groep);
    // Edit mode of a record panel: the menu is dead and grey while it holds.
    void ZetBewerkModus(bool aan);
    // A record panel saved: the menu is loaded anew for this stay, the group of the selected
    // row open and the row still selected, the menu alive again.
    void NaOpslaan();

    // The menu rows, the log-off and the info strip as accessibility sees them; a row's focus
    // stop is group * 100 + row, the log-off's 999.
    QList<PaintedControl> bedieningen() const;
    // A press by keyboard or screen reader: as a click on that row (dead while editing).
    void Kies(int stop);
    QRect afmeldenVak() const { return {Breedte - 150, 24, 120, 22}; }
    QRect infoVak() const { return {300, 70, 690, 30}; }
    QRect paneelVak() const { return {300, 110, 690, 540}; }

    // --- the panels
    void plaatsPaneel(int nummer, OnderhoudPaneel* paneel);
    OnderhoudPaneel* paneel(int nummer) const;
    OnderhoudPaneel* zichtbaarPaneel() const { return paneel(ZichtbaarPaneel); }

    QString& cel(int groep, int rij, int kolom);
    const QString& cel(int groep, int rij, int kolom) const;
    QRect rijVak(int groep, int rij) const;
    // The number of the group of this kind in the present menu, -1 when it lacks it.
    int groepVan(Soort soort) const { return MenuGroep[size_t(soort)]; }

    // --- state
    std::array<std::array<std::array<QString, Kolommen>, Rijen>, Groepen> MenuTabel;
    std::array<int, 7> MenuGroep{-1, -1, -1, -1, -1, -1, -1};
    QString MenuSleutel;
    bool BewerkModus = false;
    bool Beperkt = false; // a teacher's stay (Aangepast)
    QString Leraarklassen;
    bool LeraarApplicaties = false, LeraarLeraren = false;
    int ZichtbaarPaneel = -1;
    bool Zichtbaar = false;
    bool menuVerschoven = true; // rows moved or folded since the last paint
    QString Caption, lblKop, lblMenuHelp, lblLaden, lblAfmelden;
    bool picMenuInfoZichtbaar = false;
    QString lblMenuInfo;
    QStringList Stationsletters; // "D:" to "Z:", the drive lists of the class and teacher panels
    QStringList WindowsAccounts;
    QList<std::pair<QString, QString>> WindowsGroepen; // caption, "g" or "l"
    QList<std::pair<QString, QString>> Printerlijst;   // name, share
    QStringList Aanmeldscripts;
    QStringList Resoluties;                        // "1024x768", ...
    QList<std::pair<QString, int>> Kleurdiepten;   // caption, bits
    QList<std::pair<QString, QString>> ThemaLijst; // folder, name
    ImageList Pictogrammen;                        // the standard icon library of the icon panel
    QList<IconListItem> PictogramLijst;
    qint64 tijdMin1Uur = 0;

    // --- the look, from the theme's maintenance keys
    QString achtergrond;
    std::array<QString, 7> groepBeeld; // the picture of a heading, by Soort
    quint32 kleurMenu = 0, kleurSub = 0x505050, kleurHover = 0x1478E6, kleurGeselecteerd = 0xAA6C28,
            kleurLijn = 0xC0C0C0, kleurHelp = 0, kleurLaden = 0;
    // Grijs: a closed group's heading, dark enough to read at 4.5:1 on the light menu grounds
    // (the shade at the menu's edge included); LichtGrijs: the dead menu while a record is edited.
    static constexpr quint32 Grijs = 0x5C5C5C, LichtGrijs = 0xC0C0C0;
    QPoint plekHelp{16, 600}, plekLaden{632, 640};

    // The rows that painted, and the messages shown (for the log book and the tests).
    QStringList meldingen;
    // The view repaints the rows Tekenmenu hands it; it is told when anything changed.
    std::function<void()> onChanged;
    // The screens that take over after a log-off (the client's windows follow).
    std::function<void()> verlaten;

    // The width of a caption in the font the painter uses (size, bold for a heading), to close
    // a row's hit box (the view may replace it).
    std::function<int(const QString&, int, bool)> tekstBreedte;

    // A question of the module under its title (string 3359). The answer of a question that was
    // still open when the stay ended is empty, as if cancelled: it no longer acts.
    QString Vraag(const QString& tekst, const QString& soort);

private:
    // The loaded menu on the screen, nothing being edited.
    void toonMenu();
    // The menu laid out, then the standard icon library into the icon panel's list.
    void laadPictogrammen();
    void zetRij(int groep, int rij, const QString& tekst, bool kop, int paneel = -1);
    void leegMenu();
    // Tells every panel the stay ended, and closes the questions still open.
    void panelenVerlaten();
    void hertekenen();
    void meld(const QString& tekst);
    void nietHier(const QString& wat);
    quint32 rustkleur(int groep, int rij) const;
    bool toonPaneel(int nummer, int rij);
    Programma& p;
    int m_verblijfEinden = 0; // how many stays ended, for the questions open at the time
    std::map<int, OnderhoudPaneel*> m_panelen;
};

} // namespace tk
