#pragma once

#include "core/Fout.h"

#include "core/SourceLocation.h"
#include <QList>
#include <QString>
#include <QStringList>

namespace tk {

// A fixed two-dimensional table of strings, indexed by row then column, as the global tables of
// classes, teachers, categories and applications are. Its size never changes; an index past it
// is a checked fault (tk::Fout) that carries the caller's line.
class FixedTable {
public:
    FixedTable(int rijen, int kolommen)
        : m_rijen(rijen), m_kolommen(kolommen), m_cellen(qsizetype(rijen) * kolommen) {}

    int rijen() const { return m_rijen; }
    int kolommen() const { return m_kolommen; }

    QString& operator()(int rij, int kolom, SourceLocation plek = SourceLocation::current()) {
        return m_cellen[index(rij, kolom, plek)];
    }
    const QString& operator()(int rij, int kolom,
                              SourceLocation plek = SourceLocation::current()) const {
        return m_cellen[index(rij, kolom, plek)];
    }

    // A row is free when its first column is empty.
    bool vrij(int rij, SourceLocation plek = SourceLocation::current()) const {
        return (*this)(rij, 0, plek).isEmpty();
    }
    // The number of rows before the first free one.
    int gebruikt() const {
        int n = 0;
        while (n < m_rijen && !vrij(n))
            ++n;
        return n;
    }
    QStringList rij(int rij, SourceLocation plek = SourceLocation::current()) const {
        controleerIndex(rij, m_rijen, plek);
        return QStringList(m_cellen.begin() + qsizetype(rij) * m_kolommen,
                           m_cellen.begin() + qsizetype(rij + 1) * m_kolommen);
    }
    void leegmaken() { m_cellen.fill(QString()); }

    bool operator==(const FixedTable& ander) const = default;

private:
    qsizetype index(int rij, int kolom, const SourceLocation& plek) const {
        controleerIndex(rij, m_rijen, plek);
        controleerIndex(kolom, m_kolommen, plek);
        return qsizetype(rij) * m_kolommen + kolom;
    }

    int m_rijen;
    int m_kolommen;
    QList<QString> m_cellen;
};

} // namespace tk
