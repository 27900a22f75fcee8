// The launcher: starts the client with "STARTUP", restarts it with "STARTUPFOUT" after a crash,
// and takes the words "afsluiten" (stop with the client), "resolutie" (restart the client)
// over a local socket named after the program folder.
#include "link/ModMainVerbinding.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QProcess>
#include <QTextStream>

namespace {

void log(const QString& tekst) {
    QTextStream(stdout) << QDateTime::currentDateTime().toString(Qt::ISODate)
                        << " tafelkrater-startup: " << tekst << Qt::endl;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QString map = QCoreApplication::applicationDirPath();
    const QStringList args = QCoreApplication::arguments();
    const QString client = args.size() > 1 ? args[1] : map + QStringLiteral("/tafelkrater");
    // Words after the client's path (an account word on a management workstation) go along.
    const QStringList extra = args.mid(2);
    if (!QFileInfo(client).isExecutable()) {
        log(QStringLiteral("no client at %1").arg(client));
        return 1;
    }

    QLocalServer woorden;
    const QString naam = tk::ModMainVerbinding::launcherNaam(map);
    QLocalServer::removeServer(naam);
    if (!woorden.listen(naam)) {
        log(QStringLiteral("cannot listen on %1: %2").arg(naam, woorden.errorString()));
        return 1;
    }

    QProcess proces;
    proces.setProcessChannelMode(QProcess::ForwardedChannels);
    bool afsluiten = false;
    bool herstarten = false;
    QList<qint64> crashes;
    auto start = [&](const QString& woord) {
        log(QStringLiteral("starting the client with %1").arg(woord));
        proces.start(client, QStringList{woord} + extra);
    };

    QObject::connect(&woorden, &QLocalServer::newConnection, [&] {
        while (QLocalSocket* s = woorden.nextPendingConnection()) {
            QObject::connect(s, &QLocalSocket::disconnected, s, &QObject::deleteLater);
            QObject::connect(s, &QLocalSocket::readyRead, [&, s] {
                const QString woord = QString::fromUtf8(s->readAll()).trimmed().toLower();
                log(QStringLiteral("word \"%1\"").arg(woord));
                if (woord == u"afsluiten")
                    afsluiten = true;
                else if (woord == u"resolutie")
                    herstarten = true;
            });
        }
    });
    QObject::connect(&proces, &QProcess::finished, [&](int code, QProcess::ExitStatus status) {
        if (afsluiten) {
            log(QStringLiteral("the client stopped; stopping too"));
            app.quit();
        } else if (herstarten) {
            herstarten = false;
            start(QStringLiteral("STARTUP"));
        } else if (status == QProcess::CrashExit || code != 0) {
            const qint64 nu = QDateTime::currentMSecsSinceEpoch();
            crashes.append(nu);
            while (!crashes.isEmpty() && nu - crashes.first() > 60000)
                crashes.removeFirst();
            if (crashes.size() > 5) {
                log(QStringLiteral("the client failed %1 times in a minute; giving up")
                        .arg(crashes.size()));
                app.exit(1);
                return;
            }
            start(QStringLiteral("STARTUPFOUT"));
        } else {
            app.quit();
        }
    });
    start(QStringLiteral("STARTUP"));
    return app.exec();
}
