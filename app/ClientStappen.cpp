#include "ClientStappen.h"

#include "core/Programma.h"
#include "link/ModMainVerbinding.h"
#include "theme/ModThema.h"

#include <QTextStream>

namespace tk {

void ClientStappen::meld(const QString& wat) {
    QTextStream(stdout) << "tafelkrater: " << wat << Qt::endl;
}

bool ClientStappen::StuurOpstartCommando(const QString& woord) {
    return p.modMainVerbinding && p.modMainVerbinding->StuurOpstartCommando(woord);
}

void ClientStappen::StartServer(bool firewall) {
    if (p.modMainVerbinding)
        p.modMainVerbinding->StartServer(firewall);
}

void ClientStappen::LaadThema() {
    if (p.modThema)
        p.modThema->LaadThema();
}

void ClientStappen::StartVerbinding(bool opnieuw) {
    if (p.modMainVerbinding)
        p.modMainVerbinding->StartVerbinding(opnieuw);
}

void ClientStappen::OpenGlobal(bool) {
    meld(QStringLiteral("start screen for everyone (%1)").arg(p.modMain.Locatie));
}

void ClientStappen::OpenGroep(const QString& id) {
    meld(QStringLiteral("desktop of class %1").arg(id));
}

void ClientStappen::OpenLeraar(const QString& id) {
    meld(QStringLiteral("desktop of teacher %1").arg(id));
}

void ClientStappen::OpenOnderhoud() {
    meld(QStringLiteral("maintenance module"));
}

void ClientStappen::OpenFout(const QString& tekst) {
    meld(QStringLiteral("no account: ") + tekst);
}

} // namespace tk
