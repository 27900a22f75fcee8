#pragma once

#include "filter/FilterSettings.h"
#include "filter/PageFilter.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace tk {

// What the internet pane takes from the desktop that opens it: the filter made at login with the
// owner's settings, the folder that holds Internetfilter/, the home page, the texts of the
// string table and the way to show a message.
struct BrowserOmgeving {
    PageFilter filter;
    FilterSettings instellingen;
    QString programmaMap;
    QString thuispagina; // empty: about:blank
    // The active favourites: address and name of each.
    QList<QStringList> favorieten;
    std::function<QString(int)> tekst;
    std::function<void(const QString&)> meld;
};

} // namespace tk
