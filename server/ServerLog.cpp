#include "ServerLog.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QTimer>
#include <cstdio>
#include <cstring>

namespace tk::server {

namespace {

// The moment as "yyyy-MM-dd hh:mm:ss.zzz ". The local date and time are worked out once a second
// (that is the slow part); the milliseconds are added to them. Plain characters, not a QByteArray:
// a line logged by an object that static destruction ends (a server kept in a static) must not
// meet a cache that was destroyed before it.
QByteArray stamp() {
    static qint64 second = -1;
    static char prefix[32];
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    if (now / 1000 != second) {
        second = now / 1000;
        const QByteArray text = QDateTime::fromMSecsSinceEpoch(second * 1000)
                                    .toString(QStringLiteral("yyyy-MM-dd hh:mm:ss."))
                                    .toUtf8()
                                    .left(sizeof prefix - 1);
        std::memcpy(prefix, text.constData(), size_t(text.size()));
        prefix[text.size()] = '\0';
    }
    char line[48];
    std::snprintf(line, sizeof line, "%s%03d ", prefix, int(now % 1000));
    return QByteArray(line);
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
