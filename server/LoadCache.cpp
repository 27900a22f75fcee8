#include "LoadCache.h"

#include "Store.h"
#include "core/Wire.h"

namespace tk::server {

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
    return (QStringList{columns[Store::classId]} + columns).join(wire::fieldSep);
}

// Columns 0 to 13, then Categorieen before Thema: fields 14 and 15 stand crossed.
QString LoadCache::teacherRecord(const QStringList& columns) {
    return (columns.mid(0, 14) + QStringList{columns[15], columns[14]}).join(wire::fieldSep);
}

std::shared_ptr<const LoadCache::Snapshot> LoadCache::current() {
    if (m_snapshot && m_snapshot->generation == m_store.generation())
        return m_snapshot;
    auto s = std::make_shared<Snapshot>();
    s->generation = m_store.generation();

    QStringList records;
    for (const QStringList& row : m_store.classes())
        records << classRecord(row);
    s->classBlocks = blocks(records, wire::recordSep, blockLimit);
    s->classInfo = QString::number(s->classBlocks.size() - 1) + wire::valueSep +
                   m_store.setting(QStringLiteral("last_class_id"), QStringLiteral("0"));

    records.clear();
    for (const QStringList& row : m_store.teachers())
        records << teacherRecord(row);
    s->teacherBlocks = blocks(records, wire::recordSep, blockLimit);
    s->teacherInfo = QString::number(s->teacherBlocks.size() - 1) + wire::valueSep +
                     m_store.setting(QStringLiteral("last_teacher_id"), QStringLiteral("0"));

    for (int kind = 0; kind < 3; ++kind) {
        QStringList parts{
            m_store.setting(QStringLiteral("last_category_id_%1").arg(kind), QStringLiteral("0"))};
        for (const Store::Category& c : m_store.categories(kind))
            parts << QString::number(c.id) + wire::valueSep + c.naam;
        s->categories[kind] = parts.join(wire::fieldSep);
        for (const Store::Application& a : m_store.applications(kind))
            s->applications[kind] << a.join(wire::itemSep);
        s->applicationInfo[kind] =
            QString::number(s->applications[kind].size()) + wire::valueSep +
            m_store.setting(QStringLiteral("last_application_id_%1").arg(kind),
                            QStringLiteral("0"));
    }

    const QString words = m_store.setting(QStringLiteral("forbidden_words"));
    if (!words.isEmpty())
        s->wordPages = blocks(words.split(wire::valueSep), QString(wire::valueSep), 1000);
    m_snapshot = s;
    return m_snapshot;
}

} // namespace tk::server
