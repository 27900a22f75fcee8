#include "RegistryFileStore.h"

#include "platform/TextFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>

namespace tk {

RegistryFileStore::RegistryFileStore(const QString& folder, const QString& account)
    : m_folder(folder), m_account(account.isEmpty() ? QStringLiteral("default") : account) {}

QString RegistryFileStore::fileFor(RegistryRoot root) const {
    if (root == RegistryRoot::CurrentUser)
        return m_folder + QStringLiteral("/HKEY_CURRENT_USER/") + m_account +
               QStringLiteral(".reg");
    return m_folder + QLatin1Char('/') + registryRootName(root) + QStringLiteral(".reg");
}

RegistryFileStore::Loaded& RegistryFileStore::load(RegistryRoot root) {
    Loaded& loaded = m_loaded[root];
    const QFileInfo info(fileFor(root));
    const qint64 size = info.exists() ? info.size() : -1;
    const QDateTime modified = info.exists() ? info.lastModified() : QDateTime();
    if (size == loaded.size && modified == loaded.modified)
        return loaded;
    loaded = Loaded();
    loaded.size = size;
    loaded.modified = modified;
    if (size < 0)
        return loaded;
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly)) {
        loaded.unreadable = true;
        return loaded;
    }
    const QByteArray bytes = file.readAll();
    const RegFile::Parsed parsed = RegFile::parse(TextFile::decode(bytes));
    loaded.foreign = !parsed.hasHeader && !bytes.trimmed().isEmpty();
    RegFile::apply(parsed, root, loaded.hive);
    return loaded;
}

bool RegistryFileStore::modify(RegistryRoot root,
                               const std::function<void(RegistryHive&)>& change) {
    const QString path = fileFor(root);
    if (m_batchDepth > 0 && m_batchLocks.count(root)) {
        // The file is ours until the batch ends: change the hive, write at the end.
        Loaded& loaded = load(root);
        if (loaded.unreadable)
            return false;
        change(loaded.hive);
        return true;
    }
    if (!QDir().mkpath(QFileInfo(path).path()))
        return false;
    auto lock = std::make_unique<QLockFile>(path + QStringLiteral(".lock"));
    lock->setStaleLockTime(5000);
    if (!lock->tryLock(5000))
        return false;
    Loaded& loaded = load(root);
    if (loaded.unreadable)
        return false;
    if (m_batchDepth > 0) {
        change(loaded.hive);
        m_batchLocks[root] = std::move(lock);
        return true;
    }
    RegistryHive updated = loaded.hive;
    change(updated);
    return store(root, loaded, updated);
}

bool RegistryFileStore::store(RegistryRoot root, Loaded& loaded, const RegistryHive& updated) {
    const QString path = fileFor(root);
    if (loaded.foreign) {
        const QString backup = path + QStringLiteral(".bak");
        QFile::remove(backup);
        QFile::copy(path, backup);
    }
    QSaveFile out(path);
    if (!out.open(QIODevice::WriteOnly))
        return false;
    out.write(RegFile::write(root, updated).toUtf8());
    if (!out.commit())
        return false;
    loaded.hive = updated;
    loaded.foreign = false;
    const QFileInfo info(path);
    loaded.size = info.size();
    loaded.modified = info.lastModified();
    return true;
}

void RegistryFileStore::beginBatch() {
    ++m_batchDepth;
}

bool RegistryFileStore::endBatch() {
    if (m_batchDepth == 0 || --m_batchDepth > 0)
        return true;
    bool ok = true;
    for (auto& [root, lock] : m_batchLocks) {
        Loaded& loaded = m_loaded[root];
        const RegistryHive hive = loaded.hive;
        if (!store(root, loaded, hive)) {
            ok = false;
            loaded = Loaded(); // read the file as it is again
        }
    }
    m_batchLocks.clear();
    return ok;
}

std::optional<RegistryValue> RegistryFileStore::read(RegistryRoot root, const QString& key,
                                                     const QString& name) {
    return load(root).hive.value(key, name);
}

bool RegistryFileStore::write(RegistryRoot root, const QString& key, const QString& name,
                              const RegistryValue& value) {
    if (RegistryHive::normalisePath(key).isEmpty())
        return false;
    return modify(root, [&](RegistryHive& h) { h.setValue(key, name, value); });
}

bool RegistryFileStore::deleteValue(RegistryRoot root, const QString& key, const QString& name) {
    if (!load(root).hive.value(key, name))
        return false;
    return modify(root, [&](RegistryHive& h) { h.deleteValue(key, name); });
}

bool RegistryFileStore::createKey(RegistryRoot root, const QString& key) {
    if (RegistryHive::normalisePath(key).isEmpty())
        return false;
    if (load(root).hive.hasKey(key))
        return true;
    return modify(root, [&](RegistryHive& h) { h.createKey(key); });
}

bool RegistryFileStore::keyExists(RegistryRoot root, const QString& key) {
    return load(root).hive.hasKey(key);
}

bool RegistryFileStore::import(const RegFile::Parsed& parsed) {
    bool ok = true;
    for (RegistryRoot root : {RegistryRoot::ClassesRoot, RegistryRoot::CurrentUser,
                              RegistryRoot::LocalMachine, RegistryRoot::Users}) {
        bool touches = false;
        for (const auto& op : parsed.operations)
            touches = touches || op.root == root;
        if (touches)
            ok = modify(root, [&](RegistryHive& h) { RegFile::apply(parsed, root, h); }) && ok;
    }
    return ok;
}

} // namespace tk
