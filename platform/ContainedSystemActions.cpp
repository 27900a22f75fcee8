#include "ContainedSystemActions.h"

#include "platform/Clock.h"

#include <QDir>
#include <QFile>

namespace tk {

ContainedSystemActions::ContainedSystemActions(const QString& programFolder, Clock& clock)
    : m_programFolder(programFolder), m_clock(clock) {}

QString ContainedSystemActions::logFile() const {
    return m_programFolder + QStringLiteral("/Logboek/systeem.log");
}

QString ContainedSystemActions::quoted(const QString& argument) {
    if (!argument.isEmpty() && !argument.contains(QLatin1Char(' ')) &&
        !argument.contains(QLatin1Char('"')) && !argument.contains(QLatin1Char('\n')))
        return argument;
    QString uit = argument;
    uit.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
    uit.replace(QLatin1Char('"'), QStringLiteral("\\\""));
    uit.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
    return QLatin1Char('"') + uit + QLatin1Char('"');
}

bool ContainedSystemActions::run(const QString& verb, const QStringList& arguments, const QString&,
                                 QString* output) {
    QStringList delen{m_clock.now().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")), verb};
    for (const QString& argument : arguments)
        delen << quoted(argument);
    QDir().mkpath(m_programFolder + QStringLiteral("/Logboek"));
    QFile log(logFile());
    if (!log.open(QIODevice::Append | QIODevice::Text))
        return false;
    log.write((delen.join(QLatin1Char(' ')) + QLatin1Char('\n')).toUtf8());
    if (output)
        *output =
            verb == u"net" ? QStringLiteral("The command completed successfully.\n") : QString();
    return true;
}

} // namespace tk
