#include "PrivilegedSystemActions.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTimer>

namespace tk {

PrivilegedSystemActions::PrivilegedSystemActions(const QString& programFolder, int timeoutMs,
                                                 QStringList elevate)
    : m_programma(programma(programFolder)), m_timeoutMs(timeoutMs), m_elevate(std::move(elevate)) {
}

QString PrivilegedSystemActions::programma(const QString& programFolder,
                                           const QString& systemCopy) {
    QFile gediend(QFileInfo(systemCopy).dir().filePath(QStringLiteral("programmamap")));
    if (gediend.open(QIODevice::ReadOnly) && QFileInfo(systemCopy).isExecutable()) {
        const QString map =
            QFileInfo(QString::fromUtf8(gediend.readLine()).trimmed()).canonicalFilePath();
        if (!map.isEmpty() && map == QFileInfo(programFolder).canonicalFilePath())
            return systemCopy;
    }
    return programFolder + QStringLiteral("/tafelkrater-systeem");
}

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
    return m_elevate + QStringList{m_programma, verb} + arguments;
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
    // The wait runs the events itself rather than a nested loop, which would end at once once
    // the program has been asked to quit; a timer wakes it to look at the deadline.
    bool klaar = false, mislukt = false;
    QObject::connect(&proces, &QProcess::finished, [&] { klaar = true; });
    QObject::connect(&proces, &QProcess::errorOccurred, [&](QProcess::ProcessError fout) {
        mislukt = mislukt || fout == QProcess::FailedToStart;
    });
    proces.start(regel.first(), regel.mid(1));
    proces.write(input.toUtf8());
    proces.closeWriteChannel();
    const QDeadlineTimer deadline(m_timeoutMs);
    if (QCoreApplication::instance()) {
        QTimer wekker;
        wekker.start(50);
        while (!klaar && !mislukt && proces.state() != QProcess::NotRunning &&
               !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        // The end may have been seen by the state before its signal came.
        if (!klaar && proces.state() == QProcess::NotRunning && !mislukt)
            QCoreApplication::processEvents();
        klaar = klaar || (proces.state() == QProcess::NotRunning && !mislukt &&
                          proces.error() != QProcess::FailedToStart);
    } else {
        klaar = proces.waitForFinished(m_timeoutMs);
    }
    const bool opTijd = klaar;
    if (!opTijd) {
        proces.kill();
        proces.waitForFinished(1000);
    }
    if (output)
        *output = QString::fromLocal8Bit(proces.readAll()) +
                  (mislukt  ? proces.errorString()
                   : opTijd ? QString()
                            : QStringLiteral("(%1 did not end in time)").arg(regel.first()));
    return opTijd && proces.exitStatus() == QProcess::NormalExit && proces.exitCode() == 0;
}

} // namespace tk
