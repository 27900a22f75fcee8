#include "ClientStartSteps.h"

#include "core/Programma.h"
#include "data/ModData.h"
#include "data/ModMainLaden.h"
#include "link/ModMainVerbinding.h"
#include "platform/ContainedSystemActions.h"
#include "platform/linux/PrivilegedSystemActions.h"
#include "screens/start/FrmActiveren.h"
#include "screens/start/FrmActiveren2View.h"
#include "screens/start/FrmMain.h"
#include "screens/start/FrmMainView.h"
#include "screens/taskbar/FrmTaakbalk1.h"
#include "screens/taskbar/FrmTaakbalk1View.h"
#include "session/ModMainSessie.h"
#include "theme/ModDataPictogrammen.h"
#include "theme/ModDataThemas.h"
#include "theme/ModThema.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTextStream>

namespace tk {

ClientStartSteps::ClientStartSteps(Programma& p) : UnbuiltStartSteps(p) {}

ClientStartSteps::~ClientStartSteps() {
    // The start screen's model outlives these steps: its hook into them goes first.
    if (m_view && p.startScreen)
        p.startScreen->VensterTonen = nullptr;
}

bool ClientStartSteps::StuurOpstartCommando(const QString& woord) {
    return p.modMainVerbinding && p.modMainVerbinding->StuurOpstartCommando(woord);
}

void ClientStartSteps::StartServer(bool firewall) {
    if (p.modMainVerbinding)
        p.modMainVerbinding->StartServer(firewall);
}

void ClientStartSteps::LaadThema() {
    p.modThema->LaadThema();
}

void ClientStartSteps::LaadThemas(bool toonVoortgang) {
    p.modDataThemas->LaadThemas(toonVoortgang);
}

void ClientStartSteps::LaadPictogrammen() {
    p.modDataPictogrammen->LaadPictogrammen();
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
        f.VensterTonen = [this] { toonHoofdvenster(); };
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
    p.frmMain->lblLadenZichtbaar = false;
    p.frmMain->picLadenZichtbaar = false;
    if (p.startScreen->onChanged)
        p.startScreen->onChanged();
}

void ClientStartSteps::OpenGlobal(bool eerste) {
    p.startScreen->OpenGlobal(eerste);
    // The launcher's log and a script watching the client see the workstation is ready.
    QTextStream(stdout) << "tafelkrater: start screen for everyone (" << p.modMain.Locatie << ")"
                        << Qt::endl;
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

// --- the session layer

ModMainSessie& ClientStartSteps::sessie() {
    if (!m_sessie) {
        if (ModMainSessie::SysteemInstelling(p))
            m_systeem = std::make_unique<PrivilegedSystemActions>(p.platform.programFolder());
        else
            m_systeem = std::make_unique<ContainedSystemActions>(p.platform.programFolder(),
                                                                 p.platform.clock());
        m_sessie = std::make_unique<ModMainSessie>(p, *m_systeem);
    }
    return *m_sessie;
}

bool ClientStartSteps::frmActiveren(bool rechten, bool resolutie, bool shellIngesteld,
                                    FrmInitialiseren* voortgang) {
    FrmActiveren wizard(p, sessie());
    // The wait window of the carrying out stands on its own, also on the silent path.
    FrmActiveren2View wacht(wizard.frmActiveren2);
    return wizard.Openen(rechten, resolutie, shellIngesteld, voortgang);
}

void ClientStartSteps::WijzigOpstarten() {
    sessie().WijzigOpstarten();
}

void ClientStartSteps::BewaarOpstartinstellingen() {
    sessie().BewaarOpstartinstellingen();
}

void ClientStartSteps::TafelkraterAccountVerwijderen() {
    sessie().TafelkraterAccountVerwijderen();
}

void ClientStartSteps::TafelkraterDeactiverenSetup() {
    sessie().TafelkraterDeactiverenSetup();
}

void ClientStartSteps::TafelkraterDeactiveren() {
    sessie().TafelkraterDeactiveren(false);
}

void ClientStartSteps::Afmelden() {
    sessie().Afmelden();
}

void ClientStartSteps::ZetBureaubladachtergrond(bool aan, bool opslaan) {
    sessie().ZetBureaubladachtergrond(aan, opslaan);
}

void ClientStartSteps::ZetBrowserbeperkingen(bool aan) {
    sessie().ZetBrowserbeperkingen(aan);
}

void ClientStartSteps::ZetSessiebeperkingen(bool opheffen, bool metTaakbeheer) {
    sessie().ZetSysteembeperkingen(opheffen, metTaakbeheer);
}

void ClientStartSteps::ZetAutomatischeAanmelding(const QString& account, const QString& wachtwoord,
                                                 const QString& domein, bool afmelden) {
    sessie().AanmeldenAlsAccount(account, wachtwoord, domein, afmelden);
}

void ClientStartSteps::ControleerLerarenRechten() {
    sessie().ControleerLerarenRechten();
}

void ClientStartSteps::StartVerkenner() {
    sessie().StartVerkenner();
}

void ClientStartSteps::ZetProxy(bool aan) {
    sessie().ZetProxy(aan);
}

void ClientStartSteps::NaarSysteembureaublad() {
    sessie().NaarSysteembureaublad();
}

bool ClientStartSteps::SessieActie(const QString& actie) {
    return sessie().SessieActie(actie) || UnbuiltStartSteps::SessieActie(actie);
}

} // namespace tk
