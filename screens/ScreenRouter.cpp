#include "ScreenRouter.h"

#include "core/Programma.h"
#include "data/ModData.h"
#include "screens/desktop/FrmBureaublad.h"
#include "screens/maintenance/FrmOnderhoud.h"
#include "screens/maintenance/ModMainOnderhoud.h"
#include "screens/maintenance/OnderhoudInstellingen.h"
#include "screens/maintenance/OnderhoudServer.h"
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

void ScreenRouter::maakOnderhoud() {
    if (p.frmOnderhoud)
        return;
    p.maak(p.frmOnderhoud, p);
    // The panels, owned by the program beside the module and made after it, so gone before it.
    // They stand before Form_Load, which reads the server panel's backups.
    OnderhoudInstellingen* instellingen = nullptr;
    p.frmOnderhoud->plaatsPaneel(FrmOnderhoud::PInstellingen, &p.maak(instellingen, p));
    OnderhoudServer* server = nullptr;
    p.frmOnderhoud->plaatsPaneel(FrmOnderhoud::PServer, &p.maak(server, p));
    p.frmOnderhoud->Form_Load();
}

bool ScreenRouter::openOnderhoudsmodule(int leraar, const QList<int>& klassen) {
    maakOnderhoud();
    if (leraar < 0 || !p.modData) {
        p.frmOnderhoud->Openen();
        return true;
    }
    // The teacher's rights: the classes (as IDs), applications, and the first of the pair for
    // teachers.
    const ModData& d = *p.modData;
    QStringList ids;
    for (int rij : klassen)
        ids << d.Klassen(rij, 6);
    const auto ja = [](const QString& s) {
        return s.compare(QStringLiteral("Ja"), Qt::CaseInsensitive) == 0;
    };
    p.frmOnderhoud->Aangepast(ids.join(QLatin1Char('|')), ja(d.Leraren(leraar, 11)),
                              ja(d.Leraren(leraar, 12).section(QLatin1Char('|'), 0, 0)));
    return true;
}

ModMainOnderhoud& ScreenRouter::modMainOnderhoud() {
    return p.modMainOnderhoud ? *p.modMainOnderhoud : p.maak(p.modMainOnderhoud, p);
}

bool ScreenRouter::ControleerAanwezigOnderhoudsmodule(bool stil) {
    return modMainOnderhoud().ControleerAanwezigOnderhoudsmodule(stil);
}

void ScreenRouter::onderhoudVerzoek(bool gevraagd) {
    if (gevraagd)
        modMainOnderhoud().OnderhoudGevraagd();
    else
        modMainOnderhoud().OnderhoudVraagIngetrokken();
}

bool ScreenRouter::openInternet() {
    return false;
}

bool ScreenRouter::openElders(const QString&) {
    return false;
}

} // namespace tk
