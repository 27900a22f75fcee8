#pragma once

#include <QByteArray>
#include <QString>

namespace tk {

// Windows-1252, the code page of the wire and of the cipher. Every byte has a character and
// back: the five bytes the code page leaves open map to the control characters of the same
// number, so that bytes survive a round trip through text. A character the code page lacks
// becomes "?".
class Ansi {
public:
    static QByteArray naarBytes(const QString& tekst);
    static QString naarTekst(const QByteArray& bytes);
    // Upper case as the code page defines it (the letters of 0x80-0xFF included).
    static QString hoofdletters(const QString& tekst);
};

} // namespace tk
