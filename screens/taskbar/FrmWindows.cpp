#include "FrmWindows.h"

#include "core/OpstartStappen.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/ScreenSwitches.h"

namespace tk {

FrmWindows::FrmWindows(Programma& p) : p(p) {
    Timer1.setInterval(50);
    QObject::connect(&Timer1, &QTimer::timeout, [this] { Timer1_Timer(); });
}

void FrmWindows::LaadTaal() {
    Caption = p.modTaal.LaadTekst(100);
    cmdKnop[0] = p.modTaal.LaadTekst(2800);
    cmdKnop[1] = p.modTaal.LaadTekst(2801);
}

void FrmWindows::gewijzigd() {
    if (onChanged)
        onChanged();
}

void FrmWindows::Laden(const QString& account, const QString& wachtwoord) {
    LaadTaal();
    this->account = account;
    this->wachtwoord = wachtwoord;
    Zichtbaar = true;
    Timer1.start();
    gewijzigd();
}

void FrmWindows::Timer1_Timer() {
    QPoint volgende = positie + richting;
    if (volgende.x() < scherm.left() || volgende.x() + Breedte > scherm.right() + 1)
        richting.setX(-richting.x());
    if (volgende.y() < scherm.top() || volgende.y() + Hoogte > scherm.bottom() + 1)
        richting.setY(-richting.y());
    positie += richting;
    gewijzigd();
}

void FrmWindows::terug(const QString& netwerkAccount, const QString& netwerkWachtwoord) {
    ModMain& m = p.modMain;
    Timer1.stop();
    if (m.ModusBeheer) {
        // A management workstation was never logged off: its own windows come back.
        Zichtbaar = false;
        gewijzigd();
        if (p.schermen)
            p.schermen->vensters(true);
        return;
    }
    const bool netwerk = m.ModusNetwerk;
    p.opstartStappen->ZetAutomatischeAanmelding(
        netwerk ? netwerkAccount : QStringLiteral("Tafelkrater"),
        netwerk ? netwerkWachtwoord : ModMain::IngebouwdWachtwoord(), QString(), true);
}

void FrmWindows::cmdKnop_Click(int index) {
    Procedure(p, "frmWindows.cmdKnop_Click", [&] {
        if (index == 0) {
            terug(account, wachtwoord);
            return;
        }
        Timer1.stop();
        const QString vraag = p.modTaal.LaadTekst(p.modMain.IsWindows98 ? 2803 : 2802);
        if (p.modMain.ToonVraag(p.modTaal.LaadTekst(3), vraag, QStringLiteral("?")) != u"ja") {
            Timer1.start();
            return;
        }
        terug(QStringLiteral("Global"), ModMain::IngebouwdWachtwoord());
    });
}

} // namespace tk
