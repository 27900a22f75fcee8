#pragma once

#include <QString>
#include <functional>
#include <memory>

namespace tk {

class FrmBureaubladView;
class FrmTaakbalk2View;
class Programma;

// The way from the start screen to a desktop and back: opens frmBureaublad with its view and
// the desktop's taskbar when the start screen asks for a class's or teacher's desktop (with the
// logging-in window while it loads), and shows the start screen again after log-off.
class BureaubladStappen {
public:
    // `toonStartscherm` and `verbergStartscherm` show and hide the start screen's window.
    BureaubladStappen(Programma& p, std::function<void()> toonStartscherm,
                      std::function<void()> verbergStartscherm);
    ~BureaubladStappen();

    // soort 0 a class, 1 a teacher (by ID), 2 the teachers' list.
    void openen(int soort, const QString& id);
    // After frmBureaublad.Afmelden: the desktop's windows go, the start screen comes.
    void verlaten();

private:
    void maakVensters();
    Programma& p;
    std::function<void()> m_toonStartscherm;
    std::function<void()> m_verbergStartscherm;
    std::unique_ptr<FrmBureaubladView> m_view;
    std::unique_ptr<FrmTaakbalk2View> m_balk;
};

} // namespace tk
