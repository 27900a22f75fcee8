#include "ScreenRouter.h"

#include "core/Programma.h"
#include "screens/desktop/FrmBureaublad.h"
#include "screens/start/FrmMain.h"
#include "theme/ModThema.h"

namespace tk {

ScreenRouter::ScreenRouter(Programma& p) : p(p) {}

void ScreenRouter::openBureaublad(int soort, const QString& id) {
    if (!p.frmBureaublad)
        p.maak(p.frmBureaublad, p);
    p.frmBureaublad->Openen(soort, id);
}

void ScreenRouter::bureaubladVerlaten() {
    // The school's theme again for the start screen.
    if (p.modThema)
        p.modThema->LaadThema();
    if (p.startScreen) {
        p.startScreen->LadenVormgeving();
        p.startScreen->OpenGlobal(true);
    }
}

bool ScreenRouter::openOnderhoudsmodule(int, const QList<int>&) {
    return false;
}

bool ScreenRouter::ControleerAanwezigOnderhoudsmodule(bool) {
    return false;
}

bool ScreenRouter::openInternet() {
    return false;
}

bool ScreenRouter::openElders(const QString&) {
    return false;
}

} // namespace tk
