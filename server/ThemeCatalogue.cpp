#include "ThemeCatalogue.h"

#include "WireText.h"
#include "core/IniDocument.h"
#include "core/Wire.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace tk::server {

bool ThemeCatalogue::isThemeId(const QString& id) {
    static const QRegularExpression form(QStringLiteral("^[0-9]{1,9}$"));
    return form.match(id).hasMatch();
}

std::optional<ThemeCatalogue::Entry> ThemeCatalogue::read(const QString& id) const {
    if (m_folder.isEmpty() || !isThemeId(id))
        return std::nullopt;
    const QString folder = QDir(m_folder).filePath(id);
    QFile file(QDir(folder).filePath(QStringLiteral("Instellingen.ini")));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const IniDocument ini = IniDocument::parse(WireText::fromBytes(file.read(256 * 1024)));
    const QString section = QStringLiteral("Algemeen");
    auto value = [&](const char* key, const QString& fallback = QString()) {
        QString v = ini.value(section, QString::fromLatin1(key)).value_or(fallback);
        // The catalogue's own separators cannot stand in a field.
        v.replace(wire::valueSep, QLatin1Char('/')).replace(wire::itemSep, QStringLiteral("> <"));
        return v;
    };
    Entry e{id,
            value("Naam", id),
            value("Omschrijving"),
            value("Kosten", QStringLiteral("0.00")),
            value("Versie", QStringLiteral("1.0.0")),
            QDir(folder).absolutePath()};
    return e;
}

QList<ThemeCatalogue::Entry> ThemeCatalogue::entries() const {
    QList<Entry> list;
    if (m_folder.isEmpty())
        return list;
    for (const QString& id :
         QDir(m_folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
        if (const auto e = read(id))
            list.append(*e);
    return list;
}

std::optional<ThemeCatalogue::Entry> ThemeCatalogue::entry(const QString& id) const {
    return read(id);
}

} // namespace tk::server
