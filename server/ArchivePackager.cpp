#include "ArchivePackager.h"

#include "ServerLog.h"
#include "archive/UcArchief.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <exception>

namespace tk::server {

QByteArray ArchivePackager::pack(const QList<PackageEntry>& entries) const {
    QTemporaryDir folder;
    if (!folder.isValid()) {
        ServerLog::fault(QStringLiteral("package"), QStringLiteral("no temporary folder"));
        return QByteArray();
    }
    for (const PackageEntry& entry : entries) {
        QString name = entry.name;
        name.replace(QLatin1Char('\\'), QLatin1Char('/'));
        if (name.isEmpty() || name.startsWith(QLatin1Char('/')) ||
            name.split(QLatin1Char('/')).contains(QStringLiteral(".."))) {
            ServerLog::fault(QStringLiteral("package"),
                             QStringLiteral("an entry name \"%1\" left out").arg(entry.name));
            continue;
        }
        const QString path = folder.filePath(name);
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(entry.content) != entry.content.size()) {
            ServerLog::fault(QStringLiteral("package"), file.errorString());
            return QByteArray();
        }
    }
    return packFolder(folder.path());
}

QByteArray ArchivePackager::packFolder(const QString& folder) const {
    QTemporaryDir out;
    if (!out.isValid() || !QFileInfo(folder).isDir()) {
        ServerLog::fault(QStringLiteral("package"), QStringLiteral("no folder %1").arg(folder));
        return QByteArray();
    }
    const QString archive = out.filePath(QStringLiteral("package"));
    try {
        tk::UcArchief packer;
        packer.SaveFilesToArchiv(folder, archive, false);
    } catch (const std::exception& e) {
        ServerLog::fault(QStringLiteral("package"), QString::fromLocal8Bit(e.what()));
        return QByteArray();
    }
    QFile file(archive);
    if (!file.open(QIODevice::ReadOnly)) {
        ServerLog::fault(QStringLiteral("package"), file.errorString());
        return QByteArray();
    }
    return file.readAll();
}

} // namespace tk::server
