#include "Favorieten.h"

#include "core/Ansi.h"
#include "core/Wire.h"

namespace tk {

Favorieten Favorieten::uitAntwoord(const QString& antwoord) {
    Favorieten f;
    const QStringList delen = antwoord.split(wire::fieldSep);
    const QStringList kop = delen.value(0).split(wire::valueSep);
    f.Internetmodus = kop.value(0);
    f.Thuispagina = kop.value(1);
    f.Filteren = kop.value(2);
    f.Blokkeren = kop.value(3);
    const QString lijst = delen.value(1);
    const QStringList items =
        lijst.contains(wire::itemSep) ? lijst.split(wire::itemSep) : QStringList{lijst};
    for (const QString& item : items) {
        if (item.isEmpty())
            continue;
        QStringList waarden = item.split(wire::valueSep);
        while (waarden.size() < 4)
            waarden.append(QString());
        f.Lijst.append(waarden.mid(0, 4));
    }
    return f;
}

QString Favorieten::alsTekst() const {
    QStringList items;
    for (const QStringList& fav : Lijst)
        items.append(fav.join(wire::valueSep));
    return QStringList{Internetmodus, Thuispagina, Filteren, Blokkeren}.join(wire::valueSep) +
           wire::fieldSep + items.join(wire::itemSep);
}

int Favorieten::zonderScheidingstekens() {
    int veranderd = 0;
    auto schoon = [&](QString& waarde) {
        const qsizetype voor = waarde.size();
        waarde.remove(QLatin1Char('|')).remove(QLatin1Char('<')).remove(QLatin1Char('>'));
        veranderd += waarde.size() != voor;
    };
    for (QString* kop : {&Internetmodus, &Thuispagina, &Filteren, &Blokkeren})
        schoon(*kop);
    for (QStringList& fav : Lijst)
        for (QString& waarde : fav)
            schoon(waarde);
    return veranderd;
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
