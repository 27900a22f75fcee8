#pragma once

#include <QStringList>

namespace tk {

// What the favourites' header and list of the owner set for the filter (see Favorieten).
struct FilterSettings {
    bool Filteren = false;  // the word and "url>" checks are on
    int Internetmodus = 0;  // 0 free surfing, 1 favourites only
    QStringList Favorieten; // the addresses (column 0) of the active favourites
};

} // namespace tk
