#include "ModMainVerbinding.h"

#include "core/Ansi.h"
#include "core/OpstartStappen.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/StartScreenEvents.h"
#include "core/Wire.h"
#include "link/FrmMainLink.h"
#include "link/Serverlocatie.h"
#include "platform/Clock.h"
#include "platform/Environment.h"
#include "platform/Processes.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QScopeGuard>

namespace tk {

namespace {
const QString softwareSleutel() {
    return QStringLiteral("SOFTWARE\\Tafelkrater");
}
} // namespace

void ModMainVerbinding::ZetServerlocatie(const QString& tekst) {
    const Serverlocatie locatie = Serverlocatie::lees(tekst);
    p.frmMain->ServerHost = locatie.host;
    p.frmMain->ServerPoort = locatie.poort;
}

bool ModMainVerbinding::BepaalServerlocatie() {
    return Procedure(p, "modMain.BepaalServerlocatie", false, [&] {
        QString tekst =
            p.modMain.LeesIni(QStringLiteral("Instellingen"), QStringLiteral("Serverlocatie"),
                              QString::fromLatin1(ModMain::Instellingen));
        if (p.modMain.ModusStandalone) {
            // The server is on this machine; a port named in the settings is still used.
            tekst =
                Serverlocatie::tekst(QStringLiteral("localhost"), Serverlocatie::lees(tekst).poort);
        } else if (tekst.isEmpty()) {
            tekst = p.platform.environment()
                        .variable(QStringLiteral("LOGONSERVER"))
                        .remove(QStringLiteral("\\\\"));
        }
        if (tekst.trimmed().isEmpty())
            return false;
        ZetServerlocatie(tekst);
        return true;
    });
}

void ModMainVerbinding::IdentificeerClient() {
    Procedure(p, "modMain.IdentificeerClient", [&] {
        if (!p.modMain.Verbonden())
            return;
        p.frmMain->WS_Versturen(wire::INFVER + ModMain::ProgrammaVersie(), true);
        p.frmMain->WS_Versturen(QString(wire::INFDMN), true);
        QString computer = p.platform.environment().computerName();
        computer.remove(QChar(0));
        p.frmMain->WS_Versturen(wire::INFCOM + computer, true);
    });
}

void ModMainVerbinding::GeefLocatieDoor(const QString& plaats) {
    Procedure(p, "modMain.GeefLocatieDoor", [&] {
        if (p.modMain.Verbonden())
            p.frmMain->WS_Versturen(wire::LOC + plaats, true);
        m_plaats = plaats;
        const QStringList velden = plaats.split(wire::valueSep);
        const QString eerste = Ansi::hoofdletters(velden[0]);
        auto tekst = [&](int id) { return p.modTaal.LaadTekst(id); };
        auto naam = [&](const QString& soort, const QString& id) {
            return namen ? namen->naamVan(soort, id) : QString();
        };
        QString lokaal;
        if (eerste == u"FOUT") {
            lokaal = tekst(2913).replace(QStringLiteral("%account%"), velden.value(1));
        } else if (eerste == u"GLOBAL") {
            lokaal = tekst(2914);
        } else if (eerste == u"ONDERHOUD") {
            lokaal = tekst(2915);
        } else if (eerste == u"GROEP") {
            const QString id = velden.value(1);
            lokaal = tekst(2920)
                         .replace(QStringLiteral("%id%"), id)
                         .replace(QStringLiteral("%naam%"), naam(QStringLiteral("GROEP"), id));
        } else if (eerste == u"LERAAR" && velden.value(1) == u"0") {
            lokaal = tekst(2919);
        } else if (eerste == u"LERAAR") {
            const QString id = velden.value(1);
            const bool onderhoud = velden.value(2).toLower() == u"onderhoud";
            lokaal = tekst(2918)
                         .replace(QStringLiteral("%sectie%"), tekst(onderhoud ? 2917 : 2916))
                         .replace(QStringLiteral("%id%"), id)
                         .replace(QStringLiteral("%naam%"), naam(QStringLiteral("LERAAR"), id));
        } else {
            lokaal = plaats;
        }
        p.modMain.Locatie = lokaal;
    });
}

bool ModMainVerbinding::InOnderhoudsmodule() const {
    const QString eerste = Ansi::hoofdletters(m_plaats.section(wire::valueSep, 0, 0));
    return eerste == u"ONDERHOUD" || eerste == u"ONDERHOUDSMODULE";
}

int ModMainVerbinding::LeesServerstatus() {
    return Procedure(p, "modMain.LeesServerstatus", -1, [&] {
        const QString status = p.modRegistry.LeesWaarde(
            RegistryRoot::LocalMachine, softwareSleutel(), QStringLiteral("Status server"));
        if (status.isEmpty())
            return -1;
        bool numeriek = false;
        const int waarde = status.toInt(&numeriek);
        return numeriek ? waarde : 2;
    });
}

QString ModMainVerbinding::launcherNaam(const QString& programmaMap) {
    const QByteArray hash =
        QCryptographicHash::hash(programmaMap.toUtf8(), QCryptographicHash::Sha1).toHex();
    const QString naam =
        QStringLiteral("tafelkrater-startup-") + QString::fromLatin1(hash.left(12));
    // In the account's own runtime folder (only the account writes there, and it goes at log
    // off): in the shared temporary folder a socket a killed launcher left, or one another
    // account put there, would keep the next account's launcher from listening.
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && QFileInfo(runtime).isDir())
        return QDir(runtime).filePath(naam);
    return naam;
}

bool ModMainVerbinding::StuurOpstartCommando(const QString& tekst) {
    return Procedure(p, "modMain.StuurOpstartCommando", false, [&] {
        QLocalSocket launcher;
        launcher.connectToServer(launcherNaam(p.platform.programFolder()));
        if (!launcher.waitForConnected(1000))
            return false;
        launcher.write(tekst.toUtf8());
        launcher.waitForBytesWritten(1000);
        launcher.disconnectFromServer();
        return true;
    });
}

void ModMainVerbinding::StartServer(bool firewall) {
    Procedure(p, "modMain.StartServer", [&] {
        const QString locatie = p.modRegistry.LeesWaarde(
            RegistryRoot::LocalMachine, softwareSleutel(), QStringLiteral("Locatie server"));
        const QString pad = p.modMain.KortPad(locatie);
        if (!locatie.isEmpty()) {
            const QString programma = pad.isEmpty() ? p.modMain.Pad(locatie) : pad;
            p.platform.processes().startDetached(
                programma, firewall ? QStringList{QStringLiteral("FIREWALL")} : QStringList(),
                QFileInfo(programma).path());
            return;
        }
        p.modMain.ToonVraag(p.modTaal.LaadTekst(3), p.modTaal.LaadTekst(2925), QStringLiteral("-"));
        if (!firewall)
            p.opstartStappen->TafelkraterDeactiveren();
    });
}

} // namespace tk

namespace tk {

void ModMainVerbinding::StartVerbinding(bool opnieuw) {
    if (m_verbindend)
        return;
    m_verbindend = true;
    const auto klaar = qScopeGuard([this] { m_verbindend = false; });
    Procedure(p, "modMain.StartVerbinding", [&] {
        OpstartStappen& stappen = *p.opstartStappen;
        FrmMainLink& f = *p.frmMain;
        if (p.startScreenEvents)
            p.startScreenEvents->hoofdvensterTonen();
        const bool gevonden = BepaalServerlocatie();
        if (!opnieuw && gevonden) {
            if (!f.ServerVerbinden(true))
                return;
        } else {
            const QString tekst = frmNetwerk.Computernaam();
            if (!tekst.isEmpty()) {
                ZetServerlocatie(tekst);
                p.modMain.MaakMappen(QStringLiteral("\\Data"));
                p.modMain.SchrijfIni(tekst, QStringLiteral("Instellingen"),
                                     QStringLiteral("Serverlocatie"),
                                     QString::fromLatin1(ModMain::Instellingen));
                if (!f.ServerVerbinden(true))
                    return;
            } else if (!f.ServerVerbinden(false)) {
                return;
            }
        }
        stappen.ControleerChangelog();
        IdentificeerClient();
        stappen.Laden();
        stappen.ControleerLerarenRechten();
        AutomatischAanmelden();
    });
}

void ModMainVerbinding::AutomatischAanmelden() {
    Procedure(p, "modMain.AutomatischAanmelden", [&] {
        OpstartStappen& stappen = *p.opstartStappen;
        ModMain& m = p.modMain;
        stappen.VerbergLaadlabel();
        QString account;
        if (m.ModusNetwerk)
            account = p.platform.environment().variable(QStringLiteral("USERNAME")).toUpper();
        else if (m.ModusStandalone)
            account = QStringLiteral("*STANDALONE*"); // matches no account
        else {
            // The launcher's word is not an account: what follows it is.
            QString regel = p.modMain.Opdrachtregel.toUpper();
            if (regel.startsWith(QStringLiteral("STARTUP")))
                regel = regel.section(QLatin1Char(' '), 1).trimmed();
            account = regel.isEmpty() ? QStringLiteral("ONDERHOUD") : regel;
        }
        account.remove(QChar(0));
        m.Gebruikersaccount = account;
        if (m.ModusNetwerk || m.ModusStandalone)
            stappen.ZetSessiebeperkingen(false, false);
        if (account == u"GLOBAL" || m.ModusStandalone) {
            stappen.OpenGlobal(true);
            return;
        }
        if (account != u"ONDERHOUD") {
            for (const QString& item : stappen.Accounts()) {
                const QStringList velden = item.split(QLatin1Char('|'));
                if (velden.size() < 3 || velden[1].toUpper() != account)
                    continue;
                if (velden[0].toUpper() == u"KLAS")
                    stappen.OpenGroep(velden[2]);
                else if (velden[0].toUpper() == u"LERAAR")
                    stappen.OpenLeraar(velden[2]);
                else
                    continue;
                return;
            }
        } else {
            stappen.OpenOnderhoud();
            return;
        }
        if (m.ModusNetwerk)
            stappen.ZetAutomatischeAanmelding(ModMain::GlobaalAccount(),
                                              ModMain::IngebouwdWachtwoord(), QString(), true);
        else
            stappen.OpenFout(p.modTaal.LaadTekst(2910));
    });
}

bool ModMainVerbinding::TestServerlocatie(bool firewall) {
    return Procedure(p, "modMain.TestServerlocatie", false, [&] {
        FrmMainLink& f = *p.frmMain;
        ModMain& m = p.modMain;
        f.VerbindingTesten = true;
        if (m.ModusStandalone)
            StartServer(true);
        QString locatie;
        if ((BepaalServerlocatie() || m.ModusStandalone) && !firewall)
            locatie = f.ServerHost + QLatin1Char(':') + QString::number(f.ServerPoort);
        else
            locatie = frmNetwerk.Computernaam();
        m.LaadWachttijden();
        bool gelukt = false;
        while (!locatie.isEmpty()) {
            ZetServerlocatie(locatie);
            const qint64 deadline = p.platform.clock().msecsSinceStart() + 5000;
            while (!f.isConnected() && p.platform.clock().msecsSinceStart() < deadline &&
                   !p.beeindigd) {
                f.WS.abort();
                f.WS.connectToHost(f.ServerHost, quint16(f.ServerPoort));
                f.WS.waitForConnected(int(qMax<qint64>(
                    1, qMin<qint64>(1000, deadline - p.platform.clock().msecsSinceStart()))));
                if (!f.isConnected() && m.Verbindingspauze != 100)
                    m.Wacht(qint64(m.Verbindingspauze));
                p.wacht.Pomp();
            }
            if (!f.isConnected())
                break;
            m.AntwoordOntvangen = false;
            f.WS_Versturen(QString(wire::FIR), false);
            p.wacht.Tot([&] { return m.AntwoordOntvangen; },
                        p.platform.clock().msecsSinceStart() + 5000);
            f.WS.abort();
            if (m.AntwoordOntvangen) {
                gelukt = true;
                if (m.ModusNetwerk)
                    m.SchrijfIni(locatie, QStringLiteral("Instellingen"),
                                 QStringLiteral("Serverlocatie"),
                                 QString::fromLatin1(ModMain::Instellingen));
                break;
            }
            if (m.StilActiveren)
                break;
            locatie = frmNetwerk.Computernaam();
        }
        f.VerbindingTesten = false;
        return gelukt;
    });
}

} // namespace tk
