#include "BrowserPlugin.h"

#include "BrowserPane.h"

namespace tk {

QWidget* BrowserPlugin::maakPane(BrowserOmgeving omgeving, QWidget* parent) {
    return new BrowserPane(std::move(omgeving), parent);
}

} // namespace tk
