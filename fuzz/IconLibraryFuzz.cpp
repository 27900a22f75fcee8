// The icon library: an icon file, a PE or an NE library, told by its bytes; every icon found is
// drawn at two sizes.
#include "FuzzSupport.h"
#include "controls/IconLibrary.h"

using namespace tk;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::startQt();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes = fuzz::bytes(data, size);
    const IconLibrary::Result result = IconLibrary::parse(bytes);
    fuzz::require(result.error.isEmpty() || result.icons.isEmpty());
    int drawn = 0;
    for (const IconLibrary::Icon& icon : result.icons) {
        for (const IconLibrary::Image& image : icon.images)
            fuzz::require(image.data.size() <= bytes.size());
        if (drawn++ < 8) {
            const QImage small = IconLibrary::render(icon, 16);
            const QImage large = IconLibrary::render(icon, 48);
            fuzz::require(small.isNull() || small.size() == QSize(16, 16));
            fuzz::require(large.isNull() || large.size() == QSize(48, 48));
        }
    }
    return 0;
}
