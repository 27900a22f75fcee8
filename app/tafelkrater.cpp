// The client: the start-up of the workstation, the link to the server and the screens.
#include "BureaubladStappen.h"
#include "ClientStartSteps.h"
#include "GuiDialogs.h"
#include "core/ModMainOpstart.h"
#include "core/Programma.h"
#include "data/ModData.h"
#include "data/ModMainLaden.h"
#include "link/ModMainVerbinding.h"
#include "platform/linux/LinuxPlatform.h"
#include "screens/start/FrmAanmelden.h"
#include "screens/start/FrmAanmeldenView.h"
#include "screens/start/FrmInitialiserenView.h"
#include "screens/start/FrmMain.h"
#include "screens/start/FrmWachten.h"
#include "screens/start/FrmWachtenView.h"
#include "screens/taskbar/FrmAfmelden.h"
#include "screens/taskbar/FrmAfmeldenView.h"
#include "screens/taskbar/FrmTaakbalk1.h"
#include "screens/taskbar/ModMainAfsluiten.h"
#include "theme/ModDataPictogrammen.h"
#include "theme/ModDataThemas.h"
#include "theme/ModThema.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    tk::LinuxPlatform platform(QCoreApplication::applicationDirPath());
    tk::Programma p(platform);
    tk::GuiDialogs dialogen(p);
    p.dialogen = &dialogen;
    p.maak(p.modData, p);
    p.maak(p.modMainLaden, p);
    p.maak(p.startScreen, p);
    p.frmMain = p.startScreen;
    p.maak(p.modMainVerbinding, p);
    p.modMainVerbinding->NaamVan = [&p](const QString& soort, const QString& id) {
        return p.modData->naamVan(soort, id);
    };
    p.maak(p.modThema, p);
    // The load brings the theme and icon stores up to date in their places of its order.
    p.maak(p.modDataThemas, p);
    p.maak(p.modDataPictogrammen, p);
    p.modMainLaden->LaadThemas = [&p](bool toonVoortgang) {
        p.modDataThemas->LaadThemas(toonVoortgang);
    };
    p.modMainLaden->LaadPictogrammen = [&p] { p.modDataPictogrammen->LaadPictogrammen(); };
    p.modDataThemas->LadenVormgeving = [&p] { p.modThema->LaadThema(); };
    p.maak(p.frmTaakbalk1, p);
    p.maak(p.modMainAfsluiten, p);
    // The wait windows: models any screen may open, and their views, shown while open.
    p.maak(p.frmWachten, p);
    p.maak(p.frmAanmelden, p);
    p.maak(p.frmAfmelden, p);
    tk::FrmWachtenView wachtenView(*p.frmWachten);
    tk::FrmAanmeldenView aanmeldenView(*p.frmAanmelden);
    tk::FrmAfmeldenView afmeldenView(*p.frmAfmelden);
    tk::ClientStartSteps stappen(p);
    p.opstartStappen = &stappen;
    // A class click or a teacher's login opens the desktop; log-off comes back here.
    tk::BureaubladStappen bureaublad(
        p, [&stappen] { stappen.toonHoofdvenster(); },
        [&stappen] { stappen.verbergHoofdvenster(); });

    // The command line as one text, as the launcher gives it ("STARTUP", "STARTUPFOUT", or an
    // account word on a management workstation).
    QStringList woorden = QCoreApplication::arguments().mid(1);
    tk::ModMainOpstart opstart(p, stappen);
    tk::FrmInitialiserenView initialiserenView(opstart.frmInitialiseren);
    opstart.Main(woorden.join(QLatin1Char(' ')));
    if (p.beeindigd)
        return 0;
    const int code = app.exec();
    p.frmMain->Form_Unload();
    return code;
}
