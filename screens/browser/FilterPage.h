#pragma once

#include <QWebEnginePage>

namespace tk {

class BrowserPane;

// The page of one tab: every navigation passes the pane's address check, a new window of the
// page becomes a tab of the pane, and a script's request to close the window closes the tab.
class FilterPage : public QWebEnginePage {
public:
    FilterPage(QWebEngineProfile* profiel, BrowserPane& pane, int slot);
    int slot() const { return m_slot; }

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool mainFrame) override;
    QWebEnginePage* createWindow(WebWindowType type) override;

private:
    BrowserPane& m_pane;
    int m_slot;
};

} // namespace tk
