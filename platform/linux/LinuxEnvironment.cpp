#include "LinuxEnvironment.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
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

namespace {

// True when the block device (a disk or one of its partitions) is optical or removable.
bool isVerwisselbaar(const QString& apparaat) {
    const QString naam = QFileInfo(apparaat).fileName();
    if (naam.startsWith(QLatin1String("sr")))
        return true;
    // /sys/class/block/<name> links into the device tree; a partition's disk is its parent folder.
    QString map = QFileInfo(QStringLiteral("/sys/class/block/") + naam).canonicalFilePath();
    for (int stap = 0; stap < 2 && !map.isEmpty(); ++stap) {
        QFile f(map + QStringLiteral("/removable"));
        if (f.open(QIODevice::ReadOnly))
            return f.readAll().trimmed() == "1";
        map = QFileInfo(map).path();
    }
    return false;
}

// A mount point as /proc/mounts writes it, with its octal escapes (\040 for a blank) undone.
QString ontsnapt(const QByteArray& veld) {
    QByteArray uit;
    for (int i = 0; i < veld.size(); ++i) {
        if (veld[i] == '\\' && i + 3 < veld.size()) {
            bool ok = false;
            const int code = veld.mid(i + 1, 3).toInt(&ok, 8);
            if (ok) {
                uit.append(static_cast<char>(code));
                i += 3;
                continue;
            }
        }
        uit.append(veld[i]);
    }
    return QString::fromUtf8(uit);
}

} // namespace

QString LinuxEnvironment::homeFolder() {
    return QDir::homePath();
}

QStringList LinuxEnvironment::removableMedia() {
    QStringList uit;
    QFile f(QStringLiteral("/proc/mounts"));
    if (!f.open(QIODevice::ReadOnly))
        return uit;
    const QList<QByteArray> regels = f.readAll().split('\n');
    for (const QByteArray& regel : regels) {
        const QList<QByteArray> velden = regel.split(' ');
        if (velden.size() < 2 || !velden[0].startsWith("/dev/"))
            continue;
        if (isVerwisselbaar(QString::fromUtf8(velden[0])))
            uit.append(ontsnapt(velden[1]));
    }
    return uit;
}

} // namespace tk
