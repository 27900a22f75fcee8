#include "FrmOnderhoudVraag.h"

#include "ModMainOnderhoud.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "platform/Clock.h"

namespace tk {

FrmOnderhoudVraag::FrmOnderhoudVraag(Programma& p) : p(p) {
    tmrAuto.setInterval(250);
    QObject::connect(&tmrAuto, &QTimer::timeout, [this] { tmrAuto_Timer(); });
    LaadTaal();
    p.formulieren.append(this);
}

FrmOnderhoudVraag::~FrmOnderhoudVraag() {
    p.formulieren.removeAll(this);
}

void FrmOnderhoudVraag::LaadTaal() {
    for (int i = 0; i < 4; ++i)
        m_tekst[i] = p.modTaal.LaadTekst(1803 + i);
    cmdAfmeldenCaption = p.modTaal.LaadTekst(1801);
    Caption = p.modTaal.LaadTekst(1601);
    if (Modus != -1)
        cmdAnnulerenCaption = p.modTaal.LaadTekst(1802);
    hertekenen();
}

void FrmOnderhoudVraag::hertekenen() {
    if (onChanged)
        onChanged();
}

QString FrmOnderhoudVraag::aftelTekst(qint64 nu) const {
    const qint64 seconden = qMax<qint64>(0, (Deadline - nu + 999) / 1000);
    return QString(m_tekst[Modus == 0 ? 0 : 1])
        .replace(QStringLiteral("%seconden%"), QString::number(seconden));
}

void FrmOnderhoudVraag::Begin(int modus) {
    geweigerd = false;
    Annuleren = false;
    Modus = modus;
    LaadTaal();
    const qint64 nu = p.platform.clock().msecsSinceStart();
    if (modus == 0) {
        lblVraag = m_tekst[2];
        cmdAfmeldenZichtbaar = true;
        Deadline = nu + WachttijdBinnen;
    } else {
        lblVraag = m_tekst[3];
        cmdAfmeldenZichtbaar = false;
        Deadline = nu + WachttijdNieuw;
    }
    lblAftellen = aftelTekst(nu);
    cmdAnnulerenLinks = 232;
    Hoogte = 180;
    Peilmoment = nu;
    Open = true;
    tmrAuto.start();
    hertekenen();
}

bool FrmOnderhoudVraag::Openen(int modus) {
    return Procedure<bool>(p, "frmOnderhoudVraag.Openen", false, [&] {
        Begin(modus);
        if (tonen)
            tonen(true);
        // A lost link ends the wait as a Cancel would.
        if (p.wacht.Tot([this] { return !Open; }) != Wacht::Uitkomst::Voldaan) {
            Annuleren = true;
            sluiten();
        }
        tmrAuto.stop();
        return !Annuleren;
    });
}

void FrmOnderhoudVraag::sluiten() {
    tmrAuto.stop();
    if (!Open)
        return;
    Open = false;
    if (tonen)
        tonen(false);
}

void FrmOnderhoudVraag::cmdAfmelden_Click() {
    Annuleren = false;
    sluiten();
}

void FrmOnderhoudVraag::cmdAnnuleren_Click() {
    Annuleren = true;
    sluiten();
}

void FrmOnderhoudVraag::notitie(int tekst) {
    lblVraag = p.modTaal.LaadTekst(tekst);
    lblAftellen.clear();
    cmdAnnulerenCaption = p.modTaal.LaadTekst(1809);
    cmdAfmeldenZichtbaar = false;
    cmdAnnulerenLinks = 72;
    Hoogte = 133;
    Modus = -1;
    Peilmoment = p.platform.clock().msecsSinceStart();
    hertekenen();
}

void FrmOnderhoudVraag::tmrAuto_Timer() {
    Procedure(p, "frmOnderhoudVraag.tmrAuto_Timer", [&] {
        if (!Open)
            return;
        const qint64 nu = p.platform.clock().msecsSinceStart();
        if (Modus == -1) {
            if (nu - Peilmoment >= NotitieTijd)
                cmdAnnuleren_Click();
            return;
        }
        if (geweigerd) {
            notitie(Modus == 1 ? 1807 : 1808);
            return;
        }
        if (nu > Deadline) {
            if (Modus == 0)
                cmdAfmelden_Click();
            else
                cmdAnnuleren_Click();
            return;
        }
        const QString tekst = aftelTekst(nu);
        if (tekst != lblAftellen) {
            lblAftellen = tekst;
            hertekenen();
        }
        if (Modus == 1 && nu - Peilmoment >= 1000) {
            // Pushed ahead, so that a tick inside the poll's wait does not poll again.
            Peilmoment = nu + 3600 * 1000;
            const bool bezet =
                !p.modMainOnderhoud || p.modMainOnderhoud->ControleerAanwezigOnderhoudsmodule(true);
            if (bezet) {
                Peilmoment = p.platform.clock().msecsSinceStart();
            } else {
                cmdAfmelden_Click();
            }
        }
    });
}

} // namespace tk
