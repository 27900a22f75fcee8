#include "PageFilter.h"

#include "core/Ansi.h"

#include <algorithm>

namespace tk {

namespace {

bool beginsWith(const QString& tekst, QStringView begin) {
    return tekst.startsWith(begin, Qt::CaseInsensitive);
}

bool holds(const QString& tekst, QStringView deel) {
    return tekst.contains(deel, Qt::CaseInsensitive);
}

} // namespace

PageFilter::PageFilter(const QString& verbodenWoorden, const QString& toegestaneSites)
    : m_lijst(FilterList::verbodenWoorden(verbodenWoorden)),
      m_sites(FilterList::sites(toegestaneSites)),
      m_woorden(pagePatterns(m_lijst), LaagsteLetterPagina),
      m_urls(urlPatterns(m_lijst), LaagsteLetterAdres, true) {}

QList<WordMatcher::Pattern> PageFilter::pagePatterns(const FilterList& lijst) {
    QList<WordMatcher::Pattern> uit;
    for (qsizetype i = 0; i < lijst.items().size(); ++i) {
        const FilterList::Item& item = lijst.items()[i];
        if (!item.url && !item.blanco)
            uit.append({item.woord, int(i), true});
    }
    return uit;
}

QList<WordMatcher::Pattern> PageFilter::urlPatterns(const FilterList& lijst) {
    QList<WordMatcher::Pattern> uit;
    for (qsizetype i = 0; i < lijst.items().size(); ++i) {
        const FilterList::Item& item = lijst.items()[i];
        if (item.url && !item.blanco)
            uit.append({item.woord, int(i), false});
    }
    return uit;
}

bool PageFilter::isLocalPage(const QString& adres) {
    // The address proper: a name after "?" or "#" is not the page's (any address, a local
    // file's too, would end in one by a fragment).
    QStringView pagina(adres);
    for (const QChar teken : {QLatin1Char('#'), QLatin1Char('?')})
        if (const qsizetype plek = pagina.indexOf(teken); plek >= 0)
            pagina = pagina.left(plek);
    return pagina.endsWith(u"gevonden.html", Qt::CaseInsensitive) ||
           pagina.endsWith(u"goedgekeurd.html", Qt::CaseInsensitive);
}

// The first item in list order: the smaller index of the first word and the first "url>" item.
int PageFilter::InternetFilterURL(const QString& adres) const {
    const QByteArray bytes = Ansi::naarBytes(adres);
    const int woord = m_woorden.firstHit(bytes, LaagsteLetterAdres);
    const int url = m_urls.firstHit(bytes);
    return woord < 0 ? url : url < 0 ? woord : std::min(woord, url);
}

AddressVerdict PageFilter::checkAddress(const QString& adres,
                                        const FilterSettings& settings) const {
    using Outcome = AddressVerdict::Outcome;
    using Step = AddressVerdict::Step;
    if (beginsWith(adres, u"javascript") ||
        adres.compare(GeblokkeerdAdres, Qt::CaseInsensitive) == 0)
        return {Outcome::Allow, Step::ScriptOrBlockedPage, -1};
    // An allowed site goes before everything else, the fixed block included.
    if (const int site = m_sites.eersteIn(adres); site >= 0)
        return {Outcome::Allow, Step::AllowedSite, site};
    if (adres.compare(u"about:blank", Qt::CaseInsensitive) == 0)
        return {Outcome::Allow, Step::Blank, -1};
    if (!beginsWith(adres, u"http://") && !beginsWith(adres, u"ftp://") &&
        !beginsWith(adres, u"https://")) {
        // Decision: one of the filter's own local pages is allowed here, not examined further,
        // so that the blocked page shows also in favourites-only mode and with a word like
        // "goed" in the list.
        if (isLocalPage(adres))
            return {Outcome::Allow, Step::LocalPage, -1};
        return {Outcome::RefuseSilently, Step::NotWeb, -1};
    }
    if (settings.Filteren)
        if (const int item = InternetFilterURL(adres); item >= 0)
            return {Outcome::Refuse, Step::ListedAddress, item};
    if (holds(adres, VasteBlokkade))
        return {Outcome::Refuse, Step::FixedBlock, -1};
    if (settings.Internetmodus == 1) {
        const int favoriet = FilterList::sites(settings.Favorieten).eersteIn(adres);
        if (favoriet >= 0)
            return {Outcome::Allow, Step::Favourite, favoriet};
        return {Outcome::Refuse, Step::NoFavourite, -1};
    }
    return {Outcome::Allow, Step::Free, -1};
}

PageVerdict PageFilter::checkPage(const QString& adres, const QString& titel, const QString& domein,
                                  const QString& tekst, const FilterSettings& settings) const {
    return checkPageBytes(adres, Ansi::naarBytes(titel), domein, Ansi::naarBytes(tekst), settings);
}

PageVerdict PageFilter::checkPageBytes(const QString& adres, QByteArrayView titel,
                                       const QString& domein, QByteArrayView tekst,
                                       const FilterSettings& settings) const {
    PageVerdict v;
    if (isLocalPage(adres))
        return v;
    if (titel.isEmpty())
        v.captionText = TekstGeenTitel;
    else
        v.caption = Ansi::naarTekst(titel.toByteArray());
    if (!settings.Filteren)
        return v;
    if (!domein.isEmpty() && m_sites.eersteIn(domein) >= 0) {
        v.pass = PageVerdict::Pass::AllowedSite;
        return v;
    }
    // The title pass before the body pass: a word in the title wins over an earlier word of the
    // list that is only in the body.
    v.item = m_woorden.firstHit(titel);
    if (v.item >= 0)
        v.pass = PageVerdict::Pass::Title;
    else if (!tekst.isEmpty() && (v.item = m_woorden.firstHit(tekst)) >= 0)
        v.pass = PageVerdict::Pass::Body;
    else
        v.pass = PageVerdict::Pass::Approved;
    if (v.item >= 0)
        v.word = m_lijst.item(v.item).tekst;
    v.statusText = v.blocked() ? TekstNietGoedgekeurd : TekstGoedgekeurd;
    return v;
}

} // namespace tk
