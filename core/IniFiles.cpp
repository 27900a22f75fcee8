#include "IniFiles.h"

#include "platform/TextFile.h"

#include <QFile>
#include <QFileInfo>

namespace tk {

IniFiles::Entry* IniFiles::load(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists() || info.isDir()) {
        m_cache.remove(path);
        return nullptr;
    }
    auto it = m_cache.find(path);
    const QDateTime modified = info.lastModified();
    const bool recent = modified.msecsTo(QDateTime::currentDateTime()) < 3000;
    if (it != m_cache.end() && it->size == info.size() && it->modified == modified && !recent)
        return &*it;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    const QByteArray bytes = file.readAll();
    if (it != m_cache.end() && it->bytes == bytes) {
        it->size = info.size();
        it->modified = modified;
        return &*it;
    }
    Entry entry;
    entry.document = IniDocument::parse(TextFile::decode(bytes));
    entry.bytes = bytes;
    entry.size = info.size();
    entry.modified = modified;
    return &*m_cache.insert(path, entry);
}

bool IniFiles::store(const QString& path, Entry& entry) {
    entry.bytes = entry.document.text().toUtf8();
    if (!TextFile::replaceAtomically(path, entry.bytes)) {
        m_cache.remove(path);
        return false;
    }
    const QFileInfo info(path);
    entry.size = info.size();
    entry.modified = info.lastModified();
    return true;
}

std::optional<QString> IniFiles::read(const QString& path, const QString& section,
                                      const QString& key) {
    Entry* entry = load(path);
    if (!entry)
        return std::nullopt;
    return entry->document.value(section, key);
}

const IniDocument* IniFiles::document(const QString& path) {
    const Entry* entry = load(path);
    return entry ? &entry->document : nullptr;
}

bool IniFiles::write(const QString& path, const QString& section, const QString& key,
                     const QString& value) {
    if (section.trimmed().isEmpty() || key.trimmed().isEmpty())
        return false;
    Entry* existing = load(path);
    // A file that is there but cannot be read is not written over with this one key.
    if (!existing && QFileInfo(path).isFile())
        return false;
    Entry entry = existing ? *existing : Entry();
    entry.document.setValue(section, key, value);
    if (!store(path, entry))
        return false;
    m_cache.insert(path, entry);
    return true;
}

bool IniFiles::removeKey(const QString& path, const QString& section, const QString& key) {
    Entry* existing = load(path);
    if (!existing)
        return false;
    Entry entry = *existing;
    entry.document.removeKey(section, key);
    if (!store(path, entry))
        return false;
    m_cache.insert(path, entry);
    return true;
}

bool IniFiles::removeSection(const QString& path, const QString& section) {
    Entry* existing = load(path);
    if (!existing)
        return false;
    Entry entry = *existing;
    entry.document.removeSection(section);
    if (!store(path, entry))
        return false;
    m_cache.insert(path, entry);
    return true;
}

QStringList IniFiles::sections(const QString& path) {
    Entry* entry = load(path);
    return entry ? entry->document.sections() : QStringList();
}

QStringList IniFiles::keys(const QString& path, const QString& section) {
    Entry* entry = load(path);
    return entry ? entry->document.keys(section) : QStringList();
}

} // namespace tk
