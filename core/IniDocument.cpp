#include "IniDocument.h"

namespace tk {

IniDocument IniDocument::parse(const QString& text) {
    IniDocument doc;
    if (!text.contains(QStringLiteral("\r\n")) && text.contains(QLatin1Char('\n')))
        doc.m_lineEnd = QStringLiteral("\n");
    QString normalised = text;
    normalised.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    normalised.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    // A NUL ends what the profile functions see of a line; keep the bytes before it.
    doc.m_lines = normalised.split(QLatin1Char('\n'));
    if (!doc.m_lines.isEmpty() && doc.m_lines.last().isEmpty())
        doc.m_lines.removeLast();
    doc.reindex();
    return doc;
}

QString IniDocument::text() const {
    if (m_lines.isEmpty())
        return {};
    return m_lines.join(m_lineEnd) + m_lineEnd;
}

bool IniDocument::splitEntry(QStringView line, QStringView& key, QStringView& value) {
    const qsizetype eq = line.indexOf(QLatin1Char('='));
    if (eq < 0)
        return false;
    key = line.left(eq).trimmed();
    if (key.isEmpty() || key.startsWith(QLatin1Char(';')))
        return false;
    value = line.mid(eq + 1).trimmed();
    if (value.size() >= 2) {
        const QChar q = value.front();
        if ((q == QLatin1Char('"') || q == QLatin1Char('\'')) && value.back() == q)
            value = value.mid(1, value.size() - 2);
    }
    return true;
}

// What the profile functions see of a line: the text before a NUL.
static QStringView visible(const QString& line) {
    const qsizetype nul = line.indexOf(QChar(0));
    return nul < 0 ? QStringView(line) : QStringView(line).left(nul);
}

IniDocument::Line IniDocument::classify(const QString& text) {
    const QStringView line = visible(text);
    const QStringView trimmed = line.trimmed();
    if (trimmed.isEmpty())
        return {};
    if (trimmed.startsWith(QLatin1Char('['))) {
        const qsizetype close = trimmed.indexOf(QLatin1Char(']'));
        if (close > 0)
            return {Line::Header, trimmed.mid(1, close - 1).trimmed().toString()};
    }
    QStringView key, value;
    if (splitEntry(line, key, value))
        return {Line::Entry, key.toString()};
    return {Line::Other, {}};
}

void IniDocument::reindex() {
    m_sections.clear();
    m_sectionIndex.clear();
    Section* current = nullptr;
    for (int i = 0; i < m_lines.size(); ++i) {
        const Line line = classify(m_lines[i]);
        if (line.kind == Line::Header) {
            Section s;
            s.name = line.name;
            s.header = i;
            s.lastEntry = i;
            m_sections.append(s);
            current = &m_sections.last();
            if (!m_sectionIndex.contains(s.name.toLower()))
                m_sectionIndex.insert(s.name.toLower(), int(m_sections.size()) - 1);
            continue;
        }
        if (!current || line.kind == Line::Blank)
            continue;
        current->lastEntry = i;
        if (line.kind == Line::Entry) {
            const QString lower = line.name.toLower();
            if (!current->keys.contains(lower)) {
                current->keys.insert(lower, i - current->header);
                current->keyOrder.append(line.name);
            }
        }
    }
}

int IniDocument::findIndex(const QString& section) const {
    return m_sectionIndex.value(section.trimmed().toLower(), -1);
}

const IniDocument::Section* IniDocument::find(const QString& section) const {
    const int idx = findIndex(section);
    return idx < 0 ? nullptr : &m_sections[idx];
}

std::optional<QString> IniDocument::value(const QString& section, const QString& key) const {
    const Section* s = find(section);
    if (!s)
        return std::nullopt;
    const int offset = s->keys.value(key.trimmed().toLower(), -1);
    if (offset < 0)
        return std::nullopt;
    QStringView k, v;
    splitEntry(visible(m_lines[s->header + offset]), k, v);
    return v.toString();
}

// The index follows the change instead of being built again, so that writing many new keys
// costs each one its own line only. A written line that would read as something else than the
// key it was written for (a key of "[x" with a value holding "]", a name holding a NUL or "=")
// is indexed the slow way, from the lines as they now read.
void IniDocument::setValue(const QString& section, const QString& key, const QString& value) {
    const QString k = key.trimmed();
    const QString lowerKey = k.toLower();
    const int idx = findIndex(section);
    if (idx < 0) {
        const int at = int(m_lines.size());
        m_lines.append(QLatin1Char('[') + section.trimmed() + QLatin1Char(']'));
        m_lines.append(k + QLatin1Char('=') + value);
        const Line header = classify(m_lines[at]);
        const Line entry = classify(m_lines[at + 1]);
        const QString lowerName = header.name.toLower();
        if (header.kind != Line::Header || lowerName != section.trimmed().toLower() ||
            entry.kind != Line::Entry || entry.name.toLower() != lowerKey) {
            reindex();
            return;
        }
        Section s;
        s.name = header.name;
        s.header = at;
        s.lastEntry = at + 1;
        s.keys.insert(lowerKey, 1);
        s.keyOrder.append(entry.name);
        m_sections.append(s);
        m_sectionIndex.insert(lowerName, int(m_sections.size()) - 1);
        return;
    }
    Section& s = m_sections[idx];
    const int offset = s.keys.value(lowerKey, -1);
    int line = 0;
    if (offset >= 0) {
        line = s.header + offset;
        QStringView oldKey, oldValue;
        splitEntry(m_lines[line], oldKey, oldValue);
        m_lines[line] = oldKey.toString() + QLatin1Char('=') + value;
    } else {
        line = s.lastEntry + 1;
        m_lines.insert(line, k + QLatin1Char('=') + value);
    }
    const Line written = classify(m_lines[line]);
    if (written.kind != Line::Entry || written.name.toLower() != lowerKey) {
        reindex();
        return;
    }
    if (offset >= 0)
        return;
    s.keys.insert(lowerKey, line - s.header);
    s.keyOrder.append(written.name);
    s.lastEntry = line;
    // Every later section moved down one line; their keys count from their headers.
    for (qsizetype i = idx + 1; i < m_sections.size(); ++i) {
        ++m_sections[i].header;
        ++m_sections[i].lastEntry;
    }
}

void IniDocument::removeKey(const QString& section, const QString& key) {
    const Section* s = find(section);
    if (!s)
        return;
    const int offset = s->keys.value(key.trimmed().toLower(), -1);
    if (offset < 0)
        return;
    m_lines.removeAt(s->header + offset);
    reindex();
}

void IniDocument::removeSection(const QString& section) {
    const Section* s = find(section);
    if (!s)
        return;
    const int from = s->header;
    int to = int(m_lines.size());
    for (const Section& other : m_sections)
        if (other.header > from) {
            to = other.header;
            break;
        }
    m_lines.erase(m_lines.begin() + from, m_lines.begin() + to);
    reindex();
}

QStringList IniDocument::sections() const {
    QStringList names;
    for (const Section& s : m_sections)
        names.append(s.name);
    return names;
}

QStringList IniDocument::keys(const QString& section) const {
    const Section* s = find(section);
    return s ? s->keyOrder : QStringList();
}

} // namespace tk
