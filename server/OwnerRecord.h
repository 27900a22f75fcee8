#pragma once

#include "core/Wire.h"
#include "server/Store.h"

#include <QLatin1StringView>
#include <span>

namespace tk::server {

// A record that owns a desktop: a class or a teacher. The two are stored, loaded, saved and
// deleted by the same procedures; a description says where they differ: the table and its
// columns, the wire orders, the limits and the keys of what the owner has besides its row.
//
// Columns are numbered as the client numbers them in its table of classes or teachers.
struct OwnerRecord {
    QLatin1StringView noun;  // in messages: "class", "teacher"
    QLatin1StringView table; // of the store
    // The store's column of each of the client's columns.
    std::span<const char* const> columnNames;
    int idColumn;
    int reserveColumn;           // never on the wire: stored empty, kept as it is on a change
    int accountColumn;           // the account an extra field of a single save sets up
    int maximum;                 // rows of the client's table
    QLatin1StringView lastIdKey; // the setting that holds the last ID given
    // Prefixes of the owner keys of the desktop positions ("K12") and favourites ("Groep12").
    QLatin1StringView positionsOwner;
    QLatin1StringView favouritesOwner;
    // A load sends a record as these columns joined by fieldSep.
    std::span<const int> loadOrder;
    // A single save (saveWord) sends these columns joined by itemSep, optionally followed by the
    // account extra; a delete is deleteWord + the ID.
    std::span<const int> saveOrder;
    QLatin1StringView saveWord;
    QLatin1StringView deleteWord;

    int columns() const { return int(columnNames.size()); }
};

inline constexpr const char* classColumnNames[] = {
    "naam",        "afkorting", "knopafbeelding", "achtergrond", "account", "wachtwoord", "id",
    "applicaties", "internet",  "reserve",        "thema",       "positie", "categorieen"};
// The ID first, so that a reader of the wire sees which record comes (the client drops it).
inline constexpr int classLoadOrder[] = {6, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
inline constexpr int classSaveOrder[] = {6, 0, 1, 2, 3, 4, 5, 7, 8, 10, 11, 12};

inline constexpr OwnerRecord classRecord{
    .noun = QLatin1StringView("class"),
    .table = QLatin1StringView("classes"),
    .columnNames = classColumnNames,
    .idColumn = 6,
    .reserveColumn = 9,
    .accountColumn = 4,
    .maximum = Store::maxClasses,
    .lastIdKey = QLatin1StringView("last_class_id"),
    .positionsOwner = QLatin1StringView("K"),
    .favouritesOwner = QLatin1StringView("Groep"),
    .loadOrder = classLoadOrder,
    .saveOrder = classSaveOrder,
    .saveWord = wire::OPSKLZ,
    .deleteWord = wire::VWNKLS,
};

inline constexpr const char* teacherColumnNames[] = {
    "achternaam",    "pictogram", "achtergrond", "account",
    "wachtwoord",    "id",        "voornaam",    "tussenvoegsel",
    "applicaties",   "internet",  "klasrechten", "beheerapplicaties",
    "beheerleraren", "reserve",   "thema",       "categorieen"};
// The categories stand before the theme on the wire.
inline constexpr int teacherLoadOrder[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 15, 14};
inline constexpr int teacherSaveOrder[] = {5, 0, 7, 6, 1, 2, 3, 4, 8, 9, 10, 11, 12, 15, 14};

inline constexpr OwnerRecord teacherRecord{
    .noun = QLatin1StringView("teacher"),
    .table = QLatin1StringView("teachers"),
    .columnNames = teacherColumnNames,
    .idColumn = 5,
    .reserveColumn = 13,
    .accountColumn = 3,
    .maximum = Store::maxTeachers,
    .lastIdKey = QLatin1StringView("last_teacher_id"),
    .positionsOwner = QLatin1StringView("L"),
    .favouritesOwner = QLatin1StringView("Leraar"),
    .loadOrder = teacherLoadOrder,
    .saveOrder = teacherSaveOrder,
    .saveWord = wire::OPSLRZ,
    .deleteWord = wire::VWNLRN,
};

} // namespace tk::server
