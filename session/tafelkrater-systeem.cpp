// tafelkrater-systeem: the privileged program of the client's session side. See SystemTool.
#include "session/SystemTool.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTextStream>

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
        proces.waitForFinished(120000);
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
    tk::SystemTool tool(QCoreApplication::applicationDirPath(),
                        qEnvironmentVariable("TK_SYSTEEM_ROOT"), runner);
    const tk::SystemTool::Result uit = tool.run(args, invoer);
    QTextStream(uit.code == 0 ? stdout : stderr) << uit.output;
    return uit.code;
}
