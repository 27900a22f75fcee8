#pragma once

#include "WireClient.h"
#include "server/CommandServer.h"
#include "server/Store.h"

#include <QTemporaryDir>
#include <functional>
#include <memory>

namespace tk::server::test {

// A real server on 127.0.0.1 with ports the system chooses, its store in a temporary folder,
// and a file receiver standing in for the client's.
class RunningServer {
public:
    // `tune` changes the options before the start (a keep-alive of 60 s, short transfer times).
    explicit RunningServer(const std::function<void(ServerOptions&)>& tune = {}, bool demo = true);
    ~RunningServer();
    // Stops the server and closes the store, then starts both again on the same folder.
    void restart();
    quint16 port() const { return m_server->port(); }
    CommandServer& server() { return *m_server; }
    Store& store() { return m_store; }
    FileReceiver& receiver() { return m_receiver; }
    const ServerOptions& options() const { return m_server->options(); }
    QString dataFolder() const { return m_folder.path(); }

private:
    void start();
    QTemporaryDir m_folder;
    Store m_store;
    FileReceiver m_receiver;
    ServerOptions m_options;
    std::unique_ptr<CommandServer> m_server;
};

// The client's loaders, as the wire asks and parses: rows of the client's tables.
QList<QStringList> loadClasses(WireClient& c);
QList<QStringList> loadTeachers(WireClient& c);
QList<QStringList> loadApplications(WireClient& c, const QString& letter);
// Categories of a kind: the last ID first, then "id|naam" items.
QStringList loadCategories(WireClient& c, const QString& letter);

// Writes a file and the folders above it.
void writeFile(const QString& path, const QByteArray& bytes);

// A request and the one reply it must get, exactly.
struct Exchange {
    QString request;
    QString reply;
};
// Plays the exchanges in their order on one connection; a failure names its request.
void converse(WireClient& c, const QList<Exchange>& exchanges);

} // namespace tk::server::test
