#include "BrowserFavorieten.h"

namespace tk {

BrowserFavorieten BrowserFavorieten::uit(const Favorieten& f) {
    BrowserFavorieten b;
    const auto ja = [](const QString& w) {
        return w.trimmed().compare(u"Ja", Qt::CaseInsensitive) == 0;
    };
    b.instellingen.Filteren = ja(f.Filteren);
    b.instellingen.Internetmodus = f.Internetmodus.trimmed().toInt();
    for (const QStringList& rij : f.actieve()) {
        b.instellingen.Favorieten.append(rij.value(0));
        b.lijst.append({rij.value(0), rij.value(1)});
    }
    // Decision: the favourites carry no start-page mark of their own, so with Thuispagina on the
    // first active favourite is the start page.
    if (ja(f.Thuispagina) && !b.lijst.isEmpty())
        b.thuispagina = b.lijst.first().value(0);
    return b;
}

} // namespace tk
