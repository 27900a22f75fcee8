#include "ServerOptions.h"

#include <QDir>

namespace tk::server {

namespace {

bool readPort(const QString& text, quint16* port) {
    bool ok = false;
    const int value = text.toInt(&ok);
    if (!ok || value < 0 || value > 65535)
        return false;
    *port = quint16(value);
    return true;
}

} // namespace

bool ServerOptions::parse(const QStringList& arguments, const QString& programFolder,
                          QString* error) {
    QStringList args = arguments;
    if (!args.isEmpty() &&
        args.first().compare(QStringLiteral("FIREWALL"), Qt::CaseInsensitive) == 0) {
        args.removeFirst();
        firewallStart = true;
    }
    for (int i = 0; i < args.size(); ++i) {
        const QString& name = args[i];
        auto value = [&](QString* out) {
            if (i + 1 >= args.size()) {
                *error = QStringLiteral("%1 needs a value").arg(name);
                return false;
            }
            *out = args[++i];
            return true;
        };
        auto portValue = [&](quint16* out) {
            QString text;
            if (!value(&text))
                return false;
            if (!readPort(text, out)) {
                *error = QStringLiteral("%1: \"%2\" is not a port number").arg(name, text);
                return false;
            }
            return true;
        };
        bool ok = true;
        if (name == QStringLiteral("--data"))
            ok = value(&dataFolder);
        else if (name == QStringLiteral("--port"))
            ok = portValue(&port);
        else if (name == QStringLiteral("--client-data-port"))
            ok = portValue(&clientDataPort);
        else if (name == QStringLiteral("--client-info-port"))
            ok = portValue(&clientInfoPort);
        else if (name == QStringLiteral("--upload-data-port"))
            ok = portValue(&uploadDataPort);
        else if (name == QStringLiteral("--upload-info-port"))
            ok = portValue(&uploadInfoPort);
        else if (name == QStringLiteral("--domain"))
            ok = value(&domain);
        else if (name == QStringLiteral("--theme"))
            ok = value(&themeFolder);
        else if (name == QStringLiteral("--updates"))
            ok = value(&updatesFolder);
        else if (name == QStringLiteral("--web-port")) {
            quint16 web = 0;
            ok = portValue(&web);
            webPort = web;
        } else if (name == QStringLiteral("--keep-alive")) {
            QString text;
            ok = value(&text);
            bool number = false;
            keepAliveSeconds = text.toInt(&number);
            if (ok && (!number || keepAliveSeconds < 1)) {
                *error = QStringLiteral("--keep-alive needs a number of seconds above 0");
                ok = false;
            }
        } else if (name == QStringLiteral("--max-message")) {
            QString text;
            ok = value(&text);
            bool number = false;
            maxMessage = text.toLongLong(&number);
            if (ok && (!number || maxMessage < 1024)) {
                *error = QStringLiteral("--max-message needs a number of bytes of 1024 or more");
                ok = false;
            }
        } else if (name == QStringLiteral("--first-message")) {
            QString text;
            ok = value(&text);
            bool number = false;
            const int seconds = text.toInt(&number);
            if (ok && (!number || seconds < 1 || seconds > 86400)) {
                *error =
                    QStringLiteral("--first-message needs a number of seconds from 1 to 86400");
                ok = false;
            }
            firstMessageMs = seconds * 1000;
        } else if (name == QStringLiteral("--source-rate") ||
                   name == QStringLiteral("--source-burst")) {
            QString text;
            ok = value(&text);
            bool number = false;
            const int n = text.toInt(&number);
            if (ok && (!number || n < 0 || n > 1000000)) {
                *error =
                    QStringLiteral("%1 needs a number of connections from 0 to 1000000").arg(name);
                ok = false;
            }
            (name == QStringLiteral("--source-rate") ? sourceRate : sourceBurst) = n;
        } else if (name == QStringLiteral("--demo"))
            demo = true;
        else {
            *error = QStringLiteral("unknown option \"%1\"").arg(name);
            ok = false;
        }
        if (!ok)
            return false;
    }
    if (dataFolder.isEmpty())
        dataFolder = QDir(programFolder).filePath(QStringLiteral("Server"));
    settlePorts();
    return true;
}

void ServerOptions::settlePorts() {
    if (port == 0)
        return; // a free port of the system: transfer ports left at 0 are free ones too
    auto next = [](quint16 before) { return quint16(before == 65535 ? 0 : before + 1); };
    if (clientDataPort == 0)
        clientDataPort = next(port);
    if (clientInfoPort == 0)
        clientInfoPort = next(clientDataPort);
    if (uploadDataPort == 0)
        uploadDataPort = next(clientInfoPort);
    if (uploadInfoPort == 0)
        uploadInfoPort = next(uploadDataPort);
}

QString ServerOptions::usage() {
    return QStringLiteral("usage: tafelkrater-server [FIREWALL] [--data DIR] [--port N] [--demo]\n"
                          "         [--client-data-port N] [--client-info-port N]\n"
                          "         [--upload-data-port N] [--upload-info-port N]\n"
                          "         [--domain NAME] [--theme DIR] [--keep-alive SECONDS]\n"
                          "         [--updates DIR] [--web-port N]\n"
                          "         [--max-message BYTES] [--first-message SECONDS]\n"
                          "         [--source-rate PER_SECOND] [--source-burst CONNECTIONS]\n");
}

} // namespace tk::server
