#pragma once

#include <QList>
#include <QString>

namespace tk {

// The ways from one screen to another, connected by the client's composition root: the start
// screen opens a class's or a teacher's desktop, a desktop that logs off gives the screen back,
// and the start screen, the desktop and the taskbar open the parts that live elsewhere (the
// maintenance module, the browser). A part that is not on this workstation yet answers false, and
// the screen that asked shows the system's message that says so.
class ScreenSwitches {
public:
    virtual ~ScreenSwitches() = default;

    // soort 0 a class, 1 a teacher (by ID), 2 the teachers' list.
    virtual void openBureaublad(int soort, const QString& id) = 0;
    // After frmBureaublad.Afmelden: the desktop's windows go, the start screen comes.
    virtual void bureaubladVerlaten() = 0;
    // The maintenance module for the administrator (leraar -1) or for a teacher with the rows of
    // the classes the teacher may manage.
    virtual bool openOnderhoudsmodule(int leraar, const QList<int>& klassen) = 0;
    // modMain.ControleerAanwezigOnderhoudsmodule: true when somebody else is in the module.
    virtual bool ControleerAanwezigOnderhoudsmodule(bool stil) = 0;
    // Another workstation asks for the maintenance module this one has open (true), or no
    // longer asks (false).
    virtual void onderhoudVerzoek(bool gevraagd) = 0;
    // The internet pane of the desktop.
    virtual bool openInternet() = 0;
    // The desktop comes to the front again: the internet pane (when there is one) hides, its tabs
    // kept.
    virtual void internetVerbergen() {}
    // A taskbar button whose screen belongs to another part ("help", "onderhoud_bureaublad"...).
    virtual bool openElders(const QString& woord) = 0;
    // The stay on the system's desktop: every window of the client hides (false), or the hidden
    // ones come back (true).
    virtual void vensters(bool zichtbaar) { (void)zichtbaar; }
};

} // namespace tk
