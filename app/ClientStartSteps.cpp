#include "ClientStartSteps.h"

#include "core/Programma.h"
#include "data/ModData.h"
#include "data/ModMainLaden.h"
#include "link/ModMainVerbinding.h"
#include "screens/start/FrmMain.h"
#include "screens/start/FrmMainView.h"
#include "screens/taskbar/FrmTaakbalk1.h"
#include "screens/taskbar/FrmTaakbalk1View.h"
#include "theme/ModThema.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTextStream>

namespace tk {

ClientStartSteps::ClientStartSteps(Programma& p) : p(p) {}

ClientStartSteps::~ClientStartSteps() {
    // The start screen's model outlives these steps: its hooks into them go first.
    if (m_view && p.startScreen) {
        p.startScreen->HoofdvensterTonen = nullptr;
        p.startScreen->TaakbalkHertekenen = nullptr;
    }
}

void ClientStartSteps::meld(const QString& wat) {
    QTextStream(stdout) << "tafelkrater: " << wat << Qt::endl;
}

bool ClientStartSteps::StuurOpstartCommando(const QString& woord) {
    return p.modMainVerbinding && p.modMainVerbinding->StuurOpstartCommando(woord);
}

void ClientStartSteps::StartServer(bool firewall) {
    if (p.modMainVerbinding)
        p.modMainVerbinding->StartServer(firewall);
}

void ClientStartSteps::LaadThema() {
    if (p.modThema)
        p.modThema->LaadThema();
}

void ClientStartSteps::toonHoofdvenster() {
    if (!m_view)
        return;
    p.startScreen->Zichtbaar = true;
    if (!m_view->isVisible()) {
        // The whole screen; the canvas stands unscaled in its middle.
        if (QScreen* scherm = QGuiApplication::primaryScreen())
            m_view->setGeometry(scherm->geometry());
        m_view->showFullScreen();
    }
    m_view->canvas()->bijwerken();
}

void ClientStartSteps::verbergHoofdvenster() {
    p.startScreen->Zichtbaar = false;
    if (m_view)
        m_view->hide();
}

void ClientStartSteps::OpenTaakbalk1() {
    FrmMain& f = *p.startScreen;
    if (!m_view) {
        m_view = std::make_unique<FrmMainView>(f);
        auto* balk = new FrmTaakbalk1View(*p.frmTaakbalk1, m_view->canvas());
        balk->move(0, FrmMain::Hoogte);
        m_view->canvas()->taakbalk = balk;
        f.HoofdvensterTonen = [this] { toonHoofdvenster(); };
        f.TaakbalkHertekenen = [this] {
            p.frmTaakbalk1->ZetAccountsZonderVerbinding(true);
            p.frmTaakbalk1->TekenKnop();
        };
    }
    p.frmTaakbalk1->Hoofdvenster = QStringLiteral("frmMain");
    p.frmTaakbalk1->Zichtbaar = true;
    p.frmTaakbalk1->LadenVormgeving();
    f.Form_Load();
    toonHoofdvenster();
}

void ClientStartSteps::StartVerbinding(bool opnieuw) {
    if (p.modMainVerbinding)
        p.modMainVerbinding->StartVerbinding(opnieuw);
}

void ClientStartSteps::Laden() {
    if (p.modMainLaden)
        p.modMainLaden->Laden();
}

QStringList ClientStartSteps::Accounts() {
    return p.modData ? p.modData->Accounts : QStringList();
}

void ClientStartSteps::VerbergLaadlabel() {
    p.startScreen->lblLadenZichtbaar = false;
    p.startScreen->picLadenZichtbaar = false;
    if (p.startScreen->Hertekenen)
        p.startScreen->Hertekenen();
}

void ClientStartSteps::OpenGlobal(bool eerste) {
    p.startScreen->OpenGlobal(eerste);
    meld(QStringLiteral("start screen for everyone (%1)").arg(p.modMain.Locatie));
}

void ClientStartSteps::OpenGroep(const QString& id) {
    p.startScreen->OpenGroep(id);
}

void ClientStartSteps::OpenLeraar(const QString& id) {
    p.startScreen->OpenLeraar(id);
}

void ClientStartSteps::OpenOnderhoud() {
    p.startScreen->OpenOnderhoud();
}

void ClientStartSteps::OpenFout(const QString& tekst) {
    p.startScreen->OpenFout(tekst);
}

void ClientStartSteps::ZetAutomatischeAanmelding(const QString& account, const QString&,
                                                 const QString&, bool afmelden) {
    meld(QStringLiteral("the workstation would log on as %1%2; the session of this machine is left "
                        "as it is")
             .arg(account, afmelden ? QStringLiteral(" after logging off") : QString()));
}

} // namespace tk
