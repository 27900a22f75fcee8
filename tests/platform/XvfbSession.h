#pragma once

#include <QByteArray>
#include <QProcess>
#include <QSize>
#include <QString>
#include <QTemporaryDir>

#include <xcb/xcb.h>

#include <memory>
#include <vector>

namespace tk::test {

// An X server of its own for a test (Xvfb on a free display), with openbox managing it unless
// asked otherwise, and one xcb connection of the test's own that stays open for the session's
// length. Everything is taken down again by the destructor.
class XvfbSession {
public:
    // Whether Xvfb and openbox are installed; without them X tests are skipped.
    static bool installed();

    explicit XvfbSession(QSize screen = QSize(1280, 1024), bool withWindowManager = true);
    ~XvfbSession();
    XvfbSession(const XvfbSession&) = delete;
    XvfbSession& operator=(const XvfbSession&) = delete;

    // False with a reason when the server or the manager did not come up.
    bool ok() const { return m_why.isEmpty(); }
    QString why() const { return m_why; }
    QByteArray display() const { return m_display; }

    xcb_connection_t* connection() const { return m_connection; }
    xcb_window_t root() const;
    xcb_atom_t atom(const char* name) const;
    // A window's property of 32-bit items (cardinals, atoms, windows); empty when it is missing
    // or of another format.
    std::vector<uint32_t> property(xcb_window_t window, const char* name,
                                   xcb_atom_t type = XCB_GET_PROPERTY_TYPE_ANY) const;

    // Starts an X program on this display; it is ended with the session at the latest.
    QProcess* startProgram(const QString& program, const QStringList& arguments = {});
    // Ends the X server at once (the manager follows), as a display that goes away.
    void killServer();
    // Maps a window of the test's own and waits until the manager lists it: what any client sent
    // the server before (after Qt's events ran) has then been handled by the manager as well.
    bool windowManagerCaughtUp(int ms = 30000) const;

private:
    void start(QSize screen, bool withWindowManager);
    void stop();
    bool windowManagerRuns() const;

    QTemporaryDir m_home;
    QProcess m_xvfb;
    QProcess m_openbox;
    std::vector<std::unique_ptr<QProcess>> m_programs;
    QByteArray m_display;
    xcb_connection_t* m_connection = nullptr;
    QString m_why;
};

} // namespace tk::test
