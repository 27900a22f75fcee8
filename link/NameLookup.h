#pragma once

#include <QString>

namespace tk {

// The name of a class or teacher by its ID, for the location text the link sends: ("GROEP", id)
// or ("LERAAR", id). The data layer holds the tables and implements it.
class NameLookup {
public:
    virtual ~NameLookup() = default;
    virtual QString naamVan(const QString& soort, const QString& id) const = 0;
};

} // namespace tk
