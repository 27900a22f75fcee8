#include "PrivilegedSystemActions.h"

#include <QEventLoop>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTimer>

namespace tk {

PrivilegedSystemActions::PrivilegedSystemActions(const QString& programFolder, int timeoutMs,
                                                 QStringList elevate)
    : m_programFolder(programFolder), m_timeoutMs(timeoutMs), m_elevate(std::move(elevate)) {}

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
    return m_elevate + QStringList{m_programFolder + QStringLiteral("/tafelkrater-systeem"), verb} +
           arguments;
}

bool PrivilegedSystemActions::run(const QString& verb, const QStringList& arguments,
                                  const QString& input, QString* output) {
    const QStringList regel = commandLine(verb, arguments);
    if (regel.isEmpty())
        return true;
    QProcess proces;
    proces.setProcessChannelMode(QProcess::MergedChannels);
    // The wait runs the event loop, so that the windows stay drawn and live while an account is
    // made; it ends with the process or after the time allowed.
    QEventLoop wacht;
    bool klaar = false;
    QObject::connect(&proces, &QProcess::finished, &wacht, [&] {
        klaar = true;
        wacht.quit();
    });
    QObject::connect(&proces, &QProcess::errorOccurred, &wacht, [&](QProcess::ProcessError fout) {
        if (fout == QProcess::FailedToStart)
            wacht.quit();
    });
    QTimer::singleShot(m_timeoutMs, &wacht, &QEventLoop::quit);
    proces.start(regel.first(), regel.mid(1));
    proces.write(input.toUtf8());
    proces.closeWriteChannel();
    if (proces.state() != QProcess::NotRunning || proces.error() != QProcess::FailedToStart)
        wacht.exec();
    const bool opTijd = klaar;
    if (!opTijd) {
        proces.kill();
        proces.waitForFinished(1000);
    }
    if (output)
        *output =
            QString::fromLocal8Bit(proces.readAll()) +
            (opTijd ? QString() : QStringLiteral("(%1 did not end in time)").arg(regel.first()));
    return opTijd && proces.exitStatus() == QProcess::NormalExit && proces.exitCode() == 0;
}

} // namespace tk
