#include "Favorieten.h"

#include "core/Ansi.h"

namespace tk {

namespace {
const QString veldScheiding = QStringLiteral(";<>;");
const QString itemScheiding = QStringLiteral("><");
} // namespace

Favorieten Favorieten::uitAntwoord(const QString& antwoord) {
    Favorieten f;
    const QStringList delen = antwoord.split(veldScheiding);
    const QStringList kop = delen.value(0).split(QLatin1Char('|'));
    f.Internetmodus = kop.value(0);
    f.Thuispagina = kop.value(1);
    f.Filteren = kop.value(2);
    f.Blokkeren = kop.value(3);
    const QString lijst = delen.value(1);
    const QStringList items =
        lijst.contains(itemScheiding) ? lijst.split(itemScheiding) : QStringList{lijst};
    for (const QString& item : items) {
        if (item.isEmpty())
            continue;
        QStringList waarden = item.split(QLatin1Char('|'));
        while (waarden.size() < 4)
            waarden.append(QString());
        f.Lijst.append(waarden.mid(0, 4));
    }
    return f;
}

QString Favorieten::alsTekst() const {
    QStringList items;
    for (const QStringList& fav : Lijst)
        items.append(fav.join(QLatin1Char('|')));
    return QStringList{Internetmodus, Thuispagina, Filteren, Blokkeren}.join(QLatin1Char('|')) +
           veldScheiding + items.join(itemScheiding);
}

QList<QStringList> Favorieten::actieve(int maximum) const {
    QList<QStringList> uit;
    for (const QStringList& fav : Lijst) {
        if (uit.size() >= maximum)
            break;
        if (Ansi::hoofdletters(fav.value(3)) == u"JA")
            uit.append(fav);
    }
    return uit;
}

} // namespace tk
