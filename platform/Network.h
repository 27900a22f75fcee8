#pragma once

#include <QString>

namespace tk {

// Reachability of a host (the role of an ICMP echo). The answer is a status code of the echo
// API: 0 "Online", 200 timed out, 11002/11003 unreachable, other codes as that API has them.
class Network {
public:
    virtual ~Network() = default;
    virtual int ping(const QString& adres, int timeoutMs) = 0;
    // This machine's host name, and its first IPv4 address that is not the loopback
    // ("127.0.0.1" when it has none).
    virtual QString hostName() = 0;
    virtual QString localAddress() = 0;
};

} // namespace tk
