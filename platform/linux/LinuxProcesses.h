#pragma once

#include "platform/Processes.h"

namespace tk {

class LinuxProcesses : public Processes {
public:
    bool startDetached(const QString& program, const QStringList& arguments,
                       const QString& workingFolder) override;
};

} // namespace tk
