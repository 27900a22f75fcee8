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

QStringList Programma::unwired() const {
    QStringList uit;
    const auto eis = [&uit](const void* plek, const char* naam) {
        if (!plek)
            uit << QString::fromLatin1(naam);
    };
    eis(kanaal, "kanaal");
    eis(dialogen, "dialogen");
    eis(opstartStappen == &unbuiltSteps ? nullptr : opstartStappen, "opstartStappen");
    eis(startScreenEvents, "startScreenEvents");
    eis(schermen, "schermen");
    eis(frmMain, "frmMain");
    eis(modMainVerbinding, "modMainVerbinding");
    eis(modData, "modData");
    eis(modMainLaden, "modMainLaden");
    eis(modThema, "modThema");
    eis(modDataThemas, "modDataThemas");
    eis(modDataPictogrammen, "modDataPictogrammen");
    eis(startScreen, "startScreen");
    eis(frmTaakbalk1, "frmTaakbalk1");
    eis(modMainAfsluiten, "modMainAfsluiten");
    eis(frmWachten, "frmWachten");
    eis(frmAanmelden, "frmAanmelden");
    eis(frmAfmelden, "frmAfmelden");
    return uit;
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
