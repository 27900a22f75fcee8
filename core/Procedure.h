#pragma once

#include "core/Fout.h"

#include <QString>
#include <exception>
#include <new>
#include <utility>

namespace tk {

class Programma;

// Hands a caught fault to the reporter (modMain.Foutmelding). Never throws.
void meldProcedureFout(Programma& p, const char* procedure, const QString& omschrijving,
                       const QString& lijn, bool stil) noexcept;

// The guard of a named procedure: runs the body, catches every fault it raises and reports it
// with the procedure's own name ("modMain.LaadTaal"), so that no exception crosses a procedure.
// Returns the body's result, or `bijFout` when it failed.
template <class R, class Body>
R Procedure(Programma& p, const char* naam, R bijFout, Body&& body, bool stil = false) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (const Fout& f) {
        meldProcedureFout(p, naam, f.omschrijving(), QString::number(f.lijn()), stil);
    } catch (const std::bad_alloc&) {
        meldProcedureFout(p, naam, QStringLiteral("Out of memory"), QStringLiteral("-"), stil);
    } catch (const std::exception& e) {
        meldProcedureFout(p, naam, QString::fromLocal8Bit(e.what()), QStringLiteral("-"), stil);
    } catch (...) {
        meldProcedureFout(p, naam, QStringLiteral("Unknown fault"), QStringLiteral("-"), stil);
    }
    return bijFout;
}

// The same for a procedure without a result: true when the body ran to its end.
template <class Body>
bool Procedure(Programma& p, const char* naam, Body&& body, bool stil = false) noexcept {
    return Procedure<bool>(
        p, naam, false,
        [&]() {
            std::forward<Body>(body)();
            return true;
        },
        stil);
}

} // namespace tk
