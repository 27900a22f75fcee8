#include "FrmBureaubladStarter.h"

#include "core/CommandChannel.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/Wire.h"
#include "data/ModData.h"
#include "platform/Clock.h"
#include "platform/Display.h"
#include "platform/Windows.h"
#include "screens/desktop/DesktopTaskbar.h"
#include "screens/desktop/ModMainStarten.h"

namespace tk {

namespace {

// The folders of the applications' own icons by kind.
QString soortMap(int soort) {
    static const char* const mappen[] = {"Groepen", "Leerkrachten", "Algemeen"};
    return QLatin1String(mappen[soort]);
}

// A value of the display demand as the program reads a number: its leading digits, 0 for none.
int getal(const QString& tekst) {
    const QString t = tekst.trimmed();
    qsizetype n = 0;
    while (n < t.size() && t[n].isDigit())
        ++n;
    return n == 0 ? 0 : t.left(n).toInt();
}

} // namespace

FrmBureaubladStarter::FrmBureaubladStarter(Programma& p) : p(p) {
    if (!p.modMainStarten)
        p.maak(p.modMainStarten, p);
    tmrShellWait.setInterval(500);
    tmrDisable.setInterval(500);
    tmrTaakbalk.setInterval(1000);
    connect(&tmrShellWait, &QTimer::timeout, this, &FrmBureaubladStarter::tmrShellWait_Timer);
    connect(&tmrDisable, &QTimer::timeout, this, &FrmBureaubladStarter::tmrDisable_Timer);
    connect(&tmrTaakbalk, &QTimer::timeout, this, &FrmBureaubladStarter::tmrTaakbalk_Timer);
    cmdShellWaitTekst = p.modTaal.LaadTekst(746);
    lblDisableTekst = p.modTaal.LaadTekst(747);
}

FrmBureaubladStarter::~FrmBureaubladStarter() {
    zetWeergaveTerug();
}

void FrmBureaubladStarter::zetWeergaveTerug() {
    // The desktop goes while a program runs in the mode it demanded: the screen goes back all
    // the same. Only the platform is asked: the other modules and the views may be gone already.
    if (!tmrShellWait.isActive() || ShellWachtStand != u"1")
        return;
    const QStringList oud = OudeWeergave.split(QLatin1Char('x'));
    const int breedte = getal(oud.value(0)), hoogte = getal(oud.value(1));
    if (breedte > 0 && hoogte > 0)
        p.platform.display().setMode(breedte, hoogte, getal(oud.value(2)));
}

void FrmBureaubladStarter::StopWachten() {
    // A log-off while a program is waited for: the program runs on as a task of its own, but
    // its end must not bring the desktop, its overlay or its taskbar strip back.
    zetWeergaveTerug();
    tmrShellWait.stop();
    ShellProces = 0;
    ShellWachtStand = QStringLiteral("0");
    BreedteNu = SchermBreedte;
    HoogteNu = SchermHoogte;
    TaakbalkVerborgen = false;
    verbergOverlay();
}

bool FrmBureaubladStarter::StartGeblokkeerd() {
    // The overlay stands over the desktop while a program is waited for: nothing else starts.
    if (tmrShellWait.isActive())
        return true;
    if (!LaatsteStart.isValid())
        return false;
    const qint64 seconden = LaatsteStart.secsTo(p.platform.clock().now());
    // A clock that was put back does not block the desktop until it has caught up.
    return seconden >= 0 && seconden < StartBeveiliging;
}

bool FrmBureaubladStarter::moetWeergaveWijzigen(const QStringList& eis) {
    if (eis.size() < 3 || eis[2] == u"0")
        return false;
    // A management workstation is the administrator's own machine: its display is left alone.
    if (p.modMain.ModusBeheer)
        return false;
    if (eis[0] != u"1024" || eis[1] != u"768")
        return true;
    return getal(eis[2]) != p.modMainStarten->Kleurdiepte();
}

void FrmBureaubladStarter::StartApplicatie(const QString& opdracht, const QString& parameters,
                                           const QString& map, const QString& beeldscherm,
                                           const QString& naam) {
    Procedure(p, "frmBureaublad.StartApplicatie", [&] {
        if (StartGeblokkeerd())
            return;
        LaatsteStart = p.platform.clock().now();
        const QStringList eis = beeldscherm.split(QLatin1Char('x'));
        const bool wijzigen = moetWeergaveWijzigen(eis);
        TaakbalkVerbergen = eis.size() >= 4 && eis[3].toUpper() == u"JA";
        const QString werkmap = ModMainStarten::WerkMap(opdracht, map);
        ModMainStarten& starten = *p.modMainStarten;

        if (!wijzigen && !TaakbalkVerbergen) {
            const int resultaat = starten.ShellExecute(opdracht, parameters, werkmap);
            if (resultaat != ModMainStarten::Opgestart)
                startFout(resultaat, naam, opdracht);
            return;
        }

        toonOverlay();
        OudeWeergave = QStringLiteral("1024x768x") + QString::number(starten.Kleurdiepte());
        bool gewijzigd = true;
        if (wijzigen) {
            BreedteNu = getal(eis[0]);
            HoogteNu = getal(eis[1]);
            gewijzigd = starten.WijzigWeergave(BreedteNu, HoogteNu, getal(eis[2]));
        } else {
            BreedteNu = SchermBreedte;
            HoogteNu = SchermHoogte;
        }
        centreer();

        if (!gewijzigd) {
            QString tekst = p.modTaal.LaadTekst(733);
            tekst.replace(QStringLiteral("%wijdte%"), eis.value(0));
            tekst.replace(QStringLiteral("%hoogte%"), eis.value(1));
            tekst.replace(QStringLiteral("%kleurendiepte%"), eis.value(2));
            melding(tekst);
            BreedteNu = SchermBreedte;
            HoogteNu = SchermHoogte;
            centreer();
            formOnTop(false);
            tmrTaakbalk.stop();
            // Maximised at the present display. Nothing is to be undone, but the desktop comes
            // back when the program ends, as after any other start that it waits for, and the
            // user can end it with cmdShellWait as there.
            cmdShellWaitZichtbaar = true;
            hertekenen();
            const ModMainStarten::Gestart g =
                starten.ShellExecAndWait(opdracht, parameters, werkmap, true);
            if (!g.gelukt()) {
                herstellen("frmBureaublad.StartApplicatie");
                startFout(g.resultaat, naam, opdracht);
                return;
            }
            ShellProces = g.proces;
            ShellWachtStand = QStringLiteral("0");
            tmrShellWait.start();
            return;
        }

        cmdShellWaitZichtbaar = true;
        if (wijzigen) {
            if (taakbalk)
                taakbalk->tekenKnoppen();
            if (taakbalk)
                taakbalk->plaatsVoorScherm(HoogteNu);
        }
        if (TaakbalkVerbergen) {
            tmrTaakbalk.stop();
            formOnTop(false);
            if (taakbalk) {
                taakbalk->strookTonen(false);
                TaakbalkVerborgen = true;
            }
        }
        hertekenen();
        const ModMainStarten::Gestart g = starten.ShellExecAndWait(opdracht, parameters, werkmap);
        ShellWachtStand = wijzigen ? QStringLiteral("1") : QStringLiteral("0");
        if (!g.gelukt()) {
            // The overlay and the display go first, then the message.
            herstellen("frmBureaublad.StartApplicatie");
            startFout(g.resultaat, naam, opdracht);
            return;
        }
        ShellProces = g.proces;
        tmrShellWait.start();
    });
}

void FrmBureaubladStarter::startFout(int resultaat, const QString& naam, const QString& opdracht) {
    const ModMainStarten& starten = *p.modMainStarten;
    const QString foutNaam = starten.FoutNaam(resultaat);
    const QString regel = QStringLiteral("\r\n");
    const QString regels = p.modTaal.LaadTekst(704) + naam + regel + p.modTaal.LaadTekst(705) +
                           opdracht + regel + p.modTaal.LaadTekst(735) + foutNaam;
    if (resultaat == ModMainStarten::PadNietGevonden) {
        QString tekst = p.modTaal.LaadTekst(2953);
        tekst.replace(QStringLiteral("%bericht%"), foutNaam);
        melding(tekst);
    } else {
        melding(p.modTaal.LaadTekst(734) + regels);
    }
    p.modMain.Foutmelding(regels, QStringLiteral("Automatische melding"),
                          QStringLiteral("frmBureaublad.StartApplicatie"), QStringLiteral("-"));
}

void FrmBureaubladStarter::StartApplicatieRij(int soort, int rij, const QString& eigenaarID) {
    Procedure(p, "frmBureaublad.Form_MouseUp", [&] {
        if (StartGeblokkeerd())
            return;
        if (!p.modData)
            throw Fout(QStringLiteral("The application tables are not loaded"));
        controleerIndex(soort, 3);
        const FixedTable& tabel = p.modData->Applicaties[soort];
        const QString id = tabel(rij, 0);
        const QString naam = tabel(rij, 1);
        QString opdracht = tabel(rij, 3);
        const QString pictogram = tabel(rij, 5);
        const QString parameter = tabel(rij, 6);
        const QString beeldscherm = tabel(rij, 8);

        if (pictogram.section(QLatin1Char('|'), 0, 0).toLower() == u"eigen")
            opdracht = QStringLiteral("\\Afbeeldingen\\Pictogrammen\\Applicaties\\") +
                       soortMap(soort) + QLatin1Char('\\') + id + QStringLiteral(".pic.lnk");

        // Count the start; the server's answer is not waited for.
        if (p.modMain.Verbonden())
            p.kanaal->WS_Versturen(wire::OPSTEL + id + QLatin1Char('|') + eigenaarID +
                                       QLatin1Char('|') + QString::number(soort),
                                   false);

        ModMainStarten& starten = *p.modMainStarten;
        if (starten.IsEigenProgramma(opdracht)) {
            melding(p.modTaal.LaadTekst(702));
            return;
        }
        const ModMainStarten::Opstart o = starten.LosOp(opdracht, parameter, QString());
        if (o.resultaat == ModMainStarten::BestandNietGevonden) {
            melding(p.modTaal.LaadTekst(703));
            const QString regel = QStringLiteral("\r\n");
            p.modMain.Foutmelding(
                p.modTaal.LaadTekst(703) + regel + p.modTaal.LaadTekst(704) + naam + regel +
                    p.modTaal.LaadTekst(705) + ModMainStarten::WerkMap(opdracht, QString()) +
                    regel + p.modTaal.LaadTekst(706) + opdracht,
                QStringLiteral("Automatische melding"),
                QStringLiteral("frmBureaublad.Form_MouseUp"), QStringLiteral("-"));
            return;
        }
        StartApplicatie(opdracht, parameter, QString(), beeldscherm, naam);
    });
}

void FrmBureaubladStarter::StartSchijf(const QString& schijf) {
    Procedure(p, "frmBureaublad.Form_MouseUp", [&] {
        if (StartGeblokkeerd())
            return;
        // The drive the item was drawn with may have been emptied since: the media are asked
        // for again, and the first one there stands in for it.
        const QStringList schijven = p.modMainStarten->LaadSchijven();
        const QString drive = schijven.contains(schijf) ? schijf : schijven.value(0);
        if (drive.isEmpty()) {
            p.modMain.SchrijfLogboek(
                QStringLiteral("The drive item was clicked, but no disc or removable medium is "
                               "mounted"),
                QStringLiteral("CD/DVD-rom"), QStringLiteral("frmBureaublad.Form_MouseUp"),
                QStringLiteral("-"));
            melding(p.modTaal.LaadTekst(9550));
            return;
        }
        StartApplicatie(QStringLiteral("%WINDIR%\\Explorer.exe"), drive, QString(), QString(),
                        QStringLiteral("CD/DVD-rom - ") + drive);
    });
}

// --- the overlay

void FrmBureaubladStarter::toonOverlay() {
    picDisableBeeld = Schermopname ? Schermopname() : QImage();
    picDisable = QRect(0, 0, SchermBreedte, SchermHoogte);
    lblDisableTekst = p.modTaal.LaadTekst(747);
    cmdShellWaitTekst = p.modTaal.LaadTekst(746);
    lblDisableZichtbaar = true;
    cmdShellWaitZichtbaar = false;
    picDisableZichtbaar = true;
    tmrDisable.start();
    hertekenen();
}

void FrmBureaubladStarter::verbergOverlay() {
    tmrDisable.stop();
    picDisableZichtbaar = false;
    lblDisableZichtbaar = false;
    cmdShellWaitZichtbaar = false;
    picDisableBeeld = QImage();
}

void FrmBureaubladStarter::centreer() {
    cmdShellWait.moveTo(BreedteNu / 2 - cmdShellWait.width() / 2,
                        HoogteNu / 2 - cmdShellWait.height() / 2);
    lblDisable.moveTo(BreedteNu / 2 - lblDisable.width() / 2,
                      HoogteNu / 2 - lblDisable.height() / 2);
}

void FrmBureaubladStarter::tmrDisable_Timer() {
    Procedure(p, "frmBureaublad.tmrDisable_Timer", [&] {
        if (!picDisableZichtbaar) {
            tmrDisable.stop();
            return;
        }
        hertekenen();
    });
}

// --- waiting and restoring

void FrmBureaubladStarter::tmrShellWait_Timer() {
    Procedure(p, "frmBureaublad.tmrShellWait_Timer", [&] {
        if (p.modMainStarten->ProcesLeeft(ShellProces))
            return;
        herstellen("frmBureaublad.tmrShellWait_Timer");
    });
}

void FrmBureaubladStarter::cmdShellWait_Click() {
    Procedure(p, "frmBureaublad.cmdShellWait_Click", [&] {
        cmdShellWaitZichtbaar = false;
        lblDisableZichtbaar = false;
        hertekenen();
        p.modMainStarten->KillProcess(ShellProces);
        herstellen("frmBureaublad.cmdShellWait_Click");
    });
}

void FrmBureaubladStarter::herstellen(const char* procedure) {
    Procedure(p, procedure, [&] {
        tmrShellWait.stop();
        ShellProces = 0;
        if (ShellWachtStand == u"1") {
            const QStringList oud = OudeWeergave.split(QLatin1Char('x'));
            if (p.modMainStarten->WijzigWeergave(getal(oud.value(0)), getal(oud.value(1)),
                                                 getal(oud.value(2)))) {
                BreedteNu = SchermBreedte;
                HoogteNu = SchermHoogte;
                if (taakbalk)
                    taakbalk->plaatsVoorScherm(HoogteNu);
            } else {
                melding(p.modTaal.LaadTekst(701));
            }
        }
        ShellWachtStand = QStringLiteral("0");
        if (TaakbalkVerborgen && taakbalk)
            taakbalk->strookTonen(true);
        TaakbalkVerborgen = false;
        if (Tonen)
            Tonen();
        formOnTop(true);
        tmrTaakbalk.start();
        verbergOverlay();
        hertekenen();
    });
}

void FrmBureaubladStarter::tmrTaakbalk_Timer() {
    Procedure(p, "frmBureaublad.tmrTaakbalk_Timer", [&] {
        if (taakbalk)
            taakbalk->houdBoven();
    });
}

// --- small helpers

void FrmBureaubladStarter::formOnTop(bool boven) {
    const quint64 venster = VensterHandle ? VensterHandle() : 0;
    if (venster != 0)
        p.platform.windows().setOnTop(venster, boven);
}

void FrmBureaubladStarter::melding(const QString& tekst) {
    p.modMain.ToonVraag(p.modTaal.LaadTekst(3), tekst, QStringLiteral("-"));
}

void FrmBureaubladStarter::hertekenen() {
    if (onChanged)
        onChanged();
    Q_EMIT gewijzigd();
}

} // namespace tk
