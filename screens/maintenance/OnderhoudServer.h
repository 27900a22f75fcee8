#pragma once

#include "OnderhoudPaneel.h"

#include <QString>
#include <QStringList>
#include <array>
#include <functional>
#include <optional>

namespace tk {

class Programma;

// The server panel of the maintenance module (Settings > Server): the client's version, the
// server location, automatic update and beta, the check for updates and the change log, and the
// backup box, in which the server's backups are listed, made and restored.
class OnderhoudServer : public OnderhoudPaneel {
public:
    // The password that makes a workstation a beta user.
    static constexpr const char* BetaWachtwoord = "toetsveer";

    explicit OnderhoudServer(Programma& p);
    QString titel() const override;
    // The entry was chosen: the server's settings are read; the backups stand as loaded.
    void Tonen(int rij) override;
    void LaadTaal() override;

    void LaadServerInstellingen();
    // All controls of the panel on or off, the menu with them (off while the server is asked).
    void ModusInstellingenServer(bool aan);
    void ControleerInstellingenServer();
    // 1 automatic update, 2 beta user; `ja` the item chosen.
    void cmbServer_Click(int index, bool ja);
    // 1 Browse, 2 Check for updates, 3 Save changes, 4 Restore changes, 5 Changelog.
    void cmdServer_Click(int index);
    // With `opnieuw` the list is asked of the server; else the last list is shown again.
    void LaadBackups(bool opnieuw);
    void cmbBackup_Click(int index);
    // 0 Import, 1 Export.
    void cmdBackup_Click(int index);
    // The page of the change log of this version on the configured web site; empty when none.
    QString changelogAdres() const;

    // --- what the view shows
    QString lblClientversieWaarde, lblServerversieWaarde;
    QString txtServerlocatie, locatieTag;
    bool automatisch = false, automatischTag = false, beta = false, betaTag = false;
    bool ingeschakeld = true;
    std::array<bool, 6> cmdServerEnabled{false, true, true, false, false, true};
    QStringList cmbBackup;
    int backupIndex = -1;
    bool fraBackupEnabled = false;
    std::array<bool, 2> cmdBackupEnabled{false, true};

    // Captions.
    QString lblServerlocatie, fraUpdates, lblClientversie, lblServerversie, lblBeta, lblAutomatisch,
        lblNoot, fraBackup, ja, nee, changelogTitel, changelogSluiten;
    std::array<QString, 6> cmdServer;
    std::array<QString, 2> cmdBackup;

    // The view opens the change log at this address.
    std::function<void(const QString& adres)> toonChangelog;

private:
    // A question of class A or B to the server through the module's waits: its answer, or
    // nothing when the link is absent or went while waiting (the link's own handling restarts
    // the client then).
    std::optional<QString> vraag(const QString& bericht);
    std::optional<QString> vraagOpslaan(const QString& bericht);
    void opslaan();
    void controleerUpdates();
    void importeren();
    void exporteren();
    void meld(int tekst);
    // Ends the client with a word for the launcher, which starts it again.
    void herstart(const QString& woord);
    QStringList m_backups;
    Programma& p;
};

} // namespace tk
