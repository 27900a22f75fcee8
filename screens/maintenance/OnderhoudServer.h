#pragma once

#include "BewerkPaneel.h"

#include <QString>
#include <QStringList>
#include <array>
#include <functional>

namespace tk {

class Programma;

// The server panel of the maintenance module (Settings > Server): the client's version, the
// server location, automatic update and beta, the check for updates and the change log, and the
// backup box, in which the server's backups are listed, made and restored. Location, automatic
// update and beta are the fields of the edit pattern's live form: its change test is the
// system's ControleerInstellingenServer, its Save and Restore changes are cmdServer 3 and 4, and
// its waits take the panel and the menu off as ModusInstellingenServer did.
class OnderhoudServer : public BewerkPaneel {
public:
    // The password that makes a workstation a beta user.
    static constexpr const char* BetaWachtwoord = "toetsveer";
    // The fields, by their place in `velden`; the two lists hold Ja and Nee.
    enum VeldNummer { Locatie, Automatisch, Beta };

    explicit OnderhoudServer(Programma& p);
    QString titel() const override;
    // The entry was chosen: the server's settings are read; the backups stand as loaded.
    void Tonen(int rij) override;
    void LaadTaal() override;

    // The client's version, the location in use and the server's answer to LDNSIN in the
    // fields and their tags, Save and Restore off. Also what Restore changes does.
    void LaadServerInstellingen();
    void HerstellenWijziging() override;
    // 1 automatic update, 2 beta user; `ja` the item chosen.
    void cmbServer_Click(int index, bool ja);
    // 1 Browse, 2 Check for updates, 3 Save changes, 4 Restore changes, 5 Changelog.
    void cmdServer_Click(int index);
    bool ja(int veld) const { return velden[veld].waarde == QLatin1String(ja_); }
    // With `opnieuw` the list is asked of the server; else the last list is shown again.
    void LaadBackups(bool opnieuw);
    void cmbBackup_Click(int index);
    // 0 Import, 1 Export.
    void cmdBackup_Click(int index);
    // The page of the change log of this version on the configured web site; empty when none.
    QString changelogAdres() const;

    // --- what the view shows
    QString lblClientversieWaarde, lblServerversieWaarde;
    QStringList cmbBackup;
    int backupIndex = -1;
    bool fraBackupEnabled = false;
    std::array<bool, 2> cmdBackupEnabled{false, true};

    // Captions.
    QString fraUpdates, lblClientversie, lblServerversie, lblNoot, fraBackup, changelogTitel,
        changelogSluiten;
    std::array<QString, 6> cmdServer;
    std::array<QString, 2> cmdBackup;

    // The view opens the change log at this address.
    std::function<void(const QString& adres)> toonChangelog;

protected:
    QList<Item> Records() override { return {}; }
    void VulVelden(const QString& sleutel) override;
    // Switching beta on asks its password; a wrong or empty one stops the save.
    bool MagOpslaan() override;
    // OPSSIN, then a changed location restarts the client.
    bool OpslaanRecord(bool nieuwRecord) override;
    std::array<int, 6> knopTeksten() const override { return {0, 0, 0, 3195, 0, 3196}; }

private:
    static constexpr const char* ja_ = "Ja";
    void controleerUpdates();
    void importeren();
    void exporteren();
    void meld(int tekst);
    // Ends the client with a word for the launcher, which starts it again.
    void herstart(const QString& woord);
    QStringList m_backups;
};

} // namespace tk
