#pragma once

#include <QString>
#include <QStringList>
#include <memory>

namespace tk::server {

class Store;
struct OwnerRecord;

// The load replies, rendered once per state of the store and shared by every connection: a
// full load of 200 clients at once reads memory, not the database. A connection keeps the
// snapshot it began a load with, so that the numbered blocks it asks next belong together
// even when another connection saves in between.
class LoadCache {
public:
    // Each block and each page stays below this many characters, well inside one TCP segment.
    static constexpr int blockLimit = 1200;

    struct Snapshot {
        quint64 generation = 0;
        QString classInfo;       // "<last block>|<last ID>"
        QStringList classBlocks; // records joined by ";|;"
        QString teacherInfo;
        QStringList teacherBlocks;
        QString categories[3];       // "<last ID>;<>;<id>|<naam>;<>;..."
        QString applicationInfo[3];  // "<count>|<last ID>"
        QStringList applications[3]; // one "><"-joined record each
        QStringList wordPages;       // forbidden words, "|"-joined per page
    };

    explicit LoadCache(Store& store) : m_store(store) {}
    // The replies of the store as it is now. One made while a read failed is not kept (see
    // Store::readFailures).
    std::shared_ptr<const Snapshot> current();

    // Packs records into blocks of at most `limit` characters (at least one record a block,
    // and one empty block when there are none).
    static QStringList blocks(const QStringList& records, const QString& separator, int limit);
    // A class or teacher row as a load sends it: its columns in the record's load order.
    static QString record(const OwnerRecord& kind, const QStringList& columns);

private:
    // The records of a kind in blocks, and the info reply: "<last block>|<last ID>".
    void render(const OwnerRecord& kind, QString* info, QStringList* blocks);

    Store& m_store;
    std::shared_ptr<const Snapshot> m_snapshot;
};

} // namespace tk::server
