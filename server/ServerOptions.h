#pragma once

#include <QString>
#include <QStringList>

namespace tk::server {

// What the server is started with. Started with no options, or with the word FIREWALL first
// (as a Standalone workstation starts it), it uses the data folder "Server" beside the program
// and the default ports.
struct ServerOptions {
    static constexpr quint16 defaultPort = 34487;

    QString dataFolder;
    quint16 port = defaultPort;
    // The four transfer ports, in the order the client is told them: the two its receiver
    // listens on (file bytes, then commands), then the two the server listens on for uploads
    // (file bytes, then commands). 0 means "the port after the one before".
    quint16 clientDataPort = 0;
    quint16 clientInfoPort = 0;
    quint16 uploadDataPort = 0;
    quint16 uploadInfoPort = 0;
    bool demo = false;
    QString domain;
    QString themeFolder;        // a theme folder the demo school offers as its default theme
    QString updatesFolder;      // client updates on offer, one package per version
    int webPort = -1;           // the web side: -1 off, 0 a free port
    bool firewallStart = false; // started with the word FIREWALL (a Standalone's local server)
    int keepAliveSeconds = 60;
    // How long an unsolicited message waits for a quiet connection, and how long a file
    // transfer may stay silent; not on the command line.
    int settleMs = 250;
    int transferTimeoutMs = 30000;
    // What one client may send: the longest message (above it the connection is closed), and
    // how long a new connection may stay silent before its first message.
    qint64 maxMessage = 256 * 1024;
    int firstMessageMs = 30000;
    // How long the pieces of a long message may lie apart on the network; not on the command
    // line.
    int pieceQuietMs = 50;
    // New connections per second from one address, and how many may come at once; beyond that
    // they are closed at accept (0: no limit).
    int sourceRate = 100;
    int sourceBurst = 500;
    // How many connections one address may hold that have sent nothing for `silentAgeMs`: every
    // client speaks at once, so more are a scan or an attack, and the oldest are closed (0: no
    // limit); not on the command line.
    int silentPerSource = 32;
    int silentAgeMs = 5000;
    // How many bytes one connection's input may give per turn of the event loop, so that one
    // that sends megabytes cannot keep the others waiting; not on the command line.
    qint64 turnSliceBytes = 16 * 1024;
    // The open-file limit the server runs under (0 unknown); set at start, not an option.
    qint64 fileLimit = 0;

    // Reads the command line (without the program name). On a fault returns false and says why.
    bool parse(const QStringList& arguments, const QString& programFolder, QString* error);
    // Fills the transfer ports left at 0 from the command port.
    void settlePorts();
    static QString usage();
};

} // namespace tk::server
