// The theme keys: a theme's Instellingen.ini read through every typed reader, for every key the
// file holds and for the keys with rules of their own. A reader gives a value or a fault
// (tk::Fout); positions and colours stay in their ranges. The theme is held in memory (the
// settings file as the settings helper decodes it, and a few pictures), so that a run measures
// the readers and not the disk.
#include "FuzzSupport.h"
#include "MemoryTheme.h"
#include "core/Fout.h"
#include "platform/TextFile.h"
#include "theme/ThemeKeys.h"

#include <cstdlib>
#include <memory>

using namespace tk;

namespace {

const QString themaMap = QStringLiteral("\\Afbeeldingen\\Skins\\1\\");

std::shared_ptr<fuzz::MemoryTheme> theme() {
    static const auto t = [] {
        auto made = std::make_shared<fuzz::MemoryTheme>();
        for (const char* name : {"Knoppen\\1a.jpg", "Knoppen\\1b.jpg", "Knoppen\\2a.jpg",
                                 "Achtergronden\\Bureaublad.jpg", "Achtergronden\\Zee.JPG"})
            made->addFile(themaMap + QLatin1String(name));
        return made;
    }();
    return t;
}

template <class F> void guarded(F&& read) {
    try {
        read();
    } catch (const Fout&) {
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::shared_ptr<fuzz::MemoryTheme> source = theme();
    source->settings = IniDocument::parse(TextFile::decode(fuzz::bytes(data, size)));
    const ThemeKeys keys(source, themaMap);
    // Every reader on the first keys: a key further down takes the same paths through the readers,
    // and a run that reads every key of a large file reads a few hundred a second.
    int budget = 16;
    for (const QString& section : source->settings.sections()) {
        for (const QString& key : source->settings.keys(section)) {
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
            guarded([&] { (void)keys.picture(section, key); });
            (void)keys.pictureIfExists(section, key);
            (void)keys.toolbarPicture(key);
            (void)keys.classButtonPictures(value);
            (void)keys.desktopBackground(value);
        }
    }
    guarded([&] { (void)keys.iconShadowColour(); });
    (void)keys.wallpaper();
    for (int item = 0; item < 7; ++item)
        (void)keys.maintenanceMenuPicture(item);
    fuzz::require(keys.buttonColourNames().size() <= 2);
    guarded([&] { (void)keys.colourPair(QStringLiteral("Taakbalk"), QStringLiteral("Knop")); });
    return 0;
}
