// The .desktop reader: the Icon value of any entry text, and the look-up of that value in an
// icon folder that holds one real icon.
#include "FuzzSupport.h"
#include "controls/DesktopEntryIcon.h"

#include <QDir>
#include <QFile>

using namespace tk;

namespace {
QString iconFolder() {
    static QString folder;
    if (folder.isEmpty()) {
        folder = fuzz::scratch().filePath(QStringLiteral("share"));
        QDir().mkpath(folder + QStringLiteral("/icons/hicolor/32x32/apps"));
        QDir().mkpath(folder + QStringLiteral("/pixmaps"));
        QFile f(folder + QStringLiteral("/icons/hicolor/32x32/apps/rekenen.png"));
        if (f.open(QIODevice::WriteOnly))
            f.write("not a picture");
    }
    return folder;
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::startQt();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString value = DesktopEntryIcon::iconValue(fuzz::bytes(data, size));
    if (!value.isEmpty()) {
        const QString file = DesktopEntryIcon::findIcon(value, 32, {iconFolder()});
        fuzz::require(file.isEmpty() || QFile::exists(file));
    }
    return 0;
}
