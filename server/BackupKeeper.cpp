#include "BackupKeeper.h"

#include "ServerLog.h"
#include "Store.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTimer>
#include <algorithm>
#include <sqlite3.h>

namespace tk::server {

namespace {

const QString extension = QStringLiteral(".backup");
const char* const momentFormat = "d-M-yyyy hh.mm.ss";

QDateTime momentOf(const QString& name) {
    return QDateTime::fromString(name.chopped(extension.size()), QLatin1String(momentFormat));
}

QString sqliteText(sqlite3* db) {
    return db ? QString::fromUtf8(sqlite3_errmsg(db)) : QStringLiteral("no database");
}

// Opens a backup file read-only and checks that it is a whole store.
sqlite3* openChecked(const QString& path, QString* error) {
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(QFile::encodeName(path).constData(), &db, SQLITE_OPEN_READONLY, nullptr) !=
        SQLITE_OK) {
        *error = QStringLiteral("cannot open the backup: %1").arg(sqliteText(db));
        sqlite3_close(db);
        return nullptr;
    }
    auto single = [db](const char* sql, QString* out) {
        sqlite3_stmt* statement = nullptr;
        bool ok = sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) == SQLITE_OK &&
                  sqlite3_step(statement) == SQLITE_ROW;
        if (ok)
            *out =
                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
        sqlite3_finalize(statement);
        return ok;
    };
    QString check, tables;
    if (!single("PRAGMA quick_check", &check) || check != QStringLiteral("ok")) {
        *error = QStringLiteral("the backup is damaged: %1")
                     .arg(check.isEmpty() ? sqliteText(db) : check);
        sqlite3_close(db);
        return nullptr;
    }
    if (!single("SELECT COUNT(*) FROM sqlite_master WHERE type = 'table' AND name IN"
                " ('settings', 'classes', 'teachers')",
                &tables) ||
        tables != QStringLiteral("3")) {
        *error = QStringLiteral("the file is not a backup of this server's store");
        sqlite3_close(db);
        return nullptr;
    }
    return db;
}

} // namespace

BackupKeeper::BackupKeeper(Store& store, const QString& folder, QObject* parent)
    : QObject(parent), m_store(store), m_folder(folder), m_timer(new QTimer(this)) {
    // Not 0: a timer that is always due can starve the sockets in some event loops; a
    // millisecond between steps lets every waiting request through.
    m_timer->setInterval(1);
    connect(m_timer, &QTimer::timeout, this, &BackupKeeper::step);
}

BackupKeeper::~BackupKeeper() {
    if (m_backup)
        finish(false, QStringLiteral("the server stops"));
    const QList<Done> waiting = m_waiting;
    m_waiting.clear();
    for (const Done& done : waiting)
        done(false, QStringLiteral("the server stops"));
}

bool BackupKeeper::isBackupName(const QString& name) {
    static const QRegularExpression form(
        QStringLiteral("^\\d{1,2}-\\d{1,2}-\\d{4} \\d{2}\\.\\d{2}\\.\\d{2}\\.backup$"));
    return form.match(name).hasMatch() && momentOf(name).isValid();
}

QStringList BackupKeeper::list() const {
    QStringList names;
    for (const QString& name : QDir(m_folder).entryList({QStringLiteral("*.backup")}, QDir::Files))
        if (isBackupName(name))
            names << name;
    std::sort(names.begin(), names.end(),
              [](const QString& a, const QString& b) { return momentOf(a) < momentOf(b); });
    return names;
}

QString BackupKeeper::freeName() const {
    QDateTime moment = QDateTime::currentDateTime();
    // Two backups in one second: the second takes the next free second.
    for (int i = 0; i < 3600; ++i, moment = moment.addSecs(1)) {
        const QString name = moment.toString(QLatin1String(momentFormat)) + extension;
        if (!QFileInfo::exists(QDir(m_folder).filePath(name)))
            return name;
    }
    return QString();
}

void BackupKeeper::make(Done done) {
    m_waiting.append(std::move(done));
    if (!m_backup)
        startNext();
}

void BackupKeeper::startNext() {
    while (!m_backup && !m_waiting.isEmpty()) {
        m_current = m_waiting.takeFirst();
        m_name = freeName();
        if (!QDir().mkpath(m_folder) || m_name.isEmpty()) {
            const Done done = std::move(m_current);
            m_current = nullptr;
            done(false, QStringLiteral("cannot make the backup folder %1").arg(m_folder));
            continue;
        }
        m_partial = QDir(m_folder).filePath(QLatin1Char('.') + m_name + QStringLiteral(".part"));
        QFile::remove(m_partial);
        sqlite3* source = m_store.handle();
        if (!source ||
            sqlite3_open(QFile::encodeName(m_partial).constData(), &m_target) != SQLITE_OK) {
            const QString why =
                QStringLiteral("cannot open %1: %2").arg(m_partial, sqliteText(m_target));
            sqlite3_close(m_target);
            m_target = nullptr;
            QFile::remove(m_partial);
            const Done done = std::move(m_current);
            m_current = nullptr;
            done(false, why);
            continue;
        }
        m_backup = sqlite3_backup_init(m_target, "main", source, "main");
        if (!m_backup) {
            const QString why = sqliteText(m_target);
            sqlite3_close(m_target);
            m_target = nullptr;
            QFile::remove(m_partial);
            const Done done = std::move(m_current);
            m_current = nullptr;
            done(false, why);
            continue;
        }
        m_timer->start();
    }
}

void BackupKeeper::step() {
    if (!m_backup) {
        m_timer->stop();
        return;
    }
    const int rc = sqlite3_backup_step(m_backup, m_pagesPerStep);
    if (rc == SQLITE_OK || rc == SQLITE_BUSY || rc == SQLITE_LOCKED)
        return; // more to copy; the next step runs when the event loop is free again
    if (rc == SQLITE_DONE)
        finish(true, QString());
    else
        finish(false, QString::fromUtf8(sqlite3_errstr(rc)));
}

void BackupKeeper::finish(bool ok, const QString& reason) {
    m_timer->stop();
    const int rc = sqlite3_backup_finish(m_backup);
    m_backup = nullptr;
    QString why = reason;
    if (ok && rc != SQLITE_OK) {
        ok = false;
        why = QString::fromUtf8(sqlite3_errstr(rc));
    }
    if (ok) {
        // The copy stands on its own: no write-ahead log beside it.
        sqlite3_exec(m_target, "PRAGMA journal_mode=DELETE", nullptr, nullptr, nullptr);
    }
    if (sqlite3_close(m_target) != SQLITE_OK && ok) {
        ok = false;
        why = QStringLiteral("cannot close the backup");
    }
    m_target = nullptr;
    const QString final = QDir(m_folder).filePath(m_name);
    if (ok && !QFile::rename(m_partial, final)) {
        ok = false;
        why = QStringLiteral("cannot name the backup %1").arg(final);
    }
    if (!ok)
        QFile::remove(m_partial);
    const Done done = std::move(m_current);
    m_current = nullptr;
    ServerLog::line(ok ? QStringLiteral("backup %1 made").arg(m_name)
                       : QStringLiteral("FAULT backup: %1").arg(why));
    if (done)
        done(ok, ok ? m_name : why);
    Q_EMIT backupFinished(ok);
    startNext();
}

bool BackupKeeper::restore(const QString& name, QString* error) {
    if (!isBackupName(name)) {
        *error = QStringLiteral("\"%1\" is not the name of a backup").arg(name.left(80));
        return false;
    }
    if (m_backup) {
        *error = QStringLiteral("a backup is being made; try again when it is done");
        return false;
    }
    const QString path = QDir(m_folder).filePath(name);
    if (!QFileInfo(path).isFile()) {
        *error = QStringLiteral("no backup \"%1\"").arg(name);
        return false;
    }
    sqlite3* source = openChecked(path, error);
    if (!source)
        return false;
    const QDateTime gezien = m_store.lastIconChange();
    sqlite3* target = m_store.handle();
    sqlite3_backup* copy = target ? sqlite3_backup_init(target, "main", source, "main") : nullptr;
    if (!copy) {
        *error = QStringLiteral("cannot restore: %1").arg(sqliteText(target));
        sqlite3_close(source);
        return false;
    }
    // All pages in one step: one transaction on the store.
    const int rc = sqlite3_backup_step(copy, -1);
    const int finished = sqlite3_backup_finish(copy);
    sqlite3_close(source);
    if (rc != SQLITE_DONE || finished != SQLITE_OK) {
        *error = QStringLiteral("cannot restore: %1")
                     .arg(QString::fromUtf8(sqlite3_errstr(rc != SQLITE_DONE ? rc : finished)));
        return false;
    }
    m_store.markReplaced();
    QString why;
    if (!m_store.renewIconDates(gezien, &why))
        ServerLog::fault(QStringLiteral("backup %1").arg(name),
                         QStringLiteral("the icons' dates could not be renewed: ") + why);
    ServerLog::line(QStringLiteral("backup %1 restored").arg(name));
    return true;
}

} // namespace tk::server
