#pragma once

#include "filter/FilterSettings.h"
#include "filter/PageFilter.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace tk {

// What the internet pane takes from the desktop that opens it: the filter made at login with the
// owner's settings, the folder that holds Internetfilter/, the home page, the favourites, the
// texts of the string table in the current language and the way to show a message.
struct BrowserOmgeving {
    PageFilter filter;
    FilterSettings instellingen;
    QString programmaMap;
    QString thuispagina; // empty: about:blank
    // The active favourites: address and name of each, in the order of the tree.
    QList<QStringList> favorieten;
    std::function<QString(int)> tekst;
    std::function<void(const QString&)> meld;
    // Where a page goes as a PDF file when there is no printer; empty: the documents folder.
    QString afdrukMap;
    // The owner's favourites hold the other programs behind the filter's proxy: tmrProxy calls
    // zetProxy once, after the pane opened its own session.
    bool proxy = false;
    std::function<void()> zetProxy;
};

} // namespace tk
