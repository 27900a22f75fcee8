#include "TextFile.h"

#include <QFile>
#include <QStringConverter>
#include <QUuid>

#include <filesystem>
#include <system_error>

namespace tk {

QString TextFile::decode(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(bytes);
    if (!utf8.hasError())
        return text;
    QStringDecoder ansi("windows-1252");
    return ansi.decode(bytes);
}

bool TextFile::replaceAtomically(const QString& path, const QByteArray& bytes) {
    const QString temp = path + QStringLiteral(".") +
                         QUuid::createUuid().toString(QUuid::Id128).left(8) +
                         QStringLiteral(".tmp");
    {
        QFile out(temp);
        if (!out.open(QIODevice::WriteOnly))
            return false;
        if (out.write(bytes) != bytes.size()) {
            out.close();
            QFile::remove(temp);
            return false;
        }
    }
    std::error_code ec;
    std::filesystem::rename(std::filesystem::path(temp.toStdString()),
                            std::filesystem::path(path.toStdString()), ec);
    if (ec) {
        QFile::remove(temp);
        return false;
    }
    return true;
}

} // namespace tk
