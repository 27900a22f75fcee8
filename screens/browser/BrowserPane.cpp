#include "BrowserPane.h"

#include "FilterPage.h"

#include <QBoxLayout>
#include <QDateTime>
#include <QDir>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProgressBar>
#include <QShortcut>
#include <QStackedWidget>
#include <QStandardPaths>
#include <QTabBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QWebEngineDownloadRequest>
#include <QWebEngineLoadingInfo>
#include <QWebEngineProfile>
#include <QWebEngineView>

using namespace Qt::Literals::StringLiterals;

namespace tk {

namespace {

const QString blanco = QStringLiteral("about:blank");

// The toolbar: index, name and the standard icon's text.
struct KnopTekst {
    int index;
    const char16_t* naam;
    const char16_t* teken;
};
constexpr KnopTekst knoppen[] = {
    {0, u"Terug", u"\u2190"},      {1, u"Vooruit", u"\u2192"},     {2, u"Stoppen", u"\u2715"},
    {3, u"Vernieuwen", u"\u21bb"}, {4, u"Startpagina", u"\u2302"}, {6, u"Favorieten", u"\u2605"},
    {8, u"Afdrukken", u"\u25a4"},
};

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
      m_adres(new QLineEdit(this)), m_stapel(new QStackedWidget(this)),
      m_favorieten(new QTreeWidget(this)), m_voortgang(new QProgressBar(this)),
      m_status(new QLabel(this)) {
    setAccessibleName(QStringLiteral("Internet"));
    connect(m_profiel, &QWebEngineProfile::downloadRequested, this,
            [](QWebEngineDownloadRequest* download) { download->cancel(); });

    auto* balk = new QHBoxLayout;
    for (const KnopTekst& k : knoppen) {
        auto* knop = new QToolButton(this);
        const QString naam = QString::fromUtf16(k.naam);
        knop->setText(QString::fromUtf16(k.teken));
        knop->setToolTip(naam);
        knop->setAccessibleName(naam);
        knop->setObjectName(naam);
        knop->setCheckable(k.index == 6);
        const int index = k.index;
        connect(knop, &QToolButton::clicked, this, [this, index] { this->knop(index); });
        balk->addWidget(knop);
    }
    m_adres->setAccessibleName(QStringLiteral("Adres"));
    m_adres->setObjectName(QStringLiteral("txtInternet"));
    connect(m_adres, &QLineEdit::returnPressed, this, [this] { ga(m_adres->text()); });
    balk->addWidget(m_adres, 1);
    auto* gaKnop = new QToolButton(this);
    gaKnop->setText(QStringLiteral("\u23ce"));
    gaKnop->setAccessibleName(QStringLiteral("Ga naar"));
    connect(gaKnop, &QToolButton::clicked, this, [this] { ga(m_adres->text()); });
    balk->addWidget(gaKnop);
    auto* tabKnop = new QToolButton(this);
    tabKnop->setText(QStringLiteral("+"));
    tabKnop->setAccessibleName(QStringLiteral("Nieuw tabblad"));
    connect(tabKnop, &QToolButton::clicked, this, [this] { NieuwTabblad(); });
    balk->addWidget(tabKnop);

    m_strip->setTabsClosable(true);
    m_strip->setExpanding(false);
    m_strip->setAccessibleName(QStringLiteral("Tabbladen"));
    connect(m_strip, &QTabBar::tabBarClicked, this,
            [this](int index) { WijzigTab(m_strip->tabData(index).toInt()); });
    connect(m_strip, &QTabBar::tabCloseRequested, this,
            [this](int index) { SluitTab(m_strip->tabData(index).toInt()); });

    m_favorieten->setHeaderHidden(true);
    m_favorieten->setAccessibleName(QStringLiteral("Favorieten"));
    m_favorieten->setFixedWidth(214);
    for (const QStringList& f : m_omgeving.favorieten) {
        auto* item = new QTreeWidgetItem(m_favorieten);
        item->setText(0, f.value(1).isEmpty() ? f.value(0) : f.value(1));
        item->setData(0, Qt::UserRole, f.value(0));
    }
    connect(m_favorieten, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem* item) { ga(item->data(0, Qt::UserRole).toString()); });
    connect(m_favorieten, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { ga(item->data(0, Qt::UserRole).toString()); });
    m_favorieten->hide();

    m_voortgang->setMaximumWidth(160);
    m_voortgang->setTextVisible(false);
    m_voortgang->hide();
    m_status->setAccessibleName(QStringLiteral("Status"));
    auto* onder = new QHBoxLayout;
    onder->addWidget(m_status, 1);
    onder->addWidget(m_voortgang);
    auto* midden = new QHBoxLayout;
    midden->addWidget(m_favorieten);
    midden->addWidget(m_stapel, 1);
    auto* alles = new QVBoxLayout(this);
    alles->setContentsMargins(2, 2, 2, 2);
    alles->addLayout(balk);
    alles->addWidget(m_strip);
    alles->addLayout(midden, 1);
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

    NieuwTabblad();
}

BrowserPane::~BrowserPane() {
    // The pages go before their profile, or the profile's memory outlives the session.
    for (QWebEngineView*& v : m_views) {
        delete v;
        v = nullptr;
    }
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
        v->setAccessibleName(u"Pagina %1"_s.arg(slot + 1));
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
        m_stapel->addWidget(v);
        m_views[slot] = v;
    }
    return m_views[slot];
}

int BrowserPane::NieuwTabblad(const QString& adres) {
    const QString titel =
        m_omgeving.tekst ? m_omgeving.tekst(BrowserTabs::TekstGeenTitel) : QString();
    const int slot = m_tabs.NieuwTabblad(titel);
    if (slot < 0) {
        if (m_omgeving.meld)
            m_omgeving.meld(m_omgeving.tekst ? m_omgeving.tekst(BrowserTabs::TekstTeVeelTabs)
                                             : QString());
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
    const int slot = m_tabs.NieuwTabblad(
        m_omgeving.tekst ? m_omgeving.tekst(BrowserTabs::TekstGeenTitel) : QString());
    if (slot < 0) {
        if (m_views[vrager])
            m_views[vrager]->stop();
        if (m_omgeving.meld)
            m_omgeving.meld(m_omgeving.tekst ? m_omgeving.tekst(BrowserTabs::TekstTeVeelTabs)
                                             : QString());
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
    case BrowserTabs::Knop::Favorieten:
        m_favorieten->setVisible(!m_favorieten->isVisible());
        break;
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
            m_tabs.nieuweNavigatie(slot);
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
        QMetaObject::invokeMethod(
            this, [this, slot] { laden(slot, lokalePagina(u"niet goedgekeurd.html")); },
            Qt::QueuedConnection);
        toonActief();
    }
    return false;
}

void BrowserPane::geladen(int slot, const QWebEngineLoadingInfo& info) {
    if (info.status() == QWebEngineLoadingInfo::LoadFailedStatus && verbindingsFout(info)) {
        m_tabs.zetTitel(slot, m_omgeving.tekst ? m_omgeving.tekst(PageFilter::TekstNietGevonden)
                                               : QString());
        stripTitel(slot);
        laden(slot, lokalePagina(u"niet gevonden.html"));
        return;
    }
    if (info.status() == QWebEngineLoadingInfo::LoadSucceededStatus) {
        m_tabs.zetGeladen(slot, true);
        controleer(slot);
    }
}

void BrowserPane::controleer(int slot) {
    QWebEnginePage* page = m_views[slot]->page();
    const QString adres = page->url().toString();
    if (PageFilter::isLocalPage(adres)) {
        m_tabs.zetTitel(slot, PageFilter::FilterTitel.toString());
        stripTitel(slot);
        return;
    }
    const quint64 navigatie = m_tabs.tab(slot).navigatie;
    if (m_omgeving.tekst && m_tabs.zetStatus(slot, m_omgeving.tekst(PageFilter::TekstControleren)))
        toonActief();
    page->runJavaScript(
        QStringLiteral("[document.title, document.body ? document.body.innerText : '', "
                       "document.domain]"),
        [this, slot, navigatie, adres](const QVariant& antwoord) {
            // The tab went on to another page (or closed) while the text came: that page gets
            // its own check.
            if (!m_tabs.actueel(slot, navigatie))
                return;
            const QVariantList delen = antwoord.toList();
            const PageVerdict v = m_omgeving.filter.checkPage(
                adres, delen.value(0).toString(), delen.value(2).toString(),
                delen.value(1).toString(), m_omgeving.instellingen);
            const auto tekst = [this](int id) {
                return m_omgeving.tekst && id ? m_omgeving.tekst(id) : QString();
            };
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
        });
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
        QString map = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
        if (map.isEmpty())
            map = QDir::homePath();
        QDir().mkpath(map);
        v->page()->printToPdf(QDir(map).filePath(
            u"Internet %1.pdf"_s.arg(QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"))));
        return;
    }
    auto* printer = new QPrinter(QPrinterInfo::defaultPrinter());
    connect(
        v, &QWebEngineView::printFinished, this, [printer](bool) { delete printer; },
        Qt::SingleShotConnection);
    v->print(printer);
}

} // namespace tk
