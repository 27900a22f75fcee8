#pragma once

#include "Keuze.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tk {

// The texts of the settings and server panels that come from outside the panel: the language
// rows of the string table, the server's settings answer and its list of backups. Pure functions,
// so that they are tested as tables and fuzzed.
class InstellingenTeksten {
public:
    using Keuze = tk::Keuze;
    // The rows of the language table in the string table.
    static constexpr int EersteTaalRij = 10, LaatsteTaalRij = 49;
    // The language list from those rows, up to the first empty one. A row "1043|Nederlands"
    // gives the text "Nederlands" with the data "1043" (the locale id is the number, on either
    // side of the "|"); a row without "|" is shown as it stands and has no data.
    static QList<Keuze> taalLijst(const QStringList& rijen);

    // The answer to LDNSIN: version, automatic update, beta and, from a newer server, more
    // fields of which the last names its store.
    struct ServerInstellingen {
        QString versie;
        bool automatisch = false;
        bool beta = false;
        QString module; // lower-cased; empty from an older server
    };
    static ServerInstellingen serverInstellingen(const QString& antwoord);
    // The payload of OPSSIN.
    static QString opslaanServer(bool automatisch, bool beta);

    // The backups of a BCKLST answer in their readable form; blank names and a bare extension
    // are left out.
    static QStringList backups(const QString& antwoord);
    // "5-3-2024 14.07.09.backup" reads "5-3-2024 14:07:09", and back.
    static QString leesbaar(const QString& bestand);
    static QString bestandsnaam(const QString& leesbaar);
};

} // namespace tk
