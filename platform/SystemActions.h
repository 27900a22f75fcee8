#pragma once

#include <QString>
#include <QStringList>

namespace tk {

// What the session side asks of the machine beyond the registry store: the automatic logon and
// our X session, local accounts, the wallpaper and the proxy of started programs, and the end of
// the session. One verb with its arguments per action, the verbs of the privileged program
// tafelkrater-systeem plus "logoff", "reboot" and "poweroff" (and "keys-off"/"keys-on", the
// keyboard combinations of the 98 family, which Linux has no counterpart of). Two settings: the
// system one changes the machine, the contained one only records each action in the program
// folder.
class SystemActions {
public:
    virtual ~SystemActions() = default;
    // Carries out one action. `input` goes to the action's standard input (a password) and is
    // never recorded; `output` receives what the action printed. False when it was refused or
    // failed; the machine is then as it was.
    virtual bool run(const QString& verb, const QStringList& arguments,
                     const QString& input = QString(), QString* output = nullptr) = 0;
};

} // namespace tk
