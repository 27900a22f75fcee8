#include "ServerLog.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QTimer>
#include <cstdio>

namespace tk::server {

namespace {

// The moment as "yyyy-MM-dd hh:mm:ss.zzz ". The local date and time are worked out once a second
// (that is the slow part); the milliseconds are added to them.
QByteArray stamp() {
    static qint64 second = -1;
    static QByteArray prefix;
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    if (now / 1000 != second) {
        second = now / 1000;
        prefix = QDateTime::fromMSecsSinceEpoch(second * 1000)
                     .toString(QStringLiteral("yyyy-MM-dd hh:mm:ss."))
                     .toUtf8();
    }
    char millis[8];
    std::snprintf(millis, sizeof millis, "%03d ", int(now % 1000));
    return prefix + millis;
}

bool flushPending = false;

} // namespace

void ServerLog::line(const QString& text) {
    const QByteArray out = stamp() + text.toUtf8() + '\n';
    std::fwrite(out.constData(), 1, size_t(out.size()), stdout);
    // The lines of one turn of the event loop go out together at its end: a flood of connections
    // writes one block a turn instead of one per line.
    if (!QCoreApplication::instance()) {
        std::fflush(stdout);
        return;
    }
    if (!flushPending) {
        flushPending = true;
        QTimer::singleShot(0, QCoreApplication::instance(), [] {
            flushPending = false;
            std::fflush(stdout);
        });
    }
}

void ServerLog::fault(const QString& where, const QString& what) {
    line(QStringLiteral("FAULT %1: %2").arg(where, what));
}

} // namespace tk::server
