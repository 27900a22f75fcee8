#pragma once

#include "platform/fake/FakePlatform.h"
#include "platform/linux/LinuxDisplay.h"
#include "platform/linux/LinuxProcesses.h"
#include "platform/linux/LinuxWindows.h"
#include "platform/linux/SystemClock.h"

#include <QByteArray>

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
    LinuxDisplay& linuxDisplay() { return m_display; }

private:
    FakePlatform& m_fake;
    SystemClock m_clock;
    LinuxProcesses m_processes;
    X11Windows m_windows;
    LinuxDisplay m_display;
};

} // namespace tk::test
