#pragma once

#include "BrowserOmgeving.h"

#include <QtPlugin>

class QWidget;

namespace tk {

// What the browser plugin offers the client: the internet pane of a desktop. The pane and the web
// engine under it live in the plugin, so that a client that never opens the browser never loads
// the engine (BrowserLader loads the plugin at the first opening).
class BrowserFabriek {
public:
    virtual ~BrowserFabriek() = default;
    // A new pane over `parent`, owned by the caller, with one tab open.
    virtual QWidget* maakPane(BrowserOmgeving omgeving, QWidget* parent) = 0;
};

} // namespace tk

// Client and plugin are built together from one tree: the number goes up whenever BrowserFabriek
// or BrowserOmgeving change, so that a stale plugin is refused instead of misread.
#define TK_BROWSERFABRIEK_IID "tafelkrater.BrowserFabriek/1"
Q_DECLARE_INTERFACE(tk::BrowserFabriek, TK_BROWSERFABRIEK_IID)
