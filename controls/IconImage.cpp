#include "IconImage.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

namespace tk {

namespace {

quint32 u32(const char* at) {
    return qFromLittleEndian<quint32>(at);
}
quint16 u16(const char* at) {
    return qFromLittleEndian<quint16>(at);
}

QImage fail(QString* error, const QString& reason) {
    if (error)
        *error = reason;
    return QImage();
}

} // namespace

QImage IconImage::decode(QByteArrayView bytes, QString* error) {
    if (bytes.size() >= 8 && bytes.first(8) == QByteArrayView("\x89PNG\r\n\x1a\n", 8)) {
        // Width and height stand in the header chunk; a picture larger than any icon is
        // refused before it is unpacked.
        if (bytes.size() < 24)
            return fail(error, QStringLiteral("PNG image too short"));
        const quint32 w = qFromBigEndian<quint32>(bytes.data() + 16);
        const quint32 h = qFromBigEndian<quint32>(bytes.data() + 20);
        if (w == 0 || h == 0 || w > MaxSide || h > MaxSide)
            return fail(error, QStringLiteral("PNG image of %1 by %2").arg(w).arg(h));
        QByteArray copy = bytes.toByteArray();
        QBuffer buffer(&copy);
        QImageReader reader(&buffer, "png");
        QImage image = reader.read();
        if (image.isNull())
            return fail(error,
                        QStringLiteral("PNG image unreadable: %1").arg(reader.errorString()));
        return image.convertToFormat(QImage::Format_ARGB32);
    }
    if (bytes.size() < 40)
        return fail(error, QStringLiteral("bitmap header too short"));
    const char* d = bytes.data();
    const quint32 headerSize = u32(d);
    const qint32 width = qint32(u32(d + 4));
    const qint32 doubleHeight = qint32(u32(d + 8));
    const quint16 bitCount = u16(d + 14);
    const quint32 compression = u32(d + 16);
    const quint32 coloursUsed = u32(d + 32);
    if (headerSize < 40 || headerSize > quint32(bytes.size()))
        return fail(error, QStringLiteral("bitmap header size %1").arg(headerSize));
    if (width <= 0 || width > MaxSide || doubleHeight <= 0 || doubleHeight > 2 * MaxSide)
        return fail(error, QStringLiteral("bitmap of %1 by %2").arg(width).arg(doubleHeight));
    if (bitCount != 1 && bitCount != 4 && bitCount != 8 && bitCount != 16 && bitCount != 24 &&
        bitCount != 32)
        return fail(error, QStringLiteral("bitmap depth %1").arg(bitCount));
    if (compression != 0 && !(compression == 3 && (bitCount == 16 || bitCount == 32)))
        return fail(error, QStringLiteral("bitmap compression %1").arg(compression));
    // An icon image counts its colour and mask halves in its height; a bitmap that holds
    // no mask gets an empty one.
    const int height = doubleHeight >= 2 ? doubleHeight / 2 : doubleHeight;

    qint64 at = headerSize;
    if (compression == 3 && headerSize == 40)
        at += 12; // the three colour masks follow the header
    QList<QRgb> palette;
    if (bitCount <= 8) {
        const quint32 count = coloursUsed == 0 ? (1u << bitCount) : coloursUsed;
        if (count > 256 || bytes.size() - at < qint64(count) * 4)
            return fail(error, QStringLiteral("bitmap palette of %1 colours").arg(count));
        for (quint32 i = 0; i < count; ++i) {
            const uchar* e = reinterpret_cast<const uchar*>(d + at + i * 4);
            palette.append(qRgb(e[2], e[1], e[0]));
        }
        at += qint64(count) * 4;
    }
    const qint64 colourStride = ((qint64(width) * bitCount + 31) / 32) * 4;
    const qint64 maskStride = ((qint64(width) + 31) / 32) * 4;
    if (bytes.size() - at < colourStride * height)
        return fail(error, QStringLiteral("bitmap rows cut short"));
    const char* colours = d + at;
    at += colourStride * height;
    const bool hasMask = bytes.size() - at >= maskStride * height;
    const char* mask = hasMask ? d + at : nullptr;

    QImage image(width, height, QImage::Format_ARGB32);
    if (image.isNull())
        return fail(error, QStringLiteral("out of memory"));
    bool anyAlpha = false;
    for (int y = 0; y < height; ++y) {
        const uchar* row =
            reinterpret_cast<const uchar*>(colours + (height - 1 - y) * colourStride);
        QRgb* out = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            QRgb pixel = 0;
            switch (bitCount) {
            case 1:
            case 4:
            case 8: {
                const int perByte = 8 / bitCount;
                const int shift = 8 - bitCount * (x % perByte + 1);
                const int index = (row[x / perByte] >> shift) & ((1 << bitCount) - 1);
                pixel = index < palette.size() ? palette.at(index) : qRgb(0, 0, 0);
                break;
            }
            case 16: {
                const quint16 v = quint16(row[x * 2] | row[x * 2 + 1] << 8);
                pixel = qRgb(((v >> 10) & 31) * 255 / 31, ((v >> 5) & 31) * 255 / 31,
                             (v & 31) * 255 / 31);
                break;
            }
            case 24:
                pixel = qRgb(row[x * 3 + 2], row[x * 3 + 1], row[x * 3]);
                break;
            case 32:
                pixel = qRgba(row[x * 4 + 2], row[x * 4 + 1], row[x * 4], row[x * 4 + 3]);
                anyAlpha = anyAlpha || row[x * 4 + 3] != 0;
                break;
            }
            out[x] = bitCount == 32 ? pixel : (pixel | 0xff000000u);
        }
    }
    // The AND mask makes a pixel clear, unless the colours carry their own alpha.
    if (mask && !(bitCount == 32 && anyAlpha)) {
        for (int y = 0; y < height; ++y) {
            const uchar* row = reinterpret_cast<const uchar*>(mask + (height - 1 - y) * maskStride);
            QRgb* out = reinterpret_cast<QRgb*>(image.scanLine(y));
            for (int x = 0; x < width; ++x) {
                const bool clear = (row[x / 8] >> (7 - x % 8)) & 1;
                out[x] = clear ? 0u : (out[x] | 0xff000000u);
            }
        }
    } else if (bitCount == 32 && !anyAlpha) {
        for (int y = 0; y < height; ++y) {
            QRgb* out = reinterpret_cast<QRgb*>(image.scanLine(y));
            for (int x = 0; x < width; ++x)
                out[x] |= 0xff000000u;
        }
    }
    return image;
}

QByteArray IconImage::encodeBitmap(const QImage& source) {
    const QImage image = source.convertToFormat(QImage::Format_ARGB32);
    const int w = image.width(), h = image.height();
    const int maskStride = ((w + 31) / 32) * 4;
    QByteArray out(40, '\0');
    char* d = out.data();
    qToLittleEndian<quint32>(40, d);
    qToLittleEndian<qint32>(w, d + 4);
    qToLittleEndian<qint32>(h * 2, d + 8);
    qToLittleEndian<quint16>(1, d + 12);
    qToLittleEndian<quint16>(32, d + 14);
    qToLittleEndian<quint32>(quint32(w * h * 4 + maskStride * h), d + 20);
    for (int y = h - 1; y >= 0; --y) {
        const QRgb* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < w; ++x) {
            const char px[4] = {char(qBlue(row[x])), char(qGreen(row[x])), char(qRed(row[x])),
                                char(qAlpha(row[x]))};
            out.append(px, 4);
        }
    }
    for (int y = h - 1; y >= 0; --y) {
        const QRgb* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        QByteArray maskRow(maskStride, '\0');
        for (int x = 0; x < w; ++x)
            if (qAlpha(row[x]) < 128)
                maskRow[x / 8] = char(maskRow[x / 8] | (0x80 >> (x % 8)));
        out += maskRow;
    }
    return out;
}

} // namespace tk
