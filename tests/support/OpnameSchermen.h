#pragma once

#include "core/ScreenSwitches.h"
#include "core/StartScreenEvents.h"
#include "screens/desktop/DesktopTaskbar.h"

#include <QStringList>
#include <functional>

namespace tk::test {

// The ways between the screens, recorded: "bureaublad <soort>:<id>", "verlaten",
// "onderhoud <leraar>:<klassen>", "internet", "internet verbergen", "open <woord>",
// "vensters <0|1>", "onderhoudverzoek <0|1>". The maintenance
// module, the browser and the other screens are there when `elders` says so.
struct OpnameSchermen : ScreenSwitches {
    void openBureaublad(int soort, const QString& id) override {
        log << QStringLiteral("bureaublad %1:%2").arg(soort).arg(id);
    }
    void bureaubladVerlaten() override { log << QStringLiteral("verlaten"); }
    bool openOnderhoudsmodule(int leraar, const QList<int>& klassen) override {
        QStringList rijen;
        for (int k : klassen)
            rijen << QString::number(k);
        log << QStringLiteral("onderhoud %1:%2").arg(leraar).arg(rijen.join(QLatin1Char(',')));
        return elders;
    }
    bool ControleerAanwezigOnderhoudsmodule(bool) override { return bezet; }
    void onderhoudVerzoek(bool gevraagd) override {
        log << QStringLiteral("onderhoudverzoek %1").arg(int(gevraagd));
    }
    bool openInternet() override {
        log << QStringLiteral("internet");
        return elders;
    }
    void internetVerbergen() override { log << QStringLiteral("internet verbergen"); }
    void vensters(bool zichtbaar) override {
        log << QStringLiteral("vensters %1").arg(int(zichtbaar));
    }
    bool openElders(const QString& woord) override {
        log << QStringLiteral("open ") + woord;
        return elders;
    }
    QStringList log;
    bool elders = true;
    bool bezet = false;
};

// The desktop's taskbar, recorded: "TekenKnop", "VensterPositie <hoogte>", "OpTop",
// "Zichtbaar <0|1>".
struct OpnameTaakbalk : DesktopTaskbar {
    void tekenKnoppen() override { log << QStringLiteral("TekenKnop"); }
    void plaatsVoorScherm(int hoogte) override {
        log << QStringLiteral("VensterPositie %1").arg(hoogte);
    }
    void houdBoven() override { log << QStringLiteral("OpTop"); }
    void strookTonen(bool zichtbaar) override {
        log << QStringLiteral("Zichtbaar %1").arg(zichtbaar);
    }
    QStringList log;
};

// The start screen as the other parts see it, recorded: "LaadLaadbalkLaden",
// "LaadLaadbalkUpdate", "ontvangst <ontvangen>/<totaal>", "verzending <verzonden>/<totaal>",
// "hoofdvenster", "taakbalk", "onderhoud gevraagd", "onderhoud ingetrokken", "account <soort>",
// "global <eerste>", "groep <id>", "leraar <id>". A change of the load's progress runs
// `bijLaadbalk`.
struct OpnameStartscherm : StartScreenEvents {
    void LaadLaadbalkLaden() override { log << QStringLiteral("LaadLaadbalkLaden"); }
    void LaadLaadbalkUpdate() override { log << QStringLiteral("LaadLaadbalkUpdate"); }
    void laadbalkGewijzigd() override {
        if (bijLaadbalk)
            bijLaadbalk();
    }
    void verzendVoortgang(qint64 totaal, qint64 verzonden) override {
        log << QStringLiteral("verzending %1/%2").arg(verzonden).arg(totaal);
    }
    void ontvangstVoortgang(qint64 ontvangen, qint64 totaal) override {
        log << QStringLiteral("ontvangst %1/%2").arg(ontvangen).arg(totaal);
    }
    void hoofdvensterTonen() override { log << QStringLiteral("hoofdvenster"); }
    void taakbalkHertekenen() override { log << QStringLiteral("taakbalk"); }
    void onderhoudGevraagd() override { log << QStringLiteral("onderhoud gevraagd"); }
    void onderhoudVraagIngetrokken() override { log << QStringLiteral("onderhoud ingetrokken"); }
    void AccountKlik(int soort) override { log << QStringLiteral("account %1").arg(soort); }
    void OpenGlobal(bool eerste) override { log << QStringLiteral("global %1").arg(eerste); }
    void OpenGroep(const QString& id) override { log << QStringLiteral("groep ") + id; }
    void OpenLeraar(const QString& id) override { log << QStringLiteral("leraar ") + id; }
    QStringList log;
    std::function<void()> bijLaadbalk;
};

} // namespace tk::test
