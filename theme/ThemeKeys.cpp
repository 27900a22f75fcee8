#include "ThemeKeys.h"

#include "core/Ansi.h"
#include "core/Fout.h"
#include "theme/ThemeFolder.h"

namespace tk {

namespace {

QString describe(const QString& section, const QString& key, const QString& value,
                 const QString& file) {
    return QStringLiteral("[%1] %2 = \"%3\" in %4").arg(section, key, value, file);
}

} // namespace

ThemeKeys::ThemeKeys(Programma& p, QString themaMap)
    : ThemeKeys(std::make_shared<ThemeFolder>(p), std::move(themaMap)) {}

ThemeKeys::ThemeKeys(std::shared_ptr<const ThemeSource> source, QString themaMap)
    : m_source(std::move(source)), m_themaMap(std::move(themaMap)) {
    if (!m_themaMap.endsWith(QLatin1Char('\\')))
        m_themaMap += QLatin1Char('\\');
    m_settingsFile = m_themaMap + QStringLiteral("Instellingen.ini");
}

const QString& ThemeKeys::settingsFile() const {
    return m_settingsFile;
}

QString ThemeKeys::text(const QString& section, const QString& key) const {
    return m_source->read(settingsFile(), section, key);
}

std::optional<qint64> ThemeKeys::parseNumber(const QString& text, qint64 min, qint64 max) {
    const QString t = text.trimmed();
    qsizetype i = 0;
    bool negative = false;
    if (i < t.size() && (t.at(i) == u'-' || t.at(i) == u'+'))
        negative = t.at(i++) == u'-';
    const qsizetype digitsStart = i;
    long double whole = 0;
    while (i < t.size() && t.at(i).isDigit() && t.at(i).unicode() < 128) {
        whole = whole * 10 + (t.at(i).unicode() - '0');
        if (whole > 1e18L)
            return std::nullopt;
        ++i;
    }
    bool anyDigit = i > digitsStart;
    long double fraction = 0;
    if (i < t.size() && t.at(i) == u'.') {
        ++i;
        long double scale = 0.1L;
        const qsizetype fractionStart = i;
        while (i < t.size() && t.at(i).isDigit() && t.at(i).unicode() < 128) {
            fraction += scale * (t.at(i).unicode() - '0');
            scale /= 10;
            ++i;
        }
        anyDigit = anyDigit || i > fractionStart;
    }
    if (!anyDigit || i != t.size())
        return std::nullopt;
    // Rounded half to even, as the conversion to a whole number does.
    qint64 value = qint64(whole);
    if (fraction > 0.5L || (fraction == 0.5L && value % 2 == 1))
        ++value;
    if (negative)
        value = -value;
    if (value < min || value > max)
        return std::nullopt;
    return value;
}

QStringList ThemeKeys::parts(const QString& section, const QString& key, int needed) const {
    const QString value = text(section, key);
    const QStringList result =
        value.isEmpty() ? QStringList() : value.split(QLatin1Char(','), Qt::KeepEmptyParts);
    if (result.size() < needed)
        throw Fout(QStringLiteral("Subscript out of range: ") +
                   describe(section, key, value, settingsFile()));
    return result;
}

RgbColour ThemeKeys::colour(const QString& section, const QString& key) const {
    const QStringList deel = parts(section, key, 3);
    int rgb[3];
    for (int i = 0; i < 3; ++i) {
        const auto n = parseNumber(deel.at(i), -32768, 32767);
        if (!n) {
            // A number too large for a 16-bit integer is an overflow, anything else no number.
            const bool overflow =
                parseNumber(deel.at(i), -(qint64(1) << 62), qint64(1) << 62).has_value();
            throw Fout(
                (overflow ? QStringLiteral("Overflow: ") : QStringLiteral("Type mismatch: ")) +
                describe(section, key, text(section, key), settingsFile()));
        }
        if (*n < 0)
            throw Fout(QStringLiteral("Invalid procedure call or argument: ") +
                       describe(section, key, text(section, key), settingsFile()));
        rgb[i] = int(std::min<qint64>(*n, 255));
    }
    return {rgb[0], rgb[1], rgb[2]};
}

RgbColour ThemeKeys::colourOr(const QString& section, const QString& key,
                              RgbColour fallback) const {
    const QString value = text(section, key);
    if (value.isEmpty() || value.count(QLatin1Char(',')) != 2)
        return fallback;
    return colour(section, key);
}

QPoint ThemeKeys::position(const QString& section, const QString& key) const {
    const QStringList deel = parts(section, key, 2);
    int xy[2];
    for (int i = 0; i < 2; ++i) {
        // A place far outside any screen is refused here, so that no sum of a place and a size
        // further on can overflow.
        const auto n = parseNumber(deel.at(i), -maxPosition, maxPosition);
        if (!n) {
            const bool overflow =
                parseNumber(deel.at(i), -(qint64(1) << 62), qint64(1) << 62).has_value();
            throw Fout(
                (overflow ? QStringLiteral("Overflow: ") : QStringLiteral("Type mismatch: ")) +
                describe(section, key, text(section, key), settingsFile()));
        }
        xy[i] = int(*n);
    }
    return {xy[0], xy[1]};
}

bool ThemeKeys::yes(const QString& section, const QString& key) const {
    return Ansi::hoofdletters(text(section, key)) == u"JA";
}

bool ThemeKeys::notNo(const QString& section, const QString& key) const {
    return Ansi::hoofdletters(text(section, key)) != u"NEE";
}

QString ThemeKeys::file(const QString& relative) const {
    return m_source->path(m_themaMap + relative);
}

bool ThemeKeys::fileExists(const QString& relative) const {
    return !relative.trimmed().isEmpty() && m_source->isFile(file(relative));
}

QString ThemeKeys::picturePath(const QString& section, const QString& key) const {
    return file(text(section, key));
}

QString ThemeKeys::picture(const QString& section, const QString& key) const {
    const QString value = text(section, key);
    if (!fileExists(value))
        throw Fout(QStringLiteral("File not found: ") +
                   describe(section, key, value, settingsFile()));
    return file(value);
}

QString ThemeKeys::pictureIfExists(const QString& section, const QString& key) const {
    const QString value = text(section, key);
    return fileExists(value) ? file(value) : QString();
}

RgbColour ThemeKeys::iconShadowColour() const {
    return colourOr(QStringLiteral("Kleuren"), QStringLiteral("Bureaublad Icoon Schaduw"),
                    {255, 0, 255});
}

std::pair<RgbColour, RgbColour> ThemeKeys::colourPair(const QString& section,
                                                      const QString& word) const {
    return {colour(section, word + QStringLiteral(" tekst")),
            colour(section, word + QStringLiteral(" hover"))};
}

QString ThemeKeys::wallpaper() const {
    const QString value = text(QStringLiteral("Achtergronden"), QStringLiteral("Wallpaper"));
    if (value.size() < 4 || !value.endsWith(QStringLiteral(".JPG"), Qt::CaseInsensitive))
        return QString();
    return fileExists(value) ? file(value) : QString();
}

QStringList ThemeKeys::maintenanceMenuKeys() {
    return {QStringLiteral("Accounts beheren"), QStringLiteral("Applicaties beheren"),
            QStringLiteral("Desktop beheren"),  QStringLiteral("Overzichten"),
            QStringLiteral("Instellingen"),     QStringLiteral("Thema's"),
            QStringLiteral("Management tools")};
}

QString ThemeKeys::maintenanceMenuPicture(int item) const {
    const QStringList keys = maintenanceMenuKeys();
    controleerIndex(item, keys.size());
    const QString section = QStringLiteral("Onderhoudsmodule");
    QString path = pictureIfExists(section, keys.at(item));
    if (path.isEmpty() && item == 5)
        path = pictureIfExists(section, keys.at(2));
    if (path.isEmpty() && item == 6)
        path = pictureIfExists(section, keys.at(3));
    return path;
}

QStringList ThemeKeys::toolbarKeys() {
    return {QStringLiteral("Back"),    QStringLiteral("Next"),     QStringLiteral("Stop"),
            QStringLiteral("Refresh"), QStringLiteral("Homepage"), QStringLiteral("Favorites"),
            QStringLiteral("Print")};
}

QString ThemeKeys::toolbarPicture(const QString& key, bool* transparentGreen) const {
    const QString value = text(QStringLiteral("Desktop - Internet Toolbar"), key);
    if (transparentGreen)
        *transparentGreen = value.endsWith(QStringLiteral(".gif"), Qt::CaseInsensitive);
    return fileExists(value) ? file(value) : QString();
}

QString ThemeKeys::hoverField(const QString& colourField) {
    return QString(colourField).replace(QLatin1Char('a'), QLatin1Char('b'));
}

std::pair<QString, QString> ThemeKeys::classButtonPictures(const QString& colourField) const {
    const QString knoppen = QStringLiteral("Knoppen\\");
    const QString normal = knoppen + colourField;
    const QString hover = knoppen + hoverField(colourField);
    if (!colourField.trimmed().isEmpty() && fileExists(normal) && fileExists(hover))
        return {file(normal), file(hover)};
    return {file(knoppen + QStringLiteral("1a.jpg")), file(knoppen + QStringLiteral("1b.jpg"))};
}

QStringList ThemeKeys::buttonColourNames() const {
    const qsizetype count =
        m_source->countFiles(file(QStringLiteral("Knoppen")), QStringLiteral("a.jpg"));
    QStringList names;
    for (qsizetype n = 1; n <= count; ++n) {
        const QString name = text(QStringLiteral("Knoppen"), QString::number(n));
        if (name.isEmpty())
            break;
        names.append(name);
    }
    return names;
}

QString ThemeKeys::desktopBackground(const QString& field) const {
    if (field == u"Geen")
        return QString();
    const QString chosen = QStringLiteral("Achtergronden\\") + field;
    if (fileExists(chosen))
        return file(chosen);
    return file(QStringLiteral("Achtergronden\\Bureaublad.jpg"));
}

} // namespace tk
