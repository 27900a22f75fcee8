#include "XvfbSession.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QThread>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace tk::test {

namespace {

QProcessEnvironment environmentFor(const QByteArray& display, const QString& home) {
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(display));
    env.insert(QStringLiteral("HOME"), home);
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), home + QStringLiteral("/.config"));
    return env;
}

} // namespace

bool XvfbSession::installed() {
    return !QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty() &&
           !QStandardPaths::findExecutable(QStringLiteral("openbox")).isEmpty();
}

XvfbSession::XvfbSession(QSize screen, bool withWindowManager) {
    // On a loaded machine a pair now and then does not come up (a display another server still
    // holds, a manager that cannot open it): a fresh pair is tried before the tests fail.
    for (int attempt = 1; attempt <= 3; ++attempt) {
        m_why.clear();
        start(screen, withWindowManager);
        if (ok())
            return;
        m_why = QStringLiteral("attempt %1: ").arg(attempt) + m_why;
        stop();
    }
}

void XvfbSession::start(QSize screen, bool withWindowManager) {
    // -displayfd 1: Xvfb picks a free display and writes its number to its output once it
    // accepts connections.
    // What the server says goes to a file: a pipe nobody reads would fill up and stop it.
    m_xvfb.setStandardErrorFile(m_home.filePath(QStringLiteral("Xvfb.log")));
    m_xvfb.start(QStringLiteral("Xvfb"),
                 {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                  QStringLiteral("0"),
                  QStringLiteral("%1x%2x24").arg(screen.width()).arg(screen.height()),
                  QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    if (!m_xvfb.waitForStarted(5000)) {
        m_why = QStringLiteral("Xvfb does not start");
        return;
    }
    // Generous: on a loaded machine the server and the manager take their time, and a session that
    // does not come up fails its tests.
    QDeadlineTimer deadline(60000);
    QByteArray number;
    while (!number.endsWith('\n')) {
        if (deadline.hasExpired() || m_xvfb.state() != QProcess::Running) {
            QFile log(m_home.filePath(QStringLiteral("Xvfb.log")));
            log.open(QIODevice::ReadOnly);
            m_why =
                QStringLiteral("Xvfb names no display: ") + QString::fromLocal8Bit(log.readAll());
            return;
        }
        m_xvfb.waitForReadyRead(100);
        number += m_xvfb.readAllStandardOutput();
    }
    m_display = ':' + number.trimmed();
    m_connection = xcb_connect(m_display.constData(), nullptr);
    if (xcb_connection_has_error(m_connection)) {
        m_why = QStringLiteral("no connection to ") + QString::fromLatin1(m_display);
        return;
    }
    if (!withWindowManager)
        return;

    m_openbox.setProcessEnvironment(environmentFor(m_display, m_home.path()));
    m_openbox.setStandardOutputFile(QProcess::nullDevice());
    m_openbox.setStandardErrorFile(m_home.filePath(QStringLiteral("openbox.log")));
    m_openbox.start(QStringLiteral("openbox"), {});
    // The manager names itself before it is ready to take windows: one mapped in between is
    // never managed. Ready is when a window of ours shows up in its list.
    while (!windowManagerRuns() || !windowManagerCaughtUp(500)) {
        // Waiting on the process (not sleeping) lets a manager that ended be seen at once.
        if (deadline.hasExpired() || m_openbox.state() == QProcess::NotRunning ||
            m_openbox.waitForFinished(10)) {
            m_why = QStringLiteral("openbox does not come up");
            return;
        }
    }
}

bool XvfbSession::windowManagerCaughtUp(int ms) const {
    xcb_connection_t* c = m_connection;
    const xcb_screen_t* s = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
    const xcb_window_t probe = xcb_generate_id(c);
    xcb_create_window(c, XCB_COPY_FROM_PARENT, probe, s->root, 0, 0, 10, 10, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, s->root_visual, 0, nullptr);
    xcb_map_window(c, probe);
    xcb_flush(c);
    const xcb_atom_t clientList = atom("_NET_CLIENT_LIST");
    bool managed = false;
    QDeadlineTimer deadline(ms);
    while (!managed && !deadline.hasExpired()) {
        xcb_get_property_reply_t* reply = xcb_get_property_reply(
            c, xcb_get_property(c, 0, s->root, clientList, XCB_ATOM_WINDOW, 0, 1024), nullptr);
        if (reply) {
            const auto* w = static_cast<const xcb_window_t*>(xcb_get_property_value(reply));
            const int n = xcb_get_property_value_length(reply) / 4;
            managed = std::find(w, w + n, probe) != w + n;
        }
        std::free(reply);
        if (!managed)
            QThread::msleep(10);
    }
    xcb_destroy_window(c, probe);
    xcb_flush(c);
    return managed;
}

XvfbSession::~XvfbSession() {
    stop();
}

void XvfbSession::stop() {
    for (auto& program : m_programs) {
        program->kill();
        program->waitForFinished(5000);
    }
    m_programs.clear();
    if (m_connection)
        xcb_disconnect(m_connection);
    m_connection = nullptr;
    for (QProcess* p : {&m_openbox, &m_xvfb})
        if (p->state() != QProcess::NotRunning) {
            p->terminate();
            if (!p->waitForFinished(5000)) {
                p->kill();
                p->waitForFinished(5000);
            }
        }
}

xcb_window_t XvfbSession::root() const {
    return xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
}

xcb_atom_t XvfbSession::atom(const char* name) const {
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(
        m_connection, xcb_intern_atom(m_connection, 0, uint16_t(std::strlen(name)), name), nullptr);
    const xcb_atom_t a = reply ? reply->atom : XCB_NONE;
    std::free(reply);
    return a;
}

bool XvfbSession::windowManagerRuns() const {
    const xcb_atom_t check = atom("_NET_SUPPORTING_WM_CHECK");
    xcb_get_property_reply_t* reply = xcb_get_property_reply(
        m_connection, xcb_get_property(m_connection, 0, root(), check, XCB_ATOM_WINDOW, 0, 1),
        nullptr);
    const bool runs = reply && xcb_get_property_value_length(reply) == 4;
    std::free(reply);
    return runs;
}

QProcess* XvfbSession::startProgram(const QString& program, const QStringList& arguments) {
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(environmentFor(m_display, m_home.path()));
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(program, arguments);
    process->waitForStarted(5000);
    m_programs.push_back(std::move(process));
    return m_programs.back().get();
}

void XvfbSession::killServer() {
    m_openbox.kill();
    m_openbox.waitForFinished(5000);
    m_xvfb.kill();
    m_xvfb.waitForFinished(5000);
}

std::vector<uint32_t> XvfbSession::property(xcb_window_t window, const char* name,
                                            xcb_atom_t type) const {
    xcb_get_property_reply_t* r = xcb_get_property_reply(
        m_connection, xcb_get_property(m_connection, 0, window, atom(name), type, 0, 4096),
        nullptr);
    std::vector<uint32_t> v;
    if (r && r->format == 32) {
        const auto* d = static_cast<const uint32_t*>(xcb_get_property_value(r));
        v.assign(d, d + xcb_get_property_value_length(r) / 4);
    }
    std::free(r);
    return v;
}

} // namespace tk::test
