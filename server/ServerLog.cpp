#include "ServerLog.h"

#include <QDateTime>
#include <cstdio>

namespace tk::server {

void ServerLog::line(const QString& text) {
    const QByteArray out =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz ")).toUtf8() +
        text.toUtf8() + '\n';
    std::fwrite(out.constData(), 1, size_t(out.size()), stdout);
    std::fflush(stdout);
}

void ServerLog::fault(const QString& where, const QString& what) {
    line(QStringLiteral("FAULT %1: %2").arg(where, what));
}

} // namespace tk::server
