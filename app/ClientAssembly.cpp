#include "ClientAssembly.h"

#include "core/Programma.h"
#include "data/ModData.h"
#include "data/ModMainLaden.h"
#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "screens/maintenance/FrmOnderhoudVraag.h"
#include "screens/maintenance/FrmOnderhoudVraagView.h"
#include "screens/maintenance/ModMainOnderhoud.h"
#include "screens/start/FrmAanmelden.h"
#include "screens/start/FrmAanmeldenView.h"
#include "screens/start/FrmMain.h"
#include "screens/start/FrmWachten.h"
#include "screens/start/FrmWachtenView.h"
#include "screens/taskbar/FrmAfmelden.h"
#include "screens/taskbar/FrmAfmeldenView.h"
#include "screens/taskbar/FrmTaakbalk1.h"
#include "screens/taskbar/FrmWindowsView.h"
#include "screens/taskbar/ModMainAfsluiten.h"
#include "screens/taskbar/TaakbalkToetsen.h"
#include "theme/ModDataPictogrammen.h"
#include "theme/ModDataThemas.h"
#include "theme/ModThema.h"

#include <QCoreApplication>

namespace tk {

ClientAssembly::ClientAssembly(Programma& p, const QString& browserPlugin)
    : p(p), m_dialogen(p), m_stappen(p), m_browser(browserPlugin),
      m_schermen(p, m_stappen, m_browser) {
    p.dialogen = &m_dialogen;
    // The data and the link below them; the link names classes and teachers from the tables.
    p.maak(p.modData, p);
    p.maak(p.modMainLaden, p);
    p.maak(p.frmMain, p); // also the command channel
    p.maak(p.modMainVerbinding, p);
    p.modMainVerbinding->namen = p.modData;
    // The theme and the theme and icon stores the load keeps up to date.
    p.maak(p.modThema, p);
    p.maak(p.modDataThemas, p);
    p.maak(p.modDataPictogrammen, p);
    // The start screen, told what the link, the load and the fetches do, and its taskbar.
    p.maak(p.startScreen, p, *p.frmMain);
    p.startScreenEvents = p.startScreen;
    p.maak(p.frmTaakbalk1, p);
    p.maak(p.modMainAfsluiten, p);
    // The wait windows: models any screen may open, and their views, shown while open.
    p.maak(p.frmWachten, p);
    p.maak(p.frmAanmelden, p);
    p.maak(p.frmAfmelden, p);
    m_wachten = std::make_unique<FrmWachtenView>(*p.frmWachten);
    m_aanmelden = std::make_unique<FrmAanmeldenView>(*p.frmAanmelden);
    m_afmelden = std::make_unique<FrmAfmeldenView>(*p.frmAfmelden);
    m_windows = std::make_unique<FrmWindowsView>(p.modMainAfsluiten->frmWindows);
    m_toetsen = std::make_unique<TaakbalkToetsen>(p);
    if (QCoreApplication::instance())
        QCoreApplication::instance()->installEventFilter(m_toetsen.get());
    // The maintenance module's exclusive access: the check, and its question with its window.
    p.maak(p.modMainOnderhoud, p);
    p.maak(p.frmOnderhoudVraag, p);
    m_onderhoudVraag = std::make_unique<FrmOnderhoudVraagView>(*p.frmOnderhoudVraag);
    // The start-up steps and the ways between the screens, with their windows.
    p.opstartStappen = &m_stappen;
    p.schermen = &m_schermen;
}

ClientAssembly::~ClientAssembly() {
    // The modules outlive this object (Programma owns them): what points here goes first.
    if (p.opstartStappen == &m_stappen)
        p.opstartStappen = &p.unbuiltSteps;
    if (p.schermen == &m_schermen)
        p.schermen = nullptr;
    if (p.dialogen == &m_dialogen)
        p.dialogen = nullptr;
}

QStringList ClientAssembly::unwired() const {
    QStringList uit = p.unwired();
    if (p.modMainVerbinding && !p.modMainVerbinding->namen)
        uit << QStringLiteral("modMainVerbinding.namen");
    return uit;
}

} // namespace tk
