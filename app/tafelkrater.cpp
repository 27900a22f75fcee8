// The client. For now it lays out the workstation's program folder and settings and loads the
// language; the link to the server and the screens come on top of this.
#include "core/Programma.h"
#include "platform/linux/LinuxPlatform.h"

#include <QApplication>
#include <QTextStream>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    tk::LinuxPlatform platform(QCoreApplication::applicationDirPath());
    tk::Programma p(platform);
    p.modMain.LaadTaal();
    p.modMain.MaakMappen(QStringLiteral("\\Data"));
    p.modMain.LaadWachttijden();
    QTextStream(stdout) << p.modTaal.LaadTekst(101) << Qt::endl;
    return 0;
}
