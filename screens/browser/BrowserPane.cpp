#include "BrowserPane.h"

#include "FilterPage.h"

#include <QBoxLayout>
#include <QDateTime>
#include <QDir>
#include <QEvent>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProgressBar>
#include <QSaveFile>
#include <QShortcut>
#include <QStackedWidget>
#include <QStandardPaths>
#include <QTabBar>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <QWebEngineDownloadRequest>
#include <QWebEngineLoadingInfo>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace tk {

namespace {

const QString blanco = QStringLiteral("about:blank");

// Our own strings beside the table's: the new-tab button, the tab strip, the status line and a
// tab's page.
constexpr int TekstNieuwTabblad = 9580;
constexpr int TekstTabbladen = 9581;
constexpr int TekstStatus = 9582;
constexpr int TekstPagina = 9583;
constexpr int TekstFavorieten = 729;
constexpr int TekstAdres = 743;
constexpr int TekstGaNaar = 744;

// The toolbar by index, each with its sign; the names come from the string table.
struct KnopTeken {
    int index;
    const char16_t* teken;
};
constexpr KnopTeken knoppen[] = {
    {0, u"\u2190"}, {1, u"\u2192"}, {2, u"\u2715"}, {3, u"\u21bb"},
    {4, u"\u2302"}, {6, u"\u2605"}, {8, u"\u25a4"},
};

// A label's text as a name: without the colon and the blanks around it.
QString alsNaam(QString tekst) {
    tekst = tekst.trimmed();
    if (tekst.endsWith(QLatin1Char(':')))
        tekst.chop(1);
    return tekst.trimmed();
}

bool verbindingsFout(const QWebEngineLoadingInfo& info) {
    switch (info.errorDomain()) {
    case QWebEngineLoadingInfo::ConnectionErrorDomain:
    case QWebEngineLoadingInfo::DnsErrorDomain:
    case QWebEngineLoadingInfo::CertificateErrorDomain:
    case QWebEngineLoadingInfo::FtpErrorDomain:
        return true;
    default:
        return false;
    }
}

} // namespace

BrowserPane::BrowserPane(BrowserOmgeving omgeving, QWidget* parent)
    : QWidget(parent), m_omgeving(std::move(omgeving)),
      // A profile without a storage name keeps everything in memory.
      m_profiel(new QWebEngineProfile(this)), m_strip(new QTabBar(this)),
      m_adres(new QLineEdit(this)), m_pagina(new QWidget(this)),
      m_stapel(new QStackedWidget(m_pagina)), m_favorieten(new QTreeWidget(m_pagina)),
      m_tmrControle(new QTimer(this)), m_tmrProxy(new QTimer(this)),
      m_voortgang(new QProgressBar(this)), m_status(new QLabel(this)) {
    setAccessibleName(tekst(745));
    connect(m_profiel, &QWebEngineProfile::downloadRequested, this,
            [](QWebEngineDownloadRequest* download) { download->cancel(); });

    // tlbInternet2, by index; the gaps of the index are separators.
    auto* balk = new QHBoxLayout;
    for (const KnopTeken& k : knoppen) {
        if (k.index == 6 || k.index == 8)
            balk->addSpacing(8);
        auto* knop = new QToolButton(this);
        const QString naam = tekst(BrowserTabs::knopTekst(*BrowserTabs::knop(k.index)));
        knop->setText(QString::fromUtf16(k.teken));
        knop->setToolTip(naam);
        knop->setAccessibleName(naam);
        knop->setObjectName(u"tlbInternet2_%1"_s.arg(k.index));
        knop->setCheckable(k.index == int(BrowserTabs::Knop::Favorieten));
        const int index = k.index;
        connect(knop, &QToolButton::clicked, this, [this, index] { this->knop(index); });
        balk->addWidget(knop);
    }
    auto* adresLabel = new QLabel(tekst(TekstAdres).trimmed(), this);
    adresLabel->setBuddy(m_adres);
    balk->addWidget(adresLabel);
    m_adres->setAccessibleName(alsNaam(tekst(TekstAdres)));
    m_adres->setObjectName(QStringLiteral("txtInternet"));
    // Favourites only: the address box is locked; the favourites lead the way.
    m_adres->setReadOnly(m_omgeving.instellingen.Internetmodus == 1);
    connect(m_adres, &QLineEdit::returnPressed, this, [this] { ga(m_adres->text()); });
    balk->addWidget(m_adres, 1);
    auto* gaKnop = new QToolButton(this);
    gaKnop->setText(QStringLiteral("\u23ce"));
    gaKnop->setObjectName(QStringLiteral("knopInternet"));
    gaKnop->setAccessibleName(alsNaam(tekst(TekstGaNaar)));
    gaKnop->setToolTip(alsNaam(tekst(TekstGaNaar)));
    connect(gaKnop, &QToolButton::clicked, this, [this] { ga(m_adres->text()); });
    balk->addWidget(gaKnop);
    auto* tabKnop = new QToolButton(this);
    tabKnop->setText(QStringLiteral("+"));
    tabKnop->setObjectName(QStringLiteral("knopInternetTab"));
    tabKnop->setAccessibleName(tekst(TekstNieuwTabblad));
    tabKnop->setToolTip(tekst(TekstNieuwTabblad));
    connect(tabKnop, &QToolButton::clicked, this, [this] { NieuwTabblad(); });
    balk->addWidget(tabKnop);

    m_strip->setTabsClosable(true);
    m_strip->setExpanding(false);
    m_strip->setObjectName(QStringLiteral("InternetTab"));
    m_strip->setAccessibleName(tekst(TekstTabbladen));
    connect(m_strip, &QTabBar::tabBarClicked, this,
            [this](int index) { WijzigTab(m_strip->tabData(index).toInt()); });
    connect(m_strip, &QTabBar::tabCloseRequested, this,
            [this](int index) { SluitTab(m_strip->tabData(index).toInt()); });

    m_favorieten->setHeaderHidden(true);
    m_favorieten->setObjectName(QStringLiteral("tvFavorieten"));
    m_favorieten->setAccessibleName(tekst(TekstFavorieten));
    TekenFavorieten();
    // A click on a node opens it; Enter opens the current one.
    connect(m_favorieten, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem* node) { tvFavorieten_NodeClick(node); });
    connect(m_favorieten, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* node) { tvFavorieten_NodeClick(node); });
    m_favorieten->hide();
    m_pagina->installEventFilter(this);

    m_voortgang->setMaximumWidth(160);
    m_voortgang->setTextVisible(false);
    m_voortgang->setObjectName(QStringLiteral("PBInternet"));
    m_voortgang->hide();
    m_status->setObjectName(QStringLiteral("SBInternet"));
    m_status->setAccessibleName(tekst(TekstStatus));
    auto* onder = new QHBoxLayout;
    onder->addWidget(m_status, 1);
    onder->addWidget(m_voortgang);
    auto* alles = new QVBoxLayout(this);
    alles->setContentsMargins(2, 2, 2, 2);
    alles->addLayout(balk);
    alles->addWidget(m_strip);
    alles->addWidget(m_pagina, 1);
    alles->addLayout(onder);

    const auto sneltoets = [this](QKeySequence toets, auto actie) {
        auto* s = new QShortcut(toets, this, actie);
        s->setContext(Qt::WidgetWithChildrenShortcut);
    };
    sneltoets(QKeySequence(Qt::CTRL | Qt::Key_T), [this] { NieuwTabblad(); });
    sneltoets(QKeySequence(Qt::CTRL | Qt::Key_W), [this] { SluitTab(m_tabs.TabIndex()); });
    sneltoets(QKeySequence(Qt::CTRL | Qt::Key_L), [this] {
        m_adres->setFocus(Qt::ShortcutFocusReason);
        m_adres->selectAll();
    });
    sneltoets(QKeySequence(Qt::ALT | Qt::Key_Left), [this] { knop(0); });
    sneltoets(QKeySequence(Qt::ALT | Qt::Key_Right), [this] { knop(1); });

    // The proxy comes on after the pane's own session has begun, so that the pane's first
    // pages are not the ones it holds back.
    m_tmrControle->setInterval(1000);
    connect(m_tmrControle, &QTimer::timeout, this, [this] { controleerLadende(); });

    m_tmrProxy->setInterval(1000);
    m_tmrProxy->setSingleShot(false);
    connect(m_tmrProxy, &QTimer::timeout, this, [this] { tmrProxy_Timer(); });
    if (m_omgeving.proxy && m_omgeving.zetProxy)
        m_tmrProxy->start();

    NieuwTabblad();
}

QString BrowserPane::tekst(int id) const {
    return m_omgeving.tekst ? m_omgeving.tekst(id) : QString();
}

void BrowserPane::TekenFavorieten() {
    m_favorieten->clear();
    auto* root = new QTreeWidgetItem(m_favorieten);
    root->setText(0, tekst(TekstFavorieten));
    root->setData(0, Qt::UserRole, QStringLiteral("root"));
    for (int rij = 0; rij < m_omgeving.favorieten.size(); ++rij) {
        const QStringList& f = m_omgeving.favorieten[rij];
        auto* node = new QTreeWidgetItem(root);
        node->setText(0, f.value(1).trimmed().isEmpty() ? f.value(0) : f.value(1));
        node->setToolTip(0, f.value(0));
        node->setData(0, Qt::UserRole, u"index=%1"_s.arg(rij));
    }
    root->setExpanded(true);
    m_favorieten->setCurrentItem(root->childCount() ? root->child(0) : root);
}

void BrowserPane::tvFavorieten_NodeClick(QTreeWidgetItem* node) {
    if (!node)
        return;
    const QString sleutel = node->data(0, Qt::UserRole).toString();
    if (!sleutel.startsWith(u"index="))
        return;
    bool getal = false;
    const int rij = sleutel.mid(6).toInt(&getal);
    if (getal && rij >= 0 && rij < m_omgeving.favorieten.size())
        ga(m_omgeving.favorieten[rij].value(0));
}

void BrowserPane::tmrProxy_Timer() {
    m_tmrProxy->stop();
    if (m_omgeving.zetProxy)
        m_omgeving.zetProxy();
}

bool BrowserPane::eventFilter(QObject* object, QEvent* event) {
    if (object == m_pagina && event->type() == QEvent::Resize)
        plaats();
    return QWidget::eventFilter(object, event);
}

void BrowserPane::plaats() {
    const bool paneel = !m_favorieten->isHidden();
    m_favorieten->setGeometry(BrowserTabs::favorietenPaneel(m_pagina->height()));
    m_stapel->setGeometry(BrowserTabs::weergave(paneel, m_pagina->width(), m_pagina->height()));
}

BrowserPane::~BrowserPane() {
    // The pages go before their profile, or the profile's memory outlives the session.
    // A page check answered while its page goes finds no page and does nothing.
    m_tmrControle->stop();
    for (QWebEngineView*& v : m_views)
        delete std::exchange(v, nullptr);
    delete m_profiel;
}

QUrl BrowserPane::lokalePagina(QStringView naam) const {
    return QUrl::fromLocalFile(
        QDir(m_omgeving.programmaMap).filePath(u"Internetfilter/"_s + naam.toString()));
}

QWebEngineView* BrowserPane::maakView(int slot) {
    if (!m_views[slot]) {
        auto* v = new QWebEngineView(m_profiel, m_stapel);
        auto* page = new FilterPage(m_profiel, *this, slot);
        page->setParent(v);
        v->setPage(page);
        v->setAccessibleName(tekst(TekstPagina).replace(u"%nummer%"_s, QString::number(slot + 1)));
        connect(page, &QWebEnginePage::loadProgress, this, [this, slot](int procent) {
            if (m_tabs.zetVoortgang(slot, procent >= 100 ? 0 : procent))
                toonActief();
        });
        connect(page, &QWebEnginePage::linkHovered, this, [this, slot](const QString& link) {
            if (m_tabs.zetStatus(slot, link.isEmpty() ? m_filterStatus[slot] : link))
                toonActief();
        });
        connect(page, &QWebEnginePage::loadingChanged, this,
                [this, slot](const QWebEngineLoadingInfo& info) { geladen(slot, info); });
        connect(page, &QWebEnginePage::urlChanged, this,
                [this, slot](const QUrl& url) { adresGewijzigd(slot, url); });
        m_stapel->addWidget(v);
        m_views[slot] = v;
    }
    return m_views[slot];
}

int BrowserPane::NieuwTabblad(const QString& adres) {
    const QString titel = tekst(BrowserTabs::TekstGeenTitel);
    const int slot = m_tabs.NieuwTabblad(titel);
    if (slot < 0) {
        if (m_omgeving.meld)
            m_omgeving.meld(tekst(BrowserTabs::TekstTeVeelTabs));
        return -1;
    }
    maakView(slot);
    const int index = m_strip->addTab(titel);
    m_strip->setTabData(index, slot);
    toonActief();
    if (!adres.isNull())
        laden(slot, QUrl::fromUserInput(adres));
    else
        laden(slot, QUrl(blanco));
    m_adres->setFocus(Qt::OtherFocusReason);
    return slot;
}

FilterPage* BrowserPane::nieuwVenster(int vrager) {
    const int slot = m_tabs.NieuwTabblad(tekst(BrowserTabs::TekstGeenTitel));
    if (slot < 0) {
        if (m_views[vrager])
            m_views[vrager]->stop();
        if (m_omgeving.meld)
            m_omgeving.meld(tekst(BrowserTabs::TekstTeVeelTabs));
        return nullptr;
    }
    QWebEngineView* v = maakView(slot);
    const int index = m_strip->addTab(m_tabs.tab(slot).Titel);
    m_strip->setTabData(index, slot);
    toonActief();
    return static_cast<FilterPage*>(v->page());
}

void BrowserPane::WijzigTab(int slot) {
    if (m_tabs.WijzigTab(slot))
        toonActief();
}

void BrowserPane::SluitTab(int slot) {
    if (!m_tabs.Sluiten(slot))
        return;
    for (int i = 0; i < m_strip->count(); ++i)
        if (m_strip->tabData(i).toInt() == slot) {
            m_strip->removeTab(i);
            break;
        }
    m_views[slot]->page()->load(QUrl(blanco));
    toonActief();
}

void BrowserPane::InternetSluiten() {
    for (int slot : m_tabs.InternetSluiten()) {
        for (int i = m_strip->count() - 1; i >= 0; --i)
            if (m_strip->tabData(i).toInt() == slot)
                m_strip->removeTab(i);
        m_views[slot]->page()->load(QUrl(blanco));
    }
    laden(m_tabs.TabIndex(), QUrl(blanco));
    toonActief();
    hide();
}

void BrowserPane::knop(int index) {
    const auto k = BrowserTabs::knop(index);
    QWebEngineView* v = m_views[m_tabs.TabIndex()];
    if (!k || !v)
        return;
    switch (*k) {
    case BrowserTabs::Knop::Terug:
        v->back();
        break;
    case BrowserTabs::Knop::Vooruit:
        v->forward();
        break;
    case BrowserTabs::Knop::Stop:
        v->stop();
        break;
    case BrowserTabs::Knop::Vernieuwen:
        v->reload();
        break;
    case BrowserTabs::Knop::Thuis:
        ga(m_omgeving.thuispagina.isEmpty() ? blanco : m_omgeving.thuispagina);
        break;
    case BrowserTabs::Knop::Favorieten: {
        const bool open = m_favorieten->isHidden();
        m_favorieten->setVisible(open);
        if (auto* k = findChild<QToolButton*>(QStringLiteral("tlbInternet2_6")))
            k->setChecked(open);
        plaats();
        if (open)
            m_favorieten->setFocus(Qt::OtherFocusReason);
        break;
    }
    case BrowserTabs::Knop::Afdrukken:
        afdrukken();
        break;
    }
}

void BrowserPane::ga(const QString& adres) {
    m_adres->setModified(false);
    laden(m_tabs.TabIndex(), QUrl::fromUserInput(adres.trimmed()));
}

void BrowserPane::laden(int slot, const QUrl& url) {
    if (QWebEngineView* v = m_views[slot])
        v->page()->load(url);
}

bool BrowserPane::adresToets(int slot, const QUrl& url, bool mainFrame) {
    const QString adres = url.toString();
    const AddressVerdict v = m_omgeving.filter.checkAddress(adres, m_omgeving.instellingen);
    if (v.outcome == AddressVerdict::Outcome::Allow) {
        if (mainFrame) {
            // The page check on its way stays: a navigation that never shows a page (a
            // download) leaves the page it was made for. A new page shows a new address.
            m_toegelaten[slot] = adres;
            if (!PageFilter::isLocalPage(adres) && m_tabs.zetAdres(slot, adres))
                toonActief();
            m_tabs.zetTitel(slot, PageFilter::LadenTitel.toString());
            stripTitel(slot);
        }
        return true;
    }
    if (v.outcome == AddressVerdict::Outcome::Refuse && mainFrame) {
        // The blocked page replaces the refused one, in this tab only; after the refusal has
        // been answered, since a load cannot start inside the check of another.
        m_tabs.nieuweNavigatie(slot);
        m_tabs.zetAdres(slot, PageFilter::GeblokkeerdAdres.toString());
        // The status says what the blocked page shows, not what the page before it was.
        m_filterStatus[slot] = tekst(PageFilter::TekstNietGoedgekeurd);
        m_tabs.zetStatus(slot, m_filterStatus[slot]);
        QMetaObject::invokeMethod(
            this, [this, slot] { laden(slot, lokalePagina(u"niet goedgekeurd.html")); },
            Qt::QueuedConnection);
        toonActief();
    }
    return false;
}

void BrowserPane::geladen(int slot, const QWebEngineLoadingInfo& info) {
    if (info.status() == QWebEngineLoadingInfo::LoadStartedStatus) {
        m_ladend.insert(slot);
        if (!m_tmrControle->isActive())
            m_tmrControle->start();
        return;
    }
    m_ladend.remove(slot);
    if (m_ladend.isEmpty())
        m_tmrControle->stop();
    if (info.status() == QWebEngineLoadingInfo::LoadFailedStatus && verbindingsFout(info)) {
        m_tabs.zetTitel(slot, m_omgeving.tekst ? m_omgeving.tekst(PageFilter::TekstNietGevonden)
                                               : QString());
        stripTitel(slot);
        laden(slot, lokalePagina(u"niet gevonden.html"));
        return;
    }
    // Stopped, or failed with a page of the server's own (an error page with a text): what
    // shows is checked as a finished page is. A navigation refused or overtaken by another shows
    // nothing new.
    const bool gelukt = info.status() == QWebEngineLoadingInfo::LoadSucceededStatus;
    if (gelukt)
        m_tabs.zetGeladen(slot, true);
    if (gelukt || info.status() == QWebEngineLoadingInfo::LoadStoppedStatus ||
        info.errorDomain() == QWebEngineLoadingInfo::HttpStatusCodeDomain)
        controleer(slot);
}

void BrowserPane::controleerLadende() {
    for (const int slot : std::as_const(m_ladend))
        if (m_views[slot])
            controleer(slot, true);
}

void BrowserPane::adresGewijzigd(int slot, const QUrl& url) {
    if (url.toString() == m_toegelaten[slot])
        return; // the page that navigation brings is checked as it loads
    // An address the page took without a navigation (a script's history entry, a fragment): it
    // is checked as if navigated to, and the page with it.
    if (adresToets(slot, url, true))
        controleer(slot);
}

void BrowserPane::controleer(int slot, bool tussentijds) {
    QWebEnginePage* page = m_views[slot]->page();
    const QString adres = page->url().toString();
    if (PageFilter::isLocalPage(adres)) {
        m_tabs.zetTitel(slot, PageFilter::FilterTitel.toString());
        stripTitel(slot);
        return;
    }
    const quint64 navigatie = m_tabs.tab(slot).navigatie;
    if (!tussentijds && m_omgeving.tekst &&
        m_tabs.zetStatus(slot, m_omgeving.tekst(PageFilter::TekstControleren)))
        toonActief();
    // Run in a world of its own: a page's scripts cannot change what the check reads (a getter
    // that hides the text). The text of the page's frames of the same origin counts with it.
    static const QString tekstVanPagina = QStringLiteral(
        "(function () {"
        " var t = document.body ? [document.body.innerText] : [];"
        " var f = document.querySelectorAll('iframe, frame');"
        " for (var i = 0; i < f.length; ++i) {"
        "  try { var d = f[i].contentDocument; if (d && d.body) t.push(d.body.innerText); }"
        "  catch (e) {}"
        " }"
        " return [document.title, t.join(' ')];"
        "})()");
    const QString domein = page->url().host();
    page->runJavaScript(
        tekstVanPagina, QWebEngineScript::ApplicationWorld,
        [this, slot, navigatie, adres, domein, tussentijds](const QVariant& antwoord) {
            oordeel({slot, navigatie, adres, domein, tussentijds}, antwoord.toList());
        });
}

void BrowserPane::oordeel(const Controle& c, const QVariantList& delen) {
    const int slot = c.slot;
    const auto tekst = [this](int id) {
        return m_omgeving.tekst && id ? m_omgeving.tekst(id) : QString();
    };
    // The tab shows another address (or closed, or was blocked) while the text came: what it
    // shows gets its own check. A navigation that showed nothing (a download) leaves the check.
    if (!m_views[slot] || !m_tabs.actueel(slot, c.navigatie) ||
        m_views[slot]->page()->url().toString() != c.adres) {
        if (m_views[slot] && m_tabs.tab(slot).Status == tekst(PageFilter::TekstControleren) &&
            m_tabs.zetStatus(slot, m_filterStatus[slot]))
            toonActief();
        return;
    }
    const PageVerdict v =
        m_omgeving.filter.checkPage(c.adres, delen.value(0).toString(), c.domein,
                                    delen.value(1).toString(), m_omgeving.instellingen);
    // While the page loads only a refusal counts; the approval waits for the page's end.
    if (c.tussentijds && !v.blocked())
        return;
    m_tabs.zetTitel(slot, v.captionText ? tekst(v.captionText) : v.caption);
    m_filterStatus[slot] = tekst(v.statusText);
    m_tabs.zetStatus(slot, m_filterStatus[slot]);
    if (v.blocked()) {
        m_tabs.nieuweNavigatie(slot);
        m_tabs.zetAdres(slot, PageFilter::GeblokkeerdAdres.toString());
        laden(slot, lokalePagina(u"niet goedgekeurd.html"));
    }
    stripTitel(slot);
    toonActief();
}

void BrowserPane::stripTitel(int slot) {
    for (int i = 0; i < m_strip->count(); ++i)
        if (m_strip->tabData(i).toInt() == slot) {
            m_strip->setTabText(i, m_tabs.tab(slot).Titel);
            m_strip->setTabToolTip(i, m_tabs.tab(slot).Titel);
        }
}

void BrowserPane::toonActief() {
    const int slot = m_tabs.TabIndex();
    const BrowserTabs::Tabblad& t = m_tabs.tab(slot);
    for (int i = 0; i < m_strip->count(); ++i)
        if (m_strip->tabData(i).toInt() == slot && m_strip->currentIndex() != i)
            m_strip->setCurrentIndex(i);
    if (m_views[slot])
        m_stapel->setCurrentWidget(m_views[slot]);
    // What the user is typing stays until it is sent.
    if (!m_adres->isModified())
        m_adres->setText(t.Adres);
    m_status->setText(t.Status);
    m_voortgang->setVisible(t.Voortgang > 0);
    m_voortgang->setRange(0, t.Maximum);
    m_voortgang->setValue(t.Voortgang);
}

void BrowserPane::afdrukken() {
    QWebEngineView* v = m_views[m_tabs.TabIndex()];
    if (QPrinterInfo::availablePrinters().isEmpty()) {
        // No printer: the page goes to a PDF file in the documents folder.
        QString map = m_omgeving.afdrukMap;
        if (map.isEmpty())
            map = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
        if (map.isEmpty())
            map = QDir::homePath();
        QDir().mkpath(map);
        const QString pad = QDir(map).filePath(
            u"Internet %1.pdf"_s.arg(QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss")));
        // The engine's own file variant of printToPdf crashes the process offscreen (Qt 6.4);
        // the bytes come back to us and are written whole, or not at all.
        v->page()->printToPdf([pad](const QByteArray& pdf) {
            if (pdf.isEmpty())
                return;
            QSaveFile bestand(pad);
            if (bestand.open(QIODevice::WriteOnly) && bestand.write(pdf) == pdf.size())
                bestand.commit();
        });
        return;
    }
    auto* printer = new QPrinter(QPrinterInfo::defaultPrinter());
    connect(
        v, &QWebEngineView::printFinished, this, [printer](bool) { delete printer; },
        Qt::SingleShotConnection);
    v->print(printer);
}

} // namespace tk
