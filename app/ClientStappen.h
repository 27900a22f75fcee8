#pragma once

#include "core/OpstartStappen.h"

namespace tk {

class Programma;

// The start-up steps of the client as far as the layers exist: the launcher, the local server,
// the theme, the connection. What the start screen and the take-over will do is written to the
// log book until those screens exist.
class ClientStappen : public OpstartStappen {
public:
    explicit ClientStappen(Programma& p) : p(p) {}

    bool StuurOpstartCommando(const QString& woord) override;
    void StartServer(bool firewall) override;
    void LaadThema() override;
    void StartVerbinding(bool opnieuw) override;
    void OpenGlobal(bool) override;
    void OpenGroep(const QString& id) override;
    void OpenLeraar(const QString& id) override;
    void OpenOnderhoud() override;
    void OpenFout(const QString& tekst) override;

private:
    void meld(const QString& wat);
    Programma& p;
};

} // namespace tk
