#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

namespace tk {

// The table of contents of a packed folder, read from the archive's bytes without copying the
// contents. The layout, little-endian, with no magic number, padding or index of its own:
//
//   int32 count, then `count` entries of
//     int16 name length, the name (Windows-1252, backslashes, no terminator),
//     int32 content length, the content.
//
// parse() is a pure function of the bytes, so that a fuzzer can call it directly: it never
// throws, never reads outside the view, and never allocates more than the bytes can describe.
class ArchiveIndex {
public:
    struct Entry {
        QByteArray name;   // as stored, Windows-1252
        qint64 offset = 0; // of the content, from the start of the archive
        qint64 size = 0;
    };
    struct Result {
        QList<Entry> entries;
        QString error; // empty when the whole archive was read
        bool ok() const { return error.isEmpty(); }
    };

    static Result parse(QByteArrayView bytes);

    // Why an entry's name may not be written below a target folder, or empty when it may: an
    // empty name, an absolute name, a drive letter, a ".." part, a NUL or a name that ends in
    // a separator.
    static QString unsafeName(QByteArrayView name);
};

} // namespace tk
