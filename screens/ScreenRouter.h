#pragma once

#include "core/ScreenSwitches.h"

namespace tk {

class ModMainOnderhoud;
class Programma;

// The ways between the screens as the models take them: a class or teacher opens the desktop,
// a desktop that logs off gives the school's theme and the start screen back, and the
// administrator or a teacher enters the maintenance module. The browser's pane is a window, so
// the client's composition root adds it (here it answers false, and the screen that asked says
// so), with the other windows of these ways.
class ScreenRouter : public ScreenSwitches {
public:
    explicit ScreenRouter(Programma& p);

    void openBureaublad(int soort, const QString& id) override;
    void bureaubladVerlaten() override;
    bool openOnderhoudsmodule(int leraar, const QList<int>& klassen) override;
    bool ControleerAanwezigOnderhoudsmodule(bool stil) override;
    void onderhoudVerzoek(bool gevraagd) override;
    bool openInternet() override;
    bool openElders(const QString& woord) override;

protected:
    // frmOnderhoud made and loaded once.
    void maakOnderhoud();
    // The module's handshake with other workstations, made when first asked for.
    ModMainOnderhoud& modMainOnderhoud();
    Programma& p;
};

} // namespace tk
