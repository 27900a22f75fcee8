// tafelkrater-systeem: the privileged program of the client's session side. See SystemTool.
#include "session/SystemTool.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTextStream>

#include <unistd.h>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    auto runner = [](const QString& program, const QStringList& arguments, const QString& input) {
        QProcess proces;
        proces.setProcessChannelMode(QProcess::MergedChannels);
        proces.start(program, arguments);
        if (!proces.waitForStarted(10000))
            return tk::SystemTool::Result{127, program + QStringLiteral(" cannot be started")};
        proces.write(input.toUtf8());
        proces.closeWriteChannel();
        if (!proces.waitForFinished(120000)) {
            // Still running after two minutes: ended, and said to have failed, never taken for
            // done (a running process has exit code 0).
            proces.kill();
            proces.waitForFinished(10000);
            return tk::SystemTool::Result{124, program + QStringLiteral(" did not end in time")};
        }
        const int code = proces.exitStatus() == QProcess::NormalExit ? proces.exitCode() : 128;
        return tk::SystemTool::Result{code, QString::fromLocal8Bit(proces.readAll())};
    };
    // Only the verb that makes an account reads its standard input, and only its first line.
    QString invoer;
    const QStringList args = QCoreApplication::arguments().mid(1);
    if (args.contains(QStringLiteral("account-create"))) {
        QFile in;
        if (in.open(stdin, QIODevice::ReadOnly))
            invoer = QString::fromUtf8(in.readLine(4096)).trimmed();
    }
    // sudo names the account that asked; a set-user-ID start shows it in the real user ID.
    const bool doorSudo = qEnvironmentVariableIsSet("SUDO_UID") || getuid() != geteuid();
    // Installed for the machine it lies apart from the program folder it serves (which that
    // folder's users write into); the install names the folder beside it.
    QString map = QCoreApplication::applicationDirPath();
    QFile programmamap(map + QStringLiteral("/programmamap"));
    if (programmamap.open(QIODevice::ReadOnly))
        map = QString::fromUtf8(programmamap.readLine()).trimmed();
    tk::SystemTool tool(map, qEnvironmentVariable("TK_SYSTEEM_ROOT"), doorSudo, runner);
    const tk::SystemTool::Result uit = tool.run(args, invoer);
    QTextStream(uit.code == 0 ? stdout : stderr) << uit.output;
    return uit.code;
}
