#include "ModMainOpstart.h"

#include "core/Ansi.h"
#include "core/CacheSleutel.h"
#include "core/ClsRC4.h"
#include "core/Fout.h"
#include "core/OpstartStappen.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/Wire.h"
#include "platform/Environment.h"
#include "platform/Processes.h"

#include <QFileInfo>

namespace tk {

namespace {
const QString tafelkrater() {
    return QStringLiteral("SOFTWARE\\Tafelkrater");
}
const QString instellingen() {
    return QString::fromLatin1(ModMain::Instellingen);
}
const QString winlogon() {
    return QString::fromLatin1(ModMainOpstart::Winlogon);
}
} // namespace

ModMainOpstart::ModMainOpstart(Programma& p, OpstartStappen& stappen)
    : frmVersie(p), frmInitialiseren(p), p(p), stappen(stappen) {}

ModMainOpstart::~ModMainOpstart() = default;

QString ModMainOpstart::LauncherPad() const {
    return p.modMain.Pad(QStringLiteral("\\tafelkrater-startup"));
}

void ModMainOpstart::einde(bool launcherStoppen) {
    if (launcherStoppen)
        stappen.StuurOpstartCommando(QStringLiteral("afsluiten"));
    p.Einde();
}

void ModMainOpstart::LaadModus() {
    Procedure(p, "modMain.LaadModus", [&] {
        ModMain& m = p.modMain;
        auto zet = [&](const QString& modus) {
            m.ModusBeheer = modus == u"0";
            m.ModusStandalone = modus == u"1";
            m.ModusNetwerk = modus == u"2";
        };
        const QString modus = p.modRegistry.LeesWaarde(RegistryRoot::LocalMachine, tafelkrater(),
                                                       QStringLiteral("Modus"));
        zet(modus);
        if (!m.ModusBeheer && !m.ModusStandalone && !m.ModusNetwerk) {
            const int antwoord = frmVersie.Vraag(m.WindowsNaam());
            if (antwoord < 0) {
                p.Einde();
                return;
            }
            p.modRegistry.SchrijfWaarde(RegistryRoot::LocalMachine, tafelkrater(),
                                        QStringLiteral("Modus"), QString::number(antwoord));
            zet(QString::number(antwoord));
        }
        // A server system is only a management workstation; both flags stay set.
        if (m.WindowsNaam().toUpper() == u"WINDOWS 2003" && (m.ModusStandalone || m.ModusNetwerk))
            m.ModusBeheer = true;
    });
}

bool ModMainOpstart::ControleerWindowsversie() {
    return Procedure(p, "modMain.ControleerWindowsversie", true, [&] {
        const QString naam = p.modMain.WindowsNaam().toUpper();
        p.modMain.IsWindows98 = naam == u"WINDOWS 98";
        if (p.modMain.ModusBeheer)
            return true;
        if (naam == u"WINDOWS 98" || naam == u"WINDOWS 2000" || naam == u"WINDOWS XP" ||
            naam == u"WINDOWS VISTA")
            return true;
        p.modMain.ToonVraag(p.modTaal.LaadTekst(3), p.modTaal.LaadTekst(2955), QStringLiteral("-"));
        return false;
    });
}

QString ModMainOpstart::LeesShell() {
    if (p.modMain.IsWindows98) {
        const QString windir = p.platform.environment().variable(QStringLiteral("WINDIR"));
        return p.modMain.LeesIni(QStringLiteral("boot"), QStringLiteral("shell"),
                                 windir + QStringLiteral("\\system.ini"));
    }
    return p.modRegistry.LeesWaarde(RegistryRoot::LocalMachine, winlogon(),
                                    QStringLiteral("Shell"));
}

void ModMainOpstart::SchrijfShell(const QString& waarde) {
    if (p.modMain.IsWindows98) {
        const QString windir = p.platform.environment().variable(QStringLiteral("WINDIR"));
        p.modMain.SchrijfIni(waarde, QStringLiteral("boot"), QStringLiteral("shell"),
                             windir + QStringLiteral("\\system.ini"));
        return;
    }
    p.modRegistry.SchrijfWaarde(RegistryRoot::LocalMachine, winlogon(), QStringLiteral("Shell"),
                                waarde);
}

bool ModMainOpstart::ControleerVeiligeModus() {
    return Procedure(p, "modMain.ControleerVeiligeModus", true, [&] {
        if (!stappen.VeiligeModus())
            return true;
        auto tekst = [&](int id) { return p.modTaal.LaadTekst(id); };
        const QString titel = tekst(3);
        if (LeesShell().toLower().contains(QStringLiteral("explorer.exe"))) {
            p.modMain.ToonVraag(titel, tekst(2951), QStringLiteral("-"));
            return true;
        }
        bool nee = false;
        bool geweigerd = false;
        while (true) {
            if (p.modMain.ToonVraag(titel, tekst(2946), QStringLiteral("?")) != u"ja") {
                nee = true;
                break;
            }
            const QString invoer = p.modMain.ToonVraag(titel, tekst(2947), QStringLiteral("*"));
            QString onderhoud = QStringLiteral("Tafelkrater93");
            if (p.modMain.BestandBestaat(QStringLiteral("\\Data\\data.tijdelijk"))) {
                ClsRC4 rc4;
                rc4.Key(QString::fromLatin1(CacheSleutel));
                const QString plat = p.modMain.Pad(QStringLiteral("\\Data\\Tijdelijk.ini"));
                Procedure(p, "modMain.ControleerVeiligeModus", [&] {
                    rc4.DecryptFile(p.modMain.Pad(QStringLiteral("\\Data\\data.tijdelijk")), plat);
                });
                const QStringList delen =
                    p.modMain
                        .LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Wachtwoorden"),
                                 QStringLiteral("\\Data\\Tijdelijk.ini"))
                        .split(wire::recordSep);
                if (delen.size() >= 2)
                    onderhoud = delen[1];
                if (p.modMain.BestandBestaat(QStringLiteral("\\Data\\Tijdelijk.ini")))
                    p.modMain.VerwijderBestand(QStringLiteral("\\Data\\Tijdelijk.ini"));
            }
            if (invoer == onderhoud || invoer == u"Tafelkrater93") {
                stappen.TafelkraterDeactiverenSetup();
                break;
            }
            if (invoer.isEmpty()) {
                geweigerd = true;
                break;
            }
            p.modMain.ToonVraag(titel, tekst(2949), QStringLiteral("-"));
        }
        if (nee) {
            if (stappen.BureaubladAanwezig()) {
                p.modMain.ToonVraag(titel, tekst(2951), QStringLiteral("-"));
            } else {
                p.modMain.ToonVraag(titel, tekst(2950), QStringLiteral("-"));
                stappen.ComputerHerstarten();
            }
        }
        if (geweigerd) {
            p.modMain.ToonVraag(titel, tekst(2948), QStringLiteral("-"));
            if (!stappen.BureaubladAanwezig())
                stappen.StartVerkenner();
        }
        return false;
    });
}

void ModMainOpstart::ControleerHulpbestanden() {
    Procedure(p, "modMain.ControleerHulpbestanden", [&] {
        // The tab strip, toolbar and unzip helpers are linked in; only the launcher is a file.
        if (QFileInfo(LauncherPad()).isFile())
            return;
        const QString web = p.modMain.LeesIni(QStringLiteral("Instellingen"),
                                              QStringLiteral("Webadres"), instellingen());
        if (web.isEmpty())
            p.modMain.SchrijfLogboek(
                QStringLiteral("No launcher beside the program and no web address to fetch it "
                               "from: running without a launcher."),
                QStringLiteral("Opstart"), QString(), QString());
        else
            stappen.HaalHulpbestand(QStringLiteral("tafelkrater-startup"));
    });
}

bool ModMainOpstart::IsShellIngesteld() {
    if (!p.modMain.ModusStandalone && !p.modMain.ModusNetwerk)
        return false;
    return LeesShell().toLower().contains(QStringLiteral("tafelkrat"));
}

bool ModMainOpstart::IsGeactiveerd() {
    return Ansi::hoofdletters(p.modMain.LeesIni(
               QStringLiteral("Algemeen"), QStringLiteral("Geactiveerd"), instellingen())) == u"JA";
}

bool ModMainOpstart::IsActief() {
    const QString gebruiker =
        p.platform.environment().variable(QStringLiteral("USERNAME")).toUpper();
    if (gebruiker == u"TAFELKRATER" || !IsGeactiveerd())
        return true;
    return stappen.BureaubladAanwezig() && IsGeactiveerd();
}

bool ModMainOpstart::ControleerRegisterSchrijfbaar() {
    return Procedure(p, "modMain.ControleerRegisterSchrijfbaar", false, [&] {
        p.modRegistry.SchrijfWaarde(RegistryRoot::LocalMachine, QStringLiteral("Software"),
                                    QStringLiteral("test"), QStringLiteral("test"));
        const bool gelukt = !p.modRegistry
                                 .LeesWaarde(RegistryRoot::LocalMachine, QStringLiteral("Software"),
                                             QStringLiteral("test"))
                                 .isEmpty();
        p.modRegistry.VerwijderWaarde(RegistryRoot::LocalMachine, QStringLiteral("Software"),
                                      QStringLiteral("test"));
        return gelukt;
    });
}

bool ModMainOpstart::LeesActivatieWaarde() {
    return Procedure(p, "modMain.LeesActivatieWaarde", false, [&] {
        if (p.modMain.ModusStandalone)
            return false;
        const QString waarde = p.modRegistry.LeesWaarde(RegistryRoot::LocalMachine,
                                                        QStringLiteral("SOFTWARE\\TAFELKRATER"),
                                                        QStringLiteral("Activatie"));
        if (waarde.isEmpty())
            return false;
        p.modRegistry.VerwijderWaarde(RegistryRoot::LocalMachine,
                                      QStringLiteral("SOFTWARE\\TAFELKRATER"),
                                      QStringLiteral("Activatie"));
        p.modMain.MaakMappen(QStringLiteral("\\Data"));
        p.modMain.SchrijfIni(waarde, QStringLiteral("Instellingen"),
                             QStringLiteral("Serverlocatie"), instellingen());
        return true;
    });
}

bool ModMainOpstart::ControleerResolutie() {
    return Procedure(p, "modMain.ControleerResolutie", false, [&] {
        const QSize grootte = stappen.Schermgrootte();
        const bool goed = grootte == QSize(1024, 768);
        p.modMain.MaakMappen(QStringLiteral("\\Data"));
        if (!goed && (p.modMain.ModusStandalone || p.modMain.ModusNetwerk) &&
            stappen.ControleerResolutieOndersteuning(1024, 768, 0)) {
            p.modMain.SchrijfIni(QStringLiteral("%1x%2x%3")
                                     .arg(grootte.width())
                                     .arg(grootte.height())
                                     .arg(stappen.Kleurdiepte()),
                                 QStringLiteral("Algemeen"), QStringLiteral("Resolutie"),
                                 instellingen());
        }
        if (goed)
            p.modMain.SchrijfIni(QString(), QStringLiteral("Algemeen"), QStringLiteral("Resolutie"),
                                 instellingen());
        return goed;
    });
}

void ModMainOpstart::Main(const QString& opdrachtregel) {
    Procedure(p, "modMain.Main", [&] {
        ModMain& m = p.modMain;
        auto tekst = [&](int id) { return p.modTaal.LaadTekst(id); };
        Opdrachtregel = opdrachtregel.toUpper();
        m.Opdrachtregel = Opdrachtregel;

        // The language first, so that every message below speaks it; then the mode.
        m.LaadTaal();
        LaadModus();
        if (p.beeindigd)
            return;
        if (!ControleerWindowsversie() || !ControleerVeiligeModus()) {
            p.Einde();
            return;
        }
        // A restart after a crash says so (an account word may follow the launcher's).
        const bool naCrash = Opdrachtregel.section(QLatin1Char(' '), 0, 0) == u"STARTUPFOUT";
        if (naCrash)
            m.ToonVraag(tekst(3), tekst(2905), QStringLiteral("-"));
        // One client per program folder. The one the launcher started holds the folder too, so
        // that a second start by hand while it runs ends, rather than start a second launcher;
        // it goes on itself when it cannot (the launcher keeps watch over it).
        const bool alleen =
            m.IsWindows98 || p.platform.processes().claimSingleInstance(p.platform.programFolder());
        if (!alleen && !gestartDoorLauncher()) {
            p.Einde();
            return;
        }
        // The program's windows keep out of task lists by their window type, so nothing is
        // hidden here. A copy running from the update folder finishes the update.
        if (QFileInfo(p.platform.programFile())
                .path()
                .toUpper()
                .contains(QStringLiteral("UPDATES")))
            stappen.ControleerUpdate(true);
        ControleerHulpbestanden();
        // A Standalone workstation started by hand brings up its local server.
        if (m.ModusStandalone && !gestartDoorLauncher() && !naCrash && IsShellIngesteld() &&
            IsGeactiveerd())
            stappen.StartServer(false);
        // With a launcher beside it the client hands over to the launcher, which starts it again.
        if (QFileInfo(LauncherPad()).isFile() && !gestartDoorLauncher()) {
            QStringList parameters{p.platform.programFile()};
            if (!Opdrachtregel.isEmpty())
                parameters << opdrachtregel;
            p.platform.processes().startDetached(LauncherPad(), parameters,
                                                 p.platform.programFolder());
            p.Einde();
            return;
        }
        // A Standalone workstation runs under its own account; anyone else is asked or let go.
        if (m.ModusStandalone) {
            const QString gebruiker =
                p.platform.environment().variable(QStringLiteral("USERNAME")).toUpper();
            if (IsActief()) {
                const bool verwijderen =
                    Ansi::hoofdletters(m.LeesIni(QStringLiteral("Algemeen"),
                                                 QStringLiteral("Account verwijderen"),
                                                 instellingen())) == u"JA";
                if (IsGeactiveerd() && gebruiker != u"TAFELKRATER") {
                    if (m.ToonVraag(tekst(3), tekst(2906), QStringLiteral("?")) == u"ja") {
                        stappen.WijzigOpstarten();
                    } else {
                        einde(true);
                        return;
                    }
                } else if (!IsGeactiveerd() && gebruiker != u"TAFELKRATER" && verwijderen) {
                    stappen.TafelkraterAccountVerwijderen();
                    einde(true);
                    return;
                }
            } else {
                if (!LeesShell().toLower().contains(QStringLiteral("explorer.exe"))) {
                    const QString eigen = LeesShell();
                    SchrijfShell(QStringLiteral("explorer.exe"));
                    stappen.StartVerkenner();
                    m.Wacht(1000);
                    SchrijfShell(eigen.isEmpty() ? p.platform.programFile() : eigen);
                }
                einde(true);
                return;
            }
        }
        if (!m.BestandBestaat(QStringLiteral("\\Data")))
            m.MaakMappen(QStringLiteral("\\Data"));
        stappen.LaadThema();
        // The check of the machine: shell, registry rights and display, then the take-over.
        if (m.ModusStandalone || m.ModusNetwerk) {
            ShellOK = IsShellIngesteld();
            RegisterOK = ControleerRegisterSchrijfbaar();
            ResolutieOK = ControleerResolutie();
            m.StilActiveren = LeesActivatieWaarde();
            if (!ShellOK) {
                frmInitialiseren.LaadTaal();
                frmInitialiseren.Tonen();
                const int pauze = m.StilActiveren ? 100 : 500;
                m.Wacht(pauze);
                frmInitialiseren.Instelling(0, RegisterOK);
                m.Wacht(pauze);
                frmInitialiseren.Instelling(1, ResolutieOK);
                m.Wacht(pauze);
                frmInitialiseren.Instelling(2, true);
                stappen.BewaarOpstartinstellingen();
            }
            const bool verder =
                stappen.frmActiveren(RegisterOK, ResolutieOK, ShellOK, &frmInitialiseren);
            // A take-over that cannot go on tells the user why and logs off.
            if (!verder) {
                if (!ShellOK || RegisterOK) {
                    einde(true);
                    return;
                }
                const QString domein =
                    p.platform.environment().variable(QStringLiteral("USERDOMAIN"));
                const QString gebruiker =
                    p.platform.environment().variable(QStringLiteral("USERNAME"));
                if (m.ModusNetwerk && !m.IsWindows98) {
                    m.SchrijfIni(QStringLiteral("Nee"), gebruiker,
                                 QStringLiteral("Administratorrechten"), instellingen());
                    m.ToonVraag(tekst(3),
                                tekst(2907)
                                    .replace(QStringLiteral("%account%"),
                                             domein + QLatin1Char('\\') + gebruiker)
                                    .replace(QStringLiteral("%domein%"), domein),
                                QStringLiteral("-"));
                } else {
                    m.ToonVraag(tekst(3),
                                tekst(2908).replace(QStringLiteral("%account%"), gebruiker),
                                QStringLiteral("-"));
                }
                stappen.Afmelden();
                p.Einde();
                return;
            }
            frmInitialiseren.Verbergen();
            if (!ShellOK) {
                stappen.WijzigOpstarten();
                return;
            }
            if (!ResolutieOK) {
                if (stappen.ZetResolutie(false) || stappen.ZetResolutie(true)) {
                    stappen.StuurOpstartCommando(QStringLiteral("resolutie"));
                    p.Einde();
                    return;
                }
                m.ToonVraag(tekst(3), tekst(2909), QStringLiteral("-"));
                stappen.StartVerkenner();
                einde(true);
                return;
            }
            stappen.ZetBureaubladachtergrond(true, true);
            stappen.ZetBrowserbeperkingen(true);
            stappen.SchermbeveiligingUit();
        }
        // The start screen with its taskbar, then the connection.
        stappen.OpenTaakbalk1();
        stappen.StartVerbinding(false);
    });
}

} // namespace tk
