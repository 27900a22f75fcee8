#pragma once

#include <QString>

namespace tk::server {

class BackupKeeper;
class ClientConnection;
class PackageBuilder;
class Store;
class ThemeCatalogue;
class TransferChannel;
class UpdateOffer;

// The messages of the maintenance side of the vocabulary: problem calls and fault reports
// (HLP...), backups (BCK...), client updates (UPD...), the server settings (LDNSIN, OPSSIN) and
// the theme catalogue (LDNTHD, LDNTHO, LDNTHV). Each reply begins with the prefix the client's
// dispatcher tests; a refusal is that prefix with "FOUT".
class MaintenanceCommands {
public:
    // The version of this server, the first field of "LDNSIN".
    static QString serverVersion();

    MaintenanceCommands(Store& store, TransferChannel& transfers, const PackageBuilder& packages,
                        BackupKeeper& backups, const UpdateOffer& updates,
                        const ThemeCatalogue& catalogue);
    // True when the message was one of these (answered or refused).
    bool handle(ClientConnection& c, const QString& m);

private:
    void storeProblemCall(ClientConnection& c, const QString& record);
    void loadProblemCall(ClientConnection& c, const QString& number);
    void sendScreenshot(ClientConnection& c, const QString& id);
    void deleteProblemCall(ClientConnection& c, const QString& id);
    void makeBackup(ClientConnection& c);
    void restoreBackup(ClientConnection& c, const QString& name);
    bool handleUpdate(ClientConnection& c, const QString& m);
    void saveServerSettings(ClientConnection& c, const QString& payload);
    void addCatalogueTheme(ClientConnection& c, const QString& payload);
    void removeTheme(ClientConnection& c, const QString& id);
    void refuse(ClientConnection& c, const QString& prefix, const QString& why);

    Store& m_store;
    TransferChannel& m_transfers;
    const PackageBuilder& m_packages;
    BackupKeeper& m_backups;
    const UpdateOffer& m_updates;
    const ThemeCatalogue& m_catalogue;
};

} // namespace tk::server
