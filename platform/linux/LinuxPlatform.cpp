#include "LinuxPlatform.h"

namespace tk {

LinuxPlatform::LinuxPlatform(const QString& programFolder)
    : m_programFolder(programFolder),
      m_registry(programFolder + QStringLiteral("/Register"),
                 m_environment.variable(QStringLiteral("USERNAME"))) {}

} // namespace tk
