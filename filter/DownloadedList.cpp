#include "DownloadedList.h"

#include "core/Ansi.h"

#include <QRegularExpression>
#include <QStringDecoder>

namespace tk {

namespace {

QByteArray charset(const QByteArray& contentType) {
    for (const QByteArray& deel : contentType.split(';')) {
        const QByteArray d = deel.trimmed().toLower();
        if (d.startsWith("charset="))
            return d.mid(8).replace('"', "");
    }
    return {};
}

// The bytes as text. A charset that the answer names is believed for UTF-8; otherwise bytes that
// are valid UTF-8 are read as UTF-8 (a list written in a present-day editor; plain ASCII reads the
// same either way), and any other bytes as Windows-1252, the code page of the lists.
QString alsTekst(const QByteArray& inhoud, const QByteArray& contentType) {
    if (inhoud.startsWith("\xEF\xBB\xBF"))
        return QString::fromUtf8(inhoud.mid(3));
    const QByteArray set = charset(contentType);
    if (set == "utf-8")
        return QString::fromUtf8(inhoud);
    if (set.isEmpty()) {
        QStringDecoder utf8(QStringDecoder::Utf8);
        const QString tekst = utf8.decode(inhoud);
        if (!utf8.hasError())
            return tekst;
    }
    return Ansi::naarTekst(inhoud);
}

} // namespace

bool DownloadedList::isTekstSoort(const QByteArray& contentType) {
    const QByteArray soort = contentType.split(';').value(0).trimmed().toLower();
    return soort.isEmpty() || soort == "text/plain" || soort == "application/octet-stream";
}

DownloadedList::Resultaat DownloadedList::lees(const QByteArray& inhoud,
                                               const QByteArray& contentType) {
    Resultaat uit;
    if (inhoud.size() > GrootsteLijst) {
        uit.uitkomst = Uitkomst::TeGroot;
        return uit;
    }
    // A NUL byte never stands in a text file: a picture, an archive, a program.
    if (!isTekstSoort(contentType) || inhoud.contains('\0'))
        return uit;
    uit.uitkomst = Uitkomst::Lijst;
    static const QRegularExpression regeleinde(QStringLiteral("[\r\n]"));
    static const QRegularExpression prefix(QStringLiteral("url>"),
                                           QRegularExpression::CaseInsensitiveOption);
    // A line may hold "|" as well: in the stored list it is the separator, so "a|b" are two
    // items here too, and each is tested and counted as such.
    for (const QString& regel : alsTekst(inhoud, contentType).split(regeleinde))
        for (QString item : regel.split(QLatin1Char('|'))) {
            item = item.remove(prefix).trimmed();
            if (!item.isEmpty())
                uit.items.append(item);
        }
    return uit;
}

} // namespace tk
