#include "ThemeFolder.h"

#include "core/Programma.h"

#include <QDir>
#include <QFileInfo>

namespace tk {

QString ThemeFolder::read(const QString& iniFile, const QString& section,
                          const QString& key) const {
    return p.modMain.LeesIni(section, key, iniFile);
}

QString ThemeFolder::path(const QString& file) const {
    return p.modMain.Pad(file);
}

bool ThemeFolder::isFile(const QString& nativePath) const {
    return QFileInfo(nativePath).isFile();
}

qsizetype ThemeFolder::countFiles(const QString& nativeFolder, const QString& suffix) const {
    QDir folder(nativeFolder);
    folder.setNameFilters({QLatin1Char('*') + suffix});
    folder.setFilter(QDir::Files);
    return folder.entryList().size();
}

} // namespace tk
