#pragma once

#include "data/Favorieten.h"
#include "filter/FilterSettings.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tk {

// What the internet pane takes from an owner's favourites: the filter's settings, the home page
// and the rows of the favourites panel (the active favourites, at most 100).
struct BrowserFavorieten {
    FilterSettings instellingen;
    // With the header's Thuispagina on, the first active favourite; otherwise empty (the stored
    // home page, or about:blank).
    QString thuispagina;
    QList<QStringList> lijst; // address, name

    static BrowserFavorieten uit(const Favorieten& f);
};

} // namespace tk
