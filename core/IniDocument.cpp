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
            } else {
                current->shadowed = true;
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
    shiftAfter(idx, 1);
}

void IniDocument::shiftAfter(qsizetype idx, int by) {
    // Keys count from their section's header: only the headers and ends move.
    for (qsizetype i = idx + 1; i < m_sections.size(); ++i) {
        m_sections[i].header += by;
        m_sections[i].lastEntry += by;
    }
}

// Like setValue, the index follows the removal: the section's own keys after the line move up
// one, later sections move as a whole. A section where a key appears twice (the second is
// uncovered by the removal) is indexed the slow way.
void IniDocument::removeKey(const QString& section, const QString& key) {
    const int idx = findIndex(section);
    if (idx < 0)
        return;
    Section& s = m_sections[idx];
    const QString lowerKey = key.trimmed().toLower();
    const int offset = s.keys.value(lowerKey, -1);
    if (offset < 0)
        return;
    const int line = s.header + offset;
    m_lines.removeAt(line);
    if (s.shadowed) {
        reindex();
        return;
    }
    s.keys.remove(lowerKey);
    qsizetype before = 0; // keys above the removed one: its place in keyOrder
    for (auto it = s.keys.begin(); it != s.keys.end(); ++it) {
        if (it.value() > offset)
            --it.value();
        else
            ++before;
    }
    s.keyOrder.removeAt(before);
    if (line == s.lastEntry) {
        // The section now ends at the last line above that is not blank.
        int last = line - 1;
        while (last > s.header && visible(m_lines[last]).trimmed().isEmpty())
            --last;
        s.lastEntry = last;
    } else {
        --s.lastEntry;
    }
    shiftAfter(idx, -1);
}

void IniDocument::removeSection(const QString& section) {
    const int idx = findIndex(section);
    if (idx < 0)
        return;
    const int from = m_sections[idx].header;
    const int to = idx + 1 < m_sections.size() ? m_sections[idx + 1].header : int(m_lines.size());
    m_lines.erase(m_lines.begin() + from, m_lines.begin() + to);
    const QString lowerName = m_sections[idx].name.toLower();
    m_sections.removeAt(idx);
    shiftAfter(idx - 1, from - to);
    for (auto it = m_sectionIndex.begin(); it != m_sectionIndex.end(); ++it)
        if (it.value() > idx)
            --it.value();
    // A later section of the same name is the first of that name now.
    m_sectionIndex.remove(lowerName);
    for (qsizetype i = idx; i < m_sections.size(); ++i)
        if (m_sections[i].name.toLower() == lowerName) {
            m_sectionIndex.insert(lowerName, int(i));
            break;
        }
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
