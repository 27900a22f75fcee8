#pragma once

#include "FakeClock.h"
#include "FakeDisplay.h"
#include "FakeEnvironment.h"
#include "FakeNetwork.h"
#include "FakeProcesses.h"
#include "FakeRegistry.h"
#include "FakeWindows.h"
#include "platform/Platform.h"

namespace tk {

// The platform of the tests. Files are real (the program folder is a temporary folder the test
// chooses); everything that would change the machine is kept in memory and recorded.
class FakePlatform : public Platform {
public:
    explicit FakePlatform(const QString& programFolder) : m_programFolder(programFolder) {}

    RegistryStore& registry() override { return m_registry; }
    Environment& environment() override { return m_environment; }
    Clock& clock() override { return m_clock; }
    Processes& processes() override { return m_processes; }
    Network& network() override { return m_network; }
    Windows& windows() override { return m_windows; }
    Display& display() override { return m_display; }
    QString programFolder() const override { return m_programFolder; }
    QString programFile() const override {
        return m_programFolder + QStringLiteral("/tafelkrater");
    }

    FakeRegistry& fakeRegistry() { return m_registry; }
    FakeEnvironment& fakeEnvironment() { return m_environment; }
    FakeClock& fakeClock() { return m_clock; }
    FakeProcesses& fakeProcesses() { return m_processes; }
    FakeNetwork& fakeNetwork() { return m_network; }
    FakeWindows& fakeWindows() { return m_windows; }
    FakeDisplay& fakeDisplay() { return m_display; }

private:
    QString m_programFolder;
    FakeRegistry m_registry;
    FakeEnvironment m_environment;
    FakeClock m_clock;
    FakeProcesses m_processes;
    FakeNetwork m_network;
    FakeWindows m_windows;
    FakeDisplay m_display;
};

} // namespace tk
