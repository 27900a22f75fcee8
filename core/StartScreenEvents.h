#pragma once

#include <QString>
#include <QtGlobal>

namespace tk {

// What the other parts ask of the start screen: the link, the load and the theme and icon fetches
// show their progress on its loading bar, bring its window up and redraw its taskbar, and pass on
// the maintenance module's handshake; the taskbars and the close options open it for everyone, a
// class or a teacher. The start screen implements it; the client's composition root hands it to
// Programma, and a client started without one refuses to start.
class StartScreenEvents {
public:
    virtual ~StartScreenEvents() = default;

    // frmMain.LaadLaadbalkLaden and frmMain.LaadLaadbalkUpdate: the loading bar at the theme's
    // loading or update place, for the theme and icon fetches.
    virtual void LaadLaadbalkLaden() = 0;
    virtual void LaadLaadbalkUpdate() = 0;
    // The load's progress (modData's Laadbalk values) changed.
    virtual void laadbalkGewijzigd() = 0;
    // An upload's progress, and a download's while the loading bar follows it.
    virtual void verzendVoortgang(qint64 totaal, qint64 verzonden) = 0;
    virtual void ontvangstVoortgang(qint64 ontvangen, qint64 totaal) = 0;
    // The start screen's window comes up (the connection starts or is lost).
    virtual void hoofdvensterTonen() = 0;
    // The link came or went: the taskbar's account buttons follow.
    virtual void taakbalkHertekenen() = 0;
    // Another user asks for the maintenance module (INFONA), or withdrew that (INFONC).
    virtual void onderhoudGevraagd() = 0;
    virtual void onderhoudVraagIngetrokken() = 0;

    // frmMain's procedures for the taskbars and the close options: an account button of the
    // start-screen taskbar, and the start screen for everyone, for a class or for a teacher.
    virtual void AccountKlik(int soort) = 0;
    virtual void OpenGlobal(bool eerste) = 0;
    virtual void OpenGroep(const QString& id) = 0;
    virtual void OpenLeraar(const QString& id) = 0;
};

} // namespace tk
