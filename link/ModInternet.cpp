#include "ModInternet.h"

#include "core/Procedure.h"
#include "core/Programma.h"
#include "platform/Clock.h"
#include "platform/Network.h"

#include <QUrl>

namespace tk {

QString ModInternet::StatusTekst(int code) {
    switch (code) {
    case 0:
        return QStringLiteral("Online");
    case 200:
        return QStringLiteral("Ping timed out");
    case 11001:
        return QStringLiteral("Host buffer is too small");
    case 11002:
        return QStringLiteral("Host NET unreachable");
    case 11003:
        return QStringLiteral("Host unreachable");
    case 11004:
        return QStringLiteral("Protocol unreachable");
    case 11005:
        return QStringLiteral("Port unreachable");
    case 11006:
        return QStringLiteral("Host with no resources");
    case 11007:
        return QStringLiteral("Bad option");
    case 11008:
        return QStringLiteral("Hardware error");
    case 11009:
        return QStringLiteral("Pachage too big for this host");
    case 11010:
        return QStringLiteral("Host didn't answer the request");
    case 11011:
        return QStringLiteral("Bad requirement");
    default:
        return QStringLiteral("Unexpected error");
    }
}

QString ModInternet::Ping(const QString& adres) {
    return Procedure(p, "modInternet.Ping", StatusTekst(-1),
                     [&] { return StatusTekst(p.platform.network().ping(adres, 2000)); });
}

QString ModInternet::WebHost() {
    const QString web =
        p.modMain.LeesIni(QStringLiteral("Instellingen"), QStringLiteral("Webadres"),
                          QString::fromLatin1(ModMain::Instellingen));
    if (web.isEmpty())
        return {};
    const QUrl url = QUrl::fromUserInput(web);
    if (url.host().isEmpty())
        return {};
    return url.port() > 0 ? url.host() + QLatin1Char(':') + QString::number(url.port())
                          : url.host();
}

bool ModInternet::ControleerInternet(int seconden) {
    return Procedure(p, "modInternet.ControleerInternet", false, [&] {
        const QString host = WebHost();
        if (host.isEmpty())
            return false;
        const qint64 deadline = p.platform.clock().msecsSinceStart() + seconden * 1000;
        do {
            if (Ping(host) == u"Online")
                return true;
            p.wacht.Pomp();
        } while (p.platform.clock().msecsSinceStart() < deadline && !p.beeindigd);
        return false;
    });
}

} // namespace tk
