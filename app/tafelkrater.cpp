// The client: the start-up of the workstation, the link to the server and the screens.
#include "ClientAssembly.h"
#include "core/ModMainOpstart.h"
#include "core/Programma.h"
#include "link/FrmMainLink.h"
#include "platform/linux/LinuxPlatform.h"
#include "screens/common/AccessibleFactory.h"
#include "screens/start/FrmInitialiserenView.h"
#include "session/PrintedDialogs.h"
#include "session/Uitrol.h"

#include <QApplication>
#include <QTextStream>

int main(int argc, char** argv) {
    // A take-over or hand-back from a script needs no screen.
    QStringList argumenten;
    for (int i = 1; i < argc; ++i)
        argumenten << QString::fromLocal8Bit(argv[i]);
    const bool uitrol = tk::Uitrol::Gevraagd(argumenten);
    if (uitrol && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
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

    if (uitrol) {
        QTextStream uit(stdout);
        tk::PrintedDialogs gedrukt(uit);
        p.dialogen = &gedrukt;
        p.modMain.LaadTaal();
        return tk::Uitrol(p, client.stappen().sessie(), uit).Uitvoeren(argumenten);
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
