#include "DesktopEntryIcon.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace tk {

QStringList DesktopEntryIcon::defaultDataFolders() {
    return {QStringLiteral("/usr/local/share"), QStringLiteral("/usr/share")};
}

QString DesktopEntryIcon::iconValue(const QByteArray& entryText) {
    bool inEntry = false;
    for (QByteArray line : entryText.split('\n')) {
        line = line.trimmed();
        if (line.startsWith('[')) {
            inEntry = line == "[Desktop Entry]";
            continue;
        }
        if (!inEntry || !line.startsWith("Icon"))
            continue;
        const qsizetype eq = line.indexOf('=');
        if (eq < 0 || line.left(eq).trimmed() != "Icon")
            continue;
        return QString::fromUtf8(line.mid(eq + 1).trimmed());
    }
    return QString();
}

QString DesktopEntryIcon::findIcon(const QString& value, int side, const QStringList& dataFolders) {
    if (value.isEmpty())
        return QString();
    if (value.startsWith(QLatin1Char('/')))
        return QFileInfo(value).isFile() ? value : QString();
    if (value.contains(QLatin1Char('/')))
        return QString();
    // Sizes at or above the wanted one first (smallest first), then smaller ones, then vectors.
    const int sizes[] = {16, 22, 24, 32, 48, 64, 96, 128, 256, 512};
    QList<int> order;
    for (int s : sizes)
        if (s >= side)
            order.append(s);
    for (int i = int(std::size(sizes)) - 1; i >= 0; --i)
        if (sizes[i] < side)
            order.append(sizes[i]);
    const QStringList extensions = {QStringLiteral(".png"), QStringLiteral(".svg"),
                                    QStringLiteral(".xpm")};
    for (const QString& data : dataFolders) {
        const QString theme = data + QStringLiteral("/icons/hicolor/");
        for (int s : order) {
            for (const QString& ext : extensions) {
                const QString path = theme + QStringLiteral("%1x%1/apps/").arg(s) + value + ext;
                if (QFileInfo(path).isFile())
                    return path;
            }
        }
        const QString scalable =
            theme + QStringLiteral("scalable/apps/") + value + QStringLiteral(".svg");
        if (QFileInfo(scalable).isFile())
            return scalable;
        for (const QString& ext : extensions) {
            const QString path = data + QStringLiteral("/pixmaps/") + value + ext;
            if (QFileInfo(path).isFile())
                return path;
        }
    }
    return QString();
}

QImage DesktopEntryIcon::load(const QString& desktopFile, int side,
                              const QStringList& dataFolders) {
    QFile file(desktopFile);
    if (!file.open(QIODevice::ReadOnly) || file.size() > 1024 * 1024)
        return QImage();
    const QString path = findIcon(iconValue(file.readAll()), side, dataFolders);
    if (path.isEmpty())
        return QImage();
    QImageReader reader(path);
    const QSize size = reader.size();
    if (size.isValid() && (size.width() > 4096 || size.height() > 4096))
        return QImage();
    reader.setScaledSize(QSize(side, side));
    const QImage image = reader.read();
    return image.isNull() ? QImage() : image.convertToFormat(QImage::Format_ARGB32);
}

} // namespace tk
