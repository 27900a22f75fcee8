#pragma once

#include <QString>

namespace tk {

class Clock;
class Display;
class Environment;
class Network;
class Processes;
class RegistryStore;
class Windows;

// Everything the program asks of the operating system, grouped by subject. The Linux
// implementation changes the machine; the fake one keeps everything in memory and records it.
class Platform {
public:
    virtual ~Platform() = default;
    virtual RegistryStore& registry() = 0;
    virtual Environment& environment() = 0;
    virtual Clock& clock() = 0;
    virtual Processes& processes() = 0;
    virtual Network& network() = 0;
    virtual Windows& windows() = 0;
    virtual Display& display() = 0;
    // The program folder: the folder of the executable, which holds Data, Logboek and the rest.
    virtual QString programFolder() const = 0;
    // The program's own executable file, inside the program folder.
    virtual QString programFile() const = 0;
};

} // namespace tk
