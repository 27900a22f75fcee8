#pragma once

#include "platform/RegistryHive.h"
#include "platform/RegistryStore.h"

#include <QDateTime>
#include <QLockFile>
#include <functional>
#include <map>
#include <memory>

namespace tk {

// The registry kept as REGEDIT4 text files under the program folder's Register/ folder:
// HKEY_LOCAL_MACHINE.reg, HKEY_USERS.reg, HKEY_CLASSES_ROOT.reg and
// HKEY_CURRENT_USER/<account>.reg. Another process (the local server) may write the same files,
// so a read notices a change on disk and a write merges under a lock file. A file is rewritten
// whole and atomically; a file that was not in our format is first kept as "<name>.bak".
class RegistryFileStore : public RegistryStore {
public:
    RegistryFileStore(const QString& folder, const QString& account);

    std::optional<RegistryValue> read(RegistryRoot root, const QString& key,
                                      const QString& name) override;
    bool write(RegistryRoot root, const QString& key, const QString& name,
               const RegistryValue& value) override;
    bool deleteValue(RegistryRoot root, const QString& key, const QString& name) override;
    bool createKey(RegistryRoot root, const QString& key) override;
    bool keyExists(RegistryRoot root, const QString& key) override;
    bool import(const RegFile::Parsed& parsed) override;
    void beginBatch() override;
    bool endBatch() override;

    QString fileFor(RegistryRoot root) const;

private:
    struct Loaded {
        RegistryHive hive;
        QDateTime modified;
        qint64 size = -1;
        bool foreign = false;    // there was a file, and it did not start with a header
        bool unreadable = false; // there is a file that cannot be read: it is not written over
    };
    Loaded& load(RegistryRoot root);
    bool modify(RegistryRoot root, const std::function<void(RegistryHive&)>& change);
    bool store(RegistryRoot root, Loaded& loaded, const RegistryHive& updated);

    QString m_folder;
    QString m_account;
    std::map<RegistryRoot, Loaded> m_loaded;
    // Inside a batch: the lock of each file the batch changed, held until it ends, and its depth.
    std::map<RegistryRoot, std::unique_ptr<QLockFile>> m_batchLocks;
    int m_batchDepth = 0;
};

} // namespace tk
