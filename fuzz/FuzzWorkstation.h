#pragma once

#include "FuzzSupport.h"
#include "core/DialogService.h"
#include "core/FrmFoutrapportage.h"
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
        // The fault report's list of ignored faults, read at every fault: present, each read
        // finds it at once instead of searching its folder for another spelling of its name.
        p.modMain.MaakMappen(QStringLiteral("\\Data"));
        p.modMain.SchrijfIni(QStringLiteral("0"), QStringLiteral("Foutrapportage"),
                             QStringLiteral("Laatste ID"),
                             QString::fromLatin1(FrmFoutrapportage::Bestand));
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

// The run's one workstation, made at the first call with Qt started and in network mode; a target
// makes the modules it feeds in its LLVMFuzzerInitialize.
inline FuzzWorkstation& workstation() {
    static FuzzWorkstation* const w = [] {
        startQt();
        auto* made = new FuzzWorkstation;
        made->p.modMain.ModusNetwerk = true;
        return made;
    }();
    return *w;
}

} // namespace tk::fuzz
