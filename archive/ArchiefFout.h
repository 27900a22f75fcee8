#pragma once

#include "core/Fout.h"

#include <QString>

namespace tk {

// A fault of ucArchief. Every method of the control re-raises its faults with the one
// description "ucArchief component failure" and the source "Tafelkrater_SERVER.ucArchief.<method>";
// the cause follows on a line of its own, so that the log book keeps it.
class ArchiefFout : public Fout {
public:
    ArchiefFout(const QString& methode, const QString& oorzaak,
                SourceLocation plek = SourceLocation::current())
        : Fout(QStringLiteral("ucArchief component failure\r\n") + bronVan(methode) +
                   QStringLiteral(": ") + oorzaak,
               plek),
          m_bron(bronVan(methode)), m_oorzaak(oorzaak) {}

    static QString bronVan(const QString& methode) {
        return QStringLiteral("Tafelkrater_SERVER.ucArchief.") + methode;
    }
    // "Tafelkrater_SERVER.ucArchief.ExtractFile"
    const QString& bron() const { return m_bron; }
    const QString& oorzaak() const { return m_oorzaak; }

private:
    QString m_bron;
    QString m_oorzaak;
};

} // namespace tk
