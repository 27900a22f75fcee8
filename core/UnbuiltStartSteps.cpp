#include "UnbuiltStartSteps.h"

#include "core/Programma.h"

namespace tk {

UnbuiltStartSteps::UnbuiltStartSteps(Programma& p) : p(p) {}

void UnbuiltStartSteps::nietGebouwd(const char* stap, const QString& inPlaatsDaarvan) {
    const QString naam = QString::fromLatin1(stap);
    if (m_gemeld.contains(naam))
        return;
    m_gemeld << naam;
    p.modMain.SchrijfLogboek(
        QStringLiteral("%1 is not built on this workstation yet: %2").arg(naam, inPlaatsDaarvan),
        QStringLiteral("Tafelkrater"), naam, QString());
}

// --- the system's shell and the take-over (session layer)

bool UnbuiltStartSteps::VeiligeModus() {
    nietGebouwd("VeiligeModus", QStringLiteral("the machine counts as not in safe mode"));
    return false;
}

bool UnbuiltStartSteps::BureaubladAanwezig() {
    nietGebouwd("BureaubladAanwezig", QStringLiteral("no desktop of the system counts as present"));
    return false;
}

void UnbuiltStartSteps::StartVerkenner() {
    nietGebouwd("StartVerkenner", QStringLiteral("the system's desktop is not started"));
}

void UnbuiltStartSteps::ComputerHerstarten() {
    nietGebouwd("ComputerHerstarten", QStringLiteral("the machine is not restarted"));
}

bool UnbuiltStartSteps::frmActiveren(bool, bool, bool, FrmInitialiseren*) {
    nietGebouwd("frmActiveren", QStringLiteral("the workstation goes on without the take-over"));
    return true;
}

void UnbuiltStartSteps::WijzigOpstarten() {
    nietGebouwd("WijzigOpstarten", QStringLiteral("the logon of the machine is left as it is"));
}

void UnbuiltStartSteps::BewaarOpstartinstellingen() {
    nietGebouwd("BewaarOpstartinstellingen", QStringLiteral("the logon settings are not saved"));
}

void UnbuiltStartSteps::TafelkraterAccountVerwijderen() {
    nietGebouwd("TafelkraterAccountVerwijderen", QStringLiteral("no account is removed"));
}

void UnbuiltStartSteps::TafelkraterDeactiverenSetup() {
    nietGebouwd("TafelkraterDeactiverenSetup", QStringLiteral("the machine is not handed back"));
}

void UnbuiltStartSteps::TafelkraterDeactiveren() {
    nietGebouwd("TafelkraterDeactiveren", QStringLiteral("the machine is not handed back"));
}

void UnbuiltStartSteps::Afmelden() {
    nietGebouwd("Afmelden", QStringLiteral("the machine's session is not logged off"));
}

void UnbuiltStartSteps::ZetBureaubladachtergrond(bool, bool) {
    nietGebouwd("ZetBureaubladachtergrond", QStringLiteral("the wallpaper is left as it is"));
}

void UnbuiltStartSteps::ZetBrowserbeperkingen(bool) {
    nietGebouwd("ZetBrowserbeperkingen", QStringLiteral("no browser limits are set"));
}

void UnbuiltStartSteps::ZetProxy(bool) {
    nietGebouwd("ZetProxy", QStringLiteral("the proxy of the machine is left as it is"));
}

void UnbuiltStartSteps::NaarSysteembureaublad() {
    nietGebouwd("NaarSysteembureaublad", QStringLiteral("the system's desktop is not started"));
}

void UnbuiltStartSteps::SchermbeveiligingUit() {
    nietGebouwd("SchermbeveiligingUit", QStringLiteral("the screen saver is left as it is"));
}

void UnbuiltStartSteps::ControleerLerarenRechten() {
    nietGebouwd("ControleerLerarenRechten", QStringLiteral("teachers' accounts keep their rights"));
}

void UnbuiltStartSteps::ZetSessiebeperkingen(bool, bool) {
    nietGebouwd("ZetSessiebeperkingen", QStringLiteral("no logon policies are set"));
}

void UnbuiltStartSteps::ZetAutomatischeAanmelding(const QString&, const QString&, const QString&,
                                                  bool) {
    nietGebouwd("ZetAutomatischeAanmelding",
                QStringLiteral("the automatic logon of the machine is left as it is"));
}

bool UnbuiltStartSteps::SessieActie(const QString& actie) {
    nietGebouwd("SessieActie",
                QStringLiteral("'%1' leaves the session of this machine as it is and the client "
                               "ends")
                    .arg(actie.section(QLatin1Char('|'), 0, 0)));
    return false;
}

// --- the launcher, the local server, helper files, updates

bool UnbuiltStartSteps::StuurOpstartCommando(const QString& woord) {
    nietGebouwd("StuurOpstartCommando", QStringLiteral("no launcher hears '%1'").arg(woord));
    return false;
}

void UnbuiltStartSteps::StartServer(bool) {
    nietGebouwd("StartServer", QStringLiteral("no local server is started"));
}

void UnbuiltStartSteps::HaalHulpbestand(const QString& naam) {
    nietGebouwd("HaalHulpbestand", QStringLiteral("'%1' is not fetched").arg(naam));
}

void UnbuiltStartSteps::ControleerUpdate(bool) {
    nietGebouwd("ControleerUpdate", QStringLiteral("no update is looked for"));
}

void UnbuiltStartSteps::ControleerChangelog() {
    nietGebouwd("ControleerChangelog", QStringLiteral("the change log is not shown"));
}

// --- the display

QSize UnbuiltStartSteps::Schermgrootte() {
    nietGebouwd("Schermgrootte", QStringLiteral("the screen counts as 1024 by 768"));
    return QSize(1024, 768);
}

int UnbuiltStartSteps::Kleurdiepte() {
    nietGebouwd("Kleurdiepte", QStringLiteral("the colour depth counts as 32 bits"));
    return 32;
}

bool UnbuiltStartSteps::ControleerResolutieOndersteuning(int, int, int) {
    nietGebouwd("ControleerResolutieOndersteuning",
                QStringLiteral("every display mode counts as supported"));
    return true;
}

bool UnbuiltStartSteps::ZetResolutie(bool) {
    nietGebouwd("ZetResolutie", QStringLiteral("the display mode is left as it is"));
    return false;
}

// --- the screens, the theme and the load

void UnbuiltStartSteps::LaadThema() {
    nietGebouwd("LaadThema", QStringLiteral("no theme is loaded"));
}

void UnbuiltStartSteps::OpenTaakbalk1() {
    nietGebouwd("OpenTaakbalk1", QStringLiteral("no start screen is shown"));
}

void UnbuiltStartSteps::StartVerbinding(bool) {
    nietGebouwd("StartVerbinding", QStringLiteral("no connection is made"));
}

void UnbuiltStartSteps::Laden() {
    nietGebouwd("Laden", QStringLiteral("no data are loaded"));
}

void UnbuiltStartSteps::LaadThemas(bool) {
    nietGebouwd("LaadThemas", QStringLiteral("the theme store is not brought up to date"));
}

void UnbuiltStartSteps::LaadPictogrammen() {
    nietGebouwd("LaadPictogrammen", QStringLiteral("the icon store is not brought up to date"));
}

QStringList UnbuiltStartSteps::Accounts() {
    nietGebouwd("Accounts", QStringLiteral("no account logs on automatically"));
    return {};
}

void UnbuiltStartSteps::VerbergLaadlabel() {
    nietGebouwd("VerbergLaadlabel", QStringLiteral("there is no loading label to hide"));
}

void UnbuiltStartSteps::OpenGlobal(bool) {
    nietGebouwd("OpenGlobal", QStringLiteral("no start screen opens"));
}

void UnbuiltStartSteps::OpenGroep(const QString&) {
    nietGebouwd("OpenGroep", QStringLiteral("no class desktop opens"));
}

void UnbuiltStartSteps::OpenLeraar(const QString&) {
    nietGebouwd("OpenLeraar", QStringLiteral("no teacher's desktop opens"));
}

void UnbuiltStartSteps::OpenOnderhoud() {
    nietGebouwd("OpenOnderhoud", QStringLiteral("the maintenance module does not open"));
}

void UnbuiltStartSteps::OpenFout(const QString&) {
    nietGebouwd("OpenFout", QStringLiteral("the fault is not shown on a start screen"));
}

} // namespace tk
