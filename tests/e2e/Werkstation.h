#pragma once

#include "tests/support/Werkplek.h"

#include <QByteArray>
#include <QString>

namespace tk::test {

// A workstation with the link, pointed at a server on this machine: the mode, the location in
// its settings, and a fake clock that moves on each read so that the 5-second tests pass fast.
struct Werkstation {
    explicit Werkstation(quint16 poort, bool beheer = true);
    // Connects, tests the link and identifies the client.
    bool verbind();
    // A request of class A and its answer.
    QString vraag(const QString& bericht);
    // Uploads an application icon of a kind ("k", "l", "a") as the maintenance module does.
    bool stuurIcoon(const QString& soort, const QString& id, const QByteArray& inhoud);

    Werkplek w;
};

} // namespace tk::test
