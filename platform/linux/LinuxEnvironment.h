#pragma once

#include "platform/Environment.h"

namespace tk {

// The session's facts on Linux. A variable set in the process environment wins, so that an
// X session file or a test can name the account or the logon server; otherwise:
// USERNAME is the login name, USERDOMAIN the computer name (a local account), LOGONSERVER
// "\\" + the computer name, WINDIR the system configuration folder, TEMP the temporary folder.
class LinuxEnvironment : public Environment {
public:
    QString variable(const QString& name) override;
    QString computerName() override;
    OsVersion osVersion() override { return OsVersion{}; }
    // Mounts of /proc/mounts whose block device is optical (sr*) or marked removable in /sys.
    QStringList removableMedia() override;
    QString homeFolder() override;
};

} // namespace tk
