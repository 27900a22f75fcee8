#include "Serverlocatie.h"

namespace tk {

Serverlocatie Serverlocatie::lees(const QString& tekst) {
    Serverlocatie l;
    const qsizetype dubbelepunt = tekst.indexOf(QLatin1Char(':'));
    l.host = (dubbelepunt < 0 ? tekst : tekst.left(dubbelepunt)).trimmed();
    if (dubbelepunt >= 0) {
        bool getal = false;
        const long poort = tekst.mid(dubbelepunt + 1).trimmed().toLong(&getal);
        if (getal && poort >= 1 && poort <= 65535)
            l.poort = poort;
    }
    return l;
}

QString Serverlocatie::tekst(const QString& host, long poort) {
    return host + QLatin1Char(':') + QString::number(poort);
}

} // namespace tk
