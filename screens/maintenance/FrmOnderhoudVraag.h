#pragma once

#include "core/Form.h"

#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>

namespace tk {

class Programma;

// frmOnderhoudVraag, the negotiation for the maintenance module: mode 0 asks the one inside to
// make room (30 seconds, silence means yes), mode 1 lets the newcomer wait (35 seconds, polling
// each second whether the one inside left), mode -1 is the closing note after a refusal or a
// withdrawal (5 seconds). The timer's tick is public and reads the injected clock, so that a
// test runs the countdown without waiting for it.
class FrmOnderhoudVraag : public Form {
public:
    static constexpr qint64 WachttijdBinnen = 30'000, WachttijdNieuw = 35'000, NotitieTijd = 5'000;

    explicit FrmOnderhoudVraag(Programma& p);
    ~FrmOnderhoudVraag() override;
    QString formNaam() const override { return QStringLiteral("frmOnderhoudVraag"); }
    void LaadTaal() override;

    // Modal: true when the user's side may go ahead (the one inside must leave in mode 0, the
    // newcomer may enter in mode 1).
    bool Openen(int modus);
    // The first half of Openen, without the modal wait: texts, deadline, timer.
    void Begin(int modus);
    void tmrAuto_Timer();
    void cmdAfmelden_Click();
    void cmdAnnuleren_Click();

    // --- state
    int Modus = 0;
    bool geweigerd = false; // set by the dispatcher on INFONC
    bool Annuleren = false; // the form was left by Cancel
    bool Open = false;
    qint64 Deadline = 0, Peilmoment = 0; // times of the injected clock
    QString lblVraag, lblAftellen, cmdAfmeldenCaption, cmdAnnulerenCaption;
    QString Caption; // the window's title: the module's name in the user's language
    bool cmdAfmeldenZichtbaar = true;
    int cmdAnnulerenLinks = 232, Hoogte = 180; // pixels; the note is lower, Cancel moves left

    QTimer tmrAuto;
    // The view shows and hides the window, and repaints when a text changed.
    std::function<void(bool)> tonen;
    std::function<void()> onChanged;

private:
    void sluiten();
    void notitie(int tekst);
    void hertekenen();
    QString aftelTekst(qint64 nu) const;
    Programma& p;
    QString m_tekst[4]; // strings 1803 to 1806
};

} // namespace tk
