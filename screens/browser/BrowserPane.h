#pragma once

#include "BrowserOmgeving.h"
#include "BrowserTabs.h"

#include <QSet>
#include <QVariant>
#include <QWidget>

#include <array>

class QLabel;
class QLineEdit;
class QProgressBar;
class QStackedWidget;
class QTabBar;
class QTimer;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;
class QUrl;
class QWebEngineLoadingInfo;
class QWebEngineProfile;
class QWebEngineView;

namespace tk {

class FilterPage;

// The internet pane of the desktop: a tab strip over up to 40 browser views (one per slot, made
// when the slot is first used), the toolbar, the address box, the favourites panel and the status
// line. Every navigation passes the filter's address check, every loaded page its page check. The
// pane has one off-the-record profile: when the pane goes at log off, its cookies, cache and
// history go with it, and the next pupil starts clean. Downloads are refused. Every control is
// named in the current language from the string table, and the keyboard reaches each.
class BrowserPane : public QWidget {
public:
    explicit BrowserPane(BrowserOmgeving omgeving, QWidget* parent = nullptr);
    ~BrowserPane() override;

    // A new tab at the first free slot, loading `adres` (about:blank when empty); -1 and the
    // "too many tabs" message when all 40 are in use.
    int NieuwTabblad(const QString& adres = {});
    void WijzigTab(int slot);
    void SluitTab(int slot);
    // All tabs but one go, the one left shows about:blank, the pane hides.
    void InternetSluiten();
    // The toolbar's button `index` (see BrowserTabs::Knop).
    void knop(int index);
    // Loads `adres` (as typed) into the active tab.
    void ga(const QString& adres);

    const BrowserTabs& tabs() const { return m_tabs; }
    QWebEngineView* view(int slot) const { return m_views.at(slot); }
    QWebEngineProfile* profiel() const { return m_profiel; }
    // The address of the filter's local page `naam` ("niet goedgekeurd.html"...).
    QUrl lokalePagina(QStringView naam) const;

    // The favourites tree's node was chosen: the root does nothing, "index=<row>" loads that
    // favourite in the active tab.
    void tvFavorieten_NodeClick(QTreeWidgetItem* node);
    // tmrProxy's tick: switches the filter's proxy on and stops the timer.
    void tmrProxy_Timer();
    const QTimer& tmrProxy() const { return *m_tmrProxy; }

    // From the tabs' pages.
    bool adresToets(int slot, const QUrl& url, bool mainFrame);
    FilterPage* nieuwVenster(int vrager);

private:
    QWebEngineView* maakView(int slot);
    void toonActief();
    void laden(int slot, const QUrl& url);
    void geladen(int slot, const QWebEngineLoadingInfo& info);
    void adresGewijzigd(int slot, const QUrl& url);
    // Reads the page of `slot` and checks it; `tussentijds` while it loads (the status is left,
    // and only a refusal acts).
    void controleer(int slot, bool tussentijds = false);
    struct Controle {
        int slot;
        quint64 navigatie;
        QString adres, domein;
        bool tussentijds;
    };
    // The page check's answer (title, text) for the page the check read.
    void oordeel(const Controle& c, const QVariantList& delen);
    // tmrControle's tick: the pages still loading are checked as far as they came.
    void controleerLadende();
    void afdrukken();
    void stripTitel(int slot);
    void TekenFavorieten();
    void plaats();
    QString tekst(int id) const;
    bool eventFilter(QObject* object, QEvent* event) override;

    BrowserOmgeving m_omgeving;
    BrowserTabs m_tabs;
    QWebEngineProfile* m_profiel;
    std::array<QWebEngineView*, BrowserTabs::MaxTabs> m_views{};
    // The filter's word for each tab's page, back in the status when the pointer leaves a link.
    std::array<QString, BrowserTabs::MaxTabs> m_filterStatus{};
    // The address of each tab's last main-frame navigation the filter let through: an address
    // the page shows that is not this one came without a navigation (a script's history entry).
    std::array<QString, BrowserTabs::MaxTabs> m_toegelaten{};
    // The tabs whose page is loading; while there are any, tmrControle checks them each second,
    // so that a page that never finishes (a part that never comes) is checked all the same.
    QSet<int> m_ladend;
    QTabBar* m_strip;
    QLineEdit* m_adres;
    QWidget* m_pagina; // holds the favourites panel and the views, placed by BrowserTabs
    QStackedWidget* m_stapel;
    QTreeWidget* m_favorieten;
    QTimer* m_tmrControle;
    QTimer* m_tmrProxy;
    QProgressBar* m_voortgang;
    QLabel* m_status;
};

} // namespace tk
