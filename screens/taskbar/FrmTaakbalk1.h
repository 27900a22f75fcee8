#pragma once

#include "controls/Accounts.h"
#include "screens/common/PaintedControl.h"
#include "screens/taskbar/TaakbalkKnop.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QList>
#include <QRect>
#include <QString>
#include <functional>

namespace tk {

class Programma;

// The strip under the start screen and the maintenance module: fixed buttons named by their
// action word, which change with the state of the program, and three account buttons.
class FrmTaakbalk1 {
public:
    explicit FrmTaakbalk1(Programma& p);

    static constexpr int Breedte = 1024;
    static constexpr int Hoogte = 83;

    using Knop = TaakbalkKnop;

    // Which words the present state shows, and their places (Form_Activate).
    void Form_Activate();
    // The look of the owner (Hoofdvenster): background, colours, pictures.
    void LadenVormgeving();
    // Draws the buttons anew; with a name, that button with the hover state given.
    void TekenKnop(const QString& naam = QString(), bool hover = false);
    void KnopActie(const QString& naam);
    // A key pressed anywhere in the client while this bar stands; the escapes of the function
    // keys act only while the keys are held (`vast`). True when the key was used.
    bool Form_KeyDown(int KeyCode, bool vast);
    // The account buttons: shown, hidden, and their state with and without a connection.
    void ToonAccounts();
    void VerbergAccounts();
    void ZetAccountsZonderVerbinding(bool zonder);
    void Account_Click(int index);

    // The owner: "frmMain", "frmAanmelden", "frmGroeperen", "frmOnderhoud".
    QString Hoofdvenster = QStringLiteral("frmMain");
    bool Zichtbaar = false;
    QList<Knop> knoppen;
    Accounts Account[3];
    bool AccountsZichtbaar = false;
    bool ZonderVerbinding = false;

    QImage achtergrond;
    QColor achtergrondKleur{41, 90, 143};
    QFont knopFont;

    // Where a word's button stands; null when the state does not show it.
    const Knop* zoek(const QString& naam) const;
    // The words of the present state, left ones first.
    QStringList woorden() const;

    // --- the keyboard: the fixed buttons, then the shown account buttons, as focus stops
    QList<QRect> focusPlekken() const;
    // Puts the focus on stop `plek` (-1: none) and draws the bar anew.
    void zetFocus(int plek);
    int focusPlek() const { return m_focus; }
    // Presses stop `plek` as a click would.
    void drukFocus(int plek);
    // The fixed buttons as accessibility sees them (the account buttons are widgets of their
    // own).
    QList<PaintedControl> bedieningen() const;

    std::function<void()> onChanged;

private:
    bool onderhoud() const;
    void plaatsAccounts();
    Programma& p;
    int m_focus = -1;
};

} // namespace tk
