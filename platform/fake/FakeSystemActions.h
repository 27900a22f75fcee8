#pragma once

#include "platform/SystemActions.h"

#include <QHash>

namespace tk {

// The machine's session side for a test: every action is recorded as "verb arg arg" in
// actions, and answered from refused (verbs that fail) and outputs (what a verb prints).
class FakeSystemActions : public SystemActions {
public:
    bool run(const QString& verb, const QStringList& arguments, const QString& input,
             QString* output) override {
        actions << (QStringList{verb} + arguments).join(QLatin1Char(' '));
        inputs << input;
        if (output)
            *output = outputs.value(verb);
        return !refused.contains(verb);
    }

    QStringList actions;
    QStringList inputs;
    QStringList refused;
    QHash<QString, QString> outputs;
};

} // namespace tk
