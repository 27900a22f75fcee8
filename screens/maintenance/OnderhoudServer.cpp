#include "OnderhoudServer.h"

#include "FrmOnderhoud.h"
#include "InstellingenTeksten.h"
#include "core/OpstartStappen.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/Wire.h"
#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "link/Serverlocatie.h"

namespace tk {

namespace {

const QString instellingenIni = QString::fromLatin1(ModMain::Instellingen);

} // namespace

OnderhoudServer::OnderhoudServer(Programma& p) : BewerkPaneel(p, Live) {
    velden = {{.naam = QStringLiteral("txtServerlocatie")},
              {.naam = QStringLiteral("cmbServer(1)"),
               .waarde = QStringLiteral("Nee"),
               .keuzelijst = true},
              {.naam = QStringLiteral("cmbServer(2)"),
               .waarde = QStringLiteral("Nee"),
               .keuzelijst = true}};
    LaadTaal();
}

QString OnderhoudServer::titel() const {
    return p.modTaal.LaadTekst(3373);
}

void OnderhoudServer::LaadTaal() {
    auto t = [&](int id) { return p.modTaal.LaadTekst(id); };
    fraUpdates = t(3184).trimmed();
    lblClientversie = t(3185);
    lblServerversie = t(9548);
    lblNoot = t(3191);
    fraBackup = t(3192).trimmed();
    velden[Locatie].caption = t(3181);
    velden[Automatisch].caption = t(3187);
    velden[Beta].caption = t(3186);
    for (int veld : {Automatisch, Beta})
        velden[veld].keuzes = {{t(3188), QLatin1String(ja_)}, {t(3189), QStringLiteral("Nee")}};
    cmdServer = {QString(), t(3197), t(3190), t(3195), t(3196), t(3199)};
    cmdBackup = {t(3193), t(3194)};
    changelogTitel = t(900);
    changelogSluiten = t(901);
    // The list's note follows the language too.
    if (m_backups.isEmpty() && !cmbBackup.isEmpty())
        cmbBackup = {t(3429)};
    BewerkPaneel::LaadTaal();
}

void OnderhoudServer::Tonen(int rij) {
    BewerkPaneel::Tonen(rij);
    // The backups were read when the module was loaded, and anew after each export.
    LaadBackups(false);
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
    Procedure(p, "frmOnderhoud.LaadServerInstellingen", [&] { LaadLijst(); });
}

void OnderhoudServer::HerstellenWijziging() {
    LaadServerInstellingen();
}

void OnderhoudServer::VulVelden(const QString&) {
    lblClientversieWaarde = ModMain::ProgrammaVersie();
    if (p.frmMain)
        velden[Locatie].waarde =
            Serverlocatie::tekst(p.frmMain->ServerHost, p.frmMain->ServerPoort);
    if (const std::optional<QString> antwoord = VraagA(wire::LDNSIN)) {
        const auto s = InstellingenTeksten::serverInstellingen(*antwoord);
        auto janee = [](bool ja) { return ja ? QLatin1String(ja_) : QLatin1String("Nee"); };
        velden[Automatisch].waarde = janee(s.automatisch);
        velden[Beta].waarde = janee(s.beta);
        lblServerversieWaarde = s.versie;
        if (!s.module.isEmpty())
            lblServerversieWaarde += QStringLiteral(" (") + s.module + QLatin1Char(')');
    }
}

void OnderhoudServer::cmbServer_Click(int index, bool keuze) {
    if (index == 1 || index == 2)
        ZetVeld(index == 1 ? Automatisch : Beta,
                keuze ? QLatin1String(ja_) : QStringLiteral("Nee"));
}

void OnderhoudServer::cmdServer_Click(int index) {
    if (bezig)
        return;
    Procedure(p, "frmOnderhoud.cmdServer_Click", [&] {
        switch (index) {
        case 1:
            if (p.modMainVerbinding) {
                const QString gekozen = p.modMainVerbinding->frmNetwerk.Computernaam();
                if (!gekozen.isEmpty())
                    ZetVeld(Locatie, gekozen);
            }
            break;
        case 2:
            controleerUpdates();
            break;
        case 3:
            cmd_Click(Opslaan);
            break;
        case 4:
            cmd_Click(Herstellen);
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
    const std::optional<QString> versie = VraagA(wire::UPDCON);
    if (!versie)
        return;
    if (*versie == ModMain::ProgrammaVersie()) {
        meld(3339);
        return;
    }
    herstart(QStringLiteral("UPDATE"));
}

bool OnderhoudServer::MagOpslaan() {
    if (!ja(Beta) || velden[Beta].tag == QLatin1String(ja_))
        return true;
    const QString wachtwoord = ToonVraag(p.modTaal.LaadTekst(3340), QStringLiteral("*"));
    if (wachtwoord.isEmpty())
        return false;
    if (wachtwoord != QLatin1String(BetaWachtwoord)) {
        meld(3341);
        return false;
    }
    return true;
}

bool OnderhoudServer::OpslaanRecord(bool) {
    if (!VraagB(wire::OPSSIN + InstellingenTeksten::opslaanServer(ja(Automatisch), ja(Beta))))
        return false;
    const QString tekst = velden[Locatie].waarde;
    const Serverlocatie locatie = Serverlocatie::lees(tekst);
    const bool anders = p.frmMain && (locatie.host != p.frmMain->ServerHost ||
                                      locatie.poort != p.frmMain->ServerPoort);
    if (locatie.host.isEmpty() || !anders)
        return true;
    p.modMain.SchrijfIni(tekst, QStringLiteral("Instellingen"), QStringLiteral("Serverlocatie"),
                         instellingenIni);
    meld(3342);
    if (p.modMain.ModusNetwerk)
        p.opstartStappen->ZetAutomatischeAanmelding(
            QStringLiteral("ONDERHOUD"), ModMain::IngebouwdWachtwoord(), QString(), true);
    else
        herstart(QStringLiteral("resolutie"));
    return true;
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
            const std::optional<QString> antwoord = VraagA(wire::BCKLST);
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
    if (bezig || index < 0 || index > 1 || !cmdBackupEnabled[size_t(index)])
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
    if (ToonVraag(p.modTaal.LaadTekst(3324), QStringLiteral("?")) != u"ja")
        return;
    cmdBackupEnabled = {false, false};
    hertekenen();
    const QString bestand = InstellingenTeksten::bestandsnaam(m_backups[backupIndex]);
    const std::optional<QString> antwoord = VraagA(wire::BCKRST + bestand);
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
    const std::optional<QString> antwoord = VraagA(wire::BCKMKB);
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
