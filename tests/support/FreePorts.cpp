#include "FreePorts.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTcpServer>

namespace tk::test {

namespace {

// The lowest port the system hands out for port 0.
int firstEphemeralPort() {
    QFile range(QStringLiteral("/proc/sys/net/ipv4/ip_local_port_range"));
    const int low =
        range.open(QIODevice::ReadOnly) ? range.readAll().simplified().split(' ')[0].toInt() : 0;
    return low > 2048 ? low : 32768;
}

} // namespace

FreePorts::FreePorts(int count) {
    const int high = firstEphemeralPort();
    const int low = high - 10000;
    const QString folder = QDir::temp().filePath(QStringLiteral("tafelkrater-test-ports"));
    QDir().mkpath(folder);
    int port = low + int(QRandomGenerator::global()->bounded(high - low));
    for (int tried = 0; tried < high - low && m_ports.size() < count; ++tried) {
        port = port + 1 < high ? port + 1 : low;
        auto lock = std::make_unique<QLockFile>(folder + QStringLiteral("/%1.lock").arg(port));
        if (!lock->tryLock(0))
            continue;
        QTcpServer probe;
        if (!probe.listen(QHostAddress::Any, quint16(port)))
            continue;
        m_ports << quint16(port);
        m_locks.push_back(std::move(lock));
    }
    if (m_ports.size() < count) {
        m_ports.clear();
        m_locks.clear();
    }
}

} // namespace tk::test
