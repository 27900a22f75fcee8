#include "Store.h"

#include "OwnerRecord.h"

#include <QDir>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>
#include <algorithm>

namespace tk::server {

namespace {

const char* const applicationNames[8] = {"id",           "naam",      "categorie", "opdracht",
                                         "omschrijving", "pictogram", "parameter", "beeldscherm"};

const char* const schema[] = {
    "CREATE TABLE IF NOT EXISTS settings(key TEXT PRIMARY KEY, value TEXT NOT NULL)",
    "CREATE TABLE IF NOT EXISTS categories(kind INTEGER NOT NULL, id INTEGER NOT NULL,"
    " pos INTEGER NOT NULL, naam TEXT, PRIMARY KEY(kind, id))",
    "CREATE TABLE IF NOT EXISTS applications(kind INTEGER NOT NULL, id INTEGER NOT NULL,"
    " naam TEXT, categorie TEXT, opdracht TEXT, omschrijving TEXT, pictogram TEXT,"
    " parameter TEXT, beeldscherm TEXT, PRIMARY KEY(kind, id))",
    "CREATE TABLE IF NOT EXISTS positions(owner TEXT PRIMARY KEY, value TEXT NOT NULL)",
    "CREATE TABLE IF NOT EXISTS favourites(owner TEXT PRIMARY KEY, header TEXT NOT NULL,"
    " list TEXT NOT NULL)",
    "CREATE TABLE IF NOT EXISTS accounts(name TEXT PRIMARY KEY COLLATE NOCASE,"
    " present INTEGER NOT NULL, password TEXT, type TEXT, fullname TEXT, profile TEXT,"
    " homefolder TEXT, homedrive TEXT, script TEXT, groups TEXT)",
    "CREATE TABLE IF NOT EXISTS windows_groups(scope TEXT NOT NULL, name TEXT NOT NULL"
    " COLLATE NOCASE, description TEXT, PRIMARY KEY(scope, name))",
    "CREATE TABLE IF NOT EXISTS icons(kind INTEGER NOT NULL, id INTEGER NOT NULL,"
    " changed TEXT NOT NULL, data BLOB NOT NULL, PRIMARY KEY(kind, id))",
    "CREATE TABLE IF NOT EXISTS themes(id TEXT PRIMARY KEY, version TEXT NOT NULL,"
    " standaard INTEGER NOT NULL, package BLOB NOT NULL)",
    "CREATE TABLE IF NOT EXISTS starts(kind INTEGER NOT NULL, application INTEGER NOT NULL,"
    " owner INTEGER NOT NULL, count INTEGER NOT NULL, PRIMARY KEY(kind, application, owner))",
    "CREATE TABLE IF NOT EXISTS problem_calls(id INTEGER PRIMARY KEY, type TEXT, datum TEXT,"
    " tijd TEXT, computernaam TEXT, rapporteur TEXT, module TEXT, applicatie TEXT,"
    " omschrijving TEXT, location TEXT, screenshot INTEGER NOT NULL DEFAULT 0)",
    "CREATE TABLE IF NOT EXISTS problem_screenshots(id INTEGER PRIMARY KEY, data BLOB NOT NULL)",
};

QString q(const char* text) {
    return QString::fromLatin1(text);
}

// The columns `names`, but for the column `skip` (-1 for none), for a statement.
QString columnList(std::span<const char* const> names, int skip) {
    QStringList out;
    for (size_t i = 0; i < names.size(); ++i)
        if (int(i) != skip)
            out << q(names[i]);
    return out.join(QLatin1Char(','));
}

// The table of a class or teacher: the ID, the place in the order, and a text per column.
QString ownerTable(const OwnerRecord& kind) {
    QStringList columns;
    for (int i = 0; i < kind.columns(); ++i)
        if (i != kind.idColumn)
            columns << q(kind.columnNames[i]) + QStringLiteral(" TEXT");
    return QStringLiteral("CREATE TABLE IF NOT EXISTS %1(id INTEGER PRIMARY KEY,"
                          " pos INTEGER NOT NULL, %2)")
        .arg(kind.table, columns.join(QStringLiteral(", ")));
}

QString text(const QVariant& value) {
    return value.isNull() ? QString() : value.toString();
}

const QDateTime iconEpoch(QDate(2004, 1, 1), QTime(0, 0));

} // namespace

Store::Store() : m_connection(QUuid::createUuid().toString(QUuid::WithoutBraces)) {}

Store::~Store() {
    close();
}

bool Store::open(const QString& folder, QString* error) {
    if (!QDir().mkpath(folder)) {
        *error = QStringLiteral("cannot make the data folder %1").arg(folder);
        return false;
    }
    return openDatabase(QDir(folder).filePath(QStringLiteral("tafelkrater.sqlite")), error);
}

bool Store::openInMemory(QString* error) {
    return openDatabase(QStringLiteral(":memory:"), error);
}

bool Store::openDatabase(const QString& name, QString* error) {
    m_db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    m_db.setDatabaseName(name);
    m_db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=5000"));
    if (!m_db.open()) {
        *error = QStringLiteral("cannot open the store: %1").arg(m_db.lastError().text());
        return false;
    }
    QSqlQuery query(m_db);
    for (const char* pragma :
         {"PRAGMA journal_mode=WAL", "PRAGMA synchronous=NORMAL", "PRAGMA foreign_keys=OFF"})
        query.exec(q(pragma));
    QStringList statements{ownerTable(classRecord), ownerTable(teacherRecord)};
    for (const char* statement : schema)
        statements << q(statement);
    for (const QString& statement : std::as_const(statements)) {
        if (!query.exec(statement)) {
            *error =
                QStringLiteral("cannot make the store's tables: %1").arg(query.lastError().text());
            return false;
        }
    }
    return true;
}

void Store::close() {
    if (m_db.isValid()) {
        m_db.close();
        m_db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_connection);
    }
}

bool Store::isEmpty() {
    QSqlQuery query(m_db);
    for (const char* table : {"classes", "teachers", "categories", "applications", "settings"}) {
        read(query, QStringLiteral("SELECT COUNT(*) FROM %1").arg(q(table)));
        if (query.next() && query.value(0).toLongLong() > 0)
            return false;
    }
    return true;
}

bool Store::read(QSqlQuery& query, const QString& sql) {
    // A prepare that failed left its reason, which the run after it would cover.
    const QSqlError prepared = query.lastError();
    if (sql.isEmpty() ? query.exec() : query.exec(sql))
        return true;
    ++m_readFailures;
    m_lastReadError = (prepared.isValid() ? prepared : query.lastError()).text();
    return false;
}

bool Store::write(const std::function<bool(QString*)>& change, QString* error) {
    QString reason;
    if (!m_db.transaction()) {
        *error = QStringLiteral("cannot begin a change: %1").arg(m_db.lastError().text());
        return false;
    }
    if (!change(&reason)) {
        m_db.rollback();
        *error = reason;
        return false;
    }
    if (!m_db.commit()) {
        *error = QStringLiteral("cannot commit: %1").arg(m_db.lastError().text());
        m_db.rollback();
        return false;
    }
    ++m_generation;
    return true;
}

bool Store::exec(const QString& sql, const QVariantList& values, QString* error) {
    QSqlQuery query(m_db);
    if (!query.prepare(sql)) {
        *error = query.lastError().text();
        return false;
    }
    for (const QVariant& value : values)
        query.addBindValue(value);
    if (!query.exec()) {
        *error = query.lastError().text();
        return false;
    }
    return true;
}

QString Store::setting(const QString& key, const QString& fallback) {
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral("SELECT value FROM settings WHERE key = ?"));
    query.addBindValue(key);
    if (read(query) && query.next())
        return text(query.value(0));
    return fallback;
}

bool Store::setSettings(const QList<QPair<QString, QString>>& values, QString* error) {
    return write(
        [&](QString* why) {
            for (const auto& [key, value] : values)
                if (!exec(
                        QStringLiteral("INSERT OR REPLACE INTO settings(key, value) VALUES(?, ?)"),
                        {key, value}, why))
                    return false;
            return true;
        },
        error);
}

qint64 Store::nextId(const QString& key, QString* error, qint64 above) {
    const qint64 id = std::max(setting(key, QStringLiteral("0")).toLongLong(), above) + 1;
    if (!exec(QStringLiteral("INSERT OR REPLACE INTO settings(key, value) VALUES(?, ?)"),
              {key, QString::number(id)}, error))
        return 0;
    return id;
}

QList<QStringList> Store::rows(const OwnerRecord& kind) {
    QList<QStringList> rows;
    QSqlQuery query(m_db);
    read(query, QStringLiteral("SELECT %1 FROM %2 ORDER BY pos, id")
                    .arg(columnList(kind.columnNames, -1), kind.table));
    while (query.next()) {
        QStringList row;
        for (int i = 0; i < kind.columns(); ++i)
            row << text(query.value(i));
        rows << row;
    }
    return rows;
}

bool Store::saveRow(const OwnerRecord& kind, const QStringList& columns, qint64* id,
                    QString* error) {
    const int count = kind.columns();
    const int idColumn = kind.idColumn;
    const int reserve = kind.reserveColumn;
    const QString table(kind.table);
    if (columns.size() != count) {
        *error = QStringLiteral("a record of %1 columns, not %2").arg(columns.size()).arg(count);
        return false;
    }
    const QString idText = columns[idColumn];
    qint64 existing = 0;
    qint64 copyOf = 0;
    // "kopie" alone is a copy of no record: a new one (the module's eight classes at once).
    if (idText.startsWith(QStringLiteral("kopie"), Qt::CaseInsensitive) && idText.size() > 5) {
        copyOf = idText.mid(5).toLongLong();
        if (copyOf <= 0) {
            *error = QStringLiteral("\"%1\" is no copy of a known record").arg(idText);
            return false;
        }
    } else if (!idText.isEmpty() && idText != QStringLiteral("0") &&
               idText.compare(QStringLiteral("kopie"), Qt::CaseInsensitive) != 0) {
        bool ok = false;
        existing = idText.toLongLong(&ok);
        if (!ok || existing <= 0) {
            *error = QStringLiteral("\"%1\" is not an ID").arg(idText);
            return false;
        }
    }
    return write(
        [&](QString* why) {
            QSqlQuery query(m_db);
            if (existing > 0) {
                QStringList sets;
                QVariantList values;
                for (int i = 0; i < count; ++i) {
                    if (i == idColumn || i == reserve)
                        continue;
                    sets << q(kind.columnNames[i]) + QStringLiteral(" = ?");
                    values << columns[i];
                }
                values << existing;
                query.prepare(QStringLiteral("UPDATE %1 SET %2 WHERE id = ?")
                                  .arg(table, sets.join(QLatin1Char(','))));
                for (const QVariant& v : values)
                    query.addBindValue(v);
                if (!query.exec()) {
                    *why = query.lastError().text();
                    return false;
                }
                if (query.numRowsAffected() != 1) {
                    *why = QStringLiteral("no record with ID %1").arg(existing);
                    return false;
                }
                *id = existing;
                return true;
            }
            read(query,
                 QStringLiteral("SELECT COUNT(*), COALESCE(MAX(pos), 0) FROM %1").arg(table));
            query.next();
            if (query.value(0).toInt() >= kind.maximum) {
                *why = QStringLiteral("the table is full");
                return false;
            }
            const qint64 pos = query.value(1).toLongLong() + 1;
            if (copyOf > 0) {
                query.prepare(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE id = ?").arg(table));
                query.addBindValue(copyOf);
                if (!read(query) || !query.next() || query.value(0).toInt() != 1) {
                    *why = QStringLiteral("no record with ID %1 to copy").arg(copyOf);
                    return false;
                }
            }
            const qint64 newId = nextId(kind.lastIdKey, why);
            if (newId == 0)
                return false;
            QVariantList values{newId, pos};
            for (int i = 0; i < count; ++i)
                if (i != idColumn)
                    values << (i == reserve ? QString() : columns[i]);
            if (!exec(QStringLiteral("INSERT INTO %1(id, pos, %2) VALUES(?, ?%3)")
                          .arg(table, columnList(kind.columnNames, idColumn),
                               QStringLiteral(", ?").repeated(count - 1)),
                      values, why))
                return false;
            if (copyOf > 0 && !copyOwnerData(kind, copyOf, newId, why))
                return false;
            *id = newId;
            return true;
        },
        error);
}

bool Store::copyOwnerData(const OwnerRecord& kind, qint64 from, qint64 to, QString* error) {
    const QString pos(kind.positionsOwner);
    const QString fav(kind.favouritesOwner);
    return exec(QStringLiteral("INSERT OR REPLACE INTO positions(owner, value) SELECT ?, value"
                               " FROM positions WHERE owner = ?"),
                {pos + QString::number(to), pos + QString::number(from)}, error) &&
           exec(QStringLiteral("INSERT OR REPLACE INTO favourites(owner, header, list)"
                               " SELECT ?, header, list FROM favourites WHERE owner = ?"),
                {fav + QString::number(to), fav + QString::number(from)}, error);
}

bool Store::saveTeachers(const QList<QStringList>& rows, const QList<int>& keep, QString* error) {
    const OwnerRecord& kind = teacherRecord;
    for (const QStringList& row : rows)
        if (row.size() != kind.columns()) {
            *error = QStringLiteral("a teacher of %1 columns").arg(row.size());
            return false;
        }
    return write(
        [&](QString* why) {
            QSqlQuery query(m_db);
            // Teachers that the list leaves out go behind it, in their order.
            if (!exec(QStringLiteral("UPDATE %1 SET pos = pos + 1000000").arg(kind.table), {}, why))
                return false;
            int pos = 0;
            for (const QStringList& row : rows) {
                ++pos;
                qint64 id = row[kind.idColumn].toLongLong();
                if (id <= 0) {
                    read(query, QStringLiteral("SELECT COUNT(*) FROM %1").arg(kind.table));
                    query.next();
                    if (query.value(0).toInt() >= kind.maximum) {
                        *why = QStringLiteral("the table is full");
                        return false;
                    }
                    id = nextId(kind.lastIdKey, why);
                    if (id == 0)
                        return false;
                    QVariantList values{id, pos};
                    for (int i = 0; i < kind.columns(); ++i)
                        if (i != kind.idColumn)
                            values << (keep.contains(i) ? QString() : row[i]);
                    if (!exec(QStringLiteral("INSERT INTO %1(id, pos, %2) VALUES(?, ?%3)")
                                  .arg(kind.table, columnList(kind.columnNames, kind.idColumn),
                                       QStringLiteral(", ?").repeated(kind.columns() - 1)),
                              values, why))
                        return false;
                    continue;
                }
                QStringList sets{QStringLiteral("pos = ?")};
                QVariantList values{pos};
                for (int i = 0; i < kind.columns(); ++i) {
                    if (i == kind.idColumn || keep.contains(i))
                        continue;
                    sets << q(kind.columnNames[i]) + QStringLiteral(" = ?");
                    values << row[i];
                }
                values << id;
                query.prepare(QStringLiteral("UPDATE %1 SET %2 WHERE id = ?")
                                  .arg(kind.table, sets.join(QLatin1Char(','))));
                for (const QVariant& v : values)
                    query.addBindValue(v);
                if (!query.exec() || query.numRowsAffected() != 1) {
                    *why = QStringLiteral("no %1 with ID %2").arg(kind.noun).arg(id);
                    return false;
                }
            }
            return true;
        },
        error);
}

bool Store::deleteRow(const OwnerRecord& kind, qint64 id, QString* error) {
    return write(
        [&](QString* why) {
            QSqlQuery query(m_db);
            query.prepare(QStringLiteral("DELETE FROM %1 WHERE id = ?").arg(kind.table));
            query.addBindValue(id);
            if (!query.exec() || query.numRowsAffected() != 1) {
                *why = QStringLiteral("no %1 with ID %2").arg(kind.noun).arg(id);
                return false;
            }
            return exec(QStringLiteral("DELETE FROM positions WHERE owner = ?"),
                        {kind.positionsOwner + QString::number(id)}, why) &&
                   exec(QStringLiteral("DELETE FROM favourites WHERE owner = ?"),
                        {kind.favouritesOwner + QString::number(id)}, why);
        },
        error);
}

bool Store::saveDesktop(const OwnerRecord& kind, qint64 id, const QString& applicaties,
                        const QString& internet, const QString& categorieen, QString* error) {
    return write(
        [&](QString* why) {
            QSqlQuery query(m_db);
            query.prepare(QStringLiteral("UPDATE %1 SET applicaties = ?, internet = ?,"
                                         " categorieen = ? WHERE id = ?")
                              .arg(kind.table));
            query.addBindValue(applicaties);
            query.addBindValue(internet);
            query.addBindValue(categorieen);
            query.addBindValue(id);
            if (!query.exec() || query.numRowsAffected() != 1) {
                *why = QStringLiteral("no %1 with ID %2").arg(kind.noun).arg(id);
                return false;
            }
            return true;
        },
        error);
}

QList<Store::Category> Store::categories(int kind) {
    QList<Category> list;
    QSqlQuery query(m_db);
    query.prepare(
        QStringLiteral("SELECT id, naam FROM categories WHERE kind = ? ORDER BY pos, id"));
    query.addBindValue(kind);
    read(query);
    while (query.next())
        list.append({query.value(0).toLongLong(), text(query.value(1))});
    return list;
}

bool Store::addCategory(int kind, const QString& naam, qint64* id, QString* error) {
    return write(
        [&](QString* why) {
            QSqlQuery query(m_db);
            query.prepare(QStringLiteral(
                "SELECT COUNT(*), COALESCE(MAX(pos), 0) FROM categories WHERE kind = ?"));
            query.addBindValue(kind);
            read(query);
            query.next();
            if (query.value(0).toInt() >= maxCategories) {
                *why = QStringLiteral("the categories of this kind are full");
                return false;
            }
            const qint64 pos = query.value(1).toLongLong() + 1;
            *id = nextId(QStringLiteral("last_category_id_%1").arg(kind), why);
            return *id != 0 &&
                   exec(QStringLiteral(
                            "INSERT INTO categories(kind, id, pos, naam) VALUES(?,?,?,?)"),
                        {kind, *id, pos, naam}, why);
        },
        error);
}

bool Store::renameCategory(int kind, qint64 id, const QString& naam, QString* error) {
    return write(
        [&](QString* why) {
            QSqlQuery query(m_db);
            query.prepare(
                QStringLiteral("UPDATE categories SET naam = ? WHERE kind = ? AND id = ?"));
            query.addBindValue(naam);
            query.addBindValue(kind);
            query.addBindValue(id);
            if (!query.exec() || query.numRowsAffected() != 1) {
                *why = QStringLiteral("no category with ID %1").arg(id);
                return false;
            }
            return true;
        },
        error);
}

bool Store::saveCategories(int kind, const QList<Category>& list, QString* error) {
    return write(
        [&](QString* why) {
            if (!exec(QStringLiteral("UPDATE categories SET pos = pos + 1000000 WHERE kind = ?"),
                      {kind}, why))
                return false;
            int pos = 0;
            QSqlQuery query(m_db);
            for (const Category& c : list) {
                query.prepare(QStringLiteral(
                    "UPDATE categories SET naam = ?, pos = ? WHERE kind = ? AND id = ?"));
                query.addBindValue(c.naam);
                query.addBindValue(++pos);
                query.addBindValue(kind);
                query.addBindValue(c.id);
                if (!query.exec() || query.numRowsAffected() != 1) {
                    *why = QStringLiteral("no category with ID %1").arg(c.id);
                    return false;
                }
            }
            return true;
        },
        error);
}

bool Store::deleteCategory(int kind, qint64 id, QString* error) {
    return write(
        [&](QString* why) {
            QSqlQuery query(m_db);
            query.prepare(QStringLiteral("DELETE FROM categories WHERE kind = ? AND id = ?"));
            query.addBindValue(kind);
            query.addBindValue(id);
            if (!query.exec() || query.numRowsAffected() != 1) {
                *why = QStringLiteral("no category with ID %1").arg(id);
                return false;
            }
            const QString category = QString::number(id);
            query.prepare(QStringLiteral(
                "DELETE FROM icons WHERE kind = ? AND id IN (SELECT id FROM applications"
                " WHERE kind = ? AND categorie = ?)"));
            query.addBindValue(kind);
            query.addBindValue(kind);
            query.addBindValue(category);
            if (!query.exec()) {
                *why = query.lastError().text();
                return false;
            }
            const bool iconsGone = query.numRowsAffected() > 0;
            return exec(QStringLiteral("DELETE FROM applications WHERE kind = ? AND categorie = ?"),
                        {kind, category}, why) &&
                   (!iconsGone || touchIcons(kind, why));
        },
        error);
}

QList<Store::Application> Store::applications(int kind) {
    QList<Application> list;
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral("SELECT %1 FROM applications WHERE kind = ? ORDER BY id")
                      .arg(columnList(applicationNames, -1)));
    query.addBindValue(kind);
    read(query);
    while (query.next()) {
        Application fields;
        for (int i = 0; i < 8; ++i)
            fields << text(query.value(i));
        list << fields;
    }
    return list;
}

bool Store::reserveApplicationId(int kind, qint64* id, QString* error) {
    return write(
        [&](QString* why) {
            *id = nextId(QStringLiteral("last_application_id_%1").arg(kind), why);
            return *id != 0;
        },
        error);
}

bool Store::saveApplication(int kind, const Application& fields, QString* error) {
    if (fields.size() != 8) {
        *error = QStringLiteral("an application of %1 fields").arg(fields.size());
        return false;
    }
    bool ok = false;
    const qint64 id = fields[0].toLongLong(&ok);
    if (!ok || id <= 0) {
        *error = QStringLiteral("\"%1\" is not an application ID").arg(fields[0]);
        return false;
    }
    return write(
        [&](QString* why) {
            QSqlQuery query(m_db);
            query.prepare(
                QStringLiteral("SELECT COUNT(*) FROM categories WHERE kind = ? AND id = ?"));
            query.addBindValue(kind);
            query.addBindValue(fields[2].toLongLong());
            if (!read(query) || !query.next() || query.value(0).toInt() != 1) {
                *why = QStringLiteral("no category \"%1\" of this kind").arg(fields[2]);
                return false;
            }
            query.prepare(
                QStringLiteral("SELECT COUNT(*) FROM applications WHERE kind = ? AND id = ?"));
            query.addBindValue(kind);
            query.addBindValue(id);
            read(query);
            query.next();
            const bool known = query.value(0).toInt() == 1;
            if (!known) {
                const QString key = QStringLiteral("last_application_id_%1").arg(kind);
                if (id > setting(key, QStringLiteral("0")).toLongLong()) {
                    *why = QStringLiteral("ID %1 was never given out").arg(id);
                    return false;
                }
                query.prepare(QStringLiteral("SELECT COUNT(*) FROM applications WHERE kind = ?"));
                query.addBindValue(kind);
                read(query);
                query.next();
                if (query.value(0).toInt() >= maxApplications) {
                    *why = QStringLiteral("the applications of this kind are full");
                    return false;
                }
            }
            QVariantList values{kind};
            for (const QString& f : fields)
                values << f;
            return exec(QStringLiteral("INSERT OR REPLACE INTO applications(kind, %1)"
                                       " VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?)")
                            .arg(columnList(applicationNames, -1)),
                        values, why);
        },
        error);
}

bool Store::deleteApplication(int kind, qint64 id, QString* error) {
    return write(
        [&](QString* why) {
            QSqlQuery query(m_db);
            query.prepare(QStringLiteral("DELETE FROM applications WHERE kind = ? AND id = ?"));
            query.addBindValue(kind);
            query.addBindValue(id);
            if (!query.exec() || query.numRowsAffected() != 1) {
                *why = QStringLiteral("no application with ID %1").arg(id);
                return false;
            }
            query.prepare(QStringLiteral("DELETE FROM icons WHERE kind = ? AND id = ?"));
            query.addBindValue(kind);
            query.addBindValue(id);
            if (!query.exec()) {
                *why = query.lastError().text();
                return false;
            }
            return query.numRowsAffected() == 0 || touchIcons(kind, why);
        },
        error);
}

QString Store::positions(const QString& owner) {
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral("SELECT value FROM positions WHERE owner = ?"));
    query.addBindValue(owner);
    if (read(query) && query.next())
        return text(query.value(0));
    return QString();
}

bool Store::savePositions(const QString& owner, const QString& value, QString* error) {
    return write(
        [&](QString* why) {
            return exec(
                QStringLiteral("INSERT OR REPLACE INTO positions(owner, value) VALUES(?, ?)"),
                {owner, value}, why);
        },
        error);
}

QPair<QString, QString> Store::favourites(const QString& owner) {
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral("SELECT header, list FROM favourites WHERE owner = ?"));
    query.addBindValue(owner);
    if (read(query) && query.next())
        return {text(query.value(0)), text(query.value(1))};
    return {QStringLiteral("0|Nee|Nee|Nee"), QString()};
}

bool Store::saveFavourites(const QString& owner, const QString& header, const QString& list,
                           QString* error) {
    return write(
        [&](QString* why) {
            return exec(QStringLiteral(
                            "INSERT OR REPLACE INTO favourites(owner, header, list) VALUES(?,?,?)"),
                        {owner, header, list}, why);
        },
        error);
}

namespace {

const QString accountColumns = QStringLiteral("SELECT name, present, password, type, fullname,"
                                              " profile, homefolder, homedrive, script, groups"
                                              " FROM accounts");

Store::Account accountOf(const QSqlQuery& row) {
    Store::Account a;
    a.name = text(row.value(0));
    a.present = row.value(1).toInt() != 0;
    a.password = text(row.value(2));
    a.type = text(row.value(3));
    a.fullName = text(row.value(4));
    a.profile = text(row.value(5));
    a.homeFolder = text(row.value(6));
    a.homeDrive = text(row.value(7));
    a.script = text(row.value(8));
    a.groups = text(row.value(9));
    return a;
}

} // namespace

// One query for the whole list: a school's hundreds of accounts are not fetched one by one.
QList<Store::Account> Store::accounts() {
    QList<Account> list;
    QSqlQuery query(m_db);
    query.setForwardOnly(true);
    read(query, accountColumns + QStringLiteral(" ORDER BY name"));
    while (query.next())
        list << accountOf(query);
    return list;
}

Store::Account Store::account(const QString& name) {
    QSqlQuery query(m_db);
    query.prepare(accountColumns + QStringLiteral(" WHERE name = ?"));
    query.addBindValue(name);
    if (!read(query) || !query.next()) {
        Account a;
        a.name = name;
        return a;
    }
    return accountOf(query);
}

bool Store::saveAccount(const Account& a, QString* error) {
    return write(
        [&](QString* why) {
            return exec(QStringLiteral("INSERT OR REPLACE INTO accounts(name, present, password,"
                                       " type, fullname, profile, homefolder, homedrive, script,"
                                       " groups) VALUES(?,?,?,?,?,?,?,?,?,?)"),
                        {a.name, a.present ? 1 : 0, a.password, a.type, a.fullName, a.profile,
                         a.homeFolder, a.homeDrive, a.script, a.groups},
                        why);
        },
        error);
}

bool Store::deleteAccount(const QString& name, QString* error) {
    return write(
        [&](QString* why) {
            return exec(QStringLiteral("DELETE FROM accounts WHERE name = ?"), {name}, why);
        },
        error);
}

QStringList Store::groups(const QString& scope) {
    QStringList list;
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral(
        "SELECT name, description FROM windows_groups WHERE scope = ? ORDER BY name"));
    query.addBindValue(scope);
    read(query);
    while (query.next())
        list << text(query.value(0)) + QLatin1Char(':') + text(query.value(1));
    return list;
}

bool Store::saveGroup(const QString& scope, const QString& name, const QString& description,
                      QString* error) {
    return write(
        [&](QString* why) {
            return exec(QStringLiteral("INSERT OR REPLACE INTO windows_groups(scope, name,"
                                       " description) VALUES(?,?,?)"),
                        {scope, name, description}, why);
        },
        error);
}

QList<Store::Icon> Store::icons(int kind) {
    QList<Icon> list;
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral("SELECT id, changed FROM icons WHERE kind = ? ORDER BY id"));
    query.addBindValue(kind);
    read(query);
    while (query.next())
        list.append({query.value(0).toLongLong(),
                     QDateTime::fromString(text(query.value(1)), Qt::ISODate)});
    return list;
}

QByteArray Store::icon(int kind, qint64 id) {
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral("SELECT data FROM icons WHERE kind = ? AND id = ?"));
    query.addBindValue(kind);
    query.addBindValue(id);
    if (read(query) && query.next())
        return query.value(0).toByteArray();
    return QByteArray();
}

QDateTime Store::iconsChanged(int group) {
    const QDateTime moment =
        QDateTime::fromString(setting(QStringLiteral("icons_changed_%1").arg(group)), Qt::ISODate);
    return moment.isValid() ? moment : iconEpoch;
}

// A group's change moment goes forward by at least a minute on every change, so that a client
// that compares moments to the minute never misses a second change within the same minute.
bool Store::touchIcons(int group, QString* error) {
    QDateTime now = QDateTime::currentDateTime();
    now.setTime(QTime(now.time().hour(), now.time().minute()));
    const QDateTime after = iconsChanged(group).addSecs(60);
    const QDateTime moment = after > now ? after : now;
    return exec(QStringLiteral("INSERT OR REPLACE INTO settings(key, value) VALUES(?, ?)"),
                {QStringLiteral("icons_changed_%1").arg(group), moment.toString(Qt::ISODate)},
                error);
}

QDateTime Store::lastIconChange() {
    QDateTime laatste = iconEpoch;
    for (int groep = 0; groep <= 3; ++groep)
        laatste = std::max(laatste, iconsChanged(groep));
    return laatste;
}

bool Store::renewIconDates(const QDateTime& gezien, QString* error) {
    QDateTime nu = QDateTime::currentDateTime();
    nu.setTime(QTime(nu.time().hour(), nu.time().minute()));
    const QString moment =
        std::max({nu, gezien.addSecs(60), lastIconChange().addSecs(60)}).toString(Qt::ISODate);
    return write(
        [&](QString* why) {
            for (int groep = 0; groep <= 3; ++groep) {
                if (!exec(
                        QStringLiteral("INSERT OR REPLACE INTO settings(key, value) VALUES(?, ?)"),
                        {QStringLiteral("icons_changed_%1").arg(groep), moment}, why) ||
                    !exec(QStringLiteral("UPDATE icons SET changed = ? WHERE kind = ?"),
                          {moment, groep}, why))
                    return false;
            }
            return true;
        },
        error);
}

bool Store::saveIcon(int kind, qint64 id, const QByteArray& data, QString* error) {
    return write(
        [&](QString* why) {
            if (!touchIcons(kind, why))
                return false;
            return exec(
                QStringLiteral(
                    "INSERT OR REPLACE INTO icons(kind, id, changed, data) VALUES(?,?,?,?)"),
                {kind, id, iconsChanged(kind).toString(Qt::ISODate), data}, why);
        },
        error);
}

QByteArray Store::standardLibrary() {
    return icon(3, 0);
}

bool Store::saveStandardLibrary(const QByteArray& data, QString* error) {
    return saveIcon(3, 0, data, error);
}

QList<Store::Theme> Store::themes() {
    QList<Theme> list;
    QSqlQuery query(m_db);
    read(query, QStringLiteral("SELECT id, version, standaard FROM themes ORDER BY id"));
    while (query.next())
        list.append({text(query.value(0)), text(query.value(1)), query.value(2).toInt() != 0});
    return list;
}

QByteArray Store::themePackage(const QString& id) {
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral("SELECT package FROM themes WHERE id = ?"));
    query.addBindValue(id);
    if (read(query) && query.next())
        return query.value(0).toByteArray();
    return QByteArray();
}

bool Store::saveTheme(const Theme& theme, const QByteArray& package, QString* error) {
    return write(
        [&](QString* why) {
            if (theme.standaard &&
                !exec(QStringLiteral("UPDATE themes SET standaard = 0"), {}, why))
                return false;
            return exec(QStringLiteral("INSERT OR REPLACE INTO themes(id, version, standaard,"
                                       " package) VALUES(?,?,?,?)"),
                        {theme.id, theme.version, theme.standaard ? 1 : 0, package}, why);
        },
        error);
}

bool Store::countStart(int kind, qint64 applicationId, qint64 ownerId, QString* error) {
    return write(
        [&](QString* why) {
            return exec(QStringLiteral("INSERT INTO starts(kind, application, owner, count)"
                                       " VALUES(?,?,?,1) ON CONFLICT(kind, application, owner)"
                                       " DO UPDATE SET count = count + 1"),
                        {kind, applicationId, ownerId}, why);
        },
        error);
}

qint64 Store::starts(int kind, qint64 applicationId) {
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral(
        "SELECT COALESCE(SUM(count), 0) FROM starts WHERE kind = ? AND application = ?"));
    query.addBindValue(kind);
    query.addBindValue(applicationId);
    if (read(query) && query.next())
        return query.value(0).toLongLong();
    return 0;
}

bool Store::deleteTheme(const QString& id, QString* error) {
    return write(
        [&](QString* why) {
            QSqlQuery query(m_db);
            query.prepare(QStringLiteral("DELETE FROM themes WHERE id = ?"));
            query.addBindValue(id);
            if (!query.exec()) {
                *why = query.lastError().text();
                return false;
            }
            if (query.numRowsAffected() < 1) {
                *why = QStringLiteral("no theme \"%1\"").arg(id);
                return false;
            }
            return true;
        },
        error);
}

bool Store::touchProblemCalls(QString* error) {
    // At least a second later than the last change, so that two changes in one second are two
    // moments to a client that compares them in seconds.
    const QDateTime last = problemCallsChanged();
    QDateTime now = QDateTime::currentDateTime();
    now = now.addMSecs(-now.time().msec());
    if (last.isValid() && now <= last)
        now = last.addSecs(1);
    return exec(QStringLiteral("INSERT OR REPLACE INTO settings(key, value) VALUES(?, ?)"),
                {QStringLiteral("problem_calls_changed"), now.toString(Qt::ISODate)}, error);
}

QDateTime Store::problemCallsChanged() {
    return QDateTime::fromString(setting(QStringLiteral("problem_calls_changed")), Qt::ISODate);
}

bool Store::addProblemCall(ProblemCall* call, QString* error) {
    return write(
        [&](QString* why) {
            // An ID is never given out twice, also after the newest call was removed: a
            // screenshot still on its way, or a late removal, would reach another call.
            QSqlQuery query(m_db);
            read(query, QStringLiteral("SELECT COALESCE(MAX(id), 0) FROM problem_calls"));
            query.next();
            call->id =
                nextId(QStringLiteral("last_problem_call_id"), why, query.value(0).toLongLong());
            if (call->id == 0)
                return false;
            query.prepare(QStringLiteral(
                "INSERT INTO problem_calls(id, type, datum, tijd, computernaam, rapporteur, module,"
                " applicatie, omschrijving, location) VALUES(?,?,?,?,?,?,?,?,?,?)"));
            query.addBindValue(call->id);
            for (const QString* v :
                 {&call->type, &call->datum, &call->tijd, &call->computernaam, &call->rapporteur,
                  &call->module, &call->applicatie, &call->omschrijving, &call->location})
                query.addBindValue(*v);
            if (!query.exec()) {
                *why = query.lastError().text();
                return false;
            }
            call->screenshot = false;
            return touchProblemCalls(why);
        },
        error);
}

QList<Store::ProblemCall> Store::problemCalls(qint64 offset, qint64 count) {
    QList<ProblemCall> calls;
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral(
        "SELECT id, type, datum, tijd, computernaam, rapporteur, module, applicatie,"
        " omschrijving, location, screenshot FROM problem_calls ORDER BY id LIMIT ? OFFSET ?"));
    query.addBindValue(count);
    query.addBindValue(offset);
    read(query);
    while (query.next()) {
        ProblemCall c;
        c.id = query.value(0).toLongLong();
        QString* fields[] = {&c.type,         &c.datum,        &c.tijd,
                             &c.computernaam, &c.rapporteur,   &c.module,
                             &c.applicatie,   &c.omschrijving, &c.location};
        for (int i = 0; i < 9; ++i)
            *fields[i] = text(query.value(i + 1));
        c.screenshot = query.value(10).toInt() != 0;
        calls.append(c);
    }
    return calls;
}

qint64 Store::problemCallCount() {
    QSqlQuery query(m_db);
    read(query, QStringLiteral("SELECT COUNT(*) FROM problem_calls"));
    return query.next() ? query.value(0).toLongLong() : 0;
}

bool Store::attachScreenshot(qint64 id, const QByteArray& jpeg, QString* error) {
    return write(
        [&](QString* why) {
            QSqlQuery query(m_db);
            query.prepare(QStringLiteral("UPDATE problem_calls SET screenshot = 1 WHERE id = ?"));
            query.addBindValue(id);
            if (!query.exec()) {
                *why = query.lastError().text();
                return false;
            }
            if (query.numRowsAffected() < 1) {
                *why = QStringLiteral("no problem call %1").arg(id);
                return false;
            }
            return exec(QStringLiteral("INSERT OR REPLACE INTO problem_screenshots(id, data)"
                                       " VALUES(?, ?)"),
                        {id, jpeg}, why) &&
                   touchProblemCalls(why);
        },
        error);
}

QByteArray Store::screenshot(qint64 id) {
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral("SELECT data FROM problem_screenshots WHERE id = ?"));
    query.addBindValue(id);
    if (read(query) && query.next())
        return query.value(0).toByteArray();
    return QByteArray();
}

bool Store::deleteProblemCall(qint64 id, QString* error) {
    return write(
        [&](QString* why) {
            QSqlQuery query(m_db);
            query.prepare(QStringLiteral("DELETE FROM problem_calls WHERE id = ?"));
            query.addBindValue(id);
            if (!query.exec()) {
                *why = query.lastError().text();
                return false;
            }
            if (query.numRowsAffected() < 1) {
                *why = QStringLiteral("no problem call %1").arg(id);
                return false;
            }
            return exec(QStringLiteral("DELETE FROM problem_screenshots WHERE id = ?"), {id},
                        why) &&
                   touchProblemCalls(why);
        },
        error);
}

sqlite3* Store::handle() {
    const QVariant h = m_db.driver()->handle();
    if (!h.isValid() || qstrcmp(h.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3* const*>(h.data());
}

} // namespace tk::server
