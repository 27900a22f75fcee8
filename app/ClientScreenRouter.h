#pragma once

#include "screens/ScreenRouter.h"

#include <QPointer>
#include <QWidget>
#include <memory>

namespace tk {

class BrowserLader;
class ClientStartSteps;
class FrmBureaubladView;
class FrmOnderhoudView;
class FrmTaakbalk2View;

// The ways between the screens with their windows: a class click or a teacher's login opens
// frmBureaublad with its view and the desktop's taskbar (with the logging-in window while it
// loads) and hides the start screen; a log-off takes the desktop's windows away and shows the
// start screen again. The maintenance module's window comes over the start screen or over the
// teacher's desktop, and its log-off gives that screen back.
class ClientScreenRouter : public ScreenRouter {
public:
    // The browser comes from `browser`'s plugin, loaded when a desktop first opens it.
    ClientScreenRouter(Programma& p, ClientStartSteps& startscherm, BrowserLader& browser);
    ~ClientScreenRouter() override;

    void openBureaublad(int soort, const QString& id) override;
    void bureaubladVerlaten() override;
    // The internet pane over the desktop, made at its first opening with the lists loaded at
    // login and the owner's favourites; it goes at log off with its profile. Without the browser
    // plugin the log book says why and the answer is false (the desktop tells the user).
    bool openInternet() override;
    void internetVerbergen() override;
    bool openOnderhoudsmodule(int leraar, const QList<int>& klassen) override;
    // Hides the client's visible top-level windows but frmWindows, or shows those again.
    void vensters(bool zichtbaar) override;

private:
    QList<QPointer<QWidget>> m_verborgen;
    void maakVensters();
    ClientStartSteps& m_startscherm;
    std::unique_ptr<FrmBureaubladView> m_view;
    std::unique_ptr<FrmTaakbalk2View> m_balk;
    BrowserLader& m_browserLader;
    std::unique_ptr<QWidget> m_browser;
    std::unique_ptr<FrmOnderhoudView> m_onderhoud;
};

} // namespace tk
