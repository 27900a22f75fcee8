#pragma once

#include <QString>
#include <QStringList>

namespace tk {

// Starting other programs (the role of ShellExecute): the launcher, the local server, the
// programs of a desktop.
class Processes {
public:
    virtual ~Processes() = default;
    // Starts a program without waiting for it; false when it could not be started.
    virtual bool startDetached(const QString& program, const QStringList& arguments,
                               const QString& workingFolder) = 0;
};

} // namespace tk
