#pragma once

#include <QString>

namespace tk {

class Programma;

// The test of the internet connection: an echo of the configured web server's host.
class ModInternet {
public:
    explicit ModInternet(Programma& p) : p(p) {}
    // The text of the status of one echo ("Online", "Ping timed out", ...).
    QString Ping(const QString& adres);
    // Echoes the web server until "Online" or until `seconden` have passed.
    bool ControleerInternet(int seconden);
    static QString StatusTekst(int code);
    // The host of the web address in the settings ("Webadres"), or empty.
    QString WebHost();

private:
    Programma& p;
};

} // namespace tk
