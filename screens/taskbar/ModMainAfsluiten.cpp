#include "ModMainAfsluiten.h"

#include "core/Ansi.h"
#include "core/OpstartStappen.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/ScreenSwitches.h"
#include "core/StartScreenEvents.h"
#include "data/ModData.h"
#include "platform/Environment.h"
#include "platform/Processes.h"
#include "screens/taskbar/Takenlijst.h"

#include <QProcess>

namespace tk {

void ModMainAfsluiten::sessieActie(const QString& actie) {
    uitgevoerd << actie;
    if (p.opstartStappen->SessieActie(actie))
        return;
    p.Einde();
}

QString ModMainAfsluiten::TakenTekst(ModTaal& taal, int tekst, int aantal) {
    QString uit = taal.LaadTekst(tekst);
    uit.replace(QStringLiteral("%aantal%"), QString::number(aantal));
    uit.replace(QStringLiteral("%programma%"), taal.LaadTekst(aantal == 1 ? 713 : 714));
    return uit;
}

int ModMainAfsluiten::OpenProgrammas() {
    Takenlijst taken(p);
    taken.Bijwerken();
    return taken.AantalProgrammas();
}

bool ModMainAfsluiten::bevestigUitschakelen() {
    const int aantal = OpenProgrammas();
    const QString vraag =
        aantal > 0 ? TakenTekst(p.modTaal, 717, aantal) : p.modTaal.LaadTekst(718);
    return p.modMain.ToonVraag(p.modTaal.LaadTekst(3), vraag, QStringLiteral("?")) == u"ja";
}

bool ModMainAfsluiten::programmasGesloten() {
    const int aantal = OpenProgrammas();
    if (aantal == 0)
        return true;
    p.modMain.ToonVraag(p.modTaal.LaadTekst(3), TakenTekst(p.modTaal, 715, aantal),
                        QStringLiteral("-"));
    return false;
}

void ModMainAfsluiten::NaarWindowsOmgeving(const QString& account, const QString& wachtwoord) {
    Procedure(p, "modMain.NaarWindowsOmgeving", [&] {
        uitgevoerd << QStringLiteral("sluiten|") + account + QLatin1Char('|') + wachtwoord;
        p.opstartStappen->ZetProxy(false);
        frmWindows.Laden(account, wachtwoord);
        if (p.schermen)
            p.schermen->vensters(false);
        p.opstartStappen->NaarSysteembureaublad();
    });
}

QString ModMainAfsluiten::Opdrachtprompt() {
    const QString opdracht =
        p.modMain
            .LeesIni(QStringLiteral("Instellingen"), QStringLiteral("Opdrachtprompt"),
                     QString::fromLatin1(ModMain::Instellingen))
            .trimmed();
    return opdracht.isEmpty() ? QStringLiteral("x-terminal-emulator") : opdracht;
}

bool ModMainAfsluiten::FunctieToets(int toets) {
    return Procedure(p, "frmTaakbalk.Form_KeyDown", false, [&] {
        auto prompt = [&] {
            const QStringList delen = QProcess::splitCommand(Opdrachtprompt());
            if (!delen.isEmpty())
                p.platform.processes().startDetached(delen.first(), delen.mid(1),
                                                     p.platform.environment().homeFolder());
        };
        auto aanmelden = [&](const char* account) {
            if (p.modMain.ModusNetwerk)
                p.opstartStappen->ZetAutomatischeAanmelding(
                    QString::fromLatin1(account), ModMain::IngebouwdWachtwoord(), QString(), true);
        };
        switch (toets) {
        case 119:
            p.opstartStappen->TafelkraterDeactiveren();
            break;
        case 120:
            prompt();
            break;
        case 121:
            p.opstartStappen->StartVerkenner();
            break;
        case 122:
            p.opstartStappen->ZetProxy(false);
            prompt();
            p.opstartStappen->StuurOpstartCommando(QStringLiteral("afsluiten"));
            p.Einde();
            break;
        case 83:
            aanmelden("Global");
            break;
        case 79:
            aanmelden("Onderhoud");
            break;
        default:
            return false;
        }
        uitgevoerd << QStringLiteral("toets %1").arg(toets);
        return true;
    });
}

void ModMainAfsluiten::VerwerkAfsluitkeuze() {
    Procedure(p, "modMain.VerwerkAfsluitkeuze", [&] {
        QString antwoord;
        frmUitschakelen.Vraag(antwoord);
        if (!antwoord.isEmpty())
            VoerUit(antwoord);
    });
}

void ModMainAfsluiten::VoerUit(const QString& antwoord) {
    Procedure(p, "modMain.VerwerkAfsluitkeuze", [&] {
        const QStringList veld = antwoord.split(QLatin1Char('|'));
        const QString woord = veld.value(0);
        ModMain& m = p.modMain;
        if (woord == u"deactiveren") {
            sessieActie(woord);
            return;
        }
        if (woord == u"aanmelden") {
            const QString groep = veld.value(1), id = veld.value(3);
            const bool klas = groep == p.modTaal.LaadTekst(2415);
            const bool leraar = groep == p.modTaal.LaadTekst(2416);
            QString account = ModMain::GlobaalAccount(),
                    wachtwoord = ModMain::IngebouwdWachtwoord();
            if (p.modData && (klas || leraar)) {
                const int rij = p.modData->ZoekLijstID(klas ? 0 : 1, id);
                account = klas ? p.modData->Klassen(rij, 4) : p.modData->Leraren(rij, 3);
                wachtwoord = klas ? p.modData->Klassen(rij, 5) : p.modData->Leraren(rij, 4);
            }
            if (m.ModusNetwerk) {
                if (!m.IsWindows98 && Ansi::hoofdletters(m.LeesIni(
                                          account, QStringLiteral("Administratorrechten"),
                                          QString::fromLatin1(ModMain::Instellingen))) != u"JA") {
                    m.ToonVraag(
                        p.modTaal.LaadTekst(3),
                        p.modTaal.LaadTekst(2926).replace(QStringLiteral("%account%"), account),
                        QStringLiteral("-"));
                    return;
                }
                sessieActie(QStringLiteral("aanmeldenalsaccount|") + account + QLatin1Char('|') +
                            wachtwoord);
                return;
            }
            uitgevoerd << antwoord;
            if (p.startScreenEvents) {
                if (klas)
                    p.startScreenEvents->OpenGroep(id);
                else if (leraar)
                    p.startScreenEvents->OpenLeraar(id);
                else
                    p.startScreenEvents->OpenGlobal(false);
            }
            return;
        }
        // A shutdown or restart ends the programs still open: the user confirms it knowing how
        // many there are. A log-off of the machine waits until they are closed.
        if ((woord == u"uitschakelen" || woord == u"opnieuwopstarten") && !bevestigUitschakelen())
            return;
        if (woord == u"afmelden" && !programmasGesloten())
            return;
        if (m.ModusNetwerk) {
            if (woord == u"sluiten")
                NaarWindowsOmgeving(ModMain::GlobaalAccount(), ModMain::IngebouwdWachtwoord());
            else if (woord == u"afmelden") {
                const QString winlogon =
                    QStringLiteral("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon");
                p.modRegistry.VerwijderWaarde(RegistryRoot::LocalMachine, winlogon,
                                              QStringLiteral("AdminLogon"));
                p.modRegistry.VerwijderWaarde(RegistryRoot::LocalMachine, winlogon,
                                              QStringLiteral("ForceAutoLogon"));
                sessieActie(woord);
            } else
                sessieActie(woord);
            return;
        }
        if (woord == u"sluiten") {
            uitgevoerd << woord;
            p.Einde();
            return;
        }
        if (m.ModusStandalone) {
            sessieActie(woord);
            return;
        }
        // A management workstation stays on: it says what it would do and ends the client.
        const int tekst = woord == u"opnieuwopstarten" ? 2927
                          : woord == u"uitschakelen"   ? 2928
                                                       : 2929;
        m.ToonVraag(p.modTaal.LaadTekst(3), p.modTaal.LaadTekst(tekst), QStringLiteral("-"));
        uitgevoerd << woord;
        p.Einde();
    });
}

} // namespace tk
