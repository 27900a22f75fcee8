#include "BrowserFavorieten.h"

namespace tk {

BrowserFavorieten BrowserFavorieten::uit(const Favorieten& f, const QString& standaardStartpagina) {
    BrowserFavorieten b;
    const auto ja = [](const QString& w) {
        return w.trimmed().compare(u"Ja", Qt::CaseInsensitive) == 0;
    };
    // Off only when the owner's header says so: an answer that did not come (offline without
    // a cache) or a header that cannot be read leaves the filter on.
    b.instellingen.Filteren = f.Filteren.trimmed().compare(u"Nee", Qt::CaseInsensitive) != 0;
    b.instellingen.Internetmodus = f.Internetmodus.trimmed().toInt();
    b.proxy = ja(f.Blokkeren);
    QString gemarkeerd;
    for (const QStringList& rij : f.actieve()) {
        b.instellingen.Favorieten.append(rij.value(0));
        b.lijst.append({rij.value(0), rij.value(1)});
        if (gemarkeerd.isEmpty() && ja(rij.value(2)))
            gemarkeerd = rij.value(0);
    }
    if (ja(f.Thuispagina) && !b.lijst.isEmpty())
        b.thuispagina = gemarkeerd.isEmpty() ? b.lijst.first().value(0) : gemarkeerd;
    else
        b.thuispagina = standaardStartpagina.trimmed();
    return b;
}

} // namespace tk
