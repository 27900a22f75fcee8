#include "BureaubladStappen.h"

#include "core/Programma.h"
#include "screens/desktop/FrmBureaublad.h"
#include "screens/desktop/FrmBureaubladView.h"
#include "screens/start/FrmAanmelden.h"
#include "screens/start/FrmMain.h"
#include "screens/taskbar/FrmTaakbalk2.h"
#include "screens/taskbar/FrmTaakbalk2View.h"

#include <QCoreApplication>

namespace tk {

BureaubladStappen::BureaubladStappen(Programma& p, std::function<void()> toonStartscherm,
                                     std::function<void()> verbergStartscherm)
    : p(p), m_toonStartscherm(std::move(toonStartscherm)),
      m_verbergStartscherm(std::move(verbergStartscherm)) {
    if (!p.frmBureaublad)
        p.maak(p.frmBureaublad, p);
    if (!p.frmTaakbalk2)
        p.maak(p.frmTaakbalk2, p);
    p.frmBureaublad->Afgemeld = [this] { verlaten(); };
    if (p.startScreen)
        p.startScreen->OpenBureaublad = [this](int soort, const QString& id) { openen(soort, id); };
}

BureaubladStappen::~BureaubladStappen() {
    if (p.startScreen)
        p.startScreen->OpenBureaublad = nullptr;
    if (p.frmBureaublad)
        p.frmBureaublad->Afgemeld = nullptr;
}

void BureaubladStappen::maakVensters() {
    if (m_view)
        return;
    FrmBureaublad& b = *p.frmBureaublad;
    FrmTaakbalk2& balk = *p.frmTaakbalk2;
    m_view = std::make_unique<FrmBureaubladView>(b);
    m_balk = std::make_unique<FrmTaakbalk2View>(balk);
    // The bar follows the desktop and its launcher; its buttons reach the desktop.
    balk.KoppelBureaublad(b);
}

void BureaubladStappen::openen(int soort, const QString& id) {
    // The logging-in window stands while the desktop loads.
    if (p.frmAanmelden) {
        p.frmAanmelden->Openen();
        QCoreApplication::processEvents();
    }
    maakVensters();
    p.frmBureaublad->Openen(soort, id);
    m_view->openen();
    if (m_verbergStartscherm)
        m_verbergStartscherm();
    m_balk->openen();
    if (p.frmAanmelden)
        p.frmAanmelden->Sluiten();
    // The password box of the teachers' panel takes the keys at once.
    m_view->openen();
}

void BureaubladStappen::verlaten() {
    if (m_balk)
        m_balk->sluiten();
    if (m_view)
        m_view->hide();
    if (m_toonStartscherm)
        m_toonStartscherm();
}

} // namespace tk
