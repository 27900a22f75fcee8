#include "StringTable.h"

#include <QFile>
#include <QStringList>

#include <algorithm>

namespace tk {

StringTable StringTable::builtIn() {
    QFile file(QStringLiteral(":/tafelkrater/StringTable.tsv"));
    if (!file.open(QIODevice::ReadOnly))
        return StringTable();
    return parse(QString::fromUtf8(file.readAll()));
}

StringTable StringTable::parse(const QString& text, int* skipped) {
    StringTable table;
    int bad = 0;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        QString line = lines[i];
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        if (line.isEmpty() || (i == 0 && line.startsWith(QLatin1String("id\t"))))
            continue;
        const QStringList fields = line.split(QLatin1Char('\t'));
        bool ok = false;
        const int id = fields.value(0).toInt(&ok);
        if (!ok || fields.size() != 3) {
            ++bad;
            continue;
        }
        table.m_english.insert(id, fields[1]);
        table.m_dutch.insert(id, fields[2]);
    }
    if (skipped)
        *skipped = bad;
    return table;
}

QString StringTable::text(int id, int language) const {
    if (language == 1033)
        return m_english.value(id);
    if (language == 1043)
        return m_dutch.value(id);
    return {};
}

QList<int> StringTable::ids() const {
    QList<int> all = m_english.keys();
    std::sort(all.begin(), all.end());
    return all;
}

} // namespace tk
