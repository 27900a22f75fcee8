#include "ClientScreenRouter.h"

#include "ClientStartSteps.h"
#include "core/Programma.h"
#include "data/ModData.h"
#include "screens/browser/BrowserFabriek.h"
#include "screens/browser/BrowserFavorieten.h"
#include "screens/browser/BrowserLader.h"
#include "screens/desktop/FrmBureaublad.h"
#include "screens/desktop/FrmBureaubladView.h"
#include "screens/maintenance/BewerkPaneel.h"
#include "screens/maintenance/BewerkPaneelView.h"
#include "screens/maintenance/FrmOnderhoud.h"
#include "screens/maintenance/FrmOnderhoudView.h"
#include "screens/maintenance/OnderhoudServer.h"
#include "screens/maintenance/OnderhoudServerView.h"
#include "screens/start/FrmAanmelden.h"
#include "screens/taskbar/FrmTaakbalk2.h"
#include "screens/taskbar/FrmTaakbalk2View.h"
#include "screens/taskbar/FrmWindowsView.h"
#include "session/ModMainSessie.h"

#include <QApplication>
#include <QCoreApplication>

namespace tk {

ClientScreenRouter::ClientScreenRouter(Programma& p, ClientStartSteps& startscherm,
                                       BrowserLader& browser)
    : ScreenRouter(p), m_startscherm(startscherm), m_browserLader(browser) {}

ClientScreenRouter::~ClientScreenRouter() = default;

void ClientScreenRouter::vensters(bool zichtbaar) {
    if (zichtbaar) {
        for (const QPointer<QWidget>& venster : std::as_const(m_verborgen))
            if (venster)
                venster->show();
        m_verborgen.clear();
        return;
    }
    for (QWidget* venster : QApplication::topLevelWidgets()) {
        if (!venster->isVisible() || qobject_cast<FrmWindowsView*>(venster))
            continue;
        m_verborgen << venster;
        venster->hide();
    }
}

void ClientScreenRouter::maakVensters() {
    if (m_view)
        return;
    if (!p.frmBureaublad)
        p.maak(p.frmBureaublad, p);
    if (!p.frmTaakbalk2)
        p.maak(p.frmTaakbalk2, p);
    FrmBureaublad& b = *p.frmBureaublad;
    FrmTaakbalk2& balk = *p.frmTaakbalk2;
    m_view = std::make_unique<FrmBureaubladView>(b);
    m_balk = std::make_unique<FrmTaakbalk2View>(balk);
    // The bar follows the desktop and its launcher; its buttons reach the desktop.
    balk.KoppelBureaublad(b);
}

void ClientScreenRouter::openBureaublad(int soort, const QString& id) {
    // The logging-in window stands while the desktop loads.
    if (p.frmAanmelden) {
        p.frmAanmelden->Openen();
        QCoreApplication::processEvents();
    }
    maakVensters();
    ScreenRouter::openBureaublad(soort, id);
    m_view->openen();
    m_startscherm.verbergHoofdvenster();
    m_balk->openen();
    if (p.frmAanmelden)
        p.frmAanmelden->Sluiten();
    // The password box of the teachers' panel takes the keys at once.
    m_view->openen();
}

void ClientScreenRouter::bureaubladVerlaten() {
    // The pupil's cookies, cache and history go with the pane's profile.
    m_browser.reset();
    ScreenRouter::bureaubladVerlaten();
    if (m_balk)
        m_balk->sluiten();
    if (m_view)
        m_view->hide();
    m_startscherm.toonHoofdvenster();
}

bool ClientScreenRouter::openInternet() {
    if (!m_view || !p.frmBureaublad)
        return false;
    if (!m_browser) {
        BrowserFabriek* fabriek = m_browserLader.fabriek();
        if (!fabriek) {
            p.modMain.SchrijfLogboek(m_browserLader.fout(), QStringLiteral("Internet"),
                                     QStringLiteral("ClientScreenRouter.openInternet"),
                                     QStringLiteral("-"));
            return false;
        }
        BrowserOmgeving o;
        if (p.modData) {
            o.filter = PageFilter(p.modData->VerbodenWoorden, p.modData->ToegestaneSites);
            const QString eigenaar = p.frmBureaublad->favorietenEigenaar();
            const QString standaard = p.modData->Overige.value(0);
            o.thuispagina = standaard.trimmed();
            if (!eigenaar.isEmpty()) {
                const BrowserFavorieten f =
                    BrowserFavorieten::uit(p.modData->LaadFavorieten(eigenaar), standaard);
                o.instellingen = f.instellingen;
                o.thuispagina = f.thuispagina;
                o.favorieten = f.lijst;
                // LaadFavorieten remembers the proxy switch; tmrProxy of the pane sets it.
                if (f.proxy) {
                    m_startscherm.sessie().proxyInGebruik = true;
                    o.proxy = true;
                    o.zetProxy = [this] { m_startscherm.sessie().ZetProxy(true); };
                }
            }
        }
        o.programmaMap = p.platform.programFolder();
        o.tekst = [this](int id) { return p.modTaal.LaadTekst(id); };
        o.meld = [this](const QString& tekst) {
            p.modMain.ToonVraag(p.modTaal.LaadTekst(3), tekst, QStringLiteral("-"));
        };
        m_browser.reset(fabriek->maakPane(std::move(o), m_view.get()));
    }
    m_browser->setGeometry(m_view->rect());
    m_browser->show();
    m_browser->raise();
    m_browser->setFocus(Qt::OtherFocusReason);
    return true;
}

void ClientScreenRouter::internetVerbergen() {
    if (m_browser)
        m_browser->hide();
}

bool ClientScreenRouter::openOnderhoudsmodule(int leraar, const QList<int>& klassen) {
    maakOnderhoud();
    if (!m_onderhoud) {
        m_onderhoud = std::make_unique<FrmOnderhoudView>(*p.frmOnderhoud);
        // The panels' views, owned by the module's window.
        FrmOnderhoud& f = *p.frmOnderhoud;
        if (auto* instellingen = dynamic_cast<BewerkPaneel*>(f.paneel(FrmOnderhoud::PInstellingen)))
            m_onderhoud->plaatsPaneelView(FrmOnderhoud::PInstellingen,
                                          new BewerkPaneelView(*instellingen));
        if (auto* server = dynamic_cast<OnderhoudServer*>(f.paneel(FrmOnderhoud::PServer)))
            m_onderhoud->plaatsPaneelView(FrmOnderhoud::PServer, new OnderhoudServerView(*server));
        p.frmOnderhoud->verlaten = [this] {
            m_onderhoud->hide();
            // A teacher's desktop stayed behind the module; the start screen comes back.
            if (!p.frmOnderhoud->Beperkt)
                m_startscherm.toonHoofdvenster();
        };
    }
    if (!ScreenRouter::openOnderhoudsmodule(leraar, klassen))
        return false;
    m_onderhoud->openen();
    if (leraar < 0)
        m_startscherm.verbergHoofdvenster();
    return true;
}

} // namespace tk
