#pragma once

#include <QString>
#include <QStringList>

namespace tk {

// What GetVersionEx reports. Linux answers as the NT family.
struct OsVersion {
    int platformId = 2; // 1: the Windows 95/98 family, 2: the NT family
    int major = 6;
    int minor = 0;
};

// The few facts of the machine and the session the program may read: the environment values
// USERNAME, USERDOMAIN, LOGONSERVER, WINDIR and TEMP, the computer name and the system version.
class Environment {
public:
    virtual ~Environment() = default;
    // One of the five names above, any other name gives an empty text.
    virtual QString variable(const QString& name) = 0;
    virtual QString computerName() = 0;
    virtual OsVersion osVersion() = 0;
    // The mount points of mounted removable and optical media (the drives of the "cdrom" item).
    virtual QStringList removableMedia() = 0;
    // The home folder of the account the program runs as.
    virtual QString homeFolder() = 0;
};

} // namespace tk
