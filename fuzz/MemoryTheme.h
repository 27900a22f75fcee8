#pragma once

#include "core/IniDocument.h"
#include "theme/ThemeSource.h"

#include <QSet>

namespace tk::fuzz {

// A theme held in memory: its settings file as one document (whatever file is asked for) and the
// names of the files it has, so that a read never touches the disk. A program path becomes a
// native path by turning its backslashes; names compare without regard to case.
class MemoryTheme : public ThemeSource {
public:
    IniDocument settings;
    QSet<QString> files; // lower-cased native paths

    void addFile(const QString& file) { files.insert(path(file).toLower()); }

    QString read(const QString&, const QString& section, const QString& key) const override {
        // The settings helper cuts a value at 4999 characters.
        return settings.value(section, key).value_or(QString()).left(4999);
    }
    QString path(const QString& file) const override {
        return QString(file).replace(QLatin1Char('\\'), QLatin1Char('/'));
    }
    bool isFile(const QString& nativePath) const override {
        return files.contains(nativePath.toLower());
    }
    qsizetype countFiles(const QString& nativeFolder, const QString& suffix) const override {
        const QString folder = nativeFolder.toLower() + QLatin1Char('/');
        qsizetype count = 0;
        for (const QString& f : files)
            count += f.startsWith(folder) && f.endsWith(suffix.toLower()) &&
                     !f.mid(folder.size()).contains(QLatin1Char('/'));
        return count;
    }
};

} // namespace tk::fuzz
