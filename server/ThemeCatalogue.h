#pragma once

#include <QList>
#include <QString>
#include <optional>

namespace tk::server {

// The themes a school can add to what its server offers its clients: each a theme folder in the
// catalogue folder, named by the theme's ID, with the theme's Instellingen.ini ([Algemeen]
// Naam, Omschrijving, Versie, and Kosten, "0.00" when absent). Read at each question; read-only.
class ThemeCatalogue {
public:
    struct Entry {
        QString id;
        QString naam;
        QString omschrijving;
        QString kosten;
        QString versie;
        QString folder;
    };

    explicit ThemeCatalogue(const QString& folder = QString()) : m_folder(folder) {}
    QString folder() const { return m_folder; }
    QList<Entry> entries() const;
    std::optional<Entry> entry(const QString& id) const;
    // A theme ID: a number, as the workstations' theme folders are named. A letter could not
    // follow the package request's word: "LDNTH" + "V..." would read as a removal, "O..." as
    // an addition, "D" and "E" as the lists.
    static bool isThemeId(const QString& id);

private:
    std::optional<Entry> read(const QString& id) const;
    QString m_folder;
};

} // namespace tk::server
