#pragma once

#include <QString>

namespace tk {

// A server location as the settings file keeps it and an administrator types it: "host" or
// "host:port". One reading for every place that splits one, so that the start-up, the network
// dialog and the server panel agree on which server is meant.
struct Serverlocatie {
    static constexpr long StandaardPoort = 34487;
    QString host;
    long poort = StandaardPoort;

    // Blanks around host and port are dropped; a port that is absent or not a number in
    // 1..65535 is the standard port.
    static Serverlocatie lees(const QString& tekst);
    // "host:port", the port always written.
    static QString tekst(const QString& host, long poort);
};

} // namespace tk
