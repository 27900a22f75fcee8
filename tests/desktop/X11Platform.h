#pragma once

#include "core/Programma.h"
#include "platform/fake/FakePlatform.h"
#include "platform/linux/LinuxDisplay.h"
#include "platform/linux/LinuxProcesses.h"
#include "platform/linux/LinuxWindows.h"
#include "platform/linux/SystemClock.h"
#include "screens/desktop/FrmBureaubladStarter.h"
#include "tests/platform/XvfbSession.h"
#include "tests/support/OpnameKanaal.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/WaitUntil.h"

#include <QByteArray>
#include <QTemporaryDir>

#include <memory>

namespace tk::test {

// The windows of the X server, counting the drags handed to the manager.
class X11Windows : public LinuxWindows {
public:
    using LinuxWindows::LinuxWindows;
    void startMove(quint64 shellWindow, QPoint globalPos) override {
        ++verplaatsingen;
        LinuxWindows::startMove(shellWindow, globalPos);
    }
    int verplaatsingen = 0;
};

// The platform of a workstation whose programs, windows and display are the test's X server;
// everything else stays the fake one.
class X11Platform : public Platform {
public:
    X11Platform(FakePlatform& fake, const QByteArray& display)
        : m_fake(fake), m_windows(display), m_display(display) {}
    RegistryStore& registry() override { return m_fake.registry(); }
    Environment& environment() override { return m_fake.environment(); }
    Clock& clock() override { return m_clock; }
    Processes& processes() override { return m_processes; }
    Network& network() override { return m_fake.network(); }
    Windows& windows() override { return m_windows; }
    Display& display() override { return m_display; }
    QString programFolder() const override { return m_fake.programFolder(); }
    QString programFile() const override { return m_fake.programFile(); }

    LinuxProcesses& linuxProcesses() { return m_processes; }
    X11Windows& linuxWindows() { return m_windows; }

private:
    FakePlatform& m_fake;
    SystemClock m_clock;
    LinuxProcesses m_processes;
    X11Windows m_windows;
    LinuxDisplay m_display;
};

// A workstation on the test's X server, with the desktop's launcher.
struct X11Werkplek {
    explicit X11Werkplek(XvfbSession& x) : platform(fake, x.display()), p(platform) {
        p.dialogen = &dialogen;
        p.kanaal = &kanaal;
        starter = std::make_unique<FrmBureaubladStarter>(p);
    }
    ~X11Werkplek() {
        // Nothing a test started outlives it.
        for (qint64 pid : gestart)
            platform.linuxProcesses().kill(pid);
    }
    FrmBureaubladStarter& s() { return *starter; }
    // Starts through the launcher and notes the process, so that it is ended at the latest
    // with the test.
    void start(const QString& opdracht, const QString& parameters, const QString& eis) {
        s().LaatsteStart = QDateTime(); // no guard against the start before
        s().StartApplicatie(opdracht, parameters, QString(), eis, QStringLiteral("Programma"));
        if (s().ShellProces > 0)
            gestart << s().ShellProces;
    }
    // The windows of the start that is waited for.
    QList<WindowInfo> vensters() {
        const QList<qint64> processen = platform.linuxProcesses().processesOfStart(s().ShellProces);
        QList<WindowInfo> uit;
        for (const WindowInfo& v : platform.linuxWindows().topLevelWindows())
            if (processen.contains(v.pid))
                uit << v;
        return uit;
    }
    // Ticks tmrShellWait until the condition holds (the program and the server take their time).
    template <class F> bool tikTot(F voorwaarde) {
        return waitUntil([&] {
            s().tmrShellWait_Timer();
            return voorwaarde();
        });
    }
    QStringList meldingen() const { return dialogen.teksten(); }

    QTemporaryDir map;
    FakePlatform fake{map.path()};
    X11Platform platform;
    ScriptedDialogs dialogen;
    Programma p;
    OpnameKanaal kanaal{p};
    std::unique_ptr<FrmBureaubladStarter> starter;
    QList<qint64> gestart;
};

} // namespace tk::test
