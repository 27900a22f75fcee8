#pragma once

#include "ClientScreenRouter.h"
#include "ClientStartSteps.h"
#include "GuiDialogs.h"
#include "screens/browser/BrowserLader.h"

#include <QStringList>
#include <memory>

namespace tk {

class FrmAanmeldenView;
class FrmAfmeldenView;
class FrmOnderhoudVraagView;
class FrmWachtenView;
class FrmWindowsView;
class TaakbalkToetsen;
class Programma;

// The client's composition root: makes every module and form of the client in Programma, with
// the views of the windows any screen may open, and hands every interface a lower layer asks of
// a higher one to its implementation, all in this one place. unwired() names what is still
// missing; the client refuses to start while it names anything.
class ClientAssembly {
public:
    // `browserPlugin`: the file of the browser plugin, loaded when a desktop first opens it.
    explicit ClientAssembly(Programma& p,
                            const QString& browserPlugin = BrowserLader::naastProgramma());
    ~ClientAssembly();
    ClientAssembly(const ClientAssembly&) = delete;
    ClientAssembly& operator=(const ClientAssembly&) = delete;

    QStringList unwired() const;
    ClientStartSteps& stappen() { return m_stappen; }

private:
    Programma& p;
    GuiDialogs m_dialogen;
    ClientStartSteps m_stappen;
    BrowserLader m_browser;
    ClientScreenRouter m_schermen;
    std::unique_ptr<FrmWachtenView> m_wachten;
    std::unique_ptr<FrmAanmeldenView> m_aanmelden;
    std::unique_ptr<FrmAfmeldenView> m_afmelden;
    std::unique_ptr<FrmWindowsView> m_windows;
    std::unique_ptr<TaakbalkToetsen> m_toetsen;
    std::unique_ptr<FrmOnderhoudVraagView> m_onderhoudVraag;
};

} // namespace tk
