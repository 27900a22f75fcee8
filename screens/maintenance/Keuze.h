#pragma once

#include <QString>

namespace tk {

// An item of a list box in a maintenance panel: the text shown and the item's data (a locale id,
// a theme's folder). A field whose list has no data of its own keeps the text as its data.
struct Keuze {
    QString tekst, data;
    bool operator==(const Keuze&) const = default;
};

} // namespace tk
