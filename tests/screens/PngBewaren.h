#pragma once

#include <QDir>
#include <QImage>
#include <QString>

namespace tk::test {

// Keeps a rendered view as a PNG in the folder TK_TEST_PNG_DIR names, so that a developer can
// look at what a test drew; does nothing when the variable is not set.
inline void bewaarPng(const QImage& beeld, const QString& naam) {
    const QString map = qEnvironmentVariable("TK_TEST_PNG_DIR");
    if (map.isEmpty())
        return;
    QDir().mkpath(map);
    beeld.save(QDir(map).filePath(naam + QStringLiteral(".png")));
}

} // namespace tk::test
