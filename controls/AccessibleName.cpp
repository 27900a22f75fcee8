#include "AccessibleName.h"

namespace tk {

QString AccessibleName::maak(const QString& tekst, const QString& zonderTekst) {
    QString naam = tekst;
    // A caption's mnemonic marker is not said.
    naam.replace(QStringLiteral("&&"), QStringLiteral("\x01"));
    naam.remove(QLatin1Char('&'));
    naam.replace(QLatin1Char('\x01'), QLatin1Char('&'));
    naam = naam.simplified();
    if (naam.isEmpty())
        return zonderTekst.simplified();
    if (naam.size() > Langste) {
        int tot = Langste - 1;
        // Never cut a surrogate pair in two.
        if (naam.at(tot - 1).isHighSurrogate())
            --tot;
        naam = naam.left(tot) + QChar(0x2026);
    }
    return naam;
}

} // namespace tk
