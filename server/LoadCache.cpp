#include "LoadCache.h"

#include "Store.h"

namespace tk::server {

namespace {

const QString recordSeparator = QStringLiteral(";|;");
const QString fieldSeparator = QStringLiteral(";<>;");

} // namespace

QStringList LoadCache::blocks(const QStringList& records, const QString& separator, int limit) {
    QStringList out;
    QString block;
    bool empty = true;
    for (const QString& record : records) {
        if (!empty && block.size() + separator.size() + record.size() > limit) {
            out << block;
            block.clear();
            empty = true;
        }
        if (!empty)
            block += separator;
        block += record;
        empty = false;
    }
    if (!empty || out.isEmpty())
        out << block;
    return out;
}

// Field 0 is read and dropped by the client: it carries the ID, so that a reader of the wire
// sees which record comes. Fields 1 to 13 are the columns 0 to 12.
QString LoadCache::classRecord(const QStringList& columns) {
    return (QStringList{columns[Store::classId]} + columns).join(fieldSeparator);
}

// Columns 0 to 13, then Categorieen before Thema: fields 14 and 15 stand crossed.
QString LoadCache::teacherRecord(const QStringList& columns) {
    return (columns.mid(0, 14) + QStringList{columns[15], columns[14]}).join(fieldSeparator);
}

std::shared_ptr<const LoadCache::Snapshot> LoadCache::current() {
    if (m_snapshot && m_snapshot->generation == m_store.generation())
        return m_snapshot;
    auto s = std::make_shared<Snapshot>();
    s->generation = m_store.generation();

    QStringList records;
    for (const QStringList& row : m_store.classes())
        records << classRecord(row);
    s->classBlocks = blocks(records, recordSeparator, blockLimit);
    s->classInfo = QStringLiteral("%1|%2")
                       .arg(s->classBlocks.size() - 1)
                       .arg(m_store.setting(QStringLiteral("last_class_id"), QStringLiteral("0")));

    records.clear();
    for (const QStringList& row : m_store.teachers())
        records << teacherRecord(row);
    s->teacherBlocks = blocks(records, recordSeparator, blockLimit);
    s->teacherInfo =
        QStringLiteral("%1|%2")
            .arg(s->teacherBlocks.size() - 1)
            .arg(m_store.setting(QStringLiteral("last_teacher_id"), QStringLiteral("0")));

    for (int kind = 0; kind < 3; ++kind) {
        QStringList parts{
            m_store.setting(QStringLiteral("last_category_id_%1").arg(kind), QStringLiteral("0"))};
        for (const Store::Category& c : m_store.categories(kind))
            parts << QStringLiteral("%1|%2").arg(c.id).arg(c.naam);
        s->categories[kind] = parts.join(fieldSeparator);
        for (const Store::Application& a : m_store.applications(kind))
            s->applications[kind] << a.join(QStringLiteral("><"));
        s->applicationInfo[kind] =
            QStringLiteral("%1|%2")
                .arg(s->applications[kind].size())
                .arg(m_store.setting(QStringLiteral("last_application_id_%1").arg(kind),
                                     QStringLiteral("0")));
    }

    const QString words = m_store.setting(QStringLiteral("forbidden_words"));
    if (!words.isEmpty())
        s->wordPages = blocks(words.split(QLatin1Char('|')), QStringLiteral("|"), 1000);
    m_snapshot = s;
    return m_snapshot;
}

} // namespace tk::server
