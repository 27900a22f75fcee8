#pragma once

#include "BrowserFabriek.h"

#include <QObject>

namespace tk {

// The plugin's entry: makes BrowserPanes.
class BrowserPlugin : public QObject, public BrowserFabriek {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID TK_BROWSERFABRIEK_IID)
    Q_INTERFACES(tk::BrowserFabriek)

public:
    QWidget* maakPane(BrowserOmgeving omgeving, QWidget* parent) override;
};

} // namespace tk
