#include "FrmActiveren2.h"

#include "core/ModMain.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "link/FrmMainLink.h"
#include "platform/Environment.h"
#include "session/ModMainSessie.h"

namespace tk {

void FrmActiveren2::LaadTaal() {
    Caption = p.modTaal.LaadTekst(500);
    lblInfo = p.modTaal.LaadTekst(501);
    lblWacht = p.modTaal.LaadTekst(502);
}

void FrmActiveren2::zichtbaar(bool ja) {
    Zichtbaar = ja;
    if (onChanged)
        onChanged();
}

bool FrmActiveren2::Openen() {
    return Procedure(p, "frmActiveren2.Form_Load", false, [&] {
        LaadTaal();
        zichtbaar(true);
        p.wacht.Pomp();
        ModMain& m = p.modMain;
        const QString instellingen = QString::fromLatin1(ModMain::Instellingen);
        if (!m_sessie.TafelkraterAccountAanmaken()) {
            zichtbaar(false);
            m.ToonVraag(p.modTaal.LaadTekst(3), p.modTaal.LaadTekst(503), QStringLiteral("-"));
            return false;
        }
        m.SchrijfIni(QStringLiteral("Ja"), QStringLiteral("Algemeen"),
                     QStringLiteral("Geactiveerd"), instellingen);
        if (m.ModusStandalone) {
            m.SchrijfIni(QStringLiteral("Tafelkrater"), QStringLiteral("Standalone"),
                         QStringLiteral("Gebruikersnaam"), instellingen);
            m.SchrijfIni(ModMain::IngebouwdWachtwoord(), QStringLiteral("Standalone"),
                         QStringLiteral("Wachtwoord"), instellingen);
        } else if (m.ModusNetwerk) {
            // The server's domain when the firewall test heard it, else the machine's own.
            QString domein = p.frmMain ? p.frmMain->Domein : QString();
            if (domein.isEmpty())
                domein = p.platform.environment().variable(QStringLiteral("USERDOMAIN"));
            m.SchrijfIni(domein, QStringLiteral("Netwerk"), QStringLiteral("Domein"), instellingen);
        }
        m_sessie.ZetBureaubladachtergrond(true, true);
        zichtbaar(false);
        return true;
    });
}

} // namespace tk
