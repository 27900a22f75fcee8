#include "Uitrol.h"

#include "core/Ansi.h"
#include "core/ModMain.h"
#include "core/OpstartStappen.h"
#include "core/Programma.h"
#include "platform/Environment.h"
#include "session/ModMainSessie.h"

namespace tk {

namespace {
const QString instellingen() {
    return QString::fromLatin1(ModMain::Instellingen);
}
const QString tafelkraterSleutel() {
    return QStringLiteral("SOFTWARE\\Tafelkrater");
}
} // namespace

Uitrol::Uitrol(Programma& p, ModMainSessie& sessie, QTextStream& uit)
    : p(p), m_sessie(sessie), m_uit(uit) {}

bool Uitrol::Gevraagd(const QStringList& argumenten) {
    return argumenten.contains(QStringLiteral("--activeren")) ||
           argumenten.contains(QStringLiteral("--deactiveren"));
}

int Uitrol::Uitvoeren(const QStringList& argumenten) {
    QStringList opties = argumenten;
    const bool activeren = opties.removeAll(QStringLiteral("--activeren")) > 0;
    const bool deactiveren = opties.removeAll(QStringLiteral("--deactiveren")) > 0;
    if (activeren == deactiveren)
        return klaar(FouteOpdracht, QStringLiteral("give either --activeren or --deactiveren"));
    return activeren ? Activeren(opties) : Deactiveren(opties);
}

int Uitrol::klaar(int code, const QString& regel) {
    m_uit << "tafelkrater: " << regel << Qt::endl;
    return code;
}

int Uitrol::LeesOpties(const QStringList& opties) {
    for (int i = 0; i < opties.size(); i += 2) {
        const QString optie = opties[i];
        if (i + 1 >= opties.size() || (optie != u"--modus" && optie != u"--server")) {
            return klaar(FouteOpdracht,
                         QStringLiteral("unknown option '%1'; the options are --modus "
                                        "standalone|netwerk and --server LOCATION")
                             .arg(optie));
        }
        const QString waarde = opties[i + 1];
        if (optie == u"--server") {
            p.modMain.MaakMappen(QStringLiteral("\\Data"));
            p.modMain.SchrijfIni(waarde, QStringLiteral("Instellingen"),
                                 QStringLiteral("Serverlocatie"), instellingen());
            continue;
        }
        const QString modus = waarde.toLower();
        const QString getal = modus == u"standalone" || modus == u"1" ? QStringLiteral("1")
                              : modus == u"netwerk" || modus == u"2"  ? QStringLiteral("2")
                                                                      : QString();
        if (getal.isEmpty())
            return klaar(FouteOpdracht,
                         QStringLiteral("the mode '%1' is not standalone or netwerk").arg(waarde));
        p.modRegistry.SchrijfWaarde(RegistryRoot::LocalMachine, tafelkraterSleutel(),
                                    QStringLiteral("Modus"), getal);
        if (p.modRegistry.LeesWaarde(RegistryRoot::LocalMachine, tafelkraterSleutel(),
                                     QStringLiteral("Modus")) != getal)
            return klaar(RegisterNietSchrijfbaar, p.modTaal.LaadTekst(415));
    }
    const QString modus = p.modRegistry.LeesWaarde(RegistryRoot::LocalMachine, tafelkraterSleutel(),
                                                   QStringLiteral("Modus"));
    ModMain& m = p.modMain;
    m.ModusBeheer = modus == u"0";
    m.ModusStandalone = modus == u"1";
    m.ModusNetwerk = modus == u"2";
    m.IsWindows98 = p.platform.environment().osVersion().platformId == 1;
    m.MaakMappen(QStringLiteral("\\Data"));
    return -1;
}

int Uitrol::Activeren(const QStringList& opties) {
    if (const int code = LeesOpties(opties); code >= 0)
        return code;
    ModMain& m = p.modMain;
    if (!m.ModusStandalone && !m.ModusNetwerk)
        return klaar(GeenModus, QStringLiteral("only a standalone or network workstation is taken "
                                               "over; give --modus standalone or --modus netwerk"));
    const bool geactiveerd =
        Ansi::hoofdletters(m.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Geactiveerd"),
                                     instellingen())) == u"JA";
    if (m_sessie.IsShellIngesteld() && geactiveerd)
        return klaar(Gelukt, QStringLiteral("this workstation is already taken over"));
    if (!m_sessie.ControleerRegisterSchrijfbaar())
        return klaar(RegisterNietSchrijfbaar, p.modTaal.LaadTekst(415));
    m.StilActiveren = true;
    m_sessie.sessieBeeindigen = false;
    m_sessie.BewaarOpstartinstellingen();
    // The wizard's silent path: the firewall test against the server, the accounts, the
    // settings. The display is not judged here: the client checks it at every start.
    if (!p.opstartStappen->frmActiveren(true, true, false, nullptr))
        return klaar(Geweigerd, QStringLiteral("the take-over was refused (see above); nothing "
                                               "of the logon was changed"));
    if (!m_sessie.WijzigOpstarten())
        return klaar(MachineWeigert, QStringLiteral("the machine refused our session or its "
                                                    "logon (see above); the logon is as it was"));
    return klaar(Gelukt, QStringLiteral("the workstation is taken over; it applies from the next "
                                        "log on (restart it now)"));
}

int Uitrol::Deactiveren(const QStringList& opties) {
    if (const int code = LeesOpties(opties); code >= 0)
        return code;
    if (!p.modMain.ModusStandalone && !p.modMain.ModusNetwerk)
        return klaar(GeenModus, QStringLiteral("this workstation is not a standalone or network "
                                               "workstation; there is nothing to hand back"));
    m_sessie.sessieBeeindigen = false;
    m_sessie.TafelkraterDeactiveren(true);
    if (!m_sessie.Geweigerd().isEmpty())
        return klaar(MachineWeigert,
                     QStringLiteral("the machine refused '%1' (%2); the rest is handed back, but "
                                    "the logon may still be ours: run this again with the right "
                                    "to change it")
                         .arg(m_sessie.Geweigerd().join(QLatin1Char(' ')), m_sessie.Weigering()));
    return klaar(Gelukt, QStringLiteral("the workstation is handed back; it applies from the next "
                                        "log on (restart it now)"));
}

} // namespace tk
