#pragma once

#include <QString>
#include <optional>

namespace tk {

// The roots of the registry the program uses. The store keeps one file per root (and one per
// account for the current user).
enum class RegistryRoot { ClassesRoot, CurrentUser, LocalMachine, Users };

QString registryRootName(RegistryRoot root);
// Accepts the long names and the usual short forms (HKLM, HKCU, HKU, HKCR), any case.
std::optional<RegistryRoot> registryRootFromName(const QString& name);

} // namespace tk
