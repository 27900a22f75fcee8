#pragma once

#include <QImage>
#include <QList>
#include <QString>
#include <QStringList>

namespace tk {

// What an image list control holds: pictures under keys, in the order they were added.
struct ImageList {
    QStringList keys;
    QList<QImage> images;

    void Clear() {
        keys.clear();
        images.clear();
    }
    void Add(const QString& key, const QImage& image) {
        keys.append(key);
        images.append(image);
    }
    QImage image(const QString& key) const {
        const qsizetype i = keys.indexOf(key);
        return i < 0 ? QImage() : images.at(i);
    }
};

} // namespace tk
