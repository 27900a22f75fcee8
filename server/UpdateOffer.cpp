#include "UpdateOffer.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace tk::server {

QString UpdateOffer::versionOf(const QString& fileName) {
    static const QRegularExpression form(
        QStringLiteral("^(\\d{1,5})\\.(\\d{1,5})\\.(\\d{1,5})(\\.[A-Za-z0-9]+)?$"));
    const auto match = form.match(fileName);
    if (!match.hasMatch())
        return QString();
    for (int i = 1; i <= 3; ++i)
        if (match.captured(i).toInt() > 32767) // the client reads each part as a 16-bit number
            return QString();
    return QStringLiteral("%1.%2.%3")
        .arg(match.captured(1).toInt())
        .arg(match.captured(2).toInt())
        .arg(match.captured(3).toInt());
}

int UpdateOffer::compare(const QString& a, const QString& b) {
    const QStringList x = a.split(QLatin1Char('.'));
    const QStringList y = b.split(QLatin1Char('.'));
    for (int i = 0; i < 3; ++i) {
        const int d = x.value(i).toInt() - y.value(i).toInt();
        if (d != 0)
            return d;
    }
    return 0;
}

std::optional<UpdateOffer::Package> UpdateOffer::highest(const QString& folder) const {
    if (m_folder.isEmpty())
        return std::nullopt;
    std::optional<Package> best;
    for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files, QDir::Name)) {
        const QString version = versionOf(file.fileName());
        // An empty package is never offered: the client would wait for its bytes for ever.
        if (version.isEmpty() || file.size() == 0)
            continue;
        if (!best || compare(version, best->version) > 0)
            best = Package{version, file.fileName(), file.absoluteFilePath(), file.size()};
    }
    return best;
}

std::optional<UpdateOffer::Package> UpdateOffer::client() const {
    return highest(m_folder);
}

std::optional<UpdateOffer::Package> UpdateOffer::server() const {
    return highest(QDir(m_folder).filePath(QStringLiteral("server")));
}

} // namespace tk::server
