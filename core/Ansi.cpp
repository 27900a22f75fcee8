#include "Ansi.h"

namespace tk {

namespace {

// Characters of the bytes 0x80-0x9F; the open places hold their own number.
constexpr char16_t hoog[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                               0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                               0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                               0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char naarByte(char16_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return char(c);
    for (int i = 0; i < 32; ++i)
        if (hoog[i] == c)
            return char(0x80 + i);
    return '?';
}

} // namespace

QByteArray Ansi::naarBytes(const QString& tekst) {
    QByteArray uit;
    uit.resize(tekst.size());
    char* d = uit.data();
    for (qsizetype i = 0; i < tekst.size(); ++i)
        d[i] = naarByte(tekst[i].unicode());
    return uit;
}

QString Ansi::naarTekst(const QByteArray& bytes) {
    QString uit;
    uit.resize(bytes.size());
    QChar* d = uit.data();
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const unsigned char b = static_cast<unsigned char>(bytes[i]);
        d[i] = (b >= 0x80 && b < 0xA0) ? QChar(hoog[b - 0x80]) : QChar(char16_t(b));
    }
    return uit;
}

QString Ansi::hoofdletters(const QString& tekst) {
    QString uit = tekst;
    for (QChar& c : uit) {
        const char16_t u = c.unicode();
        if (u < 0x80) {
            if (u >= 'a' && u <= 'z')
                c = QChar(u - 32);
        } else if (u == 0x0161 || u == 0x0153 || u == 0x017E) {
            c = QChar(u == 0x0161 ? 0x0160 : u == 0x0153 ? 0x0152 : 0x017D);
        } else if (u == 0x00FF) {
            c = QChar(0x0178);
        } else if (u >= 0xE0 && u <= 0xFE && u != 0xF7) {
            c = QChar(u - 32);
        }
    }
    return uit;
}

} // namespace tk
