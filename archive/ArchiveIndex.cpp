#include "ArchiveIndex.h"

#include <QtEndian>

namespace tk {

namespace {

qint32 readInt32(const char* at) {
    return qFromLittleEndian<qint32>(at);
}

qint16 readInt16(const char* at) {
    return qFromLittleEndian<qint16>(at);
}

} // namespace

ArchiveIndex::Result ArchiveIndex::parse(QByteArrayView bytes) {
    Result result;
    const qint64 total = bytes.size();
    if (total < 4) {
        result.error =
            QStringLiteral("archive of %1 bytes is too short for its entry count").arg(total);
        return result;
    }
    const qint32 count = readInt32(bytes.data());
    if (count < 0) {
        result.error = QStringLiteral("negative entry count %1").arg(count);
        return result;
    }
    // Every entry takes at least six bytes: a count the bytes cannot hold is refused before
    // anything is reserved for it.
    if (count > (total - 4) / 6) {
        result.error = QStringLiteral("entry count %1 does not fit in the %2 bytes that follow")
                           .arg(count)
                           .arg(total - 4);
        return result;
    }
    result.entries.reserve(count);
    qint64 at = 4;
    for (qint32 i = 0; i < count; ++i) {
        if (total - at < 2) {
            result.error = QStringLiteral("entry %1 of %2: truncated before its name length")
                               .arg(i + 1)
                               .arg(count);
            return result;
        }
        const qint16 nameLength = readInt16(bytes.data() + at);
        at += 2;
        if (nameLength < 0) {
            result.error = QStringLiteral("entry %1 of %2: negative name length %3")
                               .arg(i + 1)
                               .arg(count)
                               .arg(nameLength);
            return result;
        }
        if (total - at < qint64(nameLength) + 4) {
            result.error =
                QStringLiteral("entry %1 of %2: truncated in its name").arg(i + 1).arg(count);
            return result;
        }
        Entry entry;
        entry.name = bytes.sliced(at, nameLength).toByteArray();
        at += nameLength;
        const qint32 size = readInt32(bytes.data() + at);
        at += 4;
        if (size < 0) {
            result.error = QStringLiteral("entry %1 of %2: negative content length %3")
                               .arg(i + 1)
                               .arg(count)
                               .arg(size);
            return result;
        }
        if (total - at < size) {
            result.error = QStringLiteral("entry %1 of %2: content of %3 bytes, only %4 left")
                               .arg(i + 1)
                               .arg(count)
                               .arg(size)
                               .arg(total - at);
            return result;
        }
        entry.offset = at;
        entry.size = size;
        at += size;
        result.entries.append(std::move(entry));
    }
    return result;
}

QString ArchiveIndex::unsafeName(QByteArrayView name) {
    if (name.isEmpty())
        return QStringLiteral("empty name");
    if (name.contains('\0'))
        return QStringLiteral("name holds a NUL byte");
    const char first = name.front();
    if (first == '\\' || first == '/')
        return QStringLiteral("absolute name");
    if (name.size() >= 2 && name.at(1) == ':')
        return QStringLiteral("name with a drive letter");
    const char last = name.back();
    if (last == '\\' || last == '/')
        return QStringLiteral("name of a folder");
    qsizetype start = 0;
    while (start <= name.size()) {
        qsizetype end = start;
        while (end < name.size() && name.at(end) != '\\' && name.at(end) != '/')
            ++end;
        const QByteArrayView part = name.sliced(start, end - start);
        if (part == "..")
            return QStringLiteral("name climbs out of the target folder");
        if (part.contains(':'))
            return QStringLiteral("name with a colon in a part");
        start = end + 1;
    }
    return QString();
}

} // namespace tk
