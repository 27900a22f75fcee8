// tafelkrater-server: the school's server. See docs/protocol.md for what it speaks.
#include "platform/linux/FileLimit.h"
#include "platform/linux/TerminationSignal.h"
#include "server/ArchivePackager.h"
#include "server/CommandServer.h"
#include "server/DemoSchool.h"
#include "server/ServerLog.h"
#include "server/ServerOptions.h"
#include "server/Store.h"
#include "server/UpdateOffer.h"
#include "server/WebServer.h"

#include <QCoreApplication>
#include <QDir>
#include <cstdio>
#include <memory>

using namespace tk::server;
using tk::FileLimit;
using tk::TerminationSignal;

int main(int argc, char** argv) {
    // Qt's own event loop instead of GLib's: about a sixth more requests a second.
    if (qEnvironmentVariableIsEmpty("QT_NO_GLIB"))
        qputenv("QT_NO_GLIB", "1");
    QCoreApplication app(argc, argv);
    ServerOptions options;
    QString error;
    if (!options.parse(app.arguments().mid(1), QCoreApplication::applicationDirPath(), &error)) {
        std::fputs(qPrintable(error + QLatin1Char('\n') + ServerOptions::usage()), stderr);
        return 2;
    }
    if (options.demo && options.themeFolder.isEmpty())
        options.themeFolder = QDir(QCoreApplication::applicationDirPath())
                                  .filePath(QStringLiteral("Afbeeldingen/Skins/1"));

    // One descriptor per client: the soft limit goes up to what the administrator allows.
    const FileLimit::Result files = FileLimit::raise();
    if (!files.fault.isEmpty())
        ServerLog::fault(QStringLiteral("open-file limit"), files.fault);
    else if (files.after != files.before)
        ServerLog::line(QStringLiteral("open-file limit raised from %1 to %2")
                            .arg(files.before)
                            .arg(files.after));
    else
        ServerLog::line(QStringLiteral("open-file limit %1").arg(files.after));
    options.fileLimit = files.after;

    Store store;
    if (!store.open(options.dataFolder, &error)) {
        ServerLog::fault(QStringLiteral("store"), error);
        return 1;
    }
    CommandServer server(store, options);
    if (!server.start(&error)) {
        ServerLog::line(QStringLiteral("ending: %1").arg(error));
        return 1;
    }
    std::unique_ptr<WebServer> web;
    if (options.webPort >= 0) {
        web = std::make_unique<WebServer>(QDir(options.dataFolder).filePath(QStringLiteral("Web")),
                                          UpdateOffer(options.updatesFolder));
        if (!web->start(options.webPort, &error)) {
            ServerLog::line(QStringLiteral("ending: %1").arg(error));
            return 1;
        }
        ServerLog::line(QStringLiteral("web side on port %1").arg(web->port()));
    }
    if (options.demo && store.isEmpty()) {
        if (!DemoSchool::seed(store, options.themeFolder, ArchivePackager(), &error))
            ServerLog::fault(QStringLiteral("demo school"), error);
        else
            ServerLog::line(QStringLiteral("the demo school is in the store"));
    }
    TerminationSignal termination;
    QObject::connect(&termination, &TerminationSignal::received, &app, [&](int number) {
        ServerLog::line(QStringLiteral("ending on signal %1").arg(number));
        server.stop();
        if (web)
            web->stop();
        app.quit();
    });
    ServerLog::line(QStringLiteral("listening on port %1 (transfers: client %2 and %3, uploads "
                                   "%4 and %5), data in %6")
                        .arg(server.port())
                        .arg(server.options().clientDataPort)
                        .arg(server.options().clientInfoPort)
                        .arg(server.options().uploadDataPort)
                        .arg(server.options().uploadInfoPort)
                        .arg(QDir(options.dataFolder).absolutePath()));
    const int code = app.exec();
    store.close();
    return code;
}
