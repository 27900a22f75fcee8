// The client: the start-up of the workstation, the link to the server and the screens.
#include "ClientStappen.h"
#include "QtDialogs.h"
#include "core/ModMainOpstart.h"
#include "core/Programma.h"
#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "platform/linux/LinuxPlatform.h"
#include "theme/ModThema.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    tk::LinuxPlatform platform(QCoreApplication::applicationDirPath());
    tk::Programma p(platform);
    tk::QtDialogs dialogen(p);
    p.dialogen = &dialogen;
    p.maak(p.frmMain, p);
    p.maak(p.modMainVerbinding, p);
    p.maak(p.modThema, p);
    tk::ClientStappen stappen(p);
    p.opstartStappen = &stappen;

    // The command line as one text, as the launcher gives it ("STARTUP", "STARTUPFOUT", or an
    // account word on a management workstation).
    QStringList woorden = QCoreApplication::arguments().mid(1);
    tk::ModMainOpstart opstart(p, stappen);
    opstart.Main(woorden.join(QLatin1Char(' ')));
    if (p.beeindigd)
        return 0;
    const int code = app.exec();
    p.frmMain->Form_Unload();
    return code;
}
