#pragma once

#include "platform/Network.h"

#include <QHash>
#include <QStringList>

namespace tk {

// Answers each address with the status set for it (11003 for an unknown one) and records it.
class FakeNetwork : public Network {
public:
    int ping(const QString& adres, int) override {
        gepingd.append(adres);
        return status.value(adres, 11003);
    }
    QString hostName() override { return QStringLiteral("lokaal-12"); }
    QString localAddress() override { return QStringLiteral("127.0.0.1"); }
    QHash<QString, int> status;
    QStringList gepingd;
};

} // namespace tk
