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

bool IniDocument::splitEntry(const QString& line, QString& key, QString& value) {
    const int eq = line.indexOf(QLatin1Char('='));
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

void IniDocument::reindex() {
    m_sections.clear();
    m_sectionIndex.clear();
    Section* current = nullptr;
    for (int i = 0; i < m_lines.size(); ++i) {
        QString line = m_lines[i];
        const int nul = line.indexOf(QChar(0));
        if (nul >= 0)
            line.truncate(nul);
        const QString trimmed = line.trimmed();
        if (trimmed.startsWith(QLatin1Char('['))) {
            const int close = trimmed.indexOf(QLatin1Char(']'));
            if (close > 0) {
                Section s;
                s.name = trimmed.mid(1, close - 1).trimmed();
                s.header = i;
                s.lastEntry = i;
                m_sections.append(s);
                current = &m_sections.last();
                if (!m_sectionIndex.contains(s.name.toLower()))
                    m_sectionIndex.insert(s.name.toLower(), int(m_sections.size()) - 1);
                continue;
            }
        }
        if (!current || trimmed.isEmpty())
            continue;
        current->lastEntry = i;
        QString key, value;
        if (splitEntry(line, key, value)) {
            const QString lower = key.toLower();
            if (!current->keys.contains(lower)) {
                current->keys.insert(lower, i);
                current->keyOrder.append(key);
            }
        }
    }
}

const IniDocument::Section* IniDocument::find(const QString& section) const {
    const int idx = m_sectionIndex.value(section.trimmed().toLower(), -1);
    return idx < 0 ? nullptr : &m_sections[idx];
}

std::optional<QString> IniDocument::value(const QString& section, const QString& key) const {
    const Section* s = find(section);
    if (!s)
        return std::nullopt;
    const int line = s->keys.value(key.trimmed().toLower(), -1);
    if (line < 0)
        return std::nullopt;
    QString text = m_lines[line];
    const int nul = text.indexOf(QChar(0));
    if (nul >= 0)
        text.truncate(nul);
    QString k, v;
    splitEntry(text, k, v);
    return v;
}

void IniDocument::setValue(const QString& section, const QString& key, const QString& value) {
    const QString k = key.trimmed();
    const Section* s = find(section);
    if (!s) {
        m_lines.append(QLatin1Char('[') + section.trimmed() + QLatin1Char(']'));
        m_lines.append(k + QLatin1Char('=') + value);
    } else {
        const int line = s->keys.value(k.toLower(), -1);
        if (line >= 0) {
            QString oldKey, oldValue;
            splitEntry(m_lines[line], oldKey, oldValue);
            m_lines[line] = oldKey + QLatin1Char('=') + value;
        } else {
            m_lines.insert(s->lastEntry + 1, k + QLatin1Char('=') + value);
        }
    }
    reindex();
}

void IniDocument::removeKey(const QString& section, const QString& key) {
    const Section* s = find(section);
    if (!s)
        return;
    const int line = s->keys.value(key.trimmed().toLower(), -1);
    if (line < 0)
        return;
    m_lines.removeAt(line);
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
