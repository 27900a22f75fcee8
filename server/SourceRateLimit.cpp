#include "SourceRateLimit.h"

#include <QList>
#include <algorithm>

namespace tk::server {

void SourceRateLimit::refill(Bucket& b, qint64 nowMs) const {
    if (nowMs > b.atMs) {
        b.tokens = std::min<double>(m_limits.burst,
                                    b.tokens + double(nowMs - b.atMs) * m_limits.perSecond / 1000);
        b.atMs = nowMs;
    }
}

QHostAddress SourceRateLimit::sourceOf(const QHostAddress& peer) {
    bool v4 = false;
    const quint32 ipv4 = peer.toIPv4Address(&v4);
    return v4 ? QHostAddress(ipv4) : peer;
}

bool SourceRateLimit::admit(const QHostAddress& source, qint64 nowMs) {
    if (m_limits.perSecond <= 0)
        return true;
    const QHostAddress key = sourceOf(source);
    auto it = m_buckets.find(key);
    if (it == m_buckets.end())
        it = m_buckets.insert(key, Bucket{double(m_limits.burst), nowMs, 0});
    refill(*it, nowMs);
    if (it->tokens >= 1) {
        it->tokens -= 1;
        return true;
    }
    ++it->refused;
    if (m_refused++ == 0)
        m_firstRefusedAt = nowMs;
    return false;
}

QString SourceRateLimit::report(qint64 nowMs) {
    // The first closing after a quiet time is reported at once, the rest once per interval.
    if (m_reportedAt >= 0 && nowMs - m_reportedAt < m_limits.reportMs)
        return {};
    QList<QPair<qint64, QHostAddress>> worst;
    for (auto it = m_buckets.begin(); it != m_buckets.end();) {
        if (it->refused > 0)
            worst.append({it->refused, it.key()});
        it->refused = 0;
        refill(*it, nowMs);
        if (it->tokens >= m_limits.burst)
            it = m_buckets.erase(it);
        else
            ++it;
    }
    if (m_refused == 0)
        return {};
    m_reportedAt = nowMs;
    std::sort(worst.begin(), worst.end(),
              [](const auto& a, const auto& b) { return a.first > b.first; });
    QStringList names;
    for (qsizetype i = 0; i < std::min<qsizetype>(3, worst.size()); ++i)
        names << QStringLiteral("%1 from %2").arg(worst[i].first).arg(worst[i].second.toString());
    if (worst.size() > 3)
        names << QStringLiteral("the rest from %1 more addresses").arg(worst.size() - 3);
    const QString line =
        QStringLiteral("connection flood: closed %1 new connections at accept in %2 s (%3); "
                       "allowed are %4 a second from one address, %5 at once")
            .arg(m_refused)
            .arg(double(nowMs - m_firstRefusedAt) / 1000, 0, 'f', 1)
            .arg(names.join(QStringLiteral(", ")))
            .arg(m_limits.perSecond)
            .arg(m_limits.burst);
    m_refused = 0;
    return line;
}

} // namespace tk::server
