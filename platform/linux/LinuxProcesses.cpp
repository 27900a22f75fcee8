#include "LinuxProcesses.h"

#include <QProcess>

namespace tk {

bool LinuxProcesses::startDetached(const QString& program, const QStringList& arguments,
                                   const QString& workingFolder) {
    return QProcess::startDetached(program, arguments, workingFolder);
}

} // namespace tk
