#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <optional>

namespace tk {

// One INI file in memory, read and changed the way the classic profile functions
// (GetPrivateProfileString and WritePrivateProfileString) do it, since the settings files are
// shared with tools that expect that: section and key names compared without regard to case, the
// first section and the first key of a name win, a value trimmed and freed of one pair of enclosing
// quotes. A change touches only its own line; every other line, comments included, stays as it was.
class IniDocument {
public:
    static IniDocument parse(const QString& text);
    QString text() const;

    std::optional<QString> value(const QString& section, const QString& key) const;
    // Replaces the key's line, or adds it at the end of its section, or adds the section at the
    // end of the file.
    void setValue(const QString& section, const QString& key, const QString& value);
    void removeKey(const QString& section, const QString& key);
    void removeSection(const QString& section);
    QStringList sections() const;
    QStringList keys(const QString& section) const;

private:
    struct Section {
        QString name;
        int header = -1;          // line of "[name]"
        int lastEntry = -1;       // last non-blank line that belongs to the section
        QHash<QString, int> keys; // lower-cased key -> line after the header, first occurrence
        QStringList keyOrder;
        bool shadowed = false; // a key appears twice: a removal uncovers the second
    };
    // What one line is to the index: a section header or a key (with its name), or neither.
    struct Line {
        enum Kind { Blank, Header, Entry, Other } kind = Blank;
        QString name;
    };
    static Line classify(const QString& line);
    void reindex();
    // Every section after `idx` moved by `by` lines.
    void shiftAfter(qsizetype idx, int by);
    int findIndex(const QString& section) const;
    const Section* find(const QString& section) const;
    static bool splitEntry(QStringView line, QStringView& key, QStringView& value);

    QStringList m_lines;
    QString m_lineEnd = QStringLiteral("\r\n");
    QList<Section> m_sections;
    QHash<QString, int> m_sectionIndex; // lower-cased name -> first section
};

} // namespace tk
