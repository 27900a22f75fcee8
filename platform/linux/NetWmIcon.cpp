#include "NetWmIcon.h"

#include <QPainter>

#include <cstdlib>
#include <cstring>

namespace tk {

namespace {

// Whether an image of w by h is nearer to size than the one chosen so far.
bool nearer(quint32 w, quint32 h, quint32 bestW, quint32 bestH, int size) {
    if (bestW == 0)
        return true;
    const qint64 side = qMax(w, h);
    const qint64 bestSide = qMax(bestW, bestH);
    const qint64 distance = std::llabs(side - size);
    const qint64 bestDistance = std::llabs(bestSide - size);
    return distance < bestDistance || (distance == bestDistance && side > bestSide);
}

} // namespace

QImage NetWmIcon::choose(const quint32* data, qsizetype count, int size) {
    if (!data || size <= 0)
        return {};
    const quint32* best = nullptr;
    quint32 bestW = 0;
    quint32 bestH = 0;
    qsizetype at = 0;
    while (count - at >= 2) {
        const quint32 w = data[at];
        const quint32 h = data[at + 1];
        // Both sides are below 2^32, so their product fits in 64 unsigned bits.
        const quint64 pixels = quint64(w) * quint64(h);
        if (w == 0 || h == 0 || pixels > quint64(count - at - 2))
            break;
        if (nearer(w, h, bestW, bestH, size)) {
            best = data + at + 2;
            bestW = w;
            bestH = h;
        }
        at += 2 + qsizetype(pixels);
    }
    if (!best)
        return {};

    QImage image(int(bestW), int(bestH), QImage::Format_ARGB32);
    if (image.isNull())
        return {};
    for (quint32 y = 0; y < bestH; ++y)
        std::memcpy(image.scanLine(int(y)), best + qsizetype(y) * bestW, bestW * sizeof(quint32));
    if (int(bestW) == size && int(bestH) == size)
        return image;

    const QImage scaled = image.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                              .convertToFormat(QImage::Format_ARGB32);
    if (scaled.width() == size && scaled.height() == size)
        return scaled;
    QImage square(size, size, QImage::Format_ARGB32);
    square.fill(Qt::transparent);
    QPainter painter(&square);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage((size - scaled.width()) / 2, (size - scaled.height()) / 2, scaled);
    painter.end();
    return square;
}

} // namespace tk
