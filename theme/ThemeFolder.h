#pragma once

#include "theme/ThemeSource.h"

namespace tk {

class Programma;

// A theme in the program folder on disk, read through the program's settings helper and path
// resolution.
class ThemeFolder : public ThemeSource {
public:
    explicit ThemeFolder(Programma& p) : p(p) {}
    QString read(const QString& iniFile, const QString& section, const QString& key) const override;
    QString path(const QString& file) const override;
    bool isFile(const QString& nativePath) const override;
    qsizetype countFiles(const QString& nativeFolder, const QString& suffix) const override;

private:
    Programma& p;
};

} // namespace tk
