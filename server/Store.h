#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QPair>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <functional>

class QSqlQuery;
struct sqlite3;

namespace tk::server {

struct OwnerRecord;

// The server's store: one SQLite file in the data folder. Records are held in the columns the
// client knows them by (a class as the 13 columns of its table row, a teacher as 16), so that
// what comes in over the wire and what goes out is a plain re-ordering of fields; an
// OwnerRecord describes the two. IDs are given here. Every change is one transaction: a crash
// or a kill leaves the store as it was before or after the change, never half way. Every
// committed change raises the generation, by which the rendered load replies know they must be
// made again.
class Store {
public:
    // The limits of the client's tables: a record past them would break its loads.
    static constexpr int maxClasses = 21;
    static constexpr int maxTeachers = 100;
    static constexpr int maxCategories = 20;
    static constexpr int maxApplications = 200;

    struct Category {
        qint64 id = 0;
        QString naam;
    };
    // An application as its 8 wire fields: ID, Naam, Categorie, Opdracht, Omschrijving,
    // Pictogram, Parameter, Beeldscherm.
    using Application = QStringList;
    struct Icon {
        qint64 id = 0;
        QDateTime changed;
    };
    struct Theme {
        QString id;
        QString version;
        bool standaard = false;
    };
    struct Account {
        QString name;
        bool present = false;
        QString password, type, fullName, profile, homeFolder, homeDrive, script, groups;
    };

    Store();
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    // Opens (and creates) the store in `folder`. False with a reason on failure.
    bool open(const QString& folder, QString* error);
    // A store that lives as long as this object, in memory (a fuzz target, a bench).
    bool openInMemory(QString* error);
    void close();
    bool isEmpty();
    quint64 generation() const { return m_generation; }
    // Reads that failed so far (a locked, damaged or changed file), and the last one's reason.
    // A read that fails answers like an empty table; whoever renders from reads compares the
    // count before and after, so that an empty answer is never mistaken for an empty store.
    quint64 readFailures() const { return m_readFailures; }
    QString lastReadError() const { return m_lastReadError; }

    // Settings: language, passwords, other settings, module flags, printers, filter lists,
    // the domain and the last IDs, each a text under a key.
    QString setting(const QString& key, const QString& fallback = QString());
    bool setSettings(const QList<QPair<QString, QString>>& values, QString* error);

    // The class or teacher rows (`kind` is classRecord or teacherRecord), in their order.
    QList<QStringList> rows(const OwnerRecord& kind);
    // Saves a class or teacher row. Column ID "0" makes a new record, "kopie<id>" a new record
    // that takes the desktop positions and favourites of <id>, a known number replaces that
    // record. The ID the record has is returned in `id`.
    bool saveRow(const OwnerRecord& kind, const QStringList& columns, qint64* id, QString* error);
    // Saves all teachers at once, in this order. Each row has the teacher's columns; the
    // columns in `keep` keep their stored values for known teachers.
    bool saveTeachers(const QList<QStringList>& rows, const QList<int>& keep, QString* error);
    // Removes a class or teacher with its desktop positions and favourites.
    bool deleteRow(const OwnerRecord& kind, qint64 id, QString* error);
    // The desktop of a class or teacher: its applications, internet flag and categories.
    bool saveDesktop(const OwnerRecord& kind, qint64 id, const QString& applicaties,
                     const QString& internet, const QString& categorieen, QString* error);

    QList<Category> categories(int kind);
    bool addCategory(int kind, const QString& naam, qint64* id, QString* error);
    bool renameCategory(int kind, qint64 id, const QString& naam, QString* error);
    // Puts the categories of a kind in this order with these names; categories not named keep
    // their place behind them.
    bool saveCategories(int kind, const QList<Category>& list, QString* error);
    // Removes a category and its applications.
    bool deleteCategory(int kind, qint64 id, QString* error);

    QList<Application> applications(int kind);
    bool reserveApplicationId(int kind, qint64* id, QString* error);
    bool saveApplication(int kind, const Application& fields, QString* error);
    bool deleteApplication(int kind, qint64 id, QString* error);

    // Desktop positions, by owner key "K<id>" or "L<id>".
    QString positions(const QString& owner);
    bool savePositions(const QString& owner, const QString& value, QString* error);

    // Favourites by owner key ("Groep<id>", "Leraar<id>"): header and list.
    QPair<QString, QString> favourites(const QString& owner);
    bool saveFavourites(const QString& owner, const QString& header, const QString& list,
                        QString* error);

    QList<Account> accounts();
    Account account(const QString& name);
    bool saveAccount(const Account& account, QString* error);
    bool deleteAccount(const QString& name, QString* error);
    // Windows groups of a scope ("g" global, "l" local): "name:description" items.
    QStringList groups(const QString& scope);
    bool saveGroup(const QString& scope, const QString& name, const QString& description,
                   QString* error);

    // Icons of a kind, and the change moment of each group (kind 0-2, 3 the standard library).
    QList<Icon> icons(int kind);
    QByteArray icon(int kind, qint64 id);
    QDateTime iconsChanged(int group);
    bool saveIcon(int kind, qint64 id, const QByteArray& data, QString* error);
    // The latest change moment of any group: what a workstation may have seen.
    QDateTime lastIconChange();
    // After a restore the icons carry the backup's dates, which a workstation that fetched a
    // later icon has passed already: every group's moment and every icon's date go past
    // `gezien` (taken before the restore) and now, so that every workstation fetches them anew.
    bool renewIconDates(const QDateTime& gezien, QString* error);
    QByteArray standardLibrary();
    bool saveStandardLibrary(const QByteArray& data, QString* error);

    QList<Theme> themes();
    QByteArray themePackage(const QString& id);
    bool saveTheme(const Theme& theme, const QByteArray& package, QString* error);

    bool deleteTheme(const QString& id, QString* error);

    bool countStart(int kind, qint64 applicationId, qint64 ownerId, QString* error);
    qint64 starts(int kind, qint64 applicationId);

    // A problem call or fault report in the fields the overview of the client shows.
    struct ProblemCall {
        qint64 id = 0;
        QString type, datum, tijd, computernaam, rapporteur, module, applicatie, omschrijving;
        bool screenshot = false;
        QString location; // where the connection said it was
    };
    // Stores a call and gives it its ID; every change of the calls moves their change moment.
    bool addProblemCall(ProblemCall* call, QString* error);
    // The calls in the order of their IDs, `count` of them from the `offset`-th on.
    QList<ProblemCall> problemCalls(qint64 offset = 0, qint64 count = -1);
    qint64 problemCallCount();
    bool attachScreenshot(qint64 id, const QByteArray& jpeg, QString* error);
    QByteArray screenshot(qint64 id);
    bool deleteProblemCall(qint64 id, QString* error);
    // The moment of the last change of the calls, invalid when there never was one.
    QDateTime problemCallsChanged();

    // The SQLite connection under the store, for the online backup and the restore.
    sqlite3* handle();
    // After the file under the store was replaced: everything rendered from it is stale.
    void markReplaced() { ++m_generation; }

private:
    bool openDatabase(const QString& name, QString* error);
    bool write(const std::function<bool(QString*)>& change, QString* error);
    bool exec(const QString& sql, const QVariantList& values, QString* error);
    // Runs a query that reads (the prepared one, or `sql`), counting a failure.
    bool read(QSqlQuery& query, const QString& sql = QString());
    // The counter under `key` plus one, never at or below `above` (IDs already in a table).
    qint64 nextId(const QString& key, QString* error, qint64 above = 0);
    bool touchIcons(int group, QString* error);
    bool copyOwnerData(const OwnerRecord& kind, qint64 from, qint64 to, QString* error);
    bool touchProblemCalls(QString* error);

    QString m_connection;
    QSqlDatabase m_db;
    quint64 m_generation = 1;
    quint64 m_readFailures = 0;
    QString m_lastReadError;
};

} // namespace tk::server
