#include "WebFetch.h"

#include "core/Wacht.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace tk {

WebFetch::Resultaat WebFetch::haal(Wacht& wacht, const QUrl& adres, qint64 grootste, int stilteMs) {
    Resultaat uit;
    if (!adres.isValid() || (adres.scheme() != u"http" && adres.scheme() != u"https")) {
        uit.fout = QStringLiteral("not a web address: %1").arg(adres.toDisplayString());
        return uit;
    }
    QNetworkAccessManager toegang;
    QNetworkRequest verzoek(adres);
    verzoek.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    // A list must be today's: no cached copy.
    verzoek.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    verzoek.setTransferTimeout(stilteMs);
    QNetworkReply* antwoord = toegang.get(verzoek);
    bool teGroot = false;
    auto breekAfBijTeVeel = [&](qint64 ontvangen, qint64 totaal) {
        if (!teGroot && (ontvangen > grootste || totaal > grootste)) {
            teGroot = true;
            antwoord->abort();
        }
    };
    // The announced length ends it before the body comes; what has come in ends one without it,
    // counted at each arrival (the progress signal comes too seldom to stop a fast answer).
    QObject::connect(antwoord, &QNetworkReply::metaDataChanged, antwoord, [&] {
        breekAfBijTeVeel(0, antwoord->header(QNetworkRequest::ContentLengthHeader).toLongLong());
    });
    QObject::connect(antwoord, &QNetworkReply::readyRead, antwoord,
                     [&] { breekAfBijTeVeel(antwoord->bytesAvailable(), -1); });
    const Wacht::Uitkomst klaar = wacht.Tot([&] { return antwoord->isFinished(); }, {}, false);
    uit.httpStatus = antwoord->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    uit.contentType = antwoord->header(QNetworkRequest::ContentTypeHeader).toByteArray();
    if (klaar != Wacht::Uitkomst::Voldaan) {
        antwoord->abort();
        uit.uitkomst = Resultaat::Uitkomst::Gestopt;
        uit.fout = QStringLiteral("the program is ending");
    } else if (teGroot) {
        uit.uitkomst = Resultaat::Uitkomst::TeGroot;
        uit.fout = QStringLiteral("the answer is larger than %1 bytes").arg(grootste);
    } else if (antwoord->error() != QNetworkReply::NoError) {
        uit.fout = antwoord->errorString();
    } else if (uit.httpStatus != 200) {
        uit.fout = QStringLiteral("HTTP %1").arg(uit.httpStatus);
    } else {
        uit.inhoud = antwoord->readAll();
        uit.uitkomst = Resultaat::Uitkomst::Gelukt;
    }
    delete antwoord;
    return uit;
}

} // namespace tk
