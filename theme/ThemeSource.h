#pragma once

#include <QString>

namespace tk {

// Where a theme's keys and files come from. Paths are in the program's form
// ("\Afbeeldingen\Skins\1\Knoppen\1a.jpg"); `path` gives the native path a picture is loaded from.
// ThemeFolder reads the program folder on disk; a test or fuzz target can hold a theme in memory.
class ThemeSource {
public:
    virtual ~ThemeSource() = default;
    // A key of an INI file, as the settings helper reads it (empty when absent).
    virtual QString read(const QString& iniFile, const QString& section,
                         const QString& key) const = 0;
    // The native path of a file, matched without regard to case, whether it exists or not.
    virtual QString path(const QString& file) const = 0;
    virtual bool isFile(const QString& nativePath) const = 0;
    // How many files of a native folder have names ending in `suffix`, without regard to case.
    virtual qsizetype countFiles(const QString& nativeFolder, const QString& suffix) const = 0;
};

} // namespace tk
