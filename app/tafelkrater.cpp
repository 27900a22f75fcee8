// The client: the start-up of the workstation, the link to the server and the screens.
#include "ClientAssembly.h"
#include "core/ModMainOpstart.h"
#include "core/Programma.h"
#include "link/FrmMainLink.h"
#include "platform/linux/LinuxPlatform.h"
#include "screens/common/AccessibleFactory.h"
#include "screens/start/FrmInitialiserenView.h"

#include <QApplication>
#include <QTextStream>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    tk::AccessibleFactory::installeren();
    tk::LinuxPlatform platform(QCoreApplication::applicationDirPath());
    tk::Programma p(platform);
    tk::ClientAssembly client(p);
    const QStringList ontbrekend = client.unwired();
    if (!ontbrekend.isEmpty()) {
        QTextStream(stderr) << "tafelkrater: this build is incomplete, not wired: "
                            << ontbrekend.join(QStringLiteral(", ")) << Qt::endl;
        return 70;
    }

    // The command line as one text, as the launcher gives it ("STARTUP", "STARTUPFOUT", or an
    // account word on a management workstation).
    QStringList woorden = QCoreApplication::arguments().mid(1);
    tk::ModMainOpstart opstart(p, client.stappen());
    tk::FrmInitialiserenView initialiserenView(opstart.frmInitialiseren);
    opstart.Main(woorden.join(QLatin1Char(' ')));
    if (p.beeindigd)
        return 0;
    const int code = app.exec();
    p.frmMain->Form_Unload();
    return code;
}
