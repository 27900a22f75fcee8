#include "Programma.h"

#include "platform/Clock.h"

#include <QCoreApplication>

namespace tk {

void meldProcedureFout(Programma& p, const char* procedure, const QString& omschrijving,
                       const QString& lijn, bool stil) noexcept {
    try {
        p.modMain.Foutmelding(omschrijving, QStringLiteral("Foutrapportage"),
                              QString::fromLatin1(procedure), lijn, stil);
    } catch (...) {
        // The reporter has no handler of its own; a fault inside it is lost, as a full disk
        // loses the log entry.
    }
}

Programma::Programma(Platform& platform)
    : platform(platform), wacht(platform.clock()), modRegistry(*this), modTaal(*this),
      modMain(*this), frmFoutrapportage(*this) {
    formulieren.append(&frmFoutrapportage);
}

void Programma::Einde(int code) {
    beeindigd = true;
    wacht.Stop();
    if (QCoreApplication::instance())
        QCoreApplication::exit(code);
}

Programma::~Programma() {
    // The higher layers go first, the newest first, while the core they use still stands.
    while (!m_onderdelen.empty())
        m_onderdelen.pop_back();
}

} // namespace tk
