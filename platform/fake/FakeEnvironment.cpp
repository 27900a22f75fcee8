#include "FakeEnvironment.h"

namespace tk {

FakeEnvironment::FakeEnvironment() : m_computer(QStringLiteral("LOKAAL-12")) {
    m_vars.insert(QStringLiteral("USERNAME"), QStringLiteral("leerling"));
    m_vars.insert(QStringLiteral("USERDOMAIN"), QStringLiteral("SCHOOL"));
    m_vars.insert(QStringLiteral("LOGONSERVER"), QStringLiteral("\\\\SERVER01"));
    m_vars.insert(QStringLiteral("WINDIR"), QStringLiteral("C:\\WINDOWS"));
    m_vars.insert(QStringLiteral("TEMP"), QStringLiteral("/tmp"));
    m_version = OsVersion{2, 5, 1};
}

} // namespace tk
