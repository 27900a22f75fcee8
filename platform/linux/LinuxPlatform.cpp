#include "LinuxPlatform.h"

#include <QCoreApplication>

namespace tk {

LinuxPlatform::LinuxPlatform(const QString& programFolder)
    : m_programFolder(programFolder),
      m_registry(programFolder + QStringLiteral("/Register"),
                 m_environment.variable(QStringLiteral("USERNAME"))) {}

QString LinuxPlatform::programFile() const {
    return QCoreApplication::applicationFilePath();
}

} // namespace tk
