// The launcher: keeps the client running (see ClientWatcher) and ends when the client says so.
//   tafelkrater-startup [client [words for the client...]]
#include "ClientWatcher.h"
#include "platform/linux/TerminationSignal.h"

#include <QCoreApplication>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QString map = QCoreApplication::applicationDirPath();
    const QStringList args = QCoreApplication::arguments();
    const QString client = args.size() > 1 ? args[1] : map + QStringLiteral("/tafelkrater");
    // Words after the client's path (an account word on a management workstation) go along.
    tk::ClientWatcher watcher(map, client, args.mid(2));
    // Ended by the session or by hand: the client goes first.
    tk::TerminationSignal termination;
    QObject::connect(&termination, &tk::TerminationSignal::received, &watcher,
                     &tk::ClientWatcher::stop);
    if (!watcher.start())
        return 1;
    return app.exec();
}
