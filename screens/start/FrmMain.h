#pragma once

#include "controls/Knop2.h"
#include "core/StartScreenEvents.h"
#include "link/FrmMainLink.h"
#include "screens/common/PaintedControl.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

namespace tk {

class OpstartStappen;
class Programma;

// The start screen frmMain: the screen a pupil sees, with frmMain's link to the server as a
// member. The class buttons, the cloud, the password panel, the notice, the loading bar: all are
// state here, at their pixel places on the 1024 by 685 canvas; FrmMainView paints them. What the
// link, the load and the theme fetches tell the start screen arrives through StartScreenEvents.
class FrmMain : public QObject, public StartScreenEvents {
    Q_OBJECT
public:
    FrmMain(Programma& p, FrmMainLink& link);
    ~FrmMain() override;

    FrmMainLink& link;

    static constexpr int Breedte = 1024;
    static constexpr int Hoogte = 685;
    // Places of the default grid: a pitch of 100 from left 130.
    static QPoint standaardPlek(int index);

    // --- the procedures
    void Form_Load();
    void LadenVormgeving();
    void WeergevenKlassen(bool herladen);
    void HerschikGroepen();
    void HerschikScherm(int stand);
    void AccountKlik(int soort) override;
    void knopGroep_Click(int index);
    void knopAanmelden_Click();
    void txtWachtwoord_KeyPress(int toets); // Enter acts as knopAanmelden
    void OpenGroep(const QString& id) override;
    void OpenLeraar(const QString& id) override;
    void OpenOnderhoud();
    void OpenGlobal(bool eerste) override;
    void OpenFout(const QString& tekst);
    void ControleerAccount();
    void TekenBallon(const QString& tekst);
    void AnimatieAanmelden(const QString& stand);
    void TijdLadenEx(int totaal, int huidig, const QString& tekst);
    void TijdLadenEx2(int totaal, int huidig, const QString& tekst);
    void TekenAanmelden();
    void LaadLaadbalkLaden() override;
    void LaadLaadbalkUpdate() override;
    void tmrLaden_Timer();

    // --- StartScreenEvents
    void laadbalkGewijzigd() override;
    void verzendVoortgang(qint64 totaal, qint64 verzonden) override;
    void ontvangstVoortgang(qint64 ontvangen, qint64 totaal) override;
    void hoofdvensterTonen() override;
    void taakbalkHertekenen() override;
    void onderhoudGevraagd() override;
    void onderhoudVraagIngetrokken() override;

    // --- controls
    std::vector<std::unique_ptr<Knop2>> knopGroep; // by class row; holes are null
    Knop2* knop(int index) const;
    QImage picGroep_Mask;

    // picLaden: the loading bar, its blocks and text as TijdLadenEx left them
    QRect picLaden{312, 560, 400, 40};
    QList<QRect> laadBlokken;
    QString laadTekst;
    QPoint laadTekstPlek; // top-centre of the text inside picLaden
    int tellerLaden = 0;
    bool richtingOmlaag = false;

    // picAanmelden: the password panel
    bool picAanmeldenZichtbaar = false;
    QRect picAanmelden{362, 250, 300, 120};
    int aanmeldenSchuif = 0;   // rows of the panel already slid away by AnimatieAanmelden
    QString lblAanmeldenTekst; // string 1622 printed on the panel
    QString lblGebruiker;
    bool lblGebruikerZichtbaar = false;
    QString txtWachtwoord;
    bool txtWachtwoordZichtbaar = false;
    bool wachtwoordGeselecteerd = false;
    bool focusOpWachtwoord = false;
    bool knopAanmeldenZichtbaar = false;
    QString knopAanmeldenTekst;
    // The balloon on the password box (empty: none)
    QString wachtwoordBallon;

    // picWolk
    QString ballonTekst;
    bool ballonWeergeven = true;
    QPoint ballonPlek{40, 24};

    // the notice of OpenFout and its figure
    QString lblAccount;
    bool lblAccountZichtbaar = false;
    QPoint lblAccountPlek;
    QPoint imgAccountPlek;

    // --- private state of the form (public for the view and tests)
    int Scherm = 0;
    bool EerstePanelGetoond = false;
    bool ZonderVerbinding = false;
    bool KlassenGetoond = false;
    bool Zichtbaar = false; // frmMain shown
    long LadenX = 312, LadenY = 560, FoutX = 312, FoutY = 560, UpdateX = 312, UpdateY = 560;
    long AanmeldenX = 362, AanmeldenY = 250, LadenTekstX = 512, LadenTekstY = 535;
    QColor KleurRand{30, 58, 95}, KleurStatus{255, 255, 255}, KleurStreep{76, 175, 80};
    QColor KleurLaden{30, 58, 95}, KleurKoptekst{30, 58, 95}, KleurAanmeldentekst{30, 58, 95};

    // --- the theme's pictures
    QImage achtergrond; // Startscherm, 1024 by 685
    QImage picIcoon;    // Poppetjes
    QImage wolk, wolkMask;

    // The fonts of the screen
    QFont knopFont;
    QFont ballonFont;
    QFont ladenFont;
    QFont aanmeldenFont;

    // The cloud with its text, composited over the background.
    QImage TekenWolk() const;
    // lblLaden's left edge: the theme's x is its centre.
    QRect lblLadenRect() const;

    // --- what the view attaches: a redraw, the window brought up, an upload's progress shown by
    // the window that started it
    std::function<void()> onChanged;
    std::function<void()> VensterTonen;
    std::function<void(qint64 totaal, qint64 verzonden)> VerzendVoortgang;
    // What the start screen said it could not do here (also written to the log book).
    QStringList meldingen;

    // --- the keyboard: Tab and the arrows move the focus through the shown class buttons and on
    // through the taskbar's buttons; Enter or Space presses; Escape closes the password panel.
    // Returns whether the key was the screen's.
    bool Toets(int toets, bool shift = false);
    // The focus stops: the class buttons by row (empty where none is shown), then the taskbar's
    // stops moved down to where the bar stands under the screen.
    QList<QRect> focusPlekken() const;
    int focusPlek = -1;
    void zetFocus(int plek);
    void drukFocus(int plek);
    // The texts painted on the canvas (the cloud, the notice, the loading text, the password
    // panel's label) as accessibility sees them.
    QList<PaintedControl> bedieningen() const;

    QString WachtwoordLeraren() const;
    QString WachtwoordOnderhoud() const;

private:
    void hertekenen();
    OpstartStappen& stappen();
    void meld(const QString& wat);
    bool onderhoudBezet();
    // Asks the composition root for a desktop; false in a workstation without desktops.
    bool openBureaublad(int soort, const QString& id);
    void verbergKlassen();
    void taakbalkAccountsVerbergen();
    Programma& p;
    QTimer m_tmrLaden;
};

} // namespace tk
