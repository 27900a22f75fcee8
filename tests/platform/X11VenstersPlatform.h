#pragma once

#include "platform/fake/FakePlatform.h"
#include "platform/linux/LinuxWindows.h"

#include <QByteArray>
#include <QString>

namespace tk::test {

// The fake platform, but with the real window system of a test's X server.
class X11VenstersPlatform : public FakePlatform {
public:
    X11VenstersPlatform(const QString& map, const QByteArray& display)
        : FakePlatform(map), m_vensters(display) {}
    Windows& windows() override { return m_vensters; }
    LinuxWindows& linuxWindows() { return m_vensters; }

private:
    LinuxWindows m_vensters;
};

} // namespace tk::test
