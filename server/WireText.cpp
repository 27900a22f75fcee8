#include "WireText.h"

#include "core/Ansi.h"

namespace tk::server {

QString WireText::fromBytes(const QByteArray& bytes) {
    return tk::Ansi::naarTekst(bytes);
}

QByteArray WireText::toBytes(const QString& text) {
    return tk::Ansi::naarBytes(text);
}

QStringList WireText::split(const QString& text, const QString& separator) {
    return text.split(separator, Qt::KeepEmptyParts);
}

QString WireText::date(const QDateTime& moment) {
    return moment.toString(QStringLiteral("d-M-yyyy hh:mm"));
}

bool WireText::number(const QString& text, qint64* value) {
    if (text.isEmpty() || text.size() > 18)
        return false;
    for (const QChar c : text)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    *value = text.toLongLong();
    return true;
}

bool WireText::yes(const QString& text) {
    return text.compare(QStringLiteral("JA"), Qt::CaseInsensitive) == 0;
}

} // namespace tk::server
