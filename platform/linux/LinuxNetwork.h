#pragma once

#include "platform/Network.h"

namespace tk {

// Without root there is no ICMP socket, so a host counts as reachable when it answers a TCP
// connection to its web port, be it with an accept or a refusal.
class LinuxNetwork : public Network {
public:
    int ping(const QString& adres, int timeoutMs) override;
    QString hostName() override;
    QString localAddress() override;
};

} // namespace tk
