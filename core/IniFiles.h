#pragma once

#include "core/IniDocument.h"

#include <QDateTime>
#include <QHash>
#include <QString>

namespace tk {

// The program's INI files by native path, each parsed once and parsed again only when it
// changed on disk. A file changed in the last seconds is compared byte for byte, because a
// rewrite of the same size within the clock's resolution keeps size and time. A read of a missing
// file gives nothing; a write creates the file (not its folder) and replaces it atomically, so that
// a crash never leaves half a file.
class IniFiles {
public:
    std::optional<QString> read(const QString& path, const QString& section, const QString& key);
    bool write(const QString& path, const QString& section, const QString& key,
               const QString& value);
    bool removeKey(const QString& path, const QString& section, const QString& key);
    bool removeSection(const QString& path, const QString& section);
    QStringList sections(const QString& path);
    QStringList keys(const QString& path, const QString& section);
    // The file as it is on disk now, for many reads after one look at the file; null when it does
    // not exist. Valid until the next call on this object.
    const IniDocument* document(const QString& path);

private:
    struct Entry {
        IniDocument document;
        QByteArray bytes; // the file as last read or written
        QDateTime modified;
        qint64 size = -1;
    };
    // The document of a file as it is on disk now; null when the file does not exist.
    Entry* load(const QString& path);
    bool store(const QString& path, Entry& entry);

    QHash<QString, Entry> m_cache;
};

} // namespace tk
