#pragma once

#include "FuzzSupport.h"
#include "core/DialogService.h"
#include "core/Programma.h"
#include "platform/fake/FakePlatform.h"

#include <QDir>

namespace tk::fuzz {

// One workstation for the whole run (a Programma per input would cost more than the parsing):
// a program folder in the scratch folder, the fake platform and a Programma over it. Windows
// are closed as soon as they open, so that a fault report goes to the log book only.
class FuzzWorkstation {
public:
    FuzzWorkstation()
        : m_folder(scratch().filePath(QStringLiteral("werkplek"))), platform(m_folder),
          p(platform) {
        QDir().mkpath(m_folder);
        p.dialogen = &m_dialogs;
    }
    QString folder() const { return m_folder; }

private:
    struct ClosedDialogs : DialogService {
        QString vraag(const QString&, const QString&, const QString&) override {
            return QStringLiteral("nee");
        }
        void toonModaal(Form&) override {}
    };
    QString m_folder;
    ClosedDialogs m_dialogs;

public:
    FakePlatform platform;
    Programma p;
};

} // namespace tk::fuzz
