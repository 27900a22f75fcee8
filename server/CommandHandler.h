#pragma once

#include <QString>
#include <QStringList>

namespace tk::server {

class ClientConnection;
class CommandServer;
struct OwnerRecord;
class PackageBuilder;
class Store;
class TransferChannel;

// The vocabulary of the command channel: takes one message of a client, acts on the store and
// answers with the reply the client's dispatcher expects. A request it cannot carry out gets
// the reply's prefix with "FOUT"; a message it does not know is dropped with a line in the log.
class CommandHandler {
public:
    CommandHandler(CommandServer& server, Store& store, TransferChannel& transfers,
                   const PackageBuilder& packages);
    void handle(ClientConnection& c, const QString& message);

    // The kind number of a kind letter ("k" 0, "l" 1, "a" 2, any case), -1 for others.
    static int kindOf(const QString& letter);

private:
    // The requests that read the store (INF, LDN, ACD): their replies go only when every read
    // for them succeeded; otherwise the connection is closed.
    void answerFromReads(ClientConnection& c, const QString& m);
    bool handleInfo(ClientConnection& c, const QString& m);
    bool handleLoad(ClientConnection& c, const QString& m);
    bool handleAccounts(ClientConnection& c, const QString& m);
    bool handleSave(ClientConnection& c, const QString& m);
    bool handleDelete(ClientConnection& c, const QString& m);

    void saveOwner(ClientConnection& c, const OwnerRecord& kind, const QString& payload);
    void saveTeachers(ClientConnection& c, const QString& payload);
    void saveCategory(ClientConnection& c, const QString& payload);
    void saveCategories(ClientConnection& c, const QString& payload);
    void saveApplication(ClientConnection& c, const QString& payload);
    void takeIcon(ClientConnection& c, const QString& payload);
    // A package that could not be made: logged, and the connection closed, so that the client's
    // wait for the file ends.
    void packageFailed(ClientConnection& c, QLatin1StringView word);
    void sendIconPackage(ClientConnection& c, const QString& request);
    void applyAccountExtra(const QString& account, const QString& extra);
    void refuse(ClientConnection& c, const QString& prefix, const QString& why);

    CommandServer& m_server;
    Store& m_store;
    TransferChannel& m_transfers;
    const PackageBuilder& m_packages;
};

} // namespace tk::server
