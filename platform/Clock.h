#pragma once

#include <QDateTime>

namespace tk {

// The clock every wait and every date of the program reads. Tests inject a fake one, so that a
// 5-second deadline or a 500 ms retry passes without sleeping.
class Clock {
public:
    virtual ~Clock() = default;
    // Milliseconds of a monotonic counter (the role of GetTickCount).
    virtual qint64 msecsSinceStart() = 0;
    // The local wall time, for dates in files and reports.
    virtual QDateTime now() = 0;
};

} // namespace tk
