#include "FilterPage.h"

#include "BrowserPane.h"

namespace tk {

FilterPage::FilterPage(QWebEngineProfile* profiel, BrowserPane& pane, int slot)
    : QWebEnginePage(profiel), m_pane(pane), m_slot(slot) {
    connect(this, &QWebEnginePage::windowCloseRequested, this, [this] { m_pane.SluitTab(m_slot); });
    // Scripts cannot move or resize the pane: geometry requests are not connected to anything.
}

bool FilterPage::acceptNavigationRequest(const QUrl& url, NavigationType, bool mainFrame) {
    return m_pane.adresToets(m_slot, url, mainFrame);
}

QWebEnginePage* FilterPage::createWindow(WebWindowType) {
    return m_pane.nieuwVenster(m_slot);
}

} // namespace tk
