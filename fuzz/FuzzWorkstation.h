#pragma once

#include "FuzzSupport.h"
#include "core/Programma.h"
#include "platform/fake/FakePlatform.h"

#include <QDir>

namespace tk::fuzz {

// One workstation for the whole run (a Programma per input would cost more than the parsing):
// a program folder in the scratch folder, the fake platform and a Programma over it. No dialogs:
// a fault report is kept in the log book only.
class FuzzWorkstation {
public:
    FuzzWorkstation()
        : m_folder(scratch().filePath(QStringLiteral("werkplek"))), platform(m_folder),
          p(platform) {
        QDir().mkpath(m_folder);
    }
    QString folder() const { return m_folder; }

private:
    QString m_folder;

public:
    FakePlatform platform;
    Programma p;
};

} // namespace tk::fuzz
