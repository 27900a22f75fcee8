#pragma once

#include "platform/RegistryRoot.h"

#include <QString>
#include <QStringList>

namespace tk {

class Programma;
class SystemActions;

// modMain's take-over of the machine and its hand-back, the policies of a session, the proxy,
// the wallpaper, the automatic logon and the end of the session. Every registry value goes to the
// store with its type, in both Windows families, quirks kept; what a value means on Linux (the
// automatic logon into our X session, the wallpaper and proxy of started programs, log off,
// restart, shut down) goes to SystemActions, which changes the machine or only records it.
class ModMainSessie {
public:
    ModMainSessie(Programma& p, SystemActions& systeem);

    void BewaarOpstartinstellingen();
    void HerstelOpstartinstellingen();
    // The display mode the start-up kept in Resolutie of [Algemeen], when there is one.
    void HerstelResolutie();
    // The take-over itself; ends the session so that it applies. False, after a message, when the
    // machine refused our session or its logon: then nothing of the logon was changed.
    bool WijzigOpstarten();
    // The full hand-back; ends the session.
    void TafelkraterDeactiveren(bool stil);
    // The hand-back without message, wallpaper or log-off (safe mode).
    void TafelkraterDeactiverenSetup();
    // Run at the first start under another account after a standalone hand-back: the system's
    // shell comes back and the program's own account goes, with its home folder.
    void TafelkraterAccountVerwijderen();
    bool IsShellIngesteld();
    // The last action the machine refused in this run, with its arguments, and what it said.
    QStringList Geweigerd() const { return m_geweigerd; }
    QString Weigering() const { return m_weigering; }
    // Starts the machine's normal desktop inside our X server: the command of Systeembureaublad
    // in [Instellingen] (x-session-manager when absent).
    void StartVerkenner();
    // The shell setting names the system's desktop while it starts, then the program again.
    void NaarSysteembureaublad();
    // The command StartVerkenner runs.
    QString SysteembureaubladOpdracht();
    bool ControleerRegisterSchrijfbaar();
    // The logon policies; the start-up's ZetSessiebeperkingen is this routine too.
    void ZetSysteembeperkingen(bool opheffen, bool metTaakbeheer);
    void ZetBrowserbeperkingen(bool aan);
    void ZetProxy(bool aan);
    void ZetBureaubladachtergrond(bool aan, bool opslaan);
    // Prepares an automatic logon as that account, and when `nu` logs off at once.
    void AanmeldenAlsAccount(const QString& account, const QString& wachtwoord,
                             const QString& domein, bool nu);

    // modAfsluiten: log off, restart, shut down. Each tells the launcher and ends the client;
    // true when the machine took the request.
    bool Afmelden();
    bool Herstarten();
    bool Uitschakelen();
    // A session action of the close options; false for one this module does not carry out.
    bool SessieActie(const QString& actie);

    // Makes the local account (standalone) or gives the domain's accounts the administrators'
    // group (network) through the net verbs; true when every checked command reported success.
    bool TafelkraterAccountAanmaken();
    // Gives the accounts of the classes and teachers the administrators' group (ModMainAccounts).
    void ControleerLerarenRechten();
    // Whether a net command's output holds one of the lines of success, whole, in any case.
    static bool Geslaagd(const QString& uitvoer);

    // False while a script takes the machine over or hands it back: the session is left running
    // and the administrator decides when to log off or restart.
    bool sessieBeeindigen = true;

    // Whether the filter's proxy is in use (the favourites' proxy switch of the desktop).
    bool proxyInGebruik = false;

    // [Instellingen] Sessie of \Data\Instellingen.ini is "systeem" (any case): the machine is
    // changed; anything else keeps the session side contained.
    static bool SysteemInstelling(Programma& p);
    // The Linux name of a Windows account: the part after a domain, in lower case.
    static QString LinuxAccount(const QString& account);

    static constexpr const char* WinlogonNT =
        "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon";
    static constexpr const char* Winlogon98 =
        "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Winlogon";
    static constexpr const char* Netwerkbeleid =
        "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Policies\\Network";
    static constexpr const char* RealModeNet =
        "Software\\Microsoft\\Windows\\CurrentVersion\\Network\\Real Mode Net";
    static constexpr const char* Systeembeleid =
        "Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\System";
    static constexpr const char* Verkennerbeleid =
        "Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\Explorer";
    static constexpr const char* Browserbeleid =
        "Software\\Policies\\Microsoft\\Internet Explorer\\Restrictions";
    static constexpr const char* Zone3 =
        "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Zones\\3";
    static constexpr const char* Internetinstellingen =
        "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";
    static constexpr const char* Bureaublad = "Control Panel\\Desktop";
    static constexpr const char* StandaardBureaublad = ".DEFAULT\\Control Panel\\Desktop";
    static constexpr const char* Filterproxy = "Tafelkrater internetfilter:8080";
    // The proxy started programs get on Linux while the filter holds them: a host that does not
    // exist, so that no other browser reaches the internet.
    static constexpr const char* LinuxFilterproxy = "tafelkrater-internetfilter.invalid:8080";

private:
    QString lees(RegistryRoot root, const char* pad, const char* naam);
    void schrijf(RegistryRoot root, const char* pad, const char* naam, const QString& waarde);
    void schrijfGetal(RegistryRoot root, const char* pad, const char* naam, long waarde);
    void verwijder(RegistryRoot root, const char* pad, const char* naam);
    QString oud(const char* sleutel);
    void bewaar(const char* sleutel, const QString& waarde);
    QString systeemIni();
    QString shell();
    void schrijfShell(const QString& waarde);
    void hersteldeAchtergrond(const QString& nieuw, const QString& oud);
    // Step 3 to 7 of the hand-back, common to both forms.
    void zetTerug(bool achtergrond);
    // Tells the launcher and ends the client, after the machine was asked.
    bool beeindig(bool gelukt);
    // Carries one action out; false, logged and kept for meldWeigering, when refused.
    bool actie(const QString& verb, const QStringList& argumenten = {},
               const QString& invoer = QString());
    // Tells the user which action the machine refused and why (string 9620).
    void meldWeigering();

    Programma& p;
    SystemActions& m_systeem;
    QStringList m_geweigerd;
    QString m_weigering;
};

} // namespace tk
