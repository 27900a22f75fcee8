#pragma once

#include "platform/RegistryHive.h"
#include "platform/RegistryStore.h"

#include <QStringList>
#include <map>

namespace tk {

// The registry in memory. Every change is recorded in log() as one line
// ("set HKEY_LOCAL_MACHINE\SOFTWARE\Tafelkrater\Modus = 1"), so that a test can check what the
// program did to the machine. setWritable(false) plays an account without administrator rights.
class FakeRegistry : public RegistryStore {
public:
    std::optional<RegistryValue> read(RegistryRoot root, const QString& key,
                                      const QString& name) override;
    bool write(RegistryRoot root, const QString& key, const QString& name,
               const RegistryValue& value) override;
    bool deleteValue(RegistryRoot root, const QString& key, const QString& name) override;
    bool createKey(RegistryRoot root, const QString& key) override;
    bool keyExists(RegistryRoot root, const QString& key) override;
    bool import(const RegFile::Parsed& parsed) override;

    void setWritable(bool writable) { m_writable = writable; }
    const QStringList& log() const { return m_log; }
    const RegistryHive& hive(RegistryRoot root) { return m_hives[root]; }

private:
    std::map<RegistryRoot, RegistryHive> m_hives;
    QStringList m_log;
    bool m_writable = true;
};

} // namespace tk
