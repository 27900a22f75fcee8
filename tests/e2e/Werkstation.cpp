#include "Werkstation.h"

#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"

namespace tk::test {

Werkstation::Werkstation(quint16 poort, bool beheer) {
    w.p.maak(w.p.frmMain, w.p);
    w.p.maak(w.p.modMainVerbinding, w.p);
    w.p.modMain.ModusBeheer = beheer;
    w.p.modMain.ModusNetwerk = !beheer;
    w.p.modMain.MaakMappen(QStringLiteral("\\Data"));
    w.p.modMain.SchrijfIni(QStringLiteral("127.0.0.1:%1").arg(poort),
                           QStringLiteral("Instellingen"), QStringLiteral("Serverlocatie"),
                           QStringLiteral("\\Data\\Instellingen.ini"));
    w.platform.fakeClock().setStepPerRead(10);
}

bool Werkstation::verbind() {
    if (!w.p.modMainVerbinding->BepaalServerlocatie() || !w.p.frmMain->ServerVerbinden(true))
        return false;
    w.p.modMainVerbinding->IdentificeerClient();
    return w.p.frmMain->isConnected();
}

QString Werkstation::vraag(const QString& bericht) {
    w.p.modMain.AntwoordOntvangen = false;
    w.p.frmMain->WS_Versturen(bericht, false);
    w.p.wacht.Tot([this] { return w.p.modMain.AntwoordOntvangen; });
    return w.p.modMain.Antwoord;
}

bool Werkstation::stuurIcoon(const QString& soort, const QString& id, const QByteArray& inhoud) {
    const QString naam = id + QStringLiteral(".pic");
    w.schrijf(QStringLiteral("Tijdelijk/") + naam, inhoud);
    if (vraag(QStringLiteral("OPSAP2") + soort + QLatin1Char('|') + naam) != u"OK")
        return false;
    return w.p.frmMain->VerstuurBestand(w.pad(QStringLiteral("Tijdelijk/") + naam));
}

} // namespace tk::test
