#pragma once

#include "platform/Processes.h"

namespace tk {

// Records every start as "program arg1 arg2 (in folder)" and answers `succeeds`.
class FakeProcesses : public Processes {
public:
    bool startDetached(const QString& program, const QStringList& arguments,
                       const QString& workingFolder) override {
        started.append(program +
                       (arguments.isEmpty() ? QString()
                                            : QLatin1Char(' ') + arguments.join(QLatin1Char(' '))) +
                       QStringLiteral(" (in ") + workingFolder + QLatin1Char(')'));
        return succeeds;
    }
    QStringList started;
    bool succeeds = true;
};

} // namespace tk
