#pragma once

#include "data/Favorieten.h"
#include "filter/FilterSettings.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tk {

// What the internet pane takes from an owner's favourites: the filter's settings, the home page,
// the rows of the favourites tree (the active favourites, at most 100) and whether the filter's
// proxy holds the other programs of the session.
struct BrowserFavorieten {
    FilterSettings instellingen;
    // The home button's page: with the header's Thuispagina on, the first active favourite marked
    // as start page (third value "Ja"), or the first active one when none is marked, as the
    // maintenance module marks the first favourite of a list; otherwise the school's default
    // start page; empty means about:blank.
    QString thuispagina;
    // The tree's rows: address and name; a row's number is its key "index=<row>".
    QList<QStringList> lijst;
    // The header's fourth value is "Ja": tmrProxy switches the proxy on after the pane opened.
    bool proxy = false;

    // `standaardStartpagina`: the start page of the school's settings (the first of Overige).
    static BrowserFavorieten uit(const Favorieten& f, const QString& standaardStartpagina = {});
};

} // namespace tk
