#pragma once

#include <QByteArray>
#include <QString>

namespace tk {

// Reading and writing the program's text files (settings, registry store, log book).
class TextFile {
public:
    // The text of a file as read from disk: UTF-8 when it is valid UTF-8, else Windows-1252,
    // the code page of settings files written by the school's older tools.
    static QString decode(const QByteArray& bytes);
    // Replaces the file with `bytes` through a new file and a rename, so that a crash leaves
    // either the old or the new file, never half of one. The folder must exist.
    static bool replaceAtomically(const QString& path, const QByteArray& bytes);
};

} // namespace tk
