#pragma once

#include <QHash>
#include <QHostAddress>
#include <QString>

namespace tk::server {

// New connections per second from one address. A connection flood from one machine is closed
// at accept, before it costs a connection object, timers, log lines and a place in the event
// loop's descriptor set, while a school's workstations coming back together after a power cut
// pass: every address has a bucket of `burst` connections that refills at `perSecond` (200
// workstations behind one address fit in the default bucket twice over). What was closed is
// reported in one line per `reportMs`, never one per connection. Time is given by the caller,
// so that the rule is tested without waiting.
class SourceRateLimit {
public:
    struct Limits {
        int perSecond = 100; // 0: no limit
        int burst = 500;
        int reportMs = 10000;
    };

    explicit SourceRateLimit(const Limits& limits) : m_limits(limits) {}

    // The address a connection counts under: an IPv4 client of a listener on both families
    // comes as an IPv6-mapped address.
    static QHostAddress sourceOf(const QHostAddress& peer);

    // Whether a connection from `source` that came at `nowMs` may stay.
    bool admit(const QHostAddress& source, qint64 nowMs);
    // Once per report interval, a line about the connections closed since the last one; empty
    // when there is nothing to say or the interval has not passed. Forgets addresses whose
    // bucket is full again, so that the table holds only those that came lately.
    QString report(qint64 nowMs);
    qsizetype sources() const { return m_buckets.size(); }

private:
    struct Bucket {
        double tokens = 0;
        qint64 atMs = 0;
        qint64 refused = 0;
    };
    void refill(Bucket& b, qint64 nowMs) const;

    Limits m_limits;
    QHash<QHostAddress, Bucket> m_buckets;
    qint64 m_refused = 0;
    qint64 m_firstRefusedAt = 0;
    qint64 m_reportedAt = -1;
};

} // namespace tk::server
