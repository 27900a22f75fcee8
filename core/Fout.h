#pragma once

#include "core/SourceLocation.h"
#include <QString>
#include <exception>

namespace tk {

// A run-time fault of a procedure: what happened and the line where it happened. Thrown inside a
// procedure and caught by its guard (Procedure.h), never across one.
class Fout : public std::exception {
public:
    explicit Fout(QString omschrijving, SourceLocation plek = SourceLocation::current())
        : m_omschrijving(std::move(omschrijving)), m_lijn(int(plek.line())) {}

    const QString& omschrijving() const { return m_omschrijving; }
    int lijn() const { return m_lijn; }
    const char* what() const noexcept override { return "Tafelkrater fault"; }

private:
    QString m_omschrijving;
    int m_lijn;
};

// The checked form of a table index: a fault that the caller's guard reports, with the caller's
// line, instead of a read past the end.
inline void controleerIndex(qsizetype index, qsizetype grootte,
                            SourceLocation plek = SourceLocation::current()) {
    if (index < 0 || index >= grootte)
        throw Fout(QStringLiteral("Subscript out of range (%1 of %2)").arg(index).arg(grootte),
                   plek);
}

} // namespace tk
