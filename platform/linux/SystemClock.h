#pragma once

#include "platform/Clock.h"

#include <QElapsedTimer>

namespace tk {

class SystemClock : public Clock {
public:
    SystemClock() { m_timer.start(); }
    qint64 msecsSinceStart() override { return m_timer.elapsed(); }
    QDateTime now() override { return QDateTime::currentDateTime(); }

private:
    QElapsedTimer m_timer;
};

} // namespace tk
