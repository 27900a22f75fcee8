#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>

struct sqlite3;
struct sqlite3_backup;
class QTimer;

namespace tk::server {

class Store;

// The backups of the store: each a file in the backup folder named by its moment
// ("5-3-2024 14.07.09.backup"), a consistent copy of the whole store made with SQLite's online
// backup while clients are served: the copy runs a few pages at a time from the event loop, so
// that requests are answered between the steps, and changes made meanwhile through the store
// land in the copy as well. A backup appears under its name only when it is whole. A restore
// copies a backup into the live store in one transaction: the store is then the backup, or,
// on any fault, what it was.
class BackupKeeper : public QObject {
    Q_OBJECT
public:
    using Done = std::function<void(bool ok, const QString& nameOrReason)>;

    BackupKeeper(Store& store, const QString& folder, QObject* parent = nullptr);
    ~BackupKeeper() override;

    QString folder() const { return m_folder; }
    // The names of the backups, oldest first.
    QStringList list() const;
    // Queues a backup; `done` gets its name, or the reason it failed.
    void make(Done done);
    bool busy() const { return m_backup != nullptr || !m_waiting.isEmpty(); }
    // Replaces the store with the backup of this name. False with a reason, the store as it was.
    bool restore(const QString& name, QString* error);

    // A backup name as this class makes them; nothing else is ever opened.
    static bool isBackupName(const QString& name);
    // Pages copied per step; a step runs every millisecond, between the requests.
    void setPagesPerStep(int pages) { m_pagesPerStep = pages; }

Q_SIGNALS:
    void backupFinished(bool ok);

private:
    void startNext();
    void step();
    void finish(bool ok, const QString& reason);
    QString freeName() const;

    Store& m_store;
    QString m_folder;
    QList<Done> m_waiting;
    Done m_current;
    QString m_name;
    QString m_partial;
    sqlite3* m_target = nullptr;
    sqlite3_backup* m_backup = nullptr;
    QTimer* m_timer;
    int m_pagesPerStep = 256;
};

} // namespace tk::server
