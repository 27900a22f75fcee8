#include "FrmVersie.h"

#include "core/DialogService.h"
#include "core/Programma.h"
#include "platform/Environment.h"

#include <QFileInfo>

namespace tk {

void FrmVersie::LaadTaal() {
    auto t = [&](int id) { return p.modTaal.LaadTekst(id); };
    Caption = t(2600);
    lblTekst = t(2601);
    optCaptions = {t(2602), t(2603), t(2604)};
    cmdOK = t(2605);
    cmdSluiten = t(2606);
}

int FrmVersie::Vraag(const QString& windowsNaam) {
    LaadTaal();
    const QString locatie = p.modRegistry.LeesWaarde(RegistryRoot::LocalMachine,
                                                     QStringLiteral("SOFTWARE\\Tafelkrater"),
                                                     QStringLiteral("Locatie server"));
    // A Standalone workstation needs the server program installed beside it.
    const QString pad = locatie.isEmpty() ? QString() : p.modMain.Pad(locatie);
    optEnabled[0] = !locatie.isEmpty() && QFileInfo(pad).isFile() &&
                    QFileInfo(pad).fileName().contains(QStringLiteral("tafelkrater-server"),
                                                       Qt::CaseInsensitive) &&
                    p.platform.environment().osVersion().platformId != 1;
    optEnabled[1] = true;
    optEnabled[2] = true;
    if (windowsNaam.toUpper() == u"WINDOWS 2003")
        optEnabled[0] = optEnabled[1] = false;
    Gekozen = optEnabled[0] ? 0 : optEnabled[1] ? 1 : 2;
    Antwoord = -1;
    if (p.dialogen)
        p.dialogen->toonModaal(*this);
    return Antwoord;
}

} // namespace tk
