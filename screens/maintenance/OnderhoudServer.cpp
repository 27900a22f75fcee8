#include "OnderhoudServer.h"

#include "BewerkPaneel.h"
#include "FrmOnderhoud.h"
#include "InstellingenTeksten.h"
#include "core/OpstartStappen.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/Wire.h"
#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"

namespace tk {

namespace {

const QString instellingenIni = QString::fromLatin1(ModMain::Instellingen);

} // namespace

OnderhoudServer::OnderhoudServer(Programma& p) : p(p) {
    LaadTaal();
}

QString OnderhoudServer::titel() const {
    return p.modTaal.LaadTekst(3373);
}

void OnderhoudServer::LaadTaal() {
    auto t = [&](int id) { return p.modTaal.LaadTekst(id); };
    lblServerlocatie = t(3181);
    fraUpdates = t(3184).trimmed();
    lblClientversie = t(3185);
    lblServerversie = t(9548);
    lblBeta = t(3186);
    lblAutomatisch = t(3187);
    ja = t(3188);
    nee = t(3189);
    lblNoot = t(3191);
    fraBackup = t(3192).trimmed();
    cmdServer = {QString(), t(3197), t(3190), t(3195), t(3196), t(3199)};
    cmdBackup = {t(3193), t(3194)};
    changelogTitel = t(900);
    changelogSluiten = t(901);
    // The list's note follows the language too.
    if (m_backups.isEmpty() && !cmbBackup.isEmpty())
        cmbBackup = {t(3429)};
    hertekenen();
}

void OnderhoudServer::Tonen(int) {
    LaadServerInstellingen();
    // The backups were read when the module was loaded, and anew after each export.
    LaadBackups(false);
}

std::optional<QString> OnderhoudServer::vraag(const QString& bericht) {
    return BewerkPaneel::wachtA(p, bericht);
}

std::optional<QString> OnderhoudServer::vraagOpslaan(const QString& bericht) {
    return BewerkPaneel::wachtB(p, bericht);
}

void OnderhoudServer::meld(int tekst) {
    p.modMain.ToonVraag(p.modTaal.LaadTekst(3359), p.modTaal.LaadTekst(tekst), QStringLiteral("-"));
}

void OnderhoudServer::herstart(const QString& woord) {
    if (!p.modMainVerbinding || !p.modMainVerbinding->StuurOpstartCommando(woord))
        p.modMain.SchrijfLogboek(
            QStringLiteral("No launcher heard \"%1\": the client ends without a restart")
                .arg(woord),
            QStringLiteral("Onderhoudsmodule"), QStringLiteral("frmOnderhoud.cmdServer_Click"),
            QStringLiteral("-"));
    if (p.frmMain)
        p.frmMain->VerliesVerwacht = true;
    p.Einde();
}

// --- the server's settings

void OnderhoudServer::LaadServerInstellingen() {
    Procedure(p, "frmOnderhoud.LaadServerInstellingen", [&] {
        cmdServerEnabled[3] = cmdServerEnabled[4] = false;
        lblClientversieWaarde = ModMain::ProgrammaVersie();
        if (p.frmMain)
            txtServerlocatie =
                InstellingenTeksten::locatieTekst(p.frmMain->ServerHost, p.frmMain->ServerPoort);
        locatieTag = txtServerlocatie;
        ModusInstellingenServer(false);
        const std::optional<QString> antwoord = vraag(wire::LDNSIN);
        ModusInstellingenServer(true);
        if (antwoord) {
            const auto s = InstellingenTeksten::serverInstellingen(*antwoord);
            automatisch = automatischTag = s.automatisch;
            beta = betaTag = s.beta;
            lblServerversieWaarde = s.versie;
            if (!s.module.isEmpty())
                lblServerversieWaarde += QStringLiteral(" (") + s.module + QLatin1Char(')');
        }
        ControleerInstellingenServer();
    });
}

void OnderhoudServer::ModusInstellingenServer(bool aan) {
    ingeschakeld = aan;
    if (p.frmOnderhoud && p.frmOnderhoud->BewerkModus == aan)
        p.frmOnderhoud->ZetBewerkModus(!aan);
    hertekenen();
}

void OnderhoudServer::ControleerInstellingenServer() {
    const bool anders =
        txtServerlocatie != locatieTag || automatisch != automatischTag || beta != betaTag;
    cmdServerEnabled[3] = cmdServerEnabled[4] = anders;
    hertekenen();
}

void OnderhoudServer::cmbServer_Click(int index, bool keuze) {
    if (!ingeschakeld)
        return;
    if (index == 1)
        automatisch = keuze;
    else if (index == 2)
        beta = keuze;
    ControleerInstellingenServer();
}

void OnderhoudServer::cmdServer_Click(int index) {
    if (!ingeschakeld || index < 1 || index > 5 || !cmdServerEnabled[size_t(index)])
        return;
    Procedure(p, "frmOnderhoud.cmdServer_Click", [&] {
        switch (index) {
        case 1:
            if (p.modMainVerbinding) {
                const QString gekozen = p.modMainVerbinding->frmNetwerk.Computernaam();
                if (!gekozen.isEmpty())
                    txtServerlocatie = gekozen;
            }
            ControleerInstellingenServer();
            break;
        case 2:
            controleerUpdates();
            break;
        case 3:
            opslaan();
            break;
        case 4:
            LaadServerInstellingen();
            break;
        case 5:
            if (changelogAdres().isEmpty())
                meld(9549);
            else if (toonChangelog)
                toonChangelog(changelogAdres());
            break;
        }
    });
}

void OnderhoudServer::controleerUpdates() {
    ModusInstellingenServer(false);
    const std::optional<QString> versie = vraag(wire::UPDCON);
    ModusInstellingenServer(true);
    if (!versie)
        return;
    if (*versie == ModMain::ProgrammaVersie()) {
        meld(3339);
        return;
    }
    herstart(QStringLiteral("UPDATE"));
}

void OnderhoudServer::opslaan() {
    if (beta && !betaTag) {
        const QString wachtwoord = p.modMain.ToonVraag(
            p.modTaal.LaadTekst(3359), p.modTaal.LaadTekst(3340), QStringLiteral("*"));
        if (wachtwoord.isEmpty())
            return;
        if (wachtwoord != QLatin1String(BetaWachtwoord)) {
            meld(3341);
            return;
        }
    }
    ModusInstellingenServer(false);
    const std::optional<QString> antwoord =
        vraagOpslaan(wire::OPSSIN + InstellingenTeksten::opslaanServer(automatisch, beta));
    ModusInstellingenServer(true);
    if (!antwoord)
        return;
    automatischTag = automatisch;
    betaTag = beta;
    const auto locatie = InstellingenTeksten::locatie(txtServerlocatie);
    const bool anders = p.frmMain && (locatie.host != p.frmMain->ServerHost ||
                                      locatie.poort != p.frmMain->ServerPoort);
    if (!locatie.host.isEmpty() && anders) {
        p.modMain.SchrijfIni(txtServerlocatie, QStringLiteral("Instellingen"),
                             QStringLiteral("Serverlocatie"), instellingenIni);
        meld(3342);
        if (p.modMain.ModusNetwerk) {
            p.opstartStappen->ZetAutomatischeAanmelding(
                QStringLiteral("ONDERHOUD"), ModMain::IngebouwdWachtwoord(), QString(), true);
            return;
        }
        herstart(QStringLiteral("resolutie"));
        return;
    }
    locatieTag = txtServerlocatie;
    ControleerInstellingenServer();
}

QString OnderhoudServer::changelogAdres() const {
    QString web =
        p.modMain
            .LeesIni(QStringLiteral("Instellingen"), QStringLiteral("Webadres"), instellingenIni)
            .trimmed();
    if (web.isEmpty())
        return QString();
    while (web.endsWith(QLatin1Char('/')))
        web.chop(1);
    return web + QStringLiteral("/applicatie/download_changelog.php4?versie=") +
           ModMain::ProgrammaVersie();
}

// --- the backups

void OnderhoudServer::LaadBackups(bool opnieuw) {
    Procedure(p, "frmOnderhoud.LaadBackups", [&] {
        if (opnieuw) {
            ModusInstellingenServer(false);
            const std::optional<QString> antwoord = vraag(wire::BCKLST);
            ModusInstellingenServer(true);
            if (antwoord)
                m_backups = InstellingenTeksten::backups(*antwoord);
        }
        const bool leeg = m_backups.isEmpty();
        cmbBackup = leeg ? QStringList(p.modTaal.LaadTekst(3429)) : m_backups;
        // The newest backup, last in the server's list, stands chosen.
        backupIndex = int(cmbBackup.size()) - 1;
        fraBackupEnabled = !leeg;
        cmdBackupEnabled = {!leeg, true};
        hertekenen();
    });
}

void OnderhoudServer::cmbBackup_Click(int index) {
    if (fraBackupEnabled && index >= 0 && index < cmbBackup.size()) {
        backupIndex = index;
        hertekenen();
    }
}

void OnderhoudServer::cmdBackup_Click(int index) {
    if (!ingeschakeld || index < 0 || index > 1 || !cmdBackupEnabled[size_t(index)])
        return;
    Procedure(p, "frmOnderhoud.cmdBackup_Click", [&] {
        if (index == 0)
            importeren();
        else
            exporteren();
    });
}

void OnderhoudServer::importeren() {
    if (backupIndex < 0 || backupIndex >= m_backups.size())
        return;
    if (p.modMain.ToonVraag(p.modTaal.LaadTekst(3359), p.modTaal.LaadTekst(3324),
                            QStringLiteral("?")) != u"ja")
        return;
    cmdBackupEnabled = {false, false};
    hertekenen();
    const QString bestand = InstellingenTeksten::bestandsnaam(m_backups[backupIndex]);
    ModusInstellingenServer(false);
    const std::optional<QString> antwoord = vraag(wire::BCKRST + bestand);
    ModusInstellingenServer(true);
    if (!antwoord) {
        LaadBackups(false);
        return;
    }
    if (*antwoord != wire::fout) {
        meld(3325);
        herstart(QStringLiteral("resolutie"));
        return;
    }
    meld(3326);
    LaadBackups(false);
}

void OnderhoudServer::exporteren() {
    cmdBackupEnabled = {false, false};
    hertekenen();
    ModusInstellingenServer(false);
    const std::optional<QString> antwoord = vraag(wire::BCKMKB);
    ModusInstellingenServer(true);
    if (!antwoord) {
        LaadBackups(false);
        return;
    }
    if (*antwoord == wire::fout) {
        meld(3328);
        LaadBackups(false);
        return;
    }
    LaadBackups(true);
    meld(3327);
}

} // namespace tk
