#include "FilterList.h"

#include "ByteCase.h"
#include "core/Ansi.h"

#include <string_view>

namespace tk {

namespace {

bool isBlanco(const QByteArray& woord) {
    for (const char c : woord)
        if (c != ' ' && c != '\t' && c != '\r' && c != '\n')
            return false;
    return true;
}

FilterList::Item maakItem(const QString& tekst, bool metUrl) {
    FilterList::Item item;
    item.tekst = tekst;
    item.url = metUrl && tekst.left(4).toLower() == u"url>";
    item.woord = Ansi::naarBytes(item.url ? tekst.mid(4) : tekst);
    item.blanco = isBlanco(item.woord);
    return item;
}

QByteArray klein(QByteArray bytes) {
    for (char& c : bytes)
        c = char(ByteCase::lower(std::uint8_t(c)));
    return bytes;
}

} // namespace

FilterList FilterList::verbodenWoorden(const QString& lijst) {
    FilterList uit;
    if (lijst.isEmpty())
        return uit;
    for (const QString& deel : lijst.split(QLatin1Char('|')))
        uit.m_items.append(maakItem(deel, true));
    return uit;
}

FilterList FilterList::sites(const QString& lijst) {
    return lijst.isEmpty() ? FilterList() : sites(lijst.split(QLatin1Char('|')));
}

FilterList FilterList::sites(const QStringList& items) {
    FilterList uit;
    for (const QString& deel : items)
        uit.m_items.append(maakItem(deel, false));
    return uit;
}

int FilterList::eersteIn(const QString& tekst) const {
    const QByteArray hooiberg = klein(Ansi::naarBytes(tekst));
    const std::string_view h(hooiberg.constData(), std::size_t(hooiberg.size()));
    for (qsizetype i = 0; i < m_items.size(); ++i) {
        const Item& item = m_items[i];
        if (item.blanco)
            continue;
        const QByteArray naald = klein(item.woord);
        if (h.find(std::string_view(naald.constData(), std::size_t(naald.size()))) !=
            std::string_view::npos)
            return int(i);
    }
    return -1;
}

} // namespace tk
