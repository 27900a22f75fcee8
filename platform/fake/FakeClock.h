#pragma once

#include "platform/Clock.h"

namespace tk {

// A clock that moves only when told. With a step set, every read moves it on by that step, so a
// wait loop that polls the clock reaches its deadline after a bounded number of turns.
class FakeClock : public Clock {
public:
    qint64 msecsSinceStart() override {
        const qint64 now = m_msecs;
        m_msecs += m_step;
        return now;
    }
    QDateTime now() override { return m_start.addMSecs(m_msecs); }

    void advance(qint64 ms) { m_msecs += ms; }
    void setStepPerRead(qint64 ms) { m_step = ms; }
    void setNow(const QDateTime& start) { m_start = start.addMSecs(-m_msecs); }

private:
    qint64 m_msecs = 0;
    qint64 m_step = 0;
    QDateTime m_start{QDate(2026, 3, 9), QTime(8, 30, 0)};
};

} // namespace tk
