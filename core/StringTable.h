#pragma once

#include <QHash>
#include <QString>

namespace tk {

// The program's texts in Dutch (1043) and English (1033) under one id each, read from the table
// compiled into the program (resources/StringTable.tsv: a header line, then
// "<id> TAB <English> TAB <Dutch>" per line).
class StringTable {
public:
    // The table built into the program.
    static StringTable builtIn();
    // Parses the file form; lines that do not fit are skipped and counted.
    static StringTable parse(const QString& text, int* skipped = nullptr);

    bool hasLanguage(int language) const { return language == 1033 || language == 1043; }
    // The raw entry, or nothing when the id or the language has none.
    QString text(int id, int language) const;
    bool contains(int id) const { return m_english.contains(id); }
    QList<int> ids() const;

private:
    QHash<int, QString> m_english;
    QHash<int, QString> m_dutch;
};

} // namespace tk
