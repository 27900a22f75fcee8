#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

namespace tk::server {

// The text steps of the wire: bytes are Windows-1252, fields are split the way the client
// splits them (every empty part kept), dates are written the way the client reads them.
class WireText {
public:
    static QString fromBytes(const QByteArray& bytes);
    static QByteArray toBytes(const QString& text);
    static QStringList split(const QString& text, const QString& separator);
    // "d-m-yyyy hh:nn", the form of the icon change dates.
    static QString date(const QDateTime& moment);
    // A decimal number of the wire ("12"); false for anything else, signs and blanks included.
    static bool number(const QString& text, qint64* value);
    // True for "JA" in any case, the way the client tests a boolean field.
    static bool yes(const QString& text);
};

} // namespace tk::server
