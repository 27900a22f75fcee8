#pragma once

#include "LinuxDisplay.h"
#include "LinuxEnvironment.h"
#include "LinuxNetwork.h"
#include "LinuxProcesses.h"
#include "LinuxWindows.h"
#include "RegistryFileStore.h"
#include "SystemClock.h"
#include "platform/Platform.h"

namespace tk {

// The real platform. The registry store lives in <program folder>/Register.
class LinuxPlatform : public Platform {
public:
    explicit LinuxPlatform(const QString& programFolder);

    RegistryStore& registry() override { return m_registry; }
    Environment& environment() override { return m_environment; }
    Clock& clock() override { return m_clock; }
    Processes& processes() override { return m_processes; }
    Network& network() override { return m_network; }
    Windows& windows() override { return m_windows; }
    Display& display() override { return m_display; }
    QString programFolder() const override { return m_programFolder; }
    QString programFile() const override;

private:
    QString m_programFolder;
    LinuxEnvironment m_environment;
    RegistryFileStore m_registry;
    SystemClock m_clock;
    LinuxProcesses m_processes;
    LinuxNetwork m_network;
    LinuxWindows m_windows;
    LinuxDisplay m_display;
};

} // namespace tk
