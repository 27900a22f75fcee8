#include "PathResolver.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace tk {

QString PathResolver::resolve(const QString& programFolder, const QString& path) {
    if (path.startsWith(QLatin1Char('/')))
        return path;
    QString relative = path;
    relative.replace(QLatin1Char('\\'), QLatin1Char('/'));
    const QStringList parts = relative.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    QString current = programFolder;
    bool onDisk = true;
    for (const QString& part : parts) {
        if (part == u".")
            continue;
        if (part == u"..") {
            current = QFileInfo(current).path();
            continue;
        }
        const QString exact = current + QLatin1Char('/') + part;
        if (!onDisk || QFileInfo::exists(exact)) {
            current = exact;
            continue;
        }
        const QStringList entries = QDir(current).entryList(QDir::AllEntries | QDir::Hidden |
                                                            QDir::System | QDir::NoDotAndDotDot);
        QString match;
        for (const QString& entry : entries) {
            if (entry.compare(part, Qt::CaseInsensitive) == 0) {
                match = entry;
                break;
            }
        }
        if (match.isEmpty()) {
            onDisk = false;
            current = exact;
        } else {
            current += QLatin1Char('/') + match;
        }
    }
    return current;
}

} // namespace tk
