// The theme keys: a theme's Instellingen.ini read through every typed reader, for every key the
// file holds and for the keys with rules of their own. A reader gives a value or a fault
// (tk::Fout); positions and colours stay in their ranges.
#include "FuzzWorkstation.h"
#include "core/Fout.h"
#include "theme/ThemeKeys.h"

#include <QDateTime>
#include <QFile>
#include <cstdlib>

using namespace tk;

namespace {

fuzz::FuzzWorkstation& werkplek() {
    static fuzz::FuzzWorkstation w;
    return w;
}

template <class F> void guarded(F&& read) {
    try {
        read();
    } catch (const Fout&) {
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::startQt();
    const QString theme = werkplek().folder() + QStringLiteral("/Afbeeldingen/Skins/1");
    QDir().mkpath(theme + QStringLiteral("/Knoppen"));
    QDir().mkpath(theme + QStringLiteral("/Achtergronden"));
    for (const char* name : {"Knoppen/1a.jpg", "Knoppen/1b.jpg", "Knoppen/2a.jpg",
                             "Achtergronden/Bureaublad.jpg", "Achtergronden/Zee.JPG"}) {
        QFile f(theme + QLatin1Char('/') + QLatin1String(name));
        if (f.open(QIODevice::WriteOnly))
            f.write("jpg");
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::FuzzWorkstation& w = werkplek();
    const QByteArray text = fuzz::bytes(data, size);
    {
        QFile f(w.folder() + QStringLiteral("/Afbeeldingen/Skins/1/Instellingen.ini"));
        if (!f.open(QIODevice::WriteOnly) || f.write(text) != text.size())
            return 0;
        // A time of its own, in the past: the settings reader sees a new file and then keeps it
        // instead of comparing the bytes again at every read of a key.
        static qint64 run = 0;
        f.setFileTime(QDateTime::fromSecsSinceEpoch(1'000'000'000 + ++run),
                      QFileDevice::FileModificationTime);
    }
    const ThemeKeys keys(w.p, QStringLiteral("\\Afbeeldingen\\Skins\\1\\"));
    const QString file = keys.settingsFile();
    // Every read resolves the path and looks at the file: a bounded number of keys keeps a run
    // fast, and only the first few go through the readers that look for pictures.
    int budget = 24;
    for (const QString& section : w.p.iniFiles.sections(w.p.modMain.Pad(file))) {
        for (const QString& key : w.p.iniFiles.keys(w.p.modMain.Pad(file), section)) {
            if (--budget < 0)
                break;
            const QString value = keys.text(section, key);
            fuzz::require(value.size() <= 4999);
            (void)ThemeKeys::parseNumber(value, -32768, 32767);
            guarded([&] {
                const RgbColour c = keys.colour(section, key);
                fuzz::require(c.r >= 0 && c.r <= 255 && c.g >= 0 && c.g <= 255 && c.b >= 0 &&
                              c.b <= 255);
            });
            guarded([&] { (void)keys.colourOr(section, key, {1, 2, 3}); });
            guarded([&] {
                const QPoint place = keys.position(section, key);
                fuzz::require(std::abs(place.x()) <= ThemeKeys::maxPosition &&
                              std::abs(place.y()) <= ThemeKeys::maxPosition);
            });
            (void)keys.yes(section, key);
            (void)keys.notNo(section, key);
            if (budget < 20)
                continue;
            guarded([&] { (void)keys.picture(section, key); });
            (void)keys.pictureIfExists(section, key);
            (void)keys.toolbarPicture(key);
            (void)keys.classButtonPictures(value);
            (void)keys.desktopBackground(value);
        }
    }
    (void)keys.iconShadowColour();
    (void)keys.wallpaper();
    for (int item = 0; item < 7; ++item)
        (void)keys.maintenanceMenuPicture(item);
    (void)keys.buttonColourNames();
    guarded([&] { (void)keys.colourPair(QStringLiteral("Taakbalk"), QStringLiteral("Knop")); });
    return 0;
}
