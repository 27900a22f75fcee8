#pragma once

#include <QList>
#include <QLockFile>

#include <memory>
#include <vector>

namespace tk::test {

// Ports for what must be named before anything listens on them (the client's transfer ports,
// which the server is told at its start). Whatever can listen on port 0 does so instead; these
// are taken below the range the system hands out for port 0, so that nothing listening on port 0
// can take them between the check and the use, and each is held by a lock file for the life of
// this object, so that tests running at the same time never share one.
class FreePorts {
public:
    explicit FreePorts(int count);
    // Empty when no ports could be found.
    const QList<quint16>& ports() const { return m_ports; }

private:
    std::vector<std::unique_ptr<QLockFile>> m_locks;
    QList<quint16> m_ports;
};

} // namespace tk::test
