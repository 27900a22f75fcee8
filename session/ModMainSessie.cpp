#include "ModMainSessie.h"

#include "core/Ansi.h"
#include "core/ModMain.h"
#include "core/OpstartStappen.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "link/FrmMainLink.h"
#include "platform/Display.h"
#include "platform/Environment.h"
#include "platform/Processes.h"
#include "platform/RegFile.h"
#include "platform/RegistryStore.h"
#include "platform/SystemActions.h"
#include "session/ModMainAccounts.h"
#include "theme/ModThema.h"

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <optional>

namespace tk {

namespace {
const QString instellingen() {
    return QString::fromLatin1(ModMain::Instellingen);
}
const QString oudeSectie() {
    return QStringLiteral("Oude opstartinstellingen");
}
QString latin(const char* tekst) {
    return QString::fromLatin1(tekst);
}
} // namespace

ModMainSessie::ModMainSessie(Programma& p, SystemActions& systeem) : p(p), m_systeem(systeem) {}

bool ModMainSessie::SysteemInstelling(Programma& p) {
    return p.modMain
               .LeesIni(QStringLiteral("Instellingen"), QStringLiteral("Sessie"), instellingen())
               .trimmed()
               .compare(QStringLiteral("systeem"), Qt::CaseInsensitive) == 0;
}

QString ModMainSessie::LinuxAccount(const QString& account) {
    return account.section(QLatin1Char('\\'), -1).toLower();
}

// --- small helpers over the store and the settings file

QString ModMainSessie::lees(RegistryRoot root, const char* pad, const char* naam) {
    return p.modRegistry.LeesWaarde(root, latin(pad), latin(naam));
}

void ModMainSessie::schrijf(RegistryRoot root, const char* pad, const char* naam,
                            const QString& waarde) {
    p.modRegistry.SchrijfWaarde(root, latin(pad), latin(naam), waarde);
}

void ModMainSessie::schrijfGetal(RegistryRoot root, const char* pad, const char* naam,
                                 long waarde) {
    p.modRegistry.SchrijfGetal(root, latin(pad), latin(naam), waarde);
}

void ModMainSessie::verwijder(RegistryRoot root, const char* pad, const char* naam) {
    p.modRegistry.VerwijderWaarde(root, latin(pad), latin(naam));
}

QString ModMainSessie::oud(const char* sleutel) {
    return p.modMain.LeesIni(oudeSectie(), latin(sleutel), instellingen());
}

void ModMainSessie::bewaar(const char* sleutel, const QString& waarde) {
    p.modMain.SchrijfIni(waarde, oudeSectie(), latin(sleutel), instellingen());
}

QString ModMainSessie::systeemIni() {
    return p.platform.environment().variable(QStringLiteral("WINDIR")) +
           QStringLiteral("\\system.ini");
}

QString ModMainSessie::shell() {
    if (p.modMain.IsWindows98)
        return p.modMain.LeesIni(QStringLiteral("boot"), QStringLiteral("shell"), systeemIni());
    return lees(RegistryRoot::LocalMachine, WinlogonNT, "Shell");
}

void ModMainSessie::schrijfShell(const QString& waarde) {
    if (p.modMain.IsWindows98)
        p.modMain.SchrijfIni(waarde, QStringLiteral("boot"), QStringLiteral("shell"), systeemIni());
    else
        schrijf(RegistryRoot::LocalMachine, WinlogonNT, "Shell", waarde);
}

bool ModMainSessie::actie(const QString& verb, const QStringList& argumenten,
                          const QString& invoer) {
    QString uitvoer;
    if (m_systeem.run(verb, argumenten, invoer, &uitvoer))
        return true;
    p.modMain.SchrijfLogboek(
        QStringLiteral("The machine refused '%1': %2").arg(verb, uitvoer.trimmed()),
        QStringLiteral("Tafelkrater"), QStringLiteral("modMain.Sessie"), QString());
    m_geweigerd = QStringList{verb} + argumenten;
    m_weigering = uitvoer.trimmed();
    return false;
}

void ModMainSessie::meldWeigering() {
    QString tekst = p.modTaal.LaadTekst(9620);
    tekst.replace(QStringLiteral("%actie%"), m_geweigerd.join(QLatin1Char(' ')));
    tekst.replace(QStringLiteral("%fout%"), m_weigering);
    p.modMain.ToonVraag(p.modTaal.LaadTekst(3), tekst, QStringLiteral("-"));
}

// --- the machine's state

bool ModMainSessie::IsShellIngesteld() {
    return shell().toLower().contains(QStringLiteral("tafelkrat"));
}

bool ModMainSessie::ControleerRegisterSchrijfbaar() {
    return Procedure(p, "modMain.ControleerRegisterSchrijfbaar", false, [&] {
        // A name no other program uses: the computer's name with our own word.
        const QString naam =
            QStringLiteral("TafelkraterTest-") + p.platform.environment().computerName();
        const QString pad = QStringLiteral("Software");
        p.modRegistry.SchrijfWaarde(RegistryRoot::LocalMachine, pad, naam, QStringLiteral("test"));
        const bool gelukt =
            p.modRegistry.LeesWaarde(RegistryRoot::LocalMachine, pad, naam) == u"test";
        if (gelukt)
            p.modRegistry.VerwijderWaarde(RegistryRoot::LocalMachine, pad, naam);
        return gelukt;
    });
}

QString ModMainSessie::SysteembureaubladOpdracht() {
    const QString opdracht = p.modMain
                                 .LeesIni(QStringLiteral("Instellingen"),
                                          QStringLiteral("Systeembureaublad"), instellingen())
                                 .trimmed();
    return opdracht.isEmpty() ? QStringLiteral("x-session-manager") : opdracht;
}

void ModMainSessie::StartVerkenner() {
    Procedure(p, "modMain.StartVerkenner", [&] {
        const QStringList delen = QProcess::splitCommand(SysteembureaubladOpdracht());
        if (delen.isEmpty() ||
            !p.platform.processes().startDetached(delen.first(), delen.mid(1),
                                                  p.platform.environment().homeFolder()))
            p.modMain.SchrijfLogboek(QStringLiteral("The system's desktop '%1' did not start")
                                         .arg(SysteembureaubladOpdracht()),
                                     QStringLiteral("Tafelkrater"),
                                     QStringLiteral("modMain.StartVerkenner"), QString());
    });
}

void ModMainSessie::NaarSysteembureaublad() {
    Procedure(p, "modMain.NaarWindowsOmgeving", [&] {
        ModMain& m = p.modMain;
        if (m.IsWindows98) {
            const QString backup = m.Pad(QStringLiteral("\\backup.ini"));
            QFile::remove(backup);
            QFile::copy(m.Pad(systeemIni()), backup);
            schrijfShell(QStringLiteral("Explorer.exe"));
        } else {
            schrijfShell(QStringLiteral("explorer.exe"));
        }
        StartVerkenner();
        m.Wacht(1000);
        schrijfShell(p.platform.programFile());
    });
}

// --- the logon values before the take-over, and back

void ModMainSessie::BewaarOpstartinstellingen() {
    Procedure(p, "modMain.BewaarOpstartinstellingen", [&] {
        const auto lm = RegistryRoot::LocalMachine;
        if (p.modMain.IsWindows98) {
            bewaar("DontDisplayLastUserName", lees(lm, Winlogon98, "DontDisplayLastUserName"));
            bewaar("AutoAdminLogon", lees(lm, Winlogon98, "AutoAdminLogon"));
            bewaar("Gebruikersnaam", lees(lm, Winlogon98, "DefaultUserName"));
            // The password is not kept: the field repeats the name.
            bewaar("Wachtwoord", lees(lm, Winlogon98, "DefaultUserName"));
            bewaar("Domein", lees(lm, Winlogon98, "DefaultDomain"));
            bewaar("DisablePwdCaching", lees(lm, Netwerkbeleid, "DisablePwdCaching"));
        } else {
            auto een = [](bool ja) { return ja ? QStringLiteral("1") : QString(); };
            bewaar("AutoAdminLogon", een(lees(lm, WinlogonNT, "AutoAdminLogon") == u"1"));
            const QString force = lees(lm, WinlogonNT, "ForceAutoLogon");
            bewaar("ForceAutoLogon", een(force == u"1" || force == u"2"));
            bewaar("DisableCAD", QString::number(p.modRegistry.LeesGetal(
                                     lm, latin(WinlogonNT), QStringLiteral("DisableCAD"))));
            bewaar("Gebruikersnaam", lees(lm, WinlogonNT, "DefaultUsername"));
            bewaar("Wachtwoord", lees(lm, WinlogonNT, "DefaultPassword"));
            bewaar("Domein", lees(lm, WinlogonNT, "DefaultDomainName"));
            bewaar("Domein2", lees(lm, WinlogonNT, "DefaultDomain"));
            bewaar("LogonType", een(p.modRegistry.LeesGetal(lm, latin(WinlogonNT),
                                                            QStringLiteral("Logontype")) == 1));
        }
        const auto cu = RegistryRoot::CurrentUser;
        bewaar("Proxy", p.modRegistry.LeesGetal(cu, latin(Internetinstellingen),
                                                QStringLiteral("ProxyEnable")) == 0
                            ? QStringLiteral("Nee")
                            : QStringLiteral("Ja"));
        bewaar("ProxyServer", lees(cu, Internetinstellingen, "ProxyServer"));
    });
}

void ModMainSessie::HerstelOpstartinstellingen() {
    Procedure(p, "modMain.HerstelOpstartinstellingen", [&] {
        const auto lm = RegistryRoot::LocalMachine;
        // A non-empty saved value goes back as a string; an empty one deletes the value.
        auto terug = [&](const char* sleutel, const char* pad, const char* naam) {
            const QString waarde = oud(sleutel);
            if (waarde.isEmpty())
                verwijder(lm, pad, naam);
            else
                schrijf(lm, pad, naam, waarde);
        };
        if (p.modMain.IsWindows98) {
            terug("DontDisplayLastUserName", Winlogon98, "DontDisplayLastUserName");
            terug("AutoAdminLogon", Winlogon98, "AutoAdminLogon");
            terug("Gebruikersnaam", Winlogon98, "DefaultUserName");
            terug("Wachtwoord", Winlogon98, "DefaultPassword");
            terug("Domein", Winlogon98, "DefaultDomain");
            // Written under the network policies, but an empty one is deleted from the logon key.
            const QString caching = oud("DisablePwdCaching");
            if (caching.isEmpty())
                verwijder(lm, Winlogon98, "DisablePwdCaching");
            else
                schrijf(lm, Netwerkbeleid, "DisablePwdCaching", caching);
        } else {
            terug("AutoAdminLogon", WinlogonNT, "AutoAdminLogon");
            terug("ForceAutoLogon", WinlogonNT, "ForceAutoLogon");
            if (oud("DisableCAD") == u"1")
                schrijfGetal(lm, WinlogonNT, "DisableCAD", 1);
            else
                verwijder(lm, WinlogonNT, "DisableCAD");
            const QString naam = oud("Gebruikersnaam");
            if (naam.isEmpty()) {
                verwijder(lm, WinlogonNT, "DefaultUsername");
                verwijder(lm, WinlogonNT, "altDefaultUsername");
            } else {
                schrijf(lm, WinlogonNT, "DefaultUserName", naam);
            }
            terug("Wachtwoord", WinlogonNT, "DefaultPassword");
            terug("Domein", WinlogonNT, "DefaultDomainName");
            terug("Domein2", WinlogonNT, "DefaultDomain");
            const QString soort = oud("LogonType");
            if (soort.isEmpty())
                verwijder(lm, WinlogonNT, "LogonType");
            else
                schrijfGetal(lm, WinlogonNT, "LogonType", soort.toLong());
        }
        const auto cu = RegistryRoot::CurrentUser;
        const QString proxy = oud("Proxy");
        schrijfGetal(cu, Internetinstellingen, "ProxyEnable",
                     Ansi::hoofdletters(proxy) == u"JA" ? 1 : 0);
        // The saved address itself never comes back: the server receives the saved word.
        if (!oud("ProxyServer").trimmed().isEmpty())
            schrijf(cu, Internetinstellingen, "ProxyServer", proxy);
        else
            verwijder(cu, Internetinstellingen, "ProxyEnable");
    });
}

// --- the take-over

bool ModMainSessie::WijzigOpstarten() {
    return Procedure(p, "modMain.WijzigOpstarten", false, [&] {
        ModMain& m = p.modMain;
        const QString exe = p.platform.programFile();
        QString gebruikersnaam, wachtwoord, domein;
        if (m.ModusStandalone) {
            gebruikersnaam = m.LeesIni(QStringLiteral("Standalone"),
                                       QStringLiteral("Gebruikersnaam"), instellingen());
            wachtwoord = m.LeesIni(QStringLiteral("Standalone"), QStringLiteral("Wachtwoord"),
                                   instellingen());
        } else if (m.ModusNetwerk) {
            domein = m.LeesIni(QStringLiteral("Netwerk"), QStringLiteral("Domein"), instellingen());
        }
        const bool automatisch = m.ModusNetwerk || (m.ModusStandalone && !gebruikersnaam.isEmpty());
        const QString account = m.ModusStandalone ? gebruikersnaam : QStringLiteral("Global");
        const QString wachtwoordVan =
            m.ModusStandalone ? wachtwoord : ModMain::IngebouwdWachtwoord();
        // On Linux first: our X session, and the account LightDM logs on by itself. When the
        // machine refuses, the logon values are left as they were and the session goes on.
        if (!actie(QStringLiteral("session-install")) ||
            (automatisch && m.ModusStandalone && // a network logon goes through AanmeldenAlsAccount
             !actie(QStringLiteral("autologon-set"), {LinuxAccount(account)}))) {
            meldWeigering();
            actie(QStringLiteral("session-remove"));
            m.SchrijfIni(QStringLiteral("Nee"), QStringLiteral("Algemeen"),
                         QStringLiteral("Geactiveerd"), instellingen());
            return false;
        }
        const auto lm = RegistryRoot::LocalMachine;
        std::optional<RegistryBatch> batch(std::in_place, p.platform.registry());
        if (m.IsWindows98) {
            const QString backup = m.Pad(QStringLiteral("\\backup.ini"));
            QFile::remove(backup);
            QFile::copy(m.Pad(systeemIni()), backup);
            schrijfShell(exe);
            if (automatisch) {
                schrijf(lm, Winlogon98, "DontDisplayLastUserName", QStringLiteral("1"));
                schrijf(lm, Winlogon98, "AutoAdminLogon", QStringLiteral("1"));
                schrijf(lm, Winlogon98, "DefaultUserName", account);
                schrijf(lm, Winlogon98, "DefaultPassword", wachtwoordVan);
                schrijf(lm, Winlogon98, "DefaultDomain", domein);
                schrijf(lm, Netwerkbeleid, "DisablePwdCaching", QStringLiteral("1"));
            }
            // The file a silent import reads, kept in the program folder as written.
            const QString reg = QStringLiteral("REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\") +
                                latin(RealModeNet) + QStringLiteral("]\n\"Autologon\"=hex:00\n");
            QFile bestand(m.Pad(QStringLiteral("\\register.reg")));
            if (bestand.open(QIODevice::WriteOnly | QIODevice::Truncate))
                bestand.write(reg.toLatin1());
            bestand.close();
            p.platform.registry().import(RegFile::parse(reg));
        } else {
            schrijf(lm, WinlogonNT, "Shell", exe);
            verwijder(RegistryRoot::CurrentUser, WinlogonNT, "Shell");
            if (automatisch) {
                schrijf(lm, WinlogonNT, "ForceAutoLogon", QStringLiteral("1"));
                schrijf(lm, WinlogonNT, "AutoAdminLogon", QStringLiteral("1"));
                schrijfGetal(lm, WinlogonNT, "DisableCAD", 1);
                schrijf(lm, WinlogonNT, "DefaultUsername", account);
                if (m.ModusStandalone && wachtwoord.isEmpty())
                    verwijder(lm, WinlogonNT, "DefaultPassword");
                else
                    schrijf(lm, WinlogonNT, "DefaultPassword", wachtwoordVan);
                if (m.ModusStandalone) {
                    verwijder(lm, WinlogonNT, "DefaultDomainName");
                    verwijder(lm, WinlogonNT, "DefaultDomain");
                } else {
                    schrijf(lm, WinlogonNT, "DefaultDomainName", domein);
                    schrijf(lm, WinlogonNT, "DefaultDomain", domein);
                }
            }
        }
        batch.reset(); // the logon values reach the disk before the session ends
        // Values that did not reach the store (it could not be written) would leave the machine
        // logging the account on into a session that finds itself not taken over and ends, over
        // and over: what was set goes again, and the take-over is refused.
        if (!IsShellIngesteld()) {
            if (automatisch && m.ModusStandalone)
                actie(QStringLiteral("autologon-remove"));
            actie(QStringLiteral("session-remove"));
            m.SchrijfIni(QStringLiteral("Nee"), QStringLiteral("Algemeen"),
                         QStringLiteral("Geactiveerd"), instellingen());
            m.ToonVraag(p.modTaal.LaadTekst(3), p.modTaal.LaadTekst(415), QStringLiteral("-"));
            return false;
        }
        // The session ends so that the settings apply.
        const QString titel = p.modTaal.LaadTekst(3);
        if (m.ModusStandalone) {
            m.ToonVraag(titel, p.modTaal.LaadTekst(2921), QStringLiteral("-"));
            Afmelden();
        } else if (m.ModusNetwerk) {
            if (!m.StilActiveren)
                m.ToonVraag(titel, p.modTaal.LaadTekst(2922), QStringLiteral("-"));
            AanmeldenAlsAccount(QStringLiteral("GLOBAL"), ModMain::IngebouwdWachtwoord(), domein,
                                true);
        }
        return true;
    });
}

// --- the hand-back

void ModMainSessie::HerstelResolutie() {
    // Kept as width x height x depth by the start-up when it found another display mode.
    const QStringList delen =
        p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Resolutie"), instellingen())
            .split(QLatin1Char('x'));
    bool ok[3] = {false, false, false};
    const int breedte = delen.value(0).trimmed().toInt(&ok[0]);
    const int hoogte = delen.value(1).trimmed().toInt(&ok[1]);
    const int diepte = delen.value(2).trimmed().toInt(&ok[2]);
    if (delen.size() != 3 || !ok[0] || !ok[1] || !ok[2] || breedte <= 0 || hoogte <= 0)
        return;
    if (!p.platform.display().setMode(breedte, hoogte, diepte))
        p.modMain.SchrijfLogboek(
            QStringLiteral("The display mode %1 x %2 did not come back").arg(breedte).arg(hoogte),
            QStringLiteral("Tafelkrater"), QStringLiteral("modMain.Resolutie"), QString());
}

void ModMainSessie::zetTerug(bool achtergrond) {
    ModMain& m = p.modMain;
    RegistryBatch batch(p.platform.registry());
    if (m.IsWindows98) {
        schrijfShell(QStringLiteral("explorer.exe"));
        verwijder(RegistryRoot::LocalMachine, RealModeNet, "Autologon");
    } else if (m.ModusStandalone) {
        // The shell stays until the next start under another account removes the account.
        m.SchrijfIni(QStringLiteral("Ja"), QStringLiteral("Algemeen"),
                     QStringLiteral("Account verwijderen"), instellingen());
    } else {
        schrijfShell(QStringLiteral("explorer.exe"));
    }
    // On Linux the display manager's own logon and session come back, and our session is no
    // longer offered at its logon (the take-over put it there).
    actie(QStringLiteral("autologon-remove"));
    actie(QStringLiteral("session-remove"));
    HerstelOpstartinstellingen();
    HerstelResolutie();
    ZetSysteembeperkingen(true, false);
    // Our proxy file holds for every session of the machine and outlives the run that wrote it
    // (this run may never have used the proxy): the hand-back removes it whatever this run knows.
    actie(QStringLiteral("proxy-clear"));
    ZetBrowserbeperkingen(false);
    if (achtergrond)
        ZetBureaubladachtergrond(false, false);
    m.SchrijfIni(QStringLiteral("Nee"), QStringLiteral("Algemeen"), QStringLiteral("Geactiveerd"),
                 instellingen());
}

void ModMainSessie::TafelkraterDeactiveren(bool stil) {
    Procedure(p, "modMain.TafelkraterDeactiveren", [&] {
        ModMain& m = p.modMain;
        if (!m.ModusStandalone && !m.ModusNetwerk)
            return;
        if (!stil)
            m.ToonVraag(p.modTaal.LaadTekst(3),
                        p.modTaal.LaadTekst(m.ModusStandalone ? 2923 : 2924), QStringLiteral("-"));
        // The log-off ends the connection: no "connection lost" and restart on the way out.
        if (p.frmMain)
            p.frmMain->VerliesVerwacht = true;
        zetTerug(true);
        Afmelden();
    });
}

void ModMainSessie::TafelkraterDeactiverenSetup() {
    Procedure(p, "modMain.TafelkraterDeactiverenSetup", [&] {
        if (p.modMain.ModusStandalone || p.modMain.ModusNetwerk)
            zetTerug(false);
    });
}

void ModMainSessie::TafelkraterAccountVerwijderen() {
    Procedure(p, "modMain.TafelkraterAccountVerwijderen", [&] {
        schrijfShell(QStringLiteral("explorer.exe"));
        p.opstartStappen->StartVerkenner();
        // Until the account is gone (a process of it still running keeps it), every start under
        // another account tries again: it logs on with a password anyone may know.
        if (actie(QStringLiteral("account-delete"), {QStringLiteral("tafelkrater")}))
            p.modMain.SchrijfIni(QString(), QStringLiteral("Algemeen"),
                                 QStringLiteral("Account verwijderen"), instellingen());
    });
}

// --- the policies, the proxy, the wallpaper

void ModMainSessie::ZetSysteembeperkingen(bool opheffen, bool metTaakbeheer) {
    Procedure(p, "modMain.ZetSysteembeperkingen", [&] {
        if (p.modMain.ModusBeheer)
            return;
        RegistryBatch batch(p.platform.registry());
        const auto cu = RegistryRoot::CurrentUser;
        struct Beleid {
            const char* pad;
            const char* naam;
        };
        const Beleid beleid[] = {{Systeembeleid, "DisableLockWorkstation"},
                                 {Systeembeleid, "DisableChangePassword"},
                                 {Verkennerbeleid, "NoLogoff"},
                                 {Verkennerbeleid, "NoClose"},
                                 {Systeembeleid, "DisableTaskMgr"}};
        if (opheffen) {
            ZetProxy(false);
            if (p.modMain.IsWindows98) {
                actie(QStringLiteral("keys-on"));
                return;
            }
            for (const Beleid& b : beleid)
                verwijder(cu, b.pad, b.naam);
            return;
        }
        if (p.modMain.IsWindows98) {
            actie(QStringLiteral("keys-off"));
            return;
        }
        const bool onderhoud =
            p.platform.environment().variable(QStringLiteral("USERNAME")).toUpper() == u"ONDERHOUD";
        for (const Beleid& b : beleid) {
            // Strings, not DWORDs: the policies read them so.
            if (qstrcmp(b.naam, "DisableTaskMgr") == 0 && (onderhoud || metTaakbeheer))
                verwijder(cu, b.pad, b.naam);
            else
                schrijf(cu, b.pad, b.naam, QStringLiteral("1"));
        }
    });
}

void ModMainSessie::ZetBrowserbeperkingen(bool aan) {
    Procedure(p, "modMain.ZetBrowserbeperkingen", [&] {
        if (p.modMain.ModusBeheer)
            return;
        RegistryBatch batch(p.platform.registry());
        const auto cu = RegistryRoot::CurrentUser;
        for (const char* naam :
             {"NoFileOpen", "NoFileNew", "NoBrowserOptions", "NoTheaterMode", "NoFindFiles"})
            schrijfGetal(cu, Browserbeleid, naam, aan ? 1 : 0);
        for (const char* naam : {"NoBrowserSaveAs", "NoSelectDownloadDir", "NoBrowserClose",
                                 "NoBrowserContextMenu", "FormSuggest Passwords"})
            verwijder(cu, Browserbeleid, naam);
        schrijfGetal(cu, Zone3, "1601", aan ? 0 : 1);
    });
}

void ModMainSessie::ZetProxy(bool aan) {
    Procedure(p, "modMain.ZetProxy", [&] {
        if (p.modMain.ModusBeheer || !proxyInGebruik)
            return;
        const auto cu = RegistryRoot::CurrentUser;
        const QString bewaard = oud("ProxyServer");
        // A saved server that is our own filter's is not taken over.
        const bool eigen =
            bewaard.contains(QStringLiteral("Tafelkrater internetfilter"), Qt::CaseInsensitive);
        schrijfGetal(cu, Internetinstellingen, "ProxyEnable",
                     aan || Ansi::hoofdletters(oud("Proxy")) == u"JA" ? 1 : 0);
        // On Linux the proxy lives in the environment: of the programs the desktop starts from
        // now on (the processes), and of the sessions to come (the system action).
        QString linux;
        if (aan) {
            schrijf(cu, Internetinstellingen, "ProxyServer", latin(Filterproxy));
            linux = latin(LinuxFilterproxy);
        } else if (!bewaard.trimmed().isEmpty() && !eigen) {
            schrijf(cu, Internetinstellingen, "ProxyServer", bewaard);
            linux = bewaard.trimmed();
        } else {
            verwijder(cu, Internetinstellingen, "ProxyServer");
        }
        if (linux.isEmpty())
            actie(QStringLiteral("proxy-clear"));
        else
            actie(QStringLiteral("proxy-set"), {linux});
        p.platform.processes().setWebProxy(linux);
        p.modMain.SchrijfLogboek(
            QStringLiteral("Proxy: ") + (aan ? QStringLiteral("AAN") : QStringLiteral("UIT")),
            QStringLiteral("Tafelkrater"), QStringLiteral("modMain.ZetProxy"), QString());
    });
}

void ModMainSessie::hersteldeAchtergrond(const QString& nieuw, const QString& oudeWaarde) {
    if (nieuw == oudeWaarde)
        return;
    if (nieuw.isEmpty())
        actie(QStringLiteral("wallpaper-clear"));
    else
        actie(QStringLiteral("wallpaper-set"), {nieuw});
}

void ModMainSessie::ZetBureaubladachtergrond(bool aan, bool opslaan) {
    Procedure(p, "modMain.ZetBureaubladachtergrond", [&] {
        const auto cu = RegistryRoot::CurrentUser;
        const auto users = RegistryRoot::Users;
        const QString sectie = QStringLiteral("Wallpaper");
        const QString huidig = lees(users, StandaardBureaublad, "Wallpaper");
        RegistryBatch batch(p.platform.registry());
        auto zet = [&](const QString& achtergrond, const QString& stijl, const QString& tegel) {
            for (auto [root, pad] :
                 {std::pair{cu, Bureaublad}, std::pair{users, StandaardBureaublad}}) {
                schrijf(root, pad, "Wallpaper", achtergrond);
                schrijf(root, pad, "WallpaperStyle", stijl);
                schrijf(root, pad, "TileWallpaper", tegel);
            }
            hersteldeAchtergrond(achtergrond, huidig);
            // The running session shows it at once; the system action keeps it for the next.
            p.platform.display().setWallpaper(achtergrond);
        };
        if (!aan) {
            zet(p.modMain.LeesIni(sectie, QStringLiteral("Achtergrond"), instellingen()),
                p.modMain.LeesIni(sectie, QStringLiteral("Stijl"), instellingen()),
                p.modMain.LeesIni(sectie, QStringLiteral("Tile"), instellingen()));
            return;
        }
        if (opslaan) {
            p.modMain.SchrijfIni(huidig, sectie, QStringLiteral("Achtergrond"), instellingen());
            p.modMain.SchrijfIni(lees(users, StandaardBureaublad, "WallpaperStyle"), sectie,
                                 QStringLiteral("Stijl"), instellingen());
            p.modMain.SchrijfIni(lees(users, StandaardBureaublad, "TileWallpaper"), sectie,
                                 QStringLiteral("Tile"), instellingen());
        }
        const QString bron = p.modThema ? p.modThema->keys().wallpaper() : QString();
        if (bron.isEmpty())
            return;
        // The picture as a bitmap in the program folder, where the session reads it.
        const QString doel = p.modMain.Pad(QStringLiteral("\\Tafelkrater.bmp"));
        const QImage beeld(bron);
        if (beeld.isNull() || !beeld.save(doel, "BMP"))
            return;
        zet(doel, QStringLiteral("2"), QStringLiteral("0"));
    });
}

// --- logon as another account, and the end of the session

void ModMainSessie::AanmeldenAlsAccount(const QString& account, const QString& wachtwoord,
                                        const QString&, bool nu) {
    Procedure(p, "modMain.AanmeldenAlsAccount", [&] {
        ModMain& m = p.modMain;
        // The domain is always the program's own, whatever the caller passes.
        const QString domein =
            m.LeesIni(QStringLiteral("Netwerk"), QStringLiteral("Domein"), instellingen());
        const auto lm = RegistryRoot::LocalMachine;
        std::optional<RegistryBatch> batch(std::in_place, p.platform.registry());
        if (m.IsWindows98) {
            schrijf(lm, Winlogon98, "DefaultUserName", account);
            schrijf(lm, Winlogon98, "DefaultPassword", wachtwoord);
            schrijf(lm, Winlogon98, "DefaultDomainName", domein);
            schrijf(lm, Winlogon98, "DefaultDomain", domein);
            if (account.toUpper() == u"GLOBAL") {
                schrijf(lm, "Network\\Logon", "username", account);
                schrijf(lm, "System\\CurrentControlSet\\Control", "Current User", account);
            }
        } else {
            schrijf(lm, WinlogonNT, "ForceAutoLogon", QStringLiteral("1"));
            schrijf(lm, WinlogonNT, "AutoAdminLogon", QStringLiteral("1"));
            schrijfGetal(lm, WinlogonNT, "DisableCAD", 1);
            schrijf(lm, WinlogonNT, "DefaultUserName", account);
            if (wachtwoord.isEmpty())
                verwijder(lm, WinlogonNT, "DefaultPassword");
            else
                schrijf(lm, WinlogonNT, "DefaultPassword", wachtwoord);
            schrijf(lm, WinlogonNT, "DefaultDomain", domein);
            schrijf(lm, WinlogonNT, "DefaultDomainName", domein);
        }
        batch.reset();
        // A logon the machine refused would leave a session nobody can enter: stay.
        if (!actie(QStringLiteral("autologon-set"), {LinuxAccount(account)})) {
            meldWeigering();
            return;
        }
        if (nu)
            Afmelden();
    });
}

bool ModMainSessie::Geslaagd(const QString& uitvoer) {
    static const char* const geslaagd[] = {
        "The command completed successfully.", "De opdracht is voltooid.",
        "The specified account name is already a member of the local group.",
        "De opgegeven accountnaam is al lid van de lokale groep."};
    for (const QString& regel : uitvoer.split(QLatin1Char('\n')))
        for (const char* tekst : geslaagd)
            if (regel.trimmed().compare(QLatin1String(tekst), Qt::CaseInsensitive) == 0)
                return true;
    return false;
}

bool ModMainSessie::TafelkraterAccountAanmaken() {
    return Procedure(p, "modMain.TafelkraterAccountAanmaken", false, [&] {
        schrijfGetal(RegistryRoot::LocalMachine, WinlogonNT, "LogonType", 0);
        ModMainAccounts accounts(p, m_systeem);
        const QString batch = QStringLiteral("\\batchfile.bat");
        if (p.modMain.ModusStandalone) {
            // A failed delete of an account that was not there is of no account.
            accounts.BatchFile(batch, true, QStringLiteral("net user Tafelkrater /delete"));
            accounts.BatchFile(batch, false,
                               QStringLiteral("net user Tafelkrater ") +
                                   ModMain::IngebouwdWachtwoord() +
                                   QStringLiteral(" /add /passwordreq:no /passwordchg:no"));
            const int groep = accounts.BatchFile(
                batch, false, QStringLiteral("net localgroup Administrators Tafelkrater /add"));
            accounts.ShellWait(batch, 0, 0, true);
            // Checked here too: a logon into an account that was never made leaves the
            // workstation without a usable session.
            return accounts.ControleerAdministratorRechten(groep);
        }
        const QString domein = p.platform.environment().variable(QStringLiteral("USERDOMAIN"));
        const QString regel = QStringLiteral("net localgroup Administrators \"%1\\%2\" /add");
        const int global =
            accounts.BatchFile(batch, true, regel.arg(domein, QStringLiteral("GLOBAL")));
        const int onderhoud =
            accounts.BatchFile(batch, false, regel.arg(domein, QStringLiteral("ONDERHOUD")));
        accounts.ShellWait(batch, 0, 0, true);
        const bool eerste = accounts.ControleerAdministratorRechten(global);
        return accounts.ControleerAdministratorRechten(onderhoud) && eerste;
    });
}

void ModMainSessie::ControleerLerarenRechten() {
    ModMainAccounts(p, m_systeem).ControleerLerarenRechten();
}

bool ModMainSessie::beeindig(bool gelukt) {
    // The launcher hears it before the session goes, so that it does not start the client again.
    p.opstartStappen->StuurOpstartCommando(QStringLiteral("Afsluiten"));
    p.Einde();
    return gelukt;
}

bool ModMainSessie::Afmelden() {
    return Procedure(p, "modAfsluiten.Afmelden", false, [&] {
        if (!sessieBeeindigen)
            return true;
        ZetSysteembeperkingen(true, false);
        ZetBrowserbeperkingen(false);
        return beeindig(m_systeem.run(QStringLiteral("logoff"), {}, QString(), nullptr));
    });
}

bool ModMainSessie::Herstarten() {
    return Procedure(p, "modAfsluiten.Herstarten", false, [&] {
        if (!sessieBeeindigen)
            return true;
        return beeindig(m_systeem.run(QStringLiteral("reboot"), {}, QString(), nullptr));
    });
}

bool ModMainSessie::Uitschakelen() {
    return Procedure(p, "modAfsluiten.Uitschakelen", false, [&] {
        if (!sessieBeeindigen)
            return true;
        return beeindig(m_systeem.run(QStringLiteral("poweroff"), {}, QString(), nullptr));
    });
}

bool ModMainSessie::SessieActie(const QString& actie) {
    const QString woord = actie.section(QLatin1Char('|'), 0, 0).toLower();
    if (woord == u"afmelden")
        Afmelden();
    else if (woord == u"opnieuwopstarten")
        Herstarten();
    else if (woord == u"uitschakelen")
        Uitschakelen();
    else if (woord == u"deactiveren")
        TafelkraterDeactiveren(false);
    else if (woord == u"aanmeldenalsaccount")
        AanmeldenAlsAccount(actie.section(QLatin1Char('|'), 1, 1),
                            actie.section(QLatin1Char('|'), 2), QString(), true);
    else
        return false;
    // The process ends whether or not the machine took the request.
    if (!p.beeindigd)
        p.Einde();
    return true;
}

} // namespace tk
