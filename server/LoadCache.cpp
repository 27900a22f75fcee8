#include "LoadCache.h"

#include "OwnerRecord.h"
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

QString LoadCache::record(const OwnerRecord& kind, const QStringList& columns) {
    QStringList fields;
    fields.reserve(qsizetype(kind.loadOrder.size()));
    for (const int column : kind.loadOrder)
        fields << columns[column];
    return fields.join(wire::fieldSep);
}

void LoadCache::render(const OwnerRecord& kind, QString* info, QStringList* blocks) {
    QStringList records;
    for (const QStringList& row : m_store.rows(kind))
        records << record(kind, row);
    *blocks = LoadCache::blocks(records, wire::recordSep, blockLimit);
    *info = QString::number(blocks->size() - 1) + wire::valueSep +
            m_store.setting(kind.lastIdKey, QStringLiteral("0"));
}

std::shared_ptr<const LoadCache::Snapshot> LoadCache::current() {
    if (m_snapshot && m_snapshot->generation == m_store.generation())
        return m_snapshot;
    const quint64 failures = m_store.readFailures();
    auto s = std::make_shared<Snapshot>();
    s->generation = m_store.generation();

    render(classRecord, &s->classInfo, &s->classBlocks);
    render(teacherRecord, &s->teacherInfo, &s->teacherBlocks);

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
    // Made from a read that failed, it is not kept: the next request reads again.
    if (m_store.readFailures() != failures)
        return s;
    m_snapshot = s;
    return m_snapshot;
}

} // namespace tk::server
