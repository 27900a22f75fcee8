#include "ByteCase.h"

namespace tk {

namespace {

constexpr ByteCase::Tables maakTabellen() {
    ByteCase::Tables t{};
    for (int b = 0; b < 256; ++b)
        t.lower[b] = t.upper[b] = std::uint8_t(b);
    auto paar = [&t](int groot, int klein) {
        t.lower[groot] = std::uint8_t(klein);
        t.upper[klein] = std::uint8_t(groot);
    };
    for (int b = 'A'; b <= 'Z'; ++b)
        paar(b, b + 32);
    for (int b = 0xC0; b <= 0xDE; ++b)
        if (b != 0xD7) // the multiplication sign has no lower case
            paar(b, b + 32);
    paar(0x8A, 0x9A); // S caron
    paar(0x8C, 0x9C); // OE
    paar(0x8E, 0x9E); // Z caron
    paar(0x9F, 0xFF); // Y diaeresis
    return t;
}

constexpr ByteCase::Tables tabellen = maakTabellen();

} // namespace

const ByteCase::Tables& ByteCase::tables() {
    return tabellen;
}

} // namespace tk
