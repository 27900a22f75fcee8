#pragma once

#include <array>
#include <cstdint>

namespace tk {

// Lower and upper case of Windows-1252 bytes, and the filter's "letter" test, as tables: the
// filter compares every byte of a page through them.
class ByteCase {
public:
    static std::uint8_t lower(std::uint8_t b) { return tables().lower[b]; }
    static std::uint8_t upper(std::uint8_t b) { return tables().upper[b]; }
    // A neighbour stops a hit when its upper case has a code from `lowest` to 90: 66 on a page
    // ("A" is no letter there), 65 in an address. Accented letters upper-case above 90 and so
    // never count, as their codes say.
    static bool isLetter(std::uint8_t b, int lowest) {
        const int u = upper(b);
        return u >= lowest && u <= 90;
    }

    struct Tables {
        std::array<std::uint8_t, 256> lower;
        std::array<std::uint8_t, 256> upper;
    };
    static const Tables& tables();
};

} // namespace tk
