#include "PrivilegedSystemActions.h"

#include <QProcess>
#include <QProcessEnvironment>

namespace tk {

PrivilegedSystemActions::PrivilegedSystemActions(const QString& programFolder)
    : m_programFolder(programFolder) {}

QStringList PrivilegedSystemActions::commandLine(const QString& verb,
                                                 const QStringList& arguments) const {
    if (verb == u"keys-off" || verb == u"keys-on")
        return {};
    if (verb == u"logoff") {
        const QString sessie =
            QProcessEnvironment::systemEnvironment().value(QStringLiteral("XDG_SESSION_ID"));
        if (!sessie.isEmpty())
            return {QStringLiteral("loginctl"), QStringLiteral("terminate-session"), sessie};
        return {QStringLiteral("loginctl"), QStringLiteral("terminate-user"),
                QProcessEnvironment::systemEnvironment().value(QStringLiteral("USER"))};
    }
    if (verb == u"reboot" || verb == u"poweroff")
        return {QStringLiteral("systemctl"), verb};
    return QStringList{QStringLiteral("sudo"), QStringLiteral("-n"),
                       m_programFolder + QStringLiteral("/tafelkrater-systeem"), verb} +
           arguments;
}

bool PrivilegedSystemActions::run(const QString& verb, const QStringList& arguments,
                                  const QString& input, QString* output) {
    const QStringList regel = commandLine(verb, arguments);
    if (regel.isEmpty())
        return true;
    QProcess proces;
    proces.setProcessChannelMode(QProcess::MergedChannels);
    proces.start(regel.first(), regel.mid(1));
    if (!proces.waitForStarted(5000))
        return false;
    proces.write(input.toUtf8());
    proces.closeWriteChannel();
    const bool klaar = proces.waitForFinished(60000);
    if (output)
        *output = QString::fromLocal8Bit(proces.readAll());
    return klaar && proces.exitStatus() == QProcess::NormalExit && proces.exitCode() == 0;
}

} // namespace tk
