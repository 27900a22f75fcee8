#include "LinuxEnvironment.h"

#include <QDir>
#include <QSysInfo>
#include <QtGlobal>

#include <pwd.h>
#include <unistd.h>

namespace tk {

QString LinuxEnvironment::computerName() {
    QString name = QSysInfo::machineHostName();
    const int dot = name.indexOf(QLatin1Char('.'));
    if (dot > 0)
        name.truncate(dot);
    // A NetBIOS computer name: upper case, at most 15 characters.
    return name.left(15).toUpper();
}

QString LinuxEnvironment::variable(const QString& name) {
    const QString upper = name.toUpper();
    static const char* const allowed[] = {"USERNAME", "USERDOMAIN", "LOGONSERVER", "WINDIR",
                                          "TEMP"};
    bool known = false;
    for (const char* a : allowed)
        known = known || upper == QLatin1String(a);
    if (!known)
        return {};
    const QString set = qEnvironmentVariable(upper.toLatin1().constData());
    if (!set.isEmpty())
        return set;
    if (upper == u"USERNAME") {
        if (const passwd* pw = getpwuid(geteuid()))
            return QString::fromLocal8Bit(pw->pw_name);
        return qEnvironmentVariable("USER");
    }
    if (upper == u"USERDOMAIN")
        return computerName();
    if (upper == u"LOGONSERVER")
        return QStringLiteral("\\\\") + computerName();
    if (upper == u"WINDIR")
        return QStringLiteral("/etc");
    return QDir::tempPath();
}

} // namespace tk
