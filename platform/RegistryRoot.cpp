#include "RegistryRoot.h"

namespace tk {

QString registryRootName(RegistryRoot root) {
    switch (root) {
    case RegistryRoot::ClassesRoot:
        return QStringLiteral("HKEY_CLASSES_ROOT");
    case RegistryRoot::CurrentUser:
        return QStringLiteral("HKEY_CURRENT_USER");
    case RegistryRoot::LocalMachine:
        return QStringLiteral("HKEY_LOCAL_MACHINE");
    case RegistryRoot::Users:
        return QStringLiteral("HKEY_USERS");
    }
    return {};
}

std::optional<RegistryRoot> registryRootFromName(const QString& name) {
    const QString n = name.trimmed().toUpper();
    if (n == u"HKEY_CLASSES_ROOT" || n == u"HKCR")
        return RegistryRoot::ClassesRoot;
    if (n == u"HKEY_CURRENT_USER" || n == u"HKCU")
        return RegistryRoot::CurrentUser;
    if (n == u"HKEY_LOCAL_MACHINE" || n == u"HKLM")
        return RegistryRoot::LocalMachine;
    if (n == u"HKEY_USERS" || n == u"HKU")
        return RegistryRoot::Users;
    return std::nullopt;
}

} // namespace tk
