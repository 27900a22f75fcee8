#include "FakeRegistry.h"

namespace tk {

namespace {
QString describe(const RegistryValue& v) {
    switch (v.type) {
    case RegistryValue::Type::String:
        return v.text;
    case RegistryValue::Type::Dword:
        return QStringLiteral("dword:%1").arg(v.dword);
    case RegistryValue::Type::Other:
        return v.text;
    }
    return {};
}
} // namespace

std::optional<RegistryValue> FakeRegistry::read(RegistryRoot root, const QString& key,
                                                const QString& name) {
    return m_hives[root].value(key, name);
}

bool FakeRegistry::write(RegistryRoot root, const QString& key, const QString& name,
                         const RegistryValue& value) {
    if (!m_writable || RegistryHive::normalisePath(key).isEmpty())
        return false;
    m_hives[root].setValue(key, name, value);
    m_log.append(
        QStringLiteral("set %1\\%2\\%3 = %4")
            .arg(registryRootName(root), RegistryHive::normalisePath(key), name, describe(value)));
    return true;
}

bool FakeRegistry::deleteValue(RegistryRoot root, const QString& key, const QString& name) {
    if (!m_writable)
        return false;
    const bool had = m_hives[root].deleteValue(key, name);
    if (had)
        m_log.append(QStringLiteral("delete %1\\%2\\%3")
                         .arg(registryRootName(root), RegistryHive::normalisePath(key), name));
    return had;
}

bool FakeRegistry::createKey(RegistryRoot root, const QString& key) {
    if (!m_writable)
        return false;
    return m_hives[root].createKey(key);
}

bool FakeRegistry::keyExists(RegistryRoot root, const QString& key) {
    return m_hives[root].hasKey(key);
}

bool FakeRegistry::import(const RegFile::Parsed& parsed) {
    if (!m_writable)
        return false;
    for (RegistryRoot root : {RegistryRoot::ClassesRoot, RegistryRoot::CurrentUser,
                              RegistryRoot::LocalMachine, RegistryRoot::Users})
        RegFile::apply(parsed, root, m_hives[root]);
    m_log.append(QStringLiteral("import %1 operations").arg(parsed.operations.size()));
    return true;
}

} // namespace tk
