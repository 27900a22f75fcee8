#pragma once

#include "screens/ScreenRouter.h"

#include <memory>

namespace tk {

class ClientStartSteps;
class FrmBureaubladView;
class FrmTaakbalk2View;

// The ways between the screens with their windows: a class click or a teacher's login opens
// frmBureaublad with its view and the desktop's taskbar (with the logging-in window while it
// loads) and hides the start screen; a log-off takes the desktop's windows away and shows the
// start screen again.
class ClientScreenRouter : public ScreenRouter {
public:
    ClientScreenRouter(Programma& p, ClientStartSteps& startscherm);
    ~ClientScreenRouter() override;

    void openBureaublad(int soort, const QString& id) override;
    void bureaubladVerlaten() override;

private:
    void maakVensters();
    ClientStartSteps& m_startscherm;
    std::unique_ptr<FrmBureaubladView> m_view;
    std::unique_ptr<FrmTaakbalk2View> m_balk;
};

} // namespace tk
