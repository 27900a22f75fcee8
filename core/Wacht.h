#pragma once

#include <QtGlobal>
#include <functional>
#include <optional>

namespace tk {

class Clock;

// The one wait of the program: it runs the event loop until a condition holds, so that socket
// events, timers and clicks keep arriving. It also ends at a deadline of the injected clock
// (the 5-second tests) and, unless told otherwise, when the link to the server is lost.
class Wacht {
public:
    enum class Uitkomst { Voldaan, Verlopen, VerbindingVerloren, Gestopt };

    explicit Wacht(Clock& klok) : m_klok(klok) {}

    // `deadline` is a time of the clock (msecsSinceStart), not a duration. `verliezenBijBegin`:
    // losses counted before that value end the wait too (a request sent before the wait, whose
    // sending already lost the link, gets no answer to wait for).
    Uitkomst Tot(const std::function<bool()>& voorwaarde,
                 std::optional<qint64> deadline = std::nullopt, bool stopBijVerlies = true,
                 std::optional<quint64> verliezenBijBegin = std::nullopt);
    // Pumps for `ms` milliseconds of the clock.
    void Duur(qint64 ms);
    // One turn of the event loop without waiting (DoEvents).
    void Pomp();

    // The link layer calls this when the connection is lost; every wait that stops on loss ends.
    void VerbindingVerloren() { ++m_verliezen; }
    quint64 verliezen() const { return m_verliezen; }
    // The program ends: every wait returns at once, now and later.
    void Stop() { m_gestopt = true; }
    bool gestopt() const { return m_gestopt; }

private:
    Clock& m_klok;
    quint64 m_verliezen = 0;
    bool m_gestopt = false;
};

} // namespace tk
